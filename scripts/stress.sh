#!/usr/bin/env bash
# The long form of the stress tests, under AddressSanitizer and UndefinedBehaviorSanitizer: 10,000
# The long form of the stress tests, under AddressSanitizer and UndefinedBehaviorSanitizer: 100,000
# random user actions, 1,000 starts with random settings, a log of 100,000 lines, 1,000 kills of a
# program that saves, four programs at once with an hour of a user's actions each, a lost display
# and a signal while each of the windows is open, 3,000 reaches beside a sample every metre. Then the
# memory of a day's use: 10,000 calculations, 1,000 graphs, each other window 100 times. Another seed
# than 1 can be given.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '[0-9]+' "$@"
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh sanitize
stress=build/sanitize/tests/stress/vardel_stress
writer=build/sanitize/tests/stress/vardel_writer
seed=${1:-1}
for user in {0..9}; do
  "$stress" user 10000 $((10 * seed + user))
done
"$stress" starts 1000 "$seed"
"$stress" log 100000
for kind in log settings archive exports; do
  python3 -B tests/stress/kill_rounds.py "$writer" "$kind" 250 "$seed"
done
python3 -B tests/stress/four_programs.py "$writer" 3600 "$seed"
python3 -B tests/e2e/lost_session.py build/sanitize/vardel all
VARDEL_REACH_PATHS=3000 build/sanitize/tests/vardel_core_tests --gtest_filter='Reach.TellsEachMetre*'
# A day's use leaves the memory as it was. Sanitizers keep what was freed, so this one runs without.
scripts/build.sh test
build/test/tests/stress/vardel_stress day 100
