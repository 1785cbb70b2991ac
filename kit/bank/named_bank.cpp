#include "kit/bank/named_bank.h"

#include <filesystem>
#include <new>
#include <utility>

#include "compiler/names.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns the header next to the bank if it is one that the tool has made. Throws Failure if there
/// is a file that can't be read.
std::optional<BankHeader> findHeader(const std::string& path) {
  if (kindUnder(path) != PathKind::file) {
    return std::nullopt;
  }
  BankHeader header = parseHeader(readFile(path));
  return header.isGenerated ? std::optional(std::move(header)) : std::nullopt;
}

}  // namespace

std::string headerName(const std::string& bankPath) {
  const std::filesystem::path bank(hostPath(bankPath.c_str()));
  FileName header;
  nameHeader(header, bank.filename().string().c_str());
  if (!header.name) {
    throw std::bad_alloc();
  }
  return header.name.get();
}

NamedBank withHeader(BankFile file, const HeaderChoice& choice) {
  NamedBank bank{.file = std::move(file), .header = {}, .headerPath = {}, .defines = {}};
  if (choice.path) {
    bank.headerPath = *choice.path;
    bank.header = parseHeader(readFile(*choice.path));
  } else if (!choice.none) {
    const std::filesystem::path path(hostPath(bank.file.path.c_str()));
    const std::filesystem::path directory =
        choice.directory.empty() ? path.parent_path()
                                 : std::filesystem::path(hostPath(choice.directory.c_str()));
    bank.headerPath = (directory / headerName(bank.file.path)).string();
    bank.header = findHeader(bank.headerPath);
  }
  const auto count = static_cast<std::uint32_t>(bank.assets().size());
  bank.defines = bank.header ? bank.header->definesById(count) : std::vector<std::string>(count);
  return bank;
}

const std::vector<CommandOption>& bankOptions() {
  static const std::vector<CommandOption> kOptions{
      {.names = "--header",
       .value = "FILE",
       .help = "Read the defines from FILE instead of the header next to the bank",
       .completion = Completion::file},
      {.names = "--no-header", .help = "Use no header: call the assets by their ids"},
  };
  return kOptions;
}

HeaderChoice headerChoice(const Arguments& arguments) {
  return {.path = arguments.value("--header"),
          .none = arguments.has("--no-header"),
          .directory = arguments.value("--header-dir").value_or("")};
}

NamedBank openNamedBank(const Arguments& arguments) {
  return withHeader(openBank(arguments.operands.front()), headerChoice(arguments));
}

}  // namespace tavrel::kit
