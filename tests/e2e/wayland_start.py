"""The program starts on a Wayland session that has no X server, and ends when it is told to."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from user import wait_for

PROGRAM = None


class WaylandStart(unittest.TestCase):
    def test_starts_and_ends(self):
        with tempfile.TemporaryDirectory() as scratch:
            os.chmod(scratch, 0o700)  # as a runtime folder must be
            environment = {
                "PATH": os.environ["PATH"], "HOME": scratch, "XDG_RUNTIME_DIR": scratch,
                "XDG_SESSION_TYPE": "wayland", "WAYLAND_DISPLAY": "wayland-test",
                # What the session's own libraries keep to the end is not looked at here.
                "ASAN_OPTIONS": "detect_leaks=0",
            }
            with subprocess.Popen(
                    ["weston", "--backend=headless-backend.so", "--socket=wayland-test", "--no-config",
                     "--idle-time=0"],
                    env={**environment, "WAYLAND_DISPLAY": ""}, stdout=subprocess.DEVNULL,
                    stderr=subprocess.DEVNULL) as session:
                try:
                    wait_for("the Wayland session", (Path(scratch) / "wayland-test").exists)
                    self.start_and_end(environment)
                finally:
                    session.terminate()

    def start_and_end(self, environment):
        with subprocess.Popen([PROGRAM], env=environment, stderr=subprocess.PIPE) as program:
            maps = Path(f"/proc/{program.pid}/maps")
            log = Path(environment["HOME"]) / ".local/state/vardel"
            wait_for("the report log's file, which a start makes",
                     lambda: program.poll() is not None or (log.exists() and any(log.iterdir())))
            loaded = maps.read_text() if program.poll() is None else ""
            program.terminate()
            _, errors = program.communicate(timeout=20)
        self.assertEqual(program.returncode, 0, errors.decode())
        self.assertIn("libQt6WaylandClient", loaded)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
