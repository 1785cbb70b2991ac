#include "kit/extract/script_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "compiler/names.h"
#include "compiler/wave_rules.h"
#include "foundation/token_file.h"
#include "kit/extract/extracted_names.h"
#include "kit/frame/required_text.h"
#include "kit/frame/split_name.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

namespace {

constexpr const char* kWav = "wav";
constexpr const char* kAiff = "aif";

std::string joined(const std::string& stem, const std::string& extension) {
  return extension.empty() ? stem : stem + '.' + extension;
}

/// Returns the name of the asset made from a file, as the tool names it; nothing if it is too long.
std::optional<std::string> assetOfFile(const std::string& name) {
  const SplitName parts = splitName(name);
  AssetData::Name asset{};
  if (!assetName(parts.stem, parts.extension, asset)) {
    return std::nullopt;
  }
  return asset.data();
}

bool isUsable(const std::string& name) {
  return isSafeName(name) && isScriptWord(name) && assetOfFile(name).has_value();
}

/// Returns an extension that the tool cuts to this one. It differs if the cut is after a dot, with
/// which no file's name should end.
std::string wholeExtension(std::string extension) {
  constexpr std::size_t kCutLength = 5;
  if (extension.size() == kCutLength && extension.back() == '.') {
    extension += "bin";
  }
  return extension;
}

/// Returns the extension of a file that is named after its id.
std::string extensionForId(const tavrel_asset& asset, const ScriptSource& source,
                           const std::string& extension) {
  if (source.wave) {
    return source.isAiff() ? kAiff : kWav;
  }
  if (asset.type == TAVREL_SEQUENCE) {
    return "mid";
  }
  return isUsable(joined("0", extension)) ? extension : "bin";
}

}  // namespace

ScriptNames::ScriptNames(std::string_view define, std::uint32_t id, const tavrel_asset& asset,
                         const ScriptSource& source)
    : id_(id), isWav_(source.isWav()), isAiff_(source.isAiff()) {
  const DefineParts parts = definePartsOf(define);
  stem_ = parts.stem;
  extension_ = wholeExtension(parts.extension);
  if (isAiff_) {
    extension_ = kAiff;
  } else if (isWav_ && isAiffExtension(extension_.c_str())) {
    extension_ = kWav;
  }
  idExtension_ = extensionForId(asset, source, define.empty() ? "bin" : extension_);
}

std::string ScriptNames::text(std::uint32_t attempt) const {
  switch (attempt) {
    case 0:
      return joined(stem_, extension_);
    case 1:
      return joined(fmt::format("{}_{}", stem_, id_), extension_);
    case 2:
      return joined(fmt::format("{:04}", id_), idExtension_);
    default:
      return joined(fmt::format("{:04}_{}", id_, attempt), idExtension_);
  }
}

ScriptName ScriptNames::name(std::uint32_t attempt) const {
  std::string file = text(attempt);
  if (attempt < 2 && (!isGood(text(0)) || !isGood(file))) {
    return {};
  }
  std::string opened = isWav_ ? requiredText(WaveFile(file.c_str()).openedName()) : file;
  return {.inScript = std::move(file), .onDisk = std::move(opened)};
}

bool ScriptNames::isGood(const std::string& file) const {
  return !stem_.empty() && isUsable(file) && isReadAsWritten(file);
}

/// Returns true unless the name makes the tool read a wave as one of another format.
bool ScriptNames::isReadAsWritten(const std::string& name) const {
  return (!isWav_ && !isAiff_) || isAiffExtension(splitName(name).extension.c_str()) == isAiff_;
}

bool isScriptWord(std::string_view word) {
  return !word.empty() && std::none_of(word.begin(), word.end(), TokenFile::isDelimiter);
}

std::string defineOfFile(const std::string& prefix, const std::string& name) {
  return defineName(prefix, assetOfFile(name).value_or(""));
}

bool isAiffDefine(std::string_view define) {
  return isAiffExtension(definePartsOf(define).extension.c_str());
}

}  // namespace tavrel::kit
