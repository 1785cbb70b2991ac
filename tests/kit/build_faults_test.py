#!/usr/bin/env python3
"""Ends tavkit build at every system call, and lets every write, flush and rename fail: the outputs are
the older or the newer ones, whole, and the next build completes them. build_faults_test.py TAVKIT"""
import os
import re
import signal
import subprocess
import sys
import tempfile
from collections import Counter
from pathlib import Path

TAVKIT = str(Path(sys.argv[1]).resolve())
SCRIPT = "BankFileName b.tvb\n{}\nScriptEnd\n"
OUTPUTS = ("b.tvb", "b.h", "d")
BUILD = [TAVKIT, "build", "s.txt", "--depfile", "d", "--stamp", "t"]
WRITING = {"write", "writev", "fsync", "rename", "renameat", "renameat2", "close"}


def run(command):
    return subprocess.run(command, capture_output=True, text=True)


def contents():
    return [Path(name).read_bytes() for name in OUTPUTS]


def write_inputs(assets):
    blocks = "".join(f"UserAsset {name} AssetEnd\n" for name in assets)
    Path("s.txt").write_text(SCRIPT.format(blocks))


def build_old():
    """Builds the older outputs, and makes the inputs those of the newer ones."""
    write_inputs(["x.dat"])
    done = run(BUILD)
    assert done.returncode == 0, done
    write_inputs(["x.dat", "y.dat"])
    os.utime("t", (1, 1))


def check_outcome(what, old, new, may_leave_files):
    for name, content, before, after in zip(OUTPUTS, contents(), old, new):
        assert content in (before, after), f"{what}: {name} is damaged"
    if os.stat("t").st_mtime != 1:
        assert contents() == new, f"{what}: the stamp is new before the outputs"
    left = [name for name in os.listdir() if name.endswith(".tmp")]
    assert may_leave_files or not left, f"{what}: {left} is left"
    for name in left:
        os.remove(name)
    assert run(BUILD).returncode == 0 and contents() == new, f"{what}: the next build fails"


def inject(fault, old, new, may_leave_files, codes, calls):
    """Runs a build with a fault in each of the system calls. Returns how many."""
    seen = Counter()
    for call in calls:
        seen[call] += 1
        what = f"{call}:{fault}:when={seen[call]}"
        build_old()
        done = run(["strace", "-qq", "-o", "/dev/null", "-e", f"inject={what}", *BUILD])
        check_outcome(what, old, new, may_leave_files)
        assert done.returncode in codes, f"{what}: {done}"
    return len(calls)


def system_calls():
    """Returns the names of a build's system calls in their order, without those that end it."""
    build_old()
    run(["strace", "-qq", "-o", "trace", *BUILD])
    names = re.findall(r"^(\w+)\(", Path("trace").read_text(), re.M)
    os.remove("trace")
    return [name for name in names if name not in ("execve", "exit_group")]


def main():
    os.environ["SOURCE_DATE_EPOCH"] = "0"
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        Path("x.dat").write_text("x")
        Path("y.dat").write_text("y")
        build_old()
        old = contents()
        assert run(BUILD).returncode == 0
        new = contents()
        assert all(before != after for before, after in zip(old, new))
        calls = system_calls()
        writing = [call for call in calls if call in WRITING]
        killed = {-signal.SIGKILL, 128 + signal.SIGKILL}
        inject("signal=KILL", old, new, True, killed, calls)
        ended = {-signal.SIGTERM, 128 + signal.SIGTERM}
        inject("signal=TERM", old, new, False, ended, calls)
        inject("error=ENOSPC", old, new, False, {0, 2}, writing)
        print(f"{len(calls)} system calls, {len(writing)} of them write, flush, rename or close")
        assert writing.count("fsync") == 4 and len(set(calls)) > 10
        os.chdir("/")


main()
