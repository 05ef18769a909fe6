#pragma once

// The two patterns of the system: the special operators, of which there are none, and the unary operators,
// which mark signs and bind units together where the high-priority matcher isn't used. Built once, then
// read-only for the life of the process.

#include "analysis/syntaxtree/SyntaxTree.h"

namespace TBF {

class StandardSyntaxTrees {
public:
    static SyntaxTree& specialOperators();
    static SyntaxTree& unaryOperators();
};

} // namespace TBF
