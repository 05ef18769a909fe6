#pragma once

// Questions about a node of the analysis tree that several passes ask. Pure functions.

#include "analysis/EPExpressionTreeNode.h"

namespace TBF {

// What counts in a calculation: no word, gap or comment.
bool isSignificant(const EPExpressionTreeNode& node);

// A value, or an operator that stands behind one. Word operators never count.
bool isOperandLike(const EPExpressionTreeNode& node);

bool isPostfixWordOperator(const EPExpressionTreeNode& node);
bool isPrefixWordOperator(const EPExpressionTreeNode& node);

// True for a unit that may stand before its number, or if one of several possible units may.
bool canBePrefixUnit(const EPExpressionTreeNode& node);

} // namespace TBF
