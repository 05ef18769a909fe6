"""The phrases of percentages and conversions: do their patterns compile, and what do lines turn into?"""

import ctypes
import ctypes.util
import re

from content import languages, plist

# Name in the file: the word that it becomes, whether marks stand around it, and its place in the order.
TYPES = {
    "AsPercent": ("_as_percent", False, 15), "PercentOn": ("_percent_on", True, 50),
    "PercentOf": ("_percent_of", True, 40), "PercentOff": ("_percent_off", True, 30),
    "AsPercentOn": ("_as_percent_on", False, 2), "AsPercentOf": ("_as_percent_of", False, 3),
    "AsPercentOff": ("_as_percent_off", False, 1), "AsPercentDecreaseOf": ("_as_percent_decrease_of", False, 13),
    "AsPercentIncreaseOf": ("_as_percent_increase_of", False, 14),
    "PercentOnWhatIs": ("_percent_on_what_is", True, 11), "PercentOfWhatIs": ("_percent_of_what_is", True, 12),
    "PercentOffWhatIs": ("_percent_off_what_is", True, 10),
    "ReverseAsPercentOn": ("_reverse_as_percent_on", False, 2),
    "ReverseAsPercentOff": ("_reverse_as_percent_off", False, 1),
    "ReversePercentOnWhatIs": ("_reverse_percent_on_what_is", True, 11),
    "ReversePercentOfWhatIs": ("_reverse_percent_of_what_is", True, 12),
    "ReversePercentOffWhatIs": ("_reverse_percent_off_what_is", True, 10),
}
WITH_BUILT_IN = list(TYPES)[:12]  # a refresh takes their built-in patterns away, so English must give each again

