// Keeps what the tool's classes print away from the standard streams.
#pragma once

#include <string>

#include "foundation/console.h"

namespace tavrel::kit {

/// While it exists, lines of the tool are appended to `errors` (standard error) or dropped.
class CapturedConsole : public ConsoleSink {
 public:
  CapturedConsole() : previous_(setConsoleSink(this)) {}
  ~CapturedConsole() override { setConsoleSink(previous_); }
  CapturedConsole(const CapturedConsole&) = delete;
  CapturedConsole(CapturedConsole&&) = delete;
  CapturedConsole& operator=(const CapturedConsole&) = delete;
  CapturedConsole& operator=(CapturedConsole&&) = delete;

  void write(std::FILE* stream, std::string_view text) override {
    if (stream == stderr) {
      errors += text;
    }
  }

  std::string errors;

 private:
  ConsoleSink* previous_;
};

}  // namespace tavrel::kit
