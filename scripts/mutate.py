#!/usr/bin/env python3
"""Puts one-line faults into copies of the sources, one at a time, builds the tests of their room without
optimisation, runs them up to the first failure, and names the faults that survive. A fault that does
not compile is replaced by another. The copies lie below build/ and go with the run."""

import argparse
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from contextlib import suppress
from functools import partial
from itertools import chain, zip_longest
from pathlib import Path
from queue import SimpleQueue
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent
CORE_TESTS = ("vardel_core_tests", ["tests/vardel_core_tests", "--gtest_fail_fast"])
CLI_TESTS = ("vardel_cli_tests vardel-calc", ["tests/vardel_cli_tests", "--gtest_fail_fast"])
PYTHON_TESTS = ("vardel_python vardel-calc",
                ["/usr/bin/python3", "-B", "-m", "pytest", "-x", "-q", "-p", "no:cacheprovider",
                 str(ROOT / "python" / "tests")])
# Each with the targets and the command of the tests that are to see its faults.
ROOMS = {
    "src/models": CORE_TESTS, "src/engine": CORE_TESTS, "src/archive": CORE_TESTS, "src/map": CORE_TESTS,
    "src/text": CORE_TESTS, "src/forms": CORE_TESTS, "cli": CLI_TESTS, "python/src": PYTHON_TESTS,
}


def room_of(path):
    return next((room for room in ROOMS if path.startswith(room + "/")), None)


TIME_LIMIT = 60  # s, ten times what the tests need; a fault may make an endless loop
MEMORY_LIMIT = 4 << 30  # which may also fill the memory

# Words that stand for each other's opposite or neighbour, also as parts of longer names.
PAIRS = [
    ("Itu529", "Davidson"), ("Davidson", "Cost231"), ("Cost231", "Itu529"), ("Us", "Davidson"),
    ("Loss", "FieldStrength"), ("FieldStrength", "Loss"), ("loss", "fieldStrength"),
    ("fieldStrength", "loss"), ("hb", "hm"), ("hm", "hb"), ("Min", "Max"), ("Max", "Min"),
    ("min", "max"), ("max", "min"), ("front", "back"), ("back", "front"), ("begin", "end"),
    ("pctTime", "pctLoc"), ("pctLoc", "pctTime"), ("PctTime", "PctLoc"), ("PctLoc", "PctTime"),
    ("Urban", "Suburban"), ("Suburban", "Open"), ("Open", "Urban"), ("Yes", "No"), ("No", "Yes"),
    ("Metric", "English"), ("English", "Metric"), ("InRange", "OutOfRange"), ("X", "Y"), ("Y", "X"),
    ("Distance", "Value"), ("distances", "values"), ("FromOne", "FromTenth"), ("floor", "ceil"),
    ("true", "false"), ("false", "true"), ("sin", "cos"), ("lower", "upper"), ("upper", "lower"),
]
OPERATORS = [
    (" < ", " <= "), (" < ", " > "), (" <= ", " < "), (" <= ", " > "), (" > ", " >= "),
    (" > ", " < "), (" >= ", " > "), (" >= ", " < "), (" == ", " != "), (" != ", " == "),
    (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "), (" += ", " -= "),
    (" && ", " || "), (" || ", " && "), ("++", "--"), ("--", "++"),
]
NO_BEHAVIOUR = re.compile(r"\s*(#|static_assert|assert|using |namespace |template |class |struct )"
                          r"|.*\b(reserve|friend|operator)\b"
                          r"|\s*[\w:<>]+&? \w+\((const|double|int|std::\w+) ")  # a function's head
LITERAL = re.compile(r'"(?:\\.|[^"\\])*"' r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\])+'" r"|//.*")
NUMBER = re.compile(r"(?<![\w.])(?:0x[0-9A-F]+|\d+(?:\.\d+)?)(?=(?:e-?\d+)?U?(?![\w.]))")
ARGUMENTS = re.compile(r"(?<=[(,{ ])([\w.]+(?:\(\))?), ([\w.]+(?:\(\))?)(?=[,)}])")
DECLARATION = r"(?!return\b|throw\b|else\b)[\w:<>,*& ]*[\w>*&] [*&]*\w+( = |[;{(\[])"
STATEMENT = re.compile(rf"(\s*)(?!\s|[:}}]|case\b|else\b|return [^;]*;$|{DECLARATION})(.*;)$")


class Fault(NamedTuple):
    path: str
    line: int  # from 0
    old: str
    new: str

    def __str__(self):
        return f"{self.path}:{self.line + 1}\n    - {self.old.strip()}\n    + {self.new.strip()}"


