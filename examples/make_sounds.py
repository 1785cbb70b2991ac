#!/usr/bin/env python3
"""Makes every asset of the example bank anew, byte for byte the same on each run.

The assets are kept beside this script, so the example can be packed without it. Run it only after
changing a sound: `python3 examples/make_sounds.py`. It needs nothing but Python itself.
"""

import math
import pathlib
import struct

HERE = pathlib.Path(__file__).parent


def noise(seed):
    """An endless row of repeatable random numbers between -1 and 1."""
    while True:
        seed = (seed * 1664525 + 1013904223) % 2**32
        yield seed / 2**31 - 1.0


def boom(rate, seconds):
    """An explosion: a falling low tone under noise that gets duller as it dies away."""
    rough, low, phase = noise(1), 0.0, 0.0
    for i in range(int(rate * seconds)):
        t = i / rate
        low += (0.02 + 0.4 * math.exp(-6 * t)) * (next(rough) - low)
        phase += 2 * math.pi * (35 + 70 * math.exp(-9 * t)) / rate
        yield 0.9 * math.exp(-3.2 * t) * (0.55 * math.sin(phase) + 0.9 * low)


def blip(rate, seconds):
    """A menu sound: a square wave that jumps up a fourth half-way."""
    count = int(rate * seconds)
    for i in range(count):
        pitch = 880 if i < count // 2 else 1174.66
        yield (0.5 if (i * pitch / rate) % 1 < 0.5 else -0.5) * (1 - i / count)


def wind(rate, seconds):
    """A slow gust: noise through a low-pass filter that opens and closes."""
    rough, low = noise(2), 0.0
    for i in range(int(rate * seconds)):
        swell = math.sin(math.pi * i / (rate * seconds)) ** 2
        low += (0.01 + 0.12 * swell) * (next(rough) - low)
        yield 1.6 * swell * low


def engine(rate, periods):
    """A motor that idles at rate / 441 hertz: whole periods, so that any of them can be looped."""
    for i in range(441 * periods):
        phase = 2 * math.pi * i / 441
        yield sum(math.sin(k * phase + k * k) / k for k in range(1, 12)) * 0.3


def as_words(samples, order):
    return b"".join(struct.pack(order + "h", round(32767 * max(-1, min(1, s)))) for s in samples)


def as_unsigned_bytes(samples):
    return bytes(128 + round(127 * max(-1, min(1, s))) for s in samples)


def riff_chunk(name, content):
    return name + struct.pack("<I", len(content)) + content + b"\0" * (len(content) % 2)


def wav(rate, bits, data):
    width = bits // 8
    form = struct.pack("<HHIIHH", 1, 1, rate, rate * width, width, bits)
    return riff_chunk(b"RIFF", b"WAVE" + riff_chunk(b"fmt ", form) + riff_chunk(b"data", data))


def iff_chunk(name, content):
    return name + struct.pack(">I", len(content)) + content + b"\0" * (len(content) % 2)


def marker(number, position, name):
    text = bytes([len(name)]) + name
    return struct.pack(">HI", number, position) + text + b"\0" * (len(text) % 2)


def aiff(rate, data, loop_start, loop_end):
    """A 16-bit mono AIFF file whose instrument sustains between two markers."""
    exponent = rate.bit_length() - 1
    extended = struct.pack(">HQ", 16383 + exponent, rate << (63 - exponent))
    markers = [marker(1, loop_start, b"loop start"), marker(2, loop_end, b"loop end")]
    return iff_chunk(
        b"FORM",
        b"AIFF"
        + iff_chunk(b"COMM", struct.pack(">HIH", 1, len(data) // 2, 16) + extended)
        + iff_chunk(b"MARK", struct.pack(">H", len(markers)) + b"".join(markers))
        + iff_chunk(b"INST", struct.pack(">BbBBBBhHHHHHH", 60, 0, 0, 127, 0, 127, 0, 1, 1, 2, 0, 0, 0))
        + iff_chunk(b"SSND", struct.pack(">II", 0, 0) + data),
    )


def variable_length(value):
    groups = [value & 0x7F]
    while value := value >> 7:
        groups.insert(0, value & 0x7F | 0x80)
    return bytes(groups)


def theme(ppqn):
    """A round of eight bars, one note at a time, at 132 beats per minute."""
    melody = [60, 62, 64, 60, 60, 62, 64, 60, 64, 65, 67, None, 64, 65, 67, None]
    melody += [67, 69, 67, 65, 64, 60, 67, 69, 67, 65, 64, 60, 60, 55, 60, None, 60, 55, 60, None]
    track = b"\x00\xff\x51\x03" + (60000000 // 132).to_bytes(3, "big") + b"\x00\xc0\x0b"
    rest = 0
    for note in melody:
        if note is None:
            rest += ppqn
            continue
        track += variable_length(rest) + bytes([0x90, note, 96])
        track += variable_length(ppqn) + bytes([0x80, note, 64])
        rest = 0
    track += variable_length(rest) + b"\xff\x2f\x00"
    return midi_chunk(b"MThd", struct.pack(">HHH", 0, 1, ppqn)) + midi_chunk(b"MTrk", track)


def midi_chunk(name, content):
    """A chunk as Standard MIDI Files have it: big-endian and without a pad byte."""
    return name + struct.pack(">I", len(content)) + content


def main():
    files = {
        "boom.wav": wav(22050, 16, as_words(boom(22050, 1.2), "<")),
        "blip.wav": wav(11025, 8, as_unsigned_bytes(blip(11025, 0.18))),
        "wind.wav": wav(11025, 16, as_words(wind(11025, 3.0), "<")),
        "engine.aif": aiff(22050, as_words(engine(22050, 12), ">"), 441, 441 * 11),
        "theme.mid": theme(96),
        # The program that plays the bank defines the content of these; the tool copies it.
        "drums.mtb": b"TONE" + bytes(range(97)),
        "hall.fxp": b"PROG" + bytes(i * i % 256 for i in range(60)),
        "stereo.fxo": b"OUTP" + bytes([0, 1, 127, 127]),
        "level.dat": b"spawn 12 8\ngoal 40 3\n",
    }
    for name, content in files.items():
        (HERE / name).write_bytes(content)


if __name__ == "__main__":
    main()
