#!/usr/bin/env python3
"""Whether the links of documents lead somewhere: check-links.py FILE.md... Looks at files, folders,
pictures and headings of this tree; no network."""

import argparse
import re
import sys
from pathlib import Path
from urllib.parse import unquote

LINK = re.compile(r"\[[^\]]*\]\(\s*<?([^)\s>]+)>?[^)]*\)|^\[[^\]]+\]:\s*(\S+)", re.MULTILINE)


def without_blocks(file):
    """The text without its fenced code, where neither links nor headings are."""
    return re.sub(r"^```.*?^```", "", file.read_text(encoding="utf-8"), flags=re.DOTALL | re.MULTILINE)


def links(file):
    prose = re.sub(r"^(    |\t).*$|`[^`\n]*`", "", without_blocks(file), flags=re.MULTILINE)
    return ["".join(found) for found in LINK.findall(prose)]


def anchors(file):
    """The names that hosts of Markdown give the headings."""
    names = set()
    for heading in re.findall(r"^#+ +(.*?)\s*$", without_blocks(file), re.MULTILINE):
        name = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        count = 0
        while (name if count == 0 else f"{name}-{count}") in names:
            count += 1
        names.add(name if count == 0 else f"{name}-{count}")
    return names


def fault(file, link):
    if re.match(r"[a-z][a-z0-9+.-]*:", link):
        return None
    path, _, anchor = unquote(link).partition("#")
    target = file.parent / path if path else file
    if not target.exists():
        return "leads to nothing"
    if anchor and anchor not in anchors(target):
        return f"names no heading of {target.name}"
    return None


parser = argparse.ArgumentParser(description=__doc__)
parser.add_argument("files", type=Path, nargs="+")
faults = [(file, link, wrong) for file in parser.parse_args().files
          for link in links(file)
          if (wrong := fault(file, link))]
for file, link, wrong in faults:
    print(f"{file}: the link {link} {wrong}", file=sys.stderr)
sys.exit(bool(faults))
