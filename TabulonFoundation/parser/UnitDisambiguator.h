#pragma once

// Settles the ambiguous units of an expression tree by what the rest of the expression says: the types near
// by and in the whole tree. The expression parser calls it once on each new tree.

namespace TBF {
class ExpressionTree;
}

// Makes the shared table of decisions now; otherwise the first use makes it.
void TBFUnitDisambiguatorInit();

// Gives each node with an ambiguous unit the unit meant. Nothing for null.
void TBFUnitDisambiguatorProcessExpressionTree(TBF::ExpressionTree* tree);
