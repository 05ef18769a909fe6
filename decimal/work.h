#pragma once

// What the kernel's operations count as work: estimates from the lengths of the operands, in whole numbers,
// the same on every machine. Lengths count limbs.

#include "m_apm_fields.h"
#include "m_apm_work.h"

#include <algorithm>

namespace mapm {

// Operations on so many limbs in all are free: twice what values of the usual precision and their products
// have, with room.
inline constexpr std::size_t kFreeLimbs = 64;

std::int64_t stepsOfProduct(std::size_t na, std::size_t nb);
std::int64_t stepsOfQuotient(std::size_t nq, std::size_t nb);
std::int64_t stepsOfFactorial(Limb n); // without its products
std::int64_t stepsOfSeries(std::int64_t digits);

inline bool chargeLinear(std::size_t n) {
    return n <= kFreeLimbs || m_apm_charge(static_cast<std::int64_t>(n));
}

inline bool chargeProduct(std::size_t na, std::size_t nb) {
    return na + nb <= kFreeLimbs || m_apm_charge(stepsOfProduct(na, nb));
}

inline bool chargeQuotient(std::size_t nq, std::size_t nb) {
    return nq + nb <= kFreeLimbs || m_apm_charge(stepsOfQuotient(nq, nb));
}

// The work of a function of many steps, counted at once and before it begins, from the digits that it works
// with and the length of its argument: 0 is an argument or a result that not every step could bear. What the
// steps do isn't counted again, so it doesn't matter which of them find a constant ready.
class FunctionWork {
public:
    // `moreDigits` are those that it takes on top of `places`.
    FunctionWork(std::int64_t places, M_APM_const argument, std::int64_t moreDigits = 0) {
        if (places + moreDigits > kFreeDigits || limbCount(argument) > kFreeLimbs)
            begin(places + moreDigits, limbCount(argument));
    }
    ~FunctionWork() {
        if (counts_) m_apm_work = saved_;
    }
    FunctionWork(const FunctionWork&) = delete;
    FunctionWork& operator=(const FunctionWork&) = delete;

    bool isAllowed() const { return allowed_; }

private:
    static constexpr std::int64_t kFreeDigits = std::int64_t{kFreeLimbs} * kLimbDigits;

    void begin(std::int64_t digits, std::size_t argumentLimbs);

    bool counts_ = false;
    bool allowed_ = true;
    M_APM_work saved_;
};

} // namespace mapm
