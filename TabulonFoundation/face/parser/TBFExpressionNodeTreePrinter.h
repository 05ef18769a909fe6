#pragma once

// The plain functions over tree printers. A null printer prints nothing. Used by one thread at a time.

#include <string>

namespace TBF {
class ExpressionNode;
class ExpressionNodeTreePrinter;
} // namespace TBF

using TBFExpressionNodeTreePrinterRef = TBF::ExpressionNodeTreePrinter*;

// Retains the root, which may be null; the caller owns the printer.
TBFExpressionNodeTreePrinterRef TBFExpressionNodeTreePrinterCreate(TBF::ExpressionNode* rootNode);
TBFExpressionNodeTreePrinterRef TBFExpressionNodeTreePrinterRetain(TBFExpressionNodeTreePrinterRef printer);
void TBFExpressionNodeTreePrinterRelease(TBFExpressionNodeTreePrinterRef printer);

std::string TBFExpressionNodeTreePrinterCreateString(const TBF::ExpressionNodeTreePrinter* printer);
