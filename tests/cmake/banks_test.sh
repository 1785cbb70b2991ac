#!/usr/bin/env bash
# Builds the banks in banks/ with each generator, and for another host. INSTALLED is where this project
# is installed: banks_test.sh INSTALLED
source "$(dirname "$0")/../support/sandbox.sh"
installed=$(realpath "$1")
cp -r "$root/tests/cmake/banks" "$sandbox/banks"
cd "$sandbox/banks"

# Runs cmake, with what it prints in a log, which is printed if it fails.
run() { cmake "$@" >log 2>&1 || { cat log && exit 1; } }

# CMake breaks a message into lines, which depends on the length of the paths in it.
unwrapped() { tr -s ' \n' ' ' <"$1"; }

configure() {
  run -S . -B "$@" "-Dtavrel_DIR=$installed/lib/cmake/tavrel" -DCMAKE_BUILD_TYPE=Debug
}

for generator in Ninja 'Ninja Multi-Config' 'Unix Makefiles'; do
  configure "$generator" -G "$generator"
  run --build "$generator" -j8
  cmp "$generator/Debug/sfx.tvb" "$generator/copy-Debug"
  run --install "$generator" --config Debug --prefix "$generator/installed"
  cmp "$generator/installed/share/sfx.tvb" "$generator/copy-Debug"
  grep -qw SECOND_1-2_DAT "$generator/Debug/others.h" || fail "$generator: no prefix"

  run --build "$generator" --target clean
  [[ ! -e $generator/Debug/sfx.tvb ]] || fail "$generator: clean leaves the bank"
  run --build "$generator" --target others
  expect "$generator: --target others" others.tvb "$(cd "$generator/Debug" && echo *.tvb)"

  sed -i 's/sfx.tvb/new.tvb/' sounds.txt
  ! (run --build "$generator") >messages || fail "$generator: sfx.tvb is the wrong name"
  grep -q 'names another bank now: new.tvb' <(unwrapped messages) || fail "$(cat messages)"
  run --build "$generator"
  [[ -e $generator/Debug/new.tvb ]] || fail "$generator: no new.tvb"
  sed -i 's/new.tvb/sfx.tvb/' sounds.txt
done

! (configure away -DCMAKE_SYSTEM_NAME=Windows) >messages || fail 'found a tavkit for this host'
grep -q 'Set TAVKIT_EXECUTABLE' <(unwrapped messages) || fail "$(cat messages)"
configure named -DCMAKE_SYSTEM_NAME=Windows "-DTAVKIT_EXECUTABLE=$installed/bin/tavkit"
PATH=$installed/bin:$PATH configure away -DCMAKE_SYSTEM_NAME=Windows
run --build away
