// Checks of the defines in the header. C sees the guard and the bank's own defines as it sees those
// of assets.
#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "compiler/names.h"
#include "kit/bank/c_identifier.h"
#include "kit/check/bank_checks.h"
#include "kit/check/word_hints.h"

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

/// Returns how to name the bank so that it spoils nothing.
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

/// Returns how to give an asset a define that is an identifier.
std::string betterFileName(const std::string& name) {
  std::string withBackslashes = name;
  std::replace(withBackslashes.begin(), withBackslashes.end(), '/', '\\');
  const bool hasSlash = withBackslashes != name;
  return fmt::format("{} {}", hasSlash ? "Write" : "Rename the file to",
                     hasSlash ? withBackslashes : cleaned(name));
}

void checkIdentifiers(const BankNames& names, const StoredAssets& assets, Findings& findings) {
  for (const CheckedAsset* asset : assets) {
    const ScriptWord& file = *asset->block->file;
    if (!isFineAfterPrefix(asset->name)) {
      findings.add("define-invalid", file.offset,
                   fmt::format("{}: its define, {}, isn't a C identifier", file.text,
                               names.define(asset->name)),
                   betterFileName(file.text));
    }
  }
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

void checkDuplicates(const BankNames& names, const StoredAssets& assets, Findings& findings) {
  auto owners = ownDefines(names);
  for (const CheckedAsset* asset : assets) {
    const ScriptWord& file = *asset->block->file;
    const auto [owner, isNew] = owners.emplace(names.define(asset->name), file.text);
    if (!isNew) {
      findings.add("define-duplicate", file.offset,
                   fmt::format("{}: its define, {}, is that of {} already", file.text, owner->first,
                               owner->second),
                   "Rename the file");
    }
  }
}

}  // namespace

void checkDefines(const BankNames& names, const StoredAssets& assets, Findings& findings) {
  if (names.word != nullptr) {
    checkGuardLength(names, findings);
    checkPrefixAndGuard(names, findings);
  }
  checkIdentifiers(names, assets, findings);
  checkDuplicates(names, assets, findings);
}

}  // namespace tavrel::kit
