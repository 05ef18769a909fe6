#include "face/names/wordoperators/TBFWordOperator.h"

#include "eval/wordoperators/CompiledWordOperator.h"
#include "names/wordoperators/WordOperator.h"

using TBF::String;
using TBF::WordOperator;

namespace {

// Strings are immutable, so that holding the caller's own is as good as a copy.
TBF::Ref<String> shared(const String* string) {
    return TBF::retain(const_cast<String*>(string));
}

} // namespace

TBFWordOperatorRef TBFWordOperatorCreate(const String* word, int32_t argumentType, const String* expression,
                                         int32_t precedence, uint32_t options) {
    return WordOperator::create(shared(word), argumentType, shared(expression), precedence, options).leak();
}

TBFWordOperatorRef TBFWordOperatorCreateASCII(const char* word, int32_t argumentType, const char* expression,
                                              int32_t precedence, uint32_t options) {
    return WordOperator::create(String::createWithUTF8(word ? word : ""), argumentType,
                                String::createWithUTF8(expression ? expression : ""), precedence, options)
        .leak();
}

TBFWordOperatorRef TBFWordOperatorRetain(TBFWordOperatorRef op) {
    return TBF::retain(op).leak();
}

void TBFWordOperatorRelease(const WordOperator* op) {
    if (op) op->release();
}

void TBFWordOperatorSetPreConditions(TBFWordOperatorRef op, uint32_t conditions, bool matchAny) {
    if (op) op->setPreConditions({conditions, matchAny});
}

void TBFWordOperatorSetPostConditions(TBFWordOperatorRef op, uint32_t conditions, bool matchAny) {
    if (op) op->setPostConditions({conditions, matchAny});
}

void TBFWordOperatorSetArgumentConditions(TBFWordOperatorRef op, uint32_t conditions) {
    if (op) op->setArgumentConditions(conditions);
}

void TBFWordOperatorSetRepresentedTokenTypes(TBFWordOperatorRef op, int32_t type, int32_t subType) {
    if (op) op->setRepresentedTokenTypes(type, subType);
}

const String* TBFWordOperatorGetWord(const WordOperator* op) {
    return op ? &op->word() : nullptr;
}

int32_t TBFWordOperatorGetArgumentType(const WordOperator* op) {
    return op ? op->argumentType() : 3;
}

int32_t TBFWordOperatorGetOperatorPrecedence(const WordOperator* op) {
    return op ? op->operatorPrecedence() : 0;
}

uint32_t TBFWordOperatorGetOptions(const WordOperator* op) {
    return op ? op->options() : 0;
}

uint32_t TBFWordOperatorGetPostConditions(const WordOperator* op) {
    return op ? op->postConditions().flags : 0;
}

uint32_t TBFWordOperatorGetArgumentConditions(const WordOperator* op) {
    return op ? op->argumentConditions() : 0;
}

int32_t TBFWordOperatorGetRepresentedTokenSubType(const WordOperator* op) {
    return op ? op->representedTokenSubType() : 0;
}

bool TBFWordOperatorPreConditionsMatch(const WordOperator* op, uint32_t conditions) {
    return op && op->preConditionsMatch(conditions);
}

bool TBFWordOperatorPostConditionsMatch(const WordOperator* op, uint32_t conditions) {
    return op && op->postConditionsMatch(conditions);
}

TBF::CompiledWordOperator* TBFWordOperatorGetCompiled(TBFWordOperatorRef op) {
    return op ? &TBF::CompiledWordOperator::of(*op) : nullptr;
}
