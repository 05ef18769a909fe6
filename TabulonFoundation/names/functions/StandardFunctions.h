#pragma once

// The bodies of the standard functions, by family, for the one table that names them
// (StandardFunctions.cpp). What each takes and gives is told by its kind in FunctionImplementation.h.

#include "names/functions/FunctionImplementation.h"

namespace TBF::functions {

// Angles, in the mode of the evaluation. Results below 1e-100 in size are noise, and become exactly 0.
void sine(const FunctionCall& call);
void cosine(const FunctionCall& call);
Ref<Value> tangent(const FunctionCall& call); // infinity at the poles
void arcSine(const FunctionCall& call);
void arcCosine(const FunctionCall& call);
void arcTangent(const FunctionCall& call);
Ref<Value> cosecant(const FunctionCall& call); // at 0 of the sine, the error of a division by zero
Ref<Value> secant(const FunctionCall& call);
Ref<Value> cotangent(const FunctionCall& call);

// Hyperbolic functions, at 100 places.
bool hyperbolicSine(M_APM result, std::span<const M_APM> reversedArguments);
bool hyperbolicCosine(M_APM result, std::span<const M_APM> reversedArguments);
bool hyperbolicTangent(M_APM result, std::span<const M_APM> reversedArguments);
bool inverseHyperbolicSine(M_APM result, std::span<const M_APM> reversedArguments);
bool inverseHyperbolicCosine(M_APM result, std::span<const M_APM> reversedArguments);
bool inverseHyperbolicTangent(M_APM result, std::span<const M_APM> reversedArguments);

// One number to one number of the same type: a percentage stays one. The unit is dropped.
Ref<Value> absoluteValue(const FunctionCall& call);
Ref<Value> floor(const FunctionCall& call);
Ref<Value> ceiling(const FunctionCall& call);
Ref<Value> truncate(const FunctionCall& call);
Ref<Value> round(const FunctionCall& call);
Ref<Value> exponential(const FunctionCall& call);
Ref<Value> naturalLogarithm(const FunctionCall& call); // negative infinity at 0, an error below
Ref<Value> commonLogarithm(const FunctionCall& call);
Ref<Value> binaryLogarithm(const FunctionCall& call);

// Not-a-number below 0; an error for a value with a unit.
Ref<Value> squareRoot(const FunctionCall& call);
Ref<Value> cubeRoot(const FunctionCall& call);

// The digits alone, without percent sign and unit.
void digitsAlone(const FunctionCall& call);

Ref<Value> infinity(const FunctionCall& call);
Ref<Value> negativeInfinity(const FunctionCall& call);
Ref<Value> notANumber(const FunctionCall& call);

// Arithmetic on digits. No answer where the result would be of unreasonable length.
bool remainder(M_APM result, std::span<const M_APM> reversedArguments);
bool choose(M_APM result, std::span<const M_APM> reversedArguments);
bool power(M_APM result, std::span<const M_APM> reversedArguments);
bool factorial(M_APM result, std::span<const M_APM> reversedArguments);
bool timesPowerOfTen(M_APM result, std::span<const M_APM> reversedArguments);
bool shiftLeft(M_APM result, std::span<const M_APM> reversedArguments);
bool shiftRight(M_APM result, std::span<const M_APM> reversedArguments);
bool sumOfOne(M_APM result, std::span<const M_APM> reversedArguments);
bool sumOfTwo(M_APM result, std::span<const M_APM> reversedArguments);
bool sumOfThree(M_APM result, std::span<const M_APM> reversedArguments);

// Bit by bit, as wide as the operands are.
bool bitwiseOr(M_APM result, std::span<const M_APM> reversedArguments);
bool bitwiseAnd(M_APM result, std::span<const M_APM> reversedArguments);
bool bitwiseXor(M_APM result, std::span<const M_APM> reversedArguments);
bool bitwiseNot(M_APM result, std::span<const M_APM> reversedArguments);

} // namespace TBF::functions
