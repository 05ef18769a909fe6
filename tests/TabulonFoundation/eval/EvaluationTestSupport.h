#pragma once

// What the tests of evaluation share: a started foundation, a handful of units, and short texts for values.

#include "eval/ExpressionNodeEvaluator.h"
#include "numbers/Number.h"
#include "runtime/Ref.h"
#include "runtime/TBFLog.h"
#include "units/UnitCollection.h"
#include "units/Value.h"

#include <string>
#include <string_view>

namespace evaltest {

// Starts the foundation once for the process.
void startFoundation();

// Turns the log on for a scope, where a test looks for a message, or that there is none.
class LogIsOn {
public:
    LogIsOn() { TBFErrorLogSetEnabled(1); }
    ~LogIsOn() { TBFErrorLogSetEnabled(0); }
    LogIsOn(const LogIsOn&) = delete;
    LogIsOn& operator=(const LogIsOn&) = delete;
};

// m, km, ft, kg, g, s, h, K, degC, J (an energy), L (a volume). Names are the identifiers.
TBF::UnitCollection& units();

// Reads "5", "-2.5%", "inf", "-inf", "nan", "5 km", "3 km/h": one unit above the line and at most one below.
TBF::Ref<TBF::Value> value(std::string_view text);

// Writes what `value` reads; units in order of identifier, repeated by degree, joined by "*". "none" for
// null.
std::string text(const TBF::Value* value);

// One operator through the evaluator: the text of its value, "error N", or "none". An empty text is a
// missing operand.
std::string applied(TBFOperatorType operation, std::string_view left, std::string_view right);

} // namespace evaltest
