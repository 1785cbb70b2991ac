# shellcheck shell=bash
# Sourced by the tests in bash: $root is the source tree, and $sandbox a folder that is deleted at the
# end. A test that has called `fail` goes on, and fails when it ends.
set -euo pipefail
# shellcheck disable=SC2034 # used by the tests
root=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../..")
sandbox=$(mktemp -d)
failures=0

finish() {
  local status=$?
  rm -rf "$sandbox"
  exit $((status ? status : failures > 0))
}
trap finish EXIT

fail() {
  echo "$*" >&2
  failures=$((failures + 1))
}

# expect WHAT EXPECTED ACTUAL
expect() { [[ $2 == "$3" ]] || fail "$1: expected $2, but it is $3"; }
