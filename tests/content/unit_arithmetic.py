#!/usr/bin/env python3
"""Holds arithmetic on units to exact fractions: products, quotients, powers, sums and conversions of values with units,
nested in brackets, go through the command as lines of one document, and every answer, number and unit, is
taken back to base units and compared with what the factors of the content give.

usage: unit_arithmetic.py TABULON [--count N] [--seed S] [--list]

Answers are read from a document that the command writes, where they stand with 100 decimals, and their
units from what it shows.
"""

import argparse
import json
import os
import random
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from fractions import Fraction

sys.dont_write_bytecode = True
from content import Units, currencies, plist  # noqa: E402

# What a category comes to in base types: the relations between types that the evaluator has.
SIMPLER = {
    "Area": {"Length": 2},
    "Volume": {"Length": 3},
    "Speed": {"Length": 1, "Time": -1},
    "Acceleration": {"Length": 1, "Time": -2},
    "Frequency": {"Time": -1},
    "Power": {"Electric Potential": 1, "Electric Current": 1},
}
# Ohm's law: answers may use it where sums and conversions don't.
SIMPLEST = {"Electric Resistance": {"Electric Potential": 1, "Electric Current": -1}}
FIRST_CURRENCIES = ("USD", "EUR", "JPY", "GBP")
MOST_DEGREE = 9  # of a category in any value of an expression

# Numbers have 100 decimals, and each step may cut at 100 digits.
RELATIVE = Fraction(1, 10**80)
ABSOLUTE = Fraction(1, 10**95)
PLACES_OF_MONEY = 16  # of the factor that a currency's rate becomes


def simplified(degrees, relations=None):
    result = {}
    for category, degree in degrees.items():
        for simple, power in (relations or SIMPLER).get(category, {category: 1}).items():
            result[simple] = result.get(simple, 0) + power * degree
    return {category: degree for category, degree in result.items() if degree}


class Quantity:
    """An exact number of base units, with the degree of each base category."""

    def __init__(self, number, degrees):
        self.number = number
        self.degrees = {category: degree for category, degree in degrees.items() if degree}

    def times(self, other, sign=1):
        degrees = dict(self.degrees)
        for category, degree in other.degrees.items():
            degrees[category] = degrees.get(category, 0) + sign * degree
        number = self.number * other.number if sign > 0 else self.number / other.number
        return Quantity(number, degrees)

    def power(self, exponent):
        return Quantity(self.number**exponent,
                        {category: degree * exponent for category, degree in self.degrees.items()})

    def is_modest(self):
        return all(abs(degree) <= MOST_DEGREE for degree in self.degrees.values())


def quantity_of(unit):
    degrees = {}
    for atom, degree in unit.atoms():
        degrees[atom.category] = degrees.get(atom.category, 0) + degree
    return Quantity(unit.multiplier(), simplified(degrees))


class Vocabulary:
    """The units that lines name, each by a word that means it alone, and all that answers may name."""

    def __init__(self):
        self.units = Units("en", ("si", "metric"), lambda fault: None)
        money = currencies("en")
        rates = plist("Currencies")["TKCurrencies"]
        everything = list(self.units.loaded.values())
        for code, unit in money.items():
            if code in rates:
                # The unit's factor is the text of a double.
                unit.factor = Fraction(f"{1 / float(rates[code]['rate']):.{PLACES_OF_MONEY}f}")
                everything.append(unit)
        self.by_name = {}
        for unit in everything:
            for names in unit.names.values():
                for name in names:
                    if name:
                        self.by_name.setdefault(name, []).append(unit)
        folded = {}
        for name, named in self.by_name.items():
            folded.setdefault(name.lower(), set()).update(unit.identifier for unit in named)
        self.typed = []  # (name, unit, quantity)
        for unit in everything:
            if unit.offset is not None or (unit.category == "Money" and unit.identifier not in FIRST_CURRENCIES):
                continue
            name = unit.identifier if unit.category == "Money" else next(iter(unit.names[1]), "")
            if re.fullmatch(r"[A-Za-z]{3,}", name) and len(folded.get(name.lower(), ())) == 1:
                self.typed.append((name, unit, quantity_of(unit)))
        self.of_category = {}
        for row in self.typed:
            self.of_category.setdefault(row[1].category, []).append(row)
        self.longest = max(len(name.split()) for name in self.by_name)
        self.affine = [unit for unit in everything if unit.offset is not None and unit.names[3]]

    def read(self, text):
        """Every quantity that the text of a unit may stand for."""
        if not text:
            return [Quantity(Fraction(1), {})]
        sides = re.split(r" per |(?<! )/|^per |^/", text)
        if len(sides) > 2:
            return []
        readings = list(self.read_side(sides[0].split()))
        if len(sides) == 1:
            return readings
        return [above.times(below, -1) for below in self.read_side(sides[1].split()) for above in readings]

    def read_side(self, words):
        if not words:
            yield Quantity(Fraction(1), {})
        for count in range(1, min(self.longest, len(words)) + 1):
            name, _, degree = " ".join(words[:count]).partition("^")
            if not re.fullmatch(r"\d*", degree):
                continue
            for unit in self.by_name.get(name, ()):
                for rest in self.read_side(words[count:]):
                    yield quantity_of(unit).power(int(degree or 1)).times(rest)


