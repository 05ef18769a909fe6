"""Reads the content bundle the way the program does: units with their prefixed forms, compositions and aliases."""

import os
import plistlib
import re
from fractions import Fraction

BUNDLE = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../content/TBContent.bundle"))

CATEGORIES = ("Length", "Mass", "Time", "Temperature", "Computer Storage", "Force", "Energy", "Power", "Pressure",
              "Frequency", "Electric Potential", "Electric Current", "Electric Resistance", "Speed", "Acceleration",
              "Area", "Volume", "Computer Throughput", "Fuel Consumption")
COMPOSED_ONLY = ("Computer Throughput", "Fuel Consumption")
# Units that one language names and the others leave out.
ONE_LANGUAGE_ONLY = {"nanómetro", "micrómetro", "milímetro", "centímetro", "decímetro", "hectómetro", "kilómetro"}
DEFAULT_EXPONENTS = (-24, -21, -18, -15, -12, -9, -6, -3, -2, -1, 1, 2, 3, 6, 9, 12, 15, 18, 21, 24)
FORMATS = (("singular", "singulars"), ("plural", "plurals"), ("symbol", "symbols"))  # name types 1, 2 and 3


def plist(name, language=None):
    folder = os.path.join(BUNDLE, language + ".lproj") if language else BUNDLE
    with open(os.path.join(folder, name + ".plist"), "rb") as file:
        return plistlib.load(file)


def languages():
    return [name[:-len(".lproj")] for name in sorted(os.listdir(BUNDLE)) if name.endswith(".lproj")]


class Unit:
    """One unit as it is found in a line. `parts` is a list of (atomic unit, degree), itself for a basic unit."""

    def __init__(self, identifier, category, factor=None, offset=None, parts=None):
        self.identifier = identifier
        self.category = category
        self.factor = factor
        self.offset = offset
        self.parts = parts
        self.names = {1: [], 2: [], 3: []}
        self.case_sensitive = set()
        self.tie_break = 0

    def atoms(self):
        return self.parts if self.parts is not None else [(self, 1)]

    def multiplier(self):
        """How many base units it is: an exact fraction."""
        product = Fraction(1)
        for atom, degree in self.atoms():
            product *= atom.factor ** degree
        return product

    def dimension(self):
        """The degree of each category, as the evaluator counts it."""
        degrees = {}
        for atom, degree in self.atoms():
            degrees[atom.category] = degrees.get(atom.category, 0) + degree
        return tuple(sorted((key, value) for key, value in degrees.items() if value))


def read_names(unit, names):
    for name_type, (one, many) in enumerate(FORMATS, 1):
        unit.names[name_type] = [names[one]] if one in names else list(names.get(many, []))
    unit.case_sensitive = set(names.get("case-sensitive-names", []))


