// Checks of a generated header: that it is what the tool would write for the bank. The names of the
// assets can be any.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

#include "compiler/names.h"
#include "kit/bank/bank_layout.h"
#include "kit/bank/c_identifier.h"
#include "kit/frame/display_text.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

namespace {

std::string nameOf(const OwnDefine& own, const BankHeader& header) {
  return fmt::format("{}_{}", header.prefix, own.ending);
}

/// Returns true if `name` is the prefix, a "_" and `ending`. Copies nothing: a prefix can be as
/// long as the header, and this is asked for each define.
bool isOwnName(std::string_view name, std::string_view prefix, std::string_view ending) {
  return name.size() == prefix.size() + 1 + ending.size() && name.starts_with(prefix) &&
         name[prefix.size()] == '_' && name.ends_with(ending);
}

/// Returns true if `define` has the name and the value of one of the bank's own three. Other
/// defines are those of assets.
bool repeatsOwn(const BankHeader& header, const HeaderDefine& define) {
  return std::any_of(ownDefines().begin(), ownDefines().end(), [&](const OwnDefine& own) {
    return header.*own.value == define.value && isOwnName(define.name, header.prefix, own.ending);
  });
}

/// Returns the id of a define, if it is the define of an asset.
std::optional<std::uint32_t> idOf(const BankHeader& header, const HeaderDefine& define) {
  return repeatsOwn(header, define) ? std::nullopt : defineNumber(define.value);
}

/// Returns the name of the header that the tool would write for the bank, up to its first dot.
std::string baseName(const std::string& bankPath) {
  const std::string name = headerName(bankPath);
  return name.substr(0, name.find('.'));
}

/// Returns the guard that the tool would write for the bank; empty if its name is too long for one.
std::string expectedGuard(const Subject& subject) {
  Guard guard{};
  return guardName(baseName(subject.file().path), guard) ? guard.data() : "";
}

/// Returns what the header has, for a message.
std::string shown(const std::optional<std::string>& text) {
  return text && !text->empty() ? displayText(*text) : "missing";
}

void findWrongGuard(Subject& subject, BankFindings& findings) {
  const BankHeader& header = *subject.bank.header;
  const std::string guard = expectedGuard(subject);
  if (guard.empty()) {
    findings.add("the name of the bank is too long for a guard");
    return;
  }
  for (const auto& [where, text] :
       {std::pair("#ifndef", header.guardTested), std::pair("#define", header.guardDefined),
        std::pair("#endif", header.guardEnded)}) {
    if (text != guard) {
      findings.add(
          fmt::format("the guard of the {} is {}, not {}", where, shown(text), displayText(guard)));
      return;
    }
  }
}

void findWrongSizes(Subject& subject, BankFindings& findings) {
  const BankHeader& header = *subject.bank.header;
  const std::string data = std::to_string(dataBytes(subject.file()));
  const std::string rest = std::to_string(headerBytes(subject.file()));
  if (header.dataSize != data) {
    findings.add(fmt::format("{} is {}, not {}", kDataSizeDefine, shown(header.dataSize), data));
  }
  if (header.headerSize != rest) {
    findings.add(
        fmt::format("{} is {}, not {}", kHeaderSizeDefine, shown(header.headerSize), rest));
  }
}

void findWrongFileName(Subject& subject, BankFindings& findings) {
  const auto& fileName = subject.bank.header->fileName;
  const std::string expected = '"' + baseName(subject.file().path) + kBankExtension + '"';
  if (fileName != expected) {
    findings.add(
        fmt::format("{} is {}, not {}", kFileNameDefine, shown(fileName), displayText(expected)));
  }
}

void findBadDefines(Subject& subject, BankFindings& findings) {
  const BankHeader& header = *subject.bank.header;
  const std::string guard = expectedGuard(subject);
  if (!guard.empty() && header.guardDefined == guard && !isIdentifier(guard)) {
    findings.add(fmt::format("the guard {} is no C identifier", displayText(guard)));
  }
  for (const OwnDefine& own : ownDefines()) {
    const std::string name = nameOf(own, header);
    if (header.*own.value && !isIdentifier(name)) {
      findings.add(fmt::format("{} is no C identifier", displayText(name)));
    }
  }
  for (const HeaderDefine& define : header.assets) {
    const auto id = idOf(header, define);
    if (!isIdentifier(define.name)) {
      findings.add(id, fmt::format("{} is no C identifier", displayText(define.name)));
    } else if (!id && !repeatsOwn(header, define)) {
      findings.add(fmt::format("the value of {} is no number: {}", displayText(define.name),
                               shown(define.value)));
    }
  }
}

void findDuplicates(Subject& subject, BankFindings& findings) {
  const BankHeader& header = *subject.bank.header;
  std::set<std::string> names{header.guardDefined};
  for (const OwnDefine& own : ownDefines()) {
    if (header.*own.value) {
      names.insert(nameOf(own, header));
    }
  }
  for (const HeaderDefine& define : header.assets) {
    if (!names.insert(define.name).second) {
      findings.add(idOf(header, define),
                   fmt::format("{} is there twice", displayText(define.name)));
    }
  }
}

void findMissingDefines(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    if (subject.bank.defines[id].empty()) {
      findings.add(id, "it has no define");
    }
  }
}

void findExtraDefines(Subject& subject, BankFindings& findings) {
  std::set<std::uint32_t> ids;
  const BankHeader& header = *subject.bank.header;
  for (const HeaderDefine& define : header.assets) {
    const auto id = idOf(header, define);
    if (id && *id >= subject.count()) {
      findings.add(id, fmt::format("{} is {}, but the bank has {}", displayText(define.name), *id,
                                   countText(subject.count(), "asset")));
    } else if (id && !ids.insert(*id).second) {
      findings.add(id, fmt::format("{} is one more define of it", displayText(define.name)));
    }
  }
}

constexpr std::array<Check, 7> kHeaderChecks{{
    {"guard", "the guard is that of the bank's name", findWrongGuard},
    {"sizes", "the sizes are those of the bank", findWrongSizes},
    {"file-name", "the file name is that of the bank", findWrongFileName},
    {"define", "all defines of assets are C identifiers and numbers", findBadDefines},
    {"duplicate", "no name is there twice", findDuplicates},
    {"missing-define", "all assets have a define", findMissingDefines},
    {"extra-define", "all defines belong to one asset each", findExtraDefines},
}};

}  // namespace

std::span<const Check> headerChecks() { return kHeaderChecks; }

}  // namespace tavrel::kit
