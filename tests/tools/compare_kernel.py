#!/usr/bin/env python3
"""Compares the decimal kernel with python3's integers, fractions and decimal module.

usage: compare_kernel.py KERNEL_CALCULATOR [--seed N] [--scale N]

Every operation gets random operands of 1 to 2,000 digits, with runs of zeros and nines among them, where carries
and cuts go wrong. The expected digits come from exact integers where the operation is exact, and from series and
decimal functions at a higher precision where it isn't.
"""

import argparse
import math
import random
import subprocess
import sys
from decimal import (Context, Decimal, ROUND_CEILING, ROUND_DOWN, ROUND_FLOOR, ROUND_HALF_UP, MAX_EMAX, MIN_EMIN,
                     localcontext)

sys.set_int_max_str_digits(0)

# Exact arithmetic on the operands: nothing here is longer.
EXACT = Context(prec=200_000, Emax=MAX_EMAX, Emin=MIN_EMIN, traps=[])
CUT_PLACES = 249


def context(digits, rounding=ROUND_HALF_UP):
    return Context(prec=max(1, digits), rounding=rounding, Emax=MAX_EMAX, Emin=MIN_EMIN, traps=[])


def exponent(x):
    """e of 0.d1d2... x 10^e, 0 for zero."""
    return x.adjusted() + 1 if x else 0


def rounded(x, places):
    return context(places + 1).plus(x)


# Operands.

def digits_of(rng, count):
    kind = rng.random()
    if kind < 0.7:
        text = "".join(rng.choices("0123456789", k=count))
    else:
        text = ""
        while len(text) < count:
            text += rng.choice("0099954") * rng.randint(1, 25)
        text = text[:count]
    return (rng.choice("123456789") + text[1:]) if text[0] == "0" else text


def length(rng, longest):
    return max(1, int(longest ** rng.random()))


def operand(rng, longest=2000, spread=60):
    digits = digits_of(rng, length(rng, longest))
    return Decimal((rng.randint(0, 1), tuple(map(int, digits)), rng.randint(-len(digits) - spread, spread)))


def positive(rng, longest=2000, spread=60):
    return operand(rng, longest, spread).copy_abs()


def between(rng, low, high, longest=300):
    """A value of up to `longest` digits in (low, high)."""
    part = Decimal("0." + digits_of(rng, length(rng, longest)))
    with localcontext(context(longest + 20)):
        return Decimal(low) + (Decimal(high) - Decimal(low)) * part


# Functions, to `d` digits and more.

def quotient(a, b, digits, rounding):
    return context(digits, rounding).divide(a, b)


def integer_quotient(a, b):
    low = min(a.as_tuple().exponent, b.as_tuple().exponent)
    whole = lambda x: abs(int(x.scaleb(-low, EXACT)))
    result = whole(a) // whole(b)
    return Decimal(-result if (a < 0) != (b < 0) else result)


def pi(d):
    """Machin's sum on integers."""
    one = 10 ** (d + 10)

    def arctan_inverse(n):
        term = total = one // n
        k = 1
        while term:
            term //= -n * n
            k += 2
            total += term // k
        return total

    return Decimal(16 * arctan_inverse(5) - 4 * arctan_inverse(239)).scaleb(-(d + 10), context(d + 20))


def sin_cos(x, d):
    """Sine and cosine to d digits behind the point."""
    with localcontext(context(d + 20 + max(0, exponent(x)))):
        turn = pi(d + 10 + max(0, exponent(x))) * 2
        x = x - (x / turn).to_integral_value() * turn
        x /= 1024
        one = 10 ** (d + 15)
        y = int(x * one)
        square = y * y // one
        sine = term = y
        k = 1
        while abs(term) > 1:
            term = -term * square // one // ((k + 1) * (k + 2))
            k += 2
            sine += term
        versine = term = square // 2
        k = 2
        while abs(term) > 1:
            term = -term * square // one // ((k + 1) * (k + 2))
            k += 2
            versine += term
        for _ in range(10):
            sine, versine = 2 * sine * (one - versine) // one, 2 * versine * (2 * one - versine) // one
        return Decimal(sine) / one, 1 - Decimal(versine) / one


def arctan(x, d):
    """Halved until small, then the series."""
    with localcontext(context(d + 30 + max(0, -exponent(x)))):
        if abs(x) > 1:
            return (pi(d + 10) / 2).copy_sign(x) - arctan(1 / x, d)
        for _ in range(8):
            x = x / (1 + (1 + x * x).sqrt())
        total = term = x
        square = x * x
        k = 1
        while term and exponent(term) > exponent(total) - d - 15:
            term = -term * square
            k += 2
            total += term / k
        return total * 256


