#include <tavrel/bank.h>

#include "foundation/text_utilities.h"
#include "level.h"

// -Wconversion, which this project uses and the game doesn't, warns of it.
static short narrowed(int number) { return number; }

int main() {
  return narrowed(LEVEL_BANK_HEADER_SIZE) == TAVREL_BANK_ALIGNMENT &&
                 tavrel::equalsIgnoringCase(LEVEL_FILENAME, "LEVEL.TVB")
             ? 0
             : 1;
}
