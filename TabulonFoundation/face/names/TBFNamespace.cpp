#include "face/names/TBFNamespace.h"

#include "names/Namespace.h"
#include "names/functions/Function.h"
#include "names/functions/FunctionList.h"
#include "names/variables/ScopedVariable.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperator.h"
#include "names/wordoperators/WordOperatorList.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <string_view>
#include <vector>

using TBF::Namespace;

TBFNamespaceRef TBFNamespaceCreate() {
    return Namespace::create().leak();
}

TBFNamespaceRef TBFNamespaceRetain(TBFNamespaceRef space) {
    return TBF::retain(space).leak();
}

void TBFNamespaceRelease(const Namespace* space) {
    if (space) space->release();
}

void TBFNamespaceSetFunctionList(TBFNamespaceRef space, TBF::FunctionList* list) {
    if (space) space->setFunctionList(TBF::retain(list));
}

void TBFNamespaceSetVariableList(TBFNamespaceRef space, TBF::VariableList* list) {
    if (space) space->setVariableList(TBF::retain(list));
}

void TBFNamespaceSetUnitCollection(TBFNamespaceRef space, TBF::UnitCollection* collection) {
    if (space) space->setUnitCollection(TBF::retain(collection));
}

void TBFNamespaceSetWordOperatorList(TBFNamespaceRef space, TBF::WordOperatorList* list) {
    if (space) space->setWordOperatorList(TBF::retain(list));
}

TBF::UnitCollection* TBFNamespaceGetUnitCollection(const Namespace* space) {
    return space ? space->unitCollection() : nullptr;
}

TBF::WordOperatorList* TBFNamespaceGetWordOperatorList(const Namespace* space) {
    return space ? space->wordOperatorList() : nullptr;
}

bool TBFNamespaceGetTypeForWords(const Namespace* space, const TBF::String* const* words, int32_t wordCount,
                                 int32_t lineIndex, TBFNamespaceType* outType, bool* outPartial,
                                 TBFNamespaceResolvedType* outResolved) {
    if (outType) *outType = TBFNamespaceTypeNone;
    if (outPartial) *outPartial = false;
    if (outResolved) *outResolved = {};
    if (!space || !words) return false;
    std::vector<std::u16string_view> texts;
    for (int32_t index = 0; index < wordCount; ++index) {
        if (!words[index]) return false;
        texts.push_back(words[index]->view());
    }
    TBF::WordMeaning meaning;
    const TBFNamespaceType type = space->lookUp(texts, lineIndex, meaning);
    if (outType) *outType = type;
    if (outResolved) {
        *outResolved = {.unitFraction = meaning.unitFraction.leak(),
                        .unitContainer = meaning.unitContainer.leak(),
                        .ambiguousUnit = meaning.ambiguousUnit.leak(),
                        .variable = meaning.variable.leak(),
                        .wordOperator = meaning.wordOperator.leak(),
                        .function = meaning.function.leak(),
                        .unitNameFormat = meaning.unitNameFormat};
    }
    return type != TBFNamespaceTypeNone;
}
