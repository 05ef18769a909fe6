"""What a machine needs: the lists of packages, and what is said where they can't be installed."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMMAND = None  # set from the command line
LISTS = ["build_packages", "test_packages", "fuzz_packages", "bench_packages", "format_packages"]


class SetupTests(unittest.TestCase):
    def test_the_guide_lists_the_packages_that_are_installed(self):
        names = " ".join(f'"${{{name}[*]}}"' for name in LISTS)
        shell = subprocess.run(
            ["bash", "-c", f". scripts/setup; printf '%s\\n' {names}"], cwd=ROOT, capture_output=True, text=True, check=True
        )
        guide = re.findall(r"^apt-get install (.+)$", (ROOT / "CONTRIBUTING.md").read_text(), re.MULTILINE)
        self.assertEqual([sorted(row.split()) for row in guide], [sorted(row.split()) for row in shell.stdout.splitlines()])

    def test_without_root_and_sudo_one_line_names_the_packages(self):
        with tempfile.TemporaryDirectory() as folder:
            tools = pathlib.Path(folder)
            (tools / "id").write_text("#!/bin/sh\necho 1000\n")
            (tools / "dpkg-query").write_text("#!/bin/sh\nexit 1\n")
            for tool in ("id", "dpkg-query"):
                (tools / tool).chmod(0o755)
            for tool in ("grep", "readlink", "dirname", "bash", "env"):
                (tools / tool).symlink_to(next(p for p in (f"/usr/bin/{tool}", f"/bin/{tool}") if os.path.exists(p)))
            for script in ("run", "test"):
                result = subprocess.run(
                    ["/bin/bash", str(ROOT / script)], env={"PATH": folder}, capture_output=True, text=True, timeout=60
                )
                self.assertEqual((result.returncode, result.stdout), (1, ""), result.stderr)
                self.assertRegex(result.stderr, r"\AMissing packages, .*: apt-get install cmake ninja-build .*\n\Z")
                self.assertEqual("libgtest-dev" in result.stderr, script == "test")

    # What `run` does once it has built.
    def test_run_takes_a_text(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "scripts").mkdir()
            (folder / "scripts" / "setup").write_text("build_packages=()\ninstall_packages() { :; }\nbuild() { :; }\n")
            (folder / "build/release").mkdir(parents=True)
            (folder / "build/release/tabulon").symlink_to(COMMAND)
            shutil.copy(ROOT / "run", folder)
            (folder / "of.notes").mkdir()
            for file, page in [("notes.txt", "notes.html"), ("of.notes/plain", "of.notes/plain.html")]:
                (folder / file).write_text("12 km in m\n")
                result = subprocess.run(["bash", "run", file], cwd=folder, capture_output=True, text=True, timeout=60)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertEqual(result.stdout, f"12,000 m\nPage: {folder / page}\n")
                self.assertIn("12,000", (folder / page).read_text())


if __name__ == "__main__":
    COMMAND = os.path.abspath(sys.argv.pop(1))
    unittest.main()