def with_digits(function):
    """A function of (x, d) where results may be small: gives it the digits that smallness takes."""
    def wrapped(x, places):
        d = places + 15
        while True:
            result = function(x, d)
            needed = places + 12 + max(0, -exponent(result))
            if not x or (result and needed <= d):
                return rounded(result, places)
            d = needed + 20 if result else 2 * d
    return wrapped


def in_context(extra, function):
    """A function of decimals worked out with `extra` digits more."""
    def wrapped(x, places):
        with localcontext(context(places + extra + 2 * max(0, -exponent(x)))):
            result = function(x)
        return rounded(result, places)
    return wrapped


def tangent(x, d):
    sine, cosine = sin_cos(x, 2 * d)
    with localcontext(context(2 * d)):
        return sine / cosine


def arcsine(x, d):
    with localcontext(context(2 * d + 40)):
        root = ((1 - x) * (1 + x)).sqrt()
        return arctan(x / root, d + 10)


def arccosine(x, d):
    with localcontext(context(2 * d + 40)):
        return 2 * arctan(((1 - x) / (1 + x)).sqrt(), d + 10)


def arctan2(y, x, places):
    with localcontext(context(places + 40)):
        result = arctan(y / x, places + 40)
        if x < 0:
            result += pi(places + 40).copy_sign(y)
    return rounded(result, places)


