#include "face/document/TBFFileInfoNode.h"

#include "document/FileInfoNode.h"

#include <memory>

TBFFileInfoNodeRef TBFFileInfoNodeCreate() {
    return std::make_unique<TBF::FileInfoNode>().release();
}

void TBFFileInfoNodeFree(TBFFileInfoNodeRef node) {
    const std::unique_ptr<TBF::FileInfoNode> owned(node);
}

void TBFFileInfoNodeSetVersion(TBFFileInfoNodeRef node, double version) {
    if (node) node->version = version;
}

double TBFFileInfoNodeGetVersion(const TBF::FileInfoNode* node) {
    return node ? node->version : 0.0;
}

void TBFFileInfoNodeSetIsEvaluationTest(TBFFileInfoNodeRef node, bool isTest) {
    if (node) node->isEvaluationTest = isTest;
}

bool TBFFileInfoNodeIsEvaluationTest(const TBF::FileInfoNode* node) {
    return node && node->isEvaluationTest;
}
