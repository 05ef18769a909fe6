#!/usr/bin/env python3
"""Checks the content bundle by the rules of its loaders, and what its words do to ordinary lines.

usage: check_content.py [--list]

Prints the faults and, for English (with --list for every language), each name that more than one unit has, with
what decides between them.
"""

import datetime
import pathlib
import plistlib
import re
import sys
from collections import defaultdict

sys.dont_write_bytecode = True
import content  # noqa: E402
import phrases  # noqa: E402
from content import CATEGORIES, COMPOSED_ONLY, Units, currencies, plist  # noqa: E402

OPTIONS = (("si", "metric"), ("si", "us"), ("binary", "imperial"))
PREFERENCES = {"byte-prefix": {"si", "binary"}, "imperial-us-or-metric": {"imperial", "us", "metric"}}
ENTRY_KEYS = {"factor", "offset", "composition", "expect-names", "SIPrefixes", "SIPrefixExponents",
              "SIPrefixExponents-veryShort", "ambiguousTieBreakFactor"}
NAME_KEYS = {"singular", "plural", "symbol", "singulars", "plurals", "symbols", "case-sensitive-names",
             "SIPrefixExponents", "SIPrefixExponents-veryShort"}
FILES = ("UnitLocalization", "CurrencyLocalization", "PercentageOperators", "WordOperators", "Localizable")

# A type match in the line counts 100. Only what must outweigh one match stands higher: see its comment in the file.
TIE_BREAK_LIMIT = 100
HEAVY = {prefix + "watt hour" for prefix in ("", "kilo", "mega", "giga", "tera")}

# Written with operators, or never: their names are for showing.
SHOWN_ONLY = {"hundred kilometres", "metre per second squared", "foot per second squared", "mile per litre",
              "litre per kilometre", "foot per second", "kilometre per second", "foot per minute",
              "gallon per mile", "litre per 100 km"}

# Units that may go by their English names in another language.
ENGLISH_WILL_DO = re.compile(
    r"(US|imperial|metric|Australian|surveyor's|survey|short|long|electric|boiler|acre|board|cable) .*"
    r"|.*(per second|per second squared|per mile|per litre|per minute|gallon|per square inch|of TNT|of mercury)"
    r"|.*(zetta|yotta|exa|peb|exb|zeb|yob|tera|giga|mega|kilo|kib|meb|gib|teb|peta)i?(byte|bit)( per .*)?"
    r"|mbar|mcg|kms|μs|μl|Cm|Ml|Kw|[KMG]hz|[MGT]bit|kilohm|megohm|decare|tsubo|go|sho|gill|ton|therm|mach|thou"
    r"|ounce force|poundal|kilopound.*|pennyweight|atomic mass unit|ton of refrigeration|litre per .*|league"
    r"|hundred kilometres|hundredweight|quintal|fortnight|foot pound|BTU per hour|cubic mile|.*decimetre|metric ton")

# What the program knows beside this data.
VARIABLES = {"k", "M", "G", "pi", "π"}
STANDARD_WORDS = {"from", "into", "x", "per", "mod", "lsl", "lsr", "xor"}
FUNCTIONS = {"sin", "cos", "tan", "asin", "acos", "atan", "cosec", "csc", "sec", "cotan", "cot", "sinh", "cosh", "tanh",
             "asinh", "acosh", "atanh", "abs", "num", "floor", "ceil", "trunc", "round", "choose", "sqrt", "cbrt",
             "pow", "exp", "ln", "loge", "log", "log10", "log2"}
# sec is a function before a bracket and a second elsewhere. K is the thousand unless a user has removed it.
SHARED_WITH_PROGRAM = {"sec", "m", "g", "\u212a", "K"}

WORD_TYPES = ("Add", "Subtract", "Multiply", "Divide", "ReverseSubtract", "ReverseDivide")

