#!/usr/bin/env bash
# Installs the model library of a build folder into a folder of its own and builds and runs the examples
# against that, by CMake and by pkg-config, with each header alone and each function of it:
# check-model-library.sh BUILD EXAMPLES COMPILER [SANITIZERS]
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"

build=$1 examples=$2 compiler=$3 sanitizers=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
flags=(-std=c++20)
[[ -n $sanitizers ]] && flags+=("-fsanitize=$sanitizers")
fail() { printf '%s\n' "$@" >&2; exit 1; }

declare -A expected=(
  [path_loss]='ITU-R P.529  143.13 dB  49.31 dB(uV/m)
Davidson     143.13 dB  49.30 dB(uV/m)
COST 231     140.42 dB  52.01 dB(uV/m)  out of range'
  [curves]='ITU 529   28.0 km  178.42 dB
Davidson  27.1 km  178.44 dB
Cost 231  28.5 km  178.38 dB
US        21.5 km  178.43 dB')
check() {
  local output
  output=$("$1")
  [[ $output == "${expected[$(basename "$1")]}" ]] || fail "$1 gives" "$output"
}

cmake --install "$build" --prefix "$work/prefix" --component dev > /dev/null
configure() { cmake -S "$1" -B "$2" -DCMAKE_PREFIX_PATH="$work/prefix" "${@:3}" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="${flags[*]:1}" > "$work/log" 2>&1; }
configure "$examples" "$work/cmake" || fail "$(cat "$work/log")"
cmake --build "$work/cmake" > /dev/null
check "$work/cmake/path_loss"
check "$work/cmake/curves"

export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name vardel-models.pc)")
read -ra library < <(pkg-config --cflags --libs vardel-models)
abi=$(pkg-config --variable=abi vardel-models)

# A version of other first numbers is refused, and so is a program of two binary interfaces.
mkdir "$work/asks"
cat > "$work/asks/CMakeLists.txt" << END
cmake_minimum_required(VERSION 3.25)
project(asks LANGUAGES CXX)
find_package(VardelModels \${WANTED} REQUIRED)
if(NOT VardelModels_ABI EQUAL "$abi")
  message(FATAL_ERROR "CMake and pkg-config differ about the ABI")
endif()
add_library(other INTERFACE)
set_target_properties(other PROPERTIES INTERFACE_VARDEL_MODELS_ABI \${OTHER_ABI})
add_executable(asks $examples/path_loss.cpp)
target_link_libraries(asks Vardel::Models other)
END
version=$(pkg-config --modversion vardel-models)
configure "$work/asks" "$work/asks/fits" -DWANTED="${version%.*}" -DOTHER_ABI="$abi" || fail "$(cat "$work/log")"
! configure "$work/asks" "$work/asks/newer" -DWANTED=1.99 -DOTHER_ABI="$abi" || fail "Version 1.99 is found."
! configure "$work/asks" "$work/asks/mixed" -DWANTED="${version%.*}" -DOTHER_ABI=x || fail "ABIs are mixed."

# The headers ask for no more than C++17, and a caller's own folder of the same name is not in their way.
mkdir "$work/models"
echo '#error not the library' | tee "$work/models/ModelInputs.h" > "$work/models/Primitives.h"
for header in "$work"/prefix/include/vardel/models/*.h; do
  echo "#include <vardel/models/$(basename "$header")>" > "$work/header.cpp"
  "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only "-I$work" "${library[@]}" "$work/header.cpp"
done

# Each function that the headers declare is in the library: a program takes its address.
{
  echo '#include <vardel/models/ModCalculations.h>'
  echo 'using namespace vardel; auto models = &Models;'
  for model in Davidson Itu529 Cost231 Us; do
    echo "ModelFunction ${model}A = ${model}Loss, ${model}B = ${model}FieldStrength;"
  done
  echo 'auto a = BrokenLimits; auto b = TimeVariability; auto c = ModelInRange;'
  echo 'auto d = static_cast<double (*)(double, double, std::string_view) noexcept>(LocationVariability);'
  echo 'int main() { return AreaOf("open") == Area::Open && CityOf("Large") == City::Large ? 0 : 1; }'
} > "$work/all.cpp"
"$compiler" -std=c++17 "${flags[@]:1}" "$work/all.cpp" "${library[@]}" -o "$work/all"
"$work/all"

for example in path_loss curves; do
  "$compiler" "${flags[@]}" -pthread "$examples/$example.cpp" "${library[@]}" -o "$work/$example"
  check "$work/$example"
done
