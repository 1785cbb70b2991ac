#!/usr/bin/env python3
"""Packs 200 banks with Bazel and takes them from its caches, which are also damaged. The table of it is
in docs/farm.md; it must be the same but for the times.

    farm_test.py BUILD DOCUMENT    BUILD: the folder with tavrel and tavkit
"""
import json
import os
import random
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import wave
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(sys.argv[1]).resolve()
WORK = Path(tempfile.mkdtemp())
BANKS = [f"b{number:03}" for number in range(200)]
PACKAGE = """load("//tavrel:tavrel_bank.bzl", "tavrel_bank")
package(default_visibility = ["//visibility:public"])
tavrel_bank(name = "{0}", script = "{0}.txt", assets = glob(["*.wav"]){1})
"""
LIST = 'genrule(name = "list", srcs = ["//banks/b000"], outs = ["names"], cmd = "ls $(SRCS) > $@")'
MADE = ' + ["d.wav"])\ngenrule(name = "d", srcs = ["d.raw"], outs = ["d.wav"], cmd = "cp $< $@"'
NGINX = ["nginx", "-e", "errors", "-c", "cache.conf", "-g", "daemon off; master_process off;", "-p"]


def write_bank(folder, sounds, attributes="", seed=""):
    """Writes a package with a bank, and those of its sounds whose names are letters."""
    folder.mkdir(parents=True)
    for sound in filter(str.isalpha, sounds):
        with wave.open(str(folder / f"{sound}.wav"), "wb") as file:
            file.setparams((1, 2, 22050, 0, "NONE", ""))
            file.writeframes(random.Random((seed or folder.name) + sound).randbytes(44100))
    (folder / "BUILD.bazel").write_text(PACKAGE.format(folder.name, attributes))
    blocks = "".join(f"WaveFile {sound}.wav SampleRate 22050 AssetEnd\n" for sound in sounds)
    script = f"BankFileName {folder.name}.tvb\n{blocks}ScriptEnd\n"
    (folder / f"{folder.name}.txt").write_text(script)


def write_project(folder):
    shutil.copytree(ROOT / "integrations/bazel", folder)
    shutil.copy(BUILD / "tavkit", folder / "tavrel")
    shutil.copy(ROOT / "runtime/include/tavrel/bank.h", folder / "tavrel")
    for name in BANKS:
        write_bank(folder / "banks" / name, "abcd")
    (folder / "top.txt").write_text("BankFileName top.tvb ScriptEnd\n")
    with (folder / "BUILD.bazel").open("a") as root_package:
        root_package.write('tavrel_bank(name = "top", script = "top.txt")\n')
    more = folder / "more"
    write_bank(more / "relative", ["a", "..\\made\\a"])
    write_bank(more / "absolute", ["a", f"{more}/made/a"])
    write_bank(more / "unused", "a", ' + ["unused.txt"]')
    write_bank(more / "loose", "a", ', prefix = "SO-SO", check = False')
    write_bank(more / "made", "abcd", MADE, seed="b000")
    (more / "made/d.wav").rename(more / "made/d.raw")
    (more / "list").mkdir()
    (more / "list/BUILD.bazel").write_text(LIST)


def outputs(folder, name):
    """Returns the bank, and the header without its time stamp."""
    header = (folder / f"{name}.h").read_text()
    return (folder / f"{name}.tvb").read_bytes(), re.sub("Rev:.*", "", header)


def packed_by_tavrel(farm):
    for name in BANKS:
        subprocess.run([BUILD / "tavrel", f"{name}.txt", "bankPath", f"{WORK}/", "headerPath", f"{WORK}/"],
                       cwd=farm.sources / "banks" / name, check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL)  # fmt: skip
    return {name: outputs(WORK, name) for name in BANKS}


def start_server(folder):
    """Starts nginx as the document shows. Returns it, and Bazel's option for it."""
    with socket.create_server(("127.0.0.1", 0)) as free:
        address = f"127.0.0.1:{free.getsockname()[1]}"
    text = (ROOT / "integrations/bazel/cache.conf").read_text()
    (folder / "cache.conf").write_text(text.replace("127.0.0.1:8080", address))
    return subprocess.Popen([*NGINX, folder]), f"--remote_cache=http://{address}"


def damage(folder):
    """Flips a bit in each file, or deletes it."""
    chance = random.Random(1)
    for path in sorted(folder.iterdir()):
        content = bytearray(path.read_bytes())
        content[chance.randrange(len(content))] ^= 1 << chance.randrange(8)
        path.unlink()
        if chance.random() < 0.8:
            path.write_bytes(content)


def empty_outputs(folder):
    """Flips one bit in each record of a packed bank, which makes Bazel create an empty bank, an empty
    header, or an empty folder in the place of the bank. The second call undoes it."""
    for number, path in enumerate(sorted(folder.iterdir())):
        record = bytearray(path.read_bytes())
        if b".tvb" in record:
            tags = [record.find(b".tvb\x12") + 4, record.find(b".h\x12") + 2, 0]
            record[tags[number % 3]] ^= 8
            path.write_bytes(record)


class Farm:
    """A source folder with an output base of its own."""

    def __init__(self, sources, base, **environment):
        self.sources, self.base = WORK / sources, WORK / base
        self.environment = dict(os.environ, **environment)

    def run(self, *arguments, meanwhile=lambda bazel: None):
        """Returns the exit code and what has been printed."""
        bazel = subprocess.Popen(
            ["bazel", f"--output_user_root={WORK}", f"--output_base={self.base}",
             "--host_jvm_args=-Xmx1g", *arguments],
            cwd=self.sources, env=self.environment, text=True, stderr=subprocess.PIPE)  # fmt: skip
        meanwhile(bazel)
        text = bazel.communicate()[1]
        return bazel.returncode, text

    def build(self, *arguments, **others):
        return self.run("build", "--experimental_repository_disable_download", "--jobs=2",
                        "--color=no", *arguments, **others)  # fmt: skip

    def outputs(self, package):
        return outputs(self.sources / "bazel-bin" / package, Path(package).name)


