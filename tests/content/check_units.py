#!/usr/bin/env python3
"""Compares every factor of the units file with GNU units, and exact definitions with exact fractions.

usage: check_units.py [--list]

Each unit of the file needs an expression in the language of `units` below; its prefixed forms are asked for by
the prefix's name. What differs is a fault unless DIFFERENCES explains it, with the size of the difference; an
explanation that is no longer needed is a fault, too.
"""

import shutil
import subprocess
import sys
from fractions import Fraction

sys.dont_write_bytecode = True
from content import Units, languages  # noqa: E402

SKIPPED = 77  # what ctest takes for "skipped"
TOLERANCE = Fraction(1, 10**13)  # the program answers in double precision, with 15 digits

# The unit of factor 1 of each category, for `units`.
BASES = {
    "Length": "m", "Mass": "kg", "Time": "s", "Temperature": "K", "Computer Storage": "byte", "Force": "N",
    "Energy": "J", "Power": "W", "Pressure": "Pa", "Frequency": "1/s", "Electric Potential": "V",
    "Electric Current": "A", "Electric Resistance": "ohm", "Speed": "m/s", "Acceleration": "m/s^2", "Area": "m^2",
    "Volume": "m^3", "Computer Throughput": "byte/s", "Fuel Consumption": None,
}

