// tavkit show: whole outputs for small files of each kind, and what it makes of damaged ones.
#include <regex>

#include "kit/show/sound_levels.h"
#include "tests/kit/command_test.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

using test::Bytes;
using test::events;
using test::midi;
using test::mono;
using test::wav;

class ShowTest : public CommandTest {
 protected:
  /// Shows a file and expects the exit code and the output, whose blanks count as one each.
  void expectShown(const std::string& name, const std::string& bytes, int code,
                   const std::string& shown) {
    SCOPED_TRACE(name);
    write(name, bytes);
    EXPECT_EQ(run({"show", name}), code);
    EXPECT_EQ(output_.messages, "");
    EXPECT_THAT(std::regex_replace(output_.results, std::regex(" +"), " "),
                testing::StartsWith(name + ": " + shown));
  }
};

TEST_F(ShowTest, Waves) {
  // The channels alternate: the left one is 16384 and 0, the right one silent.
  const Bytes samples = Bytes().le16(16384).fill(6);
  const Bytes header = Bytes().fill(28).le32(2).le32(0);
  const Bytes first = Bytes().fill(4).le32(1).le32(0).le32(1).fill(4).le32(3);
  const Bytes second = Bytes().fill(4).le32(3).le32(1).le32(1).fill(4).le32(0);
  expectShown("pair.wav",
              wav()
                  .fmt(test::stereo, 16, 2)
                  .data(samples)
                  .chunk("smpl", header.str() + first.str() + second.str()),
              0,
              "a WAV file, 144 bytes\n"
              "in a bank: a wave, 8 bytes, by WaveFile with SampleRate 2; 4 bytes with Adpcm 1\n"
              " warning: pair.wav: the bank won't hold the file's loop [loop-ignored]\n"
              " Save the sound as AIFF with its loop, and write Loop 1\n"
              " warning: pair.wav: the samples of 2 channels alternate, and the bank doesn't say "
              "how many there are [stereo-wave]\n"
              " sox pair.wav -c 1 pair_mono.wav\n\n"
              "chunk offset bytes\nfmt 20 16\ndata 44 8\nsmpl 60 84\n\n"
              "format: PCM, 2 channels, 2 Hz, 16 bits, 2 frames, 0:01.000\n"
              "loop: forwards and backwards, 0-2, 3 times\n"
              "loop: type 3, 1-2, without end\n\n"
              "channel peak dBFS RMS dBFS DC offset %\n"
              " 1 -6.02 -9.03 25.000\n 2 -inf -inf 0.000\n");
  expectShown("cut.wav", wav().fmt(mono, 16, 2).data(samples).claimDataSize(0xFFFFFFFF), 1,
              "a WAV file, 52 bytes\nin a bank: nothing, WaveFile leaves the file out\n"
              " error: cut.wav: the file ends before the last of its samples [damaged-sound]\n"
              " Export the sound again\n\nchunk offset bytes\nfmt 20 16\n"
              "data 44 4294967295 the file ends after 8 of them\n");
}

TEST_F(ShowTest, AiffFiles) {
  const std::string looped = test::aiff()
                                 .comm(mono, 4, 8)
                                 .mark({{1, 0}, {2, 3, "\x1B[2J"}})
                                 .inst({1, 1, 2}, {2, 1, 9})
                                 .ssnd({"\x40\0\xC0\0", 4});
  expectShown("bell.aif", looped, 0,
              "an AIFF file, 116 bytes\n"
              "in a bank: a wave, 4 bytes, by WaveFile with SampleRate 44100 and Loop 1\n\n"
              "chunk offset bytes\nCOMM 20 18\nMARK 46 22\nINST 76 20\nSSND 104 12\n\n"
              "format: PCM, 1 channel, 44100 Hz, 8 bits, 4 frames, 0:00.000\n\n"
              "instrument\n root note C3 (60), 261.63 Hz\n detune -5 cents\n"
              " notes 1 to 127\n velocities 2 to 126\n gain -6 dB\n"
              " sustain loop forward, 0-3, between markers 1 and 2\n"
              " release loop forwards and backwards, between markers 1 and 9, which aren't both "
              "there\n\n"
              "marker id frame name\n 1 1 0\n 2 2 3 \uFFFD[2J\n\n"
              "channel peak dBFS RMS dBFS DC offset %\n 1 -6.02 -9.03 0.000\n");
}

