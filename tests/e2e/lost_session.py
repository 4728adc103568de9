"""The display server dies, or the session ends by a signal, while a window is open: what was
calculated and entered until then is there at the next start.

usage: lost_session.py PROGRAM [all|WINDOW...]
"""

import sys
import unittest

from user import Display, User, wait_for

MAIN = "Okumura-Hata Field Strength"
# What leads from the main window to each: keys, and the title of the window that then comes.
WINDOWS = {
    "main": [],
    "message": [("ctrl+a 2 9 Return", "Vardel")],
    "introduction": [("alt+h i", "Introduction")],
    "about": [("alt+h a", "About")],
    "help": [("F1", "Help")],
    "log": [("alt+c v", "BaseH   MobilH")],
    "log's file": [("alt+c v", "BaseH   MobilH"), ("ctrl+s", "Save")],
    "printer of the log": [("alt+c v", "BaseH   MobilH"), ("ctrl+p", "Save")],
    "range report": [("alt+c r", "Report Distance Range")],
    "loss graph": [("alt+g Return", "dB Loss Graph")],
    "loss graph's file": [("alt+g Return", "dB Loss Graph"), ("alt+f s", "Save")],
    "field strength graph": [("alt+g Down Return", "Field Strength Plot")],
    "reach": [("ctrl+r", "Reach")],
    "explanation": [("alt+t e", "Explain This Number")],
    "measured data": [("ctrl+m", "Measured")],
    "archive": [("ctrl+d", "Archive")],
    "archive's file": [("ctrl+d", "Archive"), ("alt+o", "Open")],
    "graph over reach": [("ctrl+r", "Reach"), ("alt+g", "Field Strength"),
                         ("6 5 0 Tab", "Field Strength")],  # hands its inputs back
    "end": [("alt+f e", "Loss Calculation Program")],
    "end's question": [("alt+f e", "Loss Calculation Program"), ("Return", "Output Log")],
}
ENTERED = {"message": 29, "graph over reach": "650.0"}  # MHz; elsewhere 700
SOME = ["message", "loss graph's file", "graph over reach"]


class LostSession(unittest.TestCase):
    def start(self, user):
        user.start()
        user.wait_for_window(MAIN)

    def calculate(self, user):
        lines = len(user.log_lines())
        user.keys("ctrl+a")
        user.type("700")
        user.keys("alt+c", "c")
        wait_for("the calculation", lambda: len(user.log_lines()) == lines + 1)

    def lose(self, window, display_dies):
        with Display() as display:
            user = User(PROGRAM, display)
            self.addCleanup(user.scratch.cleanup)
            self.addCleanup(user.kill)
            settings = user.settings_file()
            settings.parent.mkdir(parents=True)
            settings.write_text("[Loss_FieldStrength]\nInfoScreen=NoScreen\n")
            self.start(user)
            self.calculate(user)
            user.keys("ctrl+r")
            user.wait_for_window("Reach")
            user.keys("alt+a", "Escape")  # into the log, whose file has it only at the end
            user.wait_until_gone("Reach")
            user.wait_for_window(MAIN)
            for keys, title in WINDOWS[window]:
                user.keys(*keys.split())
                user.wait_for_window(title)
            if display_dies:
                display.server.kill()
            else:
                user.process.terminate()
            user.process.wait(timeout=20)
        messages = (user.home / "messages").read_text()
        self.assertEqual(user.process.returncode, 1 if display_dies else 0, messages)
        self.assertNotIn("Sanitizer", messages)
        self.assertIn(f"Freq={ENTERED.get(window, 700)}\n", settings.read_text())
        self.assertIn("at 95 % of locations", user.log_text())
        self.assertGreater(len(user.log_lines()), 0)
        with Display() as display:
            user.environment["DISPLAY"] = display.name
            self.start(user)
            self.calculate(user)

    def test_each_window(self):
        for name in WINDOWS if CHOSEN == ["all"] else CHOSEN or SOME:
            for display_dies in (True, False):
                with self.subTest(window=name, display_dies=display_dies):
                    self.lose(name, display_dies)


if __name__ == "__main__":
    PROGRAM, *CHOSEN = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
