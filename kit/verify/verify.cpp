#include "kit/verify/verify.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

/// Longer defines, which the tool never writes, are left out of messages: each finding about an
/// asset repeats its define, and a hostile header can cause any number of them.
constexpr std::size_t kLongestDefine = 200;

}  // namespace

bool isFine(const std::vector<Verdict>& verdicts) {
  return std::all_of(verdicts.begin(), verdicts.end(),
                     [](const Verdict& verdict) { return verdict.findings.empty(); });
}

std::string fullMessage(const NamedBank& bank, const Finding& finding) {
  if (!finding.id || *finding.id >= bank.assets().size()) {
    return finding.message;
  }
  const std::string& define = bank.defines[*finding.id];
  const bool isShown = !define.empty() && define.size() <= kLongestDefine;
  const std::string name = isShown ? fmt::format(" ({})", displayText(define)) : "";
  return fmt::format("asset {}{}: {}", *finding.id, name, finding.message);
}

std::vector<Verdict> verify(Subject& subject) {
  std::vector<Verdict> verdicts;
  const auto run = [&subject, &verdicts](const Check& check) {
    check.find(subject, verdicts.emplace_back(Verdict{&check, {}}).findings);
  };
  run(openCheck());
  if (!isFine(verdicts)) {
    return verdicts;
  }
  for (const auto group : {bankChecks(), recordChecks(), blobChecks()}) {
    std::for_each(group.begin(), group.end(), run);
  }
  if (subject.bank.header) {
    std::for_each(headerChecks().begin(), headerChecks().end(), run);
  }
  if (subject.script) {
    std::for_each(scriptChecks().begin(), scriptChecks().end(), run);
  }
  return verdicts;
}

}  // namespace tavrel::kit