CODES = ("AED AFN ALL AMD ANG AOA ARS AUD AWG AZN BAM BBD BDT BGN BHD BIF BMD BND BOB BRL BSD BTC BTN BWP BYR BZD CAD "
         "CDF CHF CLP CNY COP CRC CUP CVE CZK DJF DKK DOP DZD EGP ETB EUR FJD FKP GBP GEL GHS GIP GMD GNF GTQ GYD HKD "
         "HNL HRK HTG HUF IDR ILS INR IQD IRR ISK JMD JOD JPY KES KGS KHR KMF KRW KWD KYD KZT LAK LBP LKR LRD LSL LTL "
         "LVL LYD MAD MDL MKD MMK MNT MOP MRO MUR MVR MWK MXN MYR MZN NAD NGN NIO NOK NPR NZD OMR PAB PEN PGK PHP PKR "
         "PLN PYG QAR RON RSD RUB RWF SAR SBD SCR SDG SEK SGD SHP SLL SOS SRD STD SVC SYP SZL THB TJS TMT TND TOP TRY "
         "TTD TWD TZS UAH UGX USD UYU UZS VEF VND VUV WST XAF XCD XOF XPF YER ZAR ZMK").split()
DEFAULTS = ("USD", "NOK")  # what "$" and "kr" mean where the locale doesn't say otherwise
# Shared by currencies none of which is a default: the first code in the alphabet has it, and that is as good as any.
FIRST_CODE_WINS = {("es", "peso"), ("es", "pesos")}

# Words of ordinary lines that must not become units or money, in any case they are written in.
PROSE = {
    "en": "a i am an and are as at be but by can cad cup d'oh do for go had has have he her his if is it its last may "
          "me more my new no not of off old on one or our out pa pen pm she so sos st th nd rd than that the their "
          "them then they this to too top try two up us was we were who will with won you your all mad real mark buy "
          "sell due us re vs ok hi oh etc eg ie dr mr mrs tel ad id tv",
    "de": "aber alle als am an auch auf aus bei bis da das dem den der des die du ein eine er es für gut hat ich ihr im "
          "in ist ja mit nach nein nicht noch nur ob oder ohne rum sehr sie sind so um und uns vom von vor was wer wie "
          "wir wird wo zu zum zur top bau gel ton wo mon",
    "fr": "a à ai au aux avec ce ces dans de des du elle en est et eu il ils je la le les leur lui ma mais me mes mur ne "
          "ni nos notre nous on ou où par pas pour qu que qui sa se ses si son sur ta te tes toi ton tu un une va vos "
          "vous top gel",
    "es": "a al como con de del el ella en es esta este la las le lo los mas me mi mis muy no nos o para pero por que "
          "se ser si sin sobre son su sus te tu un una va y ya ron top",
    "ja": "は が を に で と も の へ や か",
}
# Pa is a pascal, A an ampere; the small letters are words.
PROSE_ALLOWED = {("en", "Pa"), ("en", "A"), ("es", "A"), ("fr", "A"), ("en", "cup"), ("de", "Pa")}


class Faults(list):
    def __init__(self):
        super().__init__()
        self.place = ""

    def __call__(self, text):
        text = f"{self.place}: {text}" if self.place else text
        if text not in self:
            self.append(text)


def check_bundle(faults):
    faults.place = "bundle"
    info = plist("Info")
    for key in ("CFBundleDevelopmentRegion", "CFBundleIdentifier", "CFBundleLocalizations"):
        if key not in info:
            faults(f"Info.plist has no {key}")
    if info.get("CFBundleDevelopmentRegion") != "en":
        faults("the development region isn't en")
    if sorted(info.get("CFBundleLocalizations", [])) != content.languages():
        faults("CFBundleLocalizations and the .lproj folders differ")
    for language in content.languages():
        for name in FILES:
            try:
                plist(name, language)
            except (OSError, plistlib.InvalidFileException, ValueError) as error:
                faults(f"{language}.lproj/{name}.plist: {error}")


def is_decimal(text):
    return isinstance(text, str) and re.fullmatch(r"\d+(\.\d+)?", text) is not None


