#!/usr/bin/env bash
# Installs what is missing, builds the program with its tests and runs every test. Needs no display.
# Arguments go to ctest, such as: scripts/test.sh -R NumberText
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh test
ctest --test-dir build/test --output-on-failure --parallel "$(nproc)" "$@"
