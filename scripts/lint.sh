#!/usr/bin/env bash
# Checks the formatting of the code; with --fix, mends it.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[[ ${1:-} == --fix ]] && mode=(-i)
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}"

# The walls that the include path, being one for all, does not hold.
past_wall() { git ls-files "$1" | grep -vE "${3:-^$}" | xargs grep -nE "$2" && exit 1 || true; }
past_wall 'src/models/*' '#include "(platform|workbench|graphs|archive|settings|help|reports)/'
past_wall 'src/platform/*' '#include "(models|workbench|graphs|archive|settings|help|reports)/' '^src/platform/qt/'
past_wall 'src/*' '#include (<Q|<qcustomplot|"platform/qt/)' '^src/(platform/qt/|main.cpp)'