def check_units_file(faults):
    faults.place = "Units.plist"
    file = plist("Units")
    exponents = {}
    for entry in file["SIPrefixes"]:
        exponents[entry["exponent"]] = entry
    if set(exponents) != set(content.DEFAULT_EXPONENTS):
        faults("SIPrefixes doesn't have the 20 exponents")
    for category, units in file["Units"].items():
        if category not in CATEGORIES:
            faults(f"unknown category {category}")
        for identifier, entry in units.items():
            check_entry(identifier, category, entry, faults)
    for category in CATEGORIES:
        if category not in file["Units"]:
            faults(f"no units of {category}")
        if (category in file["Base Units"]) == (category in COMPOSED_ONLY):
            faults(f"{category}: base units are for categories of basic units, all of them")
    if set(file["Preferences"]) != set(PREFERENCES):
        faults("Preferences has other keys")
    for key, options in file["Preferences"].items():
        if set(options) != PREFERENCES.get(key):
            faults(f"{key} has other options")
        if len({tuple(sorted(aliases)) for aliases in options.values()}) > 1:
            faults(f"{key}: an alias unit of one option is missing in another, and with it all that is composed of it")
        for aliases in options.values():
            for alias in set(aliases) & {identifier for units in file["Units"].values() for identifier in units}:
                faults(f"{alias}: an alias unit that is also a unit")


def check_entry(identifier, category, entry, faults):
    if set(entry) - ENTRY_KEYS:
        faults(f"{identifier}: unknown keys {sorted(set(entry) - ENTRY_KEYS)}")
    if ("factor" in entry) == ("composition" in entry):
        faults(f"{identifier}: needs either a factor or a composition")
    if "factor" in entry and (not is_decimal(entry["factor"]) or not entry["factor"].strip("0.")):
        faults(f"{identifier}: the factor {entry['factor']!r} isn't a positive decimal")
    if "offset" in entry and (not is_decimal(entry["offset"]) or category != "Temperature"):
        faults(f"{identifier}: an offset is a decimal text, of a temperature")
    if category in COMPOSED_ONLY and "composition" not in entry:
        faults(f"{identifier}: {category} can only be composed")
    if "composition" in entry and set(entry["composition"]) - {"numerator", "denominator"}:
        faults(f"{identifier}: a composition has a numerator and a denominator")
    tie_break = entry.get("ambiguousTieBreakFactor", 0)
    if not isinstance(tie_break, int) or not (0 <= tie_break < TIE_BREAK_LIMIT or identifier in HEAVY):
        faults(f"{identifier}: a tie-break of {tie_break} would weigh as much as what the line says")
    for key in ("SIPrefixes", "expect-names"):
        if key in entry and not isinstance(entry[key], bool):
            faults(f"{identifier}: {key} isn't a boolean")


def check_localization(language, units, faults):
    faults.place = f"{language}.lproj/UnitLocalization.plist"
    names = units.localization["Names"]
    for identifier, entry in names.items():
        if identifier not in units.entries and identifier not in units.aliases:
            faults(f"{identifier}: names of a unit that doesn't exist")
        if set(entry) - NAME_KEYS:
            faults(f"{identifier}: unknown keys {sorted(set(entry) - NAME_KEYS)}")
        written = []
        for one, many in content.FORMATS:
            if one in entry and many in entry:
                faults(f"{identifier}: {many} is ignored beside {one}")
            values = [entry[one]] if one in entry else entry.get(many, [])
            if len(values) != len(set(values)):
                faults(f"{identifier}: {many} has a name twice")
            written += values
        if not ("plural" in entry or entry.get("plurals")):
            faults(f"{identifier}: no plural")
        for name in written:
            if not name or name != " ".join(name.split()):
                faults(f"{identifier}: the name {name!r} has stray spaces")
        for name in entry.get("case-sensitive-names", []):
            if name not in written:
                faults(f"{identifier}: {name} keeps its case, but is no name")
    missing = [identifier for identifier, entry in units.entries.items()
               if entry.get("expect-names", True) and identifier not in names
               and identifier not in content.ONE_LANGUAGE_ONLY]
    missing += [alias for alias in units.aliases if alias not in names]
    for identifier in missing:
        if language == "en" or not ENGLISH_WILL_DO.fullmatch(identifier):
            faults(f"{identifier}: no names")
    words = units.localization.get("ConversionOperators", [])
    if not words:
        faults("no ConversionOperators")
    for word in words:
        if re.search(r"[\s()|\\.*+?\[\]{}^$]", word):
            faults(f"the conversion word {word!r} isn't a plain word")
        if word in STANDARD_WORDS:
            faults(f"the conversion word {word!r} is a standard operator")
    return len(missing)


