#!/usr/bin/env python3
"""Whether every include goes where the house lets it: check-walls.py FOLDER... The build runs it.

A folder holds rooms, or is the source of one that stands beside them."""

import argparse
import re
import sys
from pathlib import Path

# What a room may include, besides itself and the standard library.
ROOMS = {
    "models": [],
    "text": [],
    "services": ["text"],
    "controls": ["services", "text"],
    "richtext": ["controls", "services", "text"],
    "engine": ["models", "services", "text"],
    "map": ["models", "services", "text", "engine"],
    "terrain": ["models", "services", "text", "engine", "map"],
    "coverage": ["models", "services", "text", "engine", "map", "terrain"],
    "elevation": ["terrain", "map", "models", "services", "text", "engine"],
    "archive": ["engine", "models", "services", "text"],
    "python": ["engine", "archive", "coverage", "map", "terrain", "models", "services", "text"],
    "forms": ["models", "text", "services", "controls", "richtext", "engine", "map", "terrain", "coverage", "archive"],
    "qt": ["models", "text", "services", "controls", "richtext", "engine", "map", "terrain", "coverage", "archive",
           "forms"],
    "cli": ["models", "text", "services", "engine", "map", "terrain", "coverage"],
}
# Where headers of libraries and of the system may stand; elsewhere only the standard library's.
OUTSIDE = [
    (r"Q\w+|qcustomplot\.h|private/.*|cups/.*", r"qt/.*|main\.cpp"),
    (r"SQLiteCpp/.*|sqlite3\.h", r"services/Database(File)?\.(h|cpp)"),
    (r"GeographicLib/.*", r"(map|terrain|coverage)/.*\.cpp"),
    (r"(gdal|ogr|cpl|ogrsf)_\w+\.h", r"elevation/.*"),
    (r"dlfcn\.h", r"terrain/ElevationModule\.cpp"),
    (r"(pybind11|numpy)/.*", r"python/.*"),
    (r"(fcntl|unistd|signal|pwd)\.h|sys/.*", r"services/.*|qt/services/.*|cli/Streams\.cpp"),
    (r"getopt\.h", r"cli/options/CommandLine\.cpp"),
]
STANDARD = re.compile(r"c?[a-z_0-9]+$")  # no ending, no folder


def fault(path, quoted, name):
    room = path.split("/")[0]
    if quoted:
        if ".." in name:
            return "leaves its folder"
        target = name.split("/")[0] if "/" in name else room
        if target == room or path == "main.cpp":
            return None
        return None if target in ROOMS.get(room, []) else f"reaches from {room}/ into {target}/"
    for headers, places in OUTSIDE:
        if re.fullmatch(headers, name):
            return None if re.fullmatch(places, path) else "belongs elsewhere"
    return None if STANDARD.match(name) else "is of no library that the house uses"


def includes(folders):
    for source in folders:
        source = source.resolve()
        holds_rooms = any((source / room).is_dir() for room in ROOMS)
        room = "" if holds_rooms else (source.name if source.name in ROOMS else source.parent.name) + "/"
        for file in sorted(source.rglob("*")):
            if file.suffix not in (".h", ".cpp", ".in"):
                continue
            for number, line in enumerate(file.read_text().splitlines(), 1):
                if include := re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line):
                    yield file, number, room + file.relative_to(source).as_posix(), include


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folders", type=Path, nargs="+")
    faults = 0
    for file, number, path, include in includes(parser.parse_args().folders):
        if why := fault(path, include[1] == '"', include[2]):
            print(f"{file}:{number}: the include of {include[2]} {why}", file=sys.stderr)
            faults += 1
    return 1 if faults else 0


sys.exit(main())
