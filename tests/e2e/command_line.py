"""vardel-calc as shells and scripts meet it.

usage: command_line.py VARDEL_CALC KILOBYTES|unlimited
"""

import csv
import io
import json
import os
import pty
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, MEMORY = sys.argv.pop(1), sys.argv.pop(1)
HEAD = "site,frequency_mhz,distance_km\n"


def calc(*words, given=None, **more):
    done = subprocess.run([PROGRAM, *words], input=given, capture_output=True, timeout=60, **more)
    return done.returncode, done.stdout, done.stderr.decode()


class CommandLine(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.file = Path(self.folder.name) / "paths.csv"

    def test_a_file_comes_back_in_order_in_a_locale_with_a_decimal_comma(self):
        sites = [f"Nr. {i}, \"{'x' * (i % 300)}\"" for i in range(30000)]
        with self.file.open("w", newline="") as file:
            rows = csv.writer(file)
            rows.writerow(HEAD.strip().split(","))
            rows.writerows([site, 450, 10] for site in sites)
        status, out, errors = calc("batch", str(self.file),
                                   env={**os.environ, "LC_ALL": "de_DE.UTF-8"})
        self.assertEqual((status, errors), (0, ""))
        rows = list(csv.DictReader(io.StringIO(out.decode(), newline="")))
        self.assertEqual([row["site"] for row in rows], sites)
        self.assertEqual({row["itu529_loss_db"] for row in rows}, {"143.129250234123"})
        self.assertEqual({row["cost231_in_range"] for row in rows}, {"no"})

    def test_json_is_json(self):
        status, out, _ = calc("batch", "-", "--json", given=b"site,area\n\"\"\"\xff\",open\n,x\n")
        good, bad = [json.loads(line) for line in out.decode().splitlines()]
        self.assertEqual(status, 3)
        self.assertEqual((good["site"], good["davidson_in_range"], good["error"]), ("\"\ufffd", True, None))
        self.assertEqual(bad["davidson_loss_db"], None)
        self.assertIn("line 3, column area", bad["error"])

    def test_statuses_and_errors(self):
        for status, words, error in [
                (1, ["batch", str(self.file)], "paths.csv: No such file or directory"),
                (1, ["batch", self.folder.name], ": Is a directory"),
                (2, ["--frequenz", "450"], "unknown option --frequenz"),
                (0, ["log", "--header"], ""), (0, ["--version"], ""), (0, ["curve", "--help"], "")]:
            got, out, errors = calc(*words)
            self.assertEqual(got, status, words)
            self.assertIn(error, errors)
            self.assertEqual(bool(out), status == 0, words)
        self.assertEqual([line for line in calc("--help")[1].decode().splitlines() if len(line) > 79], [])
        self.file.write_text(HEAD + "a,450,10\n")
        for words in (["--help"], ["curve"], ["log"], ["batch", str(self.file)]):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, *words], stdout=full, stderr=subprocess.PIPE)
            self.assertEqual(done.returncode, 1)
            self.assertIn(b"standard output: No space left on device", done.stderr)

    def test_a_reader_that_has_enough(self):
        for restore in (True, False):  # where a pipe's signal kills, and where it is ignored
            with subprocess.Popen([PROGRAM, "curve", "--step", "1e-6"], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, restore_signals=restore) as program:
                self.assertTrue(program.stdout.readline().startswith(b"distance_km,"))
                program.stdout.close()
                self.assertEqual(program.stderr.read(), b"")
                self.assertNotEqual(program.wait(60), 0)

    def test_a_row_is_answered_before_the_next_comes(self):
        with subprocess.Popen([PROGRAM, "batch", "-"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as program:
            for row in (HEAD, "a,450,10\n", "b,450,10\n"):
                program.stdin.write(row.encode())
                program.stdin.flush()
                self.assertTrue(program.stdout.readline().startswith(row[:4].encode()))
            program.stdin.close()
            self.assertEqual(program.wait(60), 0)

    def test_memory_is_bounded_and_huge_rows_stop(self):
        # A sanitizer needs more than there is.
        limit = ["sh", "-c", f'ulimit -v {MEMORY}; exec "{PROGRAM}" batch - --threads 2']
        for text in (b"x" * 10_000_000, b'"' + b"1,2,3\n" * 2_000_000, b"\0" * 10_000_000):
            given = HEAD.encode() + b"a,450,10\n" + text + b"\nb,450,10\n"
            done = subprocess.run(limit, input=given, capture_output=True, timeout=60)
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stdout.count(b"\n"), 2)
            self.assertIn(b"standard input: line 3: the row is longer than 1 MiB", done.stderr)

    def test_progress_on_a_terminal(self):
        ours, theirs = pty.openpty()
        with subprocess.Popen([PROGRAM, "batch", "-"], stdin=subprocess.PIPE,
                              stdout=subprocess.DEVNULL, stderr=theirs) as program:
            told = b""
            program.stdin.write(HEAD.encode())
            while b"rows" not in told:
                program.stdin.write(b"a,450,10\n" * 100)
                program.stdin.flush()
                os.set_blocking(ours, False)
                try:
                    told += os.read(ours, 1000)
                except BlockingIOError:
                    pass
            program.stdin.close()
            self.assertEqual(program.wait(60), 0)
        self.assertRegex(told, rb"^\r\d+00 rows")
        os.close(theirs)
        os.close(ours)


unittest.main()
