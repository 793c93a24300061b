#!/usr/bin/env python3
"""Writes a software bill of materials of what a build made, as SPDX 2.3 in JSON: each file that is handed out with its
checksums, and each Debian package whose code it holds or loads, with its version.

  scripts/make_sbom.py build/release            to standard output
  scripts/make_sbom.py build/debian -o FILE     of Debian packages (scripts/make_packages.sh), too

What is linked is read from the files themselves; of libraries that are headers alone, which leave no such trace, the
list is below. The time is SOURCE_DATE_EPOCH, or that of the last commit.
"""

import argparse
import datetime
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import uuid

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Compiled in, by file: package, where they are headers alone.
HEADERS = {
    "libquorvex_precise": ["libeigen3-dev"],
    "quorvex": ["libcli11-dev", "nlohmann-json3-dev", "libeigen3-dev"],
}
# Licences as their makers declare them, in SPDX's identifiers; what is not here is NOASSERTION.
LICENCES = {
    "libeigen3-dev": "MPL-2.0",
    "libcli11-dev": "BSD-3-Clause",
    "nlohmann-json3-dev": "MIT",
    "libfmt9": "MIT",
    "libpng16-16": "libpng-2.0",
    "libtiff6": "libtiff",
    "libjpeg62-turbo": "IJG AND BSD-3-Clause AND Zlib",
    "libcairo2": "LGPL-2.1-only OR MPL-1.1",
    "libstdc++6": "GPL-3.0-or-later WITH GCC-exception-3.1",
    "libgcc-s1": "GPL-3.0-or-later WITH GCC-exception-3.1",
    "libc6": "LGPL-2.1-or-later",
}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def version_of_project():
    return re.search(r"project\(quorvex VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text()).group(1)


def time_of_sources():
    epoch = os.environ.get("SOURCE_DATE_EPOCH") or output_of("git", "-C", str(ROOT), "log", "-1", "--format=%ct")
    return datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")


def products(build):
    """The files that are handed out, links left out."""
    version = version_of_project()
    names = list(build.glob(f"libquorvex*.so.{version}")) + list(build.glob(f"*_{version}_*.deb")) + [build / "quorvex"]
    found = sorted(path for path in names if path.is_file() and not path.is_symlink())
    if not found:
        sys.exit(f"make_sbom: nothing is built in {build}")
    return found


def is_program(path):
    with path.open("rb") as file:
        return file.read(4) == b"\x7fELF"


@functools.lru_cache(maxsize=None)
def owner_of(file):
    """The Debian package that has a library, which may be listed under its name before directories were merged."""
    for name in (file, file.removeprefix("/usr"), os.path.realpath(file)):
        owner = subprocess.run(["dpkg-query", "--search", name], capture_output=True, text=True)
        if owner.returncode == 0:
            return owner.stdout.split(":")[0]
    sys.exit(f"make_sbom: no Debian package has {file}")


def needed_packages(path):
    """The Debian packages of the libraries that a program or library names itself."""
    named = set(re.findall(r"NEEDED\s+(\S+)", output_of("objdump", "-p", str(path))))
    found = re.findall(r"^\s*(\S+) => (/\S+)", output_of("ldd", str(path)), re.MULTILINE)
    return {owner_of(file) for name, file in found if name in named and not name.startswith("libquorvex")}


def checksums(path):
    content = path.read_bytes()
    return [{"algorithm": name, "checksumValue": hashlib.new(name.lower(), content).hexdigest()}
            for name in ("SHA1", "SHA256")]


def spdx_id(kind, name):
    return f"SPDXRef-{kind}-" + re.sub(r"[^A-Za-z0-9.-]", "-", name)


def dependency(package):
    version = output_of("dpkg-query", "--show", "--showformat=${Version}", package)
    return {
        "SPDXID": spdx_id("Package", package),
        "name": package,
        "versionInfo": version,
        "supplier": "Organization: Debian",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": "NOASSERTION",
        "licenseDeclared": LICENCES.get(package, "NOASSERTION"),
        "copyrightText": "NOASSERTION",
        "externalRefs": [{
            "referenceCategory": "PACKAGE-MANAGER",
            "referenceType": "purl",
            "referenceLocator": f"pkg:deb/debian/{package.replace('+', '%2B')}@{version.replace('+', '%2B')}?arch=amd64",
        }],
    }


def make(build):
    version = version_of_project()
    quorvex = {
        "SPDXID": "SPDXRef-Package-quorvex-sources",
        "name": "quorvex",
        "versionInfo": version,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": "Apache-2.0",
        "licenseDeclared": "Apache-2.0",
        "copyrightText": "NOASSERTION",
    }
    files, relations, used = [], [], set()
    relate = lambda left, kind, right: relations.append(
        {"spdxElementId": left, "relationshipType": kind, "relatedSpdxElement": right})
    relate("SPDXRef-DOCUMENT", "DESCRIBES", quorvex["SPDXID"])
    for path in products(build):
        file = {
            "SPDXID": spdx_id("File", path.name),
            "fileName": f"./{path.name}",
            "checksums": checksums(path),
            "fileTypes": ["BINARY" if is_program(path) else "ARCHIVE"],
            "licenseConcluded": "Apache-2.0",
            "copyrightText": "NOASSERTION",
        }
        files.append(file)
        relate(file["SPDXID"], "GENERATED_FROM", quorvex["SPDXID"])
        if is_program(path):
            for package in sorted(needed_packages(path)):
                relate(file["SPDXID"], "DYNAMIC_LINK", spdx_id("Package", package))
                used.add(package)
            for package in HEADERS.get(path.name.split(".")[0], []):
                relate(file["SPDXID"], "STATIC_LINK", spdx_id("Package", package))
                used.add(package)
    document = {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"quorvex-{version}",
        "creationInfo": {"created": time_of_sources(), "creators": ["Tool: quorvex-make_sbom"]},
        "packages": [quorvex] + [dependency(package) for package in sorted(used)],
        "files": files,
        "relationships": relations,
    }
    content = hashlib.sha256(json.dumps(document, sort_keys=True).encode()).hexdigest()
    document["documentNamespace"] = f"https://quorvex.invalid/sbom/{uuid.uuid5(uuid.NAMESPACE_URL, content)}"
    return document


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path, help="a folder that the project was built in")
    parser.add_argument("-o", "--output", type=pathlib.Path, help="the file to write")
    options = parser.parse_args()
    text = json.dumps(make(options.build), indent=2) + "\n"
    if options.output:
        options.output.write_text(text, encoding="utf-8")
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
