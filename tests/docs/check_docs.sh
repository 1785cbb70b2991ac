#!/usr/bin/env bash
# Holds the documents to what they show: check_docs.sh BUILD CC runs every session in them with the
# tool installed from BUILD, and CC as the C compiler.
#
# Each document gets a folder of its own, laid out like the root of the tree. Its fenced blocks are
# told apart by the words behind the fence:
#
#   console      commands behind "$ " and all that they print; a line "..." stands for any lines
#   bytes NAME   the bytes of the file NAME: offset, bytes and meaning, two blanks between them
#   * NAME       the file NAME; if there is one of that name, a passage of it
#
# C and C++ have to have a name, so that no code stands in a document unread.
set -euo pipefail
build=$(realpath "$1")
compiler=$(type -P "$2")
source=$(realpath "$(dirname "$0")/../..")
sandbox=$(mktemp -d)
trap 'rm -rf "$sandbox"' EXIT
failures=0

fail() {
  echo "$document: $1" >&2
  failures=$((failures + 1))
}

make_root() {
  root=$sandbox/$(basename "$document" .md)
  mkdir -p "$root/build/demo"
  cp -r "$source/examples" "$root"
  ln -s "$sandbox/usr/bin/tavrel" "$root/build/tavrel"
}

# Writes each block of the document to a file of its own, numbered; its first line is the words
# behind the fence.
split_blocks() {
  mkdir "$root/.blocks"
  awk -v folder="$root/.blocks" '
    /^```/ { inside = !inside; if (inside) ++count; sub(/^```/, ""); if (!inside) next }
    inside { printf "%s\n", $0 > sprintf("%s/%03d", folder, count) }' "$source/$document"
}

# Time stamps differ from run to run, and blanks at the end of a line can't be seen.
masked() {
  sed -E 's|[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+ [ap]m - File|STAMP - File|; s/[[:blank:]]+$//'
}

# What a session's shell begins with: shows a command and runs it, with the last one's status at
# hand.
# shellcheck disable=SC2016 # the session expands it
readonly session_shell='
  status=0
  run() { printf "$ %s\n" "$1"; (exit $status); eval "$1"; status=$?; }'

check_session() {
  local expected actual pattern
  expected=$(masked)
  {
    echo "$session_shell"
    sed -n "/^\\\$ /{ s/^..//; s/'/'\\\\''/g; s/.*/run '&'/; p }" <<<"$expected"
  } >"$root/.session"
  actual=$(cd "$root" && bash .session 2>&1 </dev/null | masked) || true
  pattern=$(sed 's/[][*?\\]/\\&/g; s/^\.\.\.$/*/' <<<"$expected")
  # shellcheck disable=SC2053 # a pattern, on purpose
  if [[ $actual != $pattern ]]; then
    fail "a session prints something else"
    diff -u --label shown --label printed <(echo "$expected") <(echo "$actual") >&2 || true
  fi
}

check_bytes() {
  local expected
  expected=$(awk -F '  +' '
    NF { sub(/^ +/, ""); if ($1 != count) print "offset", $1; print $2; count += split($2, b, " ") }')
  if ! diff -u --label shown --label packed \
    <(tr ' ' '\n' <<<"$expected") <(od -An -v -tx1 "$root/$1" | tr -s ' ' '\n' | sed '/^$/d') >&2; then
    fail "the bytes of $1 are others"
  fi
}

check_file() {
  local text
  text=$(cat)
  if [[ ! -e $root/$1 ]]; then
    printf '%s\n' "$text" >"$root/$1"
  elif [[ $(cat "$root/$1") != *"$text"* ]]; then
    fail "$1 has no such passage"
  fi
}

check_block() {
  local kind=$1 name=${2:-}
  case $kind,$name in
    console,) check_session ;;
    bytes,?*) check_bytes "$name" ;;
    c, | cpp,) fail "a block of C without a file name" ;;
    *,?*) check_file "$name" ;;
  esac
}

cmake --install "$build" --prefix "$sandbox/usr" >/dev/null
mkdir "$sandbox/bin"
ln -s "$compiler" "$sandbox/bin/cc"
export PATH=$sandbox/usr/bin:$sandbox/bin:$PATH CMAKE_PREFIX_PATH=$sandbox/usr
# The build tool that is there for this build is the one that is there for those of the documents.
CMAKE_GENERATOR=$(sed -n 's/^CMAKE_GENERATOR:INTERNAL=//p' "$build/CMakeCache.txt")
export CMAKE_GENERATOR

cd "$source"
for document in README.md docs/*.md; do
  make_root
  split_blocks
  for block in "$root"/.blocks/*; do
    read -r words <"$block"
    # shellcheck disable=SC2086 # two words at most
    check_block $words < <(tail -n +2 "$block")
  done
done

document=docs/tavrel.1
if type mandoc >/dev/null 2>&1 && ! mandoc -Tlint -W all "$document"; then
  fail "mandoc has complaints"
fi
[[ $failures -eq 0 ]]
