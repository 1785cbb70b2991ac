#!/usr/bin/env python3
"""Prints what is in a release, as an SPDX 2.3 document: bill_of_materials.py FOLDER COMMIT TIME

FOLDER has the source archive, the Debian package and the zip. The libraries that the programs in them link
are those of this host. The same release gives the same document: TIME, in seconds since 1970, and the
commit are all that it says of its making.
"""

import datetime
import hashlib
import io
import json
import pathlib
import subprocess
import sys
import tarfile
import urllib.parse
import zipfile

GCC_LICENSE = "GPL-3.0-or-later WITH GCC-exception-3.1"
LINUX, WINDOWS = "g++", "x86_64-w64-mingw32-g++-posix"
# Name, license, what links it, and a file by which its package is found. A file without a path is asked of
# the compiler that links it.
LIBRARIES = (
    ("fmt", "MIT", ("tavkit", "tavkit.exe"), "/usr/include/fmt/format.h", None),
    ("CLI11", "BSD-3-Clause", ("tavkit", "tavkit.exe"), "/usr/include/CLI/CLI.hpp", None),
    ("nlohmann-json", "MIT", ("tavkit", "tavkit.exe"), "/usr/include/nlohmann/json.hpp", None),
    ("libstdc++", GCC_LICENSE, ("tavrel", "tavkit"), "libstdc++.a", LINUX),
    ("libgcc", GCC_LICENSE, ("tavrel", "tavkit"), "libgcc.a", LINUX),
    ("glibc", "LGPL-2.1-or-later", ("tavrel", "tavkit"), "libc.a", LINUX),
    ("libstdc++-windows", GCC_LICENSE, ("tavrel.exe", "tavkit.exe"), "libstdc++.a", WINDOWS),
    ("libgcc-windows", GCC_LICENSE, ("tavrel.exe", "tavkit.exe"), "libgcc.a", WINDOWS),
    ("libssp-windows", GCC_LICENSE, ("tavrel.exe", "tavkit.exe"), "libssp.a", WINDOWS),
    ("mingw-w64", "ZPL-2.1", ("tavrel.exe", "tavkit.exe"), "libmsvcrt.a", WINDOWS),
)
PURPOSES = {".gz": "SOURCE", ".deb": "INSTALL", ".zip": "ARCHIVE"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def checksums(content, *algorithms):
    return [{"algorithm": name, "checksumValue": hashlib.new(name, content).hexdigest()}
            for name in algorithms]


def contents(archive):
    """Returns the names and bytes of the files in a package. The source archive counts as one."""
    if archive.suffix == ".deb":
        with tarfile.open(fileobj=io.BytesIO(output_of("dpkg-deb", "--fsys-tarfile", archive))) as tar:
            return {member.name: tar.extractfile(member).read() for member in tar if member.isfile()}
    if archive.suffix == ".zip":
        with zipfile.ZipFile(archive) as packed:
            return {f"./{name}": packed.read(name) for name in packed.namelist() if name[-1] != "/"}
    return {}


def library_package(name, license_name, file, compiler):
    if compiler:
        file = output_of(compiler, f"-print-file-name={file}").decode().strip()
    package = output_of("dpkg", "-S", pathlib.Path(file).resolve()).decode().split(":")[0]
    version = output_of("dpkg-query", "-W", "-f", "${Version}", package).decode()
    locator = f"pkg:deb/debian/{urllib.parse.quote(package)}@{urllib.parse.quote(version)}"
    return {
        "SPDXID": f"SPDXRef-{name.replace('+', 'p')}", "name": name, "versionInfo": version,
        "supplier": "Organization: Debian", "downloadLocation": "NOASSERTION", "filesAnalyzed": False,
        "licenseConcluded": license_name, "licenseDeclared": license_name,
        "copyrightText": "NOASSERTION",
        "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                          "referenceLocator": locator}],
    }


def release_package(archive, version, files):
    package = {
        "SPDXID": f"SPDXRef-{PURPOSES[archive.suffix].lower()}", "name": "tavrel",
        "versionInfo": version, "packageFileName": archive.name,
        "primaryPackagePurpose": PURPOSES[archive.suffix], "supplier": "Organization: The tavrel maintainers",
        "downloadLocation": "NOASSERTION", "filesAnalyzed": bool(files), "licenseConcluded": "MIT",
        "licenseDeclared": "MIT", "copyrightText": "Copyright (c) 2026 The tavrel maintainers",
        "checksums": checksums(archive.read_bytes(), "SHA256"),
    }
    if files:
        sums = sorted(entry["checksums"][0]["checksumValue"] for entry in files)
        code = hashlib.sha1("".join(sums).encode()).hexdigest()
        package["packageVerificationCode"] = {"packageVerificationCodeValue": code}
        package["licenseInfoFromFiles"] = ["NOASSERTION"]
    return package


def document(folder, commit, time):
    relationships = []

    def relate(first, kind, second):
        relationships.append({"spdxElementId": first["SPDXID"], "relationshipType": kind,
                              "relatedSpdxElement": second["SPDXID"]})

    source, = folder.glob("*.tar.gz")
    version = source.name.removeprefix("tavrel-").removesuffix(".tar.gz")
    made = datetime.datetime.fromtimestamp(int(time), datetime.timezone.utc)
    spdx = {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"tavrel-{version}",
        "documentNamespace": f"https://spdx.org/spdxdocs/tavrel-{version}-{commit}",
        "creationInfo": {"created": made.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Tool: bill_of_materials.py"]},
        "packages": [], "files": [], "relationships": relationships,
    }
    programs = {}
    for archive in [source, *sorted(folder.glob("*.deb")), *sorted(folder.glob("*.zip"))]:
        kind = PURPOSES[archive.suffix].lower()
        files = [{"SPDXID": f"SPDXRef-{kind}-{number}", "fileName": name,
                  "checksums": checksums(content, "SHA1", "SHA256")}
                 for number, (name, content) in enumerate(sorted(contents(archive).items()))]
        package = release_package(archive, version, files)
        relate(spdx, "DESCRIBES", package)
        if spdx["packages"]:
            relate(package, "GENERATED_FROM", spdx["packages"][0])
        for entry in files:
            relate(package, "CONTAINS", entry)
            if "/bin/" in entry["fileName"]:
                programs[entry["fileName"].rpartition("/")[2]] = entry
        spdx["packages"].append(package)
        spdx["files"] += files
    for name, license_name, links, file, compiler in LIBRARIES:
        library = library_package(name, license_name, file, compiler)
        spdx["packages"].append(library)
        for program in links:
            relate(programs[program], "STATIC_LINK", library)
    return spdx


json.dump(document(pathlib.Path(sys.argv[1]), *sys.argv[2:]), sys.stdout, indent=1)
print()
