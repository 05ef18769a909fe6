#pragma once

// The plain functions over value handles: a number with or without a unit. Values are immutable and may
// be shared between threads. A null handle is accepted everywhere.

namespace TBF {
class Number;
class UnitFraction;
class Value;
} // namespace TBF
using TBFValueRef = TBF::Value*;

// Create. The caller owns the result. The plain form retains its arguments, the others take over the
// caller's references to them. The unit fraction may be null.
TBFValueRef TBFValueCreate(TBF::Number* number, TBF::UnitFraction* unitFraction);
TBFValueRef TBFValueCreate_TransferOwnership(TBF::Number* number);
TBFValueRef TBFValueCreate_TransferOwnership(TBF::Number* number, TBF::UnitFraction* unitFraction);

TBFValueRef TBFValueRetain(TBFValueRef value);
void TBFValueRelease(const TBF::Value* value);

// Read. The results are borrowed.
TBF::Number* TBFValueGetNumber(const TBF::Value* value);
TBF::UnitFraction* TBFValueGetUnitFraction(const TBF::Value* value);
