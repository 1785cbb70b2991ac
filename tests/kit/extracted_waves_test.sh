#!/usr/bin/env bash
# Other programs read the waves that are extracted from the example bank, and find the samples and
# loops of its sources. A disk that fills up leaves whole files only, and results that can't be
# written are a failure: extracted_waves_test.sh TAVREL TAVKIT EXAMPLES
source "$(dirname "$0")/../support/sandbox.sh"
tavrel=$(realpath "$1")
tavkit=$(realpath "$2")
cp "$3"/* "$sandbox"
cd "$sandbox"
"$tavrel" demo.txt >messages
"$tavkit" extract demo.tvb -o out
expect "files" "blip.wav boom.wav drums.mtb engine.wav hall.fxp level.dat stereo.fxo theme.mid wind.wav" \
  "$(cd out && echo *)"
# With a script the looped sound is an AIFF file again, and the tool packs the same bank.
"$tavkit" extract demo.tvb -o again --script again/demo.txt

# Prints the rate, channels, bits and samples of a file as three programs see them.
by_soxi() { for option in -r -c -b -s; do soxi "$option" "$1"; done; }
by_ffprobe() {
  ffprobe -v error -of default=nk=1:nw=1 "$1" \
    -show_entries stream=sample_rate,channels,bits_per_sample,duration_ts
}
by_sndfile() {
  sndfile-info "$1" | awk '/^Sample Rate/ { r = $4 } /^Channels/ { c = $3 } /Bit Width|Sample Size/ { b = $NF }
    /^Frames/ { f = $3 } END { print r, c, b, f }'
}
# The streams of ADPCM are filled up to a multiple of 8 samples.
while read -r name facts; do
  for reader in soxi ffprobe sndfile; do
    expect "$name by $reader" "$facts" "$("by_$reader" "$name" | xargs)"
  done
done <<'END'
out/blip.wav 11025 1 8 1984
out/boom.wav 22050 1 16 26464
out/engine.wav 22050 1 16 5292
out/wind.wav 11025 1 16 33080
again/engine.aif 22050 1 16 5292
END

samples() { sox "$1" -L -t raw - | sha256sum; }
expect "blip.wav" "$(samples blip.wav)" "$(samples out/blip.wav)"
expect "engine.wav" "$(samples engine.aif)" "$(samples out/engine.wav)"
expect "engine.aif" "$(samples engine.aif)" "$(samples again/engine.aif)"
expect "loop" "441 4850" "$(sndfile-info out/engine.wav | awk '/Cue ID/ { print $10, $13 }')"
expect "markers" "441 4851" "$(sndfile-info again/engine.aif | awk '/Position/ { print $3 }' | xargs)"
(cd again && "$tavrel" demo.txt >messages)
cmp demo.tvb again/demo.tvb
diff -I '^// Rev' demo.h again/demo.h

# wind.wav doesn't fit, nor does boom.wav, the first file of all.
for row in "1 2 3:blip.wav engine.wav" ":no folder"; do
  # shellcheck disable=SC2086 # ids are words
  answer=$( (ulimit -f 40 && "$tavkit" extract demo.tvb ${row%:*} -o full 2>&1) || echo "exit code $?")
  [[ $answer =~ ^"tavkit: can't write full/".*"exit code 2"$ ]] || fail "a full disk: $answer"
  expect "files" "${row#*:}" "$(cd full 2>/dev/null && ls -A | paste -sd " " - || echo no folder)"
  rm -rf full
done

mkfifo pipe
exec 3<>pipe 4>pipe 3>&- # a pipe whose reader is gone
for output in /dev/full '&4' '&-'; do
  answer=$(eval "\"$tavkit\" list demo.tvb 2>&1 >$output" || echo "exit code $?")
  [[ $answer =~ ^"tavkit: can't write standard output".*"exit code 2"$ ]] || fail ">$output: $answer"
done
code=$("$tavkit" check demo.txt 2>/dev/full || echo "exit code $?")
expect "a lost message" "exit code 2" "$code"
