// The scenarios: which texts lines have and which edits they get.

#include "EditedDocument.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

// Names that lines declare. Most of them also mean something else: units, functions, operators, phrases.
constexpr std::string_view names[] = {
    "a",       "b",         "x",          "m",    "km", "h",    "Rate",  "rate", "RATE", "price", "sin",
    "log",     "mod",       "times",      "plus", "of", "in",   "per",   "pi",   "e",    "total", "kg",
    "s",       "EUR",       "day",        "min",  "to", "half", "x2",    "Ä",    "ä",    "π",     "line",
    "percent", "net price", "unit price", "and",  "as", "off",  "Lunch", "k",
};

// `#` is a whole number, `%n` a name, `%r` a reference, `%u` a unit, `%v` a value, `%w` a word.
constexpr std::string_view patterns[] = {
    "#",
    "%v",
    "%v",
    "%n",
    "%n * #",
    "# * %n",
    "%n + %n",
    "%w # %n #",
    "# %n #",
    "# %n",
    "%n %n",
    "%w %n",
    "%n in %u",
    "%v in %u",
    "%n / %v",
    "%v * %n",
    "%n^2",
    "sin(%n)",
    "sin(#)",
    "cos(%r)",
    "tan(# deg)",
    "asin(1)",
    "atan(%n)",
    "#% of %n",
    "%n% of #",
    "#% off %n",
    "%n + #%",
    "# + %n",
    "%r",
    "%r + 1",
    "%r * %n",
    "%r + %r",
    "%r in %u",
    "%w: %r",
    "(%n)(%n)",
    "# %n # %n",
    "%w %n %w #",
    "#,5",
    "#.5",
    "1.234,5",
    "1,234.5",
    "#,5 %n",
    "1/0",
    "5 m + 3 kg",
    "log(-1)",
    "",
    "# // %n",
    "\"%n\" # + 1",
    "%w",
    "half of %n",
    "%n = = #",
    "%v as a % of %n",
    "square root of %n",
    "%v per %n",
    "%n - %v",
};

constexpr std::string_view declarations[] = {
    "%n = #",       "%n = #",      "%n = %v",     "%n = %v",    "%n = %n + 1", "%n = %r",
    "%n = %n",      "%n = sin(#)", "%n = %n * 2", "%w %n = %v", "%n =",        "%n = #%",
    "%n = %r * %n", "%n = # %n #", "%n = %w",     "%n = 1/0",   "%n=#,5",      "%n = acos(0) + %n",
};

constexpr std::string_view units[] = {"m",    "km",  "cm",  "kg", "h",   "min", "s",
                                      "km/h", "EUR", "USD", "%",  "day", "inch"};
constexpr std::string_view words[] = {"Lunch", "tax",     "for", "the",  "and",
                                      "box",   "maximum", "sum", "note", "Café"};
constexpr std::string_view references[] = {
    "(___rel_line(-#))",
    "(___rel_line(-1))",
    "(___abs_line(#))",
    "(___abs_line_numbered(#))",
    "(___rel_line_fixed(-#))",
    "(___rel_line(#))",
    "(___dead_line(0))",
    "line#",
    "line #",
    "(___abs_line(1002))",
};

class Writer {
public:
    explicit Writer(Choices& source)
        : choices(source)
        , countOfNames(1 + choices.below(8))
        , firstName(choices.below(std::size(names))) {}

    std::string anyName() { return std::string(name()); }

    std::string text() {
        const bool declares = choices.below(3) == 0;
        return declares ? filled(any(declarations)) : filled(any(patterns));
    }

private:
    template <std::size_t Count>
    std::string_view any(const std::string_view (&rows)[Count]) {
        return rows[choices.below(Count)];
    }

    // A document uses few names, so that its lines have to do with each other.
    std::string_view name() {
        return names[(firstName + 7 * choices.below(countOfNames)) % std::size(names)];
    }

    std::string number() {
        constexpr uint32_t bounds[] = {4, 10, 100, 10000};
        return std::to_string(choices.below(bounds[choices.below(4)]));
    }

    std::string filled(std::string_view pattern) {
        std::string text;
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (pattern[i] == '#')
                text += number();
            else if (pattern[i] == '%' && i + 1 < pattern.size() && insertion(pattern[i + 1], text))
                ++i;
            else
                text += pattern[i];
        }
        return text;
    }

    bool insertion(char kind, std::string& text) {
        switch (kind) {
        case 'n':
            text += name();
            return true;
        case 'r':
            text += filled(any(references));
            return true;
        case 'u':
            text += any(units);
            return true;
        case 'v':
            text += number() + " ";
            text += any(units);
            return true;
        case 'w':
            text += any(words);
            return true;
        default:
            return false;
        }
    }

    Choices& choices;
    uint32_t countOfNames;
    std::size_t firstName;
};

struct WeightedKind {
    EditKind kind;
    uint32_t weight;
};

constexpr WeightedKind kinds[] = {
    {EditKind::SetText, 36},       {EditKind::Insert, 14},
    {EditKind::Remove, 12},        {EditKind::Move, 12},
    {EditKind::BeginBatch, 5},     {EditKind::EndBatch, 8},
    {EditKind::ModeOfDocument, 3}, {EditKind::ModeOfLine, 4},
    {EditKind::ReadInLocale, 2},   {EditKind::ConvertToLocale, 2},
    {EditKind::PutBack, 4},        {EditKind::RemoveAll, 1},
    {EditKind::Reevaluate, 1},     {EditKind::AskForAnswer, 2},
    {EditKind::SetGlobalName, 2},  {EditKind::RemoveGlobalName, 1},
};

EditKind anyKind(Choices& choices) {
    uint32_t sum = 0;
    for (const WeightedKind& row : kinds)
        sum += row.weight;
    uint32_t left = choices.below(sum);
    for (const WeightedKind& row : kinds) {
        if (left < row.weight) return row.kind;
        left -= row.weight;
    }
    return EditKind::SetText;
}

} // namespace

uint32_t ByteChoices::below(uint32_t bound) {
    if (bytes.empty()) return 0;
    uint32_t value = bytes.front();
    bytes = bytes.subspan(1);
    if (bound > 256 && !bytes.empty()) {
        value = value << 8 | bytes.front();
        bytes = bytes.subspan(1);
    }
    return value % bound;
}

EditScenario anyEditScenario(Choices& choices, uint32_t mostEdits) {
    EditScenario scenario;
    scenario.followsReferences = choices.below(3) == 0;
    scenario.writesElsewhere = scenario.followsReferences && choices.below(4) == 0;
    scenario.comparesTokens = choices.below(8) == 0;
    scenario.sharesOptions = choices.below(4) == 0;
    Writer writer(choices);
    // Some documents crowd a name with declarations.
    const uint32_t countOfLines = choices.below(6) == 0 ? 20 + choices.below(30) : choices.below(12);
    for (uint32_t i = 0; i < countOfLines; ++i)
        scenario.texts.push_back(writer.text());
    const uint32_t countOfEdits = 1 + choices.below(mostEdits);
    for (uint32_t i = 0; i < countOfEdits && !choices.areUsedUp(); ++i) {
        Edit edit;
        edit.kind = anyKind(choices);
        edit.position = choices.below(64);
        edit.other = choices.below(64);
        if (edit.kind == EditKind::SetText || edit.kind == EditKind::Insert) edit.text = writer.text();
        if (edit.kind == EditKind::SetGlobalName || edit.kind == EditKind::RemoveGlobalName)
            edit.text = writer.anyName();
        scenario.edits.push_back(std::move(edit));
    }
    return scenario;
}
