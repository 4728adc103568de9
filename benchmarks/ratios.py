"""The table of ratios, each of two times from one run: ratios.py FOLDER, which holds what the
benchmark programs (*.json), module.py (module.txt) and compare-gnuplot.sh (gnuplot.txt) have told.
"""

import json
import re
import statistics
import sys
from pathlib import Path

MODELS = [model + what for model in ("Davidson", "Itu529", "Cost231", "Us")
          for what in ("Loss", "FieldStrength")]
CURVES = ("Itu529", "Cost231", "Davidson")

# What is timed, beside what, and the pairs of benchmarks; of several the ratios' bounds are told.
ROWS = [
    ("a model's call at 100 km", "the log, exp and pow calls of its formula",
     [(f"Run/{name}/100", f"Run/{name}_floor/100") for name in MODELS]),
    ("a curve to 300 km over the graphs' distances", "a loop of single calls",
     [(f"CurveOnGrid/{name}", f"SingleCalls/{name}") for name in CURVES]),
    ("a curve over other distances", "a loop of single calls",
     [(f"CurveOnNewDistances/{name}", f"SingleCalls/{name}") for name in CURVES]),
    ("redrawing the loss graph", "gnuplot's drawing of its points", [("gnuplot: ours", "gnuplot: theirs")]),
    ("the start until the window is painted", "an empty Qt window's",
     [("Start/program/iterations:1/repeats:15/real_time", "Start/bare_window/iterations:1/repeats:15/real_time")]),
    ("a line added to a log of 100,000", "computing it and writing it to a file",
     [("AppendLine/100000/iterations:20000", "AppendLine_floor/iterations:20000")]),
    ("saving a log of 100,000 lines", "writing, flushing and renaming its bytes",
     [("SaveLog/100000/real_time", "SaveLog_floor/100000/real_time")]),
    ("storing a run in an archive", "the bare SQLite library's storing",
     [("StoreArchiveRun/iterations:40/real_time", "StoreArchiveRun_floor/iterations:40/real_time")]),
    ("a batch of a million rows, on one thread", "its calls and the formatting of its numbers",
     [("Batch/1/real_time", "CallsAndFormattingAlone/1/real_time")]),
    ("the same on all processors", "the same on as many",
     [("Batch/0/real_time", "CallsAndFormattingAlone/0/real_time")]),
    ("contours of 3 models on 360 azimuths, cells of 3 arc seconds", "their places by GeographicLib, one by one",
     [("Contours/1200", "GeodesicPlacesAlone/1200")]),
    ("the same, cells of 1 arc second", "the same", [("Contours/3600", "GeodesicPlacesAlone/3600")]),
    ("the first contour from a file of 3601 x 3601 cells", "reading its bytes", [("FirstContour/folder:0", "ReadTileAlone")]),
    ("the same from a folder of a hundred", "the same", [("FirstContour/folder:1", "ReadTileAlone")]),
    ("an area of a million pixels, 3 models, one height", "its log, pow and sqrt calls",
     [("AreaAroundSite/varied:0/threads:1/real_time", "AreaFloor/varied:0/real_time")]),
    ("the same, a height for each direction", "its log, pow, sqrt and atan2 calls",
     [("AreaAroundSite/varied:1/threads:1/real_time", "AreaFloor/varied:1/real_time")]),
    ("the same on two threads", "on one",
     [("AreaAroundSite/varied:1/threads:2/real_time", "AreaAroundSite/varied:1/threads:1/real_time")]),
    ("the same in UTM", "on the grid around the site",
     [("AreaInUtm/threads:1/real_time", "AreaAroundSite/varied:1/threads:1/real_time")]),
    ("a million distances in Python", "the same in C++",
     [(f"{name}: array", f"{name}: C++") for name in ("itu529_loss", "davidson_loss", "cost231_loss", "us_loss")]),
    ("a million distances in Python", "a loop over single calls in Python",
     [(f"{name}: array", f"{name}: loop") for name in ("itu529_loss", "davidson_loss", "cost231_loss", "us_loss")]),
    ("a million paths in Python, every input of which varies, 3 models", "the same calls in C++",
     [("every_input: array", "every_input: C++")]),
    ("ten million distances on two threads of Python", "on one", [("two_threads: array", "two_threads: C++")]),
]
ON_ONE_THREAD = ("Batch/1/real_time", "CallsAndFormattingAlone/1/real_time")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def times_in(folder):
    """The medians in ns, by name: of the processor's time, but for what waits for a disk or another thread."""
    runs = {}
    for file in folder.glob("*.json"):
        for run in json.loads(file.read_text())["benchmarks"]:
            if run["run_type"] == "iteration" and not run.get("error_occurred"):
                name = run["run_name"]
                waits = "real_time" in name and name not in ON_ONE_THREAD
                time = run["real_time" if waits else "cpu_time"]
                runs.setdefault(name, []).append(time * NANOSECONDS[run["time_unit"]])
    times = {name: statistics.median(values) for name, values in runs.items()}
    ours, theirs = re.search(r"Vardel: ([\d.]+) ms +gnuplot: ([\d.]+) ms", (folder / "gnuplot.txt").read_text()).groups()
    times |= {"gnuplot: ours": float(ours) * 1e6, "gnuplot: theirs": float(theirs) * 1e6}
    for line in re.findall(r"^(\w+) +([\d.]+) ms +([\d.]+) ms(?: +([\d.]+) ms)?", (folder / "module.txt").read_text(), re.M):
        for what, value in zip(("array", "C++", "loop"), line[1:]):
            times[f"{line[0]}: {what}"] = float(value or "nan") * 1e6
    return times


def text_of(ns):
    for unit, size in (("ns", 1), ("µs", 1e3), ("ms", 1e6)):
        if ns < 1000 * size:
            return f"{ns / size:.3g} {unit}"
    return f"{ns / 1e9:.3g} s"


def row_of(times, what, beside, pairs):
    ratios = [times[ours] / times[theirs] for ours, theirs in pairs]
    middle = sorted(range(len(pairs)), key=ratios.__getitem__)[len(pairs) // 2]
    ours, theirs = (text_of(times[name]) for name in pairs[middle])
    low, high = (f"{bound:.2g}" if bound < 1 else f"{bound:.2f}" for bound in (min(ratios), max(ratios)))
    return f"| {what} | {ours} | {beside} | {theirs} | {low if low == high else f'{low} to {high}'} |"


measured = times_in(Path(sys.argv[1]))
print("| what | time | beside it | time | ratio |\n| --- | --- | --- | --- | --- |")
for row in ROWS:
    print(row_of(measured, *row))
