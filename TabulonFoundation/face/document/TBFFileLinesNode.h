#pragma once

// The plain functions over the body of a document file. Indexes are zero-based; a setter appends records
// up to its index. Setters share the strings they are given, getters lend. For a null node, or an index
// behind the last record, getters answer null, and 0xFFFFFFFF as the line number.

#include "face/runtime/TBFString.h"

#include <cstdint>

namespace TBF {
class FileDictionary;
class FileLinesNode;
} // namespace TBF
using TBFFileLinesNodeRef = TBF::FileLinesNode*;

// The caller owns the result and gives it to Free.
TBFFileLinesNodeRef TBFFileLinesNodeCreate();
void TBFFileLinesNodeFree(TBFFileLinesNodeRef node);
uint32_t TBFFileLinesNodeGetCount(const TBF::FileLinesNode* node);

void TBFFileLinesNodeSetExpression(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text);
void TBFFileLinesNodeSetExpressionUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes);
TBFStringRef TBFFileLinesNodeGetExpression(const TBF::FileLinesNode* node, uint32_t index);
void TBFFileLinesNodeSetAnswer(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text);
void TBFFileLinesNodeSetAnswerUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes);
TBFStringRef TBFFileLinesNodeGetAnswer(const TBF::FileLinesNode* node, uint32_t index);
void TBFFileLinesNodeSetExpectedAnswer(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef text);
void TBFFileLinesNodeSetExpectedAnswerUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes);
TBFStringRef TBFFileLinesNodeGetExpectedAnswer(const TBF::FileLinesNode* node, uint32_t index);
void TBFFileLinesNodeSetExpectedUnitUTF8(TBFFileLinesNodeRef node, uint32_t index, const char* bytes);
TBFStringRef TBFFileLinesNodeGetExpectedUnit(const TBF::FileLinesNode* node, uint32_t index);

// The attributes of a line, by key. The dictionary is copied when it is set.
void TBFFileLinesNodeSetFormattingAttribute(TBFFileLinesNodeRef node, uint32_t index, TBFStringRef value,
                                            TBFStringRef key);
TBFStringRef TBFFileLinesNodeGetFormattingAttribute(const TBF::FileLinesNode* node, uint32_t index,
                                                    TBFStringRef key);
void TBFFileLinesNodeSetFormattingAttributesDictionary(TBFFileLinesNodeRef node, uint32_t index,
                                                       const TBF::FileDictionary& attributes);
const TBF::FileDictionary* TBFFileLinesNodeGetFormattingAttributesDictionary(const TBF::FileLinesNode* node,
                                                                             uint32_t index);

// The line of the XML text on which the record begins, from 1 on; 0 if not known.
void TBFFileLinesNodeSetFileLineNumber(TBFFileLinesNodeRef node, uint32_t index, uint32_t number);
uint32_t TBFFileLinesNodeGetFileLineNumber(const TBF::FileLinesNode* node, uint32_t index);

// The attributes that two integers of the first generation of files became, and their keys, which are set
// for all nodes before any file is read.
void TBFFileLinesNodeSetDecimalPlaces_0_5(TBFFileLinesNodeRef node, uint32_t index, int64_t places);
void TBFFileLinesNodeSetTrigonometryMode_0_5(TBFFileLinesNodeRef node, uint32_t index, int64_t mode);
void TBFFileLinesNodeSetBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(TBFStringRef key);
void TBFFileLinesNodeSetBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(TBFStringRef key);
