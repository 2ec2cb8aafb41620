#!/usr/bin/env python3
"""Installs a build into a folder of its own and looks at what came: every file, programs that find one another and
their data from there, and desktop files, manuals and completions that hold what they promise."""

import argparse
import gzip
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

SOURCE = pathlib.Path(__file__).resolve().parents[2]
COMMANDS = ["new", "evaluate", "report", "convert", "dump", "check", "table"]
SIZES = [16, 24, 32, 48, 64, 128, 256]

ALWAYS = [
    "bin/vexa-cli",
    "bin/vexa-jet",
    "bin/vexa-report",
    "share/bash-completion/completions/vexa-cli",
    "share/doc/vexa/changelog.gz",
    "share/doc/vexa/copyright",
    "share/man/man1/vexa-cli.1.gz",
    "share/man/man1/vexa-jet.1.gz",
    "share/man/man1/vexa-report.1.gz",
    "share/vexa/Custom.dct",
    "share/vexa/QEL.new",
    "share/vexa/samples/granite-fork-complex.qel",
    "share/vexa/samples/juniper-gap.qel",
    "share/vexa/samples/smith-creek.qel",
    "share/zsh/vendor-completions/_vexa-cli",
]
WITH_WINDOWS = [
    "bin/vexa",
    "share/applications/vexa.desktop",
    "share/icons/hicolor/scalable/apps/vexa.svg",
    "share/icons/hicolor/scalable/mimetypes/application-x-vexa.svg",
    *[f"share/icons/hicolor/{size}x{size}/apps/vexa.png" for size in SIZES],
    *[f"share/icons/hicolor/{size}x{size}/mimetypes/application-x-vexa.png" for size in SIZES],
    "share/man/man1/vexa.1.gz",
    "share/metainfo/org.example.vexa.metainfo.xml",
    "share/mime/packages/vexa.xml",
    "share/vexa/VEXAPlus.hlp",
]

options = None
folder = None  # of the installation


def setUpModule():
    global folder
    folder = tempfile.TemporaryDirectory(prefix="vexa-test-")
    command = [options.cmake, "--install", options.build, "--prefix", folder.name]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def tearDownModule():
    folder.cleanup()


class Installation(unittest.TestCase):
    """Looks at the one installation; each test has a home of its own."""

    def setUp(self):
        home = tempfile.TemporaryDirectory(prefix="vexa-test-")
        self.addCleanup(home.cleanup)
        self.home = pathlib.Path(home.name)
        self.prefix = pathlib.Path(folder.name)

    def run_program(self, *command, status=0, **more):
        told = {"PATH": os.environ.get("PATH", ""), "HOME": str(self.home), "LC_ALL": "C.UTF-8"}
        ran = subprocess.run(
            [str(word) for word in command], env=told, cwd=self.home, capture_output=True, text=True, **more
        )
        self.assertEqual(ran.returncode, status, f"{command}\n{ran.stdout[-2000:]}\n{ran.stderr[-2000:]}")
        return ran

    def companion(self, *arguments, **more):
        return self.run_program(self.prefix / "bin/vexa-cli", *arguments, **more)

    def sample(self, name="smith-creek"):
        """A copy of an installed sample in the home."""
        return shutil.copy(self.prefix / f"share/vexa/samples/{name}.qel", self.home)

    def tool(self, name):
        if shutil.which(name) is None:
            self.skipTest(f"{name} is not installed")
        return name

    def windows(self):
        if not options.windows:
            self.skipTest("built without windows")

    def installed_text(self, name):
        path = self.prefix / name
        read = gzip.open if path.suffix == ".gz" else open
        with read(path, "rt", encoding="utf-8") as file:
            return file.read()


class Files(Installation):
    def test_everything_comes_and_nothing_else(self):
        found = {str(p.relative_to(self.prefix)) for p in self.prefix.rglob("*") if not p.is_dir()}
        self.assertEqual(sorted(found), sorted(ALWAYS + (WITH_WINDOWS if options.windows else [])))

    def test_modes_are_those_of_programs_and_files(self):
        for path in (p for p in self.prefix.rglob("*") if p.is_file()):
            wanted = 0o755 if path.parent.name == "bin" else 0o644
            self.assertEqual(path.stat().st_mode & 0o777, wanted, path)

    def test_pictures_have_the_sizes_of_their_folders(self):
        self.windows()
        for path in self.prefix.rglob("*.png"):
            width = int.from_bytes(path.read_bytes()[16:20], "big")
            height = int.from_bytes(path.read_bytes()[20:24], "big")
            self.assertEqual(f"{width}x{height}", path.parent.parent.name, path)