EXPRESSIONS = {
    # Length
    "metre": "metre", "micron": "micron", "nanómetro": "nanometre",
    "micrómetro": "micrometre", "milímetro": "mm", "centímetro": "cm", "decímetro": "dm", "hectómetro": "hectometre",
    "kilómetro": "km", "kms": "km", "Cm": "cm", "angstrom": "angstrom", "thou": "mil",
    "inch": "inch", "foot": "foot", "yard": "yard", "mile": "mile", "furlong": "furlong", "league": "3 mile",
    "surveyor's rod": "16.5 foot", "surveyor's chain": "66 foot", "survey foot": "surveyfoot",
    "survey mile": "surveymile", "nautical mile": "nauticalmile", "fathom": "6 foot",
    "cable length": "nauticalmile / 10", "astronomical unit": "au", "light second": "c s", "light minute": "c minute",
    "light year": "lightyear", "parsec": "parsec", "point": "inch / 72", "pica": "inch / 6", "pixel": "inch / 96",
    "hundred kilometres": "100 km",
    # Mass
    "gram": "gram", "mcg": "microgram", "kilo": "kg", "tonne": "tonne", "metric ton": "tonne", "quintal": "quintal",
    "carat": "carat", "pound": "pound", "ounce": "ounce", "grain": "grain", "stone": "stone", "slug": "slug",
    "short hundredweight": "shorthundredweight", "long hundredweight": "longhundredweight", "short ton": "shortton",
    "long ton": "longton", "troy ounce": "troyounce", "pennyweight": "pennyweight", "dalton": "dalton",
    "atomic mass unit": "amu",
    # Time
    "second": "second", "μs": "microsecond", "minute": "minute", "hour": "hour", "day": "day", "week": "week",
    "fortnight": "fortnight", "month": "month", "year": "year", "decade": "decade", "century": "century",
    "millennium": "millennium", "second squared": "s^2",
    # Temperature: differences of it; the offsets are compared apart
    "kelvin": "kelvin", "celsius": "degC", "fahrenheit": "degF", "rankine": "degR",
    # Computer storage
    "byte": "byte", "bit": "bit", "kilobit": "kilobit", "Mbit": "megabit", "Gbit": "gigabit", "Tbit": "terabit",
    "kibibyte": "kibibyte", "mebibyte": "mebibyte", "gibibyte": "gibibyte", "tebibyte": "tebibyte",
    "pebibyte": "pebibyte", "exbibyte": "exbibyte", "zebibyte": "zebi byte", "yobibyte": "yobi byte",
    "kibibit": "kibibit", "mebibit": "mebibit", "gibibit": "gibibit", "decimal kilobyte": "kilobyte",
    "decimal megabyte": "megabyte", "decimal gigabyte": "gigabyte", "decimal terabyte": "terabyte",
    "decimal petabyte": "petabyte", "decimal exabyte": "exabyte", "decimal zettabyte": "zettabyte",
    "decimal yottabyte": "yottabyte",
    # Force
    "newton": "newton", "dyne": "dyne", "kilogram force": "kgf", "gram force": "gram force", "pound force": "lbf",
    "ounce force": "ounce force", "poundal": "poundal",
    # Energy
    "joule": "joule", "erg": "erg", "electronvolt": "electronvolt", "calorie": "calorie",
    "food calorie": "kilocalorie", "watt hour": "W hour", "kilowatt hour": "kW hour", "megawatt hour": "MW hour",
    "gigawatt hour": "GW hour", "terawatt hour": "TW hour", "watt hour product": "W hour",
    "kilowatt hour product": "kW hour", "megawatt hour product": "MW hour", "gigawatt hour product": "GW hour",
    "terawatt hour product": "TW hour", "British thermal unit": "btu", "therm": "therm",
    "foot pound": "foot lbf", "ton of TNT": "ton tnt", "kiloton of TNT": "kiloton tnt",
    "megaton of TNT": "megaton tnt",
    # Power
    "watt": "watt", "Kw": "kW", "volt ampere": "V A", "kilovolt ampere": "kV A", "horsepower": "horsepower",
    "metric horsepower": "metrichorsepower", "electric horsepower": "electrichorsepower",
    "boiler horsepower": "boilerhorsepower", "BTU per hour": "btu / hour",
    "ton of refrigeration": "tonrefrigeration",
    # Pressure
    "pascal": "pascal", "bar": "bar", "mbar": "millibar", "atmosphere": "atm", "torr": "torr",
    "millimetre of mercury": "mmHg", "inch of mercury": "inHg", "technical atmosphere": "technicalatmosphere",
    "pound per square inch": "psi", "kilopound per square inch": "1000 psi",
    # Frequency
    "hertz": "hertz", "Khz": "kHz", "Mhz": "MHz", "Ghz": "GHz", "revolution per minute": "1 / minute",
    "beat per minute": "1 / minute", "frame per second": "1 / s",
    # Electricity
    "volt": "volt", "ampere": "ampere", "ampere hour": "A hour", "milliampere hour": "mA hour", "ohm": "ohm",
    "kilohm": "kiloohm", "megohm": "megaohm",
    # Speed and acceleration
    "metre per second": "m/s", "kilometre per hour": "km/hour", "kilometre per second": "km/s", "mile per hour": "mph",
    "foot per second": "foot/s", "foot per minute": "foot/minute", "knot": "knot", "mach": "mach",
    "speed of light": "c", "metre per second squared": "m/s^2", "foot per second squared": "foot/s^2",
    "standard gravity": "gravity",
    # Area
    "square millimetre": "mm^2", "square centimetre": "cm^2", "square decimetre": "dm^2", "square metre": "m^2",
    "decare": "10 are", "tsubo": "400|121 m^2", "hectare": "hectare", "square kilometre": "km^2",
    "square inch": "inch^2", "square foot": "foot^2", "square yard": "yard^2", "acre": "acre", "square mile": "mile^2",
    # Volume
    "cubic millimetre": "mm^3", "cubic centimetre": "cc", "cubic decimetre": "dm^3", "cubic metre": "m^3",
    "cubic kilometre": "km^3", "cubic inch": "inch^3", "cubic foot": "foot^3", "cubic yard": "yard^3",
    "cubic mile": "mile^3", "acre foot": "acre foot", "board foot": "boardfoot", "go": "0.1 2401|1331 liter",
    "sho": "2401|1331 liter", "litre": "litre", "μl": "microlitre", "Ml": "millilitre", "US gallon": "usgallon",
    "US quart": "usquart", "US pint": "uspint", "US cup": "uscup", "US gill": "usgill",
    "US fluid ounce": "usfluidounce", "US tablespoon": "ustablespoon", "US teaspoon": "usteaspoon",
    "imperial gallon": "brgallon", "imperial quart": "brquart", "imperial pint": "brpint", "imperial cup": "brcup",
    "imperial gill": "brgill", "imperial fluid ounce": "brfluidounce", "imperial tablespoon": "brtablespoon",
    "imperial teaspoon": "brteaspoon", "metric cup": "metriccup", "metric tablespoon": "15 ml",
    "metric teaspoon": "5 ml", "Australian tablespoon": "australiatablespoon", "barrel": "42 usgallon",
    "US bushel": "usbushel", "imperial bushel": "brbushel",
    # Computer throughput
    "bit per second": "bit/s", "kilobit per second": "kilobit/s", "megabit per second": "megabit/s",
    "gigabit per second": "gigabit/s", "terabit per second": "terabit/s", "byte per second": "byte/s",
    "kilobyte per second": "kilobyte/s", "megabyte per second": "megabyte/s", "gigabyte per second": "gigabyte/s",
    "terabyte per second": "terabyte/s", "kibibyte per second": "kibibyte/s", "mebibyte per second": "mebibyte/s",
    "gibibyte per second": "gibibyte/s",
    # Fuel consumption
    "mile per gallon": "mile/usgallon", "mile per US gallon": "mile/usgallon",
    "mile per imperial gallon": "mile/brgallon", "mile per litre": "mile/litre", "kilometre per litre": "km/litre",
    "litre per kilometre": "litre/km", "litre per 100 km": "litre/(100 km)", "gallon per mile": "usgallon/mile",
}

