"""Inputs that are made to stall a machine: lines of every kind of token, texts without end, documents of much work
in few bytes. Each is made when it is asked for, and the same each time."""

import pathlib
import plistlib
import sys
from typing import Callable, NamedTuple

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "content"))

from phrases import LINES as PHRASES  # noqa: E402

LONGEST_LINE = 65536  # code units of UTF-16 that a line may have
LONG_TEXT = 12_000_000
MANY_LINES = 100_000


class Bounds(NamedTuple):
    seconds: float
    megabytes: int


ONE_LINE = Bounds(2, 256)
MANY = Bounds(6, 400)
WORK = Bounds(75, 400)  # nothing but work: what a document may cost as a whole, and the start


class Case(NamedTuple):
    name: str
    bounds: Bounds
    make: Callable[[], bytes]
    language: str = "en"
    isDocument: bool = False


# Begin, what is repeated, end: both ends stand once for each repetition, so that brackets may close.
REPEATED = {
    "digits": "7", "numbers": "12.5 ", "points": "1.", "separators": "1,234,", "exponents": "1e9", "large-exponents": "1e999 * ",
    "hex": "0xFF + ", "binary": "0b101 | ", "letters-and-digits": "1a2b", "thousands": "5k + ", "dates": "2026-11-23 ",
    "times": "12:30 + ", "sums": "1 + ", "products": "2*3-", "powers": "2^", "quotients": "3/7 / ", "factorials": "3! + ",
    "open-brackets": "(", "close-brackets": ")", "square-brackets": "[", "pairs": "()", "mixed-brackets": "([{",
    "one-word": "a", "words": "lorem ipsum dolor ", "prose": "She walked along the road, one log at a time. ",
    "capitals": "Aa", "unit": "km ", "units": "5 km + ", "long-units": "metres per second ", "unit-fractions": "km/h ",
    "unit-powers": "m^2 ", "conversions": "5 km in miles ", "conversion-words": "in ", "unit-symbols": "\u00b5m\u2126\u00b0C ",
    "per": "5 per kg ", "percent": "5% + ", "percent-signs": "%", "percent-words": "percent of ", "money": "$5 + ",
    "currency-signs": "$", "currencies": "5 EUR in USD ", "euros": "\u20ac5 ", "references": "line1 + ", "reference-words": "line ",
    "reference-calls": "___rel_line(1) + ", "names": "total_of_x + ", "declarations": "x = ", "declared": "x = 5 + ",
    "comments": "// ", "comment-brackets": "(note) 5 ", "labels": "a: ", "colons": ":", "titles": "@ ", "quotes": '"',
    "quoted": '"a" 5 ', "apostrophes": "'", "emoji": "\U0001f600", "joined-emoji": "\U0001f469\u200d\U0001f4bb ",
    "combining": "e\u0301\u0302", "marks-alone": "\u0301", "right-to-left": "\u05e9\u05dc\u05d5\u05dd 5 ", "direction-marks": "\u202e5 ",
    "arabic-digits": "\u0663 + ", "ideographs": "\u65e5\u672c 5 ", "controls": "\x01", "reserved-marks": "\x16+\x17", "tabs": "\t",
    "blanks": " ", "number-and-blanks": "5 as" + " " * 200, "hard-blanks": "5\u00a0", "line-separators": "5\u2028",
    "plus-signs": "+", "minus-signs": "-", "stars": "*", "carets": "^", "factorial-signs": "!", "tildes": "~", "shifts": "<<",
    "comparisons": "<=>", "bits": "5 & 3 | ", "equals": "=", "semicolons": ";", "commas": ",", "all-operators": "+-*/^%!&|~<>=",
    "calls": "sin(1) + ", "call-names": "sin ", "arguments": "max(1;2;", "unknown-calls": "nothing(1) ", "roots": "sqrt 2 ",
    "word-operators": "5 plus 3 times ", "word-operators-alone": "plus ", "divided-by": "divided by ", "mod": "7 mod ",
    "bits-in-words": "5 xor 3 and ", "reserved-words": "_percent_of ", "underscores": "_",
}  # fmt: skip

NESTED = {
    "nested-brackets": ("(", "1", ")"), "nested-sums": ("(1+", "1", ")"), "nested-calls": ("sin(", "1", ")"),
    "nested-lists": ("max(1;", "2", ")"), "nested-powers": ("2^(", "1", ")"), "nested-percent": ("(5% + ", "1", ")"),
    "nested-units": ("(5 km + ", "1 km", ")"),
}  # fmt: skip

# Ahead of the line, for it to refer to.
FIRST = {"references": "5", "names": "total_of_x = 5", "reference-calls": "5"}


def units_in(text):
    return len(text.encode("utf-16-le")) // 2


