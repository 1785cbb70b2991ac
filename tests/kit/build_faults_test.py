#!/usr/bin/env python3
"""Ends tavkit build at every system call, and lets every write, flush and rename fail: the outputs are
the older or the newer ones, whole, and the next build completes them. build_faults_test.py TAVKIT"""
import contextlib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

OUTPUTS = ("b.tvb", "b.h", "d")
BUILD = [os.path.abspath(sys.argv[1]), "build", "s.txt", "--depfile", "d", "--stamp", "t"]
WRITING = {"write", "writev", "fsync", "rename", "renameat", "renameat2", "close"}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True)


def build():
    """Returns the outputs."""
    done = run(*BUILD)
    assert done.returncode == 0, done
    return contents()


def contents():
    return [Path(name).read_bytes() for name in OUTPUTS]


def write_script(*assets):
    blocks = "".join(f"UserAsset {name} AssetEnd\n" for name in assets)
    Path("s.txt").write_text(f"BankFileName b.tvb\n{blocks}ScriptEnd\n")


def build_old():
    """Builds the older outputs, and makes the inputs those of the newer ones."""
    write_script("x.dat")
    outputs = build()
    write_script("x.dat", "y.dat")
    os.utime("t", (1, 1))
    return outputs


def strace(*options):
    return run("strace", "-qq", *options, *BUILD)


def inject(fault, codes, calls, new, may_leave_files=False):
    """Runs a build with a fault in each of the system calls."""
    for number, call in enumerate(calls):
        what = f"{call}:{fault}:when={calls[:number].count(call) + 1}"
        old = build_old()
        done = strace("-o", "/dev/null", "-e", f"inject={what}")
        assert done.returncode in codes, f"{what}: {done}"
        outputs, stamp = contents(), os.stat("t").st_mtime
        left = [name for name in os.listdir() if name.endswith(".tmp")]
        assert may_leave_files or not left, f"{what}: {left} is left"
        for name in left:
            os.remove(name)
        assert build() == new, f"{what}: the next build fails"
        for name, content, before, after in zip(OUTPUTS, outputs, old, new):
            assert before != after and content in (before, after), f"{what}: {name} is damaged"
        assert stamp == 1 or outputs == new, f"{what}: the stamp is new before the outputs"


os.environ["SOURCE_DATE_EPOCH"] = "0"
with tempfile.TemporaryDirectory() as folder, contextlib.chdir(folder):
    Path("x.dat").write_text("x")
    Path("y.dat").write_text("y")
    build_old()
    os.chmod("b.tvb", 0o600)
    strace("-o", "trace")
    new = contents()
    trace = Path("trace").read_text()
    every = re.findall(r"^(\w+)\(", trace, re.M)
    assert re.search(r"O_EXCL\S* 0600\)", trace), "others can open the new bank"
    # Without those that end it.
    calls = [name for name in every if name not in ("execve", "exit_group")]
    writing = [name for name in calls if name in WRITING]
    assert writing.count("fsync") == 4 and len(set(calls)) > 10
    inject("signal=KILL", (-9, 128 + 9), calls, new, may_leave_files=True)
    inject("signal=TERM", (-15, 128 + 15), calls, new)
    inject("error=ENOSPC", (0, 2), writing, new)
    print(f"{len(calls)} system calls, {len(writing)} of them write, flush, rename or close")
