#pragma once

// The plain functions over the settings section of a document file. Getters of a null node answer
// trigonometry mode 1, 0 decimal places and no characters; setters of one do nothing.

#include "runtime/TBFTypes.h"

#include <cstdint>

namespace TBF {
class FileDictionary;
struct FileSettingsNode;
} // namespace TBF
using TBFFileSettingsNodeRef = TBF::FileSettingsNode*;

// The caller owns the result and gives it to Free.
TBFFileSettingsNodeRef TBFFileSettingsNodeCreate();
void TBFFileSettingsNodeFree(TBFFileSettingsNodeRef node);

void TBFFileSettingsNodeSetTrigonometryMode(TBFFileSettingsNodeRef node, uint32_t mode);
uint32_t TBFFileSettingsNodeGetTrigonometryMode(const TBF::FileSettingsNode* node);
void TBFFileSettingsNodeSetDecimalPlaces(TBFFileSettingsNodeRef node, uint32_t places);
uint32_t TBFFileSettingsNodeGetDecimalPlaces(const TBF::FileSettingsNode* node);
void TBFFileSettingsNodeSetDecimalPointChar(TBFFileSettingsNodeRef node, TBFChar character);
TBFChar TBFFileSettingsNodeGetDecimalPointChar(const TBF::FileSettingsNode* node);
void TBFFileSettingsNodeSetThousandsSeparatorChar(TBFFileSettingsNodeRef node, TBFChar character);
TBFChar TBFFileSettingsNodeGetThousandsSeparatorChar(const TBF::FileSettingsNode* node);

// Copies the dictionary; null takes it away. The getter lends, and gives null if there is none.
void TBFFileSettingsNodeSetMisclaneousDictionary(TBFFileSettingsNodeRef node,
                                                 const TBF::FileDictionary* items);
const TBF::FileDictionary* TBFFileSettingsNodeGetMisclaneousDictionary(const TBF::FileSettingsNode* node);
