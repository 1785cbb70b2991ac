// Messages of failed disk files: the rows of the error table, and how they reach the log.
#include <array>

#include "foundation/disk_file.h"
#include "foundation/log_file.h"

namespace tavrel {

namespace {

constexpr std::array<const char*, 17> kErrorRows{
    "File System Error: No Error (%s)",
    "File System Error: Read Error (%s)",
    "File System Error: Write Error (%s)",
    "File System Error: Unable to Open \"%s\" for Writing",
    "File System Error: File \"%s\" Not Found",
    "File System Error: Unable to Allocate Memory (%s)",
    "File System Error: File \"%s\" is Already Open",
    "File System Error: Unable to Get File Name",
    "File System Error: Unable to Open \"%s\" For Write Appension",
    "File System Error: Bad Value for Mode (%s)",
    "File System Error: File \"%s\" is Already Closed",
    "File System Error: Can't Write \"%s\", File is Not Open",
    "File System Error: Can't Perform Operation, File \"%s\" is Not Open",
    "File System Error: Can't Perform Operation, File \"%s\" is Open",
    "File System Error: Can't Read \"%s\" into NULL Buffer",
    "File System Error: Can't Seek in Append Mode (%s)",
    "File System Error: Seek Error (%s)",
};
static_assert(kErrorRows.size() == errorSeek + 1, "one row for each code");

}  // namespace

const char* DiskFile::errorText() const {
  return error != errorNone && error < kErrorRows.size() ? kErrorRows[error] : nullptr;
}

bool DiskFile::reportError() const {
  if (error == errorNone) {
    return false;
  }
  theLog.print(errorText(), nameInMessages());
  return true;
}

const char* DiskFile::nameInMessages() const {
  return fileName.name ? fileName.name.get() : "fileName is NULL";
}

}  // namespace tavrel
