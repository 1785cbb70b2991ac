/* A game that opens its bank and finds its sounds by the defines of the bank's header. */
#include <stdio.h>
#include <stdlib.h>

#include "sfx.h"
#include "tavrel/bank.h"

/* Returns the bytes of a file, or null. The caller frees them. */
static void* read_file(const char* path, size_t* size) {
  enum { kMost = 1 << 20 };
  void* bytes = malloc(kMost);
  FILE* file = fopen(path, "rb");
  *size = bytes != NULL && file != NULL ? fread(bytes, 1, kMost, file) : 0;
  if (file != NULL) {
    fclose(file);
  }
  return bytes;
}

int main(int argc, char** argv) {
  size_t size;
  void* bytes = read_file(argc > 1 ? argv[1] : SFX_FILENAME, &size);
  tavrel_bank bank;
  tavrel_status status = tavrel_bank_open(&bank, bytes, size);
  if (status == TAVREL_OK) {
    status = tavrel_bank_check_header(&bank, SFX_BANK_DATA_SIZE, SFX_BANK_HEADER_SIZE);
  }
  tavrel_asset level;
  if (status != TAVREL_OK || !tavrel_bank_asset(&bank, SFX_LEVEL_ONE_DAT, &level)) {
    fprintf(stderr, "%s: %s\n", SFX_FILENAME, tavrel_status_text(status));
    free(bytes);
    return 1;
  }
  printf("%u assets, level %.*s\n", (unsigned)bank.count, (int)level.size, (const char*)level.bytes);
  free(bytes);
  return 0;
}
