#include "face/parser/TBFExpressionNodeTreePrinter.h"

#include "parser/ExpressionNodeTreePrinter.h"

TBFExpressionNodeTreePrinterRef TBFExpressionNodeTreePrinterCreate(TBF::ExpressionNode* rootNode) {
    return TBF::ExpressionNodeTreePrinter::create(TBF::retain(rootNode)).leak();
}

TBFExpressionNodeTreePrinterRef TBFExpressionNodeTreePrinterRetain(TBFExpressionNodeTreePrinterRef printer) {
    if (printer) printer->retain();
    return printer;
}

void TBFExpressionNodeTreePrinterRelease(TBFExpressionNodeTreePrinterRef printer) {
    if (printer) printer->release();
}

std::string TBFExpressionNodeTreePrinterCreateString(const TBF::ExpressionNodeTreePrinter* printer) {
    return printer ? printer->string() : std::string();
}
