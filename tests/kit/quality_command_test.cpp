// tavkit quality and check --below: what they say of sounds whose stream docs/adpcm.md works out.
// quality_test.py compares other sounds with a decoder of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "kit/frame/command_line.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

class QualityCommandTest : public testing::Test {
 protected:
  QualityCommandTest() : before_(std::filesystem::current_path()) {
    Bytes little;
    Bytes big;
    for (const int sample : {1000, 900, -500, 0, 32767, 32767, -32768, -32768, 7}) {
      little.le16(static_cast<std::size_t>(sample));
      big.be16(static_cast<std::size_t>(sample));
    }
    for (const char* name : {"worked.wav", "looped.wav"}) {
      folder_.write(name, wav().fmt(mono, 16, 8000).data(little));
    }
    folder_.write("worked.aif", aiff().comm(mono, 9, 16).ssnd(big));
    folder_.write("silent.wav", wav().fmt(mono, 16, 8000).data(Bytes().fill(8)));
    const Bytes exact = Bytes().le16(15).le16(30).le16(45).le16(60);
    folder_.write("exact.wav", wav().fmt(mono, 16, 8000).data(exact));
    folder_.write("narrow.wav", wav().fmt(mono, 8, 8000).data(little));
    folder_.write("s.txt",
                  "BankFileName s\nWaveFile silent.wav SampleRate 8000 Adpcm 1 AssetEnd\n"
                  "WaveFile narrow.wav SampleRate 8000 Adpcm 1 AssetEnd\n"
                  "WaveFile worked.wav SampleRate 8000\n Adpcm 1 AssetEnd\n"
                  "WaveFile looped.wav SampleRate 8000 Adpcm 1 Loop 1 AssetEnd\n"
                  "WaveFile exact.wav SampleRate 8000 Adpcm 1 AssetEnd\n"
                  "WaveFile .\\worked.aif SampleRate 44100 Adpcm 1 AssetEnd\nScriptEnd\n");
  }
  ~QualityCommandTest() override { std::filesystem::current_path(before_); }

  int run(const std::string& command, const std::vector<std::string>& options,
          const std::string& script = "s.txt") {
    std::vector<std::string> arguments{command, "-C", folder_.path(), script};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const int code = runCommandLine(arguments, output_ = {});
    std::filesystem::current_path(before_);
    return code;
  }

  const std::filesystem::path before_;
  const TemporaryDirectory folder_;
  Output output_;
};

/// Ratio of the sounds "worked": their decoded samples are 238, 808, -558, 97, 3040, 10099, -6832
/// and -31196. The ninth is not stored.
const double kWorked =
    10 * std::log10((1e6 + 81e4 + 25e4 + 2 * 32767.0 * 32767 + 2 * 32768.0 * 32768) /
                    (762.0 * 762 + 92 * 92 + 58 * 58 + 97 * 97 + 29727.0 * 29727 + 22668.0 * 22668 +
                     25936.0 * 25936 + 1572 * 1572));

TEST_F(QualityCommandTest, ComparesEachCompressedSoundWithItsFile) {
  EXPECT_EQ(run("quality", {"--json", "--prefix", "my"}), 0);
  const auto waves = nlohmann::json::parse(output_.results).at("waves");
  const auto wave = [](int id, const char* define, const char* file, const nlohmann::json& snr,
                       int worstError, int worstSample) {
    return nlohmann::json{{"id", id},    {"define", define},         {"file", file},
                          {"snr", snr},  {"worstError", worstError}, {"worstSample", worstSample},
                          {"clipped", 0}};
  };
  const double worked = std::round(kWorked * 100) / 100;
  EXPECT_EQ(waves, (nlohmann::json{wave(0, "MY_SILENT_WAV", "silent.wav", nullptr, 15, 0),
                                   wave(2, "MY_WORKED_WAV", "worked.wav", worked, -29727, 4),
                                   wave(4, "MY_EXACT_WAV", "exact.wav", nullptr, 0, 0),
                                   wave(5, "MY_WORKED_AIF", ".\\worked.aif", worked, -29727, 4)}));
  EXPECT_EQ(run("quality", {}), 0);
  std::string files;
  for (std::size_t end = 0; (end = output_.results.find('\n', end + 1)) != std::string::npos;) {
    const std::size_t start = output_.results.find_last_of(" \\", end) + 1;
    files += output_.results.substr(start, end - start) + ' ';
  }
  EXPECT_EQ(files, "file worked.wav worked.aif silent.wav exact.wav ") << "the worst first";
}

TEST_F(QualityCommandTest, GatesByTheExactRatio) {
  const std::string above = std::to_string(kWorked + 1e-4);
  EXPECT_EQ(run("quality", {"--below", above}), 1);
  EXPECT_EQ(output_.messages, "2 of 4 waves below " + above + " dB\n");
  EXPECT_EQ(run("quality", {"--below", std::to_string(kWorked - 1e-4)}), 0);
  for (const char* limit : {"", "x", "1dB", "nan", "inf"}) {
    EXPECT_EQ(run("quality", {"--below", limit}), 2) << limit;
  }
  folder_.write("gone.txt", "BankFileName s WaveFile gone.wav Adpcm 1 AssetEnd ");
  EXPECT_EQ(run("quality", {}, "gone.txt"), 2);
  folder_.write("none.txt", "BankFileName s ");
  EXPECT_EQ(run("quality", {"--below", "99"}, "none.txt"), 0);
}

TEST_F(QualityCommandTest, CheckWarnsAtTheKeyword) {
  EXPECT_EQ(run("check", {"--below", std::to_string(kWorked + 1e-4)}), 0);
  EXPECT_THAT(output_.results, HasSubstr("s.txt:5:2: warning: worked.wav: compression leaves "));
  EXPECT_THAT(output_.results, HasSubstr("s.txt:8:40: warning: .\\worked.aif: compression leav"));
  const std::string code = "[low-quality]";
  EXPECT_EQ(
      output_.results.find(code, output_.results.find(code, output_.results.find(code) + 1) + 1),
      std::string::npos)
      << "two sounds";
  run("check", {"--below", std::to_string(kWorked - 1e-4)});
  EXPECT_THAT(output_.results, testing::Not(HasSubstr(code)));
}

}  // namespace
}  // namespace tavrel::kit
