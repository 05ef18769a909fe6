#include "names/Namespace.h"

#include "names/functions/FunctionList.h"
#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "runtime/Unicode.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <array>
#include <cstddef>
#include <forward_list>
#include <string>
#include <utility>
#include <vector>

namespace TBF {

namespace {

// What one list has for the words.
struct Claim {
    bool exists = false;
    bool isExact = false; // the spelling agrees in every code unit
};

struct Claims {
    Claim variable;
    Claim unit;
    Claim function;
    bool wordOperator = false;
};

TBFNamespaceType decide(const Claims& claims) {
    struct Row {
        bool applies;
        TBFNamespaceType answer;
    };
    const Row rows[] = {
        {claims.variable.isExact, TBFNamespaceTypeVariable},
        {claims.unit.isExact, TBFNamespaceTypeUnit},
        {claims.function.isExact, TBFNamespaceTypeFunction},
        {claims.variable.exists && claims.function.exists, TBFNamespaceTypeNone},
        {claims.variable.exists, TBFNamespaceTypeVariable},
        {claims.function.exists, TBFNamespaceTypeFunction},
        {claims.wordOperator, TBFNamespaceTypeWordOperator},
        {claims.unit.exists, TBFNamespaceTypeUnit},
    };
    for (const Row& row : rows) {
        if (row.applies) return row.answer;
    }
    return TBFNamespaceTypeNone;
}

// The lower-case forms of some words. A form that is the word itself isn't copied, and nothing is allocated
// for the few words of a name.
class LowercaseWords {
public:
    explicit LowercaseWords(std::span<const std::u16string_view> words) {
        if (words.size() > fewForms.size()) manyForms.resize(words.size());
        forms = manyForms.empty() ? std::span(fewForms).first(words.size()) : std::span(manyForms);
        for (std::size_t index = 0; index < words.size(); ++index) {
            const std::u16string_view word = words[index];
            forms[index] = isLowercaseASCII(word) ? word : ownedForms.emplace_front(lowercase(word));
        }
    }
    LowercaseWords(const LowercaseWords&) = delete;
    LowercaseWords& operator=(const LowercaseWords&) = delete;

    std::span<const std::u16string_view> views() const { return forms; }

private:
    std::array<std::u16string_view, 3> fewForms;
    std::vector<std::u16string_view> manyForms;
    std::span<std::u16string_view> forms;
    std::forward_list<std::u16string> ownedForms;
};

Claim claimOfUnits(UnitCollection::SearchResults results, bool isExact, WordMeaning& meaning) {
    if (results.empty()) return {};
    if (results.size() == 1) {
        meaning.unitContainer = std::move(results.front().unit);
        meaning.unitFraction = TBF::retain(meaning.unitContainer->unitFraction());
        meaning.unitNameFormat = results.front().formatType;
    } else {
        std::vector<Ref<UnitContainer>> candidates;
        candidates.reserve(results.size());
        for (UnitCollection::SearchResult& result : results)
            candidates.push_back(std::move(result.unit));
        meaning.ambiguousUnit = AmbiguousUnit::create(std::move(candidates));
    }
    return {.exists = true, .isExact = isExact};
}

} // namespace

Namespace::Namespace() = default;
Namespace::~Namespace() = default;

Ref<Namespace> Namespace::create() {
    return make<Namespace>();
}

Ref<Namespace> Namespace::create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                 Ref<WordOperatorList> wordOperators, Ref<UnitCollection> units) {
    Ref<Namespace> names = create();
    names->setFunctionList(std::move(functions));
    names->setVariableList(std::move(variables));
    names->setWordOperatorList(std::move(wordOperators));
    names->setUnitCollection(std::move(units));
    return names;
}

void Namespace::setFunctionList(Ref<FunctionList> list) {
    functions = std::move(list);
}
void Namespace::setVariableList(Ref<VariableList> list) {
    variables = std::move(list);
}
void Namespace::setUnitCollection(Ref<UnitCollection> collection) {
    units = std::move(collection);
}
void Namespace::setWordOperatorList(Ref<WordOperatorList> list) {
    wordOperators = std::move(list);
}

TBFNamespaceType Namespace::lookUp(std::span<const std::u16string_view> words, int32_t scope,
                                   WordMeaning& meaning, bool mayBeUnit) const {
    if (words.empty()) return TBFNamespaceTypeNone;
    const LowercaseWords lowercaseWords(words);
    Claims claims;
    if (words.size() == 1) {
        const HashedText name(words.front());
        const bool isLowercase = lowercaseWords.views().front().data() == words.front().data();
        const HashedText lowercaseName = isLowercase ? name : HashedText(lowercaseWords.views().front());
        if (variables) {
            const VariableList::Match match = variables->find(name, lowercaseName);
            if (match.variable) {
                claims.variable = {.exists = true, .isExact = match.exactCase};
                meaning.variable = variables->resolve(*match.variable, scope);
            }
        }
        if (functions) {
            const FunctionList::Match match = functions->find(name, lowercaseName);
            if (match.function) {
                claims.function = {.exists = true, .isExact = match.exactCase};
                meaning.function = TBF::retain(match.function);
            }
        }
        if (wordOperators) {
            meaning.wordOperator = TBF::retain(wordOperators->find(name));
            claims.wordOperator = meaning.wordOperator != nullptr;
        }
    }
    if (units && mayBeUnit) {
        bool isExact = false;
        UnitCollection::SearchResults results =
            units->findUnitsMatchingWords(words, lowercaseWords.views(), nullptr, &isExact);
        // A variable is never up against a unit in another case.
        if (isExact || !claims.variable.exists) {
            claims.unit = claimOfUnits(std::move(results), isExact, meaning);
        }
    }
    const TBFNamespaceType answer = decide(claims);
    if (answer == TBFNamespaceTypeNone) meaning = WordMeaning();
    return answer;
}

bool Namespace::mayBeginLongerName(std::u16string_view word, bool* mayBeUnit) const {
    if (mayBeUnit) *mayBeUnit = false;
    if (!units) return false;
    const LowercaseWords lowercaseWord(std::span(&word, 1));
    return units->searchIndex().beginsLongerName(lowercaseWord.views().front(), mayBeUnit);
}

} // namespace TBF
