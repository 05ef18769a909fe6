#pragma once

// Everything the parser, the word operators and the tree printer know about operators: one row for each
// operator, one for each notation and one for each precedence class. Pure functions, for any thread. A
// value outside of the tables is logged and gives 0.

#include "numbers/TBFOperatorType.h"

#include <cstdint>
#include <string_view>

enum TBFTokenSubType : int32_t;

// The operator that a token subtype stands for, and the subtype under which an operator is shown.
TBFOperatorType TBFOperatorTypeForTBFTokenSubType(TBFTokenSubType subType);
TBFTokenSubType TBFTokenSubTypeForTBFOperatorType(TBFOperatorType type);

namespace TBF {

// How strongly a class binds: higher binds tighter. A right-associative class leaves its equal on the
// operator stack.
struct OperatorStrength {
    int32_t strength = 0;
    bool rightAssociative = false;
};

TBFOperatorNotation operatorNotation(TBFOperatorType type);

// The class of an operator; class 1 for an operator that has none.
TBFOperatorPrecedence operatorPrecedence(TBFOperatorType type);
OperatorStrength TBFOperatorPrecedenceGet_new(TBFOperatorPrecedence precedence);

// The number of operands.
int32_t operatorArity(TBFOperatorNotation notation);

// The count of operands on the stack minus those expected, at which an operator may stand.
int32_t operatorNotationAllowedDiff(TBFOperatorNotation notation);

// The type that a finished tree holds for an operator: another one for 21 to 25, else the same.
TBFOperatorType operatorTypeInTree(TBFOperatorType type);

// The implicit multiplication of a priority: 0 the plain one, 1 the strong one, 2 the strongest.
TBFOperatorType multiplyOperatorForImplicitOperatorPriority(int32_t priority);

// What the tree printer writes. Empty for the unit operators, which print their unit; logged and empty for an
// operator that no tree holds.
std::string_view operatorPrintedForm(TBFOperatorType type);

} // namespace TBF