class Programs(Installation):
    def test_evaluate_reads_an_installed_sample(self):
        figures = json.loads(self.companion("evaluate", self.sample()).stdout)
        self.assertEqual(figures["fireName"], "Smith Creek")

    def test_new_finds_the_template_and_fills_the_users_folder(self):
        self.companion("new", "Made.qel")
        self.assertEqual(self.companion("check", "Made.qel").stdout, "ok\n")
        user = self.home / ".local/share/vexa"
        for name in ("QEL.new", "Custom.dct", "samples/smith-creek.qel"):
            self.assertEqual((user / name).read_bytes(), (self.prefix / "share/vexa" / name).read_bytes())

    def test_convert_finds_the_reader_of_jet_databases(self):
        fire = shutil.copy(SOURCE / "tests/data/legacy/06.01.01-hatchet-empty.jet3.qel", self.home)
        self.companion("convert", "--yes", fire)
        self.assertEqual(pathlib.Path(fire).read_bytes()[:15], b"SQLite format 3")

    def test_report_finds_the_program_that_makes_it(self):
        self.companion("report", self.sample(), "out.pdf", "--sections", "10")
        self.assertEqual((self.home / "out.pdf").read_bytes()[:5], b"%PDF-")


class DesktopFiles(Installation):
    def setUp(self):
        super().setUp()
        self.windows()
        self.entry = dict(
            line.split("=", 1) for line in self.installed_text("share/applications/vexa.desktop").splitlines()[1:]
        )
        self.metainfo = ElementTree.fromstring(
            self.installed_text("share/metainfo/org.example.vexa.metainfo.xml").encode()
        )

    def test_a_double_click_on_a_fire_opens_it(self):
        self.assertEqual(self.entry["Exec"], "vexa %f")
        space = "{http://www.freedesktop.org/standards/shared-mime-info}"
        mime = ElementTree.fromstring(self.installed_text("share/mime/packages/vexa.xml").encode())
        kind = mime.find(f"{space}mime-type")
        self.assertEqual(self.entry["MimeType"], kind.get("type") + ";")
        self.assertEqual(kind.find(f"{space}glob").get("pattern"), "*.qel")
        self.assertEqual(kind.find(f"{space}icon").get("name"), kind.get("type").replace("/", "-"))

    def test_recent_documents_go_by_the_same_names(self):
        written = (SOURCE / "src/platform/widgets/RecentDocuments.cpp").read_text(encoding="utf-8")
        for told in (self.entry["MimeType"].rstrip(";"), self.entry["Exec"], self.entry["Name"]):
            self.assertIn(f'"{told}"', written)

    def test_metainfo_tells_what_is_installed(self):
        self.assertEqual(self.metainfo.findtext("launchable"), "vexa.desktop")
        self.assertEqual(self.metainfo.findtext("name"), self.entry["Name"])
        for binary in self.metainfo.iterfind("provides/binary"):
            self.assertTrue((self.prefix / "bin" / binary.text).is_file(), binary.text)

    def test_desktop_entry_is_valid(self):
        tool = self.tool("desktop-file-validate")
        told = self.run_program(tool, self.prefix / "share/applications/vexa.desktop").stdout
        self.assertEqual(told, "")

    def test_metainfo_is_valid(self):
        tool = self.tool("appstreamcli")
        path = self.prefix / "share/metainfo/org.example.vexa.metainfo.xml"
        self.run_program(tool, "validate", "--no-net", path)

    def test_fires_are_known_by_name_and_by_content(self):
        update, ask = self.tool("update-mime-database"), self.tool("gio")
        mime = self.home / ".local/share/mime"
        (mime / "packages").mkdir(parents=True)
        shutil.copy(self.prefix / "share/mime/packages/vexa.xml", mime / "packages")
        self.run_program(update, mime)
        fire = self.sample()
        of_the_older_engine = SOURCE / "tests/data/legacy/06.01.01-hatchet-empty.jet3.qel"
        without_an_ending = shutil.copy(fire, self.home / "Smith Creek")
        for path in (fire, shutil.copy(of_the_older_engine, self.home), without_an_ending):
            told = self.run_program(ask, "info", "-a", "standard::content-type", path).stdout
            self.assertIn("content-type: application/x-vexa\n", told)


