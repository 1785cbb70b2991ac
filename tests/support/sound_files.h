// Files of sound projects: good ones of each form, odd and damaged ones, and odd names.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::test {

struct SoundFile {
  std::string bytes;
  std::string statement = {};               ///< that reads it; empty: only the opaque ones do
  std::optional<std::string> samples = {};  ///< as a bank holds them uncompressed
  bool isUnknown = false;                   ///< what the tool makes of it is right
};

using SoundFiles = std::map<std::string, SoundFile>;

inline std::string swapped(std::string samples) {
  for (std::size_t i = 0; i + 1 < samples.size(); i += 2) {
    std::swap(samples[i], samples[i + 1]);
  }
  return samples;
}

inline SoundFile sound(const std::string& bytes, const std::string& stored) {
  return {.bytes = bytes, .statement = "WaveFile", .samples = stored};
}

inline SoundFiles wavFiles(const std::string& samples) {
  const WavBuilder format = wav().fmt(mono, 16, 22050);
  auto with = [&format](const std::string& data) { return WavBuilder(format).data(data); };
  const std::string whole = with(samples);
  return {{"plain.wav", sound(whole, samples)},
          {"sub/in.wav", sound(whole, samples)},
          {".wav", sound(whole, samples)},
          {"long.wave", sound(whole, samples)},  // the tool opens long.wav
          {"long.wav", sound(whole, samples)},
          {"odd.wav", sound(with(samples + "xy"), samples + "xy")},
          {"one.wav", sound(with("ab"), "ab")},
          {"byte.wav", sound(wav().fmt(mono, 8, 11025).data("012"), "\xB0\xB1\xB2")},
          {"wide.wav", sound(wav().fmt(mono, 24, 22050).data("012345"), "012345")},
          {"pair.wav", sound(wav().fmt(stereo, 16, 22050).data(samples), samples)},
          {"longer.wav", {with(samples).claimDataSize(99)}},
          {"late.wav", {wav().data(samples).fmt(mono, 16, 22050)}},
          {"twice.wav", {with(samples).data("ab")}},
          {"nodata.wav", {format}},
          {"silent.wav", {with("")}},
          {"none.wav", {""}},
          {"wav.aif", {whole}}};
}

inline SoundFiles aiffFiles(const std::string& samples) {
  auto looped = [&](std::uint32_t mode, std::uint32_t first, std::uint32_t last) {
    return sound(
        aiff().comm(mono, 8, 16).mark({{1, first}, {2, last}}).inst({mode, 1, 2}).ssnd(samples),
        swapped(samples));
  };
  const std::string whole = aiff().comm(mono, 8, 16).ssnd(samples);
  return {{"tone.aif", sound(whole, swapped(samples))},
          {"low.aif", sound(aiff().comm(mono, 7, 8).ssnd("0123456"), "0123456")},
          {"loop.aif", looped(1, 1, 7)},
          {"pingpong.aif", looped(2, 1, 7)},
          {"badloop.aif", looped(1, 7, 7)},
          {"far.aif", looped(1, 3, 9)},
          {"aiff.wav", {whole}},
          {"tone.aiff", {whole}},
          {"both.aif", {aiff().comm(stereo, 4, 16).ssnd(samples)}},
          {"wide.aif", {aiff().comm(mono, 2, 24).ssnd("012345")}},
          {"nomark.aif", {aiff().comm(mono, 8, 16).inst({1, 1, 2}).ssnd(samples)}},
          {"cut.aif", {whole.substr(0, whole.size() - 3)}}};
}

inline SoundFiles soundFiles() {
  const std::string samples = Bytes().le16(100).le16(65000).le16(7).le16(30000).text("abcdefgh");
  SoundFiles files = wavFiles(samples);
  files.merge(aiffFiles(samples));
  const std::string whole = midi().track(events().tempo(0, 500000).note(0, 1, 60, 9).endOfTrack());
  files.merge(SoundFiles{
      {"song.mid", {whole, "MidiFileType0"}},
      {"late.mid", {midi().track(events().tempo(9, 500000).endOfTrack()), "MidiFileType0"}},
      {"smpte.mid", {midi(0xE728).track(events().tempo(0, 9).endOfTrack(9)), "MidiFileType0"}},
      {"two.mid", {midi(96, 1).track(events().tempo(0, 9).endOfTrack())}},
      {"slow.mid", {midi().track(events().note(0, 1, 60, 9).endOfTrack(9))}},
      {"empty.mid", {midi().track("")}},
      {"text.mid", {"this is no song"}},
      {"a.mtb", {"tones", "MidiToneBank"}},
      {"b.fxp", {"four", "FxProgramBank"}},
      {"c.fxo", {"five5", "FxOutputBank"}},
      {"nothing.dat", {"", "UserAsset"}}});
  for (const std::string& name : std::vector<std::string>{
           "d.dat", "noextension", "a-b.dat", "two.dots.dat", "tilde~1.dat", "tilde_1.dat",
           "plain_wav", "filename", "9", "q.extension", "q.exten", "sub/d.dat", "sub/e.dat",
           "bank_data_size", std::string(75, 'n') + ".dat", std::string(76, 'n') + ".dat"}) {
    files[name] = {"user", "UserAsset"};
  }
  return files;
}

}  // namespace tavrel::test
