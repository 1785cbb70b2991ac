// What a check finds wrong with a bank or its header.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::kit {

struct Finding {
  std::optional<std::uint32_t> id;  ///< of the asset; none for the bank and the header as a whole
  std::string message;  ///< what is wrong with it, in lower case and without a full stop
};

/// The findings of one check, in the order in which they are reported.
class BankFindings : public std::vector<Finding> {
 public:
  void add(std::string message) { push_back({std::nullopt, std::move(message)}); }
  void add(std::optional<std::uint32_t> id, std::string message) {
    push_back({id, std::move(message)});
  }
};

}  // namespace tavrel::kit
