#!/usr/bin/env bash
# Installs what is missing, builds a release and opens the program. Without a display it runs the
# program offscreen instead: one calculation, its log line, and pictures of the windows.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh release
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
  exec build/release/vardel
fi
echo "There is no display here. One calculation with the default inputs, offscreen:"
build/release/vardel-tour build/pictures
echo "Pictures of the windows are in build/pictures."
