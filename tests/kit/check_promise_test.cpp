// The promise of `tavkit check`, with the tool itself as the judge: a script without errors is
// packed whole and passes `tavkit verify`, and one that the tool packs whole has no errors but
// those that may be false alarms. The scripts come from a generator, and from good ones by every
// cut and by exchanged words.
#include <fstream>
#include <regex>

#include "kit/check/script_fix.h"
#include "tests/kit/command_test.h"
#include "tests/support/packed_script.h"
#include "tests/support/script_generator.h"

namespace tavrel::kit {
namespace {

using Codes = std::set<std::string, std::less<>>;
using testing::PrintToString;

/// Returns true if a script that is packed whole may have these errors.
bool mayBeFalseAlarms(const Codes& errors, bool hasBankSeparator) {
  static const Codes kAlone{"encoding",    "stereo-aiff",     "damaged-sound",  "empty-sound",
                            "broken-loop", "sequence-broken", "output-overlap", "over-budget"};
  const bool mayBeOthers = errors.contains("missing-value") || errors.contains("last-word") ||
                           errors.contains("long-word");
  return mayBeOthers || std::all_of(errors.begin(), errors.end(), [&](const std::string& error) {
           return kAlone.contains(error) || (hasBankSeparator && error == "define-invalid");
         });
}

class CheckPromiseTest : public CommandTest {
 protected:
  CheckPromiseTest() {
    for (const auto& [name, file] : files_) {
      write(name, file.bytes);
    }
  }

  /// Checks the script and packs it, and compares the answers.
  void judge(const std::string& script, const std::string& prefix = "") {
    SCOPED_TRACE(PrintToString(script) + " under the prefix " + prefix);
    write("s.txt", script);
    const Codes errors = check(prefix);
    const test::Wanted wanted = test::wantedBy(script);
    const std::string loss = pack(wanted, prefix);
    if (errors.empty()) {
      EXPECT_EQ(loss, "");
      const Lines verify{"verify", wanted.bank, "--script", "s.txt", "--prefix", prefix};
      EXPECT_EQ(run(verify), 0) << output_.results;
      ++good_;
    } else if (loss.empty()) {
      const bool hasSeparator = wanted.bank.find('/') != std::string::npos;
      EXPECT_TRUE(mayBeFalseAlarms(errors, hasSeparator)) << PrintToString(errors);
    }
    restore(wanted);
    if (loss.empty()) {
      judgeFixes(script, prefix);
    }
  }

  /// Fixes a script that is packed whole. It must still be, and leave nothing to fix.
  void judgeFixes(const std::string& script, const std::string& prefix) {
    const RunPlan plan{.scriptPath = "s.txt", .prefix = prefix};
    write("s.txt", script);
    const FixedScript fixed = fixScript(plan, {});
    const std::string text(fixed.left.text.text());
    write("s.txt", text);
    EXPECT_EQ(fixScript(plan, {}).fixCount, 0U);
    const test::Wanted wanted = test::wantedBy(text);
    EXPECT_EQ(fixed.fixCount > 0 ? pack(wanted, prefix) : "", "") << PrintToString(text);
    restore(wanted);
  }

  /// Writes a file that is judged as `file` says.
  void replace(const std::string& name, const test::SoundFile& file) {
    write(name, file.bytes);
    files_[name] = file;
  }

  test::SoundFiles files_ = test::soundFiles();
  int good_ = 0;

 private:
  static Codes check(const std::string& prefix) {
    Codes errors;
    for (const Diagnostic& one :
         checkScript({.scriptPath = "s.txt", .prefix = prefix}, {}).diagnostics) {
      if (one.code->severity == Severity::error) {
        errors.emplace(one.code->name);
      }
    }
    return errors;
  }

