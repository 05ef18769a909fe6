#pragma once

// Applies the patterns of a syntax tree all over an analysis tree. For the analyzer, on its thread.

#include "analysis/EPExpressionTree.h"
#include "analysis/syntaxtree/SyntaxTree.h"

namespace TBF {

// Puts a node around every run that matches, less what its pattern trims, and applies the pattern's rule to
// that node. Groups are done before what they stand in. At most 1,000 rounds are made in a group.
void crawlSyntaxTree(EPExpressionTreeNode& root, const SyntaxTree& tree);

} // namespace TBF
