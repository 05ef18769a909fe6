#include "face/names/wordoperators/TBFWordOperatorList.h"

#include "names/wordoperators/WordOperatorList.h"

using TBF::String;
using TBF::WordOperator;
using TBF::WordOperatorList;

namespace {

void addConditional(WordOperatorList* list, TBF::Ref<WordOperator> op, uint32_t preConditions,
                    bool preMatchAny, uint32_t postConditions, bool postMatchAny) {
    if (!list) return;
    op->setPreConditions({preConditions, preMatchAny});
    op->setPostConditions({postConditions, postMatchAny});
    list->add(std::move(op));
}

} // namespace

void TBFStandardWordOperatorsInit() {
    WordOperatorList::shared();
}

TBFWordOperatorListRef TBFStandardWordOperatorsGetSharedListReference() {
    return &WordOperatorList::shared();
}

TBFWordOperatorListRef TBFWordOperatorListCreate() {
    return WordOperatorList::create().leak();
}

TBFWordOperatorListRef TBFWordOperatorListRetain(TBFWordOperatorListRef list) {
    return TBF::retain(list).leak();
}

void TBFWordOperatorListRelease(const WordOperatorList* list) {
    if (list) list->release();
}

void TBFWordOperatorListAddWordOperator(TBFWordOperatorListRef list, TBFWordOperatorRef op) {
    if (list) list->add(TBF::retain(op));
}

void TBFWordOperatorListAddConditional(TBFWordOperatorListRef list, const String* word, int32_t argumentType,
                                       const String* expression, int32_t precedence, uint32_t options,
                                       uint32_t preConditions, bool preMatchAny, uint32_t postConditions,
                                       bool postMatchAny) {
    addConditional(list,
                   TBF::adopt(TBFWordOperatorCreate(word, argumentType, expression, precedence, options)),
                   preConditions, preMatchAny, postConditions, postMatchAny);
}

void TBFWordOperatorListAddASCII(TBFWordOperatorListRef list, const char* word, int32_t argumentType,
                                 const char* expression, int32_t precedence, uint32_t options) {
    if (list)
        list->add(
            TBF::adopt(TBFWordOperatorCreateASCII(word, argumentType, expression, precedence, options)));
}

void TBFWordOperatorListAddConditionalASCII(TBFWordOperatorListRef list, const char* word,
                                            int32_t argumentType, const char* expression, int32_t precedence,
                                            uint32_t options, uint32_t preConditions, bool preMatchAny,
                                            uint32_t postConditions, bool postMatchAny) {
    addConditional(
        list, TBF::adopt(TBFWordOperatorCreateASCII(word, argumentType, expression, precedence, options)),
        preConditions, preMatchAny, postConditions, postMatchAny);
}

void TBFWordOperatorListSetAuxiliaryListReference(TBFWordOperatorListRef list,
                                                  TBFWordOperatorListRef auxiliary) {
    if (list) list->setAuxiliaryList(auxiliary);
}

bool TBFWordOperatorListContains(const WordOperatorList* list, const String* word) {
    return TBFWordOperatorListGet(list, word) != nullptr;
}

TBFWordOperatorRef TBFWordOperatorListGet(const WordOperatorList* list, const String* word) {
    return list && word ? list->find(word->view()) : nullptr;
}

bool TBFWordOperatorListWordSequenceIsWordOperator(const WordOperatorList* list, const String* const* words,
                                                   int32_t count, bool*, TBFWordOperatorRef* outOperator) {
    WordOperator* const found = count == 1 && words ? TBFWordOperatorListGet(list, words[0]) : nullptr;
    if (outOperator) *outOperator = found;
    return found != nullptr;
}