class Manuals(Installation):
    def manuals(self):
        return sorted((self.prefix / "share/man/man1").iterdir())

    def test_each_program_has_one(self):
        programs = {path.name for path in (self.prefix / "bin").iterdir()}
        self.assertEqual({path.name for path in self.manuals()}, {f"{program}.1.gz" for program in programs})

    def test_the_formatter_has_nothing_to_say(self):
        tool = self.tool("groff")
        for path in self.manuals():
            text = gzip.decompress(path.read_bytes()).decode()
            told = self.run_program(tool, "-ww", "-man", "-Tutf8", "-z", "-rCHECKSTYLE=3", input=text)
            self.assertEqual(told.stderr, "", path.name)

    def test_the_companions_names_every_command_and_option(self):
        manual = self.installed_text("share/man/man1/vexa-cli.1.gz").replace("\\-", "-")
        for command in commands_of(self.companion("--help").stdout):
            self.assertRegex(manual, rf"(?m)^\.B {command}$")
        for option in self.all_options():
            self.assertIn(option, manual)

    def all_options(self):
        told = [self.companion(*command, "--help").stdout for command in [[], *[[name] for name in COMMANDS]]]
        return {option for text in told for option in options_of(text)}


class Completions(Installation):
    def complete(self, *words):
        """What bash offers for the last of these words."""
        script = self.prefix / "share/bash-completion/completions/vexa-cli"
        asked = 'source "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vexa_cli; printf "%s\\n" "${COMPREPLY[@]}"'
        return self.run_program(self.tool("bash"), "-c", asked, script, "vexa-cli", *words).stdout.split()

    def test_every_command_is_offered(self):
        told = commands_of(self.companion("--help").stdout)
        self.assertEqual(sorted(told), sorted(COMMANDS))
        self.assertEqual(sorted(self.complete("")), sorted(told))
        self.assertEqual(self.complete("ev"), ["evaluate"])

    def test_every_option_is_offered(self):
        for command in [[], *[[name] for name in COMMANDS]]:
            told = options_of(self.companion(*command, "--help").stdout)
            self.assertEqual(sorted(self.complete(*command, "--")), sorted(told), command)

    def test_fires_and_folders_are_offered(self):
        for name in ("Fire1.qel", "Fire2.QEL", "notes.txt"):
            (self.home / name).touch()
        (self.home / "folder").mkdir()
        self.assertEqual(sorted(self.complete("check", "")), ["Fire1.qel", "Fire2.QEL", "folder"])
        self.assertEqual(sorted(self.complete("report", "--yes", "Fire")), ["Fire1.qel", "Fire2.QEL"])
        self.assertEqual(len(self.complete("report", "Fire1.qel", "out.pdf", "--sections", "")), 10)

    def test_zsh_is_told_of_every_command_and_option(self):
        text = self.installed_text("share/zsh/vendor-completions/_vexa-cli")
        for command in COMMANDS:
            self.assertRegex(text, rf"(?m)^    '{command}:")
            for option in options_of(self.companion(command, "--help").stdout):
                self.assertIn(option, text)


class Version(Installation):
    def test_is_the_same_everywhere(self):
        major, minor = options.version.split(".")
        told = f"VEXA Basic {int(major):02}.{minor}"
        self.assertEqual(self.companion("--version").stdout, told + "\n")
        changelog = self.installed_text("share/doc/vexa/changelog.gz")
        self.assertTrue(changelog.startswith(f"vexa ({options.version}) "), changelog)
        for path in (self.prefix / "share/man/man1").iterdir():
            self.assertIn(f'"{told}"', self.installed_text(path))
        if options.windows:
            metainfo = self.installed_text("share/metainfo/org.example.vexa.metainfo.xml")
            self.assertEqual(re.search('<release version="([^"]*)"', metainfo)[1], options.version)


def commands_of(text):
    """The commands that the companion's own help names."""
    return re.findall(r"^  ([a-z]+) ", text.split("Subcommands:")[1], re.MULTILINE)


def options_of(text):
    """The long options in the help of the companion or of one of its commands."""
    return re.findall(r"^  (?:-\w,)?(--[a-z-]+)", text, re.MULTILINE)


def main():
    global options
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cmake", default="cmake")
    parser.add_argument("--build", required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--windows", action="store_true")
    options = parser.parse_args()
    return 0 if unittest.main(argv=sys.argv[:1], exit=False).result.wasSuccessful() else 1


sys.exit(main())
