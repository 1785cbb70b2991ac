#!/usr/bin/env python3
"""Reads the depfiles of `tavkit deps` with make and ninja: deps_builds_test.py TAVKIT

Both must find each name that tavkit accepts, wherever it is in the depfile. For each character and
position that it refuses there is a name that one of them reads wrong.
"""

import os
import subprocess
import sys
import tempfile

TAVKIT = os.path.abspath(sys.argv[1])
failures = 0

SCRIPTS = ["a b.txt", " s.txt", "a#b.txt", "a$b.txt", "$(x).txt", "a%b.txt", "a:b.txt", "a\\b.txt",
           "in a folder/a  b.txt", "a(b.txt", "a)s", "a!s", "a{b},c", "@s", "+s", "-s", "\udcff"]
ASSETS = ["a#b", "a$b", "$(x)b", "a%b", "%", "a\\%b", "a:b", "C:\\b", "a\\b", "a\\\\b", "a(b", "a)b",
          "a!b", "{a}", "@a", "a~b", "a]", "a,b", "-include", "export", "endif", "é\udcff"]
TARGETS = ["a b", "a#b", "a$b", "a:b", "a\\b", "o u t/b"]
# The position in which a name goes wrong: script, asset or target.
REFUSED = [('a"b', "script"), ("a'b", "script"), ("a&b", "script"), ("a*b", "asset"),
           ("a;b", "script"), ("a<b", "asset"), ("a=b", "asset"), ("a>b", "asset"),
           ("a?b", "asset"), ("a[x]b", "asset"), ("a^b", "asset"), ("a|b", "asset"),
           ("a`b", "asset"), ("~", "asset"), ("a(b)", "asset"), ("a\\", "asset"), ("a:", "asset"),
           ("a ", "script"), ("a\tb", "script"), ("a\\ b", "script"), ("a\\#b", "asset"),
           ("a\\:b", "asset"), ("a\\$b", "asset"), ("a\x7fb", "asset"), ("define", "script"),
           ("undefine", "script"), (".PHONY", "target"), ("a%b", "target"), ("a;b", "target")]


def escaped(name):
    for character, written in ("$", "$$"), ("#", "\\#"), (" ", "\\ "), (":", "\\:"):
        name = name.replace(character, written)
    return name


def call(*command):
    return subprocess.run(command, capture_output=True, check=False, errors="surrogateescape",
                          env=dict(os.environ, HOME="/nowhere"))


def write(name, content=""):
    os.makedirs(os.path.dirname(name) or ".", exist_ok=True)
    with open(name, "w", encoding="utf-8", errors="surrogateescape") as file:
        file.write(content)


def touch(name, time):
    if not os.path.exists(name):
        write(name)
    os.utime(name, (time, time))


def make_reads(target, names):
    """Returns whether make rebuilds the target for each name, changed or gone, and only then."""
    write("Makefile", f"include deps.d\n{escaped(target)}:\n\t@false\n")
    for name in names:
        touch(name, 1000)
    touch("axb", 1000)  # which a pattern would find
    touch(target, 2000)
    answers = [call("make", "-q", "--", target).returncode == 0]
    for name in names:
        touch(name, 3000)
        answers.append(call("make", "-q", "--", target).returncode == 1)
        if name != names[0] and "%" not in name:
            os.remove(name)
            answers.append(call("make", "-q", "--", target).returncode == 1)
        touch(name, 1000)
    return all(answers)


def ninja_reads(target, names):
    """Returns whether ninja finds these names, and takes the depfile for that of the target."""
    in_ninja = target.replace("$", "$$").replace(" ", "$ ").replace(":", "$:")
    for name in names:
        touch(name, 1000)
    rule = "rule r\n  depfile = copy.d\n  command = cp deps.d copy.d && touch -- $out\n"
    answers = []
    for deps in "", "  deps = gcc\n":
        write("build.ninja", f"{rule}{deps}build {in_ninja}: r\n")
        call("ninja")
        answers.append("no work to do" in call("ninja", "-n").stdout)
    listed = call("ninja", "-t", "deps", target).stdout.splitlines()
    return all(answers) and [line[4:] for line in listed if line.startswith("    ")] == names


def in_new_folder(function):
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        try:
            return function()
        finally:
            os.chdir("/")


def expect(is_right, what):
    global failures
    if not is_right:
        print(what.encode(errors="backslashreplace").decode(), file=sys.stderr)
        failures += 1


def expect_read(target, script, assets):
    blocks = "".join(f"UserAsset {asset} AssetEnd\n" for asset in assets)
    write(script, f"BankFileName b.tvb\n{blocks}ScriptEnd\n")
    made = call(TAVKIT, "deps", "--target", target, "-o", "deps.d", "--", script)
    names = [script] + assets
    expect(made.returncode == 0, f"{target}, {script}: {made.stderr}")
    expect(make_reads(target, names), f"make reads {target}, {script} or an asset wrong")
    expect(ninja_reads(target, names), f"ninja reads {target}, {script} or an asset wrong")


def expect_refused(name, position):
    target, script, asset = (name if position == each else each
                             for each in ("target", "script", "asset"))
    write(script, f"BankFileName b.tvb\nUserAsset {asset} AssetEnd\nScriptEnd\n")
    refused = call(TAVKIT, "deps", "--target", target, "--", script)
    expect(refused.returncode == 2 and not refused.stdout, f"{name} isn't refused as {position}")
    rule = "" if "%" in asset else f"\n{escaped(asset)}:\n"
    write("deps.d", f"{escaped(target)}: \\\n  {escaped(script)} \\\n  {escaped(asset)}\n{rule}")
    names = [script, asset]
    expect(not make_reads(target, names) or not ninja_reads(target, names),
           f"make and ninja read {name} right as {position}")


for one in SCRIPTS:
    in_new_folder(lambda: expect_read("out", one, ASSETS))
for one in TARGETS:
    in_new_folder(lambda: expect_read(one, "s.txt", ["a"]))
for row in REFUSED:
    in_new_folder(lambda: expect_refused(*row))
sys.exit(failures > 0)
