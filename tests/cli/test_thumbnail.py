"""Thumbnails as a desktop makes them: of files that nobody vouches for, in folders and sandboxes of its own."""

import os
import pathlib
import resource
import shutil
import struct
import subprocess
import sys
import unittest
import zlib

import test_command
from test_command import CommandTests, document

ROOT = pathlib.Path(__file__).resolve().parents[2]
CORPUS = ROOT / "fuzz" / "corpus"


def chunks(image):
    """The chunks of a PNG file by their kind, checked on the way."""
    assert image.startswith(b"\x89PNG\r\n\x1a\n")
    found, place = [], 8
    while place < len(image):
        (length,) = struct.unpack(">I", image[place : place + 4])
        kind = image[place + 4 : place + 8]
        content = image[place + 8 : place + 8 + length]
        (checksum,) = struct.unpack(">I", image[place + 8 + length : place + 12 + length])
        assert checksum == zlib.crc32(kind + content)
        found.append((kind.decode(), content))
        place += 12 + length
    return found


def texts(image):
    return dict(content.decode("latin-1").split("\0") for kind, content in chunks(image) if kind == "tEXt")


def extent(image):
    return struct.unpack(">II", chunks(image)[0][1][:8])


class PictureTests(CommandTests):
    def picture_of(self, file, *arguments, output="picture"):
        self.output_of("thumbnail", file, "-o", self.path(output), *arguments)
        return (self.folder / output).read_bytes()

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())


class ThumbnailTests(PictureTests):
    def test_the_picture_says_of_what_it_is(self):
        file = self.write("a b%.tabulon", document("1 + 2"))
        os.utime(file, (5, 1234567890))
        image = self.picture_of(file, output="no-suffix.jpeg")
        self.assertEqual(
            texts(image),
            {
                "Thumb::URI": "file://" + str(self.folder) + "/a%20b%25.tabulon",
                "Thumb::MTime": "1234567890",
                "Thumb::Size": str(os.path.getsize(file)),
                "Software": "Tabulon",
            },
        )
        self.assertEqual(extent(image), (192, 256))
        self.assertEqual(chunks(image)[-1], ("IEND", b""))
        self.assertEqual(self.names(), ["a b%.tabulon", "no-suffix.jpeg"])
        self.assertEqual(image, self.picture_of("a b%.tabulon"), "the same file gives the same bytes")
        copy = self.write("input", document("1 + 2"))
        self.assertEqual(
            texts(self.picture_of(copy, "--uri", "file:///home/a.tabulon"))["Thumb::URI"], "file:///home/a.tabulon"
        )

    def test_sizes(self):
        file = self.write("a.tabulon", document("1 + 2"))
        for size, expected in [(32, (24, 32)), (128, (96, 128)), (511, (383, 511)), (1024, (768, 1024))]:
            self.assertEqual(extent(self.picture_of(file, "--size", str(size))), expected)
        for arguments in [["--size", "31"], ["--size", "4097"], ["--size", "x"], ["--uri", "a b"], ["--uri", ""]]:
            result = self.run_command("thumbnail", file, "-o", self.path("none"), *arguments)
            self.assertEqual(result.returncode, 2, arguments)
        self.assertEqual(self.run_command("thumbnail", file).returncode, 2)
        self.assertNotIn("none", self.names())

    def test_what_cannot_be_drawn_is_told_in_one_line(self):
        rows = [
            ("missing", None, "doesn't exist"),
            ("binary", "1 + 2\0", "NUL character"),
            ("cut", document("1 + 2")[:-20], "is cut off"),
            ("page", '<?xml version="1.0"?><html/>', "root element"),
            ("entities", '<?xml version="1.0"?><!DOCTYPE data [<!ENTITY a "b">]><data>&a;</data>', "definitions"),
            ("lines", document(*[""] * 40001), "is too long for a thumbnail"),
            ("text", "\n" * 40001, "is too long for a thumbnail"),
        ]
        self.write("old", "old")
        for name, content, why in rows:
            if content is not None:
                self.write(name, content)
            before = self.names()
            self.assert_failure(self.run_command("thumbnail", name, "-o", "old"), name, why)
            self.assertEqual(self.names(), before, name)
        with open(self.path("large"), "wb") as file:
            file.truncate(50 << 20)
        self.assert_failure(self.run_command("thumbnail", "large", "-o", "old"), "large", "is too large")
        self.assert_failure(self.run_command("thumbnail", ".", "-o", "old"), ".", "is a folder")
        os.mkfifo(self.path("pipe"))
        self.assert_failure(self.run_command("thumbnail", "pipe", "-o", "old"), "pipe", "is not a file")
        self.assertEqual((self.folder / "old").read_text(), "old")
        file = self.write("a.tabulon", document("1 + 2"))
        self.assert_failure(
            self.run_command("thumbnail", file, "-o", self.path("no/folder")), self.path("no/folder"), "can't be written"
        )
        self.assertEqual(self.run_command("thumbnail", file, "-o", file).returncode, 2)

    def test_colors_of_a_file(self):
        file = self.write("a.tabulon", document("1 + 2"))
        dark = str(ROOT / "content" / "Colors-dark.plist")
        self.assertNotEqual(self.picture_of(file), self.picture_of(file, "--colors", dark))
        self.assertNotIn("#1e2126", self.output_of("preview", file))
        for command in [["preview", file], ["export", file, "--format", "html"]]:
            page = self.output_of(*command, "--colors", dark)
            self.assertIn("background-color: #1e2126;", page)
            self.assertIn("span.number {  color: #8ab4f8; }", page)
        self.write("text", "red")
        self.assert_failure(self.run_command("preview", file, "--colors", "missing"), "missing", "No such file")
        self.assert_failure(self.run_command("preview", file, "--colors", "text"), "text", "line 1: ")
        self.write("empty.plist", '<?xml version="1.0"?><plist version="1.0"><dict/></plist>')
        self.assert_failure(self.run_command("preview", file, "--colors", "empty.plist"), "empty.plist", "no colours")

    def test_a_document_that_takes_too_long_is_given_up(self):
        file = self.write("long.tabulon", document(*(f"sin({i} / 7) ^ 0.123456789 + ln({i}.3) * ln({i}.7)" for i in range(39000))))
        limit = lambda: resource.setrlimit(resource.RLIMIT_CPU, (1, 60))
        result = subprocess.run(
            [test_command.COMMAND, "thumbnail", "long.tabulon", "-o", "picture"],
            capture_output=True, timeout=120, cwd=self.folder, preexec_fn=limit,
        )
        self.assertEqual(result.stderr, b"tabulon: long.tabulon: takes too long for a thumbnail\n")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.names(), ["long.tabulon"], file)

    def test_a_text_is_drawn_as_its_document(self):
        self.write("a.txt", "1 + 2\n12 km in m\n")
        file = self.write("a.tabulon", document("1 + 2", "12 km in m"))
        pixels = [[c for c in chunks(self.picture_of(name)) if c[0] != "tEXt"] for name in ("a.txt", file)]
        self.assertEqual(*pixels)

    # Libraries that don't get their memory abort, crash or leave with codes of their own.
    @unittest.skipIf(os.environ.get("TABULON_SANITIZE"), "a sanitizer needs memory and /proc of its own")
    def test_short_memory_is_told_in_one_line(self):
        file = self.write("a.tabulon", document("1,200 + 8%", "// \u65e5\u672c", "12 km in m"))
        ends = set()
        for megabytes in range(80, 261, 12):
            limit = lambda: resource.setrlimit(resource.RLIMIT_AS, (megabytes << 20, megabytes << 20))
            result = subprocess.run([test_command.COMMAND, "thumbnail", file, "-o", self.path("picture")],
                                    capture_output=True, timeout=120, preexec_fn=limit)  # fmt: skip
            ends.add(result.returncode)
            if b"loading shared libraries" in result.stderr or b"Sanitizer" in result.stderr:
                continue
            self.assertIn(result.returncode, (0, 1), megabytes)
            self.assertEqual(result.stderr.count(b"\n"), result.returncode, (megabytes, result.stderr))
        self.assertLessEqual({0, 1}, ends)

    def test_corpora_do_no_harm(self):
        files = sorted((CORPUS / "document").iterdir())
        for file in sorted((CORPUS / "line").iterdir()):
            lines = file.read_bytes().decode("utf-8", "replace").splitlines()
            escaped = [
                "".join(c for c in line if c >= " ").replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
                for line in lines
            ]
            files.append(pathlib.Path(self.write("line-" + file.name, document(*escaped))))
        self.assertGreater(len(files), 20)
        drawn = 0
        for file in files:
            result = self.run_command("thumbnail", str(file), "-o", "picture", "--size", "64")
            self.assertIn(result.returncode, (0, 1), file)
            self.assertEqual(result.stderr.count(b"\n"), result.returncode, file)
            drawn += result.returncode == 0
        self.assertGreater(drawn, 20)


