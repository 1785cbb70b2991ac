# shellcheck shell=bash
# Sourced by the scripts beside it: stops them at the first failure and takes them to the root of
# the tree, whatever folder they are called from.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Configures and builds one preset of CMakePresets.json.
build() {
  cmake --preset "$1"
  cmake --build --preset "$1"
}

# Runs the tests of a preset that is built; further arguments go to ctest.
run_tests() {
  ctest --preset "$1" --parallel "$(nproc)" "${@:2}"
}
