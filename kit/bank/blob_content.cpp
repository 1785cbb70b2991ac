#include "kit/bank/blob_content.h"

#include <algorithm>
#include <random>

#include "foundation/byte_order.h"

namespace tavrel::kit {

namespace {

constexpr std::uint32_t kPieceSize =
    256 * 1024;  // a multiple of the 4 bytes that are hashed at once

/// Calls `visit(position, size)` for each piece of `size` bytes until it returns false. Returns
/// false if that happened.
template <typename Visit>
bool forEachPiece(std::uint32_t size, const Visit& visit) {
  for (std::uint32_t position = 0; position < size;) {
    const std::uint32_t piece = std::min(kPieceSize, size - position);
    if (!visit(position, piece)) {
      return false;
    }
    position += piece;
  }
  return true;
}

/// Adds bytes to a hash of the FNV-1a kind that takes four bytes at a time.
std::uint64_t addToHash(std::uint64_t hash, const std::uint8_t* bytes, std::uint32_t size) {
  constexpr std::uint64_t kPrime = 0x100000001B3;
  constexpr std::uint32_t kStep = 4;
  std::uint32_t position = 0;
  for (; size - position >= kStep; position += kStep) {
    hash = (hash ^ loadLittle32(bytes + position)) * kPrime;
  }
  for (; position < size; ++position) {
    hash = (hash ^ bytes[position]) * kPrime;
  }
  return hash;
}

}  // namespace

bool equalBlobs(BankFile& firstBank, const tavrel_asset& first, BankFile& secondBank,
                const tavrel_asset& second) {
  return first.size == second.size &&
         forEachPiece(first.size, [&](std::uint32_t position, std::uint32_t size) {
           const ByteBlock firstPiece = firstBank.read(first.offset + position, size);
           const ByteBlock secondPiece = secondBank.read(second.offset + position, size);
           return std::equal(firstPiece.get(), firstPiece.get() + size, secondPiece.get());
         });
}

bool holds(BankFile& bank, const tavrel_asset& asset, const std::uint8_t* bytes) {
  return forEachPiece(asset.size, [&](std::uint32_t position, std::uint32_t size) {
    const ByteBlock piece = bank.read(asset.offset + position, size);
    return std::equal(piece.get(), piece.get() + size, bytes + position);
  });
}

std::uint64_t blobHash(BankFile& bank, const tavrel_asset& asset) {
  static const std::uint64_t kStart =
      std::uint64_t{std::random_device()()} << 32U | std::random_device()();
  std::uint64_t hash = kStart;
  forEachPiece(asset.size, [&](std::uint32_t position, std::uint32_t size) {
    hash = addToHash(hash, bank.read(asset.offset + position, size).get(), size);
    return true;
  });
  return hash;
}

}  // namespace tavrel::kit