# Alias units, by option.
ALIASES = {
    "si": {name + "byte": name + "byte" for name in ("kilo", "mega", "giga", "tera", "peta", "exa", "zetta", "yotta")},
    "binary": {name + "byte": f"1024^{power} byte" for power, name in
               enumerate(("kilo", "mega", "giga", "tera", "peta", "exa", "zetta", "yotta"), 1)},
    "us": {"gallon": "usgallon", "quart": "usquart", "pint": "uspint", "cup": "uscup", "gill": "usgill",
           "fluid ounce": "usfluidounce", "tablespoon": "ustablespoon", "teaspoon": "usteaspoon",
           "bushel": "usbushel", "hundredweight": "ushundredweight", "ton": "uston"},
    "imperial": {"gallon": "brgallon", "quart": "brquart", "pint": "brpint", "cup": "brcup", "gill": "brgill",
                 "fluid ounce": "brfluidounce", "tablespoon": "brtablespoon", "teaspoon": "brteaspoon",
                 "bushel": "brbushel", "hundredweight": "brhundredweight", "ton": "brton"},
    "metric": {"gallon": "usgallon", "quart": "usquart", "pint": "uspint", "cup": "metriccup", "gill": "usgill",
               "fluid ounce": "usfluidounce", "tablespoon": "15 ml", "teaspoon": "5 ml", "bushel": "usbushel",
               "hundredweight": "ushundredweight", "ton": "tonne"},
}

PI = ("3.1415926535897932384626433832795028841971693993751058209749445923078164062862089986280348253421170679"
      "8214808651328230664709384460955058223172535940812848111745")

# Unit, the ratio of our factor to that of `units`, and the reason.
GREGORIAN = (Fraction(31556952) / Fraction("31556925.9746784"),
             "the mean Gregorian year of 365.2425 days here, the tropical year there")
IMPERIAL_SPOON = (Fraction("0.0000177581640625") / Fraction("0.000015"),
                  "by the imperial gallon (a 256th and a 768th) here, today's metric spoons of Britain there")
PARSEC = (1 + (Fraction(PI) / 648000)**2 / 3,
          "648000/pi astronomical units here, as the IAU has it since 2015, the tangent of a second of arc there")
DIFFERENCES = {
    "parsec": PARSEC, "si+3-parsec": PARSEC, "si+6-parsec": PARSEC, "si+9-parsec": PARSEC,
    "month": GREGORIAN, "year": GREGORIAN,
    "decade": GREGORIAN, "century": GREGORIAN, "millennium": GREGORIAN,
    "imperial tablespoon": IMPERIAL_SPOON,
    "imperial teaspoon": (IMPERIAL_SPOON[0], IMPERIAL_SPOON[1]),
    "mach": (Fraction("340.294") / Fraction("331.46"), "the speed of sound at 15 °C here, at 0 °C there"),
    "therm": (Fraction("105505585.262") / Fraction(105480400),
              "100,000 international BTU here, the US therm of another BTU there"),
    "dalton": (Fraction("1.66053906892") / Fraction("1.6605390666"), "CODATA 2022 here, 2018 there"),
    "si+3-dalton": (Fraction("1.66053906892") / Fraction("1.6605390666"), "CODATA 2022 here, 2018 there"),
    "atomic mass unit": (Fraction("1.66053906892") / Fraction("1.6605390666"), "CODATA 2022 here, 2018 there"),
}

