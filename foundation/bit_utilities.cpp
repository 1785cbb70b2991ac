#include "foundation/bit_utilities.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "foundation/console.h"

namespace tavrel {

namespace {

template <std::size_t width>
void printDigits(std::uint32_t value) {
  std::array<char, width> digits{};
  for (std::size_t i = 0; i < width; ++i) {
    digits[width - 1 - i] = ((value >> i) & 1U) != 0 ? '1' : '0';
  }
  printLine(stdout, "Decimal Value: ", value,
            " Binary Value: ", std::string_view(digits.data(), digits.size()));
}

}  // namespace

void printBinary(std::uint16_t value) { printDigits<16>(value); }

void printBinary(std::uint32_t value) { printDigits<32>(value); }

}  // namespace tavrel
