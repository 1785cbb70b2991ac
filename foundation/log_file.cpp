#include "foundation/log_file.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>

#include "foundation/console.h"

namespace tavrel {

LogFile theLog;

namespace {

constexpr std::size_t kUsualLine = 256;

/// A formatted text, cut to the usual length if there is no memory for a longer one.
class FormattedText {
 public:
  FormattedText(const char* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(usual_.data(), usual_.size(), format, arguments);
    if (length >= static_cast<int>(usual_.size())) {
      formatLong(static_cast<std::size_t>(length), format, again);
    }
    va_end(again);
  }

  [[nodiscard]] const char* get() const { return long_ ? long_.get() : usual_.data(); }

 private:
  void formatLong(std::size_t length, const char* format, std::va_list arguments) {
    long_.reset(new (std::nothrow) char[length + 1]);
    if (long_) {
      std::vsnprintf(long_.get(), length + 1, format, arguments);
    }
  }

  std::array<char, kUsualLine> usual_{};
  OwnedText long_;
};

/// Writes the formatted line to standard error, bypassing the log.
[[gnu::format(printf, 1, 2)]] void printFailure(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const FormattedText text(format, arguments);
  va_end(arguments);
  printLine(stderr, text.get());
}

}  // namespace

LogFile::LogFile() : LogFile("logfile.txt") {}

LogFile::LogFile(const char* name) : LogFile(name, "") {}

LogFile::LogFile(const char* name, const char* path) {
  setMode(modeWrite);
  setName(name);
  setPath(path != nullptr ? path : "");
  hasFailed();
}

bool LogFile::print(const char* format, ...) {
  if (format == nullptr) {
    return false;
  }
  std::va_list arguments;
  va_start(arguments, format);
  const FormattedText text(format, arguments);
  va_end(arguments);
  if (echoToConsole) {
    printLine(stderr, text.get());
  }
  if (!writeToFile) {
    return true;
  }
  const OwnedText line = makeText(text.get(), "\n");
  if (!line) {
    return false;
  }
  if (mode == modeWrite) {
    return writeToOpenFile(line.get());
  }
  return mode != modeAppend || appendToFile(line.get());
}

bool LogFile::writeToOpenFile(const char* line) {
  write(line, static_cast<std::uint32_t>(std::strlen(line)));
  return !hasFailed();
}

bool LogFile::appendToFile(const char* line) {
  open();
  if (!hasFailed()) {
    writeToOpenFile(line);
  }
  if (isOpen) {
    close();  // after a failure too: no line leaves the file open
  }
  return !hasFailed();
}

bool LogFile::hasFailed() {
  if (error == errorNone) {
    return false;
  }
  if (!isFailureReported_) {
    isFailureReported_ = true;
    printFailure(errorText(), nameInMessages());
  }
  return true;
}

bool LogFile::openLog() {
  if (!keepsFileOpen()) {
    return true;
  }
  open();
  return !hasFailed();
}

bool LogFile::closeLog() {
  if (!keepsFileOpen()) {
    return true;
  }
  close();
  return !hasFailed();
}

bool LogFile::setLogName(const char* name) { return setName(name); }

bool LogFile::setLogPath(const char* path) { return setPath(path); }

}  // namespace tavrel
