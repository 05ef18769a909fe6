#pragma once

// The plain functions over the general section of a document file. Getters of a null node answer version
// 0.0 and no test; setters of one do nothing.

namespace TBF {
struct FileInfoNode;
}
using TBFFileInfoNodeRef = TBF::FileInfoNode*;

// The caller owns the result and gives it to Free.
TBFFileInfoNodeRef TBFFileInfoNodeCreate();
void TBFFileInfoNodeFree(TBFFileInfoNodeRef node);

void TBFFileInfoNodeSetVersion(TBFFileInfoNodeRef node, double version);
double TBFFileInfoNodeGetVersion(const TBF::FileInfoNode* node);
void TBFFileInfoNodeSetIsEvaluationTest(TBFFileInfoNodeRef node, bool isTest);
bool TBFFileInfoNodeIsEvaluationTest(const TBF::FileInfoNode* node);