def check_loaded(language, units, faults):
    faults.place = f"units in {language}, {' '.join(units.options.values())}"
    for category, identifier in units.file["Base Units"].items():
        base = units.loaded.get(identifier)
        if base is None or base.category != category:
            faults(f"the base unit of {category}, {identifier}, is no unit of it")
        elif base.multiplier() != 1:
            faults(f"the base unit of {category}, {identifier}, has the factor {base.multiplier()}")
    for unit in units.loaded.values():
        for atom, _ in unit.atoms():
            if atom.category in COMPOSED_ONLY:
                faults(f"{unit.identifier}: a part of {atom.category} has no dimension")
        if unit.case_sensitive - {name for names in unit.names.values() for name in names}:
            faults(f"{unit.identifier}: case-sensitive names that it doesn't have")
    for shape, expected in (("square metre", "metre"), ("cubic metre", "metre")):
        if units.loaded[shape].multiplier() != units.loaded[expected].multiplier():
            faults(f"{shape} and {expected} don't go together")


# How a line is cut into words.

OPERATORS, BREAKERS = "+-*/", ":@\"^;=!%()"


def tokens(text):
    """(kind, text) of a word without spaces: w for words, n for numbers, o for operators and brackets."""
    result, at = [], 0
    while at < len(text):
        char = text[at]
        if char in OPERATORS or char in "()=":
            result.append(("o", char))
            at += 1
        elif char in BREAKERS:
            result.append(("w", char))
            at += 1
        elif char in "0123456789":
            end = re.match(r"[0-9.,]+", text[at:]).end() + at
            result.append(("n", text[at:end]))
            at = end
        else:
            end = at
            while end < len(text) and text[end] not in OPERATORS + BREAKERS + "0123456789":
                if text[end] == "." and end + 1 < len(text) and text[end + 1] in ".0123456789":
                    break
                end += 1
            result.append(("w", text[at:max(end, at + 1)]))
            at = max(end, at + 1)
    return result


def reachable(name, is_unit):
    """Whether the words of a line can become this name."""
    words, entries = name.split(" "), 0
    for word in words:
        cut = tokens(word)
        if any(kind == "o" and text == "-" for kind, text in cut):
            # a hyphen joins a word that is nothing yet with what follows
            if cut[0][0] != "w" or is_unit(cut[0][1]) or len(words) > 1 and word is not words[0]:
                return False
            if any(kind == "o" and text != "-" for kind, text in cut):
                return False
            entries += 2
            continue
        if cut[0][0] != "w" or any(kind == "o" for kind, _ in cut):
            return False
        entries += len(cut) + 1
    return entries - 1 <= 5


class Index:
    """Finds units as the program does: an exact spelling first, then any that doesn't insist on its case."""

    def __init__(self, units, money):
        self.results = defaultdict(list)
        for unit in list(units.loaded.values()) + list(money.values()):
            for name_type in sorted(unit.names):
                for name in unit.names[name_type]:
                    words = tuple(name.split(" "))
                    self.results[tuple(word.lower() for word in words)].append((unit, words, name))

    def find(self, name):
        words = tuple(name.split(" "))
        found = self.results.get(tuple(word.lower() for word in words), [])
        exact = [unit for unit, written, _ in found if written == words]
        if exact:
            return list(dict.fromkeys(exact)), True
        return list(dict.fromkeys(unit for unit, _, text in found if text not in unit.case_sensitive)), False

    def names(self):
        return sorted({text for results in self.results.values() for _, _, text in results})


