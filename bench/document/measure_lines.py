"""Memory of a line, and of a long line, in whole `tabulon answers` processes.

The first table has documents of many lines of one kind: bytes a line over an empty process, with its text and with
what the command itself holds of it. The second has single lines of 64 KiB of one kind of token: megabytes over
an empty process.
"""

import os
import subprocess
import sys
import tempfile

LINES = 100_000
LENGTH = 65_536

KINDS = {
    "empty": lambda i: "",
    "prose": lambda i: f"Dinner with friends at the harbour, all of them: {i}",
    "arithmetic": lambda i: f"{i} * (3.5 + {i % 31}) - 10%",
    "units": lambda i: f"{i} km * 3.5 + {i % 31} m",
    "names": lambda i: f"name{i} = {i}",
    "references": lambda i: f"line{i} + 1" if i else "1",
}

TOKENS = {
    "one number": "7",
    "numbers": "7 ",
    "sums": "7+",
    "words": "so ",
    "operators": "+-",
    "brackets": "()",
    "nested brackets": "(",
    "units": "3 km ",
    "references": "line1 ",
    "variables": "pi ",
    "percentages": "5% ",
    "comments": "a: ",
}


def peak(command, text):
    """Bytes of the process at its highest, and its seconds."""
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
        file.write(text)
        file.flush()
        child = subprocess.Popen([command, "answers", file.name], stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
    return usage.ru_maxrss * 1024, usage.ru_utime + usage.ru_stime


def main():
    command = sys.argv[1]
    start, _ = peak(command, "1\n")
    print(f"an empty process: {start / 1e6:.0f} MB")
    for name, line in KINDS.items():
        size, seconds = peak(command, "".join(line(i) + "\n" for i in range(LINES)))
        print(f"{LINES:,} lines, {name:14}{(size - start) / LINES:8.0f} bytes a line{seconds:8.2f} s")
    for name, token in TOKENS.items():
        size, seconds = peak(command, (token * LENGTH)[:LENGTH] + "\n")
        print(f"64 KiB of {name:18}{(size - start) / 1e6:8.1f} MB{seconds:8.2f} s")


main()
