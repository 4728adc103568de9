#!/usr/bin/env bash
# Makes the compiled manual from the user guide and the pages about the models:
# make-manual.sh MANUAL.chm GUIDE.md MODELS.md
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"

manual=$1
guide=$2
models=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cp -r "$(dirname "$guide")/pictures" "$work"

title=$(sed -n 's/^# //p' "$guide" | head -n 1)
{
  printf '<html><head><meta charset="utf-8"><title>%s</title></head><body>\n' "$title"
  sed -s '/^<!-- topic:/d; $G' "$guide" "$models" | cmark-gfm --extension table --to html |
    sed "s/href=\"$(basename "$models")\"/href=\"#models\"/" |
    awk '/^<h1>/ && ++titles == 2 { sub("<h1>", "<h1 id=\"models\">") }
         /^<h2>/ { sub("<h2>", "<h2 id=\"section" ++n "\">") } { print }'
  printf '</body></html>\n'
} > "$work/guide.html"

{
  printf '<html><body><ul>\n'
  awk '/^<h2 id=/ {
    gsub(/<[^>]*>/, "")
    printf "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"%s\">", $0
    printf "<param name=\"Local\" value=\"guide.html#section%d\"></object>\n", ++n
  }' "$work/guide.html"
  printf '</ul></body></html>\n'
} > "$work/guide.hhc"

cat > "$work/guide.hhp" <<END
[OPTIONS]
Compatibility=1.1
Compiled file=manual.chm
Contents file=guide.hhc
Default topic=guide.html
Title=$title
[FILES]
guide.html
$(cd "$work" && ls pictures/*.png)
END

(cd "$work" && chmcmd guide.hhp > log 2>&1) || { cat "$work/log" >&2; exit 1; }
mv "$work/manual.chm" "$manual"
