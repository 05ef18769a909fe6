#!/usr/bin/env python3
"""Puts conversions between the units of the content through the command, as a user types them, and compares the
answers with GNU units.

usage: compare_conversions.py TABULON [--list]

Every unit with a name of its own is converted into a few others of its category. The answers are read as they
are shown, so that ten decimals count. A difference is a fault unless check_units.py explains it.
"""

import shutil
import subprocess
import sys
from fractions import Fraction

sys.dont_write_bytecode = True
from check_units import DIFFERENCES, SKIPPED, ask, expression_of  # noqa: E402
from content import Units  # noqa: E402

STEPS = (1, 5, 11)  # a unit is converted into those so many places behind it
LEAST = 300
RELATIVE = Fraction(1, 10**9)
ABSOLUTE = Fraction(6, 10**11)  # half of the last decimal that is shown, and some

MOST_WORDS = 3  # a line reads no longer names


def typed(unit):
    """A name that a line can hold in front of other words; None without one."""
    names = unit.names[2] + unit.names[3]
    fitting = (name for name in names if len(name.split()) <= MOST_WORDS and not any(c.isdigit() for c in name))
    return next(fitting, None)


def conversions(units):
    """The line, what `units` is asked, and the factor by which the two are known to differ."""
    by_category = {}
    for identifier, unit in units.loaded.items():
        if unit.offset is not None or identifier in units.aliases or typed(unit) is None:
            continue
        if expression_of(identifier, units) is not None:
            by_category.setdefault(unit.category, []).append(unit)
    for category, members in by_category.items():
        for place, unit in enumerate(members):
            for step in STEPS:
                other = members[(place + step) % len(members)]
                if other is unit or unit.dimension() != other.dimension():
                    continue
                known = Fraction(1)
                for each, direction in ((unit, 1), (other, -1)):
                    if each.identifier in DIFFERENCES:
                        known *= DIFFERENCES[each.identifier][0] ** direction
                amount = "37.5" if step == 1 else "4"
                line = f"{amount} {typed(unit)} in {typed(other)}"
                asked = (f"{amount} {expression_of(unit.identifier, units)}", expression_of(other.identifier, units))
                yield category, line, asked, known


def shown(answer):
    text = answer.split(" ")[0].replace(",", "")
    try:
        return Fraction(text)
    except ValueError:
        return None


def main():
    tabulon, listing = sys.argv[1], "--list" in sys.argv
    if not shutil.which("units"):
        print("GNU units isn't installed: left out")
        return SKIPPED
    faults = []
    units = Units("en", ("si", "metric"), faults.append)
    rows = list(conversions(units))
    run = subprocess.run([tabulon, "answers", "--language", "en", "-"], capture_output=True, text=True, check=True,
                         input="".join(line + "\n" for _, line, _, _ in rows))
    answers = run.stdout.split("\n")[:-1]
    expected = ask([asked for _, _, asked, _ in rows])
    counts = {}
    for (category, line, asked, known), answer, peer in zip(rows, answers, expected):
        ours, theirs = shown(answer), shown(peer)
        if theirs is None:
            faults.append(f"units doesn't turn {asked[0]} into {asked[1]}: {peer}")
        elif ours is None or abs(ours - theirs * known) > max(ABSOLUTE, RELATIVE * abs(theirs)):
            faults.append(f"{line}: {answer or 'nothing'} here, {peer} for units")
        else:
            counts[category] = counts.get(category, 0) + 1
        if listing:
            print(f"{line}\t{answer}\t{peer}")
    for category, count in counts.items():
        print(f"{count:5} {category}")
    total = sum(counts.values())
    print(f"{total:5} conversions agree")
    for fault in faults:
        print(f"FAULT: {fault}")
    return 1 if faults or total < LEAST else 0


if __name__ == "__main__":
    sys.exit(main())
