#!/usr/bin/env bash
# Runs the tool with special files, full disks and closed streams. It must never hang, crash, or print
# "Done!" without a whole bank and header: strange_files.sh TOOL EXAMPLES
source "$(dirname "$0")/../support/sandbox.sh"
tool=$(realpath "$1")
examples=$(realpath "$2")

# Packs the example bank in a new folder, after running $1 there, with the arguments or redirections
# $2. Prints the hash of the bank, or the last word of the failure.
outcome() {
  local folder status=0
  folder=$(mktemp -d -p "$sandbox")
  cp "$examples"/* "$folder"
  cd "$folder"
  eval "$1"
  eval "timeout 60 \"\$tool\" demo.txt ${2:-}" </dev/null >"$folder.out" 2>"$folder.err" || status=$?
  if ((status == 0)) && [[ -f demo.h && -f demo.tvb && $(tail -c 3 demo.h) == _H ]]; then
    sha256sum <demo.tvb
  elif ((status == 1)); then
    sed -n '$s/^Error: Failed to [a-z]* \([a-z]*\)\.\.\.$/\1/p' "$folder.err"
  else
    echo "exit code $status"
  fi
}

expect_outcome() { expect "${*:2}" "$1" "$(outcome "${@:2}")"; }

whole=$(outcome :)
without_sequence=$(outcome "sed -i /Midi.*0/,/AssetEnd/d demo.txt")
if ! grep -qxE '[0-9a-f]{64}  - [0-9a-f]{64}  -' <<<"$whole $without_sequence" ||
  [[ $whole == "$without_sequence" ]]; then
  fail "The example isn't packed: $whole $without_sequence"
fi

for make in : mkdir mkfifo 'ln -s /dev/zero' 'ln -s loop' 'ln -s /proc/self/mem'; do
  for name in demo.txt boom.wav engine.aif level.dat; do
    expect_outcome script "rm $name; ln -s loop loop; $make $name"
  done
  # Only a sequence that can't be read is left out.
  expect_outcome "$without_sequence" "rm theme.mid; ln -s loop loop; $make theme.mid"
done

for make in mkdir mkfifo 'ln -s /dev/full'; do
  expect_outcome bank "$make demo.tvb"
  expect_outcome header "$make demo.h"
done
expect_outcome bank : 'bankPath none/'
expect_outcome header : 'headerPath none/'
expect_outcome header 'ln -s /dev/null demo.tvb' # a bank without a length
expect_outcome bank 'ulimit -f 1'
expect_outcome "$whole" 'ln -s demo.txt demo.tvb; ln -s blip.wav demo.h' # outputs that are inputs

for redirection in '>&-' '2>&-' '>&- 2>&- <&-' '>/dev/full' '2>/dev/full'; do
  expect_outcome "$whole" : "$redirection"
done
for stream in 1 2; do
  # The reader of the pipe exits at once.
  expect_outcome "$whole" 'mkfifo pipe; timeout 60 head -c 0 pipe >/dev/null &' "$stream>pipe"
done
expect_outcome script 'rm demo.txt' '<&-'
