/* Plays a wave of the example bank through SDL2: play [--stream] BANK DEFINE [SECONDS]
 *
 * A wave that loops plays for SECONDS, 3 by default. With --stream only the bank's table is in
 * memory, and the samples are read from the file piece by piece. */
#include <SDL.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <tavrel/bank.h>

#include "demo.h"

#define WAVE(define) \
  { #define, define }

static const struct {
  const char* name;
  uint32_t id;
} waves[] = {WAVE(DEMO_BOOM_WAV), WAVE(DEMO_BLIP_WAV), WAVE(DEMO_ENGINE_AIF), WAVE(DEMO_WIND_WAV)};

/* All that streaming keeps in memory, however long the bank is: the table, which ends inside what
 * the header counts as header, at 44 bytes for each asset, and 4 KiB of samples at a time. */
static uint8_t table[DEMO_BANK_HEADER_SIZE];
static uint8_t piece[4096];

typedef struct player {
  tavrel_wave wave;   /* of the whole asset */
  tavrel_wave window; /* the samples that are in memory */
  uint32_t window_start;
  tavrel_adpcm state, loop_state; /* at the position, and at the loop's start */
  uint32_t position;
  uint64_t remaining; /* samples to play */
  FILE* file;         /* null if the asset is in memory */
  uint32_t offset;    /* of the asset in the file */
  SDL_atomic_t finished;
} player;

static int fail(const char* reason) {
  fprintf(stderr, "play: %s\n", reason);
  return 1;
}

/* Reads the piece of the file that begins at the position. */
static void read_piece(player* p) {
  const uint32_t per_byte = p->wave.bits == 4 ? 2 : 1, width = p->wave.bits == 16 ? 2 : 1;
  const uint32_t start = p->position - p->position % per_byte;
  const uint32_t byte = start / per_byte * width;
  const uint32_t left = p->wave.size - byte;
  const size_t wanted = left < sizeof piece ? left : sizeof piece;
  const int found = fseek(p->file, (long)(p->offset + byte), SEEK_SET) == 0;
  p->window.bytes = piece;
  p->window.size = found ? (uint32_t)fread(piece, 1, wanted, p->file) : 0;
  p->window.sample_count = p->window.size / width * per_byte;
  p->window_start = start;
}

/* Reads up to `count` samples that follow each other in the wave. */
static uint32_t read_run(player* p, int16_t* samples, uint32_t count) {
  uint32_t read =
      tavrel_wave_read(&p->window, &p->state, p->position - p->window_start, samples, count);
  if (read == 0 && p->file && p->position < p->wave.sample_count) {
    read_piece(p);
    read = tavrel_wave_read(&p->window, &p->state, p->position - p->window_start, samples, count);
  }
  p->position += read;
  return read;
}

/* Fills SDL's buffer. From the loop's end the next sample is the one at its start, so a loop has no
 * gap. A game would rather read its file in a thread of its own. */
static void SDLCALL fill(void* user, Uint8* buffer, int size) {
  player* p = (player*)user;
  int16_t* samples = (int16_t*)buffer;
  uint32_t left = (uint32_t)size / sizeof *samples;
  memset(buffer, 0, (size_t)size);
  if (p->remaining == 0) {
    SDL_AtomicSet(&p->finished, 1); /* the last samples went out with an earlier buffer */
  }
  while (left > 0 && p->remaining > 0) {
    uint32_t run = left < p->remaining ? left : (uint32_t)p->remaining;
    if (p->wave.loops && p->position == p->wave.loop_start) {
      p->loop_state = p->state;
    }
    if (p->wave.loops) {
      const uint32_t stop =
          p->position < p->wave.loop_start ? p->wave.loop_start : p->wave.loop_end;
      run = run < stop - p->position ? run : stop - p->position;
    }
    const uint32_t read = read_run(p, samples, run);
    if (read == 0) {
      p->remaining = 0; /* the file has become shorter */
      return;
    }
    samples += read;
    left -= read;
    p->remaining -= read;
    if (p->wave.loops && p->position == p->wave.loop_end) {
      p->position = p->wave.loop_start;
      p->state = p->loop_state;
    }
  }
}

/* Opens the bank, whole or its table alone. Returns null if it was packed together with demo.h,
 * otherwise the reason. */
static const char* open_bank(tavrel_bank* bank, FILE* file, int stream) {
  tavrel_status status;
  const long size = fseek(file, 0, SEEK_END) == 0 ? ftell(file) : -1;
  if (size < 0 || fseek(file, 0, SEEK_SET) != 0) {
    return "the bank can't be read";
  }
  if (stream) {
    const size_t held = fread(table, 1, sizeof table, file);
    status = tavrel_bank_open_table(bank, table, held, (uint64_t)size);
  } else {
    void* bytes = malloc((size_t)size + 1);
    status = tavrel_bank_open(bank, bytes, bytes ? fread(bytes, 1, (size_t)size, file) : 0);
  }
  if (status == TAVREL_OK) {
    status = tavrel_bank_check_header(bank, DEMO_BANK_DATA_SIZE, DEMO_BANK_HEADER_SIZE);
  }
  return status == TAVREL_OK ? NULL : tavrel_status_text(status);
}

/* Sets up `p` for a wave of the bank. Returns 0 if the bank has no such wave. */
static int choose(player* p, const tavrel_bank* bank, const char* define, unsigned seconds) {
  tavrel_asset asset;
  size_t i = 0;
  while (i < sizeof waves / sizeof *waves && strcmp(waves[i].name, define) != 0) {
    ++i;
  }
  if (i == sizeof waves / sizeof *waves || !tavrel_bank_asset(bank, waves[i].id, &asset) ||
      !tavrel_asset_wave(&asset, &p->wave)) {
    return 0;
  }
  tavrel_wave* wave = &p->wave;
  if (wave->sample_rate <= 0) {
    wave->sample_rate = 22050;
  }
  if (wave->loop_start >= wave->loop_end || wave->loop_end > wave->sample_count) {
    wave->loops = 0;
  }
  tavrel_adpcm_start(&p->state);
  p->window = *wave;
  p->offset = asset.offset;
  p->remaining = wave->loops ? (uint64_t)wave->sample_rate * seconds : wave->sample_count;
  return 1;
}

static int play(player* p) {
  SDL_AudioSpec spec = {0};
  spec.freq = p->wave.sample_rate;
  spec.format = AUDIO_S16SYS;
  spec.channels = 1;
  spec.samples = 1024;
  spec.callback = fill;
  spec.userdata = p;
  if (SDL_Init(SDL_INIT_AUDIO) != 0) {
    return fail(SDL_GetError());
  }
  const SDL_AudioDeviceID device = SDL_OpenAudioDevice(NULL, 0, &spec, NULL, 0);
  if (device == 0) {
    return fail(SDL_GetError());
  }
  SDL_PauseAudioDevice(device, 0);
  while (!SDL_AtomicGet(&p->finished)) {
    SDL_Delay(10);
  }
  SDL_CloseAudioDevice(device);
  SDL_Quit();
  return 0;
}

int main(int argc, char** argv) {
  static player p;
  tavrel_bank bank;
  const int stream = argc > 1 && strcmp(argv[1], "--stream") == 0;
  char** arguments = argv + 1 + stream;
  if (argc - stream < 3) {
    return fail("usage: play [--stream] BANK DEFINE [SECONDS]");
  }
  FILE* file = fopen(arguments[0], "rb");
  if (!file) {
    return fail("can't open the bank");
  }
  const char* reason = open_bank(&bank, file, stream);
  if (reason) {
    return fail(reason);
  }
  if (!choose(&p, &bank, arguments[1], arguments[2] ? (unsigned)atoi(arguments[2]) : 3)) {
    return fail("no such wave");
  }
  p.file = stream ? file : NULL;
  return play(&p);
}
