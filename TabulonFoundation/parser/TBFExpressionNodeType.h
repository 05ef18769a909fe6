#pragma once

// The kinds of node in an expression tree. No state.

#include <cstdint>

enum TBFExpressionNodeType : int32_t {
    TBFExpressionNodeTypeNone = 0,         // the answer for a null node
    TBFExpressionNodeTypeOperand = 1,      // a number, perhaps with a unit
    TBFExpressionNodeTypeOperator = 2,     // an arithmetic operator with one or two children
    TBFExpressionNodeTypeList = 3,         // the argument list of a function
    TBFExpressionNodeTypeFunction = 4,     // a function call
    TBFExpressionNodeTypeVariable = 5,     // a variable at a scope
    TBFExpressionNodeTypeWordOperator = 6, // a word that acts as an operator
    TBFExpressionNodeTypeOperatorUnit = 7, // a unit applied to the value of its one child
    TBFExpressionNodeTypeEmptyOperand = 8, // a place where an operand was needed and none was found
};
