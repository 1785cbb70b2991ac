"""Plays waves of the example bank into a file and compares them with the bank:
play_test.py PLAYER BANK"""
import os
import struct
import subprocess
import sys
import tempfile

player, bank = sys.argv[1:]
with open(bank, "rb") as file:
    content = file.read()


def played(*arguments):
    """The device adds silence before and after."""
    with tempfile.NamedTemporaryFile() as device:
        environment = dict(os.environ, SDL_AUDIODRIVER="disk", SDL_DISKAUDIODELAY="0",
                           SDL_DISKAUDIOFILE=device.name)
        subprocess.run([player, *arguments], env=environment, check=True, stderr=subprocess.DEVNULL)
        return device.read().strip(b"\0")


def asset(asset_id, width):
    """Returns the samples of 16 bits, and where the loop starts and ends."""
    _, offset, size, *words = struct.unpack_from("<3I8i", content, 4 + 44 * asset_id)
    blob = content[offset:offset + size]
    return (blob if width == 16 else b"".join(b"\0%c" % byte for byte in blob)), words[4:6]


engine, (start, end) = asset(2, 16)
engine = engine[:2 * end] + engine[2 * start:2 * end] * 22050
blip, _ = asset(1, 8)
# ADPCM, which bank_test decodes: the samples of both ways to read a bank must be the same.
wind = played(bank, "DEMO_WIND_WAV")
for define, expected in (("DEMO_ENGINE_AIF", engine[:2 * 22050]), ("DEMO_BLIP_WAV", blip),
                         ("DEMO_WIND_WAV", wind)):
    for mode in ([], ["--stream"]):
        samples = played(*mode, bank, define, "1")
        assert samples == expected.strip(b"\0"), (*mode, define)
