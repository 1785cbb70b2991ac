#!/usr/bin/env bash
# The diffs of `tavkit check --fix=dry` are those that other programs apply, and make what --fix
# makes: script_diffs_test.sh TAVKIT EXAMPLES
set -euo pipefail
tavkit=$(realpath "$1")
sandbox=$(mktemp -d)
trap 'rm -rf "$sandbox"' EXIT
cp "$2"/* "$sandbox"
cd "$sandbox"

grep -v 'SampleRate\|ScriptEnd' demo.txt >'a b.txt'
sed 's/$/\r/' 'a b.txt' >crlf.txt
printf '\xEF\xBB\xBF%s' "$(cat 'a b.txt')" >mark.txt
printf '%s' "$(cat crlf.txt)" >no_end.txt
tr '\n' '\r' <'a b.txt' >cr.txt
for script in *.txt; do
  mkdir -p patched applied
  cp "$script" patched
  cp "$script" applied
  "$tavkit" check --fix=dry "$script" >diff 2>messages || true
  "$tavkit" check --fix "$script" >/dev/null 2>&1 || true
  if [[ $script != demo.txt ]]; then
    patch -s -d patched -p0 --binary <diff
    (cd applied && git apply -p0 --whitespace=nowarn ../diff)
  fi
  cmp "$script" "patched/$script"
  cmp "$script" "applied/$script"
done
