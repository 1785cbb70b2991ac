#include "kit/extract/block_trial.h"

#include <algorithm>
#include <new>
#include <utility>

#include "compiler/bank_script.h"
#include "kit/bank/blob_content.h"
#include "kit/check/loaded_script.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/scoped_file_cache.h"

namespace tavrel::kit {

namespace {

bool isSameRecord(const AssetEntry& entry, const tavrel_asset& asset) {
  return entry.type == asset.type && entry.size == asset.size &&
         std::equal(entry.parameter.begin(), entry.parameter.end(), asset.parameters);
}

}  // namespace

Likeness tryBlock(const std::string& block, const std::string& openedName, FileCache::Entry content,
                  BankFile& bank, const tavrel_asset& asset) {
  ScopedFileCache cache;
  cache.add(openedName, std::move(content));
  const CapturedConsole silence;
  LoadedText<BankScript> script(block, "");
  script.parseStatements();
  if (script.entries.empty()) {
    throw std::bad_alloc();  // there is nothing else at which the tool can fail
  }
  if (!isSameRecord(*script.entries.front(), asset)) {
    return Likeness::otherRecord;
  }
  return holds(bank, asset, script.assets.front()->payload.get()) ? Likeness::same
                                                                  : Likeness::otherBytes;
}

}  // namespace tavrel::kit
