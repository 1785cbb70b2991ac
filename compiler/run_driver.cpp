#include "compiler/run_driver.h"

#include <array>
#include <cstdio>

#include "compiler/bank_script.h"
#include "foundation/console.h"
#include "foundation/text_utilities.h"
#include "platform/console_input.h"

namespace tavrel {

namespace {

const char* const kRule =
    "-------------------------------------------------------------------------------";

struct ArgumentKeyword {
  const char* keyword;
  void (*apply)(BankScript& script, const char* value);
};

// In the order in which an item is tested.
constexpr std::array<ArgumentKeyword, 4> kKeywords{{
    {"bankPath", [](BankScript& script, const char* value) { script.bankFileName.setPath(value); }},
    {"scriptPath", [](BankScript& script, const char* value) { script.fileName.setPath(value); }},
    {"headerPath",
     [](BankScript& script, const char* value) { script.headerFileName.setPath(value); }},
    {"HeaderPrefix", [](BankScript& script, const char* value) { script.setHeaderPrefix(value); }},
}};

struct Phase {
  bool (BankScript::*run)();
  FileName BankScript::*file;  // what it reads or writes
  const char* failure;
};

constexpr std::array<Phase, 3> kPhases{{
    {&BankScript::parseScript, &BankScript::fileName, kParseFailure},
    {&BankScript::writeBank, &BankScript::bankFileName, kBankFailure},
    {&BankScript::writeHeader, &BankScript::headerFileName, kHeaderFailure},
}};

void printTitle(std::FILE* stream) {
  printLine(stream, kRule);
  printLine(stream, "Tavrel Audio Packager");
  printLine(stream, "Revision 1.82 7/22/1999 5:36 pm");
}

void printUsage() {
  printTitle(stderr);
  printLine(stderr, kRule);
  printLine(stderr);
  printLine(stderr, "Error: Incorrect command line arguments...");
  printLine(stderr,
            "Usage: tavrel scriptFileName [bankPath bankOutputPathWithSlashOnEnd] [scriptPath "
            "scriptPathWithSlashOnEnd] [headerPath headerPathWithSlashOnEnd] [HeaderPrefix "
            "theHeaderPrefix]");
}

void printBanner(BankScript& script) {
  printTitle(stdout);
  printLine(stdout);
  printLine(stdout, "Script File:\t", script.fileName.getNameAndPath());
  printLine(stdout, "Header Path:\t", textOrEmpty(script.headerFileName.path));
  printLine(stdout, "Bank Path:\t", textOrEmpty(script.bankFileName.path));
  printLine(stdout, kRule);
}

/// Applies the keywords of the argument list. Every item is tested, the program's name and the
/// script's too. The value of one keyword is itself tested for the keywords later in the table.
void applyKeywords(BankScript& script, const char* const* arguments) {
  for (const char* const* item = arguments; *item != nullptr; ++item) {
    for (const ArgumentKeyword& row : kKeywords) {
      if (!equalsIgnoringCase(*item, row.keyword)) {
        continue;
      }
      ++item;
      if (*item == nullptr) {
        return;
      }
      row.apply(script, *item);
    }
  }
}

/// Returns true if memory ran out while the path or a text made from the name was built: the rest
/// would name a different file. Without a name no file can be opened anyway.
bool isIncomplete(const FileName& file) { return file.name && file.error != 0; }

bool succeeds(BankScript& script, const Phase& phase) {
  return !isIncomplete(script.*phase.file) && (script.*phase.run)();
}

}  // namespace

int runTavrel(int argumentCount, const char* const* arguments) {
  if (argumentCount < 2) {
    printUsage();
    return 1;
  }
  BankScript script(arguments[1]);
  applyKeywords(script, arguments);
  script.preferencesFileName.setName(arguments[0]);
  script.preferencesFileName.changeExtension("rsp");
  printBanner(script);
  for (const Phase& phase : kPhases) {
    if (!succeeds(script, phase)) {
      printLine(stderr, phase.failure);
      takeOneCharacter();  // keeps a console window open so that the user can read the messages
      return 1;
    }
  }
  printLine(stdout, "Done!");
  return 0;
}

}  // namespace tavrel
