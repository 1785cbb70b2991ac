#include "kit/bank/bank_file.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <new>

#include "kit/frame/failure.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

constexpr std::array<const char*, 7> kTypeNames{
    "unknown", "wave", "sequence", "toneBank", "fxProgramBank", "fxOutputBank", "userAsset"};

/// Returns how many bytes at the start of the file `tavrel_bank_open_table` needs; 0 if the file is
/// too short for a count or its count is refused.
std::uint32_t tableSize(DiskFile& file, std::uint64_t fileSize) {
  std::array<std::uint8_t, TAVREL_COUNT_SIZE> count{};
  if (fileSize < count.size() || !file.read(count.data(), TAVREL_COUNT_SIZE)) {
    return 0;
  }
  const std::uint32_t size = tavrel_bank_table_size(count.data());
  return size <= fileSize ? size : std::uint32_t{TAVREL_COUNT_SIZE};
}

}  // namespace

BankFile::BankFile(const std::string& bankPath)
    : path(bankPath), file_(modeRead, bankPath.c_str(), "") {
  requireRegularFile(path);
  std::error_code error;
  const std::uint64_t fileSize = std::filesystem::file_size(hostPath(path.c_str()), error);
  if (error || !file_.open()) {
    failToRead(path);
  }
  std::uint32_t held = tableSize(file_, fileSize);
  held = held != 0 ? held : static_cast<std::uint32_t>(std::min<std::uint64_t>(fileSize, 4));
  const ByteBlock table = read(0, held);
  tavrel_bank bank{};
  status = tavrel_bank_open_table(&bank, table.get(), held, fileSize);
  size = bank.size;
  assets.resize(bank.count);
  for (std::uint32_t id = 0; id < bank.count; ++id) {
    tavrel_bank_asset(&bank, id, &assets[id]);
    assets[id].bytes = nullptr;  // an empty blob may lie at the end of the table, which goes
  }
}

ByteBlock BankFile::read(std::uint32_t offset, std::uint32_t length) {
  ByteBlock bytes = newBytes(length);
  if (!bytes) {
    throw std::bad_alloc();
  }
  if (!file_.seek(offset) || (length > 0 && !file_.read(bytes.get(), length))) {
    throw Failure(fmt::format("can't read {} bytes at {} of {}", length, offset, path));
  }
  return bytes;
}

BankFile openBank(const std::string& path) {
  BankFile bank(path);
  if (bank.status != TAVREL_OK) {
    throw Failure(fmt::format("{} is not a bank: {}", path, tavrel_status_text(bank.status)));
  }
  return bank;
}

const char* typeName(std::uint32_t type) { return kTypeNames[type < kTypeNames.size() ? type : 0]; }

}  // namespace tavrel::kit
