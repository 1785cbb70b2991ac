"""Plays waves of the example bank into a file and compares them with the sources:
play_test.py PLAYER BANK EXAMPLES"""
import os
import struct
import subprocess
import sys
import tempfile
import wave

player, bank, examples = sys.argv[1:]


def played(*arguments):
    with tempfile.NamedTemporaryFile() as device:
        environment = dict(os.environ, SDL_AUDIODRIVER="disk", SDL_DISKAUDIODELAY="0",
                           SDL_DISKAUDIOFILE=device.name)
        subprocess.run([player, *arguments], env=environment, check=True, stderr=subprocess.DEVNULL)
        return [sample for sample, in struct.iter_unpack("<h", device.read())]


def trimmed(samples):
    """The device adds silence before and after."""
    sounding = [index for index, sample in enumerate(samples) if sample]
    return samples[sounding[0]:sounding[-1] + 1]


def engine(count):
    """The AIFF's 16-bit samples, then the part between its two markers again and again."""
    with open(os.path.join(examples, "engine.aif"), "rb") as file:
        file = file.read()
    sound = file.index(b"SSND")  # the size, 8 bytes, then the samples
    size, = struct.unpack_from(">I", file, sound + 4)
    samples = [sample for sample, in struct.iter_unpack(">h", file[sound + 16:sound + 8 + size])]
    marks = file.index(b"MARK") + 8  # a count, then markers: id, position, a name of even size
    start, = struct.unpack_from(">I", file, marks + 4)
    end, = struct.unpack_from(">I", file, marks + 4 + 4 + (file[marks + 8] + 2) // 2 * 2 + 2)
    loop = samples[start:end]
    return samples[:end] + [loop[i % len(loop)] for i in range(count - end)]


def blip():
    with wave.open(os.path.join(examples, "blip.wav")) as file:
        return [(byte - 128) * 256 for byte in file.readframes(file.getnframes())]


failed = False
# ADPCM, which bank_test decodes: the samples of both ways to read a bank must be the same.
wind = trimmed(played(bank, "DEMO_WIND_WAV"))
for define, expected in (("DEMO_ENGINE_AIF", engine(22050)), ("DEMO_BLIP_WAV", blip()),
                         ("DEMO_WIND_WAV", wind)):
    for mode in ([], ["--stream"]):
        if trimmed(played(*mode, bank, define, "1")) != trimmed(expected):
            print("other samples:", *mode, define)
            failed = True
sys.exit(failed)
