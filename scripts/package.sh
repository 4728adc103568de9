#!/usr/bin/env bash
# Installs what is missing and makes the Debian packages in build/packages.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

scripts/setup.sh package
cmake --preset release  # anew: what was installed just now may be for one of the packages
scripts/build.sh release
rm -rf build/packages
cpack --config build/release/CPackConfig.cmake -B build/packages
rm -rf build/packages/_CPack_Packages