TEST_F(ShowTest, Sequences) {
  const Bytes track = events()
                          .tempo(0, 500000)
                          .meta(0, 3, "a\nb")
                          .meta(0, 0x21, "x")
                          .note(384, 10, 60, 99)
                          .note(97, 10, 60, 0)
                          .system(0, 0xF7, "xy");
  const std::string shown =
      "bar:beat:tick\n 1:1: 0 Meta - Tempo - 120.00 bpm\n"
      " 1:1: 0 Meta - TrackName - a\uFFFD"
      "b\n 1:1: 0 Meta - type 0x21, 1 byte\n"
      " 2:1: 0 10 Note On - C3 Note #: 60 Velocity: 99\n"
      " 2:2: 1 10 Note Off - C3 Note #: 60 Velocity: 0\n 2:2: 1 status 0xF7, 2 bytes\n";
  expectShown("song.mid", midi().track(track.str() + events().endOfTrack()), 0,
              "a MIDI file, 59 bytes\nin a bank: a sequence, 59 bytes, by MidiFileType0\n\n"
              "header: type 0, 1 track, 96 ticks per quarter note\n"
              "first track: 37 bytes, 7 events, 1 voice, 0:02.505, 120.00 bpm at first, named "
              "a\uFFFD"
              "b\n\n" +
                  shown + " 2:2: 1 Meta - EndOfTrack\n");
  expectShown("smpte.mid", midi(0xE728, 1).track(""), 1,
              "a MIDI file, 22 bytes\nin a bank: nothing, MidiFileType0 leaves the file out\n"
              " error: smpte.mid: the file is of type 1, and tavrel leaves it out "
              "[sequence-type]\n Save it as type 0 in its editor, or");
  expectShown("cut.mid", midi().track(track), 1,
              "a MIDI file, 55 bytes\nin a bank: a sequence, 55 bytes, by MidiFileType0\n"
              " error: cut.mid: the track breaks off before its end [sequence-broken]\n"
              " Save the sequence again\n\n"
              "header: type 0, 1 track, 96 ticks per quarter note\n"
              "first track: 33 bytes, 120.00 bpm at first, named a\uFFFD"
              "b\n\n" +
                  shown + "the track breaks off here\n");
  write("odd.mid", midi().track(events().raw(0, "\x51\3\7\x21\x20").endOfTrack()));
  run({"show", "odd.mid"});
  EXPECT_THAT(output_.results, Not(testing::HasSubstr("at first")))
      << "its first event has no status: it is no tempo, as it would be after a meta event";
}

TEST_F(ShowTest, OtherFiles) {
  expectShown("a.dat", "text", 0,
              "text, 4 bytes\n"
              "in a bank: 4 bytes as they are, by UserAsset or another statement of opaque "
              "files\n");
  expectShown("b.flac", "fLaC", 1,
              "a FLAC file, 4 bytes\nin a bank: nothing, no statement reads a FLAC file\n"
              " sox -t flac b.flac -b 16 b.wav\n");
  expectShown("./c.wav", "fLaC", 1,
              "a FLAC file, 4 bytes\nin a bank: nothing, WaveFile leaves the file out\n"
              " error: ./c.wav: this is a FLAC file, and WaveFile reads a WAV file of this name "
              "[unreadable-file]\n");
  write("d.dat", "\1\2");
  EXPECT_EQ(run({"show", "d.dat", "b.flac"}), 1);
  EXPECT_THAT(output_.results, testing::HasSubstr("files\n\nb.flac: a FLAC file"));
  expectAnswers({"show", "d.dat"},
                {{{"none.wav"}, "can't read none.wav"}, {{"."}, "can't read ."}});
}

TEST_F(ShowTest, LevelsOfEachWidth) {
  const struct {
    std::uint16_t bits;
    std::string samples;  ///< -1 and 1/2 of full scale
  } kRows[]{{8, Bytes().u8(0).u8(0xC0)},
            {16, Bytes().le16(0x8000).le16(0x4000)},
            {24, Bytes().u8(0).le16(0x8000).u8(0).le16(0x4000)},
            {32, Bytes().le32(0x80000000).le32(0x40000000)}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.bits);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(row.samples.data());
    const LoadedSound sound{.bytes = bytes, .size = row.bits / 4U, .bits = row.bits, .channels = 0};
    const auto levels = levelsOf(sound);
    ASSERT_EQ(levels.size(), 1U);
    EXPECT_DOUBLE_EQ(levels[0].peak, 1);
    EXPECT_DOUBLE_EQ(levels[0].rms * levels[0].rms, 0.625);
    EXPECT_DOUBLE_EQ(levels[0].offset, -0.25);
  }
}

}  // namespace
}  // namespace tavrel::kit
