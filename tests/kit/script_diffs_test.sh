#!/usr/bin/env bash
# The diffs of `tavkit check --fix=dry` are those that other programs apply, and make what --fix
# makes: script_diffs_test.sh TAVKIT EXAMPLES
source "$(dirname "$0")/../support/sandbox.sh"
tavkit=$(realpath "$1")
cp "$2"/* "$sandbox"
cd "$sandbox"
mkdir patched applied

grep -v 'SampleRate\|ScriptEnd' demo.txt >'a b.txt'
sed 's/$/\r/' 'a b.txt' >crlf.txt
printf '\xEF\xBB\xBF%s' "$(cat 'a b.txt')" >mark.txt
printf '%s' "$(cat crlf.txt)" >no_end.txt
tr '\n' '\r' <'a b.txt' >cr.txt
expect "the diff of a script without problems" "" "$("$tavkit" check --fix=dry demo.txt 2>messages)"
for script in 'a b.txt' crlf.txt mark.txt no_end.txt cr.txt; do
  tee patched/"$script" <"$script" >applied/"$script"
  "$tavkit" check --fix=dry "$script" >diff 2>messages || true
  "$tavkit" check --fix "$script" >messages 2>&1 || true
  patch -s -d patched -p0 --binary <diff
  (cd applied && git apply -p0 --whitespace=nowarn ../diff)
  cmp "$script" "patched/$script"
  cmp "$script" "applied/$script"
done