def other_number(text):
    """The same with another last digit, as a slip of the finger makes it."""
    digit = int(text[-1], 16)
    if text.startswith("0x"):
        return text[:-1] + f"{digit ^ 1:X}"
    return text[:-1] + str(digit + 1 if digit < 9 else 8)


def changed_lines(line, before):
    """Each line that one fault makes of it; before is the line above."""
    code = LITERAL.sub(lambda m: " " * len(m[0]) if m[0][0] == "/" else m[0][0] * len(m[0]), line)
    if NO_BEHAVIOUR.match(code):
        return
    for old, new in OPERATORS:
        for m in re.finditer(f"(?<![\"']){re.escape(old)}(?![\"'])", code):  # not of texts
            yield line[:m.start()] + new + line[m.end():]
    for old, new in PAIRS:
        # A whole word, or a part of a name that begins with its own capital.
        rest = "(?![a-z])" if old[0].isupper() and len(old) > 1 else r"\b"
        start = r"\b" if old[0].islower() or len(old) == 1 else "(?<![A-Z])"
        start = "(?<!double )(?<![>&] )" + start  # a declaration's name is none
        for m in re.finditer(start + old + rest, code):
            yield line[:m.start()] + new + line[m.end():]
    for m in NUMBER.finditer(code):
        if "std::array<" not in code:
            yield line[:m.start()] + other_number(m[0]) + line[m.end():]
    for m in ARGUMENTS.finditer(code):
        if m[1] != m[2]:
            yield line[:m.start()] + f"{m[2]}, {m[1]}" + line[m.end():]
    for m in re.finditer(r"(?<=[(& |])!(?=[\w(])", code):
        yield line[:m.start()] + line[m.end():]
    for m in LITERAL.finditer(line):
        own_name = m[0].strip('"') in line[:m.start()]  # of a control
        if m[0][0] == '"' and len(m[0]) > 2 and not own_name:
            yield line[:m.start()] + '""' + line[m.end():]
    statement = STATEMENT.match(code.rstrip())
    whole = before.rstrip().endswith((";", "{", "}", ":", ")", "else")) or "//" in before
    if statement and whole and all(code.count(a) == code.count(b) for a, b in ("()", "{}")):
        yield statement[1] + ";"


def faults_of(path):
    lines = (ROOT / path).read_text().splitlines()
    for number, line in enumerate(lines):
        for new in dict.fromkeys(changed_lines(line, lines[number - 1] if number else "")):
            yield Fault(path, number, line, new)


def in_turn(lists):
    return [x for x in chain.from_iterable(zip_longest(*lists)) if x is not None]


def drawn(files, places, seed):
    """All faults in the order to be tried: the rooms in turn, in each a line's second after all firsts."""
    rng = random.Random(seed)
    rooms = []
    for room in ROOMS:
        faults = [f for path in files if room_of(path) == room for f in faults_of(path)]
        faults = [f for f in faults if not places
                  or any(f"{f.path}:{f.line + 1}:".startswith(place) for place in places)]
        rng.shuffle(faults)
        seen = Counter()
        turns = []
        for fault in faults:
            seen[fault.path, fault.line] += 1
            turns.append(seen[fault.path, fault.line])
        rooms.append([f for _, f in sorted(zip(turns, faults), key=lambda pair: pair[0])])
    return in_turn(rooms)


class Stopped(Exception):
    pass


