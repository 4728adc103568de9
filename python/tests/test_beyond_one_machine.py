"""The examples for data larger than the memory, beside the command line program."""

import itertools
import math
import os
import re
import subprocess
import sys
from pathlib import Path

import numpy as np
import pytest

EXAMPLES = Path(__file__).parents[1] / "examples"
PATHS = int(os.environ.get("VARDEL_TEST_PATHS", 40_000))


def run(example, *arguments):
    return subprocess.run([sys.executable, "-B", EXAMPLES / example, *map(str, arguments)],
                          check=True, capture_output=True, text=True).stdout


def write_paths(folder, count):
    pandas = pytest.importorskip("pandas")
    folder.mkdir()
    random = np.random.default_rng(529)
    for part, size in enumerate(np.diff(np.linspace(0, count, 9, dtype=int))):
        pandas.DataFrame({
            "frequency_mhz": random.uniform(30, 2000, size).round(4),
            "distance_km": np.exp(random.uniform(math.log(0.1), math.log(299), size)).round(5),
            "base_height_m": random.uniform(20, 2500, size).round(2),
            "mobile_height_m": random.uniform(1, 30, size).round(2),
            "area": random.choice(["Urban", "suburban", "OPEN"], size),
            "city": random.choice(["Small/Medium", "Large"], size),
            "percent_time": random.uniform(1, 99, size).round(1),
            "percent_locations": random.integers(1, 99, size),
            "power_w": random.uniform(0.1, 5000, size).round(3),
        }).to_csv(folder / f"{part}.csv", index=False)


def results_in(folder):
    """The fields of the results of each row, one by one: in the digits of the command line, fifteen."""
    for file in sorted(folder.glob("*.csv"), key=lambda file: int(file.stem)):
        with open(file) as lines:
            head = next(lines).rstrip().split(",")
            places = [head.index(f"{model}_{what}") for model in ("itu529", "davidson", "cost231")
                      for what in ("loss_db", "field_dbuvm")]
            for line in lines:
                fields = line.split(",")
                yield [f"{float(fields[place]):.15g}" for place in places]


def test_a_cluster_gives_the_bits_of_the_command_line(tmp_path):
    pytest.importorskip("distributed")
    if "VARDEL_CALC" not in os.environ:
        pytest.skip("VARDEL_CALC does not name the command line program")
    paths, by_cluster, by_batch = tmp_path / "paths", tmp_path / "cluster", tmp_path / "batch"
    write_paths(paths, PATHS)
    told = run("csv_folder.py", paths, by_cluster, 2)
    print(told)
    memory = [float(mib) for mib in re.findall(r": (\d+) MiB at most", told)]
    assert len(memory) == 2 and max(memory) < 300, told

    by_batch.mkdir()
    for part in paths.glob("*.csv"):
        with open(by_batch / part.name, "w") as out:
            subprocess.run([os.environ["VARDEL_CALC"], "batch", part], stdout=out, check=True)
    compared = 0
    for ours, theirs in itertools.zip_longest(results_in(by_cluster), results_in(by_batch)):
        assert ours == theirs
        compared += 1
    assert compared == PATHS


def test_a_lazy_raster(tmp_path):
    pytest.importorskip("xarray")
    pytest.importorskip("dask.array")
    # By hand from Hata's formula: 14.2102 km meet 32 dB(µV/m), a disc of 634.38 of 10,000 km².
    assert run("lazy_raster.py", 4000).splitlines() == [
        "4000 x 4000 pixels in 16 chunks", "6.34% of the area has 32 dB(µV/m) and more"]


def test_processes_write_the_bytes_of_one(tmp_path):
    pytest.importorskip("distributed")
    pytest.importorskip("xarray")
    told = [run("country_coverage.py", tmp_path / str(workers), 10_000, workers) for workers in (1, 2)]
    assert told[0] == told[1] and told[0].startswith("35 x 48 pixels, 8 stations")
    files = [[(tmp_path / folder / name).read_bytes() for name in ("0.npy", "info")] for folder in ("1", "2")]
    assert files[0] == files[1]
