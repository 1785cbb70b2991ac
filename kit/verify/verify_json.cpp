#include "kit/verify/verify_json.h"

#include <utility>

namespace tavrel::kit {

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
