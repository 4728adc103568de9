"""Four programs at once on one folder of logs, one of settings and one archive, each with so many of
a user's actions: nothing that one of them told as saved is lost to the others.

usage: four_programs.py VARDEL_WRITER ACTIONS [SEED]
"""

import subprocess
import sys
import tempfile
from collections import Counter
from pathlib import Path

from saved import is_whole, settings, whole_runs


class Told:
    """What one program told, with what is there last."""

    def __init__(self, lines):
        self.runs, self.settings, self.calculations, self.log = {}, {}, None, None
        self.maybe = {}  # comments of runs, where something failed that may have been the change
        for line in lines:
            word, rest = line.rstrip("\n").split(" ", 1)
            first, _, more = rest.partition(" ")
            if word == "run":
                self.runs[int(first)] = more  # empty: deleted
                self.maybe.pop(int(first), None)
            elif word == "maybe":
                self.maybe[int(first)] = more
            elif word == "set":
                self.settings[first] = more
            elif word == "log":
                self.log = Path(rest)
            elif word == "calculated":
                self.calculations = int(rest)
            else:
                raise AssertionError(line)


def work(program, actions, seed, folder):
    """Into files, since a program whose pipe is full would stand still."""
    outputs = [tempfile.TemporaryFile("w+") for _ in range(4)]
    crew = [subprocess.Popen([program, "beside", folder, str(actions), str(4 * seed + i)],
                             stdout=output, stderr=subprocess.DEVNULL)
            for i, output in enumerate(outputs)]
    statuses = [member.wait() for member in crew]
    for output in outputs:
        output.seek(0)
    lines = [list(output) for output in outputs]
    assert statuses == [0] * 4, (statuses, [[line for line in told if line.startswith("failed")] for told in lines])
    return [Told(told) for told in lines]


def check(crew, folder):
    lines = Counter()
    for told in crew:
        lines[told.log] += told.calculations
    for log, expected in lines.items():
        found = log.read_text().count("Metric")
        assert found == expected and is_whole(log), (log, found, expected)
    assert len(lines) == 4, "a second start takes up what the first has left, each a log of its own"
    runs = {}
    for told in crew:
        assert not runs.keys() & told.runs.keys(), "a number was given twice"
        runs.update(told.runs)
    kept = {run: comment for run, comment in runs.items() if comment}
    stored = whole_runs(Path(folder) / "runs.mdb")
    maybe = {run: comment for told in crew for run, comment in told.maybe.items()}
    kept |= {run: comment for run, comment in maybe.items() if stored.get(run) == comment}
    assert stored == kept, (stored.items() ^ kept.items())
    own = settings(folder, "Vardel")
    assert own["Loss_FieldStrength"]["Freq"] == "450.0", own
    told = {name: value for member in crew for name, value in member.settings.items()}
    assert own["Workers"] == told, own["Workers"].items() ^ told.items()
    left = list(Path(folder).rglob("*.lock")) + list(Path(folder).rglob("*.part"))
    assert not left, left
    print(f"{len(runs)} runs stored, {len(runs) - len(kept)} deleted, "
          f"{lines.total()} lines in {len(lines)} logs")


if __name__ == "__main__":
    program, actions, seed = sys.argv[1], int(sys.argv[2]), int((sys.argv[3:] or [1])[0])
    with tempfile.TemporaryDirectory() as scratch:
        first = work(program, actions // 2, 2 * seed, scratch)
        check(first + work(program, actions - actions // 2, 2 * seed + 1, scratch), scratch)
