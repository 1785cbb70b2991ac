// The table of everything that `tavkit check` can find: each code with its severity and what
// `tavkit explain` says of it.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tavrel::kit {

enum class Severity { error, warning };

struct Code {
  std::string_view name;  ///< "missing-file"
  Severity severity;
  std::string_view summary;  ///< what is wrong, one sentence without a full stop
  std::string_view cause;    ///< how it comes about and what the tool makes of it
  std::string_view fix;      ///< what to do
  std::string_view example;  ///< lines of a script that give it, or empty
};

/// Returns all codes, errors first.
std::span<const Code> codes();

/// Returns the row of `name`, or null.
const Code* findCode(std::string_view name);

/// Returns the row of a name from the command line. Throws Failure if there is none.
const Code& codeNamed(const std::string& name);

/// Advice for whoever doesn't know the codes.
constexpr const char* kCodesAdvice = "tavkit check --list-codes lists the codes.\n";

}  // namespace tavrel::kit
