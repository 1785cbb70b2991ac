// The checks of tavkit verify as tables: a row for each code, in the order of the report. A new
// check is a row and its function.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "kit/bank/named_bank.h"
#include "kit/verify/finding.h"
#include "kit/verify/script_comparison.h"

namespace tavrel::kit {

/// What the blob of a sequence says of itself.
struct SequenceFacts {
  bool isWhole = false;                ///< it parses to its end-of-track event
  std::int32_t division = 0;           ///< only if it is whole, like the tempo
  std::optional<std::uint32_t> tempo;  ///< in microseconds per quarter note, of the first event
};

/// What the checks judge.
struct Subject {
  NamedBank bank;
  std::map<std::uint32_t, SequenceFacts> sequences;  ///< by id
  std::unique_ptr<ScriptComparison> script;          ///< null if no script is given

  [[nodiscard]] const BankFile& file() const { return bank.file; }
  [[nodiscard]] std::uint32_t count() const {
    return static_cast<std::uint32_t>(file().assets.size());
  }
};

struct Check {
  const char* code;
  const char* fine;  ///< what holds if nothing is found
  void (*find)(Subject& subject, BankFindings& findings);
};

/// Whether the bank opens. The other checks judge only a bank that does.
const Check& openCheck();

// The groups of checks. Those of the header and of the script need one.
std::span<const Check> bankChecks();
std::span<const Check> recordChecks();
std::span<const Check> blobChecks();
std::span<const Check> headerChecks();
std::span<const Check> scriptChecks();

/// Reads the sequences of a bank, one at a time. Throws Failure if the file can't be read.
std::map<std::uint32_t, SequenceFacts> readSequences(BankFile& bank);

/// The result of a check.
struct Verdict {
  const Check* check = nullptr;
  BankFindings findings;
};

/// Runs all checks that apply to the bank.
std::vector<Verdict> verify(Subject& subject);

/// Returns true if no check has found anything.
bool isFine(const std::vector<Verdict>& verdicts);

/// Returns the message of a finding, after the asset that it is about.
std::string fullMessage(const NamedBank& bank, const Finding& finding);

}  // namespace tavrel::kit
