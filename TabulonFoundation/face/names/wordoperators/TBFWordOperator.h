#pragma once

// The plain functions over word operators: operators that are spelled as words, such as "mod", and are
// defined by a template in the engine's own language. All functions accept null handles. An operator is
// set up on one thread, read on any afterwards; its first evaluation compiles it and has to happen on
// one thread at a time.

#include <cstdint>

namespace TBF {
class CompiledWordOperator;
class String;
class WordOperator;
} // namespace TBF

using TBFWordOperatorRef = TBF::WordOperator*;

// Create. The caller owns the result. `argumentType` is the notation (1 prefix, 2 postfix, 3 infix),
// `precedence` a TBFOperatorPrecedence class, `options` flags for the check of operator arguments.
TBFWordOperatorRef TBFWordOperatorCreate(const TBF::String* word, int32_t argumentType,
                                         const TBF::String* expression, int32_t precedence, uint32_t options);
TBFWordOperatorRef TBFWordOperatorCreateASCII(const char* word, int32_t argumentType, const char* expression,
                                              int32_t precedence, uint32_t options);
TBFWordOperatorRef TBFWordOperatorRetain(TBFWordOperatorRef op);
void TBFWordOperatorRelease(const TBF::WordOperator* op);

// Set up. With `matchAny` one shared bit suffices, without it all bits have to be there.
void TBFWordOperatorSetPreConditions(TBFWordOperatorRef op, uint32_t conditions, bool matchAny);
void TBFWordOperatorSetPostConditions(TBFWordOperatorRef op, uint32_t conditions, bool matchAny);
void TBFWordOperatorSetArgumentConditions(TBFWordOperatorRef op, uint32_t conditions);
void TBFWordOperatorSetRepresentedTokenTypes(TBFWordOperatorRef op, int32_t type, int32_t subType);

// Read. What a Get gives is borrowed from the operator.
const TBF::String* TBFWordOperatorGetWord(const TBF::WordOperator* op);
int32_t TBFWordOperatorGetArgumentType(const TBF::WordOperator* op); // 3, infix, for null
int32_t TBFWordOperatorGetOperatorPrecedence(const TBF::WordOperator* op);
uint32_t TBFWordOperatorGetOptions(const TBF::WordOperator* op);
uint32_t TBFWordOperatorGetPostConditions(const TBF::WordOperator* op);
uint32_t TBFWordOperatorGetArgumentConditions(const TBF::WordOperator* op);
int32_t TBFWordOperatorGetRepresentedTokenSubType(const TBF::WordOperator* op);
bool TBFWordOperatorPreConditionsMatch(const TBF::WordOperator* op, uint32_t conditions);
bool TBFWordOperatorPostConditionsMatch(const TBF::WordOperator* op, uint32_t conditions);
TBF::CompiledWordOperator* TBFWordOperatorGetCompiled(TBFWordOperatorRef op);