class Units:
    """The units of one language under one option of each preference. Faults go to the function `fault`."""

    def __init__(self, language="en", options=("si", "metric"), fault=print):
        self.file = plist("Units")
        self.localization = plist("UnitLocalization", language)
        self.fallback = plist("UnitLocalization", "en") if language != "en" else {}
        self.fault = fault
        self.options = dict(zip(("byte-prefix", "imperial-us-or-metric"), options))
        self.loaded = {}
        self.entries = {}
        for category, units in self.file["Units"].items():
            for identifier, entry in units.items():
                if identifier in self.entries:
                    fault(f"{identifier}: an identifier of two categories")
                self.entries[identifier] = dict(entry, category=category)
        prefixes = self.top("SIPrefixes") or []
        self.prefixes = {entry["exponent"]: entry for entry in prefixes}
        self.loading = []
        self.aliases = {}
        for preference, option in self.options.items():
            for alias, target in self.file["Preferences"].get(preference, {}).get(option, {}).items():
                self.load_alias(alias, target)
        for identifier in self.entries:
            self.unit(identifier)

    def top(self, key):
        for source in (self.localization, self.fallback, self.file):
            if key in source:
                return source[key]
        return None

    def names(self, identifier):
        for source in (self.localization, self.fallback):
            if identifier in source.get("Names", {}):
                return source["Names"][identifier]
        return self.entries.get(identifier, {})

    def value(self, key, identifier):
        for source in (self.localization.get("Names", {}), self.fallback.get("Names", {}), self.entries):
            if key in source.get(identifier, {}):
                return source[identifier][key]
        return None

    def exponents(self, key, identifier):
        text = self.value(key, identifier)
        if text is None:
            return None
        return [int(piece) for piece in re.split(r"[,\s]+", text) if piece]

    def load_alias(self, alias, target):
        unit = self.unit(target)
        if unit is None or unit.parts is not None:
            self.fault(f"{alias}: its target {target} is no basic unit")
            return
        made = Unit(alias, unit.category, unit.factor)
        read_names(made, self.names(alias))
        made.case_sensitive = set()  # an alias unit takes over names, but not which of them keep their case
        if not made.names[1]:
            self.fault(f"{alias}: an alias unit without a singular name")
        if unit.offset is not None:
            self.fault(f"{alias}: an alias unit loses the offset of {target}")
        self.aliases[alias] = target
        self.loaded[alias] = made

    def unit(self, identifier):
        if identifier in self.loaded:
            return self.loaded[identifier]
        prefixed = re.match(r"^(si)([+-]\d+)-(.*)", identifier)
        if prefixed:
            base = self.unit(prefixed.group(3))
            if identifier in self.loaded:
                return self.loaded[identifier]
            if base is None:
                return None
            self.fault(f"{identifier}: {prefixed.group(3)} isn't prefixed with that exponent")
            return self.prefixed(base, int(prefixed.group(2)))
        if identifier not in self.entries:
            return None
        if identifier in self.loading:
            self.fault(f"{identifier}: composed of itself, by {' > '.join(self.loading)}")
            return None
        self.loading.append(identifier)
        unit = self.make(identifier, self.entries[identifier])
        self.loading.pop()
        return unit

    def make(self, identifier, entry):
        named = entry.get("expect-names", True)
        names = self.names(identifier) if named else {}
        if named and not ("singular" in names or names.get("singulars")):
            if identifier not in ONE_LANGUAGE_ONLY:
                self.fault(f"{identifier}: no singular name, so it isn't loaded")
            return None
        if "composition" in entry:
            parts = []
            for side, sign in (("numerator", 1), ("denominator", -1)):
                for part in entry["composition"].get(side, []):
                    unit = self.unit(part)
                    if unit is None:
                        self.fault(f"{identifier}: its part {part} doesn't exist")
                        continue
                    parts += [(atom, degree * sign) for atom, degree in unit.atoms()]
            unit = Unit(identifier, entry["category"], parts=parts)
        elif "factor" in entry:
            unit = Unit(identifier, entry["category"], Fraction(entry["factor"]),
                        Fraction(entry["offset"]) if "offset" in entry else None)
        else:
            self.fault(f"{identifier}: neither factor nor composition")
            return None
        read_names(unit, names)
        unit.tie_break = entry.get("ambiguousTieBreakFactor", 0)
        self.loaded[identifier] = unit
        exponents = self.exponents("SIPrefixExponents", identifier)
        if unit.parts is None and (entry.get("SIPrefixes") or exponents is not None):
            for exponent in exponents if exponents is not None else DEFAULT_EXPONENTS:
                self.prefixed(unit, exponent)
        return unit

    def prefixed(self, unit, exponent):
        identifier = "si%+d-%s" % (exponent, unit.identifier)
        if identifier in self.loaded:
            return self.loaded[identifier]
        entry = self.prefixes.get(exponent)
        if entry is None or "factor" not in entry:
            self.fault(f"{identifier}: no prefix of that exponent")
            return None
        short = self.exponents("SIPrefixExponents-veryShort", unit.identifier)
        allow_short = exponent in (short if short is not None else DEFAULT_EXPONENTS)
        made = Unit(identifier, unit.category, unit.factor * Fraction(entry["factor"]))
        for name_type, names in unit.names.items():
            for index, name in enumerate(names):
                sensitive = name in unit.case_sensitive
                # A very short name gets the symbol. Aliases of any type get both the prefix and the symbol.
                if "prefix" in entry and not (name_type == 3 and index == 0):
                    joined = entry["prefix"] + (name if sensitive else name.lower())
                    made.names[name_type].append(joined)
                    if sensitive:
                        made.case_sensitive.add(joined)
                if allow_short and "symbol" in entry and (name_type == 3 or index > 0):
                    joined = entry["symbol"] + name
                    made.names[name_type].append(joined)
                    made.case_sensitive.add(joined)
        self.loaded[identifier] = made
        return made


def currencies(language):
    """The money units of a language: identifier, names by type, and the names that keep their case."""
    result = {}
    for code, entry in plist("CurrencyLocalization", language)["Currencies"].items():
        names, aliases = entry.get("names", {}), entry.get("aliases", {})
        unit = Unit(code, "Money", Fraction(1))
        unit.names[1] = [names.get("singular")] + list(aliases.get("singular", []))
        unit.names[2] = [names.get("plural")] + list(aliases.get("plurals", []))
        unit.names[3] = [code] + list(aliases.get("symbols", []))
        unit.names[4] = [names["symbol"]] if "symbol" in names else []
        unit.case_sensitive = set(aliases.get("symbols", [])) | set(unit.names[4])
        result[code] = unit
    return result
