// Checks of a bank's layout: that it is what the tool would write for assets of these sizes.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "compiler/bank_format.h"
#include "kit/bank/bank_layout.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

namespace {

std::uint64_t endOf(const tavrel_asset& asset) { return std::uint64_t{asset.offset} + asset.size; }

/// Returns where the blob of `id` should begin: after the table, or after the blob before it and
/// its padding. For the number of assets it is where the padding of the whole bank should begin.
std::uint64_t expectedStart(const Subject& subject, std::uint32_t id) {
  if (id == 0) {
    return tableEnd(subject.count());
  }
  const tavrel_asset& previous = subject.file().assets[id - 1];
  return previous.offset + paddedSize(previous);
}

/// Returns where the blob after that of `id` begins, or the bank ends.
std::uint64_t nextStart(const Subject& subject, std::uint32_t id) {
  const bool isLast = id + 1 == subject.count();
  return isLast ? subject.file().size : subject.file().assets[id + 1].offset;
}

std::uint64_t expectedLength(const Subject& subject) {
  return roundUp(expectedStart(subject, subject.count()), kBankAlignment);
}

/// Returns true if the bytes of the bank from `start` up to `end` are 0. There are less than 32.
bool areZero(Subject& subject, std::uint64_t start, std::uint64_t end) {
  if (start >= end) {
    return true;
  }
  const auto length = static_cast<std::uint32_t>(end - start);
  const ByteBlock bytes = subject.bank.file.read(static_cast<std::uint32_t>(start), length);
  return std::all_of(bytes.get(), bytes.get() + length,
                     [](std::uint8_t byte) { return byte == 0; });
}

void findRefusal(Subject& subject, BankFindings& findings) {
  if (subject.file().status != TAVREL_OK) {
    findings.add(
        fmt::format("the bank doesn't open: {}", tavrel_status_text(subject.file().status)));
  }
}

void findGaps(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const std::uint32_t offset = subject.file().assets[id].offset;
    const std::uint64_t expected = expectedStart(subject, id);
    if (offset != expected) {
      findings.add(id, fmt::format("its blob begins at {}, not at {}", offset, expected));
    }
    if (id + 1 == subject.count() && expectedStart(subject, id + 1) > subject.file().size) {
      findings.add(id, "the bank ends inside the padding of its blob");
    }
  }
}

void findPadding(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const tavrel_asset& asset = subject.file().assets[id];
    const std::uint64_t end = std::min(expectedStart(subject, id + 1), nextStart(subject, id));
    if (!areZero(subject, endOf(asset), end)) {
      findings.add(id, "the padding after its blob isn't zero");
    }
  }
  const std::uint64_t end = std::min<std::uint64_t>(expectedLength(subject), subject.file().size);
  if (!areZero(subject, expectedStart(subject, subject.count()), end)) {
    findings.add("the padding at the end of the bank isn't zero");
  }
}

void findExcess(Subject& subject, BankFindings& findings) {
  if (subject.file().size > expectedLength(subject)) {
    findings.add(fmt::format("the bank has {} bytes, its data and their padding need {}",
                             subject.file().size, expectedLength(subject)));
  }
}

void findUnknownTypes(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const std::uint32_t type = subject.file().assets[id].type;
    if (type < typeWave || type > typeUserAsset) {
      findings.add(id, fmt::format("there is no type {}", type));
    }
  }
}

constexpr Check kOpenCheck{"open", "the bank opens", findRefusal};

constexpr std::array<Check, 4> kBankChecks{{
    {"gap", "each blob begins where the one before it ends", findGaps},
    {"padding", "all padding is zero", findPadding},
    {"length", "the bank is no longer than its data and their padding", findExcess},
    {"type", "all types are known", findUnknownTypes},
}};

}  // namespace

const Check& openCheck() { return kOpenCheck; }

std::span<const Check> bankChecks() { return kBankChecks; }

}  // namespace tavrel::kit
