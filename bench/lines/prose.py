"""Prose typed into `tabulon answers`: what a line of words costs, and whether words alone give answers.

Lines without a digit must not be answered: exit code 1 when one is. The lines come from a small grammar with a
fixed seed; a third of them hold a number, and stand in a table of their own.

usage: prose.py TABULON
"""

import random
import subprocess
import sys
import tempfile
import time

LINES = 300
ROUNDS = 5

WHO = "the gardener,my aunt,an old sailor,the baker's boy,our neighbour,a tired clerk,the miller,she,he,nobody".split(",")
DID = "walked,waited,sang,wrote a letter,mended the gate,counted the sheep,laughed,slept,looked up,lit a lamp".split(",")
WHERE = "by the river,in the yard,on the hill,at the inn,behind the church,under the elm,along the road".split(",")
WHEN = "before dawn,after supper,in the rain,at noon,all winter long,as the bells rang,per custom,from habit".split(",")
TAIL = "and said no word,for want of light,to no end,with half a smile,as if in a dream,mod or no mod,one log at a time".split(",")
MARK = [".", ".", ".", "!", "?", ";", " - so they say.", ", e.g. on Sundays."]
NUMBERED = ["some {} times", "with {} geese", "in the year {}", "for {} pence", "since {:,}", "at a cost of {}.50"]


def sentence(generator, numbered):
    pick = generator.choice
    parts = [pick(WHO), pick(DID), pick(WHERE), pick(WHEN), pick(TAIL)]
    if numbered:
        parts.insert(generator.randint(2, 4), pick(NUMBERED).format(generator.randint(2, 1900)))
    text = " ".join(parts[: generator.randint(3, 5)] if not numbered else parts) + pick(MARK)
    if generator.random() < 0.2:
        text = f'"{text[0].upper() + text[1:]}" ({pick(WHO)})'
    return text[0].upper() + text[1:]


def answers(tabulon, lines, *options):
    """The answers to the lines, and the least time of several runs in seconds."""
    text = "".join(line + "\n" for line in lines)
    best = float("inf")
    for _ in range(ROUNDS):
        start = time.perf_counter()
        output = subprocess.run([tabulon, "answers", *options, "-"], input=text, capture_output=True, text=True, check=True)
        best = min(best, time.perf_counter() - start)
    return output.stdout.split("\n")[: len(lines)], best


def main():
    tabulon = sys.argv[1]
    generator = random.Random(1871)
    page = [sentence(generator, number % 3 == 2) for number in range(LINES)]
    with_digits = [line for line in page if any(c.isdigit() for c in line)]
    words = [line for line in page if line not in with_digits]
    print(f"{'a page of prose':<44}{'lines':>6}{'answers':>9}{'a line':>12}")
    wrong = []
    with tempfile.TemporaryDirectory() as nothing:
        # With the content a word can be a unit on its own: "A yard - so they say" holds an ampere.
        for place, options in (("built-in lists", ("--content", nothing)), ("all units", ())):
            _, empty = answers(tabulon, ["1"], *options)
            for name, lines in (("words alone", words), ("words and a number", with_digits)):
                given, seconds = answers(tabulon, lines, *options)
                answered = [(line, answer) for line, answer in zip(lines, given) if answer]
                if lines is words and options:
                    wrong = answered
                each = max(seconds - empty, 0) / len(lines) * 1e6  # without the start of the process
                print(f"{name + ', ' + place:<44}{len(lines):>6}{len(answered):>9}{each:>9.1f} us")
    for line, answer in wrong:
        print(f"words answered: {line!r} gives {answer}")
    sys.exit(1 if wrong else 0)


main()
