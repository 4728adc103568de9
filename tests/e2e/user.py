"""A user at the real program: a display of its own, keys and mouse, and nothing else."""

import os
import re
import subprocess
import tempfile
import time
from pathlib import Path

PATIENCE = 20.0  # seconds until something that must come has come


def wait_for(what, condition):
    """What the condition gives as soon as it is true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise AssertionError("waited in vain for " + what)


class Display:
    """An X server without a window manager; it finds a free number by itself."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            # Not reset when a program ends, at which the next might be starting.
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1400x900x24", "-nolisten", "tcp",
             "-noreset"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class User:
    """Starts the program in a home of its own, which outlives its starts."""

    def __init__(self, program, display):
        self.program = program
        self.scratch = tempfile.TemporaryDirectory()
        self.home = Path(self.scratch.name)
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.home), "DISPLAY": display.name,
            "XDG_RUNTIME_DIR": str(self.home), "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
            "LSAN_OPTIONS": f"print_suppressions=0:suppressions={Path(__file__).parent}/leaks.supp",
        }
        self.process = None

    def start(self):
        with open(self.home / "messages", "a") as messages:
            self.process = subprocess.Popen([self.program], env=self.environment,
                                            stdout=messages, stderr=messages)

    def has_ended(self):
        return self.process.poll() is not None

    def wait_for_end(self):
        wait_for("the end of the program", self.has_ended)
        assert self.process.returncode == 0, (self.home / "messages").read_text()

    def kill(self):
        if self.process and not self.has_ended():
            self.process.kill()
            self.process.wait()

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, text=True,
                              capture_output=True, check=False).stdout

    def windows(self, title):
        """Those on the screen whose title holds the text."""
        found = self.xdotool("search", "--onlyvisible", "--name", title).split()
        return [int(window) for window in found]

    def titles(self):
        """Of all windows on the screen, to the letter."""
        return [self.xdotool("getwindowname", window).rstrip("\n") for window in self.windows(".")]

    def wait_for_window(self, title):
        """Until it is there and has the keyboard."""
        def focused():
            named = self.xdotool("getwindowfocus", "getwindowname").strip()
            return title in named and self.windows(title)
        try:
            return wait_for("the window " + title, focused)[-1]
        except AssertionError as vain:
            raise AssertionError(f"{vain}, and heard {(self.home / 'messages').read_text()}")

    def wait_until_gone(self, title):
        wait_for(title + " to close", lambda: not self.windows(title))

    def keys(self, *names):
        """One after the other, with the time that a quick hand takes."""
        for name in names:
            self.xdotool("key", "--clearmodifiers", name)
            time.sleep(0.06)

    def type(self, text):
        self.xdotool("type", "--delay", "15", text)

    def click(self, window, x, y):
        """At a place within the window."""
        self.xdotool("mousemove", "--window", window, x, y, "click", "1")
        time.sleep(0.1)

    def picture(self, path):
        subprocess.run(["import", "-window", "root", path], env=self.environment, check=False)

    # What the program leaves in the user's home.

    def settings_file(self, application="Vardel"):
        return self.home / ".config" / "vardel" / (application + ".ini")

    def log_text(self):
        """The retained or running log as plain text."""
        logs = list((self.home / ".local/state/vardel").glob("*.rtf"))
        if len(logs) != 1:
            return ""
        body = re.sub(r"\{\\fonttbl.*?\}\}", "", logs[0].read_text().replace("\n", " "))
        body = re.sub(r"\\par\b ?", "\n", body)
        return re.sub(r"\\[a-z]+-?\d* ?|[{}]", "", body)

    def log_lines(self):
        """The calculations in the log, each as its columns."""
        lines = [line.split() for line in self.log_text().splitlines()]
        return [line for line in lines if len(line) > 15 and line[-1] in ("am", "pm")]
