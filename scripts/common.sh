# shellcheck shell=bash
# Sourced by the other scripts. Stops them at the first failure and changes to the root of the
# source tree, wherever they are called from.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The folders of the product's sources, for the scripts that inspect them.
# shellcheck disable=SC2034 # used by the scripts that source this file
product_folders=(compiler samples midi foundation platform kit)

# For a new build folder; one that was configured by hand keeps its generator.
export CMAKE_GENERATOR=${CMAKE_GENERATOR:-Ninja}
CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
export CMAKE_BUILD_PARALLEL_LEVEL

# Configures and builds one preset of CMakePresets.json.
build() {
  cmake --preset "$1"
  cmake --build --preset "$1"
}

# Runs the tests of a preset that has been built. Further arguments go to ctest.
run_tests() {
  ctest --preset "$1" --parallel "$(nproc)" "${@:2}"
}

# Runs a command, such as another script, and prints its name before and its time after it.
step() {
  printf '\n=== %s\n' "$*"
  local start=$SECONDS
  "$@"
  printf '=== %s: %d s\n' "$*" $((SECONDS - start))
}