def thing(unit):
    return unit.category if unit.category == "Money" else (unit.dimension(), unit.multiplier(), unit.offset)


def decide(language, name, found):
    """What settles a name of several units where the rest of the line says nothing, or None."""
    if len({thing(unit) if unit.category != "Money" else unit.identifier for unit in found}) == 1:
        return "the same size"
    weight = {unit: unit.tie_break + (unit.identifier in DEFAULTS) for unit in found}
    best = max(weight.values())
    winners = [unit for unit in found if weight[unit] == best]
    if len({thing(unit) if unit.category != "Money" else unit.identifier for unit in winners}) == 1:
        how = "the default of a shared sign" if best == 1 else f"its tie-break of {best}"
        return f"{winners[0].identifier}, by {how}"
    if (language, name.lower()) in FIRST_CODE_WINS and all(unit.category == "Money" for unit in winners):
        return f"{min(unit.identifier for unit in winners)}, the first code"
    return None


def check_names(language, units, money, faults, listing):
    faults.place = f"names in {language}, {' '.join(units.options.values())}"
    index = Index(units, money)
    ambiguous = []
    spellings = set()
    for name in index.names():
        spellings |= {name, name.lower(), name[:1].upper() + name[1:], name.upper()}
    for name in sorted(spellings):
        found, exact = index.find(name)
        if len(found) < 2:
            continue
        decision = decide(language, name, found)
        owners = ", ".join(sorted(unit.identifier for unit in found))
        if decision is None:
            faults(f"{name!r} may be {owners}, and nothing decides")
        elif decision != "the same size" and exact:
            ambiguous.append(f"{name}: {owners}: {decision}")
    if listing:
        print(f"Ambiguous names in {language}:")
        for line in ambiguous:
            print("  " + line)

    def is_unit(word):
        return bool(index.find(word)[0])

    for unit in list(units.loaded.values()) + list(money.values()):
        names = [name for listed in unit.names.values() for name in listed]
        if names and not any(reachable(name, is_unit) for name in names) and unit.identifier not in SHOWN_ONLY:
            faults(f"{unit.identifier}: no line can write any of its names")
    for name in index.names():
        if name in SHARED_WITH_PROGRAM:
            continue
        lowered = name.lower()
        if lowered in {word.lower() for word in VARIABLES} or lowered in STANDARD_WORDS | FUNCTIONS or lowered == "e":
            if index.find(lowered)[1] or lowered not in STANDARD_WORDS:
                faults(f"{name}: also a variable, a function or an operator of the program")
    for word in PROSE[language].split():
        for spelling in (word, word.capitalize()):
            found, _ = index.find(spelling)
            if found and not {(language, word), (language, spelling)} & PROSE_ALLOWED \
                    and word not in units.localization["ConversionOperators"]:
                faults(f"the word {spelling!r} becomes {found[0].identifier}")
    check_expected(language, units, index, faults)
    return index, len(ambiguous)


