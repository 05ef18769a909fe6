#!/usr/bin/env python3
"""A digest of the answers to generated lines: the same before and after a change that may change no answer.

usage: digest.py TABULON [--lines N] [--keep FILE]

Generates documents of plain text (arithmetic, units, money, percentages, names, references, phrases, prose,
and pieces of all of them thrown together), asks the command for their answers, and prints one SHA-256 over
all of them. With --keep the lines and answers are written to FILE, so that two runs can be compared by diff.
"""

import argparse
import hashlib
import random
import subprocess

NUMBERS = ["0", "1", "2", "3", "7", "12", "20", "45.5", "0.1", "1,250", "1234.5678", "1e3", "6.02E23", "0x1F", "0b101",
           "99%", "15%", "5%", "$20", "$3.50", "€12", "£7", "¥900", "100k", "2M", "1/3", "3!", "10^5", "-4", "(2+3)"]
UNITS = ["m", "km", "cm", "mm", "miles", "ft", "inches", "kg", "g", "lb", "oz", "s", "min", "h", "hours", "days", "weeks",
         "litres", "mL", "cups", "gallons", "km/h", "m/s", "mph", "m^2", "sq ft", "acres", "W", "kW", "kWh", "J", "kJ",
         "cal", "N", "Pa", "bar", "psi", "V", "A", "ohm", "Hz", "MB", "GB", "bits", "°C", "°F", "K", "USD", "EUR", "GBP"]
OPERATORS = ["+", "-", "*", "/", "^", "×", "÷", " plus ", " minus ", " times ", " divided by ", " mod ", " x ", " per ",
             "<<", ">>", "&", "|", " xor "]
FUNCTIONS = ["sqrt(%s)", "sin(%s)", "cos %s", "log(%s)", "ln(%s)", "abs(%s)", "round(%s)", "floor(%s)", "2 * (%s)",
             "exp(%s)", "tan(%s)", "asin(%s)", "root(%s; 3)", "choose(%s;2)"]
PHRASES = ["%s of %s", "%s off %s", "%s on %s", "%s as a %% of %s", "what percentage of %s is %s", "%s in %s", "%s to %s",
           "%s is what %% of %s", "half of %s + %s", "%s as %s"]
WORDS = ["lunch", "rent", "for", "two", "the", "price", "of", "taxi", "and", "a", "flight", "note", "paid", "by", "total",
         "in", "at", "per", "each", "weeks", "min", "x", "on", "is", "about"]
NAMES = ["rent", "price", "tax rate", "n", "width", "m", "Total cost", "x", "speed"]


def number(r):
    return r.choice(NUMBERS) if r.random() < 0.7 else str(r.randrange(10 ** r.randrange(1, 7)) / r.choice([1, 10, 100]))


def quantity(r):
    return number(r) + r.choice(["", " "]) + r.choice(UNITS) if r.random() < 0.5 else number(r)


def expression(r, depth):
    kind = r.randrange(10)
    if depth == 0 or kind < 3:
        return quantity(r)
    if kind < 6:
        return expression(r, depth - 1) + r.choice(["", " "]) + r.choice(OPERATORS) + r.choice(["", " "]) + expression(r, depth - 1)
    if kind == 6:
        return "(" + expression(r, depth - 1) + ")"
    if kind == 7:
        return r.choice(FUNCTIONS) % expression(r, depth - 1)
    if kind == 8:
        return r.choice(NAMES)
    return r.choice(["line1", "___rel_line(-1)", "___line(2)", "line 3"]) if r.random() < 0.5 else quantity(r)


def line(r):
    kind = r.randrange(12)
    text = expression(r, r.randrange(4))
    if kind == 0:
        return " ".join(r.choice(WORDS) for _ in range(r.randrange(1, 10)))
    if kind == 1:
        return r.choice(NAMES) + " = " + text
    if kind == 2:
        return " ".join(r.choice(WORDS) for _ in range(r.randrange(1, 4))) + ": " + text
    if kind == 3:
        return text + " in " + r.choice(UNITS)
    if kind == 4:
        return r.choice(PHRASES) % (quantity(r), quantity(r))
    if kind == 5:
        return " ".join(r.choice([quantity(r), r.choice(WORDS), r.choice(OPERATORS).strip()]) for _ in range(r.randrange(2, 8)))
    if kind == 6:
        return text + " // " + " ".join(r.choice(WORDS) for _ in range(3))
    return text


def main():
    parser = argparse.ArgumentParser(usage="%(prog)s TABULON [--lines N] [--keep FILE]")
    parser.add_argument("tabulon")
    parser.add_argument("--lines", type=int, default=100_000)
    parser.add_argument("--keep")
    arguments = parser.parse_args()

    lines_in_document = 500
    digest = hashlib.sha256()
    kept = open(arguments.keep, "w", encoding="utf-8") if arguments.keep else None
    for seed in range(arguments.lines // lines_in_document):
        r = random.Random(seed)
        lines = [line(r) for _ in range(lines_in_document)]
        run = subprocess.run([arguments.tabulon, "answers", "-", "--trig", r.choice(["degrees", "radians"])],
                             input="\n".join(lines) + "\n", capture_output=True, text=True, check=True)
        digest.update(run.stdout.encode())
        if kept:
            for text, answer in zip(lines, run.stdout.split("\n")):
                kept.write(f"{seed}\t{text}\t{answer}\n")
    print(digest.hexdigest())


if __name__ == "__main__":
    main()
