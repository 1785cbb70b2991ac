// Destination of the "File System Error" lines. As the tool configures it, every line goes to
// standard error and file output is off: the file is named and never created.
// A failure of the log's own file is reported once, on standard error and never through the log.
#pragma once

#include "foundation/disk_file.h"

namespace tavrel {

class LogFile : public DiskFile {
 public:
  /// Names the file "logfile.txt" and opens nothing.
  LogFile();
  explicit LogFile(const char* name);
  LogFile(const char* name, const char* path);

  /// Formats the arguments as `printf` does and writes the line. Returns false for a null format
  /// and, with file output on, if the log's file fails.
  [[gnu::format(printf, 2, 3)]] bool print(const char* format, ...);

  // Not used by the tool; for programs that keep a log on disk.

  /// Opens the file that `print` writes to. Does nothing and returns true if file output is off.
  bool openLog();

  /// Closes the file that `openLog` opened. Does nothing and returns true if file output is off.
  bool closeLog();

  // As `setName` and `setPath`: they fail on an open file.
  bool setLogName(const char* name);
  bool setLogPath(const char* path);

 protected:
  bool writeToFile = false;
  bool echoToConsole = true;

 private:
  bool keepsFileOpen() const { return writeToFile && mode == modeWrite; }
  bool hasFailed();
  bool writeToOpenFile(const char* line);
  bool appendToFile(const char* line);

  bool isFailureReported_ = false;
};

/// The one log of the process, ready before the entry point runs.
extern LogFile theLog;

}  // namespace tavrel
