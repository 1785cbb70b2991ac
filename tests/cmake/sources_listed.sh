#!/usr/bin/env bash
# Fails for a source that no CMakeLists.txt lists: it would never be built, and a test in it could
# never fail. The list is in the source's folder or in the one above.
source "$(dirname "$0")/../support/sandbox.sh"
cd "$root"

while read -r source; do
  list=$(dirname "$source")/CMakeLists.txt
  [[ -e $list ]] || list=$(dirname "$source")/../CMakeLists.txt
  name=$(basename "$source" .cpp | sed -E 's/_(bench|fuzzer)$//')
  grep -qw "$name" "$list" || fail "$list doesn't list $source"
done < <(find . -path './build*' -prune -o -name '*.cpp' -print)
