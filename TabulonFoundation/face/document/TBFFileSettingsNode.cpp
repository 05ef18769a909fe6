#include "face/document/TBFFileSettingsNode.h"

#include "document/FileSettingsNode.h"

#include <memory>

TBFFileSettingsNodeRef TBFFileSettingsNodeCreate() {
    return std::make_unique<TBF::FileSettingsNode>().release();
}

void TBFFileSettingsNodeFree(TBFFileSettingsNodeRef node) {
    const std::unique_ptr<TBF::FileSettingsNode> owned(node);
}

void TBFFileSettingsNodeSetTrigonometryMode(TBFFileSettingsNodeRef node, uint32_t mode) {
    if (node) node->trigonometryMode = mode;
}

uint32_t TBFFileSettingsNodeGetTrigonometryMode(const TBF::FileSettingsNode* node) {
    return node ? node->trigonometryMode : 1;
}

void TBFFileSettingsNodeSetDecimalPlaces(TBFFileSettingsNodeRef node, uint32_t places) {
    if (node) node->decimalPlaces = places;
}

uint32_t TBFFileSettingsNodeGetDecimalPlaces(const TBF::FileSettingsNode* node) {
    return node ? node->decimalPlaces : 0;
}

void TBFFileSettingsNodeSetDecimalPointChar(TBFFileSettingsNodeRef node, TBFChar character) {
    if (node) node->decimalPoint = character;
}

TBFChar TBFFileSettingsNodeGetDecimalPointChar(const TBF::FileSettingsNode* node) {
    return node ? node->decimalPoint : TBFCharNULL;
}

void TBFFileSettingsNodeSetThousandsSeparatorChar(TBFFileSettingsNodeRef node, TBFChar character) {
    if (node) node->thousandsSeparator = character;
}

TBFChar TBFFileSettingsNodeGetThousandsSeparatorChar(const TBF::FileSettingsNode* node) {
    return node ? node->thousandsSeparator : TBFCharNULL;
}

void TBFFileSettingsNodeSetMisclaneousDictionary(TBFFileSettingsNodeRef node,
                                                 const TBF::FileDictionary* items) {
    if (node) node->miscellaneous = items ? std::optional<TBF::FileDictionary>(*items) : std::nullopt;
}

const TBF::FileDictionary* TBFFileSettingsNodeGetMisclaneousDictionary(const TBF::FileSettingsNode* node) {
    return node && node->miscellaneous ? &*node->miscellaneous : nullptr;
}
