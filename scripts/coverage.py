#!/usr/bin/env python3
"""What the counters that gcov's compiler put into a build have counted: coverage.py BUILD."""

import argparse
import collections
import json
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def room_of(file):
    """src/engine, src/forms, cli"""
    return "/".join(file.parts[:2]) if file.parts[0] == "src" and len(file.parts) > 2 else file.parts[0]


def count(build):
    """By file and line: how often it was reached, and each of its branches but those of exceptions."""
    lines = collections.defaultdict(collections.Counter)
    branches = collections.defaultdict(lambda: collections.defaultdict(collections.Counter))
    notes = [str(path) for path in build.rglob("*.gcno") if "tests" not in path.relative_to(build).parts]
    for start in range(0, len(notes), 40):
        told = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities", *notes[start:start + 40]],
                              cwd=build, check=True, capture_output=True, text=True).stdout
        for unit in told.splitlines():
            for source in json.loads(unit)["files"]:
                path = (build / source["file"]).resolve()
                if not path.is_relative_to(ROOT / "src") and not path.is_relative_to(ROOT / "cli"):
                    continue
                file = path.relative_to(ROOT)
                for line in source["lines"]:
                    number = line["line_number"]
                    lines[file][number] += line["count"]
                    ways = [branch["count"] for branch in line["branches"] if not branch["throw"]]
                    if len(ways) > 1:
                        branches[file][number].update(dict(enumerate(ways)))
                        for way in range(len(ways)):
                            branches[file][number][way] += 0
    return lines, branches


def main(build):
    lines, branches = count(build)
    rooms = collections.defaultdict(collections.Counter)
    unreached = []
    for file in sorted(lines):
        text = (ROOT / file).read_text().splitlines()
        sums = rooms[room_of(file)]
        for number, reached in sorted(lines[file].items()):
            if not text[number - 1].strip(" {}();"):
                continue  # the compiler's own, where a scope ends
            ways = branches[file][number]
            taken = sum(times > 0 for times in ways.values())
            sums.update(lines=1, reached=reached > 0, branches=len(ways), taken=taken)
            if reached == 0:
                unreached.append(f"{file}:{number}: never: {text[number - 1].strip()}")
            elif taken < len(ways):
                unreached.append(f"{file}:{number}: {taken} of {len(ways)} branches: {text[number - 1].strip()}")
    (build / "unreached.txt").write_text("\n".join(unreached) + "\n")

    def row(name, sums):
        parts = [(sums["reached"], sums["lines"]), (sums["taken"], sums["branches"])]
        shown = " ".join(f"{whole:9}{100 * part / max(whole, 1):8.1f} %" for part, whole in parts)
        print(f"{name:16}{shown}")

    print(f"{'':16}{'lines':>9}{'reached':>10}{'branches':>10}{'taken':>10}")
    for name in sorted(rooms):
        row(name, rooms[name])
    row("all", sum(rooms.values(), collections.Counter()))


parser = argparse.ArgumentParser(description=__doc__)
parser.add_argument("build", type=Path)
main(parser.parse_args().build.resolve())
