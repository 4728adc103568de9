"""Areas as rasters, pictures and lines, as GDAL's programs read them.

usage: coverage.py VARDEL_CALC
"""

import json
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1))
TOWN = ("--site", "50 10", "--base-height", "60", "--frequency", "390", "--area", "Suburban", "--power", "25")


def run(*words, **more):
    done = subprocess.run([PROGRAM, "coverage", *map(str, words)], capture_output=True, timeout=120, **more)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def told(*words):
    return subprocess.run(list(map(str, words)), capture_output=True, text=True, check=True).stdout


def no_large_files():
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (60_000, 60_000))


class Coverage(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.tiff = self.folder / "area.tif"

    def made(self, *words):
        status, out, errors = run(*TOWN, *words)
        self.assertEqual((status, errors), (0, ""))
        return out

    def test_the_raster_has_its_place_and_values(self):
        self.made("--radius", "50", "--resolution", "1000", "--quantity", "path-loss", "--output", self.tiff)
        about = told("gdalinfo", "-checksum", self.tiff)
        for text in ("Size is 100, 100", "LAYOUT=COG", "Origin = (-50000.0", "Pixel Size = (1000.0", "NoData Value=nan",
                     "Description = ITU 529\n", "Description = Cost 231 in range", "BASE_HEIGHT_M=60",
                     "Latitude of natural origin\",50", "Checksum="):
            self.assertIn(text, about)
        # Of the published formulas in Python: 0.707, 9.618 and 39.503 km.
        for column, row, losses in ((50, 49, (99.75287, 99.75287, 96.55771)), (51, 40, (137.44812, 137.44812, 134.25296)), (10, 49, (160.50446, 163.35053, 157.30930))):
            values = told("gdallocationinfo", "-valonly", self.tiff, column, row).split()
            for value, expected in zip(values[:3], losses, strict=True):
                self.assertAlmostEqual(float(value), expected, delta=2e-5)
            self.assertEqual(values[3:], ["1", "1", "0", "60"])
        self.assertEqual(told("gdallocationinfo", "-valonly", self.tiff, 0, 0).split()[0], "nan")
        # 29.5 km east and 0.5 km south of the site, by GeographicLib in Python.
        self.assertIn("(79P,50L)", told("gdallocationinfo", "-wgs84", self.tiff, "10.41142", "49.99478"))

    def test_any_number_of_threads_gives_the_same_bytes(self):
        files = []
        for threads in (1, 2, 5):
            self.made("--radius", "20", "--output", self.tiff, "--grid", "utm", "--threads", threads)
            files.append(self.tiff.read_bytes())
        self.assertEqual(files[1:], files[:1] * 2)

    def loss_10_km_north(self, degrees):
        """Of the pixel that other programs find at that latitude by the file's coordinate system."""
        return float(told("gdallocationinfo", "-valonly", "-wgs84", self.tiff, "10", degrees).split()[0])

    def test_the_grids_of_the_poles_and_of_the_elevations(self):
        # 10 km are 0.08953 degrees of latitude at 88 and 0.08990 at 50; the loss there is 138.01 dB.
        words = ("--quantity", "path-loss", "--radius", "15", "--output", self.tiff)
        self.made("--site", "88 10", "--grid", "utm", *words)
        self.assertIn('"EPSG",5041', told("gdalinfo", self.tiff))
        self.assertAlmostEqual(self.loss_10_km_north("88.08953"), 138.01, delta=0.15)
        flat = self.folder / "flat.tif"
        told("gdal_create", "-of", "GTiff", "-outsize", 160, 160, "-a_srs", "EPSG:32632", "-a_ullr",
             531780, 5579130, 611780, 5499130, "-burn", 100, "-ot", "Float32", flat)
        status, out, errors = run("--site", "50 10", "--elevation", flat, "--antenna", "60", "--frequency", "390",
                                  "--area", "Suburban", "--grid", "elevation", *words)
        self.assertEqual((status, errors), (0, ""))
        about = told("gdalinfo", self.tiff)
        for text in ('"EPSG",32632', "Pixel Size = (500.0", "Origin = (556280.0"):
            self.assertIn(text, about)
        self.assertAlmostEqual(self.loss_10_km_north("50.08990"), 138.01, delta=0.6)

    def test_the_picture_and_lines_lie_where_they_should(self):
        picture, lines = self.folder / "area.png", self.folder / "area.geojson"
        out = self.made("--radius", "20", "--field-strength", "32", "--locations", "50", "--model", "davidson",
                        "--picture", picture, "--lines", lines, "--interval", "5", "--json")
        # 143.16 dB are met up to 14.284 km: (14.284 / 20)^2.
        self.assertAlmostEqual(json.loads(out)["covered_percent"], 51.01, delta=0.1)
        about = told("gdalinfo", picture)
        self.assertIn("Size is 400, 400", about)
        self.assertIn("Origin = (-20000.0", about)
        self.assertEqual((self.folder / "area.pgw").read_text(), "100\n0\n0\n-100\n-19950\n19950\n")
        # The wanted value is the break: yellow at the site's side of it, grey beyond.
        for column, color in ((200 + 142, ["253", "231", "37", "255"]), (200 + 143, ["190", "190", "190", "255"])):
            self.assertEqual(told("gdallocationinfo", "-valonly", picture, column, 200).split(), color)
        self.assertIn("from 32, as wanted", (self.folder / "area.legend.svg").read_text())
        features = json.loads(lines.read_text())["features"]
        self.assertLessEqual({32, 37, 42}, {one["properties"]["value"] for one in features})
        wanted = [one for one in features if one["properties"] == {"value": 32, "model": "Davidson"}]
        north = max(point[1] for point in wanted[0]["geometry"]["coordinates"])
        self.assertAlmostEqual(north, 50 + 0.12842, delta=0.0005)

    def test_faults_are_one_sentence_and_nothing_is_half_written(self):
        self.tiff.write_text("before")
        cases = [
            (("--radius", "0"), 2, "--radius: '0' is not above zero"),
            (("--radius", "301"), 2, "--radius: at most 300 km are calculated"),
            ((), 2, "coverage needs one of --radius and --bounds"),
            (("--bounds", "50 6 49 5"), 2, "--bounds: '50 6 49 5' is not south, west, north and east"),
            (("--radius", "300", "--resolution", "1"), 2, "at most 100000 each way are calculated"),
            (("--radius", "9", "--picture", self.folder / "x.png"), 2, "--picture and --lines: coverage needs one of"),
            (("--radius", "9", "--antenna", "9"), 2, "want --elevation, too"),
            (("--radius", "9", "--elevation", "x.tif"), 2, "--base-height does not go with --elevation"),
            (("--radius", "9", "--quantity", "path-loss", "--path-loss", "9"), 2, "--quantity goes without"),
            (("--radius", "9", "--path-loss", "9", "--picture", "x.png"), 2, "--picture needs --model"),
            (("--radius", "9", "--output", self.folder / "none" / "x.tif"), 1, "No such file or directory"),
            (("--radius", "9", "--output", self.folder), 1, "Is a directory"),
            (("--radius", "9", "--output", "/dev/null"), 1, "/dev/null: Invalid argument")]
        if shutil.disk_usage(self.folder).free < 500e9:
            words = ("--radius", "300", "--resolution", "6.1", "--type", "double", "--output", self.tiff)
            cases.append((words, 1, "the disk has"))
        for words, code, error in cases:
            status, out, errors = run(*TOWN, *words)
            self.assertEqual((status, out), (code, ""), error)
            self.assertIn(error, errors)
        status, out, errors = run(*TOWN, "--radius", "20", "--output", self.tiff, preexec_fn=no_large_files,
                                  restore_signals=False)
        self.assertEqual((status, out), (1, ""))
        self.assertEqual(errors.count("\n"), 1, errors)
        self.assertIn("area.tif: ", errors)
        self.assertEqual([one.name for one in self.folder.iterdir()], ["area.tif"])
        self.assertEqual(self.tiff.read_text(), "before")


unittest.main()
