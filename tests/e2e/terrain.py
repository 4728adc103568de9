"""Heights and contours from files of elevations, as GDAL reads them.

usage: terrain.py VARDEL_CALC MODULE
"""

import csv
import io
import json
import math
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import numpy
from geographiclib.geodesic import Geodesic

PROGRAM, MODULE = Path(sys.argv.pop(1)), Path(sys.argv.pop(1))
SITE, SIDE = (50.0, 10.0), 1201


def run(*words, program=PROGRAM):
    done = subprocess.run([program, *map(str, words)], capture_output=True, timeout=120)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def heights(*elevation, definition="3-16", site=SITE):
    return run("heights", "--site", f"{site[0]} {site[1]}", "--antenna", "40", "--azimuths", "8", "--definition",
               definition, "--elevation", *elevation)


def averages(*elevation, **more):
    status, out, errors = heights(*elevation, **more)
    assert status == 0, errors
    return [float(row["average_terrain_m"]) for row in csv.DictReader(io.StringIO(out, newline=""))]


def ground(latitude, longitude):
    """Rough hills in whole metres."""
    return numpy.rint(400 + 150 * numpy.sin(latitude * 157) + 90 * numpy.cos(longitude * 211)
                      + 60 * numpy.sin(latitude * 2100 + longitude * 1700))


def post_average(azimuth):
    """From 3 to 16 km, between the posts of a 3" tile: by another library and code of its own."""
    line = Geodesic.WGS84.Line(*SITE, azimuth)
    # 3" are 92.7 m to the north, by 111195 m in a degree, so at least 140.3 spaces.
    count, total = 142, 0.0
    for i in range(count):
        at = line.Position(3000 + 13000 * i / (count - 1))
        row, column = at["lat2"] * 1200, at["lon2"] * 1200
        south, west = math.floor(row), math.floor(column)
        up, right = row - south, column - west
        for j, i_weight in ((south, 1 - up), (south + 1, up)):
            for k, k_weight in ((west, 1 - right), (west + 1, right)):
                total += i_weight * k_weight * float(ground(j / 1200, k / 1200))
    return total / count


