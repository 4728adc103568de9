#!/usr/bin/env bash
# Takes the pictures of the documents anew, as the windows are now: a picture of docs/pictures is that of
# the same name which vardel-tour takes. Look at them before they are committed.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

scripts/build.sh release
build/release/vardel-tour build/pictures > /dev/null
for picture in docs/pictures/*.png docs/pictures/catalogue/*.png; do
  cp "build/pictures/$(basename "$picture")" "$picture"
done
