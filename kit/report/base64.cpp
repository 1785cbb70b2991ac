#include "kit/report/base64.h"

#include <algorithm>

namespace tavrel::kit {

std::string base64(const std::uint8_t* bytes, std::size_t size) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((size + 2) / 3 * 4);
  for (std::size_t i = 0; i < size; i += 3) {
    const std::size_t count = std::min<std::size_t>(size - i, 3);
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8U | (k < count ? bytes[i + k] : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= count ? kDigits[group >> (18 - 6 * k) & 63U] : '=';
    }
  }
  return text;
}

}  // namespace tavrel::kit
