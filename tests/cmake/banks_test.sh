#!/usr/bin/env bash
# Builds the banks in banks/ with each generator, and for another host. INSTALLED is where this project
# is installed: banks_test.sh INSTALLED
set -euo pipefail

installed=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$(dirname "$0")/banks" "$folder/banks"
cd "$folder/banks"

fail() {
  echo "$*" >&2
  exit 1
}

configure() {
  cmake -S . -B "$@" "-Dtavrel_DIR=$installed/lib/cmake/tavrel" -DCMAKE_BUILD_TYPE=Debug >log 2>&1
}

for generator in Ninja 'Ninja Multi-Config' 'Unix Makefiles'; do
  configure "$generator" -G "$generator" || fail "$(cat log)"
  cmake --build "$generator" -j8 >log 2>&1 || fail "$(cat log)"
  cmp "$generator/Debug/sfx.tvb" "$generator/copy-Debug"
  cmake --install "$generator" --config Debug --prefix "$generator/installed" >log
  cmp "$generator/installed/share/sfx.tvb" "$generator/copy-Debug"
  grep -qw SECOND_1-2_DAT "$generator/Debug/others.h" || fail "$generator: no prefix"

  cmake --build "$generator" --target clean >log
  [[ ! -e $generator/Debug/sfx.tvb ]] || fail "$generator: clean leaves the bank"
  cmake --build "$generator" --target others >log
  [[ ! -e $generator/Debug/sfx.tvb && -e $generator/Debug/others.tvb ]] ||
    fail "$generator: --target others made $(ls "$generator/Debug")"

  sed -i 's/sfx.tvb/new.tvb/' sounds.txt
  ! cmake --build "$generator" >log 2>&1 || fail "$generator: sfx.tvb is the wrong name"
  grep -q 'names another bank now: new.tvb' log || fail "$(cat log)"
  cmake --build "$generator" >log 2>&1 || fail "$(cat log)"
  [[ -e $generator/Debug/new.tvb ]] || fail "$generator: no new.tvb"
  sed -i 's/new.tvb/sfx.tvb/' sounds.txt
done

configure away -DCMAKE_SYSTEM_NAME=Windows && fail 'found a tavkit for this host'
grep -q 'Set TAVKIT_EXECUTABLE' <(tr -s ' \n' ' ' <log) || fail "$(cat log)"
configure named -DCMAKE_SYSTEM_NAME=Windows "-DTAVKIT_EXECUTABLE=$installed/bin/tavkit"
PATH=$installed/bin:$PATH configure away -DCMAKE_SYSTEM_NAME=Windows
cmake --build away >log || fail "$(cat log)"
