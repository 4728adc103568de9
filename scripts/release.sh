#!/usr/bin/env bash
# Prepares a release's tag. Checks that the version of CMakeLists.txt is the newest one of CHANGELOG.md and,
# with its day and with notes, of the metainfo; that no change stands above it in the changelog as unreleased;
# that the tree is clean; that there is no such tag. Then tells the command that makes the tag; with --tag,
# runs it. With --check, only looks at the numbers and days, which must be alike between releases, too.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes '--check|--tag' "$@"
cd "$(dirname "$0")/.."

mode=${1:-}
fail() { echo "$*" >&2; exit 1; }

version=$(sed -n 's/^project(vardel VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
head=$(grep -m 1 '^## [0-9]' CHANGELOG.md)
[[ $head =~ ^"## $version ("([0-9]{4}-[0-9]{2}-[0-9]{2})")"$ ]] ||
  fail "CMakeLists.txt has version $version; CHANGELOG.md begins with '$head'."
day=${BASH_REMATCH[1]}
metainfo=packaging/linux/vardel.metainfo.xml.in
[[ $(grep -m 1 '<release ' "$metainfo") == *"<release version=\"$version\" date=\"$day\">" ]] ||
  fail "The newest release of $metainfo is not $version of $day, with notes."
[[ $mode == --check ]] && exit 0

[[ $(grep -m 1 '^## ' CHANGELOG.md) == "$head" ]] || fail "CHANGELOG.md has unreleased changes."
[[ -z $(git status --porcelain) ]] || fail "The tree is not clean."
tag=v$version
git rev-parse --quiet --verify "refs/tags/$tag" > /dev/null && fail "There is a tag $tag."

# The section of the changelog is the tag's text; its heads are no comments.
message=$(mktemp)
trap 'rm -f "$message"' EXIT
{
  echo "Vardel $version"
  awk '/^## [0-9]/ { if (inside) exit; inside = 1; next } inside' CHANGELOG.md
} > "$message"
if [[ $mode == --tag ]]; then
  git tag -a "$tag" --cleanup=whitespace -F "$message"
else
  cat "$message"
  echo "All is ready for: scripts/release.sh --tag && git push origin $tag"
fi