# What short and shared names mean with nothing beside them, in every language.
EXPECTED = {"m": "metre", "min": "minute", "h": "hour", "s": "second", "d": "day", "g": "gram", "t": "tonne",
            "l": "litre", "L": "litre", "c": "celsius", "C": "celsius", "F": "fahrenheit", "f": "fahrenheit",
            "in": "inch", "\"": "inch", "″": "inch", "ft": "foot", "'": "foot", "′": "foot",
            "b": "bit", "B": "byte", "Mb": "si+6-bit",
            "MB": "megabyte", "mb": "megabyte", "kb": "kilobyte", "KB": "kilobyte", "oz": "ounce", "lb": "pound",
            "pt": "point", "km": "si+3-metre", "KM": "kms", "Km": "kms", "kg": "si+3-gram", "KG": "kilo", "kgs": "kilo",
            "ml": "si-3-litre", "mL": "si-3-litre", "ms": "si-3-second", "mA": "si-3-ampere", "W": "watt",
            "MW": "si+6-watt", "mW": "si-3-watt", "kWh": "kilowatt hour", "kwh": "kilowatt hour", "cal": "calorie",
            "Cal": "food calorie", "kcal": "si+3-calorie", "m2": "square metre", "m²": "square metre",
            "m3": "cubic metre", "km2": "square kilometre", "mph": "mile per hour", "mpg": "mile per gallon",
            "Mbps": "megabit per second", "MBps": "megabyte per second", "hp": "horsepower", "Hz": "hertz",
            "mhz": "Mhz", "MHz": "si+6-hertz", "USD": "USD", "usd": "USD", "eur": "EUR", "$": "USD", "€": "EUR",
            "£": "GBP", "¥": "JPY", "₿": "BTC", "kr": "NOK", "CUP": "CUP", "ALL": "ALL", "all": None, "try": None,
            "top": None, "pm": None, "am": None, "a": None, "A": "ampere", "M2": None, "us": None, "K": "kelvin"}
EXPECTED_IN = {"en": {"pound": "pound", "pounds": "pound", "ounces": "ounce", "dollar": "USD", "Dollars": "USD",
                      "franc": "CHF", "krona": "SEK", "krone": "NOK", "peso": "MXN", "rupees": "INR", "cup": "cup",
                      "Calories": "food calorie", "calories": "calorie", "kilometers": "si+3-metre",
                      "light-years": "light year", "sq ft": "square foot", "square meters": "square metre",
                      "fluid ounces": "fluid ounce", "in.": "inch", "ft.": "foot", "metres squared": "square metre",
                      "sq. ft.": "square foot", "won": None, "real": None, "cad": None, "fps": "frame per second"},
               "de": {"Meilen": "mile", "Kilometern": "si+3-metre", "Stunden": "hour", "Euro": "EUR", "Dollar": "USD",
                      "PS": "metric horsepower", "Pfund": "pound", "US-Dollar": "USD", "qm": "square metre"},
               "fr": {"miles": "mile", "kilomètres": "si+3-metre", "heures": "hour", "euros": "EUR", "Mo": "megabyte",
                      "mètres carrés": "square metre", "ans": "year", "livres": "pound"},
               "es": {"millas": "mile", "kilómetros": "kilómetro", "km": "si+3-metre", "horas": "hour", "euros": "EUR",
                      "años": "year",
                      "metros cuadrados": "square metre", "libras": "pound", "pesos": "ARS"},
               "ja": {"マイル": "mile", "キロメートル": "si+3-metre", "時間": "hour", "円": "JPY", "ドル": "USD",
                      "平米": "square metre", "坪": "tsubo", "ポンド": "pound", "元": "CNY"}}


def check_expected(language, units, index, faults):
    for name, wanted in {**EXPECTED, **EXPECTED_IN[language]}.items():
        found, _ = index.find(name)
        weight = {unit: unit.tie_break + (unit.identifier in DEFAULTS) for unit in found}
        best = [unit.identifier for unit in found if weight[unit] == max(weight.values())]
        got = sorted(best)[0] if best else None
        if got != wanted:
            faults(f"5 {name} is {got}, and not {wanted}")


# Currencies.

