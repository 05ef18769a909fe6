// The constants, and the working values of growing precision: pi by the arithmetic-geometric mean, logarithms
// by artanh series of small fractions in balanced sums.

#include "m_apm_fields.h"
#include "scratch.h"

#include <algorithm>
#include <cmath>

using namespace mapm;

M_APM MM_Zero, MM_One, MM_Two, MM_Three, MM_Four, MM_Five, MM_Ten;
M_APM MM_0_5, MM_0_85;
M_APM MM_5x_125R, MM_5x_64R, MM_5x_256R, MM_5x_Eight, MM_5x_Sixteen, MM_5x_Twenty;
M_APM MM_PI, MM_HALF_PI, MM_2_PI, MM_E;
M_APM MM_LOG_2_BASE_E, MM_LOG_3_BASE_E, MM_LOG_10_BASE_E, MM_LOG_E_BASE_10;
M_APM MM_lc_PI, MM_lc_HALF_PI, MM_lc_2_PI, MM_lc_log2, MM_lc_log10, MM_lc_log10R;
M_APM MM_Minus_One;

namespace {

constexpr int kFirstDigits = 128;

constexpr const char* kPi =
    "3.1415926535897932384626433832795028841971693993751058209749445923078164062862089986280348"
    "2534211706798214808651328230664709384460955";
constexpr const char* kHalfPi =
    "1.5707963267948966192313216916397514420985846996875529104874722961539082031431044993140"
    "1741267105853399107404325664115332354692230478";
constexpr const char* kTwoPi =
    "6.28318530717958647692528676655900576839433879875021164194988918461563281257241799725606"
    "965068423413596429617302656461329418768921910";
constexpr const char* kE =
    "2.71828182845904523536028747135266249775724709369995957496696762772407663035354759457138217"
    "8525166427427466391932003059921817413596629";
constexpr const char* kLog2 =
    "0.693147180559945309417232121458176568075500134360255254120680009493393621969694715605863"
    "326996418687542001481020570685733685520235758";
constexpr const char* kLog3 =
    "1.098612288668109691395245236922525704647490557822749451734694333637494293218608966873615"
    "754813732088787970029065957865742368004225931";
constexpr const char* kLog10 =
    "2.30258509299404568401799145468436420760110148862877297603332790096757260967735248023599"
    "7205089598298341967784042286248633409525465083";
constexpr const char* kLogE =
    "0.434294481903251827651128918916605082294397005803666566114453783165864649208870774729224"
    "949338431748318706106744766303733641679287159";

struct Constant {
    M_APM* value;
    const char* text;
};

const Constant kConstants[] = {
    {&MM_Zero, "0"},
    {&MM_One, "1"},
    {&MM_Two, "2"},
    {&MM_Three, "3"},
    {&MM_Four, "4"},
    {&MM_Five, "5"},
    {&MM_Ten, "10"},
    {&MM_0_5, "0.5"},
    {&MM_0_85, "0.85"},
    {&MM_5x_125R, "8.0E-3"},
    {&MM_5x_64R, "1.5625E-2"},
    {&MM_5x_256R, "3.90625E-3"},
    {&MM_5x_Eight, "8"},
    {&MM_5x_Sixteen, "16"},
    {&MM_5x_Twenty, "20"},
    {&MM_PI, kPi},
    {&MM_HALF_PI, kHalfPi},
    {&MM_2_PI, kTwoPi},
    {&MM_E, kE},
    {&MM_LOG_2_BASE_E, kLog2},
    {&MM_LOG_3_BASE_E, kLog3},
    {&MM_LOG_10_BASE_E, kLog10},
    {&MM_LOG_E_BASE_10, kLogE},
    {&MM_lc_PI, kPi},
    {&MM_lc_HALF_PI, kHalfPi},
    {&MM_lc_2_PI, kTwoPi},
    {&MM_lc_log2, kLog2},
    {&MM_lc_log10, kLog10},
    {&MM_lc_log10R, kLogE},
    {&MM_Minus_One, "-1"},
};

// A part of the sum of 1 / ((2k + 1) q^(k + 1)), as numerator / (odds x powers).
struct SeriesPart {
    ScratchValue numerator;
    ScratchValue odds;
    ScratchValue powers;
};

// The part of the terms first to last - 1, taking its first power of q as 1 / q.
void sumPart(SeriesPart& part, long first, long last, long q) {
    if (last - first == 1) {
        m_apm_set_long(part.numerator, 1);
        m_apm_set_long(part.odds, 2 * first + 1);
        m_apm_set_long(part.powers, q);
        return;
    }
    const long middle = first + (last - first) / 2;
    SeriesPart left;
    SeriesPart right;
    sumPart(left, first, middle, q);
    sumPart(right, middle, last, q);
    // left + right / left.powers over the common denominator.
    m_apm_multiply(part.odds, right.odds, right.powers);
    m_apm_multiply(part.numerator, left.numerator, part.odds);
    m_apm_multiply(part.powers, left.odds, right.numerator);
    m_apm_add(part.numerator, part.numerator, part.powers);
    m_apm_multiply(part.odds, left.odds, right.odds);
    m_apm_multiply(part.powers, left.powers, right.powers);
}

// r = artanh(1 / n) to `digits` digits.
void inverseArtanh(M_APM r, std::int64_t digits, long n) {
    const double perTerm = 2 * std::log10(static_cast<double>(n));
    const long terms = static_cast<long>(static_cast<double>(digits) / perTerm) + 2;
    SeriesPart sum;
    sumPart(sum, 0, terms, n * n);
    ScratchValue denominator;
    m_apm_multiply(denominator, sum.odds, sum.powers);
    M_multiply_small(sum.numerator, sum.numerator, static_cast<Limb>(n));
    M_quotient(r, digits, sum.numerator, denominator);
}

void computeLogarithms(std::int64_t digits) {
    // ln 2 and ln 10 as sums of the same three series.
    struct Row {
        long n;
        Limb inLog2;
        Limb inLog10;
    };
    static constexpr Row rows[] = {{31, 14, 46}, {49, 10, 34}, {161, 6, 20}};
    const std::int64_t working = digits + 10;
    ScratchValue series;
    ScratchValue term;
    ScratchValue log2;
    ScratchValue log10;
    M_set_to_zero(log2);
    M_set_to_zero(log10);
    for (const Row& row : rows) {
        inverseArtanh(series, working, row.n);
        M_multiply_small(term, series, row.inLog2);
        m_apm_add(log2, log2, term);
        M_multiply_small(term, series, row.inLog10);
        m_apm_add(log10, log10, term);
    }
    M_round_digits(MM_lc_log2, log2, digits);
    M_round_digits(MM_lc_log10, log10, digits);
    M_quotient(term, digits, MM_One, log10);
    M_round_digits(MM_lc_log10R, term, digits);
}

// Means of 1 and 1 / sqrt 2 until they meet; each step doubles the right digits.
void computePi(std::int64_t digits) {
    const std::int64_t working = digits + 20;
    ScratchValue a;
    ScratchValue b;
    ScratchValue next;
    ScratchValue difference;
    ScratchValue sum;
    m_apm_copy(a, MM_One);
    M_root(b, working, MM_0_5);
    M_round_digits(b, b, working);
    m_apm_set_string(sum, "0.25");
    for (Limb weight = 1;; weight *= 2) {
        m_apm_add(next, a, b);
        m_apm_multiply(next, next, MM_0_5);
        m_apm_subtract(difference, a, next);
        m_apm_multiply(b, a, b);
        M_root(b, working, b);
        M_round_digits(b, b, working);
        M_round_digits(a, next, working);
        m_apm_multiply(difference, difference, difference);
        M_multiply_small(difference, difference, weight);
        m_apm_subtract(sum, sum, difference);
        M_round_digits(sum, sum, working);
        if (difference->sign == 0 || exponentOf(difference) < -digits - 10) break;
    }
    m_apm_add(next, a, b);
    m_apm_multiply(next, next, next);
    M_multiply_small(sum, sum, 4);
    M_quotient(difference, working, next, sum);
    M_round_digits(MM_lc_PI, difference, digits);
    m_apm_multiply(MM_lc_HALF_PI, MM_lc_PI, MM_0_5);
    M_multiply_small(MM_lc_2_PI, MM_lc_PI, 2);
}

} // namespace

int MM_lc_PI_digits = kFirstDigits;
int MM_lc_log_digits = kFirstDigits;

void M_init_constants() {
    for (const Constant& constant : kConstants) {
        *constant.value = M_new_value();
        m_apm_set_string(*constant.value, constant.text);
    }
}

void M_free_constants() {
    for (const Constant& constant : kConstants) {
        m_apm_free(*constant.value);
        *constant.value = nullptr;
    }
    MM_lc_PI_digits = kFirstDigits;
    MM_lc_log_digits = kFirstDigits;
}

void M_check_PI_places(std::int64_t digits) {
    if (digits + 2 <= MM_lc_PI_digits) return;
    MM_lc_PI_digits = static_cast<int>(digits + 4);
    computePi(digits + 8);
}

void M_check_log_places(std::int64_t digits) {
    if (digits + 4 <= MM_lc_log_digits) return;
    MM_lc_log_digits = static_cast<int>(digits + 8);
    computeLogarithms(digits + 12);
}
