"""What an installation holds: a program that runs from wherever it stands, a library that others build against,
and a Debian package that leaves nothing behind."""

import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

BUILD = FLAGS = None  # set from the command line
ROOT = pathlib.Path(__file__).resolve().parents[2]
EMBED = ROOT / "examples" / "embed"

ANSWERS = [
    ("distance = 12 km", "12 km"), ("speed = 16 km/h", "16 km/h"), ("distance / speed in min", "45 min"),
    ("distance = 20 km", "20 km"), ("speed = 16 km/h", "16 km/h"), ("distance / speed in min", "75 min"),
]  # fmt: skip
FILES = [
    "bin/tabulon", "bin/tabulon-open", "share/tabulon/TBContent.bundle/Units.plist", "share/tabulon/Colors.plist",
    "share/mime/packages/tabulon.xml", "share/thumbnailers/tabulon.thumbnailer", "share/applications/tabulon.desktop",
    "share/man/man1/tabulon.1", "share/bash-completion/completions/tabulon", "share/zsh/vendor-completions/_tabulon",
    "share/fish/vendor_completions.d/tabulon.fish", "include/tabulon/TabulonCore/lines/TCLine.h",
]  # fmt: skip


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, timeout=280, **options)
    if result.returncode != 0:
        raise AssertionError(f"{shlex.join(command)} failed:\n{result.stdout}{result.stderr}")
    return result.stdout


class InstallationTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def install(self):
        # It need not stay where it was put.
        run("cmake", "--install", BUILD, "--prefix", str(self.folder / "first"))
        prefix = self.folder / "prefix"
        (self.folder / "first").rename(prefix)
        return prefix

    def check_program(self, prefix):
        for name in FILES:
            # Packages have their manual compressed by nobody.
            self.assertTrue((prefix / name).exists(), name)
        answers = subprocess.run(
            [prefix / "bin" / "tabulon", "answers"], input="12 km in m\n", capture_output=True, text=True, timeout=60
        )
        self.assertEqual((answers.stdout, answers.stderr), ("12,000 m\n", ""))

    def check_embedding(self, program, environment=None):
        lines = run(str(program), env=environment).splitlines()
        self.assertEqual([tuple(part.strip() for part in line.split("  ", 1)) for line in lines], ANSWERS)

    def test_others_build_against_it(self):
        prefix = self.install()
        self.check_program(prefix)
        run("cmake", "-S", str(EMBED), "-B", str(self.folder / "cmake"), f"-DCMAKE_PREFIX_PATH={prefix}",
            f"-DCMAKE_CXX_FLAGS={FLAGS}")  # fmt: skip
        run("cmake", "--build", str(self.folder / "cmake"))
        self.check_embedding(self.folder / "cmake" / "embed")

        library = next(prefix.glob("lib*/**/pkgconfig")).parent
        environment = {**os.environ, "PKG_CONFIG_PATH": str(library / "pkgconfig"), "LD_LIBRARY_PATH": str(library)}
        flags = run("pkg-config", "--cflags", "--libs", "tabulon", env=environment).split()
        content = run("pkg-config", "--variable=contentdir", "tabulon", env=environment).strip()
        program = self.folder / "embed"
        run("c++", str(EMBED / "embed.cpp"), f'-DTABULON_CONTENT="{content}"', *flags, *FLAGS.split(), "-o", str(program))
        self.check_embedding(program, environment)

    def test_desktops_understand_it(self):
        prefix = self.install()
        if shutil.which("desktop-file-validate"):
            self.assertEqual(run("desktop-file-validate", str(prefix / "share/applications/tabulon.desktop")), "")
        if not shutil.which("update-mime-database") or not shutil.which("gio"):
            self.skipTest("left out: update-mime-database or gio is not installed")
        mime = self.folder / "data" / "mime"
        (mime / "packages").mkdir(parents=True)
        for package in [prefix / "share/mime/packages/tabulon.xml", pathlib.Path("/usr/share/mime/packages/freedesktop.org.xml")]:
            shutil.copy(package, mime / "packages")
        run("update-mime-database", str(mime))
        household = (ROOT / "examples" / "household.tabulon").read_bytes()
        first_generation = (ROOT / "fuzz/corpus/document/comma-locale.xml").read_bytes()
        rows = [
            ("a.tabulon", household, True), ("cut.tabulon", household[:40], True), ("document.bin", household, True),
            ("thumbnail-1234", first_generation, True),
            ("other", b'<?xml version="1.0"?>\n<data><item/></data>', False),
            ("info", b'<?xml version="1.0"?>\n<data><info><title>0.5</title></info></data>', False),
            ("page", b'<?xml version="1.0"?>\n<html><body><data><info><version>1</version></info></data></body></html>', False),
            ("text", b"<data><info><version>0.6", False),
        ]  # fmt: skip
        environment = {**os.environ, "XDG_DATA_DIRS": str(self.folder / "data"), "XDG_DATA_HOME": str(self.folder / "none")}
        for name, content, is_document in rows:
            file = self.folder / name
            file.write_bytes(content)
            kind = run("gio", "info", "-a", "standard::content-type", str(file), env=environment)
            self.assertEqual("application/x-tabulon+xml" in kind, is_document, (name, kind))

    def test_completions_are_scripts(self):
        prefix = self.install()
        for shell, script in [("bash", "share/bash-completion/completions/tabulon"),
                              ("zsh", "share/zsh/vendor-completions/_tabulon"),
                              ("fish", "share/fish/vendor_completions.d/tabulon.fish")]:  # fmt: skip
            if shutil.which(shell):
                run(shell, "-n", str(prefix / script))
        words = run("bash", "-c", 'source "$0"; COMP_WORDS=(tabulon thumb) COMP_CWORD=1; _tabulon; echo "${COMPREPLY[@]}"',
                    str(prefix / "share/bash-completion/completions/tabulon"))  # fmt: skip
        self.assertEqual(words.strip(), "thumbnail")

    def test_the_package_comes_and_goes(self):
        if not shutil.which("dpkg-shlibdeps"):
            self.skipTest("left out: dpkg-shlibdeps is not installed")
        run("cpack", "-G", "DEB", "--config", f"{BUILD}/CPackConfig.cmake", "-B", str(self.folder / "packages"))
        (package,) = (self.folder / "packages").glob("*.deb")
        control = run("dpkg-deb", "--field", str(package))
        self.assertRegex(control, r"(?m)^Depends: .*libicu")
        run("dpkg-deb", "--extract", str(package), str(self.folder / "extracted"))
        self.check_program(self.folder / "extracted" / "usr")

        # A system of its own, which knows of no other package.
        system = self.folder / "system"
        for name in ["info", "updates", "triggers"]:
            (system / "var/lib/dpkg" / name).mkdir(parents=True)
        for name in ["status", "available"]:
            (system / "var/lib/dpkg" / name).touch()
        dpkg = ["dpkg", f"--root={system}", f"--log={self.folder}/log", "--force-depends", "--force-not-root",
                "--force-bad-path", "--force-script-chrootless"]  # fmt: skip
        run(*dpkg, "--install", str(package))
        self.check_program(system / "usr")
        run(*dpkg, "--purge", "tabulon")
        left = [path for path in system.rglob("*") if path.is_file() and "var/lib/dpkg" not in str(path)]
        self.assertEqual(left, [])


if __name__ == "__main__":
    BUILD, FLAGS = os.path.abspath(sys.argv.pop(1)), sys.argv.pop(1)
    unittest.main(verbosity=2)
