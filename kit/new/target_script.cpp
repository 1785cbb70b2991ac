#include "kit/new/target_script.h"

#include <fmt/format.h>

#include "kit/check/loaded_script.h"
#include "kit/check/source_text.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kLineEnds = "\r\n";

bool endsLine(std::string_view text) {
  return text.empty() || kLineEnds.find(text.back()) != std::string_view::npos;
}

/// Throws Failure for the first error among the problems.
void requireNoErrors(const std::string& name, const std::string& text, const Findings& findings) {
  for (const Diagnostic& problem : findings.sorted()) {
    if (problem.code->severity == Severity::error) {
      const Position position = SourceText(text).positionOf(problem.offset);
      throw Failure(fmt::format("can't add to {}: line {}, column {}: {}", name, position.line,
                                position.column, problem.message),
                    "Correct the script first; tavkit check lists its problems.\n");
    }
  }
}

}  // namespace

TargetScript::TargetScript(const std::string& name, std::string text)
    : text_(std::move(text)), lineEnd_(lineEndOf(text_)) {
  if (!endsLine(text_)) {
    text_ += lineEnd_;
  }
  LoadedScript script(text_);
  Findings findings;
  model_ = readScript(script, findings);
  requireNoErrors(name, text_, findings);
}

/// Returns the start of the line of ScriptEnd, or its offset if another word is on that line.
std::size_t TargetScript::insertionPoint() const {
  const std::size_t end = model_.scriptEnd.value_or(text_.size());
  const std::size_t last = end == 0 ? std::string::npos : text_.find_last_not_of(" \t", end - 1);
  const std::size_t start = last == std::string::npos ? 0 : last + 1;
  return endsLine(std::string_view(text_).substr(0, start)) ? start : end;
}

std::string TargetScript::with(const std::deque<NewBlock>& entries) const {
  std::string added;
  for (const NewBlock& entry : entries) {
    const std::string text = entry.isListed() ? blockOf(entry) : commentOf(entry);
    added += added.empty() || text.empty() ? text : lineEnd_ + text;
  }
  if (added.empty()) {
    return text_;
  }
  const std::size_t point = insertionPoint();
  std::string result = text_.substr(0, point);
  result += endsLine(result) ? "" : lineEnd_;
  result += result.empty() || result.ends_with(lineEnd_ + lineEnd_) ? "" : lineEnd_;
  return result + added + (model_.scriptEnd ? lineEnd_ + text_.substr(point) : "");
}

std::string TargetScript::blockOf(const NewBlock& entry) const {
  const ScriptBlock& block = entry.block;
  std::string text = fmt::format("{} {}{}", block.keyword.text, block.file->text, lineEnd_);
  for (const ScriptOption& option : block.options) {
    text += fmt::format("    {} {}{}", option.keyword.text, option.value->text, lineEnd_);
  }
  return text + kAssetEnd + lineEnd_;
}

std::string TargetScript::commentOf(const NewBlock& entry) const {
  std::string text = fmt::format("; Not listed: {}: ", displayText(entry.file.name));
  if (text_.find(text) != std::string::npos) {
    return "";
  }
  text += displayText(entry.reason) + lineEnd_;
  return entry.fix.empty() ? text
                           : fmt::format("{};   {}{}", text, displayText(entry.fix), lineEnd_);
}

}  // namespace tavrel::kit
