"""The bill of materials of a build: complete, consistent and the same every time.

sbom_test.py SCRIPT BUILD_FOLDER
"""

import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

SCRIPT, BUILD = sys.argv[1], pathlib.Path(sys.argv[2])


def make_sbom():
    environment = dict(os.environ, SOURCE_DATE_EPOCH="1700000000")
    return subprocess.run([SCRIPT, BUILD], check=True, capture_output=True, text=True, env=environment).stdout


class SbomTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = make_sbom()
        cls.document = json.loads(cls.text)
        cls.files = {pathlib.Path(file["fileName"]).name: file for file in cls.document["files"]}

    def linked(self, name, kind):
        """The packages that a file is linked with."""
        ids = {package["SPDXID"]: package["name"] for package in self.document["packages"]}
        return {ids[relation["relatedSpdxElement"]] for relation in self.document["relationships"]
                if relation["spdxElementId"] == self.files[name]["SPDXID"] and relation["relationshipType"] == kind}

    def library(self):
        return next(name for name in self.files if re.match(r"libquorvex\.so\.", name))

    def test_says_what_it_is(self):
        self.assertEqual(self.document["spdxVersion"], "SPDX-2.3")
        self.assertEqual(self.document["dataLicense"], "CC0-1.0")
        self.assertEqual(self.document["creationInfo"]["created"], "2023-11-14T22:13:20Z")
        self.assertRegex(self.document["documentNamespace"], r"^https://[^#]+$")

    def test_is_the_same_every_time(self):
        self.assertEqual(make_sbom(), self.text)

    def test_has_the_files_with_their_checksums(self):
        self.assertIn("quorvex", self.files)
        for name, file in self.files.items():
            sums = {entry["algorithm"]: entry["checksumValue"] for entry in file["checksums"]}
            content = (BUILD / name).read_bytes()
            self.assertEqual(sums, {"SHA1": hashlib.sha1(content).hexdigest(),
                                    "SHA256": hashlib.sha256(content).hexdigest()}, name)

    def test_every_relation_leads_somewhere(self):
        ids = [entry["SPDXID"] for entry in self.document["files"] + self.document["packages"]]
        self.assertEqual(len(ids), len(set(ids)))
        for relation in self.document["relationships"]:
            for end in (relation["spdxElementId"], relation["relatedSpdxElement"]):
                self.assertIn(end, ids + ["SPDXRef-DOCUMENT"])

    def test_every_identifier_is_well_formed(self):
        for entry in self.document["files"] + self.document["packages"]:
            self.assertRegex(entry["SPDXID"], r"^SPDXRef-[A-Za-z0-9.-]+$")

    def test_the_library_needs_the_standard_library_alone(self):
        allowed = {"libc6", "libgcc-s1", "libstdc++6"}
        self.assertLessEqual(self.linked(self.library(), "DYNAMIC_LINK"), allowed)
        self.assertIn("libc6", self.linked(self.library(), "DYNAMIC_LINK"))
        self.assertEqual(self.linked(self.library(), "STATIC_LINK"), set())

    def test_the_command_names_what_it_reads_pictures_with(self):
        self.assertLessEqual({"libpng16-16", "libtiff6", "libjpeg62-turbo"}, self.linked("quorvex", "DYNAMIC_LINK"))
        self.assertIn("libcli11-dev", self.linked("quorvex", "STATIC_LINK"))

    def test_versions_are_those_that_are_installed(self):
        for package in self.document["packages"]:
            if package["name"] != "quorvex":
                installed = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package["name"]], check=True,
                                           capture_output=True, text=True).stdout
                self.assertEqual(package["versionInfo"], installed, package["name"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
