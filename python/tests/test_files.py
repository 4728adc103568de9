import sqlite3
import struct
import subprocess
import sys
import threading
from pathlib import Path

import pytest

import vardel


@pytest.fixture
def runs(tmp_path):
    """An archive as another program writes it, by docs/file-formats.md: the first run is complete."""
    file = sqlite3.connect(tmp_path / "runs.mdb")
    file.executescript((Path(__file__).parents[2] / "src/archive/schema.sql").read_text())
    insert = "INSERT INTO ModelRun (Model, Parameters, Comment, Date_Time, DataSetType) VALUES ('m', 'p', ?, ?, 2)"
    file.execute(insert, ["first", "2026-03-09 14:05:06"])
    file.execute(insert, [b"no text: \xff", "2026-03-08 14:05:06"])
    for run, legend in [(1, "ITU 529 Urban"), (1, "Davidson Urban"), (1, "Cost 231 Urban"), (2, "x")]:
        points = struct.pack("<4dx", 1, 100.5, 2, 110.5)[: 33 if run == 1 else 20]
        file.execute("INSERT INTO DataSets VALUES (?, ?, '', 2, ?)", [run, legend, points])
    file.commit()
    return tmp_path / "runs.mdb"


def test_archive(runs, tmp_path):
    with vardel.Archive(runs) as archive:
        assert len(archive) == 2 and archive.curves_without_run() == [] and archive.run(3) is None
        assert [run.number for run in archive.runs(order="time")] == [2, 1]
        assert [(run.comment, run.complete) for run in archive.runs(1, 5)] == [("no text: \ufffd", False)]
        curve = archive.curves(1)[2]
        assert (curve.legend, archive.run(1).curve_count) == ("Cost 231 Urban", 3)
        assert (curve.distance.tolist(), curve.value.tolist()) == ([1, 2], [100.5, 110.5])
        with pytest.raises(vardel.ArchiveError, match='"x" of run 2 is damaged: 20 bytes'):
            archive.curves(2)
        seen = []

        def many():
            seen.extend(len(archive.curves(1)) for _ in range(99))

        threads = [threading.Thread(target=many) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        assert seen == 396 * [3]
    with pytest.raises(vardel.ArchiveError, match="closed"):
        len(archive)
    for path, why in [(tmp_path / "none", "unable to open"), (__file__, "not a database")]:
        with pytest.raises(vardel.ArchiveError, match=why):
            vardel.Archive(path)


def test_measured(tmp_path):
    path = tmp_path / "measured.csv"
    path.write_text("0,450,0.5,Urban,1.5,2,50,100\n1,80,85\n10,45,49.9\n0,900,0.1,Open,3,1,30\n2,70\n")
    first, second = vardel.read_measured(path)
    assert (first.frequency, first.percent_time, first.area, first.mobile_height) == (450, 50, "Urban", 1.5)
    assert (first.base_height.tolist(), first.distance.tolist()) == ([50, 100], [1, 10])
    assert first.field_strength.tolist() == [[80, 85], [45, 49.9]]
    assert second.field_strength.shape == (1, 1)
    path.write_text("0,450,0.5,Urban,1.5,1,100\n10;49.9\n")
    with pytest.raises(ValueError, match="measured.csv, line 2: "):
        vardel.read_measured(path)
    with pytest.raises(OSError, match="none"):
        vardel.read_measured(tmp_path / "none")


def test_every_name_has_a_type_and_a_text(tmp_path):
    pytest.importorskip("mypy")
    checked = subprocess.run(
        [sys.executable, "-m", "mypy", "--strict", "--cache-dir", tmp_path, Path(vardel.__file__).parent,
         Path(__file__).parents[1] / "examples/typed_paths.py"], capture_output=True, text=True)
    assert checked.returncode == 0, checked.stdout
    assert all(vardel.__dict__[name].__doc__ for name in vardel.__all__ if not name.isupper())


@pytest.mark.parametrize("name", ["contour.py", "field_strength.py"])
def test_an_example_makes_its_picture(name, tmp_path):
    example = Path(__file__).parents[1] / "examples" / name
    subprocess.run([sys.executable, "-B", example, tmp_path / "picture.png"], check=True)
    assert (tmp_path / "picture.png").stat().st_size > 10_000
