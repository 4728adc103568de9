#!/usr/bin/env bash
# Checks the formatting of the code; with --fix, mends it.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[[ ${1:-} == --fix ]] && mode=(-i)
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}"

# The walls that the include path, being one for all, does not hold.
past_wall() { git ls-files "$1" | grep -vE "${3:-^$}" | xargs grep -nE "$2" && exit 1 || true; }
past_wall 'src/models/*' '#include "(text|services|controls|richtext|engine|archive|forms|qt)/'
past_wall 'src/*' '#include "forms/' '^src/(forms|qt)/|^src/main.cpp'
past_wall 'src/*' '#include (<Q|<qcustomplot|"qt/)' '^src/(qt/|main.cpp)'
