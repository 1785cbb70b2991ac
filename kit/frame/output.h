// What a command prints. Results are collected and written when the command has succeeded, so that
// a failure leaves standard output empty.
#pragma once

#include <string>

namespace tavrel::kit {

struct Output {
  std::string results;      ///< for standard output
  std::string messages;     ///< for standard error
  bool isColoured = false;  ///< the results may have colours
};

}  // namespace tavrel::kit
