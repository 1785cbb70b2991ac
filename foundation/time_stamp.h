// The local date and time as text, in the form of generated files: 7/22/1999 5:36 pm.
// Owns the texts it gives out: each stays valid until the same operation runs again or the object
// ends. Null means that memory is short.
#pragma once

#include "foundation/owned_text.h"
#include "platform/local_time.h"

namespace tavrel {

class TimeStamp {
 public:
  /// Month, day and four-digit year, none of them padded: 3/4/1999.
  const char* getDateText();

  /// Hour, two-digit minute and half of the day: 5:06 pm. Hours above 12 count from 1 again and
  /// take "pm"; all others, noon and the hour behind midnight included, take "am" as they stand.
  const char* getTimeText();

  /// The date text and the time text with a blank between them. Reads the clock once for each.
  const char* getDateAndTime();

 private:
  SYSTEMTIME now;
  OwnedText dateText;
  OwnedText timeText;
  OwnedText stampText;
};

}  // namespace tavrel
