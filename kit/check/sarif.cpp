// The problems of scripts in the Static Analysis Results Interchange Format (SARIF) 2.1.0, an OASIS
// standard, which code scanning services read.
#include <fmt/format.h>

#include "kit/check/report_formats.h"
#include "kit/frame/ascii.h"
#include "kit/frame/display_text.h"
#include "kit/frame/json.h"
#include "kit/frame/version.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

constexpr const char* kSchema = "https://json.schemastore.org/sarif-2.1.0.json";

bool staysInUri(char c) {
  return isLetter(c) || isDigit(c) || std::string_view("-._~/").find(c) != std::string::npos;
}

/// Returns a path as a URI reference, RFC 3986.
std::string uriOf(std::string_view path) {
  std::string uri;
  for (const char c : path) {
    const char shown = c == '\\' ? '/' : c;
    uri += staysInUri(shown) ? std::string(1, shown)
                             : fmt::format("%{:02X}", static_cast<unsigned char>(shown));
  }
  return hasDrive(path) ? "file:///" + uri : uri.starts_with('/') ? "file://" + uri : uri;
}

Json ruleOf(const Code& code) {
  return {{"id", code.name},
          {"shortDescription", {{"text", code.summary}}},
          {"fullDescription", {{"text", code.cause}}},
          {"help", {{"text", code.fix}}},
          {"defaultConfiguration", {{"level", severityName(code.severity)}}}};
}

Json resultOf(const CheckedScript& script, const Diagnostic& diagnostic) {
  const Position place = script.text.positionOf(diagnostic.offset);
  std::string message = displayText(diagnostic.message);
  if (!diagnostic.hint.empty()) {
    message += ". " + displayText(diagnostic.hint);
  }
  return {{"ruleId", diagnostic.code->name},
          {"ruleIndex", diagnostic.code - codes().data()},
          {"level", severityName(diagnostic.code->severity)},
          {"message", {{"text", std::move(message)}}},
          {"locations",
           {{{"physicalLocation",
              {{"artifactLocation", {{"uri", uriOf(script.path)}}},
               {"region", {{"startLine", place.line}, {"startColumn", place.column}}}}}}}}};
}

}  // namespace

std::string problemsAsSarif(const std::vector<CheckedScript>& scripts) {
  Json rules = Json::array();
  for (const Code& code : codes()) {
    rules.push_back(ruleOf(code));
  }
  Json results = Json::array();
  for (const CheckedScript& script : scripts) {
    for (const Diagnostic& diagnostic : script.diagnostics) {
      results.push_back(resultOf(script, diagnostic));
    }
  }
  Json driver = {{"name", "tavkit"}, {"version", versionNumber()}, {"rules", std::move(rules)}};
  Json run = {{"tool", {{"driver", std::move(driver)}}},
              {"columnKind", "unicodeCodePoints"},
              {"results", std::move(results)}};
  return documentText(
      {{"$schema", kSchema}, {"version", "2.1.0"}, {"runs", Json::array({std::move(run)})}});
}

}  // namespace tavrel::kit
