#!/usr/bin/env bash
# Installs what building and running Vardel needs, where it is missing; with "test", what its tests and
# checks need as well, with "package", what the Debian packages need. On a system without apt it says
# what is needed and fails.
set -euo pipefail
source "$(dirname "$0")/common.sh"
takes 'test|package' "$@"

packages=(
  # building
  g++ cmake ninja-build git pkg-config python3 librsvg2-bin
  # the program
  qt6-base-dev qt6-svg-dev libcups2-dev qt6-qpa-plugins qt6-wayland libqcustomplot-dev fonts-liberation
  libsqlitecpp-dev libsqlite3-dev sqlite3 libgeographiclib-dev
  # the module that reads elevation data
  libgdal-dev
  # the compiled manual
  cmark-gfm fp-utils
)
for purpose in "$@"; do
  case $purpose in
    test) packages+=(
      libgtest-dev libgmock-dev libbenchmark-dev locales unrtf libwmf-bin ghostscript poppler-utils
      libreoffice-draw-nogui xvfb xdotool weston imagemagick gnuplot-nox gdal-bin
      pybind11-dev python3-dev python3-geographiclib python3-numpy python3-pytest python3-matplotlib python3-venv
      python3-dask python3-distributed python3-pandas python3-xarray mypy
      clang clang-format clang-tidy libclang-rt-14-dev desktop-file-utils appstream lintian man-db dpkg-dev file) ;;
    package) packages+=(dpkg-dev file pybind11-dev python3-dev python3-numpy) ;;
  esac
done

missing=()
if command -v dpkg-query >/dev/null; then
  for package in "${packages[@]}"; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
  done
  [[ ${#missing[@]} -eq 0 ]] && exit 0
fi

if ! command -v apt-get >/dev/null; then
  echo "Vardel is set up by itself on Debian 12. Here, please install what these Debian packages hold:" >&2
  printf '  %s\n' "${packages[@]}" >&2
  exit 1
fi

as_root=()
if [[ $(id -u) -ne 0 ]]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing, and there is no sudo to install them:" "${missing[@]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing:" "${missing[@]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -q -y --no-install-recommends "${missing[@]}"
