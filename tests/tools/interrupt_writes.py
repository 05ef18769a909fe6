"""What becomes of files whose writer is stopped, or has its system calls fail.

interrupt_writes.py TABULON VALUE_SAVER CONTENT [--kills N] [--failures N] [--minutes N] [--seed N]

Each writer turns its output from one known state into another. It is killed at a random moment, or one of its
system calls on the output fails (through strace), or memory ends. Afterwards the output has to be one of the two
states; an exit code of 0 promises the new one; and the next write leaves nothing else in the folder.
"""

import argparse
import os
import pathlib
import plistlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

LINES = 1500
FAILURES = [
    ("open,openat,creat", ["EACCES", "EMFILE", "ENOSPC", "EIO"]),
    ("write,pwrite64,writev", ["ENOSPC", "EIO", "EDQUOT", "EINTR", "EFBIG"]),
    ("fsync,fdatasync", ["EIO", "ENOSPC"]),
    ("rename,renameat,renameat2", ["EACCES", "ENOSPC", "EXDEV", "EIO"]),
    ("close", ["EIO", "EINTR"]),
    ("fchmod,fchown,chmod,chown", ["EPERM", "EIO"]),
    ("flock", ["ENOLCK", "EWOULDBLOCK", "EINTR"]),
    ("unlink,unlinkat", ["EACCES", "EIO"]),
    ("fstat,newfstatat,stat,lstat", ["EIO", "ENOMEM"]),
]
MEMORY = "mmap,brk"


class Writer:
    """A command that writes `targets` out of one of two inputs, in a folder of its own."""

    def __init__(self, name, folder, arguments, targets, read=lambda data: data):
        self.name, self.arguments, self.read = name, arguments, read
        self.targets = [folder / target for target in targets]
        self.folder = folder
        self.states = []
        for version in (0, 1):
            self.write(version)
            self.states.append(self.contents())
        assert self.states[0] != self.states[1], name
        self.names = sorted(os.listdir(folder))
        started = time.monotonic()
        self.write(0)
        self.duration = time.monotonic() - started

    def write(self, version):
        done = subprocess.run(self.arguments[version], capture_output=True, timeout=120)
        assert done.returncode == 0, (self.name, done)

    def contents(self):
        """What the targets hold, each by itself; None for one that isn't there or can't be read."""
        found = []
        for target in self.targets:
            try:
                found.append(self.read(target.read_bytes()))
            except Exception:
                found.append(None)
        return found

    def left_over(self):
        return [name for name in os.listdir(self.folder) if name not in self.names]


def numbered_text(number):
    return "".join(f"Item {i}: {number} + {i}\n" for i in range(LINES))


def saved_values(data):
    """What tells one save from another; parsing fails for a torn file."""
    contents = plistlib.loads(data)
    contents.pop("TKDataSourceDate", None)
    return contents


def writers(tabulon, saver, content, root):
    def sources(suffix):
        made = []
        for version in (0, 1):
            text = root / f"source{version}.txt"
            text.write_text(numbered_text(version + 1))
            if suffix == ".tabulon":
                document = root / f"source{version}.tabulon"
                subprocess.run([tabulon, "convert", "--force", text, document], check=True)
                text = document
            made.append(str(text))
        return made

    def folder(name):
        (root / name).mkdir()
        return root / name

    texts, documents = sources(".txt"), sources(".tabulon")
    yield Writer("convert", f := folder("convert"), [[tabulon, "convert", each, f / "n.tabulon"] for each in texts], ["n.tabulon"])
    yield Writer("preview", f := folder("preview"), [[tabulon, "preview", each, "-o", f / "page.html"] for each in documents], ["page.html"])
    yield Writer(
        "export", f := folder("export"),
        [[tabulon, "export", "--format", "html-inline", each, "-o", f / "page.html"] for each in documents], ["page.html"],
    )
    yield Writer("thumbnail", f := folder("thumbnail"), [[tabulon, "thumbnail", each, "-o", f / "picture.png"] for each in documents], ["picture.png"])
    f = folder("values")
    yield Writer("values", f, [[saver, content, f, str(number)] for number in (1, 2)], ["Variables.plist", "Currencies.plist"], saved_values)


class Tally:
    COLUMNS = ["runs", "reached", "old", "new", "torn", "lost", "false", "left", "stayed"]

    def __init__(self):
        self.counts = dict.fromkeys(self.COLUMNS, 0)
        self.faults = []

    def fault(self, column, *what):
        self.counts[column] += 1
        self.faults.append((column, *map(str, what)))

    def judge(self, writer, version, promised, what):
        """The targets were in the other state before, and were to come to that of `version`."""
        old, new = writer.states[1 - version], writer.states[version]
        found = writer.contents()
        for target, state, before, after in zip(writer.targets, found, old, new):
            if state is None:
                self.fault("torn" if target.exists() else "lost", writer.name, what, target.name)
            elif state not in (before, after):
                self.fault("torn", writer.name, what, target.name)
        self.counts["new" if found == new else "old"] += 1
        if promised and found != new:
            self.fault("false", writer.name, what)
        self.counts["left"] += len(writer.left_over())

    def clean(self, writer, version):
        """After a write that nobody stops nothing else is there."""
        writer.write(version)
        if writer.contents() != writer.states[version]:
            self.fault("torn", writer.name, "a write that nobody stopped")
        for name in writer.left_over():
            self.fault("stayed", writer.name, name)


