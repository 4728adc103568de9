"""The whole program as its user meets it, from a first start to a second one.

usage: whole_program.py PROGRAM
"""

import sqlite3
import subprocess
import sys
import time
import unittest

from user import Display, User, wait_for

PROGRAM = sys.argv.pop(1)

# Of the inputs that a first start shows, in the order of the log's columns.
MAIN_TITLE = "Okumura-Hata Field Strength / Loss Calculations"
DEFAULT_RESULTS = ["143.13", "140.42", "143.13", "49.31", "49.3", "52.01"]


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
        try:
            if any(test is self for test, _ in outcome.failures + outcome.errors):
                self.user.picture(self.id().split(".")[-1] + ".png")
        finally:
            self.user.kill()
            self.user.scratch.cleanup()

    # What several tests do.

    def start(self, introduced=True):
        """Up to the main window, with what comes before it read and put away."""
        user = self.user
        user.start()
        if introduced:
            user.wait_for_window("Introduction")
            user.keys("Return")
        return user.wait_for_window("Okumura-Hata Field Strength")

    def exit(self, keep_log=True):
        user = self.user
        user.keys("alt+f", "e")
        user.wait_for_window("Loss Calculation Program")
        user.keys("Return")
        user.wait_for_window("Output Log")
        user.keys("alt+y" if keep_log else "alt+n")
        user.wait_for_end()

    def fill(self, *texts):
        """Box after box."""
        for text in texts:
            self.user.keys("ctrl+a")
            self.user.type(text)
            self.user.keys("Tab")

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

    def test_version_and_help_need_no_display(self):
        for argument, answer in (("--version", r"^Vardel \d+\.\d+\.\d+\n$"),
                                 ("--help", r"^Usage: vardel .*--version")):
            told = subprocess.check_output([PROGRAM, argument], env={}, text=True, timeout=20)
            self.assertRegex(told, answer)

    def test_calculations_in_both_units(self):
        user = self.user
        self.start()
        line = self.calculate()
        self.assertEqual(line[:6], ["10", "450", "100", "1.5", "Urban", "Small/Medium"])
        self.assertEqual(line[6:12], DEFAULT_RESULTS)
        user.keys("alt+u", "e")
        line = self.calculate()
        self.assertEqual([line[0], line[2], line[14]], ["6.21", "328.08", "Enlish"])
        for shown, metric in zip(line[6:12], DEFAULT_RESULTS):
            self.assertAlmostEqual(float(shown), float(metric), delta=0.015)  # boxes are rounded
        user.keys("alt+u", "m")

        # Every input by the tab order, which begins at the frequency.
        self.fill("900", "20")
        user.keys("s", "Tab")  # Suburban, which has no city size
        self.fill("50", "2", "3")
        user.keys("Tab")  # past the button, to come back to it
        self.fill("90", "10")
        user.keys("shift+Tab", "shift+Tab", "shift+Tab", "space")
        line = wait_for("the calculation", lambda: user.log_lines()[2:])[0]
        self.assertEqual(line[:5], ["20", "900", "50", "2", "Suburban"])
        self.assertEqual(line[11:15], ["10%", "90%", "Metric", "3000"])
        self.exit()

    def test_a_bad_input_is_put_right(self):
        user = self.user
        self.start()
        user.type("29")  # over what the box held
        user.keys("Return")
        user.wait_for_window("Vardel")
        self.assertIn("Vardel", user.titles())
        user.keys("Return")
        lines = wait_for("the calculation behind it", user.log_lines)
        self.assertEqual(lines[0][1], "150")
        user.wait_for_window("Okumura-Hata Field Strength")
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
        self.assertEqual([line[1], line[14]], ["700", "Enlish"])
        self.assertEqual(len(user.log_lines()), 2)
        user.keys("alt+c", "v")
        user.wait_for_window("BaseH   MobilH")
        self.assertTrue(any(title.startswith("  Dist     Frq ") and title.endswith("   Date      Time")
                            for title in user.titles()), user.titles())
        user.keys("Escape")
        user.wait_until_gone("BaseH   MobilH")
        self.exit(keep_log=False)
        self.assertEqual(user.log_text(), "")

    def test_a_range_report_interrupted(self):
        user = self.user
        self.start()
        user.keys("alt+c", "r")
        user.wait_for_window("Report Distance Range")
        self.assertEqual(set(user.titles()), {"Report Distance Range", MAIN_TITLE})
        self.fill("1", "300", "0.0001")
        user.keys("Return", "Return")  # a second stroke in haste ends nothing
        time.sleep(0.2)
        self.assertTrue(user.windows("Report Distance Range"))
        user.keys("Escape")
        user.wait_for_window("Okumura-Hata Field Strength")
        lines = user.log_lines()
        self.assertGreater(len(lines), 1)
        self.assertLess(len(lines), 2990000)
        self.assertEqual(lines[0][:2], ["1", "450"])
        self.exit()

    def test_how_far_a_station_reaches(self):
        user = self.user
        self.start()
        self.fill("390", "10")
        user.keys("s", "Tab")
        self.fill("45", "1.5", "0.025")
        user.keys("ctrl+r")
        user.wait_for_window("Reach")
        user.type("32")
        user.keys("alt+a", "Escape")  # in haste
        user.wait_until_gone("Reach")
        user.keys("ctrl+e")  # which a box would take as End
        user.wait_for_window("Explain This Number")
        user.keys("Escape")
        user.wait_until_gone("Explain This Number")
        self.exit()
        self.assertIn("5.196 km at 95 % of locations", user.log_text())

    def test_a_signal_saves_as_an_exit_does(self):
        user = self.user
        self.start()
        user.type("700")
        self.calculate()
        user.process.terminate()
        user.wait_for_end()
        self.assertIn("Freq=700", user.settings_file().read_text())
        self.assertEqual(list((user.home / ".local/state/vardel").glob("*.lock")), [])
        self.start()
        self.calculate()
        self.assertEqual(len(user.log_lines()), 2)
        self.exit()

    def test_a_signal_under_a_message_calculates_nothing(self):
        user = self.user
        self.start()
        user.type("29")
        user.keys("Return")
        user.wait_for_window("Vardel")
        user.process.terminate()
        user.wait_for_end()
        self.assertEqual(user.log_lines(), [])

    def test_each_graph_is_replotted_and_saved(self):
        user = self.user
        self.start()
        for entry, title in enumerate(["dB Loss Graph"] + ["Field Strength Plot"] * 4):
            user.keys("alt+g", *["Down"] * entry, "Return")
            user.wait_for_window(title)
            self.fill("1500")
            user.keys(*["Tab"] * (5 if entry in (1, 2, 3) else 6), "space")  # Update Graph
            self.save_metafile(title, f"graph-{entry}.wmf")
            user.keys("alt+f", "c")
            user.wait_for_window("Okumura-Hata Field Strength")
        self.assertEqual(self.calculate()[1], "1500")
        self.exit()

    def test_a_run_goes_into_the_archive(self):
        user = self.user
        archive = user.home / "mine.mdb"
        with sqlite3.connect(archive) as made:
            made.executescript(SCHEMA)
        self.start()
        user.keys("alt+g", "Return")
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
        self.assertEqual(self.calculate()[:4], ["12.5", "800", "75", "2"])
        self.fill("810")
        self.exit()
        self.assertIn("TxFreq_MHz=810", settings.read_text())
        self.assertIn("CalledFromQuorne=False", settings.read_text())


if __name__ == "__main__":
    SCHEMA = open(sys.argv.pop(1), encoding="utf-8").read()
    unittest.main(verbosity=2)
