#!/usr/bin/env bash
# Which lines and branches of src/ and cli/ the whole test suite reaches, as a table of the rooms. The
# lines that it does not reach, or does not leave by each of their branches, are listed in
# build/coverage/unreached.txt. Takes some minutes. With --again no test is run: the last run's counts.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '--again' "$@"
cd "$(dirname "$0")/.."

failed=0
if [[ ${1:-} != --again ]]; then
  scripts/setup.sh test
  scripts/build.sh coverage
  find build/coverage -name '*.gcda' -delete
  # Counting takes its time, and a library with counters cannot be linked by itself.
  VARDEL_REACH_PATHS=10 ctest --test-dir build/coverage --output-on-failure --parallel "$(nproc)" \
    --exclude-regex '^InstalledModelLibrary$' || failed=1
fi
python3 -B scripts/coverage.py build/coverage
exit $failed
