// Multiplication by convolution modulo three primes just below 2^62. The transform splits x^N - c^2 into
// (x^(N/2) - c)(x^(N/2) + c) down to linear factors and leaves its values in bit-reversed order, in which the
// inverse takes them: no reordering pass, and the roots' table in bit-reversed order is the same for every N.
// Values stay below 4p between the passes and are reduced at the end only.

#include "limbs.h"
#include "scratch.h"

#include <cstdlib>

namespace mapm {

namespace {

struct Prime {
    Limb p;
    // A generator of the multiplicative group; p - 1 is divisible by 2^40.
    Limb generator;
};

constexpr Prime kPrimes[3] = {
    {4'611'615'649'683'210'241U, 11},
    {4'611'549'678'985'543'681U, 19},
    {4'611'546'380'450'660'353U, 5},
};

constexpr Limb multiplyModulo(Limb a, Limb b, Limb p) {
    return static_cast<Limb>(static_cast<Wide>(a) * b % p);
}

constexpr Limb powerModulo(Limb base, Limb exponent, Limb p) {
    Limb result = 1;
    for (; exponent != 0; exponent >>= 1) {
        if ((exponent & 1) != 0) result = multiplyModulo(result, base, p);
        base = multiplyModulo(base, base, p);
    }
    return result;
}

constexpr Limb inverseModulo(Limb a, Limb p) {
    return powerModulo(a, p - 2, p);
}

// -p^-1 modulo 2^64, by Newton's iteration.
constexpr Limb negativeInverse(Limb p) {
    Limb inverse = p;
    for (int i = 0; i < 6; ++i)
        inverse *= 2 - p * inverse;
    return 0 - inverse;
}

inline Limb highWord(Limb a, Limb b) {
    return static_cast<Limb>((static_cast<Wide>(a) * b) >> 64);
}

// A fixed factor w with floor(w 2^64 / p): its products need no division.
struct Factor {
    Limb w;
    Limb quotient;
};

inline Factor makeFactor(Limb w, Limb p) {
    return {w, divideWide(static_cast<Wide>(w) << 64, p).quotient};
}

constexpr Factor makeConstantFactor(Limb w, Limb p) {
    return {w, static_cast<Limb>((static_cast<Wide>(w) << 64) / p)};
}

// x * w modulo p, below 2p, for any x.
inline Limb timesFactor(Limb x, Factor f, Limb p) {
    return x * f.w - highWord(x, f.quotient) * p;
}

// The roots of one prime in bit-reversed order; root j serves block j of every pass.
struct RootTable {
    Factor* roots = nullptr;
    std::size_t count = 0;
};

RootTable rootTables[3];

// Tables beyond this length are freed after use.
constexpr std::size_t kKeptRoots = 1U << 17;

void growRootTable(int index, std::size_t count) {
    RootTable& table = rootTables[index];
    if (table.count >= count) return;
    const auto [p, generator] = kPrimes[index];
    void* grown = std::realloc(table.roots, count * sizeof(Factor));
    if (grown == nullptr) M_apm_log_error_msg(true, "'M_fast_mul_fft', Out of memory");
    table.roots = static_cast<Factor*>(grown);
    if (table.count == 0) {
        table.roots[0] = makeFactor(1, p);
        table.count = 1;
    }
    // Entry n + i is entry i times a primitive root of unity of order 4n.
    for (; table.count < count; table.count *= 2) {
        const Factor step = makeFactor(powerModulo(generator, (p - 1) / (4 * table.count), p), p);
        for (std::size_t i = 0; i < table.count; ++i) {
            const Limb root = timesFactor(table.roots[i].w, step, p);
            table.roots[table.count + i] = makeFactor(root >= p ? root - p : root, p);
        }
    }
}

template <int index>
class Transform {
public:
    static constexpr Limb p = kPrimes[index].p;
    static constexpr Limb twoP = 2 * p;

    explicit Transform(std::size_t length)
        : length_(length) {
        growRootTable(index, length / 2);
        roots_ = rootTables[index].roots;
    }

    // Values below p to values below 4p in bit-reversed order. Two passes are done at once where both are
    // there.
    void forward(Limb* x) const {
        std::size_t blocks = 1;
        std::size_t half = length_ / 2;
        for (; half >= 2; blocks *= 4, half /= 4)
            forwardTwoPasses(x, blocks, half / 2);
        if (half == 1) {
            for (std::size_t j = 0; j < blocks; ++j)
                forwardButterfly(x[2 * j], x[2 * j + 1], roots_[j]);
        }
    }

