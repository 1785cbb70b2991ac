// Where the script of an extraction goes, and how it names the bank and the extracted files.
#pragma once

#include <string>

#include "kit/bank/named_bank.h"
#include "kit/extract/extraction_plan.h"

namespace tavrel::kit {

struct ScriptPlace {
  std::string path;          ///< of the script, as the host opens it
  std::string folder{};      ///< of the files as the script names it; ends with a backslash if any
  std::string bankName{};    ///< after BankFileName
  std::string prefix{};      ///< of the defines
  bool isOwnPrefix = false;  ///< the bank's name makes it, without HeaderPrefix
};

/// Returns the place of a script. Throws Failure if a script there can't name the files or the
/// bank, can't be written, or would replace the bank when it is packed.
ScriptPlace scriptPlace(const NamedBank& bank, const ExtractionRequest& request,
                        const std::string& path);

/// Returns the text of the script before its blocks.
std::string scriptStart(const ScriptPlace& place);

}  // namespace tavrel::kit