def check_currencies(faults):
    faults.place = "Currencies.plist"
    rows = plist("Currencies")["TKCurrencies"]
    if sorted(rows) != sorted(CODES):
        faults(f"other codes than the sources': {sorted(set(rows) ^ set(CODES))}")
    for code, row in rows.items():
        if row.get("identifier") != code or set(row) != {"identifier", "enabled", "favourite", "sourceDate", "rate"}:
            faults(f"{code}: the row isn't complete, or of another currency")
        if not is_decimal(row.get("rate")) or float(row["rate"]) <= 0:
            faults(f"{code}: the rate {row.get('rate')!r} isn't a positive decimal")
        elif abs(float("%.16f" % (1.0 / float(row["rate"]))) * float(row["rate"]) - 1) > 0.001:
            faults(f"{code}: too little is left of 1/{row['rate']} in 16 decimals")
        if not isinstance(row.get("enabled"), bool) or not isinstance(row.get("favourite"), bool):
            faults(f"{code}: enabled and favourite are booleans")
        if not isinstance(row.get("sourceDate"), datetime.datetime):
            faults(f"{code}: sourceDate isn't a date")
    if rows["USD"]["rate"] != "1.00":
        faults("the rate of USD isn't 1.00")
    if len({row["sourceDate"] for row in rows.values()}) > 1:
        faults("rates of several dates")
    pegs = {"BAM": ("EUR", 1.95583), "BGN": ("EUR", 1.95583), "XAF": ("EUR", 655.957), "XOF": ("EUR", 655.957),
            "XPF": ("EUR", 119.33174), "CVE": ("EUR", 110.265), "KMF": ("EUR", 491.96775), "DKK": ("EUR", 7.46),
            "HRK": ("EUR", 7.5345), "LTL": ("EUR", 3.4528), "LVL": ("EUR", 0.702804), "GIP": ("GBP", 1),
            "FKP": ("GBP", 1), "SHP": ("GBP", 1), "BND": ("SGD", 1), "BTN": ("INR", 1), "NAD": ("ZAR", 1),
            "LSL": ("ZAR", 1), "SZL": ("ZAR", 1), "NPR": ("INR", 1.6), "MOP": ("HKD", 1.03), "AED": ("USD", 3.6725),
            "SAR": ("USD", 3.75), "QAR": ("USD", 3.64), "OMR": ("USD", 0.385), "BHD": ("USD", 0.376),
            "JOD": ("USD", 0.709), "BBD": ("USD", 2), "XCD": ("USD", 2.7), "BSD": ("USD", 1), "BMD": ("USD", 1),
            "PAB": ("USD", 1), "AWG": ("USD", 1.79), "ANG": ("USD", 1.79), "DJF": ("USD", 177.721),
            "SVC": ("USD", 8.75), "TMT": ("USD", 3.5)}
    for code, (anchor, rate) in pegs.items():
        if abs(float(rows[code]["rate"]) / float(rows[anchor]["rate"]) / rate - 1) > 0.005:
            faults(f"{code} is tied to {anchor} at {rate}; its rate says otherwise")
    for language in content.languages():
        check_currency_names(language, faults)


def check_currency_names(language, faults):
    faults.place = f"{language}.lproj/CurrencyLocalization.plist"
    file = plist("CurrencyLocalization", language)["Currencies"]
    if sorted(file) != sorted(CODES):
        faults(f"other codes than Currencies.plist: {sorted(set(file) ^ set(CODES))}")
    for code, entry in file.items():
        names, aliases = entry.get("names", {}), entry.get("aliases", {})
        if set(entry) - {"names", "aliases"} or set(names) - {"symbol", "singular", "plural"} \
                or set(aliases) - {"singular", "plurals", "symbols"}:
            faults(f"{code}: unknown keys")
        for key in ("singular", "plural"):
            if not names.get(key):
                faults(f"{code}: no {key}")
        listed = list(names.values()) + [name for values in aliases.values() for name in values]
        for name in listed:
            if name != " ".join(name.split()) or not name:
                faults(f"{code}: the name {name!r} has stray spaces")
        if names.get("symbol") == code:
            faults(f"{code}: a symbol like the code keeps it to its capitals; list it in symbols if that is meant")
        for values in aliases.values():
            if len(values) != len(set(values)):
                faults(f"{code}: an alias twice")
    for code, symbol in (("USD", "$"), ("CAD", "$"), ("AUD", "$"), ("NOK", "kr"), ("SEK", "kr"), ("DKK", "kr"),
                         ("EUR", "€"), ("GBP", "£"), ("JPY", "¥")):
        if file.get(code, {}).get("names", {}).get("symbol") != symbol:
            faults(f"{code}: the symbol that a locale looks for is {symbol}")


