#!/usr/bin/env bash
# Makes the Debian packages of a build folder and looks at what they hold: check-packages.sh BUILD TYPE
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"
export LC_ALL=C

build=$1 type=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cpack --config "$build/CPackConfig.cmake" -B "$work" > "$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }

# What is installed by a pattern counts as one file.
check() {
  local package=$1 expected
  shift
  expected=$(printf '%s\n' "$@" | sort)
  dpkg-deb --extract "$work/${package}"_*.deb "$work/$package"
  diff <(echo "$expected") <(cd "$work/$package/usr" && find . ! -type d -printf '%P\n' |
    sed -E 's|^lib/[^/]+-linux-gnu[^/]*/|lib/|; s|(/models/).*\.h$|\1*.h|; s|(/pictures/).*\.png$|\1*.png|; s|(/examples/).*\.py$|\1*.py|; s|(/_vardel)\.cpython.*|\1.so|' | sort --unique) ||
    { echo "$package holds (>) other files than it should (<)." >&2; exit 1; }
}

check libvardel-models-dev lib/libvardel_models.a lib/pkgconfig/vardel-models.pc 'include/vardel/models/*.h' \
  lib/cmake/VardelModels/VardelModels{Config,ConfigVersion,Targets,Targets-"$type"}.cmake \
  share/doc/libvardel-models-dev/{changelog.gz,copyright,model-library.md,models.md,examples/{CMakeLists.txt,curves.cpp,path_loss.cpp}}
check vardel-calc bin/vardel-calc share/bash-completion/completions/vardel-calc share/man/man1/vardel-calc.1.gz \
  share/doc/vardel-calc/{changelog.gz,copyright,coverage.md,examples/{sites.csv,sites.sh},scripting.md,terrain.md}
check vardel-terrain lib/vardel/modules/vardel-elevation.so share/doc/vardel-terrain/{changelog.gz,copyright,terrain.md}
check vardel bin/vardel share/applications/vardel.desktop share/metainfo/org.vardel.vardel.metainfo.xml \
  lib/vardel/{vardel,'pictures/*.png',vardel.svg,{about,badbutton,goodbutton}.bmp,Vardel.chm,'New Model Data.mdb',measured.csv} \
  share/doc/vardel/{CHANGELOG.md,changelog.gz,copyright,file-formats.md,measured-example.csv,models.md,user-guide.md,pictures} \
  share/icons/hicolor/{{16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256,512x512}/apps/vardel.png,scalable/apps/vardel.svg} \
  share/man/man1/vardel.1.gz
check python3-vardel lib/python3/dist-packages/vardel/{__init__.py,_{arrays,coverage,ground,models,planning,reports}.py,_vardel.pyi,py.typed,_vardel.so} \
  share/doc/python3-vardel/{changelog.gz,copyright,scripting.md,'examples/*.py'}

[[ $(dpkg-deb --ctrl-tarfile "$work"/vardel_*.deb | tar -xO ./conffiles) == /etc/vardel/measured.csv &&
  $(readlink "$work/vardel/usr/lib/vardel/measured.csv") == /etc/vardel/measured.csv &&
  -e $work/vardel/etc/vardel/measured.csv ]] || { echo "The measured data are no configuration file." >&2; exit 1; }
for link in bin/vardel share/doc/vardel/pictures; do
  [[ $(readlink -f "$work/vardel/usr/$link") == "$work/vardel/usr/lib/vardel/${link##*/}" ]] ||
    { echo "usr/$link leads elsewhere." >&2; exit 1; }
done
needs() {
  local package=$1 depends needed
  depends=$(dpkg-deb --field "$work/${package}"_*.deb Depends)
  for needed in "${@:2}"; do
    [[ $depends == *$needed* ]] || { echo "$package does not depend on $needed: $depends" >&2; exit 1; }
  done
}
needs vardel fonts-liberation libqt6widgets6 libqcustomplot
needs vardel-terrain libgdal
needs python3-vardel python3-numpy-abi 'python3 (<<' libsqlite3-0
# The one is there for servers, too, and GDAL only for who has elevation data.
without() {
  local depends
  depends=$(dpkg-deb --field "$work/$1"_*.deb Depends)
  [[ $depends != *$2* ]] || { echo "$1 depends on more than it needs: $depends" >&2; exit 1; }
}
without vardel-calc qt
without vardel-calc gdal
without vardel gdal
lintian --no-cfg --allow-root --fail-on error,warning "$work"/*.deb
# Fortified functions cannot be looked for: no call has a buffer whose size the compiler knows.
lintian --no-cfg --allow-root --fail-on info --tags hardening-no-bindnow,hardening-no-pie,hardening-no-relro "$work"/*.deb
for file in "$work"/{vardel/usr/lib/vardel/vardel,vardel-calc/usr/bin/vardel-calc,python3-vardel/usr/lib/python3/dist-packages/vardel/_vardel.*.so}; do
  readelf --dyn-syms --wide "$file" | grep __stack_chk_fail > /dev/null ||
    { echo "$file has no stack protector." >&2; exit 1; }
done
cd /  # where no other module of the name is
PYTHONPATH=$work/python3-vardel/usr/lib/python3/dist-packages /usr/bin/python3 -B -c '
import vardel
assert f"{vardel.itu529_loss(450, 10):.2f}" == "143.13"'
