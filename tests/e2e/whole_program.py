"""The whole program as its user meets it, from a first start to a second one.

usage: whole_program.py PROGRAM
"""

import sqlite3
import sys
import unittest

from user import Display, User, wait_for

PROGRAM = sys.argv.pop(1)

# Of the inputs that a first start shows, in the order of the log's columns.
DEFAULT_RESULTS = ["143.13", "140.42", "143.13", "49.31", "49.30", "52.01"]


class WholeProgram(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = Display().__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.display.__exit__()

    def setUp(self):
        self.user = User(PROGRAM, self.display)

    def tearDown(self):
        outcome = self._outcome.result
        if outcome.failures or outcome.errors:
            self.user.picture("e2e-failure.png")
        self.user.kill()
        self.user.scratch.cleanup()

    # What several tests do.

    def start(self, introduced=True):
        """Up to the main window, with what comes before it read and put away."""
        user = self.user
        user.start()
        user.wait_for_window("Okum-Hata")  # there is no measured data
        user.keys("Return")
        if introduced:
            user.wait_for_window("Introduction")
            user.keys("Return")
        return user.wait_for_window("Okumura-Hata Field Strength")

    def exit(self, keep_log=True):
        user = self.user
        user.keys("alt+f", "x")
        user.wait_for_window("Loss Calculation Program")
        user.keys("Return")
        user.wait_for_window("Output Log")
        user.keys("alt+y" if keep_log else "alt+n")
        user.wait_for_end()

    def calculate(self):
        before = len(self.user.log_lines())
        self.user.keys("alt+c", "c")
        lines = wait_for("a line of the log", lambda: self.user.log_lines()[before:])
        return lines[0]

    def save_metafile(self, window_title, name):
        user = self.user
        path = user.home / name
        user.keys("alt+f", "s")
        user.wait_for_window("Save")
        user.keys("ctrl+a")
        user.type(str(path))
        user.keys("Return")
        user.wait_for_window(window_title)
        metafile = wait_for("the metafile", lambda: path.exists() and path.read_bytes())
        self.assertEqual(metafile[:4], b"\xd7\xcd\xc6\x9a")

    # The tests.

    def test_calculations_in_both_units(self):
        user = self.user
        self.start()
        # Every input by the tab order, which begins at the frequency.
        for text in ["900", "20", "50", "2"]:
            user.keys("ctrl+a")
            user.type(text)
            user.keys("Tab")
        user.keys("s", "Tab")  # Suburban, which has no city size
        for text in ["10", "90"]:
            user.keys("ctrl+a")
            user.type(text)
            user.keys("Tab")
        user.keys("space")
        line = wait_for("the calculation", user.log_lines)[0]
        self.assertEqual(line[:5], ["20.00", "900.0", "50.00", "2.00", "Suburban"])
        self.assertEqual(line[11:14], ["10%", "90%", "Metric"])
        user.keys("alt+f", "n")
        line = self.calculate()
        self.assertEqual(line[:6], ["10.00", "450.0", "100.00", "1.50", "Urban", "Small/Medium"])
        self.assertEqual(line[6:12], DEFAULT_RESULTS)
        user.keys("alt+u", "e")
        line = self.calculate()
        self.assertEqual([line[0], line[2], line[14]], ["6.21", "328.08", "Enlish"])
        self.assertEqual(line[6:12], DEFAULT_RESULTS)
        self.exit()

    def test_a_bad_input_is_put_right(self):
        user = self.user
        self.start()
        user.keys("ctrl+a")
        user.type("29")
        user.keys("Tab")
        user.wait_for_window("Vardel")
        user.keys("Return")
        user.wait_for_window("Okumura-Hata Field Strength")
        self.assertEqual(self.calculate()[1], "150.0")
        self.exit()

    def test_a_second_start_goes_on(self):
        user = self.user
        self.start()
        user.keys("ctrl+a")
        user.type("700")
        user.keys("alt+u", "e")
        self.calculate()
        self.exit()
        self.start()
        line = self.calculate()
        self.assertEqual([line[1], line[14]], ["700.0", "Enlish"])
        self.assertEqual(len(user.log_lines()), 2)
        user.keys("alt+c", "v")
        user.wait_for_window("BaseH   MobilH")
        user.keys("Escape")
        user.wait_until_gone("BaseH   MobilH")
        self.exit(keep_log=False)
        self.assertEqual(user.log_text(), "")

    def test_a_range_report_interrupted(self):
        user = self.user
        self.start()
        user.keys("alt+c", "r")
        window = user.wait_for_window("Report Distance Range")
        for text in ["1", "300", "0.01"]:
            user.keys("ctrl+a")
            user.type(text)
            user.keys("Tab")
        user.keys("Tab", "space")  # past the check box to the button
        wait_for("the run", lambda: user.windows("Report Distance Range") == [window])
        user.keys("Tab", "space")  # the way out
        user.wait_for_window("Okumura-Hata Field Strength")
        lines = user.log_lines()
        self.assertGreater(len(lines), 1)
        self.assertLess(len(lines), 29000)
        self.assertEqual(lines[1][0], "1.01")
        self.exit()

    def test_each_graph_is_replotted_and_saved(self):
        user = self.user
        self.start()
        for key, title in [("c", "dB Loss Graph"), ("p", "Field Strength Plot"),
                           ("5", "Field Strength Plot"), ("m", "Field Strength Plot")]:
            user.keys("alt+g", key)
            user.wait_for_window(title)
            user.keys("ctrl+a")
            user.type("1500")
            user.keys("Tab")
            self.save_metafile(title, f"graph-{key}.wmf")
            user.keys("alt+f", "c")
            user.wait_for_window("Okumura-Hata Field Strength")
        self.assertEqual(self.calculate()[1], "1500.0")
        self.exit()

    def test_a_run_goes_into_the_archive(self):
        user = self.user
        archive = user.home / "mine.mdb"
        with sqlite3.connect(archive) as made:
            made.executescript(SCHEMA)
        self.start()
        user.keys("alt+g", "c")
        window = user.wait_for_window("dB Loss Graph")
        user.click(window, 40, 69)  # on the words Base Antenna
        user.click(window, 130, 325)  # on the button that has come up
        user.wait_for_window("Open")
        user.keys("ctrl+a")
        user.type(str(archive))
        user.keys("Return")
        user.wait_for_window("Store Data Run")
        user.keys("ctrl+a")
        user.type("a test")
        user.keys("Return")
        user.wait_for_window("dB Loss Graph")
        with sqlite3.connect(archive) as stored:
            runs = stored.execute('SELECT "ID", "Model", "Comment" FROM "ModelRun"').fetchall()
            curves = stored.execute('SELECT "ID", "PointCount" FROM "DataSets"').fetchall()
        self.assertEqual([run[1:] for run in runs], [("Okumura-Hata", "a test")])
        self.assertEqual(curves, [(runs[0][0], 991)] * 3)
        user.keys("alt+f", "c")
        user.wait_for_window("Okumura-Hata Field Strength")
        self.exit()

    def test_a_start_from_the_host(self):
        user = self.user
        settings = user.settings_file("Ostrel_Quorne")
        settings.parent.mkdir(parents=True)
        settings.write_text("[Global%20Parameters]\nCalledFromQuorne=True\nTxHt_m=75\n"
                            "TxFreq_MHz=800\nDist_Km=12.5\nRxHt_m=2\nPctTime_pct=0.5\n")
        self.start(introduced=False)
        self.assertEqual(self.calculate()[:4], ["12.50", "800.0", "75.00", "2.00"])
        user.keys("ctrl+a")
        user.type("810")
        user.keys("Tab")
        self.exit()
        self.assertIn("TxFreq_MHz=810", settings.read_text())
        self.assertIn("CalledFromQuorne=False", settings.read_text())


if __name__ == "__main__":
    SCHEMA = open(sys.argv.pop(1), encoding="utf-8").read()
    unittest.main(verbosity=2)
