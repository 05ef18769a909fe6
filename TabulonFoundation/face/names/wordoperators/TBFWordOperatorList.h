#pragma once

// The plain functions over lists of word operators. All accept null handles.

#include "face/names/wordoperators/TBFWordOperator.h"

namespace TBF {
class WordOperatorList;
}
using TBFWordOperatorListRef = TBF::WordOperatorList*;

// Makes the shared list of the foundation; called once at start-up.
void TBFStandardWordOperatorsInit();
TBFWordOperatorListRef TBFStandardWordOperatorsGetSharedListReference();

// Create. The caller owns the result.
TBFWordOperatorListRef TBFWordOperatorListCreate();
TBFWordOperatorListRef TBFWordOperatorListRetain(TBFWordOperatorListRef list);
void TBFWordOperatorListRelease(const TBF::WordOperatorList* list);

// Change. An operator of the same word is replaced; the list takes a reference of its own.
void TBFWordOperatorListAddWordOperator(TBFWordOperatorListRef list, TBFWordOperatorRef op);
void TBFWordOperatorListAddConditional(TBFWordOperatorListRef list, const TBF::String* word,
                                       int32_t argumentType, const TBF::String* expression,
                                       int32_t precedence, uint32_t options, uint32_t preConditions,
                                       bool preMatchAny, uint32_t postConditions, bool postMatchAny);
void TBFWordOperatorListAddASCII(TBFWordOperatorListRef list, const char* word, int32_t argumentType,
                                 const char* expression, int32_t precedence, uint32_t options);
void TBFWordOperatorListAddConditionalASCII(TBFWordOperatorListRef list, const char* word,
                                            int32_t argumentType, const char* expression, int32_t precedence,
                                            uint32_t options, uint32_t preConditions, bool preMatchAny,
                                            uint32_t postConditions, bool postMatchAny);

// `auxiliary` is searched after `list`, isn't owned by it and has to outlive it.
void TBFWordOperatorListSetAuxiliaryListReference(TBFWordOperatorListRef list,
                                                  TBFWordOperatorListRef auxiliary);

// Read.
bool TBFWordOperatorListContains(const TBF::WordOperatorList* list, const TBF::String* word);
TBFWordOperatorRef TBFWordOperatorListGet(const TBF::WordOperatorList* list, const TBF::String* word);

// False unless `count` is 1. `outOperator` (may be null) receives a borrowed operator; `outPartial` is
// left as it is, since no word operator has several words.
bool TBFWordOperatorListWordSequenceIsWordOperator(const TBF::WordOperatorList* list,
                                                   const TBF::String* const* words, int32_t count,
                                                   bool* outPartial, TBFWordOperatorRef* outOperator);
