#include "kit/extract/script_place.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "compiler/bank_script.h"
#include "compiler/names.h"
#include "compiler/script_language.h"
#include "foundation/text_utilities.h"
#include "kit/check/run_file.h"
#include "kit/extract/script_names.h"
#include "kit/extract/targets.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/shell_word.h"
#include "kit/frame/split_name.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestFolder = TokenFile::kLongestToken - 256;  // leaves room for a name

fs::path folderOf(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

fs::path wholePath(const fs::path& path) {
  std::error_code error;
  fs::path whole = fs::absolute(path, error);
  if (!error) {
    whole = fs::weakly_canonical(whole, error);
  }
  if (error) {
    throw Failure(fmt::format("can't find {}: {}", path.string(), error.message()));
  }
  // An empty last part, after a separator, would be one more folder.
  return whole.has_filename() ? whole : whole.parent_path();
}

/// Returns true if scripts name a file called so on every host. Backslashes separate folders.
bool isScriptPath(const std::string& path) {
  return isScriptWord(path) && path.find('\\') == std::string::npos;
}

/// Returns the folder of the files as it is named in a script in the folder `from`.
std::string folderInScript(const fs::path& from, const fs::path& files) {
  const fs::path relative = files.lexically_relative(from);
  std::string folder = relative.generic_string();
  if (folder == ".") {
    return "";
  }
  if (!isScriptPath(folder) || folder.size() > kLongestFolder) {
    throw Failure(
        fmt::format("a script in {} can't name files in {}: use folders without spaces, "
                    "semicolons and backslashes",
                    from.string(), files.string()));
  }
  std::replace(folder.begin(), folder.end(), '/', '\\');
  return folder + '\\';
}

std::string bankNameInScript(const std::string& bankPath) {
  std::string name = fs::path(hostPath(bankPath.c_str())).filename().string();
  Guard guard{};
  if (!isScriptPath(name) || !guardName(splitName(headerName(bankPath)).stem, guard)) {
    throw Failure(fmt::format("no script can name a bank {}", name));
  }
  return name;
}

/// Returns the prefix that the tool takes from a bank's name.
std::string ownPrefix(const std::string& bankName) {
  BankScript script("");
  script.setHeaderPrefix(splitName(bankName).stem.c_str());
  return script.prefix();
}

void choosePrefix(const NamedBank& bank, ScriptPlace& place) {
  place.prefix = ownPrefix(place.bankName);
  place.isOwnPrefix = true;
  if (bank.header && !bank.header->prefix.empty() &&
      bank.header->prefix.size() <= BankScript::kLongestPrefix) {
    place.isOwnPrefix = defineName(place.prefix, "") == defineName(bank.header->prefix, "");
    place.prefix = bank.header->prefix;
  }
}

}  // namespace

ScriptPlace scriptPlace(const NamedBank& bank, const ExtractionRequest& request,
                        const std::string& path) {
  ScriptPlace place{.path = path};
  place.bankName = bankNameInScript(bank.file.path);
  const fs::path folder = wholePath(folderOf(path));
  const fs::path files = wholePath(request.folder.empty() ? "." : request.folder);
  place.folder = folderInScript(folder, files);
  if (wholePath(path) == files) {
    throw Failure(fmt::format("can't write {}: it is the folder of the files", path));
  }
  std::error_code ignored;
  if (folder != files && !fs::is_directory(folder, ignored)) {
    throw Failure(fmt::format("can't write {}: there is no such folder", path));
  }
  if (isSameFile((folder / place.bankName).string(), hostPath(bank.file.path.c_str()))) {
    throw Failure(fmt::format("packing {} would replace {}: put the script into another folder",
                              path, bank.file.path));
  }
  const std::string scriptName = fs::path(path).filename().string();
  for (const std::string& output : {place.bankName, headerName(place.bankName)}) {
    if (equalsIgnoringCase(scriptName.c_str(), output.c_str())) {
      throw Failure(fmt::format("packing would replace {} by {}: give the script another name",
                                path, output));
    }
  }
  choosePrefix(bank, place);
  return place;
}

std::string scriptStart(const ScriptPlace& place) {
  return fmt::format(
      "; Packs {} from its extracted files. Run tavrel in the folder of this script:\n"
      ";   tavrel {}{}\n\n{} {}\n",
      displayText(place.bankName), shellWord(fs::path(place.path).filename().string()),
      place.isOwnPrefix ? "" : " HeaderPrefix " + shellWord(place.prefix), kBankFileName,
      place.bankName);
}

}  // namespace tavrel::kit