# Words and texts.

def check_words(language, index, faults):
    faults.place = f"{language}.lproj/WordOperators.plist"
    seen = set()
    for entry in plist("WordOperators", language):
        word, kind = entry.get("word"), entry.get("operatorType")
        if set(entry) != {"word", "operatorType"} or kind not in WORD_TYPES:
            faults(f"{entry}: not a word with a known type")
            continue
        if len(tokens(word)) != 1 or tokens(word)[0][0] != "w" or " " in word:
            faults(f"{word}: not one word of a line")
        if word in STANDARD_WORDS:
            faults(f"{word}: replaces a standard operator")
        if word in seen:
            faults(f"{word}: twice")
        seen.add(word)
        if index.find(word)[1] or word.lower() in FUNCTIONS | {name.lower() for name in VARIABLES}:
            faults(f"{word}: also a unit, a function or a variable, which goes before an operator")
    for word in index.names():
        if word in seen:
            faults(f"{word}: also a unit")


def keys_in_code():
    """The texts that the sources look up, and those of failed lines."""
    keys = {"Error: Exponent too large", "Error: Divide by Zero", "Error: Incompatible Units", "Error",
            "Error: Takes too long", "Error: Line too long"}
    root = pathlib.Path(content.BUNDLE).parent.parent
    for layer in ("platform", "TabulonFoundation", "TabulonCore", "TabulonKit", "Tabulon-Mac", "plugin", "cli"):
        for source in sorted(root.glob(layer + "/**/*.cpp")):
            text = source.read_text(encoding="utf-8")
            keys |= set(re.findall(r'localizedString\(\s*u"((?:[^"\\]|\\.)*)"', text))
    return keys


def check_strings(faults):
    english = plist("Localizable", "en")
    for key in sorted({"line", "in"} | keys_in_code()):
        if key not in english:
            faults(f"Localizable.plist lacks {key!r}")
    for language in content.languages():
        faults.place = f"{language}.lproj/Localizable.plist"
        strings = plist("Localizable", language)
        if set(strings) != set(english):
            faults(f"other keys than English: {sorted(set(strings) ^ set(english))}")
        for key, text in strings.items():
            if not text or text.count("%@") != key.count("%@"):
                faults(f"{key!r}: {text!r} is empty or has other placeholders")
        if not re.fullmatch(r"\w+", strings["line"]) or re.search(r"\d", strings["line"]):
            faults("the word of a line reference is one plain word")
        if re.search(r"\s", strings["Default Variable Name"]):
            faults("the name of a new variable has no space")
        words = plist("UnitLocalization", language).get("ConversionOperators", [""])
        if strings["in"] != words[0]:
            faults(f"the text of 'in' is {strings['in']!r}, and the main conversion word {words[0]!r}")


def main():
    listing = "--list" in sys.argv[1:]
    faults = Faults()
    check_bundle(faults)
    check_units_file(faults)
    counts = []
    for language in content.languages():
        if language not in PROSE:
            faults(f"{language}: no prose to try the names on")
            continue
        money = currencies(language)
        for options in OPTIONS:
            faults.place = f"units in {language}, {' '.join(options)}"
            units = Units(language, options, faults)
            check_loaded(language, units, faults)
            if options is OPTIONS[0]:
                english = check_localization(language, units, faults)
            index, ambiguous = check_names(language, units, money, faults,
                                           options is OPTIONS[0] and (listing or language == "en"))
            if options is OPTIONS[0]:
                counts.append(f"{language}: {len(units.loaded)} units, {english} entries with English names, "
                              f"{len(index.names())} names, {ambiguous} ambiguous")
        check_words(language, index, faults)
    check_currencies(faults)
    faults.place = ""
    check_strings(faults)
    for language in content.languages():
        phrases.check(language, faults)
    for line in counts:
        print(line)
    for fault in faults:
        print("fault:", fault)
    print(f"{len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
