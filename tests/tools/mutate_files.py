"""What damaged files do to the command.

mutate_files.py TABULON EXAMPLES CONTENT [--count N] [--seed N]

Documents and property lists are changed in their bytes, values, numbers, structure and length. Each command has to
end by itself within 2 seconds of processor time and 256 MB, with exit code 0, or with 1 and one line.
"""

import argparse
import collections
import os
import pathlib
import random
import re
import resource
import subprocess
import sys
import tempfile

SECONDS, MEGABYTES = 2, 256
NUMBERS = [b"-1", b"0", b"65535", b"99999999999999999999", b"4294967295", b"2147483647", b"1e308", b"-2147483648", b"7"]
MARKS = [b"<", b">", b"&", b'"', b"\0", b"\xff", b"]]>", b"<!--", b"<![CDATA[", b"&#0;", b"&#x10FFFF;", b"<?x", b"</data>"]


def change_bytes(data, chance):
    for _ in range(chance.randint(1, 20)):
        place = chance.randrange(len(data))
        data = data[:place] + bytes([chance.randrange(256)]) + data[place + 1 :]
    return data


def insert_mark(data, chance):
    place = chance.randrange(len(data))
    return data[:place] + chance.choice(MARKS) * chance.choice([1, 1, 1000]) + data[place:]


def cut_off(data, chance):
    return data[: chance.randrange(len(data))]


def change_values(data, chance):
    """Texts of elements become other numbers."""
    share = chance.choice([0.02, 0.3])
    swap = lambda match: b">" + (chance.choice(NUMBERS) if chance.random() < share else match[1]) + b"<"
    return re.sub(rb">(-?[0-9.]{1,12})<", swap, data)


def enlarge_numbers(data, chance):
    """Numbers within texts grow."""
    grow = lambda match: match[0] * chance.choice([2, 5, 40]) if chance.random() < 0.1 else match[0]
    return re.sub(rb"[0-9]+", grow, data)


def elements(data):
    return [match.span() for match in re.finditer(rb"<(line|item|dict|array|key|string|value|expression)>.*?</\1>", data, re.S)]


def move_element(data, chance):
    """An element is repeated, left out, or set in another's place."""
    found = elements(data)
    if len(found) < 2:
        return cut_off(data, chance)
    (start, end), (place, _) = chance.choice(found), chance.choice(found)
    element = data[start:end]
    if chance.random() < 0.3:
        return data[:start] + data[end:]
    return data[:place] + element * chance.choice([1, 2, 200]) + data[place:]


def nest_element(data, chance):
    found = elements(data)
    if not found:
        return cut_off(data, chance)
    start, end = chance.choice(found)
    depth = chance.choice([1, 20, 300])
    name = re.match(rb"<(\w+)>", data[start:end])[1]
    return data[:start] + (b"<" + name + b">") * depth + data[start:end] + (b"</" + name + b">") * depth + data[end:]


MUTATIONS = [change_bytes, insert_mark, cut_off, change_values, enlarge_numbers, move_element, nest_element]


def limited():
    resource.setrlimit(resource.RLIMIT_CPU, (10 * SECONDS, 10 * SECONDS))


def measured(command):
    """Exit code, processor seconds, megabytes, lines on standard error."""
    with tempfile.TemporaryFile() as errors:
        child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=errors, preexec_fn=limited)
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
        errors.seek(0)
        lines = errors.read().decode(errors="replace").splitlines()
    return child.returncode, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, lines


def commands(tabulon, file, folder):
    if file.suffix == ".plist":
        yield "colors", [tabulon, "export", folder / "one.txt", "--format", "html", "--colors", file]
        return
    yield "answers", [tabulon, "answers", file]
    yield "preview", [tabulon, "preview", file, "-o", folder / "page.html"]
    yield "thumbnail", [tabulon, "thumbnail", file, "-o", folder / "picture.png"]
    yield "convert", [tabulon, "convert", "--force", file, folder / "converted"]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tabulon")
    parser.add_argument("examples", type=pathlib.Path)
    parser.add_argument("content", type=pathlib.Path)
    parser.add_argument("--count", type=int, default=500)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--keep", type=pathlib.Path, help="a folder for the files that did harm")
    arguments = parser.parse_args()
    chance = random.Random(arguments.seed)
    documents = sorted(arguments.examples.glob("*.tabulon"))
    lists = sorted(arguments.content.glob("*.plist"))
    rows, faults = collections.defaultdict(lambda: [0, 0, 0, 0.0, 0.0, 0]), []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "one.txt").write_text("1 + 1\n")
        for number in range(arguments.count):
            original = chance.choice(lists if lists and number % 5 == 4 else documents)
            mutation = chance.choice(MUTATIONS)
            file = folder / f"mutant{number}{original.suffix}"
            file.write_bytes(mutation(original.read_bytes(), chance))
            for command, line in commands(arguments.tabulon, file, folder):
                code, seconds, megabytes, messages = measured(line)
                row = rows[command]
                row[0] += 1
                row[1 if code == 0 else 2] += 1
                row[3], row[4] = max(row[3], seconds), max(row[4], megabytes)
                ended = code == 0 or (code == 1 and len(messages) == 1)
                if ended and seconds <= SECONDS and megabytes <= MEGABYTES:
                    continue
                row[5] += 1
                faults.append(f"{mutation.__name__} {original.name} {number} {command}: {code}, {seconds:.2f} s, {megabytes:.0f} MB, {messages[:2]}")
                if arguments.keep:
                    (arguments.keep / file.name).write_bytes(file.read_bytes())
            file.unlink()
    print(f"{'command':<10}{'files':>7}{'done':>7}{'refused':>9}{'most s':>8}{'most MB':>9}{'faults':>8}")
    for command, row in rows.items():
        print(f"{command:<10}{row[0]:>7}{row[1]:>7}{row[2]:>9}{row[3]:>8.2f}{row[4]:>9.0f}{row[5]:>8}")
    print("\n".join(faults[:30]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