def row(event, farm, *options, **others):
    """Builds the banks that tavrel packs. Returns the line of the table."""
    if event.startswith("clean"):
        farm.run("clean")
    start = time.monotonic()
    log = WORK / "log"
    code, text = farm.build("//banks/...", f"--execution_log_json_file={log}", *options, **others)
    seconds = time.monotonic() - start
    assert code == 0, (event, text)
    for name, expected in packed_by_tavrel(farm).items():
        assert farm.outputs(f"banks/{name}") == expected, (event, name)
    spawns = json.loads(f"[{log.read_text().replace('}{', '},{')}]")
    hits = [spawn["remoteCacheHit"] for spawn in spawns if spawn["mnemonic"] == "TavrelBank"]
    packed, cached = hits.count(False), hits.count(True)
    assert packed or all(spawn["remoteCacheHit"] for spawn in spawns), event
    if others:
        assert packed and cached and packed + cached == len(BANKS), (event, packed, cached)
        packed, cached = "the rest", "some"
    return f"| {event} | {packed} | {cached} | {seconds:.1f} s |\n"


def measure(game, disk, server, http):
    """Returns the lines of the table."""
    lines = row("first build, with an empty disk cache", game, disk)
    lines += row("nothing", game, disk)
    sound = game.sources / "banks/b007/a.wav"
    before = sound.read_bytes()
    sound.write_bytes(before[:-2] + b"\x11\x22")
    lines += row("a sound changes", game, disk)
    sound.write_bytes(before)
    lines += row("... and changes back", game, disk)
    lines += row("clean, from the disk cache", game, disk)
    lines += row("clean, with an empty server", game, http)
    lines += row("clean, from the server", game, http)
    shutil.copytree(game.sources, WORK / "copy", ignore=shutil.ignore_patterns("bazel-*"))
    copy = Farm("copy", "other base", SOURCE_DATE_EPOCH="7", TZ="Asia/Tokyo")
    lines += row("another source folder, output base and environment", copy, http)
    copy.run("shutdown")
    damage(WORK / "cache/cas")
    lines += row("clean, each file on the server is damaged or deleted", game, http)
    lines += row("clean, from the server", game, http)
    check_damaged_records(game, http)
    damaged = "clean, each record is damaged, with `--noremote_accept_cached`"
    lines += row(damaged, game, "--noremote_accept_cached", http)
    lines += row("clean, from the server", game, http)

    def kill_server(bazel):
        banks = "execroot/*/bazel-out/*/bin/banks/*/*.tvb"
        while bazel.poll() is None and len([*game.base.glob(banks)]) < 20:
            time.sleep(0.01)
        server.kill()

    return lines + row("clean, the server is killed meanwhile", game, http, meanwhile=kill_server)


def check_damaged_records(game, http):
    """Leaves damaged records. No wrong bank is built from them, and those that lead to empty outputs
    fail the build of the banks and of what is made from them. With the project's .bazelrc they fail
    also where an output group is all that is wanted."""
    every = ["//banks/...", "--keep_going", "--show_result=1000", http]
    game.run("clean")
    empty_outputs(WORK / "cache/ac")
    text = game.build(*every, "//more/list", "--noexperimental_run_validations")[1]
    assert text.count("failed to build\n") == len(BANKS) + 1, text
    text = game.build(*every, "--output_groups=bank")[1]
    assert text.count("failed to build\n") == len(BANKS), text
    empty_outputs(WORK / "cache/ac")
    damage(WORK / "cache/ac")
    game.run("clean")
    text = game.build(*every)[1]
    packed = packed_by_tavrel(game)
    for name in re.findall(r"Target //banks/\w+:(\w+) up-to-date", text):
        assert game.outputs(f"banks/{name}") == packed[name], name


def check_rule(game):
    """Checks what the rule refuses, and what its attributes do."""
    other = game.sources / "more/made/a.wav"
    for arguments, code, message in [
        ("//more/relative", 1, "tavkit: ..\\made\\a.wav isn't listed in"),
        ("//more/absolute", 1, f"tavkit: {other} isn't listed in"),
        ("//more/unused", 0, "unused.txt is listed in"),
        ("//:sfx --output_groups=bank", 0, "up-to-date:\n  bazel-bin/sfx.tvb\nINFO"),
        ("//:sfx --output_groups=header", 0, "up-to-date:\n  bazel-bin/sfx.h\nINFO"),
        ("//:all //more/loose //more/made //more/list", 0, "successfully"),
    ]:
        done = game.build(*arguments.split())
        assert done[0] == code and message in done[1], (arguments, done)
    assert "SO-SO_A_WAV" in game.outputs("more/loose")[1]
    assert game.outputs("more/made")[0] == game.outputs("banks/b000")[0]
    printed = subprocess.check_output(["bazel-bin/game", "bazel-bin/sfx.tvb"], cwd=game.sources)
    assert printed == b"2 assets, level one\n", printed


def main():
    write_project(WORK / "game")
    game = Farm("game", "base")
    server, http = start_server(WORK)
    try:
        lines = measure(game, f"--disk_cache={WORK}/disk", server, http)
        check_rule(game)
        document = re.sub(r"\d+\.\d s", "", Path(sys.argv[2]).read_text())
        if re.sub(r"\d+\.\d s", "", lines) not in document:
            sys.exit(f"{sys.argv[2]} has another table. The builds have run\n{lines}")
    finally:
        server.kill()
        game.run("shutdown")
        shutil.rmtree(WORK)


main()
