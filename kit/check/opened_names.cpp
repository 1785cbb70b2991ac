#include "kit/check/opened_names.h"

#include <set>

#include "compiler/wave_rules.h"
#include "kit/check/loaded_script.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/required_text.h"
#include "kit/frame/source_file.h"
#include "kit/frame/split_name.h"
#include "platform/host_path.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

std::string openedName(const ScriptBlock& block) {
  const std::string& written = block.file->text;
  const bool isAiff = isAiffExtension(splitName(written).extension.c_str());
  const bool isReadAsWave = block.row->kind == kindWave && !isAiff;
  return isReadAsWave ? requiredText(WaveFile(written.c_str()).openedName()) : written;
}

ScriptModel modelOf(const std::string& scriptPath) {
  const CapturedConsole silence;
  LoadedScript script(readFile(scriptPath));
  Findings ignored;
  return readScript(script, ignored);
}

std::vector<std::string> openedNames(const ScriptModel& script) {
  std::vector<std::string> names;
  std::set<std::string> listed;
  for (const ScriptBlock& block : script.blocks) {
    if (!block.file || block.file->text.empty()) {
      continue;
    }
    std::string name = hostPath(openedName(block).c_str());
    if (listed.insert(name).second) {
      names.push_back(std::move(name));
    }
  }
  return names;
}

}  // namespace tavrel::kit