def kill_one(writer, version, chance):
    """Kills at a random moment; every other time soon after the new file was begun. Whether it had begun."""
    child = subprocess.Popen(writer.arguments[version], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if chance.random() < 0.5:
        time.sleep(chance.random() * writer.duration * 1.1)
    else:
        while child.poll() is None and not any(name.startswith(".tabulon") for name in os.listdir(writer.folder)):
            pass
        time.sleep(chance.random() ** 2 * 0.004)
    child.send_signal(signal.SIGKILL)
    return child.wait() == -signal.SIGKILL


class Deadline:
    """The time for one of the two parts, which its writers share evenly."""

    def __init__(self, minutes, count):
        self.seconds = minutes * 60 / count
        self.start()

    def start(self):
        self.end = time.monotonic() + self.seconds

    def is_over(self):
        return time.monotonic() > self.end


def kills(all_writers, count, chance, deadline):
    tallies = {}
    for number, writer in enumerate(all_writers):
        deadline.start()
        tally = tallies[writer.name] = Tally()
        share = count // len(all_writers) + (number < count % len(all_writers))
        version = 1
        for round_number in range(share):
            is_last = round_number == share - 1 or deadline.is_over()
            tally.counts["runs"] += 1
            tally.counts["reached"] += kill_one(writer, version, chance)
            tally.judge(writer, version, False, "killed")
            if round_number % 5 == 4 or is_last:
                tally.clean(writer, version)
                version = 1 - version
                if is_last:
                    break
            elif writer.contents() == writer.states[version]:
                version = 1 - version
            elif writer.contents() != writer.states[1 - version]:  # one of two files is new
                tally.clean(writer, 1 - version)
    return tallies


def traced(writer, version, calls, *options):
    """The command under strace, which looks at what concerns its output; and the lines of the trace."""
    log = writer.folder.parent / "trace"
    log.unlink(missing_ok=True)
    command = ["strace", "-f", "-qq", "-o", log, "-e", f"trace={calls}", *options, *writer.arguments[version]]
    done = subprocess.run(command, capture_output=True, timeout=300)
    lines = log.read_text(errors="replace").splitlines() if log.exists() else []
    return done, [line for line in lines if re.search(r"^\d+\s+\w+\(", line)]


def on_output(writer):
    places = [writer.folder, *writer.targets]
    places += [writer.folder / f".tabulon-new-{number}" for number in range(2)]
    return [option for place in places for option in ("-P", str(place))]


def judge_failure(tally, writer, version, done, what, memory=False):
    tally.counts["runs"] += 1
    tally.judge(writer, version, done.returncode == 0, what)
    message = done.stderr.decode(errors="replace")
    if memory and done.returncode == 127:  # the program was not even loaded
        return
    is_saver = writer.name == "values"  # which has no messages
    if done.returncode not in (0, 1) or (done.returncode == 1 and not is_saver and len(message.splitlines()) != 1):
        tally.fault("false", writer.name, what, done.returncode, message)


def failures(all_writers, count, chance, deadline):
    tallies = {}
    for number, writer in enumerate(all_writers):
        deadline.start()
        tally = tallies[writer.name] = Tally()
        share = count // len(all_writers) + (number < count % len(all_writers))
        plans = [(calls, errors, on_output(writer)) for calls, errors in FAILURES] + [(MEMORY, ["ENOMEM"], [])] * 2
        counted = {}
        version = 1
        while tally.counts["runs"] < share and not deadline.is_over():
            calls, errors, options = plans[tally.counts["runs"] % len(plans)]
            if calls not in counted:
                done, lines = traced(writer, version, calls, *options)
                assert done.returncode == 0, (writer.name, calls, done)
                counted[calls] = max(len(lines), 1)
                version = 1 - version
            # The loader goes on without looking whether it got its first memory.
            when = chance.randint(2 if calls == MEMORY else 1, counted[calls])
            forever = "+" if chance.random() < (0.7 if calls == MEMORY else 0.3) else ""
            error = chance.choice(errors)
            if error in ("EINTR", "EWOULDBLOCK"):
                forever = ""
            what = f"{calls}:error={error}:when={when}{forever}"
            done, lines = traced(writer, version, calls, *options, "-e", f"inject={what}")
            tally.counts["reached"] += any("(INJECTED)" in line for line in lines)
            judge_failure(tally, writer, version, done, what, calls == MEMORY)
            tally.clean(writer, version)
            version = 1 - version
    return tallies


def report(title, tallies):
    print(f"{title:<12}" + "".join(f"{column:>9}" for column in Tally.COLUMNS))
    total = dict.fromkeys(Tally.COLUMNS, 0)
    for name, tally in tallies.items():
        print(f"{name:<12}" + "".join(f"{tally.counts[column]:>9}" for column in Tally.COLUMNS))
        total = {column: total[column] + tally.counts[column] for column in total}
    print(f"{'all':<12}" + "".join(f"{total[column]:>9}" for column in Tally.COLUMNS))
    faults = [fault for tally in tallies.values() for fault in tally.faults]
    for fault in faults[:20]:
        print("  " + " | ".join(fault))
    return len(faults)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tabulon")
    parser.add_argument("saver")
    parser.add_argument("content")
    parser.add_argument("--kills", type=int, default=2000)
    parser.add_argument("--failures", type=int, default=2000)
    parser.add_argument("--minutes", type=float, default=600, help="for the kills, and as much for the failures")
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    chance = random.Random(arguments.seed)
    with tempfile.TemporaryDirectory() as folder:
        every = list(writers(arguments.tabulon, arguments.saver, arguments.content, pathlib.Path(folder)))
        deadline = Deadline(arguments.minutes, len(every))
        faults = report("kills", kills(every, arguments.kills, chance, deadline))
        if shutil.which("strace") and subprocess.run(["strace", "-qq", "-o", "/dev/null", "true"]).returncode == 0:
            faults += report("failures", failures(every, arguments.failures, chance, deadline))
        else:
            print("failing system calls left out: there is no strace that may trace")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
