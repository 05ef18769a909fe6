"""The command against inputs that are made to stall it: each ends within its bounds of time and memory, or says in
one line why it doesn't answer. Prints a table, and fails if a row breaks that.

    python3 tests/tools/hostile.py build/release/tabulon [--quick] [--only WORD] [--command NAME] [--worst N]
"""

import argparse
import os
import pathlib
import resource
import signal
import sys
import tempfile
import time
from typing import NamedTuple

from hostile_inputs import all_cases, quick_cases

# What no run gets past, so that one row can't take the machine along.
HARD_SECONDS, HARD_MEMORY = 90, 2 << 30

COMMANDS = {
    "answers": lambda file, out: ["answers", file],
    "json": lambda file, out: ["answers", "--json", file],
    "preview": lambda file, out: ["preview", file, "-o", out + ".html"],
    "thumbnail": lambda file, out: ["thumbnail", file, "-o", out + ".png"],
    "export": lambda file, out: ["export", file, "--format", "html-inline", "-o", out + ".html"],
    "convert": lambda file, out: ["convert", file, out + (".txt" if file.endswith(".tabulon") else ".tabulon")],
}
QUICK_COMMANDS = ["json", "preview"]


class Run(NamedTuple):
    seconds: float  # of the processor
    megabytes: float  # at most
    code: int  # negative for a signal
    said: str  # on standard error


def run(command, folder):
    errors = os.path.join(folder, "errors")
    process = os.fork()
    if process == 0:
        resource.setrlimit(resource.RLIMIT_CPU, (HARD_SECONDS, HARD_SECONDS + 1))
        resource.setrlimit(resource.RLIMIT_AS, (HARD_MEMORY, HARD_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        for path, number in [(os.devnull, 0), (os.devnull, 1), (errors, 2)]:
            os.dup2(os.open(path, os.O_RDWR | os.O_CREAT | os.O_TRUNC, 0o600), number)
        os.execv(command[0], command)
    _, status, usage = os.wait4(process, 0)
    said = pathlib.Path(errors).read_text("utf-8", "replace")
    return Run(usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, os.waitstatus_to_exitcode(status), said)


def fault_of(name, result, bounds, times):
    """What is wrong with a run; empty if nothing is. A refusal has to be as cheap as an answer, but for thumbnails,
    which give up at bounds of their own."""
    lines = result.said.splitlines()
    if result.code not in (0, 1):
        return f"ended by {signal.Signals(-result.code).name}" if result.code < 0 else f"ended with {result.code}"
    if result.code == 0 and lines:
        return "a message, and no failure"
    if result.code == 1 and (len(lines) != 1 or not lines[0].startswith("tabulon: ")):
        return "a failure without its one line"
    if result.code == 1 and name == "thumbnail":
        return ""
    if result.seconds > bounds.seconds * times:
        return f"over {bounds.seconds} s"
    return f"over {bounds.megabytes} MB" if result.megabytes > bounds.megabytes else ""


def measure(case, names, tabulon, folder, times):
    """Prints the rows of a case that are worth a look, and gives all of them."""
    file = os.path.join(folder, "input." + ("tabulon" if case.isDocument else "txt"))
    pathlib.Path(file).write_bytes(case.make())
    rows = []
    for name in names:
        command = [tabulon, *COMMANDS[name](file, os.path.join(folder, "output")), "--language", case.language]
        result = run(command, folder)
        rows.append((case.name, name, result, fault_of(name, result, case.bounds, times)))
        for output in pathlib.Path(folder).glob("output.*"):
            output.unlink()
    return rows


def printed(row):
    case, command, result, fault = row
    last = (result.said.splitlines() or [""])[-1][:120]
    note = f"FAILS, {fault}  {last}" if fault else last
    return f"{case:<32}{command:<10}{result.seconds:>7.2f} s{result.megabytes:>7.0f} MB{result.code:>5}  {note}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("tabulon")
    parser.add_argument("--quick", action="store_true", help="small inputs and two commands, in seconds")
    parser.add_argument("--only", default="", metavar="WORD", help="the cases with this in their names")
    parser.add_argument("--command", choices=COMMANDS, help="this command alone")
    parser.add_argument("--worst", type=int, metavar="N", help="of the rows that hold, the N costliest alone")
    parser.add_argument("--times", type=float, default=1, help="how much more time a run may take on this machine")
    arguments = parser.parse_args()
    tabulon = os.path.abspath(arguments.tabulon)
    names = [arguments.command] if arguments.command else QUICK_COMMANDS if arguments.quick else list(COMMANDS)
    cases = [case for case in (quick_cases() if arguments.quick else all_cases()) if arguments.only in case.name]
    if not cases:
        sys.exit(f"no case has '{arguments.only}' in its name")
    start, rows = time.monotonic(), []
    with tempfile.TemporaryDirectory() as folder:
        os.environ.update(XDG_DATA_HOME=folder, LC_ALL="C")
        for case in cases:
            measured = measure(case, names, tabulon, folder, arguments.times)
            rows += measured
            if arguments.worst is None:
                print("\n".join(map(printed, measured)), flush=True)
    faults = [row for row in rows if row[3]]
    if arguments.worst is not None:
        well = sorted((row for row in rows if not row[3]), key=lambda row: row[2].seconds)
        print("\n".join(map(printed, [*faults, *well[len(well) - min(len(well), arguments.worst) :]])))
    print(f"{len(rows)} runs of {len(cases)} cases, {len(faults)} fail, in {time.monotonic() - start:.0f} s")
    sys.exit(bool(faults))


if __name__ == "__main__":
    main()