    // Values below 2p in bit-reversed order to values below 2p, times the length.
    void inverse(Limb* x) const {
        std::size_t half = 1;
        std::size_t blocks = length_ / 2;
        if (__builtin_ctzll(length_) % 2 == 1) {
            inverseFirst(x, blocks);
            half = 2;
            blocks /= 2;
        }
        for (; blocks >= 2; half *= 4, blocks /= 4)
            inverseTwoPasses(x, blocks / 2, half);
    }

    // x = x * y / 2^64, below 2p.
    void multiplyPointwise(Limb* x, const Limb* y) const {
        for (std::size_t i = 0; i < length_; ++i) {
            const Wide product = static_cast<Wide>(reduceOnce(x[i])) * reduceOnce(y[i]);
            const Limb multiple = static_cast<Limb>(product) * kNegativeInverse;
            x[i] = static_cast<Limb>((product + static_cast<Wide>(multiple) * p) >> 64);
        }
    }

    // Undoes the factor of the inverse and of the pointwise product; values below p.
    void scale(Limb* x) const {
        const Limb twoTo64 = static_cast<Limb>((static_cast<Wide>(1) << 64) % p);
        const Factor factor = makeFactor(multiplyModulo(inverseModulo(length_, p), twoTo64, p), p);
        for (std::size_t i = 0; i < length_; ++i) {
            const Limb value = timesFactor(x[i], factor, p);
            x[i] = value >= p ? value - p : value;
        }
    }

private:
    static constexpr Limb kNegativeInverse = negativeInverse(p);

    static Limb reduceOnce(Limb x) { return x >= twoP ? x - twoP : x; }

    static void forwardButterfly(Limb& u, Limb& v, Factor root) {
        const Limb reduced = reduceOnce(u);
        const Limb turned = timesFactor(v, root, p);
        u = reduced + turned;
        v = reduced - turned + twoP;
    }

    // The root here is minus the inverse of the block's root: v - u stands for -(u - v).
    static void inverseButterfly(Limb& u, Limb& v, Factor negatedInverse) {
        const Limb sum = u + v;
        v = timesFactor(v - u + twoP, negatedInverse, p);
        u = reduceOnce(sum);
    }

    static void inverseButterflyByOne(Limb& u, Limb& v) {
        const Limb sum = u + v;
        v = reduceOnce(u - v + twoP);
        u = reduceOnce(sum);
    }

    void forwardTwoPasses(Limb* x, std::size_t blocks, std::size_t quarter) const {
        for (std::size_t j = 0; j < blocks; ++j) {
            const Factor outer = roots_[j];
            const Factor left = roots_[2 * j];
            const Factor right = roots_[2 * j + 1];
            Limb* x0 = x + 4 * quarter * j;
            Limb* x1 = x0 + quarter;
            Limb* x2 = x1 + quarter;
            Limb* x3 = x2 + quarter;
            for (std::size_t i = 0; i < quarter; ++i) {
                Limb a = x0[i];
                Limb b = x1[i];
                Limb c = x2[i];
                Limb d = x3[i];
                forwardButterfly(a, c, outer);
                forwardButterfly(b, d, outer);
                forwardButterfly(a, b, left);
                forwardButterfly(c, d, right);
                x0[i] = a;
                x1[i] = b;
                x2[i] = c;
                x3[i] = d;
            }
        }
    }

    // Minus the inverse of root j is the mirrored root of j's power-of-two range.
    Factor negatedInverse(std::size_t j) const {
        const std::size_t range = std::size_t{1} << (63 - __builtin_clzll(j));
        return roots_[3 * range - 1 - j];
    }

    void inverseFirst(Limb* x, std::size_t blocks) const {
        inverseButterflyByOne(x[0], x[1]);
        for (std::size_t j = 1; j < blocks; ++j)
            inverseButterfly(x[2 * j], x[2 * j + 1], negatedInverse(j));
    }

    void inverseTwoPasses(Limb* x, std::size_t blocks, std::size_t quarter) const {
        const Factor right0 = negatedInverse(1);
        for (std::size_t i = 0; i < quarter; ++i) {
            inverseButterflyByOne(x[i], x[quarter + i]);
            inverseButterfly(x[2 * quarter + i], x[3 * quarter + i], right0);
            inverseButterflyByOne(x[i], x[2 * quarter + i]);
            inverseButterflyByOne(x[quarter + i], x[3 * quarter + i]);
        }
        for (std::size_t j = 1; j < blocks; ++j) {
            const Factor outer = negatedInverse(j);
            const Factor left = negatedInverse(2 * j);
            const Factor right = negatedInverse(2 * j + 1);
            Limb* x0 = x + 4 * quarter * j;
            Limb* x1 = x0 + quarter;
            Limb* x2 = x1 + quarter;
            Limb* x3 = x2 + quarter;
            for (std::size_t i = 0; i < quarter; ++i) {
                Limb a = x0[i];
                Limb b = x1[i];
                Limb c = x2[i];
                Limb d = x3[i];
                inverseButterfly(a, b, left);
                inverseButterfly(c, d, right);
                inverseButterfly(a, c, outer);
                inverseButterfly(b, d, outer);
                x0[i] = a;
                x1[i] = b;
                x2[i] = c;
                x3[i] = d;
            }
        }
    }

