"""Kills a program that calculates and saves its log, at random moments, and starts it again.

Whatever a save had finished must be there at the next start.
"""

import random
import subprocess
import sys
import tempfile
import time


def run(program, folder, rounds, seed):
    chance = random.Random(seed)
    saved = 0
    for round_number in range(rounds):
        child = subprocess.Popen([program, "writer", folder], stdout=subprocess.PIPE, text=True)
        word, found = child.stdout.readline().split()
        assert word == "found", word
        if int(found) < saved:
            child.kill()
            return f"round {round_number}: {saved} lines were saved, {found} found"
        time.sleep(chance.uniform(0.0, 0.2))
        child.kill()
        # A line that was told in full was told after its save.
        told = [line for line in child.stdout if line.endswith("\n")]
        saved = max([int(found)] + [int(line.split()[1]) for line in told])
        child.wait()
    print(f"{rounds} rounds, {saved} lines")
    return None


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as scratch:
        sys.exit(run(sys.argv[1], scratch, int(sys.argv[2]), seed=1))
