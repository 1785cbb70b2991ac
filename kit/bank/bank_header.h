// The header that is generated with a bank, as far as it was parsed. Any text can be parsed: what
// is missing stays empty, and judging it is the caller's business.
//
//   #ifndef <blanks> GUARD
//   #define <blanks> GUARD
//   #define <blanks> PREFIX_FILENAME          <blanks> "NAME.tvb"
//   #define <blanks> PREFIX_BANK_DATA_SIZE    <blanks> NUMBER
//   #define <blanks> PREFIX_BANK_HEADER_SIZE  <blanks> NUMBER
//   #define <blanks> PREFIX_ASSET             <blanks> ID          one for each asset
//   #endif // end of GUARD
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

struct HeaderDefine {
  std::string name;
  std::string value;  ///< the rest of the line, without blanks around it; may be empty

  bool operator==(const HeaderDefine&) const = default;
};

struct BankHeader {
  bool isGenerated = false;               ///< it says that the tool has made it
  std::string guardTested;                ///< after #ifndef
  std::string guardDefined;               ///< the define without a value
  std::string guardEnded;                 ///< in the comment after #endif
  std::string prefix;                     ///< of the bank's own three defines
  std::optional<std::string> fileName;    ///< value of PREFIX_FILENAME, with its quotes
  std::optional<std::string> dataSize;    ///< value of PREFIX_BANK_DATA_SIZE
  std::optional<std::string> headerSize;  ///< value of PREFIX_BANK_HEADER_SIZE
  std::vector<HeaderDefine> assets;       ///< all other defines, in the text's order

  /// Returns the first define of each id below `count`; empty where there is none.
  [[nodiscard]] std::vector<std::string> definesById(std::uint32_t count) const;
};

/// One of the three defines of the bank itself.
struct OwnDefine {
  std::string_view ending;  ///< of its name, after the prefix and a "_"
  std::optional<std::string> BankHeader::*value;
};

std::span<const OwnDefine> ownDefines();

BankHeader parseHeader(std::string_view text);

/// Returns the number that the value of a define is in decimal digits, if it fits. A 0 before other
/// digits is refused, because C would read them as an octal number.
std::optional<std::uint32_t> defineNumber(std::string_view value);

}  // namespace tavrel::kit
