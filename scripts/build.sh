#!/usr/bin/env bash
# Builds one preset of CMakePresets.json (default: release). Configures only where that was not done.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '[a-z]+' "$@"
cd "$(dirname "$0")/.."

preset=${1:-release}
[[ -f build/$preset/build.ninja ]] || cmake --preset "$preset"
cmake --build --preset "$preset"