# Exact definitions: so many of another unit. What doesn't end as a decimal must be right in each digit written.
EXACT = {
    "thou": ("1/1000", "inch"), "inch": ("254/10000", "metre"), "foot": ("12", "inch"), "yard": ("3", "foot"),
    "mile": ("1760", "yard"), "furlong": ("220", "yard"), "league": ("3", "mile"), "fathom": ("2", "yard"),
    "surveyor's rod": ("33/2", "foot"), "surveyor's chain": ("66", "foot"), "survey foot": ("1200/3937", "metre"),
    "survey mile": ("5280*1200/3937", "metre"), "nautical mile": ("1852", "metre"),
    "astronomical unit": ("149597870700", "metre"), "light second": ("299792458", "metre"),
    "light year": ("299792458*86400*365.25", "metre"),
    "parsec": ("648000/" + PI, "astronomical unit"), "point": ("1/72", "inch"), "pica": ("1/6", "inch"),
    "pixel": ("1/96", "inch"), "pound": ("0.45359237", "si+3-gram"), "ounce": ("1/16", "pound"),
    "grain": ("1/7000", "pound"), "stone": ("14", "pound"), "short ton": ("2000", "pound"),
    "long ton": ("2240", "pound"), "troy ounce": ("480", "grain"), "pennyweight": ("24", "grain"),
    "carat": ("0.2", "gram"), "slug": ("0.45359237*9.80665/0.3048", "si+3-gram"), "minute": ("60", "second"),
    "hour": ("60", "minute"), "day": ("24", "hour"), "week": ("7", "day"), "fortnight": ("14", "day"),
    "year": ("365.2425", "day"), "month": ("1/12", "year"), "decade": ("10", "year"), "century": ("100", "year"),
    "millennium": ("1000", "year"), "fahrenheit": ("5/9", "kelvin"), "rankine": ("5/9", "kelvin"),
    "bit": ("1/8", "byte"), "kilobit": ("1000", "bit"), "yobibyte": ("1024*1024*1024*1024*1024*1024*1024*1024", "byte"),
    "pound force": ("0.45359237*9.80665", "newton"), "poundal": ("0.45359237*0.3048", "newton"),
    "electronvolt": ("1.602176634/10000000000000000000", "joule"), "food calorie": ("1000", "calorie"),
    "kilowatt hour": ("3600000", "joule"), "British thermal unit": ("1055.05585262", "joule"),
    "therm": ("100000", "British thermal unit"), "horsepower": ("550*0.3048*0.45359237*9.80665", "watt"),
    "metric horsepower": ("75*9.80665", "watt"), "BTU per hour": ("1055.05585262/3600", "watt"),
    "ton of refrigeration": ("12000", "BTU per hour"), "torr": ("1/760", "atmosphere"),
    "pound per square inch": ("0.45359237*9.80665/0.0254/0.0254", "pascal"),
    "kilopound per square inch": ("1000*0.45359237*9.80665/0.0254/0.0254", "pascal"),
    "revolution per minute": ("1/60", "hertz"), "beat per minute": ("1/60", "hertz"),
    "knot": ("1852/3600", "metre per second"), "speed of light": ("299792458", "metre per second"),
    "square metre": ("1", "metre*metre"), "square foot": ("1", "foot*foot"), "square inch": ("1", "inch*inch"),
    "square mile": ("1", "mile*mile"), "acre": ("43560", "square foot"), "tsubo": ("400/121", "square metre"),
    "cubic metre": ("1", "metre*metre*metre"), "cubic foot": ("1", "foot*foot*foot"),
    "cubic inch": ("1", "inch*inch*inch"), "cubic mile": ("1", "mile*mile*mile"), "litre": ("1/1000", "cubic metre"),
    "US gallon": ("231", "cubic inch"), "US quart": ("1/4", "US gallon"), "US pint": ("1/8", "US gallon"),
    "US cup": ("1/16", "US gallon"), "US fluid ounce": ("1/128", "US gallon"),
    "US tablespoon": ("1/2", "US fluid ounce"), "US teaspoon": ("1/6", "US fluid ounce"),
    "imperial gallon": ("4.54609", "litre"), "imperial pint": ("1/8", "imperial gallon"),
    "imperial fluid ounce": ("1/160", "imperial gallon"), "imperial tablespoon": ("1/256", "imperial gallon"),
    "imperial teaspoon": ("1/768*0.00454609", "cubic metre"), "barrel": ("42", "US gallon"),
    "US bushel": ("2150.42", "cubic inch"), "sho": ("2401/1331", "litre"), "go": ("2401/13310", "litre"),
    "cable length": ("1/10", "nautical mile"), "hundred kilometres": ("100", "si+3-metre"),
}
DIGITS = 60  # at least so many significant digits of a factor that doesn't end

