#!/usr/bin/env bash
# Installs the model library of a build folder into a folder of its own and builds and runs the example
# against that, by CMake and by pkg-config: check-model-library.sh BUILD EXAMPLES COMPILER [SANITIZERS]
set -euo pipefail

build=$1 examples=$2 compiler=$3 sanitizers=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
flags=(-std=c++20)
[[ -n $sanitizers ]] && flags+=("-fsanitize=$sanitizers")

expected='ITU-R P.529  143.13 dB  49.31 dB(uV/m)
Davidson     143.13 dB  49.30 dB(uV/m)
COST 231     140.42 dB  52.01 dB(uV/m)  out of range'
check() {
  local output
  output=$("$1")
  [[ $output == "$expected" ]] || { printf '%s gives\n%s\n' "$1" "$output" >&2; exit 1; }
}

cmake --install "$build" --prefix "$work/prefix" --component dev > /dev/null
cmake -S "$examples" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$work/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="${flags[*]:1}" > /dev/null
cmake --build "$work/cmake" > /dev/null
check "$work/cmake/path_loss"

export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name vardel-models.pc)")
read -ra library < <(pkg-config --cflags --libs vardel-models)
# The headers ask for no more than C++17, and a caller's own folder of the same name is not in their way.
mkdir "$work/models"
echo '#error not the library' | tee "$work/models/ModelInputs.h" > "$work/models/Primitives.h"
echo '#include <vardel/models/ModCalculations.h>' > "$work/headers.cpp"
"$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only "-I$work" "${library[@]}" "$work/headers.cpp"
"$compiler" "${flags[@]}" "$examples/path_loss.cpp" "${library[@]}" -o "$work/path_loss"
check "$work/path_loss"
