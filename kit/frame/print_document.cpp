// Prints a document that is made from the tables of commands and codes: print_document
// manual|codes|bash|zsh.
#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "kit/frame/manual.h"
#include "platform/standard_streams.h"

namespace {

struct Document {
  std::string_view name;
  std::string (*text)();
};

constexpr std::array<Document, 4> kDocuments{{
    {"manual", tavrel::kit::manualPage},
    {"codes", tavrel::kit::pageOfCodes},
    {"bash", tavrel::kit::bashCompletion},
    {"zsh", tavrel::kit::zshCompletion},
}};

}  // namespace

int main(int argumentCount, char** arguments) {
  tavrel::prepareStandardStreams();
  const std::string_view wanted = argumentCount == 2 ? arguments[1] : "";
  for (const Document& document : kDocuments) {
    if (document.name == wanted) {
      const bool isPrinted =
          std::fputs(document.text().c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
      return isPrinted ? 0 : 1;
    }
  }
  std::fputs("usage: print_document manual|codes|bash|zsh\n", stderr);
  return 1;
}