# Readings of one scale on another: value, scale, what `units` calls it, what it calls the other scale.
TEMPERATURES = [(value, scale, f"temp{letter}") for value in ("-40", "0", "25", "37.5", "100", "451")
                for scale, letter in (("celsius", "C"), ("fahrenheit", "F"))]


def ask(pairs):
    """The number of each (expression, target), by one run of the program."""
    text = "".join(f"{have}\n{want}\n" for have, want in pairs)
    run = subprocess.run(["units", "-q", "-t", "-o", "%.15g"], input=text, capture_output=True, text=True, check=False)
    answers = [line.strip() for line in run.stdout.splitlines() if line.strip()]
    if len(answers) == len(pairs):
        return answers
    answers = []  # a fault in one answer shifts the rest: ask one by one
    for have, want in pairs:
        run = subprocess.run(["units", "-t", "-o", "%.15g", have, want], capture_output=True, text=True, check=False)
        lines = (run.stdout + run.stderr).split("\n")
        answers.append(lines[0].strip())
    return answers


def number(text):
    try:
        return Fraction(text)
    except ValueError:
        return None


def product(text):
    """The value of a chain such as 5280*1200/3937."""
    value, operator = Fraction(1), "*"
    for piece in text.replace("*", " * ").replace("/", " / ").split():
        if piece in "*/":
            operator = piece
        else:
            value = value * Fraction(piece) if operator == "*" else value / Fraction(piece)
    return value


def loaded_anywhere(units, faults):
    """Every unit but alias units: the English ones, then those that only another language names."""
    result = {key: unit for key, unit in units.loaded.items() if key not in units.aliases}
    for language in languages():
        other = Units(language, tuple(units.options.values()), faults.append)
        for key, unit in other.loaded.items():
            if key not in other.aliases and result.setdefault(key, unit).multiplier() != unit.multiplier():
                faults.append(f"{key}: another size in {language}")
    return result


def expression_of(identifier, units):
    if not identifier.startswith("si"):
        return EXPRESSIONS.get(identifier)
    exponent, base = int(identifier[2:identifier.index("-", 3)]), identifier[identifier.index("-", 3) + 1:]
    name = EXPRESSIONS.get(base)
    return None if name is None else units.prefixes[exponent]["prefix"] + name


def compare(units, faults, listing):
    pairs, asked = [], []
    everything = loaded_anywhere(units, faults)
    for identifier, unit in everything.items():
        expression = expression_of(identifier, units)
        if expression is None:
            faults.append(f"{unit.identifier}: no expression for units; add one to EXPRESSIONS")
            continue
        base = BASES[unit.category]
        degrees = unit.dimension()
        if base is None or len(degrees) > 1 or (degrees and degrees[0] != (unit.category, 1)):
            base = " ".join(f"({BASES[category]})^{degree}" for category, degree in degrees) or "1"
        pairs.append((expression, base))
        asked.append(unit)
    used = set()
    for unit, (expression, base), answer in zip(asked, pairs, ask(pairs)):
        theirs, ours = number(answer), unit.multiplier()
        if theirs is None or theirs == 0:
            faults.append(f"{unit.identifier}: units doesn't turn {expression} into {base}: {answer}")
            continue
        expected, reason = DIFFERENCES.get(unit.identifier, (Fraction(1), ""))
        if abs(ours / theirs / expected - 1) > TOLERANCE:
            faults.append(f"{unit.identifier}: {float(ours):.15g} here, {answer} {base} for units ({expression})")
        elif reason:
            used.add(unit.identifier)
            if abs(ours / theirs - 1) <= TOLERANCE:
                faults.append(f"{unit.identifier}: no longer differs; take it out of DIFFERENCES")
            print(f"explained: {unit.identifier}: {reason}")
        if listing:
            print(f"{unit.identifier}: {float(ours):.15g} {base}")
    for identifier in sorted(set(DIFFERENCES) - used):
        if not any(fault.startswith(identifier + ":") for fault in faults):
            faults.append(f"{identifier}: in DIFFERENCES, but not compared")
    for identifier in sorted(set(EXPRESSIONS) - set(everything)):
        faults.append(f"{identifier}: in EXPRESSIONS, but no such unit")
    return len(asked)


