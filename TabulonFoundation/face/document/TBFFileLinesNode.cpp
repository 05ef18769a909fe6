#include "face/document/TBFFileLinesNode.h"

#include "document/FileLinesNode.h"

#include <memory>

namespace {

constexpr uint32_t noLineNumber = 0xFFFFFFFF;

TBF::Ref<TBF::String> stringOf(const char* bytes) {
    return bytes ? TBF::String::createWithUTF8(bytes) : nullptr;
}

TBF::FileLine* lineOf(TBFFileLinesNodeRef node, uint32_t index) {
    return node ? node->lineWithinBounds(index) : nullptr;
}

void setText(TBFFileLinesNodeRef node, uint32_t index, TBF::Ref<TBF::String> TBF::FileLine::*field,
             TBF::Ref<TBF::String> text) {
    if (TBF::FileLine* const line = lineOf(node, index)) line->*field = std::move(text);
}

TBFStringRef getText(const TBF::FileLinesNode* node, uint32_t index,
                     TBF::Ref<TBF::String> TBF::FileLine::*field) {
    const TBF::FileLine* const line = node ? node->find(index) : nullptr;
    return line ? (line->*field).get() : nullptr;
}

} // namespace

TBFFileLinesNodeRef TBFFileLinesNodeCreate() {
    return std::make_unique<TBF::FileLinesNode>().release();
}

void TBFFileLinesNodeFree(TBFFileLinesNodeRef node) {
    const std::unique_ptr<TBF::FileLinesNode> owned(node);
}

uint32_t TBFFileLinesNodeGetCount(const TBF::FileLinesNode* node) {
    return node ? static_cast<uint32_t>(node->count()) : 0;
}

void TBFFileLinesNodeSetExpression(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text) {
    setText(node, index, &TBF::FileLine::expression, TBF::retain(text));
}

void TBFFileLinesNodeSetExpressionUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes) {
    setText(node, index, &TBF::FileLine::expression, stringOf(bytes));
}

TBFStringRef TBFFileLinesNodeGetExpression(const TBF::FileLinesNode* node, uint32_t index) {
    return getText(node, index, &TBF::FileLine::expression);
}

void TBFFileLinesNodeSetAnswer(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text) {
    setText(node, index, &TBF::FileLine::answer, TBF::retain(text));
}

void TBFFileLinesNodeSetAnswerUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes) {
    setText(node, index, &TBF::FileLine::answer, stringOf(bytes));
}

TBFStringRef TBFFileLinesNodeGetAnswer(const TBF::FileLinesNode* node, uint32_t index) {
    return getText(node, index, &TBF::FileLine::answer);
}

void TBFFileLinesNodeSetExpectedAnswer(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text) {
    setText(node, index, &TBF::FileLine::expectedAnswer, TBF::retain(text));
}

void TBFFileLinesNodeSetExpectedAnswerUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes) {
    setText(node, index, &TBF::FileLine::expectedAnswer, stringOf(bytes));
}

TBFStringRef TBFFileLinesNodeGetExpectedAnswer(const TBF::FileLinesNode* node, uint32_t index) {
    return getText(node, index, &TBF::FileLine::expectedAnswer);
}

void TBFFileLinesNodeSetExpectedUnitUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes) {
    setText(node, index, &TBF::FileLine::expectedUnit, stringOf(bytes));
}

TBFStringRef TBFFileLinesNodeGetExpectedUnit(const TBF::FileLinesNode* node, uint32_t index) {
    return getText(node, index, &TBF::FileLine::expectedUnit);
}

void TBFFileLinesNodeSetFormattingAttribute(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef value,
                                            TBFStringRef key) {
    if (TBF::FileLine* const line = lineOf(node, index))
        line->formattingAttributes.set(TBF::retain(key), TBF::retain(value));
}

TBFStringRef TBFFileLinesNodeGetFormattingAttribute(const TBF::FileLinesNode* node, uint32_t index,
                                                    TBFStringRef key) {
    const TBF::FileDictionary* const attributes =
        TBFFileLinesNodeGetFormattingAttributesDictionary(node, index);
    return attributes && key ? attributes->find(key->view()) : nullptr;
}

void TBFFileLinesNodeSetFormattingAttributesDictionary(TBFFileLinesNodeRef node, uint32_t index,
                                                       const TBF::FileDictionary& attributes) {
    if (TBF::FileLine* const line = lineOf(node, index)) line->formattingAttributes = attributes;
}

const TBF::FileDictionary* TBFFileLinesNodeGetFormattingAttributesDictionary(const TBF::FileLinesNode* node,
                                                                             uint32_t index) {
    const TBF::FileLine* const line = node ? node->find(index) : nullptr;
    return line ? &line->formattingAttributes : nullptr;
}

void TBFFileLinesNodeSetFileLineNumber(TBFFileLinesNodeRef node, uint32_t index, uint32_t number) {
    if (TBF::FileLine* const line = lineOf(node, index)) line->fileLineNumber = number;
}

uint32_t TBFFileLinesNodeGetFileLineNumber(const TBF::FileLinesNode* node, uint32_t index) {
    const TBF::FileLine* const line = node ? node->find(index) : nullptr;
    return line ? line->fileLineNumber : noLineNumber;
}

void TBFFileLinesNodeSetDecimalPlaces_0_5(TBFFileLinesNodeRef node, uint32_t index, int64_t places) {
    if (node) node->setDecimalPlaces_0_5(index, places);
}

void TBFFileLinesNodeSetTrigonometryMode_0_5(TBFFileLinesNodeRef node, uint32_t index, int64_t mode) {
    if (node) node->setTrigonometryMode_0_5(index, mode);
}

void TBFFileLinesNodeSetBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(TBFStringRef key) {
    TBF::FileLinesNode::setBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(TBF::retain(key));
}

void TBFFileLinesNodeSetBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(TBFStringRef key) {
    TBF::FileLinesNode::setBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(TBF::retain(key));
}
