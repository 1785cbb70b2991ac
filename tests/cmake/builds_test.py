#!/usr/bin/env python3
"""Builds the projects of integrations/ with the real build systems, changes their files, and looks at
what each build runs. The table of it is in docs/builds.md; it must be the same.

    builds_test.py INSTALLED DOCUMENT    INSTALLED: where this project is installed
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
ASSETS = "sound assets"
LEVEL = f"{ASSETS}/level_one.dat"
RECORDER = '#!/bin/sh\necho "{name} $*" >>"{log}"\nexec {program} "$@"\n'

# How each build system is set up and run. %s is the folder of the build, except for make.
CMAKE = "cmake -S . -B %s -DCMAKE_BUILD_TYPE=Debug '-DTAVKIT_EXECUTABLE={tavkit}' -G "
SYSTEMS = {
    "Ninja": ("cmake", CMAKE + "Ninja", "cmake --build %s"),
    "Ninja Multi-Config": ("cmake", CMAKE + "'Ninja Multi-Config'", "cmake --build %s"),
    "Makefiles": ("cmake", CMAKE + "'Unix Makefiles'", "cmake --build %s"),
    "make": ("make", ": %s", """make 'TAVKIT="{tavkit}"' 'CC={compiler}' folder=%s"""),
    "Meson": ("meson", "meson setup %s", "ninja -C %s"),
}


class Project:
    """A copy of a project, in a folder with a space in its name."""

    def __init__(self, work, system):
        self.system = system
        folder, setup, command = SYSTEMS[system]
        self.folder = work / f"{system} game"
        self.log = work / f"{system}.log"
        shutil.copytree(ROOT / "integrations" / folder, self.folder)
        tavkit = self.record(work / f"{system} tavkit", "packs", INSTALLED / "bin/tavkit")
        compiler = self.record(work / f"{system.replace(' ', '_')}_cc", "compiles", "cc")
        self.setup = setup.format(tavkit=tavkit)
        self.command = command.format(tavkit=tavkit, compiler=compiler)
        self.environment = dict(
            os.environ, TAVKIT=str(tavkit), CC=str(compiler),
            CMAKE_PREFIX_PATH=str(INSTALLED), PKG_CONFIG_PATH=str(INSTALLED / "share/pkgconfig"),
        )  # fmt: skip
        # A launcher that keeps objects would hide what is compiled.
        for variable in ("SOURCE_DATE_EPOCH", "CMAKE_C_COMPILER_LAUNCHER"):
            self.environment.pop(variable, None)

    def record(self, path, name, program):
        """Makes a program that is another one, and writes its arguments to the log."""
        path.write_text(RECORDER.format(name=name, log=self.log, program=f"'{program}'"))
        path.chmod(0o755)
        return path

    def run(self, command):
        return subprocess.run(
            command, shell=True, cwd=self.folder, env=self.environment, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        )  # fmt: skip

    def configure(self, build):
        done = self.run(self.setup % build)
        assert done.returncode == 0, (self.system, done.stdout)

    def build(self, command):
        """Returns what a build runs, as a cell of the table."""
        time.sleep(0.02)  # of the clock of the file system
        self.log.write_text("")
        done = self.run(command)
        if done.returncode != 0:
            named = re.search(r"^(.*: )?error: (\w+\.dat)", done.stdout, re.M)
            return f"fails, names {named[2]}" if named else f"fails: {done.stdout}"
        ran = self.log.read_text()
        packs, compiles = (re.findall(line, ran, re.M) for line in ("^packs", "^compiles.* -c "))
        counts = (len(packs), "pack"), (len(compiles), "compile")
        return ", ".join(f"{n} {what}" for n, what in counts if n) or "nothing"

    def output(self, name):
        return next(p for p in self.folder.rglob(name) if "CMakeFiles" not in p.parts)

    def edit(self, name, old, new):
        text = (self.folder / name).read_text()
        assert old in text
        (self.folder / name).write_text(text.replace(old, new))

    def edit_script(self, old, new):
        self.edit(f"{ASSETS}/my sounds.txt", old, new)

    def rename(self, old, new):
        """Renames the level, in the script and the game too."""
        (self.folder / f"{ASSETS}/{old}.dat").rename(self.folder / f"{ASSETS}/{new}.dat")
        self.edit_script(f"{old}.dat", f"{new}.dat")
        self.edit("game.c", old.upper(), new.upper())

    def add(self):
        (self.folder / f"{ASSETS}/more.dat").write_text("more")
        self.edit_script("ScriptEnd", "UserAsset more.dat AssetEnd ScriptEnd")


# What happens between two builds; each row begins where the one before it ends.
ROWS = [
    ("nothing", lambda p: None),
    ("an asset is touched", lambda p: (p.folder / LEVEL).touch()),
    ("... and nothing more", lambda p: None),
    ("an asset changes", lambda p: (p.folder / LEVEL).write_text("two")),
    ("an asset changes its size", lambda p: (p.folder / LEVEL).write_text("three")),
    ("an asset is added to disk and script", Project.add),
    ("an asset is removed from disk", lambda p: (p.folder / f"{ASSETS}/more.dat").unlink()),
    ("... and from the script", lambda p: p.edit_script("UserAsset more.dat AssetEnd ", "")),
    ("an asset is renamed, and its define in the game", lambda p: p.rename("level_one", "level_1")),
    ("... and gets its old name again", lambda p: p.rename("level_1", "level_one")),
    ("the script is touched", lambda p: (p.folder / ASSETS / "my sounds.txt").touch()),
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
    return project.build(f"{project.command} & {project.command} && wait $!" % ("one", "other"))


def check_game(project):
    """Runs the game: it finds its bank, and the bank fits the header with which it was compiled."""
    game, bank = project.output("game"), project.output("sfx.tvb")
    done = subprocess.run([game, bank], capture_output=True, text=True)
    assert done.stdout == "2 assets, level three\n", (project.system, done)


def column(work, system):
    """Returns the cells of a system's column."""
    project = Project(work, system)
    project.configure("build")
    command = project.command % "build"
    cells = [project.build(f"{command} -j8")]
    for _, change in ROWS:
        change(project)
        cells.append(project.build(command))
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
    measured = table()
    if f"\n\n{measured}\n" not in DOCUMENT.read_text():
        sys.exit(f"{DOCUMENT} has another table. The builds have run\n{measured}")


main()