class Generator:
    """Makes lines from a seed, each with the quantity that it must answer."""

    def __init__(self, vocabulary, seed):
        self.random = random.Random(seed)
        self.vocabulary = vocabulary
        self.categories = list(vocabulary.of_category)
        self.palette = self.categories

    def number(self):
        kind = self.random.randrange(4)
        if kind == 0:
            return str(self.random.randint(1, 9))
        if kind == 1:
            return str(self.random.randint(10, 5000))
        if kind == 2:
            return f"{self.random.randint(0, 99)}.{self.random.randint(1, 999):03}"
        return f"0.{self.random.randint(1, 99999):05}"

    def unit(self, category=None):
        return self.random.choice(self.vocabulary.of_category[category or self.random.choice(self.palette)])

    def value(self):
        """A number with one unit, a power of it, or a unit over another, as people type them."""
        number = self.number()
        if self.random.randrange(7) == 0:
            return number, Quantity(Fraction(number), {})
        name, _, quantity = self.unit()
        plain = Quantity(Fraction(number), {})
        kind = self.random.randrange(6)
        if kind == 0:
            power = self.random.choice((2, 3))
            return f"{number} {name}^{power}", plain.times(quantity.power(power))
        if kind == 1:
            other, _, below = self.unit()
            power = self.random.choice((1, 2))
            text = f"{number} {name}/{other}" + (f"^{power}" if power > 1 else "")
            return text, plain.times(quantity).times(below.power(power), -1)
        return f"{number} {name}", plain.times(quantity)

    def chain(self):
        """Values with a unit each, in a row without brackets: read from the left."""
        text, result = "", Quantity(Fraction(1), {})
        for place in range(self.random.choice((2, 3, 4))):
            number, (name, _, quantity) = self.number(), self.unit()
            sign = self.random.choice((1, -1)) if place else 1
            text += ("" if not place else " * " if sign > 0 else " / ") + f"{number} {name}"
            result = result.times(Quantity(Fraction(number), {}).times(quantity), sign)
        return text, result

    def expression(self, depth):
        if depth == 0 or self.random.randrange(5) == 0:
            return self.chain() if self.random.randrange(5) == 0 else self.value()
        kind = self.random.randrange(11)
        text, left = self.expression(depth - 1)
        if kind == 10:
            return f"({text}){self.conversion(left)}", left
        if kind < 2:
            power = self.random.choice((-3, -2, -1, 2, 3))
            return f"({text})^{power}", left.power(power)
        if kind == 2:
            other, right = self.same_kind(left)
            operator = self.random.choice("+-")
            return f"({text}) {operator} ({other})", Quantity(
                left.number + (right.number if operator == "+" else -right.number), left.degrees)
        other, right = self.expression(depth - 1)
        if kind < 6:
            return f"({text}) * ({other})", left.times(right)
        return f"({text}) / ({other})", left.times(right, -1)

    def conversion(self, quantity):
        """Into a unit of the same kind, which may be of a type of its own (a litre for a length to the third)."""
        wanted = []
        for category, units in self.vocabulary.of_category.items():
            name, _, one = self.random.choice(units)
            if quantity.degrees and one.degrees == quantity.degrees:
                wanted.append(f" in {name}")
        sides, _ = self.target(quantity.degrees)
        if len(sides[1]) == 1 and len(sides[-1]) <= 1:
            above = sides[1][0]
            wanted.append(f" in {above}" + "".join(f"/{name}" for name in sides[-1]))
        return self.random.choice(wanted) if wanted else ""

    def target(self, degrees):
        """The text of a unit of these degrees, and its quantity."""
        sides = {1: [], -1: []}
        quantity = Quantity(Fraction(1), {})
        for category, degree in sorted(degrees.items()):
            name, _, one = self.unit(category)
            sign = 1 if degree > 0 else -1
            sides[sign].append(name if abs(degree) == 1 else f"{name}^{abs(degree)}")
            quantity = quantity.times(one.power(degree))
        return sides, quantity

    def same_kind(self, left):
        number = self.number()
        sides, quantity = self.target(left.degrees)
        text = " * ".join(f"(1 {name})" for name in sides[1]) or "1"
        for name in sides[-1]:
            text += f" / (1 {name})"
        return f"{number} * {text}", Quantity(Fraction(number), {}).times(quantity)

    def line(self):
        """None where the figures went out of hand."""
        self.palette = self.random.sample(self.categories, self.random.choice((1, 2, 2, 3)))
        if "Money" in self.palette:
            # Money times anything is shown as money alone, so it stays by itself.
            self.palette = ["Money"]
        try:
            text, quantity = self.expression(self.random.choice((1, 2, 2, 3)))
        except ZeroDivisionError:
            return None
        if not quantity.is_modest() or abs(quantity.degrees.get("Money", 0)) > 1 or quantity.number == 0:
            return None
        if self.random.randrange(3) == 0:
            text = f"({text}){self.conversion(quantity)}"
        return text, quantity

    def affine(self):
        one, other = self.random.choice(self.vocabulary.affine), self.random.choice(self.vocabulary.affine)
        number = self.random.choice(("", "-")) + self.number()
        base = (Fraction(number) + one.offset) * one.factor
        return f"{number} {one.names[3][0]} in {other.names[3][0]}", Quantity(base, {"Temperature": 1}), other