# A line and what stands in it afterwards, marks written as spaces, runs of spaces as one.
LINES = {
    "en": {
        "20% of 50": "20 _percent_of 50", "20 % of 50": "20 _percent_of 50", "20 percent of 50": "20 _percent_of 50",
        "20% off 50": "20 _percent_off 50", "20% discount on 50": "20 _percent_off 50", "8% on 50": "8 _percent_on 50",
        "20% off what is 40": "20 _percent_off_what_is 40", "20% on what is 60": "20 _percent_on_what_is 60",
        "20% of what is 10": "20 _percent_of_what_is 10", "20 percent of what is 10": "20 _percent_of_what_is 10",
        "20% of what number is 10": "20 _percent_of_what_is 10", "5 as a % of 20": "5 _as_percent_of 20",
        "5 as a percentage of 20": "5 _as_percent_of 20", "5 as percent of 20": "5 _as_percent_of 20",
        "15 as a % off 20": "15 _as_percent_off 20", "25 as a % on 20": "25 _as_percent_on 20",
        "10 as a percentage increase of 8": "10 _as_percent_increase_of 8",
        "8 as a % decrease of 10": "8 _as_percent_decrease_of 10", "0.25 as a %": "0.25 _as_percent",
        "0.25 as a percentage": "0.25 _as_percent", "1/4 in percent": "1/4_as_percent",
        "20% more than 50": "20 _percent_on 50", "20% less than 50": "20 _percent_off 50",
        "5 is what percent of 20": "5 _as_percent_of 20", "5 is what % of 20": "5 _as_percent_of 20",
        "what is 20% of 50": "what is 20 _percent_of 50", "5 km in miles": "5 km __uc miles",
        "5 km to miles": "5 km __uc miles", "100 - 5%": "100 - 5%",
        "come in": "come __uc", "Growth in % 5": "Growth __uc % 5",
    },
    "de": {
        "20 % von 50": "20 _percent_of 50", "20% von 50": "20 _percent_of 50", "20 Prozent von 50": "20 _percent_of 50",
        "20 % der Miete 500": "20 _percent_of Miete 500", "20 % Rabatt auf 50": "20 _percent_off 50",
        "20 % weniger als 50": "20 _percent_off 50", "19 % auf 50": "19 _percent_on 50",
        "19 % mehr als 50": "19 _percent_on 50", "20 % von was ist 10": "20 _percent_of_what_is 10",
        "20 % von welcher Zahl ist 10": "20 _percent_of_what_is 10",
        "20 % Rabatt auf was ist 40": "20 _percent_off_what_is 40", "20 % auf was ist 60": "20 _percent_on_what_is 60",
        "5 als % von 20": "5 _as_percent_of 20", "5 in Prozent von 20": "5 _as_percent_of 20",
        "5 ist wie viel Prozent von 20": "5 _as_percent_of 20", "5 sind wieviel % von 20": "5 _as_percent_of 20",
        "0,25 als Prozent": "0,25 _as_percent", "0,25 in %": "0,25_as_percent", "25 als % auf 20": "25 _as_percent_on 20",
        "15 als % Rabatt auf 20": "15 _as_percent_off 20",
        "10 als prozentualer Anstieg von 8": "10 _as_percent_increase_of 8",
        "8 als prozentuale Abnahme von 10": "8 _as_percent_decrease_of 10",
        "5 km in Meilen": "5 km __uc Meilen", "20% of 50": "20 _percent_of 50", "100 - 5 %": "100 - 5 %",
    },
    "fr": {
        "20 % de 50": "20 _percent_of 50", "20 pour cent de 50": "20 _percent_of 50",
        "20 % du loyer 500": "20 _percent_of loyer 500", "20 % de l'année": "20 _percent_of l'année",
        "20 % de remise sur 50": "20 _percent_off 50", "20 % de moins que 50": "20 _percent_off 50",
        "20 % sur 50": "20 _percent_on 50", "20 % de plus que 50": "20 _percent_on 50",
        "20 % de combien font 10": "20 _percent_of_what_is 10", "20 % de quel nombre est 10": "20 _percent_of_what_is 10",
        "20 % de remise sur combien font 40": "20 _percent_off_what_is 40",
        "20 % sur combien font 60": "20 _percent_on_what_is 60", "5 en % de 20": "5 _as_percent_of 20",
        "5 est quel pourcentage de 20": "5 _as_percent_of 20", "5 font combien de % de 20": "5 _as_percent_of 20",
        "5 en pourcentage de 20": "5 _as_percent_of 20", "0,25 en %": "0,25_as_percent",
        "0,25 en pour cent": "0,25_as_percent", "10 en % de hausse sur 8": "10 _as_percent_increase_of 8",
        "8 en % de baisse sur 10": "8 _as_percent_decrease_of 10", "15 en % de remise sur 20": "15 _as_percent_off 20",
        "25 en % sur 20": "25 _as_percent_on 20", "5 km en miles": "5 km __uc miles", "20% of 50": "20 _percent_of 50",
    },
    "es": {
        "20 % de 50": "20 _percent_of 50", "20 por ciento de 50": "20 _percent_of 50",
        "20 % del alquiler 500": "20 _percent_of alquiler 500", "20 % de descuento en 50": "20 _percent_off 50",
        "20 % menos que 50": "20 _percent_off 50", "21 % sobre 50": "21 _percent_on 50",
        "20 % más que 50": "20 _percent_on 50", "20 % de recargo sobre 50": "20 _percent_on 50", "20 % de qué es 10": "20 _percent_of_what_is 10",
        "20 % de descuento en qué es 40": "20 _percent_off_what_is 40", "20 % sobre qué es 60": "20 _percent_on_what_is 60",
        "5 en % de 20": "5 _as_percent_of 20", "5 como porcentaje de 20": "5 _as_percent_of 20",
        "5 es qué porcentaje de 20": "5 _as_percent_of 20", "5 es que % de 20": "5 _as_percent_of 20",
        "0,25 en %": "0,25_as_percent", "0,25 como porcentaje": "0,25_as_percent",
        "10 como porcentaje de aumento de 8": "10 _as_percent_increase_of 8",
        "8 como porcentaje de reducción de 10": "8 _as_percent_decrease_of 10",
        "15 como % de descuento en 20": "15 _as_percent_off 20", "25 como % sobre 20": "25 _as_percent_on 20",
        "5 km en millas": "5 km __uc millas", "20% of 50": "20 _percent_of 50",
    },
    "ja": {
        "50の20%": "50の20%", "20%引きの500": "20 _percent_off 500", "8%増しの500": "8 _percent_on 500",
        "20%引きの値段が400": "20 _percent_off_what_is 400", "20%が10": "20 _percent_of_what_is 10",
        "500の何%引きが400": "500_reverse_as_percent_off400", "500の何%増しが600": "500_reverse_as_percent_on600",
        "0.25を%で": "0.25_as_percent", "0.25 を パーセント で表示": "0.25_as_percent",
        "5 km を マイル": "5 km __uc マイル", "5 km を マイル に": "5 km __uc マイル __uc", "5 km in マイル": "5 km __uc マイル",
        "20% of 50": "20 _percent_of 50",
    },
}


