"""Puts the documents of a case file through the command and compares every line's answer.

The form of a case file:
    == heading                  begins a document; "== heading | --trig radians" adds arguments of the command
    text => expected answer     one line of the document; nothing behind the arrow means no answer
    # note                      for the reader; so are empty rows
The last arrow of a row divides it. The answer "*" accepts any: the row is there for what the other rows see
of it, or because the command must only live through it. On both sides \\xHH, \\uHHHH, \\UHHHHHHHH, \\t and \\\\
stand for the characters they name, and {text*count} for that many repetitions of a text.
"""

import pathlib
import re
import subprocess
import sys

ESCAPE = re.compile(r"\\(?:x([0-9A-Fa-f]{2})|u([0-9A-Fa-f]{4})|U([0-9A-Fa-f]{8})|(t)|(\\))")
REPETITION = re.compile(r"\{(.+?)\*(\d+)\}")
ARROW = " =>"
SECONDS = 60


def unescape(text):
    text = REPETITION.sub(lambda match: match[1] * int(match[2]), text)

    def character(match):
        code = match[1] or match[2] or match[3]
        return chr(int(code, 16)) if code else "\t" if match[4] else "\\"

    return ESCAPE.sub(character, text)


class Document:
    def __init__(self, heading):
        self.name, _, arguments = (part.strip() for part in heading.partition(" | "))
        self.arguments = arguments.split()
        self.rows = []  # row number in the file, text, expected answer


def read(path):
    documents = []
    for number, row in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        if not row.strip() or row.startswith("#"):
            continue
        if row.startswith("== "):
            documents.append(Document(row[3:]))
            continue
        text, arrow, expected = row.rpartition(ARROW)
        if not arrow or not documents:
            sys.exit(f"{path.name}:{number}: neither a heading nor a line with its answer")
        documents[-1].rows.append((number, unescape(text), unescape(expected.strip())))
    return documents


def shortened(text):
    return ascii(text) if len(text) <= 80 else f"{ascii(text[:40])}... ({len(text)} characters)"


def failures_of(command, document):
    text = "\n".join(row[1] for row in document.rows) + "\n"
    try:
        run = subprocess.run([command, "answers", *document.arguments, "-"], input=text.encode(),
                             capture_output=True, timeout=SECONDS)
    except subprocess.TimeoutExpired:
        return [f"{document.name}: no end after {SECONDS} seconds"]
    if run.returncode != 0:
        return [f"{document.name}: exit code {run.returncode}: {run.stderr.decode(errors='replace').strip()}"]
    answers = run.stdout.decode().split("\n")[:-1]
    if len(answers) != len(document.rows):
        return [f"{document.name}: {len(answers)} answers to {len(document.rows)} lines"]
    return [
        f"{number}: {document.name}: {shortened(line)}: expected {shortened(expected)}, got {shortened(answer)}"
        for (number, line, expected), answer in zip(document.rows, answers)
        if expected not in ("*", answer)
    ]


def main():
    command, path = sys.argv[1], pathlib.Path(sys.argv[2])
    documents = read(path)
    failures = [failure for document in documents for failure in failures_of(command, document)]
    for failure in failures:
        print(f"{path.name}:{failure}")
    print(f"{sum(len(document.rows) for document in documents)} lines, {len(failures)} failures")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
