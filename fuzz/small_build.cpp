#include "fuzz/small_build.h"

#include <iterator>

#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::fuzz {

using test::aiff;
using test::Bytes;
using test::events;
using test::midi;
using test::wav;

std::string smallWav() {
  Bytes samples;
  for (std::uint32_t i = 0; i < 50; ++i) {
    samples.le16(i * i * 37);
  }
  return wav().fmt(1, 16, 22050).data(samples).str();
}

std::string smallAiff() {
  const std::string samples = Bytes().fill(2 * 20, 0x5A);
  return aiff().comm(1, 20, 16).mark({{1, 3, "beg"}, {2, 17}}).inst({1, 1, 2}).ssnd(samples);
}

std::string smallMidi() {
  return midi().track(events()
                          .meta(0, 0x03, "song")
                          .meta(0, 0x58, Bytes().u8(6).u8(3).u8(24).u8(8))
                          .meta(0, 0x59, Bytes().u8(0xFD).u8(1))
                          .system(0, 0xF0, "\x7E\x7F\x09\x01\xF7")
                          .message(0, 0xB0, 7, 100)
                          .message(0, 0xC0, 5)
                          .tempo(10, 500000)
                          .note(0, 1, 60, 100)
                          .message(200, 60, 0)
                          .note(0, 2, 64, 1)
                          .noteOff(96, 2, 64)
                          .endOfTrack());
}

std::string smallScript() {
  return "; everything once\n"
         "BankFileName b.tvb\n"
         "WaveFile w.wav SampleRate 22050 RandomPitchAmount 100 Adpcm 1 AssetEnd\n"
         "WaveFile x.wav Loop 1 Adpcm 1 AssetEnd\n"
         "WaveFile f.aif Loop 1 AssetEnd\n"
         "MidiFileType0 m.mid Volume 100 GmMode 0 Loop 1 AssetEnd\n"
         "MidiToneBank d.dat BankType Melodic AssetEnd\n"
         "FxOutputBank d.dat AssetEnd\n"
         "FxProgramBank d.dat AssetEnd\n"
         "UserAsset d.dat Parameter0 1 Parameter7 -20 AssetEnd\n"
         "ScriptEnd\n";
}

std::string smallBank() {
  struct Asset {
    std::size_t type, size, bits;
  };
  constexpr Asset kAssets[] = {{1, 8, 4}, {1, 4, 8}, {1, 4, 16}, {1, 6, 24}, {3, 9, 0}, {6, 0, 0}};
  Bytes bank = Bytes().le32(std::size(kAssets));
  std::size_t offset = 4 + 44 * std::size(kAssets);
  for (const Asset& asset : kAssets) {
    bank.le32(asset.type).le32(offset).le32(asset.size).le32(22050).le32(1);
    bank.le32(asset.bits).fill(5 * 4, 1);
    offset += asset.size;
  }
  return bank.fill(320 - bank.size(), 0x7F);
}

std::vector<SmallFile> smallBuild() {
  return {{"s.txt", smallScript()},
          {"w.wav", smallWav()},
          {"x.wav", wav().fmt(1, 8, 11025).data(Bytes().fill(33, 0x85)).str()},
          {"f.aif", smallAiff()},
          {"m.mid", smallMidi()},
          {"d.dat", "ten bytes."}};
}

}  // namespace tavrel::fuzz