  /// Packs the script. Returns what the tool fails at or leaves out, or nothing.
  std::string pack(const test::Wanted& wanted, const std::string& prefix) {
    if (!(prefix.empty() ? runTool({"s.txt"})
                         : runTool({"s.txt", "HeaderPrefix", prefix.c_str()}))) {
      return "the run fails";
    }
    const std::string loss = test::lossOfAssets(bytesOf(wanted.bank), wanted.files, files_);
    return loss.empty() ? test::faultOfDefines(bytesOf(wanted.header()), wanted.files.size())
                        : loss;
  }

  /// Returns the bytes of a file, none if it isn't there.
  static std::string bytesOf(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Removes what the run has made, and writes the files again that it has replaced.
  void restore(const test::Wanted& wanted) const {
    for (const std::string& name : {wanted.bank, wanted.header()}) {
      std::error_code isMissing;
      fs::remove(name, isMissing);
      if (const auto file = files_.find(name); file != files_.end()) {
        write(name, file->second.bytes);
      }
    }
  }
};

TEST_F(CheckPromiseTest, HoldsForRandomScripts) {
  const char* number = std::getenv("TAVREL_PROMISE_PROJECTS");
  const int count = number != nullptr ? std::atoi(number) : 500;
  test::ScriptGenerator generator(7, files_);
  for (int i = 0; i < count && !HasFailure(); ++i) {
    for (const auto& [name, statement] : test::kDamagedFiles) {
      replace(name, {.bytes = generator.damaged(name), .statement = statement, .isUnknown = true});
    }
    judge(generator.script(), generator.prefix());
  }
  EXPECT_GT(good_, count / 10);
}

const std::vector<std::string> kGoodScripts{
    "; c\nBankFileName sfx.tvb\nWaveFile plain.wav SampleRate 22050 Adpcm 1 AssetEnd\nScriptEnd\n",
    "BankFileName sfx.tvb MidiFileType0\tsong.mid Volume 9 Loop 1 AssetEnd\r\n"
    "FxOutputBank c.fxo AssetEnd ScriptEnd",
    "BankFileName sfx.tvb\nMidiToneBank a.mtb BankType Drum AssetEnd ; x\n"
    "WaveFile loop.aif SampleRate 44100 Loop 1 AssetEnd\nUserAsset d.dat Parameter3 -1 AssetEnd\n"};

TEST_F(CheckPromiseTest, HoldsForEveryCutAndForOtherLineEnds) {
  for (const std::string& script : kGoodScripts) {
    for (const std::string lineEnd : {"\n", "\r\n", "\r", "\n\n", "\n\r", "; x\n"}) {
      const std::string text = std::regex_replace(script, std::regex("\r?\n"), lineEnd);
      judge(text);
      judge("\xEF\xBB\xBF" + text);
    }
  }
  EXPECT_EQ(good_, 3 * 6);
  for (const std::string& script : kGoodScripts) {
    for (std::size_t length = 0; length <= script.size(); ++length) {
      judge(script.substr(0, length));
    }
  }
}

TEST_F(CheckPromiseTest, HoldsForExchangedAndInsertedWords) {
  std::vector<std::string> keywords = test::kBlockKeywords;
  for (const char* word : {"BankFileName", "ScriptEnd", "AssetEnd", "SampleRate", "Loop", "Adpcm",
                           "RandomPitchAmount", "Volume", "GmMode", "BankType", "Parameter3", ""}) {
    keywords.emplace_back(word);
  }
  const std::string nul(1, '\0');
  for (const std::string& script : kGoodScripts) {
    std::size_t end = 0;
    for (const std::string& word : test::wordsOf(script)) {
      const std::size_t start = script.find(word, end);
      end = start + word.size();
      std::vector<std::string> replacements = keywords;
      replacements.insert(replacements.end(), {word + ' ' + word, word + nul, nul + word});
      for (const std::string& stray : {nul, std::string("\x1A"), std::string(1025, 'x')}) {
        replacements.push_back(stray + ' ' + word);
        replacements.push_back(word + ' ' + stray);
      }
      for (const std::string& replacement : replacements) {
        judge(script.substr(0, start) + replacement + script.substr(end));
      }
    }
  }
}

}  // namespace
}  // namespace tavrel::kit
