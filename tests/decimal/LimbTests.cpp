// The limb arithmetic under the kernel: each fast algorithm against the plain one, at the lengths around the
// crossovers and with the limbs where carries run furthest.

#include "KernelValue.h"
#include "limbs.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using mapm::kBase;
using mapm::Limb;
using Limbs = std::vector<Limb>;

constexpr unsigned kSeed = 4711;

enum class Pattern : int { Random = 0, Nines = 1, Sparse = 2 };

Limbs makeLimbs(std::mt19937_64& random, std::size_t n, Pattern pattern) {
    Limbs result(n);
    for (Limb& limb : result) {
        const Limb any = random() % kBase;
        if (pattern == Pattern::Random)
            limb = any;
        else if (pattern == Pattern::Nines)
            limb = kBase - 1;
        else
            limb = any % 3 == 0 ? 0 : (any % 3 == 1 ? kBase - 1 : any);
    }
    if (result.back() == 0) result.back() = 1 + random() % (kBase - 1);
    return result;
}

Limbs schoolbook(const Limbs& a, const Limbs& b) {
    Limbs result(a.size() + b.size(), 0);
    for (std::size_t i = 0; i < a.size(); ++i) {
        Limb carry = 0;
        for (std::size_t k = 0; k < b.size(); ++k) {
            const auto step =
                mapm::divideProductByBase(static_cast<mapm::Wide>(a[i]) * b[k] + result[i + k] + carry);
            result[i + k] = step.remainder;
            carry = step.quotient;
        }
        result[i + b.size()] = carry;
    }
    return result;
}

TEST(KernelLimbs, ProductsOfEveryAlgorithmAgreeWithSchoolbook) {
    std::mt19937_64 random(kSeed);
    const std::pair<std::size_t, std::size_t> lengths[] = {
        {1, 1},   {7, 7},    {16, 16},   {17, 16},   {33, 17},   {39, 39},   {40, 40},   {41, 40},
        {81, 79}, {200, 45}, {511, 511}, {512, 512}, {513, 512}, {700, 530}, {2100, 520}};
    for (const auto& [na, nb] : lengths) {
        for (const Pattern pattern : {Pattern::Random, Pattern::Nines, Pattern::Sparse}) {
            const Limbs a = makeLimbs(random, na, pattern);
            const Limbs b = makeLimbs(random, nb, pattern);
            const Limbs expected = schoolbook(a, b);
            Limbs r(na + nb);
            mapm::multiply(r.data(), a.data(), na, b.data(), nb);
            EXPECT_EQ(r, expected) << na << " x " << nb;
            mapm::multiplyByTransform(r.data(), b.data(), nb, a.data(), na);
            EXPECT_EQ(r, expected) << na << " x " << nb << " by transform";
        }
        const Limbs a = makeLimbs(random, na, Pattern::Random);
        Limbs square(2 * na);
        mapm::multiply(square.data(), a.data(), na, a.data(), na);
        EXPECT_EQ(square, schoolbook(a, a)) << na << " squared";
    }
}

TEST(KernelLimbs, GreatProductsAgreeWithTheirResidues) {
    // Modulo base - 1 a number is the sum of its limbs.
    const auto residue = [](const Limbs& limbs) {
        mapm::Wide sum = 0;
        for (const Limb limb : limbs)
            sum += limb;
        return static_cast<Limb>(sum % (kBase - 1));
    };
    std::mt19937_64 random(kSeed);
    for (const std::size_t n : {std::size_t{5000}, std::size_t{40000}}) {
        for (const Pattern pattern : {Pattern::Random, Pattern::Nines}) {
            const Limbs a = makeLimbs(random, n, pattern);
            const Limbs b = makeLimbs(random, n, pattern);
            Limbs r(2 * n);
            mapm::multiply(r.data(), a.data(), n, b.data(), n);
            const auto expected = static_cast<mapm::Wide>(residue(a)) * residue(b) % (kBase - 1);
            EXPECT_EQ(residue(r), static_cast<Limb>(expected)) << n;
        }
    }
}

// a = q b + r with r < b.
void expectDivision(const Limbs& a, const Limbs& b) {
    Limbs rest = a;
    Limbs q(a.size() - b.size() + 1);
    mapm::divide(q.data(), rest.data(), rest.size(), b.data(), b.size());
    EXPECT_LT(mapm::compare(rest.data(), b.data(), b.size()), 0);
    EXPECT_EQ(mapm::trimmed(rest.data(), rest.size()), mapm::trimmed(rest.data(), b.size()));
    Limbs back(q.size() + b.size());
    mapm::multiply(back.data(), q.data(), q.size(), b.data(), b.size());
    const Limb carry = mapm::add(back.data(), back.data(), back.size(), rest.data(), b.size());
    EXPECT_EQ(carry, 0U);
    back.resize(a.size());
    EXPECT_EQ(back, a) << a.size() << " / " << b.size();
}

TEST(KernelLimbs, QuotientTimesDivisorPlusRemainderIsTheDividend) {
    std::mt19937_64 random(kSeed);
    const std::pair<std::size_t, std::size_t> lengths[] = {{1, 1},     {5, 1},      {2, 2},     {9, 4},
                                                           {14, 7},    {130, 64},   {200, 70},  {150, 130},
                                                           {400, 100}, {1000, 301}, {700, 600}, {2000, 999}};
    for (const auto& [na, nb] : lengths) {
        for (const Pattern first : {Pattern::Random, Pattern::Nines, Pattern::Sparse}) {
            for (const Pattern second : {Pattern::Random, Pattern::Nines, Pattern::Sparse})
                expectDivision(makeLimbs(random, na, first), makeLimbs(random, nb, second));
        }
        // A dividend just below a multiple of the divisor, whose top repeats the divisor's.
        const Limbs b = makeLimbs(random, nb, Pattern::Sparse);
        const Limbs q(na - nb + 1, kBase - 1);
        Limbs a = schoolbook(q, b);
        mapm::decrement(a.data(), a.size(), 1);
        expectDivision(a, b);
    }
}

TEST(KernelLimbs, RootsAreFloors) {
    std::mt19937_64 random(kSeed);
    for (const std::size_t n : {1U, 2U, 3U, 5U, 7U, 8U, 31U, 130U, 301U}) {
        for (const Pattern pattern : {Pattern::Random, Pattern::Nines, Pattern::Sparse}) {
            const Limbs a = makeLimbs(random, 2 * n, pattern);
            Limbs work = a;
            Limbs root(n);
            mapm::squareRoot(root.data(), work.data(), n);
            const Limbs square = schoolbook(root, root);
            EXPECT_LE(mapm::compare(square.data(), a.data(), 2 * n), 0) << n;
            Limbs next = root;
            next.push_back(mapm::increment(next.data(), n, 1));
            Limbs above = schoolbook(next, next);
            Limbs padded = a;
            padded.resize(above.size(), 0);
            EXPECT_GT(mapm::compare(above.data(), padded.data(), above.size()), 0) << n;
        }
        // A square less one has the root less one: the deepest borrow.
        const Limbs root = makeLimbs(random, n, Pattern::Nines);
        Limbs square = schoolbook(root, root);
        mapm::decrement(square.data(), square.size(), 1);
        Limbs found(n);
        mapm::squareRoot(found.data(), square.data(), n);
        mapm::increment(found.data(), n, 1);
        EXPECT_EQ(found, root) << n;
    }
}

} // namespace
