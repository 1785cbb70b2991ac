#include "kit/verify/verify_json.h"

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

Json verdictsAsJson(const Subject& subject, const std::vector<Verdict>& verdicts) {
  Json findings = Json::array();
  for (const Verdict& verdict : verdicts) {
    for (const Finding& finding : verdict.findings) {
      findings.push_back({{"code", verdict.check->code},
                          {"id", finding.id ? Json(*finding.id) : Json(nullptr)},
                          {"message", fullMessage(subject.bank, finding)}});
    }
  }
  return {{"format", 1}, {"ok", isFine(verdicts)}, {"findings", std::move(findings)}};
}

}  // namespace tavrel::kit
