"""What a machine needs: the lists of packages, and what is said where they can't be installed."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LISTS = ["build_packages", "test_packages", "fuzz_packages", "bench_packages"]


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


if __name__ == "__main__":
    unittest.main()
