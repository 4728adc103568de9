#!/usr/bin/env bash
# Each script says what it is for when it is asked, and begins nothing when it is given what it does not know.
set -uo pipefail
cd "$(dirname "$0")/../.."

faults=0
fault() { echo "$*" >&2; faults=1; }
for script in scripts/*.sh scripts/*.py packaging/*.sh; do
  [[ $script == scripts/common.sh ]] && continue
  told=$(timeout 20 "$script" --help 2>&1) && [[ ${#told} -gt 60 ]] || fault "$script --help tells: $told"
  [[ $script =~ ^(packaging/(make|check-p|check-m)|scripts/test\.sh) ]] && continue
  timeout 20 "$script" --no-such-word > /dev/null 2>&1
  [[ $? -eq 2 ]] || fault "$script takes --no-such-word"
done
exit $faults
