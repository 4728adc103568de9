#!/usr/bin/env bash
# Checks the formatting of the code, with --fix mends it; and includes, links of documents, numbers of releases.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '--fix' "$@"
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[[ ${1:-} == --fix ]] && mode=(-i)
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format "${mode[@]}"

scripts/check-walls.py src cli elevation python/src
git ls-files -z '*.md' | xargs -0 scripts/check-links.py
scripts/release.sh --check
