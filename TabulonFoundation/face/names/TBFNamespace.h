#pragma once

// The plain functions over namespaces, which say what a word is. All accept null handles; a null namespace
// knows no words. A namespace belongs to the thread of its analysis.

#include "names/Namespace.h"

#include <cstdint>

namespace TBF {
class AmbiguousUnit;
class Function;
class FunctionList;
class ScopedVariable;
class String;
class UnitCollection;
class UnitContainer;
class UnitFraction;
class VariableList;
class WordOperator;
class WordOperatorList;
} // namespace TBF
using TBFNamespaceRef = TBF::Namespace*;

// All that was found for some words, not only what the type names. The caller owns one reference to
// everything that isn't null.
struct TBFNamespaceResolvedType {
    TBF::UnitFraction* unitFraction = nullptr;   // of the unit, if there is exactly one
    TBF::UnitContainer* unitContainer = nullptr; // if there is exactly one unit
    TBF::AmbiguousUnit* ambiguousUnit = nullptr; // if there are several units
    TBF::ScopedVariable* variable = nullptr;     // as it reads at the line that was asked for
    TBF::WordOperator* wordOperator = nullptr;
    TBF::Function* function = nullptr;
    int32_t unitNameFormat = 0; // TBFUnitFormatType
};

// Create. The caller owns the result, which has no lists and knows no words.
TBFNamespaceRef TBFNamespaceCreate();
TBFNamespaceRef TBFNamespaceRetain(TBFNamespaceRef space);
void TBFNamespaceRelease(const TBF::Namespace* space);

// The namespace shares the lists; null takes a list away.
void TBFNamespaceSetFunctionList(TBFNamespaceRef space, TBF::FunctionList* list);
void TBFNamespaceSetVariableList(TBFNamespaceRef space, TBF::VariableList* list);
void TBFNamespaceSetUnitCollection(TBFNamespaceRef space, TBF::UnitCollection* collection);
void TBFNamespaceSetWordOperatorList(TBFNamespaceRef space, TBF::WordOperatorList* list);

// Borrowed from the namespace.
TBF::UnitCollection* TBFNamespaceGetUnitCollection(const TBF::Namespace* space);
TBF::WordOperatorList* TBFNamespaceGetWordOperatorList(const TBF::Namespace* space);

// What the words mean together, with variables as they read at the line `lineIndex`. False if they mean
// nothing, or two things with equal right. `outType` and `outPartial` may be null; the latter becomes
// false. `outResolved` is always cleared first.
bool TBFNamespaceGetTypeForWords(const TBF::Namespace* space, const TBF::String* const* words,
                                 int32_t wordCount, int32_t lineIndex, TBFNamespaceType* outType,
                                 bool* outPartial, TBFNamespaceResolvedType* outResolved);
