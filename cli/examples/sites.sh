#!/usr/bin/env bash
# Ranks sites by the field strength that they give a receiver 12 km away: sites.sh [SITES.csv]
# VARDEL_CALC names the program where it is not installed.
set -euo pipefail

calc=${VARDEL_CALC:-vardel-calc}
sites=${1:-$(dirname "$0")/sites.csv}

# The columns of the file go with the options for all rows. The results are added to each row.
"$calc" batch "$sites" --distance 12 --mobile-height 1.5 --json |
  python3 -c '
import json, sys
rows = [json.loads(line) for line in sys.stdin]
for row in sorted(rows, key=lambda row: -row["itu529_field_dbuvm"]):
    mark = "" if row["itu529_in_range"] else "  (out of range)"
    print("%-8s %5.1f dB(µV/m)%s" % (row["site"], row["itu529_field_dbuvm"], mark))'

# How far the best of them reaches.
"$calc" reach --frequency 450 --base-height 110 --area suburban --power 50 --field-strength 40
