"""Where the command writes, what it never writes over, and what it says when it can't."""

import os
import resource
import shutil
import subprocess
import sys
import unittest

import test_command
from test_command import CONTENT, CommandTests, document

PAGE = "<!DOCTYPE html"


class OutputTests(CommandTests):
    def names(self):
        return sorted(os.listdir(self.folder))

    def content(self, name):
        return (self.folder / name).read_bytes()

    def assert_usage_failure(self, result, why):
        self.assertEqual((result.returncode, result.stdout), (2, b""))
        self.assertRegex(result.stderr.decode().splitlines()[0], f"^tabulon: .*{why}")

    def test_a_descriptor_is_written_to_and_its_file_kept(self):
        self.write("n.txt", "1 + 2\n")
        rows = [("/dev/stdout", ">>"), ("/dev/fd/5", "5>>"), ("/proc/self/fd/5", "5>>"), ("link", ">>")]
        os.symlink("/dev/stdout", self.path("link"))
        for path, redirection in rows:
            with self.subTest(path):
                self.write("log", "before\n")
                script = f'"$0" export n.txt --format html -o {path} {redirection} log'
                subprocess.run(["bash", "-c", script, test_command.COMMAND], cwd=self.folder, check=True)
                self.assertTrue(self.content("log").startswith(b"before\n" + PAGE.encode()))
        self.assertEqual(self.names(), ["link", "log", "n.txt"])
        self.assertEqual(self.output_of("convert", "n.txt", "/dev/stdout")[:5], "<?xml")

    def test_what_is_read_is_not_written_to(self):
        source = self.write("n.tabulon", document("1 + 2"))
        os.link(source, self.path("hard"))
        os.symlink("hard", self.path("soft"))
        colors = shutil.copy(CONTENT / "Colors.plist", self.path("c.plist"))
        shutil.copytree(CONTENT, self.path("content"))
        units = self.path("content/TBContent.bundle/Units.plist")
        os.link(units, self.path("units"))
        rows = [
            ("preview", source, "-o", "hard"),
            ("export", source, "--format", "html", "-o", "soft"),
            ("thumbnail", source, "-o", source),
            ("convert", source, "soft"),
            ("convert", "--force", "soft", "hard"),
            ("preview", source, "--colors", colors, "-o", "c.plist"),
            ("preview", source, "--content", "content", "-o", units),
            ("preview", source, "--content", "content", "-o", "units"),
        ]
        before = {name: self.content(name) for name in ("n.tabulon", "c.plist", "units")}
        for arguments in rows:
            with self.subTest(arguments):
                self.assert_usage_failure(self.run_command(*arguments), "can't be")
        with open(source, "ab") as log:
            result = subprocess.run([test_command.COMMAND, "preview", source], stdout=log, stderr=subprocess.PIPE)
        self.assertEqual(result.returncode, 2)
        self.assertEqual({name: self.content(name) for name in before}, before)

    def test_a_link_that_leads_nowhere_is_followed_and_a_circle_refused(self):
        source = self.write("n.txt", "1\n")
        os.symlink("new.html", self.path("link"))
        self.output_of("export", source, "--format", "html", "-o", "link")
        self.assertTrue(os.path.islink(self.path("link")))
        self.assertTrue(self.content("new.html").startswith(PAGE.encode()))
        os.symlink("circle", self.path("circle"))
        self.assert_failure(self.run_command("export", source, "--format", "html", "-o", "circle"), "circle", "links")

    def test_convert_writes_over_its_own_kind_alone(self):
        text = self.write("n.txt", "1 + 2\n")
        stored = self.write("n.tabulon", document("1 + 2"))
        rows = [
            (text, b"<!DOCTYPE html><html></html>", False),
            (text, b"other notes\n", False),
            (text, b'<?xml version="1.0"?><!-- <data> --><plist/>', False),
            (text, b"\x89PNG\r\n", False),
            (text, b"", True),
            (text, document("7").encode(), True),
            (text, b"\xef\xbb\xbf" + document("7").encode()[:150], True),
            (stored, document("7").encode(), False),
            (stored, b"<html></html>", False),
            (stored, b"\xff\xfe\x00", False),
            (stored, b"a\x00b", False),
            (stored, b"other notes\n", True),
            (stored, ("x" + "é" * 40000).encode(), True),
        ]
        for source, old, is_written in rows:
            with self.subTest((source, old[:40])):
                target = self.write("target", old)
                result = self.run_command("convert", source, target)
                if is_written:
                    self.assertEqual((result.returncode, result.stderr), (0, b""))
                    self.assertNotEqual(self.content("target"), old)
                else:
                    self.assert_failure(result, target, "--force")
                    self.assertEqual(self.content("target"), old)
                    self.output_of("convert", "--force", source, target)

    def test_convert_counts_the_characters_that_no_document_holds(self):
        self.write("n.txt", "1\x0b2\n\x01a \x1f\ufffe\tb\n3 + 4\n")
        result = self.run_command("convert", "n.txt", "n.tabulon")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr, b"tabulon: n.txt: 4 control characters are written as spaces\n")
        self.assertEqual(self.output_of("convert", "n.tabulon", "-"), "1 2\n a   \tb\n3 + 4\n")

    def test_a_bound_on_files_is_a_message(self):
        source = self.write("n.txt", "1 + 2\n" * 2000)
        for arguments in (["export", source, "--format", "html", "-o", "out"], ["convert", source, "out"]):
            result = subprocess.run(
                [test_command.COMMAND, *arguments],
                capture_output=True,
                cwd=self.folder,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096)),
            )
            self.assert_failure(result, "out", "File too large")
            self.assertEqual(self.names(), ["n.txt"])

    def run_within(self, megabytes, *arguments):
        bound = megabytes << 20
        return subprocess.run(
            [test_command.COMMAND, *arguments],
            capture_output=True,
            cwd=self.folder,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (bound, bound)),
        )

    @unittest.skipIf(os.environ.get("TABULON_SANITIZE"), "a sanitizer needs memory and /proc of its own")
    def test_without_memory_there_is_a_message_and_no_part_of_a_file(self):
        source = self.write("n.txt", "".join(f"Item {i}: {i} * 3\n" for i in range(5000)))
        self.output_of("convert", source, "whole")
        whole = self.content("whole")
        messages = set()
        for megabytes in range(60, 260, 25):
            result = self.run_within(megabytes, "convert", "--force", source, "out")
            if result.returncode == 127:
                continue  # not even loaded
            messages.add((result.returncode, result.stderr))
            if os.path.exists(self.path("out")):
                self.assertEqual(self.content("out"), whole)
        writer = (1, b"tabulon: out: can't be written: there is no memory\n")
        self.assertLessEqual(messages, {(0, b""), (1, b"tabulon: there is not enough memory\n"), writer})
        self.assertIn((1, b"tabulon: there is not enough memory\n"), messages)

    @unittest.skipIf(os.environ.get("TABULON_SANITIZE"), "a sanitizer needs memory and /proc of its own")
    def test_every_command_says_in_a_line_that_it_has_no_memory(self):
        self.write("n.txt", "".join(f"Item {i}: {i} km in miles\n" for i in range(400)))
        self.output_of("convert", "n.txt", "n.tabulon")
        rows = [
            ("answers", "n.txt"),
            ("preview", "n.tabulon", "-o", "out"),
            ("export", "--format", "html-inline", "n.tabulon", "-o", "out"),
            ("convert", "--force", "n.txt", "out"),
            ("thumbnail", "n.tabulon", "-o", "out"),
        ]
        for arguments in rows:
            refused = 0
            for megabytes in range(60, 200, 20):
                with self.subTest((arguments, megabytes)):
                    result = self.run_within(megabytes, *arguments)
                    if result.returncode == 127:
                        continue  # not even loaded
                    self.assertIn(result.returncode, (0, 1), result.stderr)
                    lines = result.stderr.decode().splitlines()
                    self.assertEqual(len(lines), result.returncode, lines)
                    refused += result.returncode
                    for line in lines:  # a library that draws may end its process in its own way
                        self.assertRegex(line, "^tabulon: .*(memory|can't be drawn|stopped by a fault)")
            self.assertGreater(refused, 0, arguments)

    def test_a_byte_order_mark_is_passed_over(self):
        marked = self.write("n.tabulon", b"\xef\xbb\xbf" + document("1 + 2").encode())
        self.assertEqual(self.output_of("answers", marked), "3\n")
        self.assertIn(">3<", self.output_of("preview", marked))


if __name__ == "__main__":
    test_command.COMMAND = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
