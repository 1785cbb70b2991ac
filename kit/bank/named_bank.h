// A bank together with its generated header, as the commands are given them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kit/bank/bank_file.h"
#include "kit/bank/bank_header.h"
#include "kit/frame/arguments.h"
#include "kit/frame/command.h"

namespace tavrel::kit {

struct NamedBank {
  BankFile file;
  std::optional<BankHeader> header;
  std::string headerPath;            ///< of `header`
  std::vector<std::string> defines;  ///< by id; empty where there is none

  [[nodiscard]] const std::vector<tavrel_asset>& assets() const { return file.assets; }
};

/// Returns the name that the tool would give to the header of a bank, without a path.
std::string headerName(const std::string& bankPath);

/// Where the header of a bank comes from.
struct HeaderChoice {
  std::optional<std::string> path{};  ///< a header that was named; it must be readable
  bool none = false;                  ///< no header
  std::string directory{};            ///< where it is looked for instead of next to the bank
};

/// Reads the header of a bank that is open. Without a choice it is the file next to the bank under
/// the name that the tool would give it; if that is missing or nothing that the tool has made,
/// there is no header. Throws Failure if a header can't be read.
NamedBank withHeader(BankFile file, const HeaderChoice& choice);

/// The options that every command with an operand BANK has.
const std::vector<CommandOption>& bankOptions();

/// Returns what the options above choose.
HeaderChoice headerChoice(const Arguments& arguments);

/// Opens the bank that is the first operand, with the header that the options choose. Throws
/// Failure if one of them can't be read or the file isn't a bank.
NamedBank openNamedBank(const Arguments& arguments);

}  // namespace tavrel::kit
