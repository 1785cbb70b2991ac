// Makes build scripts by chance, most of them with few faults.
#pragma once

#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/support/sound_files.h"

namespace tavrel::test {

struct Source {
  std::string name, statement;
};

/// Files whose content changes from script to script.
inline const std::vector<Source> kDamagedFiles{
    {"x.wav", "WaveFile"}, {"x.aif", "WaveFile"}, {"x.mid", "MidiFileType0"}};

class ScriptGenerator {
 public:
  ScriptGenerator(unsigned seed, SoundFiles files) : random_(seed), files_(std::move(files)) {
    for (const auto& [name, file] : files_) {
      (file.statement.empty() ? bad_ : good_).push_back({name, file.statement});
    }
  }

  /// Returns the bytes of a file with the extension of `name` and a few bytes of damage.
  std::string damaged(const std::string& name) {
    std::vector<std::string> originals;
    for (const auto& [original, file] : files_) {
      if (original.ends_with(name.substr(1)) && !file.bytes.empty()) {
        originals.push_back(file.bytes);
      }
    }
    std::string bytes = any(originals);
    for (std::size_t count = 1 + pick(2); count > 0; --count) {
      bytes[pick(bytes.size())] = static_cast<char>(oneIn(2) ? pick(256) : pick(4));
    }
    return oneIn(4) ? bytes.substr(0, pick(bytes.size())) : bytes;
  }

  /// Returns a value of HeaderPrefix; mostly nothing.
  std::string prefix() {
    static const std::vector<std::string> kPrefixes{"snd", "SFX", "9", "a-b", "_"};
    return oneIn(8) ? any(kPrefixes) : "";
  }

  std::string script() {
    gap_ = oneIn(6) ? "\r\n" : oneIn(9) ? "\r" : "\n";
    faults_ = oneIn(2) ? 40 : 1000000;
    std::string text = fault() ? "\xEF\xBB\xBF" : oneIn(4) ? "; c" + gap_ : "";
    text += fault() ? "" : bank();
    for (std::size_t count = pick(6); count > 0; --count) {
      text += block() + (fault() ? bank() : "");
    }
    text += oneIn(8) ? "" : "ScriptEnd";
    text += fault() ? "" : gap_;
    return fault() ? text.substr(0, pick(text.size() + 1)) : text;
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }
  bool oneIn(std::size_t count) { return pick(count) == 0; }
  bool fault() { return oneIn(faults_); }

  template <typename List>
  typename List::value_type any(const List& list) {
    return list[pick(list.size())];
  }

  std::string bank() {
    static const std::vector<std::string> kOdd{
        "sfx", "a.b.tvb", "a-b.tvb", "9.tvb",     "sfx.bank", "sub/sfx.tvb", "sub\\sfx.tvb",
        ".a",  "d.dat",   "s.txt",   "plain.wav", "AssetEnd", "plain.h"};
    return "BankFileName " + (fault() || oneIn(20) ? any(kOdd) : "sfx.tvb") + gap_;
  }

  std::string block() {
    static const std::map<std::string, std::vector<std::string>> kOptions{
        {"WaveFile",
         {"SampleRate 22050", "Loop 1", "Adpcm 1", "RandomPitchAmount 5", "Adpcm 0", "LOOP 0"}},
        {"MidiFileType0", {"Volume 100", "GmMode 1", "Loop 2"}},
        {"MidiToneBank", {"BankType Drum", "BankType Melodic"}},
        {"FxOutputBank", {}},
        {"FxProgramBank", {}},
        {"UserAsset", {"Parameter0 1", "Parameter7 -1"}}};
    static const std::vector<std::string> kOdd{"Loop 10", "Loop yes",     "SampleRate x",
                                               "Loop",    "BankType x",   "Parameter8 1",
                                               "Bogus",   "SampelRate 9", "Volume 22,050"};
    const Source source = oneIn(8)             ? any(kDamagedFiles)
                          : oneIn(faults_ / 4) ? any(bad_)
                                               : any(good_);
    const bool fits = !source.statement.empty() && !fault();
    const auto& [statement, options] =
        fits ? *kOptions.find(source.statement)
             : *std::next(kOptions.begin(), static_cast<long>(pick(kOptions.size())));
    std::string text =
        statement + (oneIn(5) ? gap_ : " ") + name(source.name) + (oneIn(9) ? " ;c" + gap_ : " ");
    for (std::size_t count = pick(4); count > 0; --count) {
      const bool isOdd = fault();
      text += (isOdd ? any(kOdd) : options.empty() ? "" : any(options)) + (oneIn(3) ? gap_ : "\t");
    }
    return text + (fault() ? "" : oneIn(9) ? "assetend" : "AssetEnd") + gap_;
  }

  /// Returns a file's name, with backslashes more often than not, and seldom spoilt.
  std::string name(std::string name) {
    const std::size_t separator = name.find('/');
    if (separator != std::string::npos && !oneIn(3)) {
      name[separator] = '\\';
    }
    static const std::vector<std::string> kSpoilt{"gone.wav", "\"d.dat\"",   "d .dat",
                                                  "d;.dat",   "plain.wavw.", "d.dat\\",
                                                  "sub",      "..",          "sub\\"};
    return fault() ? any(kSpoilt) : name;
  }

  std::mt19937 random_;
  SoundFiles files_;
  std::vector<Source> good_, bad_;
  std::string gap_;
  std::size_t faults_ = 1;  ///< the inverse of how probable a fault is
};

}  // namespace tavrel::test
