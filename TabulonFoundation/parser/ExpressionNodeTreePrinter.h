#pragma once

// Writes an expression tree as one line of text, for diagnostics and tests: 2 + 3 * 4 gives (2+(3*4)). An
// operator with one operand stands in front of it, wherever the line had it. Used by one thread at a time.

#include "parser/ExpressionNode.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <string>
#include <utility>

namespace TBF {

class ExpressionNodeTreePrinter final : public Object<ExpressionNodeTreePrinter> {
public:
    // The root may be null, which prints as nothing.
    static Ref<ExpressionNodeTreePrinter> create(Ref<ExpressionNode> root);

    std::string string() const;

private:
    friend class Object<ExpressionNodeTreePrinter>;
    explicit ExpressionNodeTreePrinter(Ref<ExpressionNode> root) noexcept
        : rootNode(std::move(root)) {}

    Ref<ExpressionNode> rootNode;
};

} // namespace TBF
