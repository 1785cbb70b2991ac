// Checks of the defines in the header. C sees the guard and the bank's own defines as it sees those
// of assets.
#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "compiler/asset_data.h"
#include "compiler/names.h"
#include "foundation/file_name.h"
#include "kit/bank/c_identifier.h"
#include "kit/check/bank_checks.h"
#include "kit/check/run_file.h"
#include "kit/check/word_hints.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kSeparators = "/\\";

/// Returns true if the part of a define after the prefix has only characters of an identifier.
bool isFineAfterPrefix(const std::string& name) { return isIdentifier(defineName("", name)); }

/// Returns true if a prefix, which may be empty, can begin an identifier.
bool isFinePrefix(const std::string& prefix) { return isIdentifier(defineName(prefix, "")); }

/// Returns `text` with a "_" for each character that can't be in a define.
std::string cleaned(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) {
        return c != '.' && c != '\\' && !isIdentifier(std::string{'_', c});
      },
      '_');
  return text;
}

/// Returns the name of the bank's file alone.
std::string withoutFolder(const std::string& name) {
  return name.substr(name.find_last_of(kSeparators) + 1);
}

/// Returns what is wrong with the bank's name as a part of defines, or nothing.
std::string faultOfBankName(const BankNames& names) {
  Guard guard{};
  if (names.word->text.find_first_of(kSeparators) != std::string::npos) {
    return fmt::format(
        "a bank's name with a folder goes into the header, whose {} is then \"{}{}\"",
        names.define(kFileNameDefine), names.baseName, kBankExtension);
  }
  if (guardName(names.baseName, guard) && !isIdentifier(guard.data())) {
    return fmt::format("the guard of the header, {}, isn't a C identifier", guard.data());
  }
  return "";
}

/// Checks what the bank's name and the prefix do to all defines. Each of them is reported once.
void checkPrefixAndGuard(const BankNames& names, Findings& findings) {
  const std::string fault = faultOfBankName(names);
  if (!fault.empty()) {
    findings.add("define-invalid", names.word->offset,
                 fmt::format("{}: {}", names.word->text, fault), betterBankName(names.word->text));
  }
  const bool isReported = !fault.empty() && names.prefix == names.baseName;
  if (!isFinePrefix(names.prefix) && !isReported) {
    findings.add("define-invalid", names.word->offset,
                 fmt::format("{}: all defines begin with {}, so they aren't C identifiers",
                             names.word->text, names.define("")),
                 "Set another prefix with HeaderPrefix or --prefix");
  }
}

void checkGuardLength(const BankNames& names, Findings& findings) {
  Guard guard{};
  if (!guardName(names.baseName, guard)) {
    findings.add("long-guard", names.word->offset,
                 fmt::format("{}: the guard of the header, _{}_H, has more than {} characters",
                             names.word->text, names.baseName, kLongestGuard),
                 "Give the bank a shorter name");
  }
}

std::string withBackslashes(std::string name) {
  std::replace(name.begin(), name.end(), '/', '\\');
  return name;
}

/// Returns how to give an asset a define that is an identifier.
std::string betterFileName(const std::string& name) {
  const std::string better = withBackslashes(name);
  return better != name ? fmt::format("Write {}", better)
                        : fmt::format("Rename the file to {}", cleaned(name));
}

/// Returns the defines that are there before those of the assets, each with whose it is.
std::unordered_map<std::string, std::string> ownDefines(const BankNames& names) {
  std::unordered_map<std::string, std::string> owners;
  if (names.word != nullptr) {
    for (const char* own : {kFileNameDefine, kDataSizeDefine, kHeaderSizeDefine}) {
      owners.emplace(names.define(own), "the bank");
    }
    Guard guard{};
    if (guardName(names.baseName, guard)) {
      owners.emplace(guard.data(), "the header's guard");
    }
  }
  return owners;
}

/// Returns the edit that writes an asset's file name with backslashes, if the file is found under
/// it and its define is an identifier that isn't in `taken`, where it is added.
std::optional<Edit> backslashEdit(const BankNames& names, const CheckedAsset& asset,
                                  std::unordered_map<std::string, std::string>& taken) {
  const ScriptWord& file = *asset.block->file;
  const std::string written = withBackslashes(file.text);
  FileName parts;
  parts.splitNameAndPath(written.c_str());
  AssetData::Name name{};
  const bool isFine =
      written != file.text && assetName(parts.getNameOnly(), parts.getExtensionOnly(), name) &&
      isFineAfterPrefix(name.data()) &&
      isSameFile(asset.openedPath, hostPath(withBackslashes(asset.openedName).c_str())) &&
      taken.emplace(names.define(name.data()), file.text).second;
  return isFine ? std::optional(file.replacedBy(written)) : std::nullopt;
}

void checkIdentifiers(const BankNames& names, const AssetList& assets, Findings& findings) {
  auto taken = ownDefines(names);
  for (const CheckedAsset* asset : assets) {
    taken.emplace(names.define(asset->name), asset->block->file->text);
  }
  for (const CheckedAsset* asset : assets) {
    const ScriptWord& file = *asset->block->file;
    if (!isFineAfterPrefix(asset->name)) {
      findings.add("define-invalid", file.offset,
                   fmt::format("{}: its define, {}, isn't a C identifier", file.text,
                               names.define(asset->name)),
                   betterFileName(file.text), backslashEdit(names, *asset, taken));
    }
  }
}

void checkDuplicates(const BankNames& names, const AssetList& assets, Findings& findings) {
  auto owners = ownDefines(names);
  for (const CheckedAsset* asset : assets) {
    const ScriptWord& file = *asset->block->file;
    const auto [owner, isNew] = owners.emplace(names.define(asset->name), file.text);
    if (!isNew) {
      findings.add("define-duplicate", file.offset,
                   fmt::format("{}: its define, {}, is that of {} already", file.text, owner->first,
                               owner->second),
                   owner->second == file.text ? "Remove one of the two blocks" : "Rename the file");
    }
  }
}

}  // namespace

std::string betterBankName(std::string name) {
  if (name == "=") {
    return equalsSignHint(name);
  }
  name.erase(std::remove(name.begin(), name.end(), '"'), name.end());
  const std::string file = withoutFolder(name);
  return file.size() == name.size()
             ? fmt::format("Name the bank {}", cleaned(name))
             : fmt::format("Name the bank {}, and give its folder with bankPath or --bank-dir",
                           cleaned(file));
}

void checkDefines(const BankNames& names, const AssetList& assets, Findings& findings) {
  if (names.word != nullptr) {
    checkGuardLength(names, findings);
    checkPrefixAndGuard(names, findings);
  }
  checkIdentifiers(names, assets, findings);
  checkDuplicates(names, assets, findings);
}

}  // namespace tavrel::kit
