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
  std::string found;  ///< codes, each with its line and column unless those of the file's name
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

inline std::string waveBlock(const std::string& file) {
  return "WaveFile " + file + "\nSampleRate 22050";
}

inline const std::string kGood = mono16("12345678");
inline const std::string kWave = waveBlock("a.wav");
inline const std::string kAiff = "WaveFile a.aif\nSampleRate 44100";
inline const std::string kCompressed = kWave + "\nAdpcm 1";
inline const std::string kLooped = kWave + "\nLoop 1";
inline const std::string kLoopedAiff = kAiff + "\nLoop 1";
inline const std::string kMidi = "MidiFileType0 a.mid";
inline const std::string kLong(75, 'n');

inline const std::vector<AssetRow> kAssetRows{
    {"good", "a.wav", kGood, kWave, ""},
    {"missing", "boom.wav", kGood, waveBlock("bom.wav"), "missing-file", "mean boom.wav?"},
    {"other extension", "a.ogg", "1", kWave, "missing-file", "did you mean a.ogg?"},
    {"other folder", "in/hit.wav", kGood, waveBlock("im\\hti.wav"), "missing-file", "in\\hit.wav"},
    {"split by a space", "a b.wav", kGood, waveBlock("a b.wav"), "missing-file",
     "mv -n 'a b.wav' a_b"},
    {"split by ;", "a;b", "1", "UserAsset a;b\n", "missing-file", "mv -n 'a;b' a_b"},
    {"quoted", "a.wav", kGood, waveBlock("\"a.wav\""), "missing-file", "Write a.wav"},
    {"comment after the name", "a.dat", "1", "UserAsset a.dat;b.dat\n", ""},
    {"missing hides nothing", "b/a", "1", "WaveFile a.wav\nAdpcm 1 Loop 1",
     "missing-file sample-rate-missing adpcm-loop 3:1"},
    {"cut name missing", "a.wave", kGood, waveBlock("a.wave"), "missing-file",
     "mv -n a.wave a.wav"},
    {"FLAC", "a.flac", "fLaC", waveBlock("a.flac"), "missing-file",
     "sox -t flac a.flac -b 16 a.wav"},
    {"cut name there", "a.wav", kGood, waveBlock("a.wave"), "name-cut"},
    {"extension of six", "a.abcdef", "1", "UserAsset a.abcdef", "name-cut"},
    {"extension of five", "a.abcde", "1", "UserAsset a.abcde", ""},
    {"name of 80", kLong + "n.wav", kGood, waveBlock(kLong + "n.wav"), "long-name"},
    {"name of 79", kLong + ".wav", kGood, waveBlock(kLong + ".wav"), ""},
    {"a.aiff", "a.aiff", looped(0, 4), waveBlock("a.aiff"), "unreadable-file",
     "mv -n a.aiff a.aif"},
    {"AIFF under wav", "a.wav", looped(0, 4), kWave, "unreadable-file", "an AIFF file"},
    {"AIFF under AIF", "a.AIF", looped(0, 4), "WaveFile a.AIF\nSampleRate 44100", ""},
    {"WAV under aif", "a.aif", kGood, kAiff, "unreadable-file", "a WAV file"},
    {"folder", "f.wav/a", "", waveBlock("f.wav"), "unreadable-file", "a folder"},
    {"opaque folder", "f.dat/a", "", "UserAsset f.dat", "unreadable-file", "a folder"},
    {"0 bytes of WAV", "a.wav", "", kWave, "unreadable-file"},
    {"0 bytes of AIFF", "a.aif", "", kAiff, "unreadable-file"},
    {"0 bytes of MIDI", "a.mid", "", kMidi, "unreadable-file"},
    {"0 bytes", "a.mtb", "", "MidiToneBank a.mtb", "empty-asset"},
    {"1 byte", "a.mtb", "1", "MidiToneBank a.mtb", ""},
    {"ID3", "a.wav", "ID3\3", kWave, "unreadable-file", "MP3"},
    {"MPEG", "a.wav", "\xFF\xFB\x90\x44", kWave, "unreadable-file", "MP3"},
    {"FLAC", "a.wav", "fLaC", kWave, "unreadable-file", "FLAC"},
    {"Ogg", "a.wav", "OggS", kWave, "unreadable-file", "Ogg"},
    {"AIFF-C", "a.aif", aiff().form("AIFC"), kAiff, "unreadable-file", "AIFF-C"},
    {"RF64", "a.wav", "RF64\xFF\xFF\xFF\xFFWAVEds64", kWave, "unreadable-file", "RF64"},
    {"W64", "a.wav", "riff\x2E\x91\xCF\x11", kWave, "unreadable-file", "W64"},
    {"HTML", "a.mid", "<!DOCTYPE html><p>404", kMidi, "unreadable-file", "HTML"},
    {"text", "a.wav", "only t\xC3\xA4xt\n", kWave, "unreadable-file", "text"},
    {"MIDI", "a.wav", sequence(96, 0, song()), kWave, "unreadable-file", "a MIDI file"},
    {"wrong size", "a.wav", mono16("12").claimFormSize(0), kWave, "unreadable-file",
     "size of the whole"},

    {"no samples", "a.wav", mono16(""), kWave, "empty-sound"},
    {"half a sample", "a.wav", mono16("1"), kWave, "empty-sound"},
    {"no frames", "a.aif", aiffOf(mono, 0, 16, ""), kAiff, "empty-sound"},
    {"AIFF of 24 bits", "a.aif", aiffOf(mono, 1, 24, "123"), kAiff, "empty-sound",
     "sox a.aif -b 16 a_16.aif"},
    {"1 sample compressed", "a.wav", mono16("12"), kCompressed, "empty-sound"},
    {"2 samples compressed", "a.wav", mono16("1234"), kCompressed, ""},
    {"3 samples compressed", "a.wav", mono16("123456"), kCompressed, "adpcm-odd 4:1"},
    {"no format", "a.wav", wav().data("12"), kWave, "damaged-sound"},
    {"format cut", "a.wav", wav().chunk("fmt ", "123").claimSize("fmt ", 16), kWave,
     "damaged-sound"},
    {"no data", "a.wav", format(mono, 16), kWave, "damaged-sound"},
    {"data cut", "a.wav", mono16("12").claimDataSize(4), kWave, "damaged-sound"},
    {"data first", "a.wav", wav().data("12").fmt(mono, 16, 22050), kWave, "damaged-sound",
     "before the format"},
    {"two data chunks", "a.wav", mono16("12").data("34"), kWave, "damaged-sound"},
    {"other chunk after data", "a.wav", mono16("12").chunk("LIST", "34"), kWave, ""},
    {"AIFF without SSND", "a.aif", aiff().comm(mono, 1, 8), kAiff, "damaged-sound"},
    {"AIFF cut", "a.aif", aiffOf(mono, 3, 8, "12"), kAiff, "damaged-sound"},
    {"AIFF with an offset", "a.aif",
     aiff().comm(mono, 1, 8).chunk("SSND", Bytes().be32(1).be32(0).text("12")), kAiff,
     "damaged-sound"},

    {"float", "a.wav", tagged(3), kWave, "encoding", "sox a.wav -b 16 -e signed-integer a_16.wav"},
    {"MP3 in a WAV", "a.wav", tagged(0x55), kWave, "encoding",
     "ffmpeg -nostdin -i a.wav -c:a pcm_s16le a_new.wav"},
    {"extensible float", "a.wav", tagged(0xFFFE, 3), kWave, "encoding"},
    {"extensible PCM", "a.wav", tagged(0xFFFE, 1), kWave, ""},
    {"no sub-format", "a.wav", tagged(0xFFFE), kWave, "encoding"},
    {"PCM of 4 bits", "a.wav", format(mono, 4).data("12"), kWave, "encoding"},
    {"24 bits", "a24.wav", format(mono, 24).data("123"), waveBlock("a24.wav"), "raw-width",
     "sox a24.wav -b 16 a.wav"},
    {"8 bits", "a.wav", format(mono, 8).data("123"), kWave, ""},
    {"8 bits compressed", "a.wav", format(mono, 8).data("12"), kCompressed, "adpcm-width 4:1"},
    {"stereo of 8 bits compressed", "a.wav", format(stereo, 8).data("1234"), kCompressed,
     "stereo-wave adpcm-width 4:1", "sox a.wav -c 1 -b 16 a_16.wav"},
    {"stereo WAV", "a$(b)'.wav", format(stereo, 16).data("1234"), waveBlock("a$(b)'.wav"),
     "stereo-wave", R"(sox 'a$(b)'\''.wav' -c 1 'a$(b)'\''_mono.wav')"},
    {"a name like an option", "-o.wav", tagged(3), waveBlock("-o.wav"), "encoding",
     "sox ./-o.wav -b 16 -e signed-integer ./-o_16.wav"},
    {"stereo AIFF", "a.aif", aiffOf(stereo, 2, 8, "1234"), kAiff, "stereo-aiff",
     "sox a.aif -c 1 a_mono.aif"},
    {"loop compressed", "a.wav", kGood, kLooped + "\nAdpcm 1", "adpcm-loop 5:1",
     "a.wav: Adpcm is ignored because of Loop; 8 bytes are stored uncompressed"},
    {"no loop compressed", "a.wav", kGood, kWave + " Loop 0\nAdpcm 1", ""},
    {"no rate", "a.wav", kGood, "WaveFile a.wav", "sample-rate-missing", "SampleRate 22050"},
    {"other rate", "a.wav", kGood, "WaveFile a.wav SampleRate 22051", "sample-rate-differs 2:27",
     "SampleRate 22050"},
    {"no number", "a.wav", kGood, "WaveFile a.wav SampleRate 22,050", "number-text 2:27"},

    {"24 bits looped", "a.wav", format(mono, 24).data("123"), kLooped, "raw-width broken-loop"},
    {"no sustain loop", "a.aif", looped(0, 4), kLoopedAiff, "broken-loop"},
    {"loop of no length", "a.aif", looped(1, 0), kLoopedAiff, "broken-loop"},
    {"loop to the end", "a.aif", looped(1, 4), kLoopedAiff, ""},
    {"loop beyond the end", "a.aif", looped(1, 5), kLoopedAiff, "broken-loop"},
    {"loop without a marker", "a.aif", looped(1, 4, 3), kAiff, "broken-loop"},
    {"loop not asked for", "a.aif", looped(1, 4), kAiff, "loop-ignored"},
    {"ping-pong loop", "a.aif", looped(2, 4), kLoopedAiff, "loop-ignored"},
    {"loop of a WAV", "a.wav", mono16("12").chunk("smpl", sampler(1)), kWave, "loop-ignored"},
    {"smpl without a loop", "a.wav", mono16("12").chunk("smpl", sampler(0)), kWave, ""},
    {"markers out of order", "a.aif",
     aiffOf(mono, 4, 8, "abcd").inst({1, 1, 2}).mark({{2, 0}, {1, 4}}), kLoopedAiff,
     "loop-markers"},
    {"wrap of 4 steps", "a.wav", mono16(samples16({0, 251, 502, 753, 1004})), kLooped, ""},
    {"wrap of 5 steps", "a.wav", mono16(samples16({0, 201, 402, 602, 802, 1003})), kLooped,
     "loop-click 4:1"},
    {"wrap of 1000", "a.wav", mono16(samples16({0, 200, 400, 600, 800, 1000})), kLooped, ""},
    {"wrap on the right", "a.wav",
     format(stereo, 16).data(samples16({0, 0, 0, -400, 0, -800, 0, -1200, 0, -1600, 0, -2001})),
     kLooped, "stereo-wave loop-click 4:1"},
    {"wrap of 8 bits", "a.wav", format(mono, 8).data("abcdef"), kLooped, "loop-click 4:1"},

    {"sequence", "a.mid", sequence(0x7FFF, 0, song()), kMidi, ""},
    {"type 1", "a.mid", sequence(96, 1, song()), kMidi, "sequence-type", " a.mid a_type0.mid"},
    {"no tempo", "a.mid", sequence(96, 0, events().note(0, 1, 60, 100).endOfTrack()), kMidi,
     "sequence-no-tempo"},
    {"short tempo", "a.mid", sequence(96, 0, events().meta(0, 0x51, "12").endOfTrack()), kMidi,
     "sequence-no-tempo"},
    {"no end", "a.mid", sequence(96, 0, events().tempo(0, 9)), kMidi, "sequence-broken"},
    {"empty track", "a.mid", sequence(96, 0, {}), kMidi, "sequence-broken"},
    {"track not first", "a.mid", Bytes(midi()).text("XFIH").be32(0).text("MTrk"), kMidi,
     "sequence-broken"},
    {"header cut", "a.mid", "MThd", kMidi, "sequence-broken"},
    {"division 0", "a.mid", sequence(0, 0, song()), kMidi, "sequence-broken"},
    {"frames", "a.mid", sequence(0xE728, 0, song()), kMidi, "sequence-smpte"},
    {"late tempo", "a.mid", sequence(96, 0, events().tempo(1, 500000).endOfTrack()), kMidi,
     "sequence-late-tempo"},
};

}  // namespace tavrel::test
