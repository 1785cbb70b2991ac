// tavkit quality and check --below: what they say of a sound whose stream docs/adpcm.md works out.
// quality_test.py compares other sounds with a decoder of its own.
#include <cmath>

#include "tests/kit/command_test.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

/// The decoded samples are 238, 808, -558, 97, 3040, 10099, -6832 and -31196; the ninth isn't
/// stored. The ratio is 3.16.
const double kWorked =
    10 * std::log10((1e6 + 81e4 + 25e4 + 2 * 32767.0 * 32767 + 2 * 32768.0 * 32768) /
                    (762.0 * 762 + 92 * 92 + 58 * 58 + 97 * 97 + 29727.0 * 29727 + 22668.0 * 22668 +
                     25936.0 * 25936 + 1572 * 1572));

class QualityTest : public CommandTest {};

TEST_F(QualityTest, ComparesSoundsWithTheirFilesAndGatesByTheExactRatio) {
  Bytes little;
  Bytes big;
  for (const int sample : {1000, 900, -500, 0, 32767, 32767, -32768, -32768, 7}) {
    little.le16(static_cast<std::size_t>(sample));
    big.be16(static_cast<std::size_t>(sample));
  }
  write("b.wav", wav().fmt(mono, 16, 8000).data(little));
  write("c.aif", aiff().comm(mono, 9, 16).ssnd(big));
  write("zero.wav", wav().fmt(mono, 16, 8000).data(Bytes().fill(8)));
  const Bytes exact = Bytes().le16(15).le16(30).le16(45).le16(60);
  write("exact.wav", wav().fmt(mono, 16, 8000).data(exact));
  write("narrow.wav", wav().fmt(mono, 8, 8000).data(little));
  write("s.txt",
        "BankFileName s\nWaveFile zero.wav Adpcm 1 AssetEnd\nWaveFile narrow.wav Adpcm 1 AssetEnd\n"
        "WaveFile b.wav\n Adpcm 1 AssetEnd\nWaveFile c.aif Adpcm 1 Loop 1 AssetEnd\n"
        "WaveFile exact.wav Adpcm 1 AssetEnd\nWaveFile .\\c.aif Adpcm 1 AssetEnd\nScriptEnd\n");
  write("gone.txt", "WaveFile gone.wav Adpcm 1 AssetEnd\n");
  write("none.txt", "BankFileName s ");
  const std::string above = std::to_string(kWorked + 1e-4);
  const std::string below = std::to_string(kWorked - 1e-4);
  EXPECT_EQ(run({"quality", "s.txt"}), 0);
  EXPECT_THAT(output_.results,
              HasSubstr("  dB  worst error  at sample  clipped  id  define       file\n"
                        "3.16       -29727          4        0   2  S_B_WAV      b.wav\n"
                        "3.16       -29727          4        0   5  S_C_AIF      .\\c.aif\n"
                        "   -           15          0        0   0  S_ZERO_WAV   zero.wav\n"
                        "   -            0          0        0   4  S_EXACT_WAV  exact.wav\n"));
  expectAnswers({"quality"}, {{{"s.txt", "--below", above}, "", 1},
                              {{"s.txt", "--below", below}, "", 0},
                              {{"s.txt", "--below", ""}, "--below"},
                              {{"s.txt", "--below", "1dB"}, "--below"},
                              {{"s.txt", "--below", "nan"}, "--below"},
                              {{"s.txt", "--below", "+1"}, "--below"},
                              {{"s.txt", "--below", "0x1"}, "--below"},
                              {{"gone.txt"}, ""},
                              {{"none.txt", "--below", "99"}, "", 0}});
  EXPECT_THAT(output_.results, HasSubstr("no wave"));
  EXPECT_EQ(run({"check", "s.txt", "--below", above}), 1);
  EXPECT_THAT(output_.results, HasSubstr(":5:2: warning: b.wav: compression leaves 3.16 dB, "));
  EXPECT_THAT(output_.results, HasSubstr(":8:18: warning: .\\c.aif: compr"));
  run({"check", "s.txt", "--below", below});
  EXPECT_THAT(output_.results, testing::Not(HasSubstr("low-quality")));
}

}  // namespace
}  // namespace tavrel::kit
