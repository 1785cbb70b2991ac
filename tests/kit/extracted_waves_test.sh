#!/usr/bin/env bash
# Other programs read the waves that are extracted from the example bank, and find the samples and
# loops of its sources. A disk that fills up leaves whole files only, and results that can't be
# written are a failure: extracted_waves_test.sh TAVREL TAVKIT EXAMPLES
set -euo pipefail
tavrel=$(realpath "$1")
tavkit=$(realpath "$2")
examples=$(realpath "$3")
sandbox=$(mktemp -d)
trap 'rm -rf "$sandbox"' EXIT
failures=0

expect() {
  if [[ $2 != "$3" ]]; then
    printf '%s: expected %s, but it is %s\n' "$1" "$2" "$3" >&2
    failures=$((failures + 1))
  fi
}

cp "$examples"/* "$sandbox"
cd "$sandbox"
"$tavrel" demo.txt >/dev/null
"$tavkit" extract demo.tvb -o out
expect "files" "blip.wav boom.wav drums.mtb engine.wav hall.fxp level.dat stereo.fxo theme.mid wind.wav" \
  "$(cd out && echo *)"

# Returns the rate, channels, bits and samples of a file as three programs see them.
by_soxi() { echo "$(soxi -r "$1") $(soxi -c "$1") $(soxi -b "$1") $(soxi -s "$1")"; }
by_ffprobe() {
  ffprobe -v error -of default=nk=1:nw=1 "$1" \
    -show_entries stream=sample_rate,channels,bits_per_sample,duration_ts | paste -sd ' '
}
by_sndfile() {
  sndfile-info "$1" | awk '/^Sample Rate/ { r = $4 } /^Channels/ { c = $3 } /Bit Width|Sample Size/ { b = $NF }
    /^Frames/ { f = $3 } END { print r, c, b, f }'
}
# The streams of ADPCM are filled up to a multiple of 8 samples.
for row in "blip.wav 11025 1 8 1984" "boom.wav 22050 1 16 26464" "engine.wav 22050 1 16 5292" \
  "wind.wav 11025 1 16 33080"; do
  read -r name facts <<<"$row"
  for reader in soxi ffprobe sndfile; do
    expect "$name by $reader" "$facts" "$("by_$reader" "out/$name")"
  done
done

samples() { sox "$1" -t raw - | sha256sum; }
expect "blip.wav" "$(samples blip.wav)" "$(samples out/blip.wav)"
expect "engine.wav" "$(sox engine.aif -L -t raw - | sha256sum)" "$(samples out/engine.wav)"
expect "loop" "441 4850" "$(sndfile-info out/engine.wav | awk '/Cue ID/ { print $10, $13 }')"

# With a script the looped sound is an AIFF file again, and the tool packs the same bank.
"$tavkit" extract demo.tvb -o again --script again/demo.txt
for reader in soxi ffprobe sndfile; do
  expect "engine.aif by $reader" "22050 1 16 5292" "$("by_$reader" again/engine.aif)"
done
expect "engine.aif" "$(samples engine.aif)" "$(samples again/engine.aif)"
expect "markers" "441 4851" "$(sndfile-info again/engine.aif | awk '/Position/ { print $3 }' | paste -sd ' ')"
(cd again && "$tavrel" demo.txt >/dev/null)
expect "bank" "$(sha256sum <demo.tvb)" "$(sha256sum <again/demo.tvb)"
expect "header" "$(grep -v '^// Rev' demo.h)" "$(grep -v '^// Rev' again/demo.h)"

# wind.wav doesn't fit, nor does boom.wav, the first file of all.
for row in "1 2 3:blip.wav engine.wav" ":no folder"; do
  status=0
  # shellcheck disable=SC2086 # ids are words
  (ulimit -f 40 && "$tavkit" extract demo.tvb ${row%:*} -o full >full.out 2>full.err) || status=$?
  expect "exit code" 2 "$status"
  expect "message" "tavkit: can't write full/" "$(grep -o "^tavkit: can't write full/" full.err)"
  expect "files" "${row#*:}" "$(cd full 2>/dev/null && ls -A | paste -sd ' ' || echo no folder)"
  rm -rf full
done

mkfifo pipe
exec 3<>pipe 4>pipe 3>&- # a pipe whose reader is gone
for output in /dev/full '&4' '&-'; do
  status=0
  eval "\"$tavkit\" list demo.tvb >$output 2>messages" || status=$?
  expect "list >$output" "2 tavkit: can't write standard output" "$status $(grep -o '^tavkit: [^:]*' messages)"
done
exit $((failures > 0))