class Terrain(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.tiles = cls.folder / "tiles"
        cls.tiles.mkdir()
        for north in (49, 50):
            for east in (9, 10):
                rows = north + numpy.arange(SIDE - 1, -1, -1)[:, None] / (SIDE - 1)
                columns = east + numpy.arange(SIDE)[None, :] / (SIDE - 1)
                ground(rows, columns).astype(">i2").tofile(cls.tiles / f"N{north}E{east:03}.hgt")
        cls.one = cls.tiles / "N50E010.hgt"
        cls.expected = [post_average(45 * i) for i in range(8)]

    def translate(self, name, *options, source=None):
        made = self.folder / name
        subprocess.run([*options, source or self.one, made], check=True, capture_output=True)
        return made

    def near(self, found, expected, delta):
        for i, (a, b) in enumerate(zip(found, expected, strict=True)):
            self.assertAlmostEqual(a, b, delta=delta, msg=f"{45 * i} degrees")

    def test_averages_are_those_of_another_computation(self):
        self.near(averages(self.tiles), self.expected, 0.01)
        self.near(averages(*sorted(self.tiles.iterdir(), reverse=True)), self.expected, 0.01)

    def test_all_formats_tell_the_same(self):
        whole = self.folder / "whole.vrt"
        subprocess.run(["gdalbuildvrt", whole, *self.tiles.iterdir()], check=True, capture_output=True)
        tiff = ("gdal_translate", "-co", "TILED=YES", "-co", "COMPRESS=DEFLATE", "-co", "PREDICTOR=2")
        self.near(averages(self.translate("whole.tif", *tiff, source=whole)), self.expected, 0.01)
        self.near(averages(self.translate("float.tif", *tiff[:5], "-ot", "Float32", source=whole)), self.expected, 0.01)
        south = self.tiles / "N49E009.hgt"
        dted = self.translate("N49E009.dt1", "gdal_translate", "-of", "DTED", source=south)
        self.near(averages(dted, site=(49.5, 9.5)), averages(south, site=(49.5, 9.5)), 1e-6)
        # In other coordinates, and interpolated once more in cells of 50 m.
        utm = self.translate("utm.tif", "gdalwarp", "-t_srs", "EPSG:32632", "-tr", "50", "50", "-r", "cubic", source=whole)
        self.near(averages(utm), self.expected, 2.0)

    def test_feet_are_feet(self):
        feet = self.translate("feet.vrt", "gdal_translate", "-of", "VRT", source=self.one)
        text = feet.read_text()
        for unit, metres in (("ft", 0.3048), ("US survey foot", 1200 / 3937)):
            feet.write_text(text.replace("<UnitType>m<", f"<UnitType>{unit}<"))
            found = averages(feet, site=(50.5, 10.5))
            self.near(found, [metres * x for x in averages(self.one, site=(50.5, 10.5))], 0.01)
        feet.write_text(text.replace("<UnitType>m<", "<UnitType>fathom<"))
        self.assertIn("has heights in 'fathom', a unit that is not known", heights(feet)[2])

    def test_contours_are_read_by_gdal(self):
        file = self.folder / "contour.geojson"
        status, out, errors = run("contour", "--site", "50 10", "--antenna", "40", "--field-strength", "32", "--power",
                                  "25", "--format", "geojson", "--elevation", self.tiles)
        self.assertEqual(status, 0, errors)
        file.write_text(out)
        features = json.loads(out)["features"]
        self.assertEqual([len(feature["geometry"]["coordinates"][0]) for feature in features], [361] * 3)
        seen = subprocess.run(["ogrinfo", "-al", "-so", file], capture_output=True, text=True, check=True).stdout
        self.assertIn("Geometry: Polygon", seen)
        self.assertIn("Feature Count: 3", seen)

    def test_what_is_not_seen_is_told(self):
        status, out, errors = heights(self.one, site=(50.1, 10.1))
        self.assertEqual(status, 0)
        west = list(csv.DictReader(io.StringIO(out, newline="")))[6]
        # The edge is 7.15 km away.
        self.assertAlmostEqual(float(west["seen"]), (7.15 - 3) / 13, delta=0.02)
        self.assertIn("azimuths have elevation data for only part of the way", errors)

    def test_faults_are_one_sentence(self):
        text = self.folder / "text.tif"
        text.write_text("no raster")
        short = self.folder / "N50E011.hgt"
        short.write_bytes(self.one.read_bytes()[:-100])
        empty = self.folder / "empty"
        empty.mkdir()
        (empty / "README").write_text("nothing here")
        plain = self.translate("plain.asc", "gdal_translate", "-of", "AAIGrid", "-outsize", "20", "20")
        Path(plain).with_suffix(".prj").unlink()
        cut = self.translate("cut.tif", "gdal_translate", "-co", "COMPRESS=DEFLATE")
        cut.write_bytes(cut.read_bytes()[:cut.stat().st_size // 2])
        void = self.folder / "S01W001.hgt"
        numpy.full(SIDE * SIDE, -32768, ">i2").tofile(void)
        huge = self.folder / "huge.vrt"
        huge.write_text('<VRTDataset rasterXSize="2147483647" rasterYSize="2147483647"><SRS>EPSG:4326</SRS>'
                        "<GeoTransform>9,1e-7,0,51,0,-1e-7</GeoTransform>"
                        '<VRTRasterBand dataType="Int16" band="1"/></VRTDataset>')
        for words, site, error in [
                ([text], SITE, "text.tif is not a raster, or is damaged"),
                ([short], SITE, "N50E011.hgt is not a raster, or is damaged"),
                ([self.folder / "none.tif"], SITE, "none.tif does not exist"),
                ([empty], SITE, "empty holds no raster with elevations"),
                ([plain], SITE, "plain.asc has no coordinate system"),
                ([cut], (50.1, 10.5), "cut.tif: "),
                ([void], (-0.5, -0.5), "the site -0.5 -0.5 is outside the elevation data, or on a cell without data"),
                ([self.tiles], (40, 10), "the site 40 10 is outside"),
                ([huge], (60, 10), "the site 60 10 is outside")]:
            status, out, errors = heights(*words, site=site)
            self.assertEqual((status, out), (1, ""), error)
            self.assertIn(error, errors)
            self.assertEqual(errors.count("\n"), 1, errors)
        self.assertEqual(heights(huge, definition="0-0.1")[0], 0)
        # In a folder such files are left out, and told.
        (self.tiles / "plain.asc").write_bytes(plain.read_bytes())
        self.addCleanup((self.tiles / "plain.asc").unlink)
        self.assertIn("left out: ", heights(self.tiles)[2])

    def test_a_missing_module_is_named(self):
        alone = self.folder / "bin" / "vardel-calc"
        alone.parent.mkdir()
        shutil.copy2(PROGRAM, alone)
        words = ("heights", "--site", "50 10", "--antenna", "40", "--elevation", self.one)
        status, out, errors = run(*words, program=alone)
        self.assertEqual((status, out), (1, ""))
        self.assertIn("elevation data need the package vardel-terrain, which is not installed", errors)
        installed = self.folder / "lib" / "vardel" / "modules"
        installed.mkdir(parents=True)
        (installed / MODULE.name).write_text("no module")
        self.assertIn("the package vardel-terrain cannot be used: ", run(*words, program=alone)[2])
        shutil.copy2(MODULE, installed)
        self.assertEqual(run(*words, program=alone)[0], 0)
        self.assertNotIn("libgdal", subprocess.run(["ldd", PROGRAM], capture_output=True, text=True, check=True).stdout)


unittest.main()
