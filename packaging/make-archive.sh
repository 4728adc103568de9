#!/usr/bin/env bash
# Makes an empty archive: make-archive.sh SCHEMA.sql ARCHIVE.mdb
# An archive that holds runs already is somebody's own by now, and stays as it is.
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"

schema=$1
archive=$2
if [[ -s $archive ]] && [[ $(sqlite3 -readonly "$archive" \
    'SELECT EXISTS (SELECT * FROM ModelRun) OR EXISTS (SELECT * FROM DataSets)') != 0 ]]; then
  echo "$archive holds runs and is left as it is."
  touch "$archive"
  exit 0
fi
rm -f "$archive.part"
sqlite3 -bail "$archive.part" < "$schema"
mv "$archive.part" "$archive"
