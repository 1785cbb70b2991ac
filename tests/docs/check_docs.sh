#!/usr/bin/env bash
# Checks that the documents are true: check_docs.sh BUILD CC runs every command in them, with the
# tool installed from BUILD and with CC as the C compiler.
#
# README.md is checked in a copy of the source tree, which is built by the commands that it shows.
# Every other document is checked in a folder of its own, laid out like that tree. The words after
# the fence of a block say what it is:
#
#   console PROGRAM ...  commands after "$ " and all that they print; a line "..." is any lines. It is
#                        skipped, with a notice, if a program isn't installed
#   sh                   commands that must succeed; what they print is ignored
#   sh scripts           scripts that a test can't run; .ci/run or scripts/all must name each one
#   bytes NAME           the bytes of the file NAME: offset, bytes and meaning, separated by two blanks
#   * NAME               the file NAME, or a passage of it if there is a file of that name
#
# C and C++ must have a name, so that all code in the documents is compiled.
source "$(dirname "$0")/../support/sandbox.sh"
build=$(realpath "$1")
compiler=$(type -P "$2")

# The tree is kept from run to run, so that it builds only what has changed. It builds the tool alone,
# without optimisation, and has tavkit from BUILD: tavkit takes minutes, and BUILD shows that it builds.
make_tree() {
  tree=$build/docs_tree
  mkdir -p "$tree"
  find "$tree" -mindepth 1 -maxdepth 1 ! -name build -exec rm -r {} +
  tar -C "$root" -c --exclude='./build*' --exclude=./.git \
    --exclude="./$(realpath --relative-to "$root" "$build")" . | tar -C "$tree" -x
  cmake -S "$tree" -B "$tree/build" -DTAVREL_TESTS=OFF -DTAVREL_KIT=OFF \
    -DCMAKE_CXX_FLAGS_RELEASE=-O0 >/dev/null
  ln -sf "$build/tavkit" "$tree/build"
}

lay_out() {
  if [[ $document == README.md ]]; then
    make_tree
  else
    tree=$sandbox/$(basename "$document" .md)
    mkdir -p "$tree"
    cp -r "$root/examples" "$root/integrations" "$tree"
  fi
}

# Writes each block of the document to a numbered file. The first line is the words after the fence.
split_blocks() {
  mkdir "$tree/.blocks"
  awk -v folder="$tree/.blocks" '
    /^```/ { inside = !inside; if (inside) ++count; sub(/^```/, ""); if (!inside) next }
    inside { printf "%s\n", $0 > sprintf("%s/%03d", folder, count) }' "$root/$document"
}

# Hides time stamps, which differ from run to run, and blanks at the end of a line.
masked() {
  sed -E 's|[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+ [ap]m - File|STAMP - File|; s/[[:blank:]]+$//'
}

# The start of each session's shell: prints a command and runs it, with the status of the last one.
# shellcheck disable=SC2016 # the session expands it
readonly session_shell='
  status=0
  run() { printf "$ %s\n" "$1"; (exit $status); eval "$1"; status=$?; }'

check_session() {
  local expected actual pattern
  if ! type "$@" >/dev/null 2>&1; then
    echo "$document: a session is skipped, because not all of these are installed: $*"
    return
  fi
  expected=$(masked)
  {
    echo "$session_shell"
    sed -n "/^\\\$ /{ s/^..//; s/'/'\\\\''/g; s/.*/run '&'/; p }" <<<"$expected"
  } >"$tree/.session"
  actual=$(cd "$tree" && bash .session 2>&1 </dev/null | masked) || true
  pattern=$(sed 's/[][*?\\]/\\&/g; s/^\.\.\.$/*/' <<<"$expected")
  # shellcheck disable=SC2053 # a pattern, on purpose
  if [[ $actual != $pattern ]]; then
    fail "$document: a session prints something different"
    diff -u --label shown --label printed <(echo "$expected") <(echo "$actual") >&2 || true
  fi
}

