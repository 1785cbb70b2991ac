#include "kit/pack/packed_script.h"

#include <fmt/format.h>

#include <algorithm>
#include <new>
#include <sstream>

#include "compiler/names.h"
#include "compiler/run_driver.h"
#include "kit/check/check_script.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/display_text.h"
#include "kit/frame/source_file.h"

namespace tavrel::kit {

namespace {

[[noreturn]] void fail(const RunPlan& plan, const std::string& printed, const char* lastLine) {
  std::istringstream lines(printed + lastLine);
  std::string messages;
  for (std::string line; std::getline(lines, line);) {
    messages += displayText(line) + '\n';
  }
  throw PackFailure(fmt::format("tavrel can't pack {}", plan.scriptPath), messages);
}

/// Throws Failure if a block was left out although nothing is wrong with it: a read has failed or
/// memory has run out.
void requireCause(const RunPlan& plan) {
  if (checkScript(plan, {}).count(Severity::error) == 0) {
    throw Failure(fmt::format("can't read every file of {}", plan.scriptPath));
  }
}

/// Returns a record as it is in the bank, with the bytes of its asset.
tavrel_asset recordOf(const AssetEntry& entry, const AssetData& data) {
  tavrel_asset record{.type = entry.type,
                      .offset = entry.offset,
                      .size = entry.size,
                      .bytes = data.payload.get(),
                      .parameters = {}};
  std::copy(entry.parameter.begin(), entry.parameter.end(), std::begin(record.parameters));
  return record;
}

}  // namespace

PackedScript::PackedScript(const RunPlan& plan)
    : script_(readFile(plan.scriptPath), plan.scriptPath.c_str()) {
  const CapturedConsole console;
  prepare(plan);
  const bool isParsed = script_.parseStatements();
  if (script_.bankFileName.error != 0 || script_.headerFileName.error != 0) {
    throw std::bad_alloc();
  }
  if (!isParsed) {
    fail(plan, console.text, kParseFailure);
  }
  if (!script_.checkBankLength()) {
    fail(plan, console.text, kBankFailure);
  }
  if (!makeHeader(static_cast<std::uint32_t>(script_.layOut()))) {
    fail(plan, console.text, kHeaderFailure);
  }
  if (script_.hasDroppedBlock()) {
    requireCause(plan);
  }
  takeAssets();
}

void PackedScript::prepare(const RunPlan& plan) {
  script_.setFile(plan.scriptPath.c_str());
  script_.setHeaderPrefix(plan.prefix.c_str());
  script_.bankFileName.setPath(plan.bankDirectory.c_str());
  script_.headerFileName.setPath(plan.headerDirectory.c_str());
}

bool PackedScript::makeHeader(std::uint32_t bankLength) {
  std::stringbuf text(std::ios::out);
  TextOutputFile header(script_.headerFileName.getNameAndPath());
  header.useBuffer(text);
  const bool isWritten = script_.writeHeaderTo(header, bankLength);
  headerText_ = text.str();
  return isWritten;
}

/// Finds the name of each asset's file after its keyword in the script.
void PackedScript::takeAssets() {
  script_.rewind();
  for (std::size_t id = 0; id < script_.assets.size(); ++id) {
    const AssetData& data = *script_.assets[id];
    while (script_.readToken() && script_.tokenStart() != data.scriptOffset) {
    }
    script_.readToken();
    assets_.push_back({.define = defineName(script_.prefix(), data.name.data()),
                       .file = script_.token.data(),
                       .record = recordOf(*script_.entries[id], data),
                       .scriptOffset = data.scriptOffset,
                       .isCompressed = data.compressed});
  }
}

bool PackedScript::writeBank(std::streambuf& target) {
  const CapturedConsole silence;
  DiskFile bank(modeWrite, script_.bankFileName.getNameAndPath(), "");
  bank.useBuffer(target);
  return script_.writeBankTo(bank);
}

}  // namespace tavrel::kit
