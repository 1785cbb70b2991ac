// Whether a bank that the tool has packed from a script holds everything that the script names.
// Reads script, bank and header on its own.
#pragma once

#include <strings.h>
#include <tavrel/bank.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/sound_files.h"

namespace tavrel::test {

inline const std::vector<std::string> kBlockKeywords{
    "WaveFile", "MidiFileType0", "MidiToneBank", "FxOutputBank", "FxProgramBank", "UserAsset"};

inline bool isKeyword(const std::string& word, const std::string& keyword) {
  return strcasecmp(word.c_str(), keyword.c_str()) == 0;
}

/// Returns the words of a script, each up to a NUL in it.
inline std::vector<std::string> wordsOf(const std::string& script) {
  std::vector<std::string> words(1);
  bool isComment = false;
  for (const char c : script) {
    isComment = c == ';' || (isComment && c != '\n' && c != '\r');
    if (!isComment && std::string_view(" \t\r\n").find(c) == std::string_view::npos) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  for (std::string& word : words) {
    word.resize(std::min(word.find('\0'), word.size()));
  }
  return words;
}

/// What a script asks for, read without regard to where a word may be.
struct Wanted {
  std::string bank;                ///< empty if it isn't named
  std::vector<std::string> files;  ///< of the blocks, with slashes

  /// Returns the name of the header: "h" is the extension instead of one of up to three letters.
  [[nodiscard]] std::string header() const {
    const std::size_t dot = bank.find_last_of("./");
    const bool hasExtension =
        dot != std::string::npos && bank[dot] == '.' && bank.size() - dot <= 4;
    return bank.substr(0, hasExtension ? dot : bank.size()) + ".h";
  }
};

inline Wanted wantedBy(const std::string& script) {
  Wanted wanted;
  std::vector<std::string> words = wordsOf(script);
  words.emplace_back();
  for (std::size_t i = 0; i + 1 < words.size() && !isKeyword(words[i], "ScriptEnd"); ++i) {
    std::string next = words[i + 1];
    std::replace(next.begin(), next.end(), '\\', '/');
    if (isKeyword(words[i], "BankFileName")) {
      wanted.bank = next;
      ++i;
    } else if (std::any_of(kBlockKeywords.begin(), kBlockKeywords.end(),
                           [&](const auto& keyword) { return isKeyword(words[i], keyword); })) {
      wanted.files.push_back(next);
    }
  }
  return wanted;
}

inline bool isWhole(const tavrel_asset& asset, const SoundFile& file) {
  const std::string blob(asset.bytes, asset.bytes + asset.size);
  tavrel_wave wave;
  if (tavrel_asset_wave(&asset, &wave) == 0) {
    return blob == file.bytes &&
           (asset.type != TAVREL_SEQUENCE || file.isUnknown || file.statement == "MidiFileType0");
  }
  if (file.isUnknown || !file.samples) {
    return file.isUnknown;
  }
  const std::size_t size = file.samples->size();
  return wave.bits == 4 ? size >= 4 && blob.size() >= size / 4 : blob == *file.samples;
}

/// Returns what is missing in the bank, or nothing.
inline std::string lossOfAssets(const std::string& bytes, const std::vector<std::string>& wanted,
                                const SoundFiles& files) {
  tavrel_bank bank;
  if (tavrel_bank_open(&bank, bytes.data(), bytes.size()) != TAVREL_OK) {
    return "the bank doesn't open";
  }
  if (bank.count != wanted.size()) {
    return "the number of assets is " + std::to_string(bank.count);
  }
  for (std::uint32_t id = 0; id < bank.count; ++id) {
    const auto file = files.find(wanted[id]);
    tavrel_asset asset;
    tavrel_bank_asset(&bank, id, &asset);
    if (file == files.end() || !isWhole(asset, file->second)) {
      return wanted[id] + " isn't whole";
    }
  }
  return "";
}

/// Returns what is wrong with the defines of a header for so many assets, or nothing.
inline std::string faultOfDefines(const std::string& header, std::size_t assets) {
  std::set<std::string> names;
  std::istringstream lines(header);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("#define")) {
      const std::size_t start = line.find_first_not_of('\t', 7);
      const std::string name = line.substr(start, line.find('\t', start) - start);
      const bool isIdentifier =
          name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789") == std::string::npos &&
          name.find_first_of("0123456789") != 0;
      if (!isIdentifier || !names.insert(name).second) {
        return "bad define " + name;
      }
    }
  }
  return names.size() == assets + 4 ? "" : "the number of defines is wrong";
}

}  // namespace tavrel::test