check_commands() {
  if ! (cd "$tree" && bash -e >.commands.log 2>&1 < <(cat)); then
    fail "$document: commands fail"
    tail -n 20 "$tree/.commands.log" >&2
  fi
}

check_scripts() {
  local script
  while read -r script _; do
    if [[ ! -x $root/$script ]] || ! grep -qw "$script" "$root/.ci/run" "$root/scripts/all"; then
      fail "$document: $script is run by no test"
    fi
  done
}

check_bytes() {
  local expected
  expected=$(awk -F '  +' '
    NF { sub(/^ +/, ""); if ($1 != count) print "offset", $1; print $2; count += split($2, b, " ") }')
  if ! diff -u --label shown --label packed \
    <(tr ' ' '\n' <<<"$expected") <(od -An -v -tx1 "$tree/$1" | tr -s ' ' '\n' | sed '/^$/d') >&2; then
    fail "$document: the bytes of $1 differ"
  fi
}

# The scripts that the document shows have no problems. The kit may not be in this build.
check_good_scripts() {
  local script
  for script in "$@"; do
    if type tavkit >/dev/null 2>&1 &&
      ! (cd "$(dirname "$tree/$script")" && tavkit check --werror "$(basename "$script")") >&2; then
      fail "$document: $script has problems"
    fi
  done
}

check_file() {
  local text
  text=$(cat)
  if [[ ! -e $tree/$1 ]]; then
    printf '%s\n' "$text" >"$tree/$1"
  elif [[ $(cat "$tree/$1") != *"$text"* ]]; then
    fail "$document: $1 has no such passage"
  fi
}

check_block() {
  local kind=$1 name=${2:-}
  case $kind,$name in
    console,*) check_session "${@:2}" ;;
    sh,) check_commands ;;
    sh,scripts) check_scripts ;;
    bytes,?*) check_bytes "$name" ;;
    c, | cpp,) fail "$document: a block of C without a file name" ;;
    *,?*) check_file "$name" ;;
  esac
}

export HOME=$sandbox/home # for what a document installs there
cmake --install "$build" --prefix "$sandbox/usr" >/dev/null
type python3 >/dev/null && python3 "$root/tests/docs/links_test.py" "$sandbox/usr/share/doc/tavrel"
mkdir "$sandbox/bin"
ln -s "$compiler" "$sandbox/bin/cc"
export PATH=$sandbox/usr/bin:$sandbox/bin:$PATH CMAKE_PREFIX_PATH=$sandbox/usr
# The builds in the documents use the generator of this build, which is known to be installed.
CMAKE_GENERATOR=$(sed -n 's/^CMAKE_GENERATOR:INTERNAL=//p' "$build/CMakeCache.txt")
export CMAKE_GENERATOR
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

cd "$root"
for document in README.md CONTRIBUTING.md docs/*.md; do
  if [[ $document == docs/tavkit.md && ! -x $build/tavkit ]]; then
    echo "$document is skipped, because tavkit isn't built"
    continue
  fi
  lay_out
  split_blocks
  for block in "$tree"/.blocks/*; do
    read -r words <"$block"
    # shellcheck disable=SC2086 # split on purpose
    check_block $words < <(tail -n +2 "$block")
  done
  # shellcheck disable=SC2046 # split on purpose
  check_good_scripts $(sed -n 's/^```text \(.*\.txt\)$/\1/p' "$document")
done

# The man page: its command line with its script.
document=docs/tavrel.1
lay_out
mkdir "$tree/examples/out"
sed -n '/^\.Bd /,/^\.Ed/{ /^\.[BE]d/d; p }' "$document" >"$tree/examples/sfx.txt"
check_good_scripts examples/sfx.txt
tree+=/examples
check_commands < <(sed -n 's/^\.Dl \$ //p' "$document")
if [[ $(grep -c 'SFX_.*_\(WAV\|MID\)' "$tree/out/sfx.h") -ne 2 ]]; then
  fail "$document: the script's assets aren't in the header"
fi
