// Files of one block, good and bad ones, and what check finds in each: for every code a case that
// gives it alone, and one nearby that doesn't.
#pragma once

#include <string>
#include <vector>

#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::test {

struct AssetRow {
  std::string name, file, content;
  std::string block;  ///< without its AssetEnd
  std::string found;  ///< "code line:column", separated by blanks
  std::string said{};
};

inline Bytes samples16(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.le16(static_cast<std::size_t>(value));
  }
  return bytes;
}

/// A WAV file of 16 bits whose encoding a tag says, or the sub-format of an extensible one.
inline std::string tagged(std::size_t tag, std::size_t subFormat = 0) {
  Bytes format = Bytes().le16(tag).le16(1).le32(22050).le32(44100).le16(2).le16(16);
  if (subFormat != 0) {
    format.le16(22).le16(16).le32(4).le16(subFormat).text(
        {"\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14});
  }
  return wav().chunk("fmt ", format).data("12");
}

inline WavBuilder format(std::uint32_t channels, std::uint32_t bits) {
  return wav().fmt(channels, bits, 22050);
}

inline WavBuilder mono16(std::string_view samples) { return format(mono, 16).data(samples); }

inline Bytes sampler(std::size_t loops) { return Bytes().fill(28).le32(loops).le32(0).fill(24); }

inline AiffBuilder aiffOf(std::uint32_t channels, std::uint32_t frames, std::uint32_t bits,
                          std::string_view samples) {
  return aiff().comm(channels, frames, bits).ssnd(samples);
}

/// Four samples and a loop between the markers 1 and 2, at 0 and `end`.
inline AiffBuilder looped(std::uint32_t mode, std::uint32_t end, std::uint32_t endId = 2) {
  return aiffOf(mono, 4, 8, "abcd").inst({mode, 1, endId}).mark({{1, 0}, {2, end}});
}

inline std::string sequence(std::size_t division, std::size_t type, const Events& track) {
  return midi(division, type).track(track);
}

inline Events song() { return events().tempo(0, 500000).note(0, 1, 60, 100).endOfTrack(96); }

inline const std::string kGoodWave = mono16("12345678");
inline const std::string kRate = "\nSampleRate 22050";
inline const std::string kWave = "WaveFile a.wav" + kRate;
inline const std::string kAiff = "WaveFile a.aif\nSampleRate 44100";
inline const std::string kMidi = "MidiFileType0 a.mid";
inline const std::string kLong(75, 'n');

inline const std::vector<AssetRow> kAssetRows{
    {"good", "a.wav", kGoodWave, kWave, ""},
    {"missing", "boom.wav", kGoodWave, "WaveFile bom.wav" + kRate, "missing-file 2:10",
     "mean boom.wav?"},
    {"other extension", "a.ogg", "1", kWave, "missing-file 2:10", "did you mean a.ogg?"},
    {"other folder", "sounds/hit.wav", kGoodWave, "WaveFile sound\\hti.wav" + kRate,
     "missing-file 2:10", "sounds\\hit.wav"},
    {"split by a space", "my hit.wav", kGoodWave, "WaveFile my hit.wav" + kRate,
     "missing-file 2:10", "mv -n 'my hit.wav' my_hit.wav"},
    {"split by ;", "a;b.dat", "1", "UserAsset a;b.dat\n", "missing-file 2:11",
     "mv -n 'a;b.dat' a_b.dat"},
    {"quoted", "a.wav", kGoodWave, "WaveFile \"a.wav\"" + kRate, "missing-file 2:10",
     "Write a.wav"},
    {"comment after the name", "a.dat", "1", "UserAsset a.dat;b.dat\n", ""},
    {"missing hides nothing", "b/a", "1", "WaveFile a.wav\nAdpcm 1 Loop 1",
     "missing-file 2:10 sample-rate-missing 2:10 adpcm-loop 3:1"},
    {"cut name missing", "a.wave", kGoodWave, "WaveFile a.wave" + kRate, "missing-file 2:10",
     "mv -n a.wave a.wav"},
    {"cut name there", "a.wav", kGoodWave, "WaveFile a.wave" + kRate, "name-cut 2:10"},
    {"extension of six", "a.abcdef", "1", "UserAsset a.abcdef", "name-cut 2:11"},
    {"extension of five", "a.abcde", "1", "UserAsset a.abcde", ""},
    {"name of 80", kLong + "n.wav", kGoodWave, "WaveFile " + kLong + "n.wav" + kRate,
     "long-name 2:10"},
    {"name of 79", kLong + ".wav", kGoodWave, "WaveFile " + kLong + ".wav" + kRate, ""},
    {"AIFF under aiff", "a.aiff", looped(0, 4), "WaveFile a.aiff" + kRate, "unreadable-file 2:10",
     "mv -n a.aiff a.aif"},
    {"AIFF under wav", "a.wav", looped(0, 4), kWave, "unreadable-file 2:10", "an AIFF file"},
    {"AIFF under AIF", "a.AIF", looped(0, 4), "WaveFile a.AIF\nSampleRate 44100", ""},
    {"WAV under aif", "a.aif", kGoodWave, kAiff, "unreadable-file 2:10", "a WAV file"},
    {"folder", "f.wav/a", "", "WaveFile f.wav" + kRate, "unreadable-file 2:10", "a folder"},
    {"opaque folder", "f.dat/a", "", "UserAsset f.dat", "unreadable-file 2:11", "a folder"},
    {"0 bytes of WAV", "a.wav", "", kWave, "unreadable-file 2:10"},
    {"0 bytes of AIFF", "a.aif", "", kAiff, "unreadable-file 2:10"},
    {"0 bytes of MIDI", "a.mid", "", kMidi, "unreadable-file 2:15"},
    {"0 bytes", "a.mtb", "", "MidiToneBank a.mtb", "empty-asset 2:14"},
    {"1 byte", "a.mtb", "1", "MidiToneBank a.mtb", ""},
    {"ID3", "a.wav", "ID3\3", kWave, "unreadable-file 2:10", "MP3"},
    {"MPEG", "a.wav", "\xFF\xFB\x90\x44", kWave, "unreadable-file 2:10", "MP3"},
    {"FLAC", "a.wav", "fLaC", kWave, "unreadable-file 2:10", "FLAC"},
    {"Ogg", "a.wav", "OggS", kWave, "unreadable-file 2:10", "Ogg"},
    {"AIFF-C", "a.aif", aiff().form("AIFC"), kAiff, "unreadable-file 2:10", "AIFF-C"},
    {"RF64", "a.wav", "RF64\xFF\xFF\xFF\xFFWAVEds64", kWave, "unreadable-file 2:10", "RF64"},
    {"W64", "a.wav", "riff\x2E\x91\xCF\x11", kWave, "unreadable-file 2:10", "W64"},
    {"HTML", "a.mid", "<!DOCTYPE html><p>404", kMidi, "unreadable-file 2:15", "HTML"},
    {"text", "a.wav", "only t\xC3\xA4xt\n", kWave, "unreadable-file 2:10", "text"},
    {"MIDI", "a.wav", sequence(96, 0, song()), kWave, "unreadable-file 2:10", "a MIDI file"},
    {"wrong size", "a.wav", mono16("12").claimFormSize(0), kWave, "unreadable-file 2:10",
     "size of the whole"},

    {"no samples", "a.wav", mono16(""), kWave, "empty-sound 2:10"},
    {"half a sample", "a.wav", mono16("1"), kWave, "empty-sound 2:10"},
    {"no frames", "a.aif", aiffOf(mono, 0, 16, ""), kAiff, "empty-sound 2:10"},
    {"AIFF of 24 bits", "a.aif", aiffOf(mono, 1, 24, "123"), kAiff, "empty-sound 2:10",
     "sox a.aif -b 16 a_16.aif"},
    {"1 sample compressed", "a.wav", mono16("12"), kWave + " Adpcm 1", "empty-sound 2:10"},
    {"2 samples compressed", "a.wav", mono16("1234"), kWave + " Adpcm 1", ""},
    {"3 samples compressed", "a.wav", mono16("123456"), kWave + " Adpcm 1", "adpcm-odd 3:18"},
    {"no format", "a.wav", wav().data("12"), kWave, "damaged-sound 2:10"},
    {"format cut", "a.wav", wav().chunk("fmt ", "123").claimSize("fmt ", 16), kWave,
     "damaged-sound 2:10"},
    {"no data", "a.wav", format(mono, 16), kWave, "damaged-sound 2:10"},
    {"data cut", "a.wav", mono16("12").claimDataSize(4), kWave, "damaged-sound 2:10"},
    {"data first", "a.wav", wav().data("12").fmt(mono, 16, 22050), kWave, "damaged-sound 2:10",
     "before the format"},
    {"two data chunks", "a.wav", mono16("12").data("34"), kWave, "damaged-sound 2:10"},
    {"other chunk after data", "a.wav", mono16("12").chunk("LIST", "34"), kWave, ""},
    {"AIFF without SSND", "a.aif", aiff().comm(mono, 1, 8), kAiff, "damaged-sound 2:10"},
    {"AIFF cut", "a.aif", aiffOf(mono, 3, 8, "12"), kAiff, "damaged-sound 2:10"},
    {"AIFF with an offset", "a.aif",
     aiff().comm(mono, 1, 8).chunk("SSND", Bytes().be32(1).be32(0).text("12")), kAiff,
     "damaged-sound 2:10"},

    {"float", "a.wav", tagged(3), kWave, "encoding 2:10",
     "sox a.wav -b 16 -e signed-integer a_16.wav"},
    {"MP3 in a WAV", "a.wav", tagged(0x55), kWave, "encoding 2:10",
     "ffmpeg -i a.wav -c:a pcm_s16le a_new.wav"},
    {"extensible float", "a.wav", tagged(0xFFFE, 3), kWave, "encoding 2:10"},
    {"extensible PCM", "a.wav", tagged(0xFFFE, 1), kWave, ""},
    {"no sub-format", "a.wav", tagged(0xFFFE), kWave, "encoding 2:10"},
    {"PCM of 4 bits", "a.wav", format(mono, 4).data("12"), kWave, "encoding 2:10"},
    {"24 bits", "a24.wav", format(mono, 24).data("123"), "WaveFile a24.wav" + kRate,
     "raw-width 2:10", "sox a24.wav -b 16 a.wav"},
    {"8 bits", "a.wav", format(mono, 8).data("123"), kWave, ""},
    {"8 bits compressed", "a.wav", format(mono, 8).data("12"), kWave + " Adpcm 1",
     "adpcm-width 3:18"},
    {"stereo WAV", "a$(b)'.wav", format(stereo, 16).data("1234"), "WaveFile a$(b)'.wav" + kRate,
     "stereo-wave 2:10", R"(sox 'a$(b)'\''.wav' -c 1 'a$(b)'\''_mono.wav')"},
    {"a name like an option", "-o.wav", tagged(3), "WaveFile -o.wav" + kRate, "encoding 2:10",
     "sox ./-o.wav -b 16 -e signed-integer ./-o_16.wav"},
    {"stereo AIFF", "a.aif", aiffOf(stereo, 2, 8, "1234"), kAiff, "stereo-aiff 2:10",
     "sox a.aif -c 1 a_mono.aif"},
    {"loop compressed", "a.wav", kGoodWave, kWave + " Loop 1\nAdpcm 1", "adpcm-loop 4:1",
     "a.wav: Adpcm is ignored because of Loop; 8 bytes are stored uncompressed"},
    {"no loop compressed", "a.wav", kGoodWave, kWave + " Loop 0\nAdpcm 1", ""},
    {"no rate", "a.wav", kGoodWave, "WaveFile a.wav", "sample-rate-missing 2:10",
     "SampleRate 22050"},
    {"other rate", "a.wav", kGoodWave, "WaveFile a.wav SampleRate 22051",
     "sample-rate-differs 2:27", "SampleRate 22050"},
    {"no number", "a.wav", kGoodWave, "WaveFile a.wav SampleRate 22,050", "number-text 2:27"},

    {"24 bits looped", "a.wav", format(mono, 24).data("123"), kWave + " Loop 1",
     "raw-width 2:10 broken-loop 2:10"},
    {"no sustain loop", "a.aif", looped(0, 4), kAiff + " Loop 1", "broken-loop 2:10"},
    {"loop of no length", "a.aif", looped(1, 0), kAiff + " Loop 1", "broken-loop 2:10"},
    {"loop to the end", "a.aif", looped(1, 4), kAiff + " Loop 1", ""},
    {"loop beyond the end", "a.aif", looped(1, 5), kAiff + " Loop 1", "broken-loop 2:10"},
    {"loop without a marker", "a.aif", looped(1, 4, 3), kAiff, "broken-loop 2:10"},
    {"loop not asked for", "a.aif", looped(1, 4), kAiff, "loop-ignored 2:10"},
    {"ping-pong loop", "a.aif", looped(2, 4), kAiff + " Loop 1", "loop-ignored 2:10"},
    {"loop of a WAV", "a.wav", mono16("12").chunk("smpl", sampler(1)), kWave, "loop-ignored 2:10"},
    {"smpl without a loop", "a.wav", mono16("12").chunk("smpl", sampler(0)), kWave, ""},
    {"markers out of order", "a.aif",
     aiffOf(mono, 4, 8, "abcd").inst({1, 1, 2}).mark({{2, 0}, {1, 4}}), kAiff + " Loop 1",
     "loop-markers 2:10"},
    {"wrap of 4 steps", "a.wav", mono16(samples16({0, 251, 502, 753, 1004})), kWave + " Loop 1",
     ""},
    {"wrap of 5 steps", "a.wav", mono16(samples16({0, 201, 402, 602, 802, 1003})),
     kWave + " Loop 1", "loop-click 3:18"},
    {"wrap of 1000", "a.wav", mono16(samples16({0, 200, 400, 600, 800, 1000})), kWave + " Loop 1",
     ""},
    {"wrap on the right", "a.wav",
     format(stereo, 16).data(samples16({0, 0, 0, -400, 0, -800, 0, -1200, 0, -1600, 0, -2001})),
     kWave + " Loop 1", "stereo-wave 2:10 loop-click 3:18"},
    {"wrap of 8 bits", "a.wav", format(mono, 8).data("abcdef"), kWave + " Loop 1",
     "loop-click 3:18"},

    {"sequence", "a.mid", sequence(0x7FFF, 0, song()), kMidi, ""},
    {"type 1", "a.mid", sequence(96, 1, song()), kMidi, "sequence-type 2:15", " a.mid a_type0.mid"},
    {"no tempo", "a.mid", sequence(96, 0, events().note(0, 1, 60, 100).endOfTrack()), kMidi,
     "sequence-no-tempo 2:15"},
    {"short tempo", "a.mid", sequence(96, 0, events().meta(0, 0x51, "12").endOfTrack()), kMidi,
     "sequence-no-tempo 2:15"},
    {"no end", "a.mid", sequence(96, 0, events().tempo(0, 9)), kMidi, "sequence-broken 2:15"},
    {"empty track", "a.mid", sequence(96, 0, {}), kMidi, "sequence-broken 2:15"},
    {"track not first", "a.mid", Bytes(midi()).text("XFIH").be32(0).text("MTrk"), kMidi,
     "sequence-broken 2:15"},
    {"header cut", "a.mid", "MThd", kMidi, "sequence-broken 2:15"},
    {"division 0", "a.mid", sequence(0, 0, song()), kMidi, "sequence-broken 2:15"},
    {"frames", "a.mid", sequence(0xE728, 0, song()), kMidi, "sequence-smpte 2:15"},
    {"late tempo", "a.mid", sequence(96, 0, events().tempo(1, 500000).endOfTrack()), kMidi,
     "sequence-late-tempo 2:15"},
};

}  // namespace tavrel::test
