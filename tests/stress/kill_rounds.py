"""Kills a program that saves, at random moments, and looks at what is left: a save that was told is
there, nothing is half-written, and leftovers do not pile up.

usage: kill_rounds.py VARDEL_WRITER log|settings|archive|exports ROUNDS [SEED]

Every other time the program dies at one of its own calls to the system, because a kill from outside
seldom comes between two of them.
"""

import random
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from saved import is_whole, settings, whole_runs

CALLS_OF_A_SAVE = {"log": 3, "settings": 9, "archive": 60, "exports": 45}
LEFTOVER = r"\.part$|\.lock$|-journal$"
KEPT = "[Other]\nKept=as it is\n\n[Global%20Parameters]\nCalledFromQuorne=True\n"


class Rounds:
    def __init__(self, program, kind, folder, seed):
        self.program, self.kind, self.folder = program, kind, Path(folder)
        self.chance = random.Random(seed)
        self.saved = []  # what was told, in order
        self.keys = set()

    def run(self, rounds):
        """The last one ends as usual and leaves nothing beside what it has saved."""
        for number in range(rounds + 1):
            self.prepare()
            try:
                self.play("once" if number == rounds else "itself" if number % 2 else "killed")
                getattr(self, "check_" + self.kind)()
            except Exception as fault:
                raise AssertionError(f"round {number} of {self.kind}") from fault
        left = [file for file in self.folder.rglob("*") if re.search(LEFTOVER, file.name)]
        assert not left, left
        print(f"{self.kind}: {rounds} kills, {len(self.saved)} saves")

    def prepare(self):
        """The host that a program was called from calls it again, and others have their own values there."""
        if self.kind != "settings":
            return
        (self.folder / "vardel").mkdir(exist_ok=True)
        for application in ("Vardel", "Ostrel_Quorne"):
            file = self.folder / "vardel" / (application + ".ini")
            text = file.read_text() if file.exists() else KEPT
            file.write_text(text.replace("CalledFromQuorne=False", "CalledFromQuorne=True"))

    def play(self, end):
        calls = 2 * CALLS_OF_A_SAVE[self.kind]
        call = {"once": -1, "itself": self.chance.randint(1, calls), "killed": 0}[end]
        with subprocess.Popen([self.program, self.kind, self.folder, str(call)], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as child:
            word, _ = child.stdout.readline().split()
            assert word == "found", word
            if end == "killed":
                time.sleep(self.chance.uniform(0.0, 0.3))
                child.kill()
            # A line that was told in full was told after its save.
            told = [line.split(maxsplit=1) for line in child.stdout if line.endswith("\n")]
        assert child.returncode == (0 if end == "once" else -9), child.returncode
        assert all(word == "saved" for word, _ in told), told
        self.saved += [what.strip() for _, what in told]

    def check_log(self):
        log, = (self.folder / "state").glob("*.rtf")
        assert is_whole(log) or log.read_bytes() == b"", log
        if self.saved:  # the first of the lines is the heads of the columns
            lines = 1 + log.read_text().count("Metric")
            assert lines >= int(self.saved[-1]), (lines, self.saved[-1])

    def check_settings(self):
        own, host = settings(self.folder, "Vardel"), settings(self.folder, "Ostrel_Quorne")
        assert own["Other"] == host["Other"] == {"Kept": "as it is"}, (own, host)
        keys = {(section, key) for file in (own, host) for section in file for key in file[section]}
        assert keys >= self.keys, self.keys - keys
        self.keys = keys
        if self.saved:
            told = int(self.saved[-1])
            stored = [int(own["Loss_FieldStrength"]["Freq"]),
                      int(host["Global%20Parameters"]["TxFreq_MHz"])]
            assert min(stored) >= told, (stored, told)

    def check_archive(self):
        archive = self.folder / "runs.mdb"
        if self.saved or archive.exists():
            missing = {int(run) for run in self.saved} - set(whole_runs(archive))
            assert not missing, missing

    def check_exports(self):
        for name in set(self.saved):
            assert (self.folder / name).exists(), name
        broken = [file for file in self.folder.glob("[!.]*.*")
                  if file.stem not in ("runs", "measured") and not is_whole(file)]
        assert not broken, broken


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as scratch:
        Rounds(sys.argv[1], sys.argv[2], scratch, int((sys.argv[4:] or [1])[0])).run(int(sys.argv[3]))
