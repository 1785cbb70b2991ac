// What a bank would make of a file: a block is made for it and checked.
#include <fmt/format.h>

#include "compiler/wave_rules.h"
#include "kit/check/asset_check.h"
#include "kit/check/fix_command.h"
#include "kit/check/report_formats.h"
#include "kit/check/script_keywords.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/display_text.h"
#include "kit/show/file_view.h"
#include "samples/adpcm_stream.h"

namespace tavrel::kit {

namespace {

/// Returns the block that a script would have for the file, but without its end: a finished block
/// must state a rate, and that of a sound that can't be read isn't known.
ScriptBlock blockFor(const std::string& name, const FileView& view) {
  ScriptBlock block{.row = findStatement(view.keyword), .keyword = {view.keyword}};
  block.file = ScriptWord{name};
  for (const auto& [keyword, value] : view.options) {
    ScriptOption option{.row = findOption(*block.row, keyword), .keyword = {keyword}};
    option.value = ScriptWord{value};
    block.options.push_back(std::move(option));
  }
  return block;
}

std::string statementText(const FileView& view) {
  std::string text = view.keyword;
  for (std::size_t i = 0; i < view.options.size(); ++i) {
    const auto& [keyword, value] = view.options[i];
    text += fmt::format(" {} {} {}", i == 0 ? "with" : "and", keyword, value);
  }
  return text;
}

/// Returns what the bank would hold as ADPCM, if the sound can be compressed.
std::string adpcmText(const CheckedAsset& asset, const FileView& view) {
  return isCompressed(view.bits, view.loops, true)
             ? fmt::format("; {} bytes with Adpcm 1",
                           adpcmStreamSize(static_cast<std::uint32_t>(asset.size)))
             : "";
}

std::string storedText(const CheckedAsset& asset, const FileView& view) {
  if (!asset.isStored) {
    return fmt::format("nothing, {} leaves the file out", view.keyword);
  }
  switch (asset.block->row->kind) {
    case kindWave:
      return fmt::format("a wave, {}, by {}{}", countText(asset.size, "byte"), statementText(view),
                         adpcmText(asset, view));
    case kindMidi:
      return fmt::format("a sequence, {}, by {}", countText(asset.size, "byte"), view.keyword);
    default:
      return fmt::format("{} as {}, by {} or another statement of opaque files",
                         countText(asset.size, "byte"), asset.size == 1 ? "it is" : "they are",
                         view.keyword);
  }
}

std::string problemText(const Diagnostic& problem) {
  return fmt::format(
      "  {}: {} [{}]\n{}", severityName(problem.code->severity), displayText(problem.message),
      problem.code->name,
      problem.hint.empty() ? "" : fmt::format("    {}\n", displayText(problem.hint)));
}

/// A sound or another file that must be converted before a bank can hold what it means.
BankView foreignView(const ShownFile& file) {
  return {
      .text = fmt::format("in a bank: nothing, no statement reads {}\n    {}\n", file.kind().name,
                          displayText(convertCommand(file.name(), file.kind()))),
      .isWhole = false};
}

}  // namespace

BankView bankView(const ShownFile& file, const FileView& view) {
  if (view.keyword.empty()) {
    return foreignView(file);
  }
  const CapturedConsole silence;
  const ScriptBlock block = blockFor(file.name(), view);
  FolderNames folders;
  Findings findings;
  const CheckedAsset asset = checkAsset(block, folders, findings);
  BankView bank{.text = fmt::format("in a bank: {}\n", storedText(asset, view))};
  for (const Diagnostic& problem : findings.sorted()) {
    bank.text += problemText(problem);
    bank.isWhole = bank.isWhole && problem.code->severity != Severity::error;
  }
  return bank;
}

}  // namespace tavrel::kit
