#!/usr/bin/env bash
# Whether the tests see faults: puts one-line faults into copies of the sources, one at a time, and names
# those with which the tests of their room still pass. See scripts/mutate.py --help.
set -euo pipefail
cd "$(dirname "$0")/.."

exec python3 -B scripts/mutate.py "$@"