def answers_of(tabulon, lines):
    """For each line the answer's number with all its decimals, and what is shown. None, and the text, for an error."""
    with tempfile.TemporaryDirectory() as folder:
        text, document = os.path.join(folder, "lines.txt"), os.path.join(folder, "lines.tabulon")
        with open(text, "w", encoding="utf-8") as file:
            file.writelines(line + "\n" for line in lines)
        environment = dict(os.environ, LC_ALL="C", LANGUAGE="", XDG_DATA_HOME=folder)

        def run(*arguments):
            result = subprocess.run([tabulon, *arguments, "--language", "en"], capture_output=True, text=True,
                                    env=environment, check=True)
            if result.stderr:
                sys.exit(f"on standard error: {result.stderr.splitlines()[0]}")
            return result.stdout

        run("convert", text, document)
        shown = json.loads(run("answers", "--json", text))
        full = [line.findtext("answer") for line in ElementTree.parse(document).iter("line")]
    for digits, row in zip(full, shown, strict=True):
        yield (Fraction(digits) if digits and row["answer"] else None), row["answer"] or row["error"] or "nothing"


def unit_text(shown):
    return re.sub(r"^-?[\d.,]+(e-?\d+)? ?", "", shown)


def fault_of(vocabulary, number, shown, expected):
    if number is None:
        return shown
    readings = vocabulary.read(unit_text(shown))
    if not readings:
        return f"{shown}: a unit that can't be read"
    kind = simplified(expected.degrees, SIMPLEST)
    fault = f"{shown}: another kind"
    for reading in readings:
        if simplified(reading.degrees, SIMPLEST) != kind:
            continue
        wanted = expected.number / reading.number
        if abs(number - wanted) <= max(ABSOLUTE, RELATIVE * abs(wanted)):
            return None
        fault = f"{shown}, for {float(wanted):.12g}"
    return fault


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tabulon")
    parser.add_argument("--count", type=int, default=400)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--list", action="store_true", help="print every line with its answer")
    arguments = parser.parse_args()
    vocabulary = Vocabulary()
    generator = Generator(vocabulary, arguments.seed)
    rows = []
    while len(rows) < arguments.count:
        row = generator.line()
        if row:
            rows.append(row)
    affine = [generator.affine() for _ in range(arguments.count // 50)]
    faults = 0
    answers = list(answers_of(arguments.tabulon, [row[0] for row in rows] + [row[0] for row in affine]))
    for (line, expected), (number, shown) in zip(rows, answers):
        fault = fault_of(vocabulary, number, shown, expected)
        if arguments.list:
            print(f"{line}\t{shown}")
        if fault:
            faults += 1
            print(f"FAULT: {line} is {fault}")
    for (line, expected, unit), (number, shown) in zip(affine, answers[len(rows):]):
        wanted = expected.number / unit.factor - unit.offset
        if number is None or abs(number - wanted) > ABSOLUTE + RELATIVE * abs(wanted):
            faults += 1
            print(f"FAULT: {line} is {shown}, for {float(wanted):.12g}")
    print(f"{len(answers) - faults} of {len(answers)} lines hold, with {len(vocabulary.typed)} units (seed {arguments.seed})")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
