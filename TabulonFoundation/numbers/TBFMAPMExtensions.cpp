#include "numbers/TBFMAPMExtensions.h"

#include "numbers/Decimal.h"
#include "numbers/KernelConstants.h"
#include "numbers/KernelLock.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

using TBF::Decimal;
using TBF::kernelConstants;
using TBF::KernelLock;

namespace {

// Sign, point, a leading zero, the terminator and 100 decimals, with a byte to spare.
constexpr int plainTextAllowance = 105;

struct Constants {
    Decimal half{"0.5"};
    Decimal hundredth{"0.01"};
    Decimal halfTurn{180};
    Decimal hundred{100};
};

} // namespace

M_APM TBF_MAPM_0_5() {
    return kernelConstants<Constants>().half;
}

M_APM TBF_MAPM_0_01() {
    return kernelConstants<Constants>().hundredth;
}

M_APM TBF_MAPM_180() {
    return kernelConstants<Constants>().halfTurn;
}

M_APM TBF_MAPM_100() {
    return kernelConstants<Constants>().hundred;
}

void TBFMAPMExtensionsInit() {
    kernelConstants<Constants>();
}

void TBF_mapm_round(M_APM result, int, M_APM_const x) {
    // Half a unit further from zero, then cut toward zero.
    if (m_apm_sign(x) < 0) {
        m_apm_subtract(result, x, TBF_MAPM_0_5());
        m_apm_ceil(result, result);
    } else {
        m_apm_add(result, x, TBF_MAPM_0_5());
        m_apm_floor(result, result);
    }
}

void TBF_mapm_round_mt(M_APM result, int places, M_APM_const x) {
    const KernelLock lock;
    TBF_mapm_round(result, places, x);
}

std::string TBF_mapm_to_fitted_string(M_APM_const x, int places) {
    if (!x) return {};
    const KernelLock lock;
    const int64_t decimals = TBF_mapm_decimals(x);
    if (places > decimals) places = static_cast<int>(decimals);
    std::string text(static_cast<std::size_t>(m_apm_fixpt_length(places, x)) + 1, '\0');
    m_apm_to_fixpt_string(text.data(), places, x);
    text.resize(text.find('\0'));
    // What wasn't rounded ends with a digit other than 0.
    if (places == decimals || places == 0) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

int64_t TBF_mapm_decimals(M_APM_const x) {
    if (!x || m_apm_sign(x) == 0) return 0;
    return std::max<int64_t>(0, int64_t{m_apm_significant_digits(x)} - 1 - m_apm_exponent(x));
}

int TBF_mapm_buffer_size(M_APM_const x) {
    if (!x) return 0;
    const int64_t size =
        int64_t{m_apm_significant_digits(x)} + std::abs(int64_t{m_apm_exponent(x)}) + plainTextAllowance;
    return static_cast<int>(std::min<int64_t>(size, std::numeric_limits<int>::max()));
}

void TBF_mapm_truncate_tiny_number(M_APM x, int precision, bool alreadyLocked) {
    if (!alreadyLocked) {
        const KernelLock lock;
        TBF_mapm_truncate_tiny_number(x, precision, true);
        return;
    }
    if (m_apm_exponent(x) < -precision) m_apm_set_long(x, 0);
}
