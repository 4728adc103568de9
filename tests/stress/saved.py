"""What programs that were killed or that ran side by side leave, as other readers see it."""

import configparser
import csv
import json
import sqlite3
import xml.etree.ElementTree
from pathlib import Path

CURVE_BYTES = 991 * 16 + 1  # to 100 km by 0.1 km, two numbers each, and a byte behind them


def settings(folder, application):
    """All values; a file that is not well-formed raises."""
    parser = configparser.RawConfigParser(strict=True)
    parser.optionxform = str
    text = (Path(folder) / "vardel" / (application + ".ini")).read_text(encoding="utf-8")
    parser.read_string(text)
    return {section: dict(parser[section]) for section in parser.sections()}


def whole_runs(archive):
    """The comments of the runs that have all of their curves, by number."""
    with sqlite3.connect(archive) as database:
        (state,), = database.execute("PRAGMA integrity_check").fetchall()
        assert state == "ok", state
        return dict(database.execute(
            'SELECT r."ID", r."Comment" FROM "ModelRun" r JOIN "DataSets" d ON d."ID" = r."ID" '
            'AND d."Comment" = r."Comment" AND length(d."DataSet") = ? GROUP BY r."ID" '
            'HAVING count(*) = 3', [CURVE_BYTES]))


def is_whole(path):
    content = path.read_bytes()
    kind = path.suffix
    if kind == ".png":
        return content[:4] == b"\x89PNG" and content[-8:-4] == b"IEND"
    if kind == ".pdf":
        return content[:4] == b"%PDF" and content.rstrip().endswith(b"%%EOF")
    if kind == ".wmf":  # behind its head of 22 bytes, the length in words
        return len(content) > 40 and len(content) == 22 + 2 * int.from_bytes(content[28:32], "little")
    text = content.decode()
    if kind in (".svg", ".kml"):
        return bool(xml.etree.ElementTree.fromstring(text).tag)
    if kind == ".geojson":
        return len(json.loads(text)["features"]) > 0
    if kind == ".rtf":
        return text.startswith("{\\rtf1") and text.rstrip().endswith("}")
    return text.endswith("\n") and (kind != ".csv" or _cells_of(text, -1) == _cells_of(text, -2))


def _cells_of(text, row):
    return len(next(csv.reader([text.splitlines()[row]])))