class ICU:
    """The regular expressions of the program's own library, if it is found."""

    def __init__(self):
        self.library, self.suffix = None, ""
        name = ctypes.util.find_library("icui18n")
        version = re.search(r"\.so\.(\d+)", name or "")
        if version:
            self.library = ctypes.CDLL(name)
            self.suffix = "_" + version.group(1)

    def call(self, name, *arguments, result=ctypes.c_int32):
        function = getattr(self.library, name + self.suffix)
        function.restype = result
        return function(*arguments)

    def groups(self, pattern):
        """The number of groups; None for a pattern that doesn't compile."""
        if self.library is None:
            try:
                return re.compile(pattern).groups
            except re.error:
                return None
        units = pattern.encode("utf-16-le")
        buffer = ctypes.create_string_buffer(units + b"\0\0")
        status, where = ctypes.c_int32(0), ctypes.create_string_buffer(128)
        regex = self.call("uregex_open", buffer, ctypes.c_int32(len(units) // 2), ctypes.c_uint32(0), where,
                          ctypes.byref(status), result=ctypes.c_void_p)
        if status.value > 0 or not regex:
            return None
        count = self.call("uregex_groupCount", ctypes.c_void_p(regex), ctypes.byref(status))
        self.call("uregex_close", ctypes.c_void_p(regex), result=None)
        return count


def conversion_pattern(words):
    return "([) ])(" + "|".join(words) + ")([) ]|$)"


def rewrite(language, line, backwards=False):
    """The line after all patterns ran, those of equal order in the file's order or against it."""
    entries = list(plist("PercentageOperators", language))
    if language != "en":
        entries += plist("PercentageOperators", "en")
    if backwards:
        entries.reverse()
    entries = sorted((entry for entry in entries if entry.get("operatorType") in TYPES),
                     key=lambda entry: TYPES[entry["operatorType"]][2])
    for entry in entries:
        word, marked, _ = TYPES[entry["operatorType"]]
        for _ in range(100):
            changed = re.sub(entry["regex"], f"\x16{word}\x17" if marked else word, line, count=1)
            if changed == line:
                break
            line = changed
        else:
            return "never ends"
    pattern = conversion_pattern(plist("UnitLocalization", language)["ConversionOperators"])
    for _ in range(100):
        changed = re.sub(pattern, r"\1__uc\3", line, count=1)
        if changed == line:
            break
        line = changed
    return " ".join(line.replace("\x16", " ").replace("\x17", " ").split())


def check(language, faults):
    icu = ICU()
    faults.place = f"{language}.lproj/PercentageOperators.plist"
    types = set()
    sound = True
    for entry in plist("PercentageOperators", language):
        pattern, kind = entry.get("regex"), entry.get("operatorType")
        if set(entry) != {"regex", "operatorType"} or kind not in TYPES:
            faults(f"{entry}: not a pattern with a known type")
            sound = False
            continue
        types.add(kind)
        if icu.groups(pattern) is None:
            faults(f"{pattern}: doesn't compile")
            sound = False
        elif re.search(pattern, ""):
            faults(f"{pattern}: matches nothing at all")
        for word, _, _ in TYPES.values():
            if sound and re.search(pattern, word):
                faults(f"{pattern}: matches the word {word} that a phrase becomes")
    for kind in WITH_BUILT_IN:
        if language == "en" and kind not in types:
            faults(f"no pattern of {kind}: the built-in one is taken away")
    words = plist("UnitLocalization", language).get("ConversionOperators", [])
    if icu.groups(conversion_pattern(words)) != 3:
        faults("the conversion words don't make a pattern of three groups")
    if not sound:
        return
    for line, expected in LINES.get(language, {}).items():
        for backwards in (False, True):
            got = rewrite(language, line, backwards)
            if got != expected:
                faults(f"{line!r} becomes {got!r}, and not {expected!r}"
                       + (", with equal orders turned round" if backwards else ""))
    if language not in LINES:
        faults("no lines to try the phrases on")
    assert language in languages()