def line_of(unit, size):
    return unit * (size // units_in(unit))


def nested_line(begin, middle, end, size):
    depth = (size - len(middle)) // (len(begin) + len(end))
    return begin * depth + middle + end * depth


def phrase_line(language, size):
    return line_of(" ".join(PHRASES[language]) + " ", size)


def operator_words(language):
    path = ROOT / "content" / "TBContent.bundle" / f"{language}.lproj" / "WordOperators.plist"
    words = [entry["word"] for entry in plistlib.loads(path.read_bytes())]
    return " ".join(f"5 {word} 3 " for word in words) or "5 + 3 "


def escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def document(lines, settings="", prolog="", start="<data>"):
    items = "".join(f"<line><expression>{escaped(line)}</expression></line>" for line in lines)
    return (
        f'<?xml version="1.0" encoding="UTF-8"?>\n{prolog}{start}<info><version>0.6</version></info>'
        f"<settings>{settings}</settings><lines>{items}</lines></data>\n"
    ).encode()


def text(lines):
    return "".join(line + "\n" for line in lines).encode()


def line_cases(size=LONGEST_LINE):
    for name, unit in REPEATED.items():
        first = [FIRST[name]] if name in FIRST else []
        yield Case(f"line {name}", ONE_LINE, lambda unit=unit, first=first: text([*first, line_of(unit, size)]))
    for name, parts in NESTED.items():
        yield Case(f"line {name}", ONE_LINE, lambda parts=parts: text([nested_line(*parts, size)]))
    for language in PHRASES:
        yield Case(f"line phrases-{language}", ONE_LINE, lambda each=language: text([phrase_line(each, size)]), language)
        yield Case(f"line operators-{language}", ONE_LINE,
                   lambda each=language: text([line_of(operator_words(each), size)]), language)  # fmt: skip


def text_cases(size=LONG_TEXT):
    for name, unit in [("digits", "7"), ("sums", "1 + "), ("words", "word "), ("brackets", "("), ("references", "line1 ")]:
        yield Case(f"text one-line-{name}", ONE_LINE, lambda unit=unit: text([unit * (size // len(unit))]))
    for name, line in [("empty", ""), ("digit", "1"), ("sum", "1 + 1"), ("name", "x"), ("prose", "Milk and bread")]:
        yield Case(f"text short-lines-{name}", MANY,
                   lambda line=line: text([line] * (size // (len(line) + 1))))  # fmt: skip


def many_line_cases(count=MANY_LINES):
    numbers = range(1, count + 1)
    rows = {
        "empty": lambda: [""] * count,
        "sums": lambda: [f"Item {i}: {i} * 3 + 10%" for i in numbers],
        "prose": lambda: [f"She walked {i} times along the road, one log at a time." for i in numbers],
        "names": lambda: [f"name{i} = {i}" for i in numbers],
        "one-name": lambda: [f"x = {i}" for i in numbers],
        "chained-names": lambda: ["name1 = 1", *(f"name{i} = name{i - 1} + 1" for i in numbers[1:])],
        "references-to-one": lambda: ["5", *("line1 + 5" for _ in numbers[1:])],
        "chain": lambda: ["5", *(f"line{i - 1} + 1" for i in numbers[1:])],
        "references-ahead": lambda: [f"line{count - i} + 1" for i in numbers],
        "circle": lambda: [f"line{i % count + 1} + 1" for i in numbers],
        "units": lambda: [f"{i} km + {i} m" for i in numbers],
    }
    for name, lines in rows.items():
        yield Case(f"document {name}", MANY, lambda lines=lines: document(lines()), isDocument=True)
    yield Case("text names", MANY, lambda: text(rows["names"]()))


def xml_cases(scale=1):
    defaults = "".join(f'a{i} CDATA "v" ' for i in range(3000 * scale // 10))
    attributes = "".join(f' a{i}="v"' for i in range(30000 * scale))
    entities = "".join(f'<!ENTITY e{i} "{f"&e{i - 1};" * 10 if i else "x"}">' for i in range(9))
    plain = document(["1 + 1"]).decode()

    def in_line(inside):
        return plain.replace("<lines>", "<lines>" + inside).encode()

    rows = {
        "decimal-places": lambda: document(["1/3"] * 1000, "<decimal_places>1000000000</decimal_places>"),
        "default-attributes": lambda: document(
            ["1"] * 1000 * scale, prolog=f"<!DOCTYPE data [<!ATTLIST line {defaults}>]>"),
        "entities": lambda: document(["1"], prolog=f"<!DOCTYPE data [{entities}]>"),
        "external-subset": lambda: document(["1"], prolog='<!DOCTYPE data SYSTEM "file:///dev/zero">'),
        "attributes": lambda: document(["1"], start=f"<data{attributes}>"),
        "long-attribute": lambda: document(["1"], start=f'<data a="{"x" * 1_000_000 * scale}">'),
        "long-name": lambda: in_line("<" + "n" * 1_000_000 * scale + "/>"),
        "deep": lambda: in_line("<a>" * 100_000 * scale + "</a>" * 100_000 * scale),
        "flat": lambda: in_line("<a/>" * 200_000 * scale),
        "empty-lines": lambda: in_line("<line/>" * 10_000 * scale),
        "comment": lambda: in_line("<!--" + "x" * 1_000_000 * scale + "-->"),
        "instruction": lambda: in_line("<?p " + "x" * 1_000_000 * scale + "?>"),
        "cdata": lambda: in_line("<line><expression><![CDATA[" + "x" * 1_000_000 * scale + "]]></expression></line>"),
        "character-references": lambda: in_line("<line><expression>" + "&#x31;" * 100_000 * scale + "</expression></line>"),
        "cut-off": lambda: document(["1 + 1"] * 10_000 * scale)[:-20],
    }  # fmt: skip
    for name, make in rows.items():
        yield Case(f"xml {name}", ONE_LINE, make, isDocument=True)


def work_cases(count=1000):
    rows = {
        "factorials": ["999999!"], "choose": ["choose(1000000;100000)", "choose(99999.5;3)"],
        "sums-of-factorials": [" + ".join(["20000!"] * 100)], "powers": ["9^9^9^9", "1.0000001^999999999"],
        "large-answers": ["9999! * 3"], "functions": ["sin(1/7)^0.123456789 + ln(3.3)"],
    }  # fmt: skip
    for name, lines in rows.items():
        yield Case(f"work {name}", WORK, lambda lines=lines: document(lines * (count // len(lines))), isDocument=True)


def all_cases():
    return [*line_cases(), *text_cases(), *many_line_cases(), *xml_cases(10), *work_cases()]


def quick_cases():
    """The same kinds, small enough for every day."""
    return [*line_cases(4096), *text_cases(100_000), *many_line_cases(1000), *xml_cases()]
