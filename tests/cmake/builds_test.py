#!/usr/bin/env python3
"""Builds the projects of integrations/ with the real build systems, changes their files, and looks at
what each build runs. The table of it is in docs/builds.md; it must be the same.

    builds_test.py INSTALLED DOCUMENT [--write]    INSTALLED: where this project is installed
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
INSTALLED = Path(sys.argv[1]).resolve()
DOCUMENT = Path(sys.argv[2])
SCRIPT = "sound assets/my sounds.txt"
LEVEL = "sound assets/level_one.dat"
RECORDER = '#!/bin/sh\necho "{name} $*" >>"{log}"\nexec {program} "$@"\n'

# How each build system is set up and run. %s is the folder of the build, except for make.
CMAKE = "cmake -S . -B %s -DCMAKE_BUILD_TYPE=Debug -G "
SYSTEMS = {
    "Ninja": ("cmake", CMAKE + "Ninja", "cmake --build %s"),
    "Ninja Multi-Config": ("cmake", CMAKE + "'Ninja Multi-Config'", "cmake --build %s"),
    "Makefiles": ("cmake", CMAKE + "'Unix Makefiles'", "cmake --build %s"),
    "make": ("make", None, "make"),
    "Meson": ("meson", "meson setup %s", "ninja -C %s"),
}


class Project:
    """A copy of a project, in a folder with a space in its name."""

    def __init__(self, work, system):
        self.system = system
        folder, self.setup, self.command = SYSTEMS[system]
        self.folder = work / f"{system} game"
        self.log = work / f"{system}.log"
        shutil.copytree(ROOT / "integrations" / folder, self.folder)
        tavkit = self.record(work / f"{system} tavkit", "packs", INSTALLED / "bin/tavkit")
        compiler = self.record(work / f"{system.replace(' ', '_')}_cc", "compiles", "cc")
        self.environment = dict(
            os.environ, TAVKIT=str(tavkit), CC=str(compiler),
            CMAKE_PREFIX_PATH=str(INSTALLED), PKG_CONFIG_PATH=str(INSTALLED / "share/pkgconfig"),
        )  # fmt: skip
        # A launcher that keeps objects would hide what is compiled.
        for variable in ("SOURCE_DATE_EPOCH", "CMAKE_C_COMPILER_LAUNCHER"):
            self.environment.pop(variable, None)
        if folder == "cmake":
            self.setup += f" '-DTAVKIT_EXECUTABLE={tavkit}'"
        if folder == "make":
            self.command += f" 'TAVKIT=\"{tavkit}\"' 'CC={compiler}'"

    def record(self, path, name, program):
        path.write_text(RECORDER.format(name=name, log=self.log, program=f"'{program}'"))
        path.chmod(0o755)
        return path

    def run(self, command):
        return subprocess.run(
            command, shell=True, cwd=self.folder, env=self.environment, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        )  # fmt: skip

    def configure(self, build="build"):
        if self.setup:
            done = self.run(self.setup % build)
            if done.returncode != 0:
                sys.exit(f"{self.system}: {done.stdout}")

    def build(self, command=None):
        """Returns what a build runs, as a cell of the table."""
        time.sleep(0.02)  # of the clock of the file system
        self.log.write_text("")
        command = command or (self.command % "build" if self.setup else self.command)
        done = self.run(command)
        ran = self.log.read_text().splitlines()
        packs = sum(line.startswith("packs") for line in ran)
        compiles = sum(line.startswith("compiles") and " -c " in line for line in ran)
        cell = [f"{n} {what}" for n, what in ((packs, "pack"), (compiles, "compile")) if n]
        if done.returncode != 0:
            named = re.search(r"^(.*: )?error: (\w+\.dat)", done.stdout, re.M)
            cell = [f"fails, names {named.group(2)}" if named else f"fails: {done.stdout}"]
        return ", ".join(cell) or "nothing"

    def output(self, name):
        return next(p for p in self.folder.rglob(name) if "CMakeFiles" not in p.parts)

    def edit(self, old, new):
        script = self.folder / SCRIPT
        text = script.read_text()
        assert old in text
        script.write_text(text.replace(old, new))


def renamed(project):
    level = project.folder / LEVEL
    level.rename(level.with_name("level_1.dat"))
    project.edit("level_one.dat", "level_1.dat")
    game = project.folder / "game.c"
    game.write_text(game.read_text().replace("LEVEL_ONE", "LEVEL_1"))


def renamed_back(project):
    (project.folder / LEVEL).with_name("level_1.dat").rename(project.folder / LEVEL)
    project.edit("level_1.dat", "level_one.dat")
    game = project.folder / "game.c"
    game.write_text(game.read_text().replace("LEVEL_1", "LEVEL_ONE"))


def added(project):
    (project.folder / "sound assets/more.dat").write_text("more")
    project.edit("ScriptEnd", "UserAsset more.dat AssetEnd ScriptEnd")


# What happens between two builds; each row begins where the one before it ends.
ROWS = [
    ("nothing", lambda p: None),
    ("an asset is touched", lambda p: (p.folder / LEVEL).touch()),
    ("... and nothing more", lambda p: None),
    ("an asset changes", lambda p: (p.folder / LEVEL).write_text("two")),
    ("an asset changes its size", lambda p: (p.folder / LEVEL).write_text("three")),
    ("an asset is added to disk and script", added),
    ("an asset is removed from disk", lambda p: (p.folder / "sound assets/more.dat").unlink()),
    ("... and from the script", lambda p: p.edit("UserAsset more.dat AssetEnd ", "")),
    ("an asset is renamed, and its define in the game", renamed),
    ("... and gets its old name again", renamed_back),
    ("the script is touched", lambda p: (p.folder / SCRIPT).touch()),
    ("the header is deleted", lambda p: p.output("sfx.h").unlink()),
    ("the bank is deleted", lambda p: p.output("sfx.tvb").unlink()),
    ("nothing, once more", lambda p: None),
]


def two_configurations(project):
    """Returns what two configurations run that are built at once, from nothing."""
    if project.system == "Ninja Multi-Config":
        project.configure("both -DCMAKE_CROSS_CONFIGS=all")
        return project.build("ninja -C both game:Debug game:Release")
    if project.system == "make":
        return "-"
    project.configure("one")
    project.configure("other")
    first, second = project.command % "one", project.command % "other"
    return project.build(f"{first} & {second} && wait $!")


def check_game(project):
    """Runs the game: it finds its bank, and the bank fits the header with which it was compiled."""
    game = project.output("game")
    done = subprocess.run(
        [game, project.output("sfx.tvb")], capture_output=True, text=True, check=False
    )  # fmt: skip
    assert done.stdout == "2 assets, level three\n", (project.system, done)


def column(work, system):
    """Returns the cells of a system's column."""
    project = Project(work, system)
    project.configure()
    command = project.command % "build" if project.setup else project.command
    cells = [project.build(command + " -j8")]
    for _, change in ROWS:
        change(project)
        cells.append(project.build())
    check_game(project)
    return cells + [two_configurations(project)]


def table():
    with tempfile.TemporaryDirectory() as work:
        columns = [column(Path(work), system) for system in SYSTEMS]
    events = ["first build, with -j8"] + [event for event, _ in ROWS]
    events.append("first build of two configurations at once")
    lines = [["What happens", *SYSTEMS], ["---"] * (len(SYSTEMS) + 1), *zip(events, *columns)]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def main():
    document = DOCUMENT.read_text()
    start = document.index("| What happens")
    end = document.index("\n\n", start) + 1
    measured = table()
    if sys.argv[3:] == ["--write"]:
        DOCUMENT.write_text(document[:start] + measured + document[end:])
    elif document[start:end] != measured:
        sys.exit(f"{DOCUMENT} has\n{document[start:end]}\nThe builds have run\n{measured}")


main()
