// Where the "File System Error" lines go. As the tool is set up, everything printed to the log
// reaches standard error, and its file output stays off: the file is named and never created.
// A failure of the log's own file is told on standard error once, never through the log itself.
#pragma once

#include "foundation/disk_file.h"

namespace tavrel {

class LogFile : public DiskFile {
 public:
  /// Names the file "logfile.txt" and opens nothing.
  LogFile();
  explicit LogFile(const char* name);
  LogFile(const char* name, const char* path);

  /// Formats the arguments as `printf` does and writes the line. False only when the log's own file
  /// fails, which takes file output to be on.
  bool print(const char* format, ...);

  /// Opens the file that `print` writes to, where the log is set up to write one. True also where
  /// there is nothing to open.
  bool openLog();

  /// Closes the file that `openLog` has opened. True also where there is nothing to close.
  bool closeLog();

  // As `setName` and `setPath`: an open file refuses.
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

  bool failureTold = false;
};

/// The one log of the process, ready before the entry point runs.
extern LogFile theLog;

}  // namespace tavrel