    std::size_t length_;
    const Factor* roots_;
};

// Limbs are below every prime, so that they need no reduction on the way in.
void loadPadded(Limb* x, const Limb* a, std::size_t n, std::size_t length) {
    copy(x, a, n);
    clear(x + n, length - n);
}

struct Operands {
    const Limb* a;
    std::size_t na;
    const Limb* b;
    std::size_t nb;
};

// residues = the convolution modulo one prime; work has `length` limbs.
template <int index>
void convolve(Limb* residues, Limb* work, const Operands& operands, std::size_t length) {
    const Transform<index> transform(length);
    loadPadded(residues, operands.a, operands.na, length);
    transform.forward(residues);
    if (operands.a == operands.b && operands.na == operands.nb) {
        transform.multiplyPointwise(residues, residues);
    } else {
        loadPadded(work, operands.b, operands.nb, length);
        transform.forward(work);
        transform.multiplyPointwise(residues, work);
    }
    transform.inverse(residues);
    transform.scale(residues);
}

// Joins the residues to columns of up to 186 bits and carries them through the base.
void joinResidues(Limb* r, std::size_t count, const Limb* r0, const Limb* r1, const Limb* r2) {
    constexpr Limb p0 = kPrimes[0].p;
    constexpr Limb p1 = kPrimes[1].p;
    constexpr Limb p2 = kPrimes[2].p;
    constexpr Factor inverse01 = makeConstantFactor(inverseModulo(p0 % p1, p1), p1);
    constexpr Factor inverse02 = makeConstantFactor(inverseModulo(p0 % p2, p2), p2);
    constexpr Factor inverse12 = makeConstantFactor(inverseModulo(p1 % p2, p2), p2);
    constexpr Wide p01 = static_cast<Wide>(p0) * p1;
    constexpr Limb p01Low = static_cast<Limb>(p01);
    constexpr Limb p01High = static_cast<Limb>(p01 >> 64);

    Wide carry = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Limb k1 = timesFactor(r1[i] + 2 * p1 - r0[i], inverse01, p1);
        if (k1 >= p1) k1 -= p1;
        const Limb k2Start = timesFactor(r2[i] + 2 * p2 - r0[i], inverse02, p2);
        Limb k2 = timesFactor(k2Start + 2 * p2 - k1, inverse12, p2);
        if (k2 >= p2) k2 -= p2;

        // low + high 2^64 = r0 + p0 k1 + p0 p1 k2 + carry.
        const Wide part = static_cast<Wide>(p0) * k1 + r0[i];
        Wide low = static_cast<Wide>(p01Low) * k2 + static_cast<Limb>(part);
        Wide high =
            static_cast<Wide>(p01High) * k2 + static_cast<Limb>(part >> 64) + static_cast<Limb>(low >> 64);
        low = static_cast<Wide>(static_cast<Limb>(low)) + static_cast<Limb>(carry);
        high += static_cast<Limb>(carry >> 64);
        high += static_cast<Limb>(low >> 64);

        const WideQuotient upper = divideByBase(high);
        const WideQuotient lower =
            divideWide((static_cast<Wide>(upper.remainder) << 64) + static_cast<Limb>(low), kBase);
        r[i] = lower.remainder;
        carry = (static_cast<Wide>(upper.quotient) << 64) + lower.quotient;
    }
}

} // namespace

void multiplyByTransform(Limb* r, const Limb* a, std::size_t na, const Limb* b, std::size_t nb) {
    std::size_t length = 4;
    while (length < na + nb)
        length *= 2;
    if (length > (std::size_t{1} << 31))
        M_apm_log_error_msg(true, "'M_next_power_of_2', ERROR :sizeof(int) too small ??");

    Scratch scratch;
    Limb* residues[3];
    for (Limb*& residue : residues)
        residue = scratch.take(length);
    Limb* work = scratch.take(length);
    const Operands operands{a, na, b, nb};
    convolve<0>(residues[0], work, operands, length);
    convolve<1>(residues[1], work, operands, length);
    convolve<2>(residues[2], work, operands, length);
    joinResidues(r, na + nb, residues[0], residues[1], residues[2]);
    if (length > 2 * kKeptRoots) freeTransformTables();
}

void freeTransformTables() {
    for (RootTable& table : rootTables) {
        std::free(table.roots);
        table = RootTable{};
    }
}

} // namespace mapm
