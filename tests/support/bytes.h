// Builds binary inputs and expected outputs readably: numbers by width and byte order, texts, fill.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrel::test {

/// A growing string of bytes. Each operation appends and gives the object back for the next one.
class Bytes {
 public:
  Bytes& u8(std::uint32_t value) { return bigEndian(value, 1); }
  Bytes& be16(std::uint32_t value) { return bigEndian(value, 2); }
  Bytes& be32(std::uint32_t value) { return bigEndian(value, 4); }
  Bytes& le16(std::uint32_t value) { return littleEndian(value, 2); }
  Bytes& le32(std::uint32_t value) { return littleEndian(value, 4); }
  Bytes& text(std::string_view value) {
    bytes_ += value;
    return *this;
  }
  Bytes& fill(std::size_t count, std::uint8_t value = 0) {
    bytes_.append(count, static_cast<char>(value));
    return *this;
  }

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] const std::string& str() const { return bytes_; }
  operator const std::string&() const { return bytes_; }  // NOLINT(google-explicit-constructor)
  operator std::string_view() const { return bytes_; }    // NOLINT(google-explicit-constructor)

 private:
  Bytes& bigEndian(std::uint32_t value, int width) {
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
      bytes_ += static_cast<char>(value >> shift);
    }
    return *this;
  }
  Bytes& littleEndian(std::uint32_t value, int width) {
    for (int shift = 0; shift < 8 * width; shift += 8) {
      bytes_ += static_cast<char>(value >> shift);
    }
    return *this;
  }

  std::string bytes_;
};

}  // namespace tavrel::test
