// The local date and time as text, in the form of generated files: 7/22/1999 5:36 pm.
// Owns the texts that it returns: each is valid until the next call of the same operation or the
// object's destruction. Operations return null if memory runs out.
#pragma once

#include "foundation/owned_text.h"
#include "platform/local_time.h"

namespace tavrel {

class TimeStamp {
 public:
  /// Returns month, day and four-digit year, without leading zeros: 3/4/1999.
  const char* getDateText();

  /// Returns hour, two-digit minute and half of the day: 5:06 pm. Hours from 13 on are printed less
  /// 12 with "pm", all others unchanged with "am": noon is 12:00 am and midnight 0:00 am.
  const char* getTimeText();

  /// Returns the date and the time, separated by a blank. Reads the clock once for each.
  const char* getDateAndTime();

 private:
  SYSTEMTIME now_;
  OwnedText dateText_;
  OwnedText timeText_;
  OwnedText stampText_;
};

}  // namespace tavrel
