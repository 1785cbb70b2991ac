// Keeps what the tool's classes print away from the standard streams.
#pragma once

#include <cstdio>
#include <string>

#include "foundation/console.h"

namespace tavrel::kit {

/// While it exists, what the tool prints on one stream is appended to `text`. The rest is dropped.
class CapturedConsole : public ConsoleSink {
 public:
  explicit CapturedConsole(std::FILE* stream = stderr)
      : stream_(stream), previous_(setConsoleSink(this)) {}
  ~CapturedConsole() override { setConsoleSink(previous_); }
  CapturedConsole(const CapturedConsole&) = delete;
  CapturedConsole(CapturedConsole&&) = delete;
  CapturedConsole& operator=(const CapturedConsole&) = delete;
  CapturedConsole& operator=(CapturedConsole&&) = delete;

  void write(std::FILE* stream, std::string_view printed) override {
    if (stream == stream_) {
      text += printed;
    }
  }

  std::string text;

 private:
  std::FILE* stream_;
  ConsoleSink* previous_;
};

}  // namespace tavrel::kit