class SandboxTests(PictureTests):
    def test_a_sandbox_without_a_home_draws_the_same(self):
        sandbox = [
            "bwrap", "--unshare-all", "--die-with-parent", "--clearenv",
            "--ro-bind", "/usr", "/usr", "--symlink", "usr/lib", "/lib", "--symlink", "usr/lib64", "/lib64",
            "--symlink", "usr/bin", "/bin", "--ro-bind", "/etc/ld.so.cache", "/etc/ld.so.cache",
            "--proc", "/proc", "--dev", "/dev", "--tmpfs", "/tmp",
        ]  # fmt: skip
        if not shutil.which("bwrap"):
            self.skipTest("left out: bwrap is not installed")
        if subprocess.run([*sandbox, "/usr/bin/true"], capture_output=True).returncode != 0:
            self.skipTest("left out: bwrap can't make a sandbox here")
        file = self.write("a.tabulon", document("1,200 + 8%", "// \u65e5\u672c", "12 km in m"))
        program = pathlib.Path(test_command.COMMAND).resolve()
        content = ROOT / "content"
        outside = self.picture_of(file, "--uri", "file:///a", "--content", str(content))
        (self.folder / "out").mkdir()
        result = subprocess.run(
            [
                *sandbox, "--ro-bind", file, "/tmp/input.bin", "--bind", self.path("out"), "/tmp/out",
                "--ro-bind", str(program.parent), "/opt/bin", "--ro-bind", str(content), "/opt/content",
                "/opt/bin/" + program.name, "thumbnail", "--size", "256", "--content", "/opt/content",
                "--uri", "file:///a", "-o", "/tmp/out/picture", "/tmp/input.bin",
            ],
            capture_output=True, timeout=120,
        )  # fmt: skip
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertEqual(sorted(path.name for path in (self.folder / "out").iterdir()), ["picture"])
        self.assertEqual((self.folder / "out" / "picture").read_bytes(), outside)


if __name__ == "__main__":
    test_command.COMMAND = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