def compare_aliases(faults):
    count = 0
    for bytes_option, system in (("si", "us"), ("binary", "imperial"), ("si", "metric")):
        units = Units("en", (bytes_option, system), faults.append)
        expected = {**ALIASES[bytes_option], **ALIASES[system]}
        if set(expected) != set(units.aliases):
            faults.append(f"{system}: alias units without an expression, or the reverse: "
                          f"{sorted(set(expected) ^ set(units.aliases))}")
        names = [name for name in units.aliases if name in expected]
        answers = ask([(expected[name], BASES[units.loaded[name].category]) for name in names])
        for name, answer in zip(names, answers):
            theirs = number(answer)
            if theirs is None or abs(units.loaded[name].multiplier() / theirs - 1) > TOLERANCE:
                faults.append(f"{name} under {system}: {float(units.loaded[name].factor):.15g} here, "
                              f"{answer} for units")
        count += len(names)
    return count


def compare_temperatures(units, faults):
    answers = ask([(f"{name}({value})", "K") for value, _, name in TEMPERATURES])
    for (value, scale, _), answer in zip(TEMPERATURES, answers):
        unit = units.loaded[scale]
        ours, theirs = (Fraction(value) + unit.offset) * unit.multiplier(), number(answer)
        if theirs is None or abs(ours / theirs - 1) > TOLERANCE:
            faults.append(f"{value} {scale}: {float(ours):.15g} K here, {answer} for units")
    # 32 °F is 0 °C in every digit that a division keeps: both of the zeros of an answer depend on it.
    fahrenheit, celsius = units.loaded["fahrenheit"], units.loaded["celsius"]
    kelvin = (32 + fahrenheit.offset) * fahrenheit.multiplier()
    if round(kelvin * 10**97) != celsius.offset * 10**97:
        faults.append("32 °F isn't 273.15 K in 100 digits")
    return len(TEMPERATURES)


def compare_exact(units, faults):
    for identifier, (chain, others) in EXACT.items():
        value = product(chain)
        for other in others.split("*"):
            value *= units.loaded[other].multiplier()
        ours = units.loaded[identifier].multiplier()
        if ours == value:
            continue
        # A decimal that was cut: right to the last digit but one, and long enough.
        text = units.entries[identifier]["factor"]
        digits = len(text.replace(".", "").lstrip("0"))
        if digits < DIGITS:
            faults.append(f"{identifier}: {text} isn't exactly {chain} {others}, and has fewer than {DIGITS} digits")
        elif abs(ours / value - 1) > Fraction(10, 10**digits):
            faults.append(f"{identifier}: {text} isn't {chain} {others} in its {digits} digits")
    return len(EXACT)


def main():
    faults = []
    units = Units("en", ("si", "metric"), faults.append)
    exact = compare_exact(units, faults)
    if shutil.which("units") is None:
        for fault in faults:
            print("fault:", fault)
        print(f"{exact} exact definitions compared. GNU units isn't installed: the other factors weren't compared.")
        return 1 if faults else SKIPPED
    compared = compare(units, faults, "--list" in sys.argv[1:])
    aliases = compare_aliases(faults)
    readings = compare_temperatures(units, faults)
    for fault in faults:
        print("fault:", fault)
    print(f"{compared} units, {aliases} alias units and {readings} temperatures compared with units, "
          f"{exact} exact definitions with fractions: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