def square_root(x, places):
    """Floor of the root on integers: the decimal module always rounds its roots, which would round twice."""
    shift = 2 * (places + 20 + max(0, -exponent(x)) // 2 + 1)
    root = math.isqrt(int(x.scaleb(shift, EXACT)))
    return rounded(Decimal(root).scaleb(-shift // 2, EXACT), places)


def cube_root(x, places):
    """Floor of the root on integers, far enough down to round."""
    shift = 3 * (places + 20 + max(0, -exponent(x)) // 3)
    value = int(x.scaleb(shift, EXACT))
    root = 1 << (value.bit_length() // 3 + 1)
    while True:
        step = (2 * root + value // (root * root)) // 3
        if step >= root:
            return rounded(Decimal(root).scaleb(-shift // 3, EXACT), places)
        root = step


def squarings(a, places, n):
    """Repeated squaring with each step rounded to 8 digits more: part of the operation's contract."""
    step = context(places + 9)
    result, square, left = Decimal(1), a, abs(n)
    while left:
        if left & 1:
            result = step.plus(EXACT.multiply(result, square))
        left >>= 1
        if left:
            square = step.plus(EXACT.multiply(square, square))
    return quotient(Decimal(1), result, places + 1, ROUND_HALF_UP) if n < 0 else rounded(result, places)


def fixpt(x, places):
    result = x.quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP, EXACT)
    text = format(result, "f")
    return text if result else text.lstrip("-")


# Cases: (line, expected), where expected is a decimal or a text.

def exact_cases(rng, count):
    for _ in range(count):
        a, b = operand(rng), operand(rng)
        places = length(rng, 700)
        digits = places + 1 + max(0, exponent(a) - exponent(b))
        yield "add", 0, a, b, EXACT.add(a, b)
        yield "subtract", 0, a, b, EXACT.subtract(a, b)
        yield "multiply", 0, a, b, EXACT.multiply(a, b)
        yield "divide", places, a, b, quotient(a, b, digits, ROUND_DOWN if places <= CUT_PLACES else ROUND_HALF_UP)
        yield "reciprocal", places, a, "", quotient(Decimal(1), a, places + 1, ROUND_HALF_UP)
        whole = integer_quotient(a, b)
        yield "integer_divide", 0, a, b, whole
        yield "remainder", 0, a, b, EXACT.subtract(a, EXACT.multiply(whole, b))
        yield "round", places, a, "", rounded(a, places)
        yield "floor", 0, a, "", a.to_integral_value(ROUND_FLOOR, EXACT)
        yield "ceil", 0, a, "", a.to_integral_value(ROUND_CEILING, EXACT)
        yield "compare", 0, a, b, str(int(a.compare(b)))
        yield "fixpt", places, a, "", fixpt(a, places)
        n = rng.randint(-400, 400)
        yield "integer_pow", places, a, Decimal(n), squarings(a, places, n)
        small = operand(rng, 60)
        n = rng.randint(0, 60)
        yield "integer_pow_nr", 0, small, Decimal(n), EXACT.power(small, n)


def root_cases(rng, count):
    for _ in range(count):
        places = length(rng, 500)
        a = positive(rng)
        yield "sqrt", places, a, "", square_root(a, places)
        square = EXACT.multiply(a, a)
        yield "sqrt", places, square, "", rounded(a, places)
        yield "cbrt", places, a, "", cube_root(a, places)
        cube = positive(rng, 40)
        yield "cbrt", places, EXACT.multiply(cube, EXACT.multiply(cube, cube)), "", rounded(cube, places)


def logarithm_cases(rng, count):
    for _ in range(count):
        places = length(rng, 300)
        x = operand(rng, 150, 3)
        x = x.scaleb(-max(0, exponent(x) - 4))
        yield "exp", places, x, "", rounded(context(places + 20).exp(x), places)
        a = positive(rng, 300)
        yield "log", places, a, "", rounded(context(places + 20).ln(a), places)
        yield "log10", places, a, "", rounded(context(places + 20).log10(a), places)
        near = EXACT.add(Decimal(1), operand(rng, 30, 0).scaleb(-rng.randint(35, 80)))
        yield "log", places, near, "", rounded(context(places + 20).ln(near), places)
        base, b = positive(rng, 100, 5), between(rng, -50, 50, 100)
        with localcontext(context(places + 80)):
            power = (b * base.ln()).exp()
        if b != b.to_integral_value():
            yield "pow", places, base, b, rounded(power, places)
        y = between(rng, -30, 30, 200)
        yield "sinh", places, y, "", in_context(40, lambda v: (v.exp() - (-v).exp()) / 2)(y, places)
        yield "cosh", places, y, "", in_context(40, lambda v: (v.exp() + (-v).exp()) / 2)(y, places)
        yield "tanh", places, y, "", in_context(40, lambda v: 1 - 2 / ((2 * v).exp() + 1))(y, places)
        yield "arcsinh", places, y, "", in_context(60, lambda v: (abs(v) + (v * v + 1).sqrt()).ln().copy_sign(v))(y, places)
        z = between(rng, 1, 30, 200)
        yield "arccosh", places, z, "", in_context(400, lambda v: (v + (v * v - 1).sqrt()).ln())(z, places)
        t = between(rng, -1, 1, 200)
        yield "arctanh", places, t, "", in_context(300, lambda v: ((1 + v) / (1 - v)).ln() / 2)(t, places)


def circle_cases(rng, count):
    for _ in range(count):
        places = length(rng, 150)
        x = between(rng, -10, 10, 150) if rng.random() < 0.7 else operand(rng, 60, 12)
        yield "sin", places, x, "", with_digits(lambda v, d: sin_cos(v, d)[0])(x, places)
        yield "cos", places, x, "", with_digits(lambda v, d: sin_cos(v, d)[1])(x, places)
        yield "tan", places, x, "", with_digits(tangent)(x, places)
        yield "arctan", places, x, "", with_digits(arctan)(x, places)
        t = between(rng, -1, 1, 150)
        yield "arcsin", places, t, "", with_digits(arcsine)(t, places)
        yield "arccos", places, t, "", with_digits(arccosine)(t, places)
        y = between(rng, -10, 10, 150)
        yield "arctan2", places, y, x, arctan2(y, x, places)


def factorial_cases():
    product = 1
    for n in range(0, 301):
        product *= max(1, n)
        yield "factorial", 0, Decimal(n), "", Decimal(product)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("calculator")
    parser.add_argument("--seed", type=int, default=20_001)
    parser.add_argument("--scale", type=int, default=1)
    options = parser.parse_args()
    print(f"seed {options.seed}, scale {options.scale}")
    rng = random.Random(options.seed)

    cases = []
    cases.extend(exact_cases(rng, 300 * options.scale))
    cases.extend(root_cases(rng, 100 * options.scale))
    cases.extend(logarithm_cases(rng, 60 * options.scale))
    cases.extend(circle_cases(rng, 60 * options.scale))
    cases.extend(factorial_cases())
    lines = [" ".join(map(str, case[:4])) for case in cases]
    run = subprocess.run([options.calculator], input="\n".join(lines) + "\n", capture_output=True, text=True)
    results = run.stdout.splitlines()
    failures = 0
    if run.returncode != 0 or len(results) != len(cases):
        print(f"the calculator ended with {run.returncode} after {len(results)} of {len(cases)} lines\n{run.stderr}")
        failures = 1
    counts = {}
    for line, case, result in zip(lines, cases, results):
        expected = case[4]
        counts[case[0]] = counts.get(case[0], 0) + 1
        same = result == expected if isinstance(expected, str) else EXACT.compare(Decimal(result), expected) == 0
        if not same:
            failures += 1
            if failures <= 10:
                print(f"FAILED {line[:400]}\n  expected {str(expected)[:700]}\n  got      {result[:700]}")
    print(", ".join(f"{name} {count}" for name, count in sorted(counts.items())))
    print(f"{len(cases)} cases, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
