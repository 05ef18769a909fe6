#include "units/TCUnitStringParser.h"

#include "environment/TCBuiltins.h"
#include "environment/TCWordOperatorList.h"
#include "eval/Evaluator.h"
#include "names/wordoperators/WordOperatorList.h"
#include "results/Result.h"
#include "runtime/String.h"
#include "units/TCCompositeUnit.h"
#include "units/TCUnitCollection.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr std::u16string_view perWord = u"per ";

// The degree behind a circumflex; 0 for what is no degree.
int32_t degreeOf(std::u16string_view digits) {
    constexpr std::size_t maximalDigits = 3;
    if (digits.empty() || digits.size() > maximalDigits) return 0;
    int32_t degree = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') return 0;
        degree = degree * 10 + (digit - u'0');
    }
    return degree;
}

struct Power {
    std::shared_ptr<TCUnit> unit;
    int32_t degree;
};

// The unit of "metre^2"; none if it isn't known.
std::optional<Power> powerOf(std::u16string_view part, const TCUnitCollection& units) {
    const std::size_t circumflex = part.find(u'^');
    const int32_t degree = circumflex == part.npos ? 1 : degreeOf(part.substr(circumflex + 1));
    auto unit = degree == 0 ? nullptr : units.unitWithIdentifier(part.substr(0, circumflex));
    return unit ? std::optional(Power{std::move(unit), degree}) : std::nullopt;
}

// Adds the units of "square metre^2 second"; false if one of them isn't known. Identifiers may have several
// words: the longest one counts.
bool addIdentifiers(std::u16string_view text, int32_t sign, const TCUnitCollection& units,
                    TBF::UnitFractionBuilder& builder) {
    constexpr std::size_t maximalLength = 1000;
    if (text.size() > maximalLength) return false;
    while (!text.empty()) {
        std::size_t end = text.size();
        std::optional<Power> power;
        while (!(power = powerOf(text.substr(0, end), units))) {
            end = text.rfind(u' ', end - 1);
            if (end == text.npos || end == 0) return false;
        }
        builder.addUnit(power->unit->tbfUnitContainer(), sign * power->degree);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

} // namespace

TCUnitStringParser::TCUnitStringParser(std::shared_ptr<TCUnitCollection> unitManager)
    : units(std::move(unitManager)) {}

std::shared_ptr<TCUnit> TCUnitStringParser::unitFromString(std::u16string_view text) const {
    if (!units || text.empty()) return nullptr;
    if (auto unit = unitFromIdentifiers(text)) return unit;
    TBF::Evaluator evaluator(units->tbfUnitCollection());
    const auto wordOperators = TCBuiltins::wordOperators();
    evaluator.setWordOperatorList(wordOperators->tbfWordOperatorList());
    const auto result = evaluator.evaluate(*TBF::String::create(text));
    return result ? TCValueUnit::unitWithUnitFraction(TBF::retain(result->unitFraction())) : nullptr;
}

// Identifiers such as "si+3-metre" are no words of the expression language. They stand as the formatter
// writes them: "si+3-metre second/kilogram^2".
std::shared_ptr<TCUnit> TCUnitStringParser::unitFromIdentifiers(std::u16string_view text) const {
    std::u16string_view above = text;
    std::u16string_view below;
    if (text.starts_with(perWord)) {
        above = {};
        below = text.substr(perWord.size());
    } else if (const std::size_t slash = text.find(u'/'); slash != text.npos) {
        above = text.substr(0, slash);
        below = text.substr(slash + 1);
    }
    const auto builder = TBF::UnitFractionBuilder::create();
    if (!addIdentifiers(above, 1, *units, *builder) || !addIdentifiers(below, -1, *units, *builder)) {
        return nullptr;
    }
    return TCValueUnit::unitWithUnitFraction(builder->unitFraction());
}