class Tree:
    """A copy of the sources with a build of its own."""

    running = set()  # of all trees
    lock = threading.Lock()
    stopped = False

    def __init__(self, folder, files):
        self.source = folder / "tree"
        for name in files:
            if (ROOT / name).is_file():
                (self.source / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(ROOT / name, self.source / name)
        self.build_folder = self.source / "build" / "mutate"
        self.scratch = folder / "scratch"
        self.scratch.mkdir()
        self.environment = dict(
            os.environ, TMPDIR=str(self.scratch), HOME=str(self.scratch),
            LOCPATH=str(self.build_folder / "tests" / "locales"),
            PYTHONPATH=str(self.build_folder / "python"))

    def run(self, *command, seconds=None):
        """Its result, None after the time limit, and what it said."""
        with Tree.lock:
            if Tree.stopped:
                raise Stopped
            process = subprocess.Popen(
                command, cwd=self.scratch, env=self.environment, stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True)
            Tree.running.add(process)
        try:
            said = process.communicate(timeout=seconds)[0]
            result = process.returncode
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            said, result = process.communicate()[0], None
        with Tree.lock:
            Tree.running.discard(process)
            if Tree.stopped:
                raise Stopped
        return result, said.decode(errors="replace")

    @classmethod
    def stop_all(cls):
        with cls.lock:
            cls.stopped = True
            for process in cls.running:
                with suppress(ProcessLookupError):
                    os.killpg(process.pid, signal.SIGKILL)

    def configure(self):
        return self.run("cmake", "-S", self.source, "-B", self.build_folder, "-G", "Ninja",
                        "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O0 -w", "-DVARDEL_GUI=OFF",
                        "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST")

    def build(self, room):
        return self.run("cmake", "--build", self.build_folder, "--parallel", "1",
                        "--target", *ROOMS[room][0].split())

    def test(self, room):
        program, *arguments = ROOMS[room][1]
        result = self.run("prlimit", f"--as={MEMORY_LIMIT}", f"--fsize={MEMORY_LIMIT // 4}",
                          self.build_folder / program, *arguments, seconds=TIME_LIMIT)
        for left in self.scratch.iterdir():
            shutil.rmtree(left) if left.is_dir() else left.unlink()
        return result

    def prepare(self, rooms):
        steps = [self.configure]
        for room in rooms:
            steps += [partial(self.build, room), partial(self.test, room)]
        for step in steps:
            result, said = step()
            if result != 0:
                raise SystemExit(f"Without a fault, too, this fails:\n{said[-3000:]}")

    def try_fault(self, fault):
        """What killed it, "" where nothing did, None where it does not compile."""
        room = room_of(fault.path)
        file = self.source / fault.path
        text = file.read_text()
        lines = text.splitlines(keepends=True)
        lines[fault.line] = fault.new + "\n"
        file.write_text("".join(lines))
        try:
            if self.build(room)[0] != 0:
                return None
            result, said = self.test(room)
        finally:
            file.write_text(text)
        if result == 0:
            return ""
        failed = re.search(r"\[  FAILED  \] (\S+)|^FAILED (\S+)", said, re.MULTILINE)
        return failed[1] or failed[2] if failed else "the time limit" if result is None else "a crash"


def by_file(faults):
    """Of one file behind each other: it is built without a fault only when the next one comes."""
    groups = {}
    for fault in faults:
        groups.setdefault(fault.path, []).append(fault)
    return groups.values()


def try_all(trees, pool, faults, wanted):
    """Pairs of a fault and what killed it, as many as wanted. Tells of each."""
    free = SimpleQueue()
    for tree in trees:
        free.put(tree)
    found = []

    def try_group(group):
        tree = free.get()
        for fault in group:
            killer = tree.try_fault(fault)
            if killer is not None:
                found.append((fault, killer))
                what = f"killed by {killer}" if killer else "SURVIVED"
                print(f"{len(found):4} {what}: {fault}", flush=True)
        free.put(tree)

    while len(found) < wanted and faults:
        now = faults[:wanted - len(found)]
        faults = faults[len(now):]
        list(pool.map(try_group, by_file(now)))
    return found


def tell(found):
    survivors = sorted(fault for fault, killer in found if not killer)
    print(f"\n{len(survivors)} survived:")
    print("\n".join(map(str, survivors)) + "\n")
    for room in [*ROOMS, ""]:
        of_room = [killer for fault, killer in found if not room or room_of(fault.path) == room]
        killed = len(of_room) - of_room.count("")
        if of_room:
            print(f"{room or 'all':12} {killed:4} of {len(of_room):4} killed, "
                  f"{100 * killed / len(of_room):.1f} %")


def interrupt(*_):
    raise KeyboardInterrupt


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--faults", type=int, default=250, help="how many that compile (%(default)s)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="copies that work at once")
    parser.add_argument("--list", action="store_true", help="only names the faults, in their order")
    parser.add_argument("places", nargs="*", help="where alone: a room, a file, or file:line:")
    options = parser.parse_args()

    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout
    files = sorted(listed.strip("\0").split("\0"))
    faults = drawn([f for f in files if f.endswith((".cpp", ".h"))], options.places, options.seed)
    if options.list:
        return print("\n".join(map(str, faults)))

    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, interrupt)
    (ROOT / "build").mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="mutate-", dir=ROOT / "build") as folder, \
            ThreadPoolExecutor(options.jobs) as pool:
        try:
            trees = [Tree(Path(folder) / str(n), files) for n in range(options.jobs)]
            rooms = {room_of(fault.path): None for fault in faults}
            list(pool.map(lambda tree: tree.prepare(rooms), trees))
            tell(try_all(trees, pool, faults, options.faults))
        except BaseException:
            Tree.stop_all()
            pool.shutdown(cancel_futures=True)
            raise


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit(130)
