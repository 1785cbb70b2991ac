#!/usr/bin/env bash
# Fails for a source that no CMakeLists.txt lists: it would never be built, and a test in it could
# never fail. The list is in the source's folder or in the one above.
set -euo pipefail
cd "$(dirname "$0")/../.."

failed=0
while read -r source; do
  folder=$(dirname "$source")
  list=$folder/CMakeLists.txt
  [[ -e $list ]] || list=$(dirname "$folder")/CMakeLists.txt
  name=$(basename "$source" .cpp)
  name=${name%_bench}
  name=${name%_fuzzer}
  if ! grep -qw "$name" "$list"; then
    echo "$list doesn't list $source" >&2
    failed=1
  fi
done < <(find . -path './build*' -prune -o -name '*.cpp' -print)
exit "$failed"
