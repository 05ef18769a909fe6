#include "numbers/Number.h"

#include "numbers/KernelConstants.h"
#include "numbers/KernelLock.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace TBF {

namespace {

constexpr int doubleTextPlaces = 8;         // nine significant digits
constexpr int scientificTextAllowance = 20; // sign, point, exponent and terminator

struct Constants {
    Ref<Number> zero = Number::create(0, TBFNumberTypeDecimal);
    Ref<Number> one = Number::create(1, TBFNumberTypeDecimal);
    Ref<Number> notANumber = Number::create(TBFNumberSpecialTypeNaN);
    Ref<Number> infinity = Number::create(TBFNumberSpecialTypeInfinity);
    Ref<Number> negativeInfinity = Number::create(TBFNumberSpecialTypeNegativeInfinity);
};

} // namespace

Number::Number(Decimal&& value, TBFNumberType type) noexcept
    : numberType(type)
    , numberSpecialType(TBFNumberSpecialTypeNone)
    , digits(std::move(value)) {}

Number::Number(TBFNumberSpecialType specialType) noexcept
    : numberType(TBFNumberTypeSpecial)
    , numberSpecialType(specialType)
    , digits(nullptr) {}

Ref<Number> Number::create(M_APM_const value, TBFNumberType type) {
    return make<Number>(Decimal::copyOf(value), type);
}

Ref<Number> Number::create(Decimal&& value, TBFNumberType type) {
    return make<Number>(std::move(value), type);
}

Ref<Number> Number::create(int value, TBFNumberType type) {
    return make<Number>(Decimal(value), type);
}

Ref<Number> Number::create(const char* text, TBFNumberType type) {
    return make<Number>(Decimal(text), type);
}

Ref<Number> Number::create(TBFNumberSpecialType specialType) {
    return make<Number>(specialType);
}

const Ref<Number>& Number::zero() {
    return kernelConstants<Constants>().zero;
}

const Ref<Number>& Number::one() {
    return kernelConstants<Constants>().one;
}

const Ref<Number>& Number::notANumber() {
    return kernelConstants<Constants>().notANumber;
}

const Ref<Number>& Number::infinity() {
    return kernelConstants<Constants>().infinity;
}

const Ref<Number>& Number::negativeInfinity() {
    return kernelConstants<Constants>().negativeInfinity;
}

void Number::makeConstants() {
    zero();
    one();
    notANumber();
    infinity();
    negativeInfinity();
}

double Number::doubleValue() const {
    switch (numberSpecialType) {
    case TBFNumberSpecialTypeNone:
        break;
    case TBFNumberSpecialTypeInfinity:
        return std::numeric_limits<double>::infinity();
    case TBFNumberSpecialTypeNegativeInfinity:
        return -std::numeric_limits<double>::infinity();
    case TBFNumberSpecialTypeNaN:
        return std::numeric_limits<double>::quiet_NaN();
    }
    std::string text;
    {
        const KernelLock lock;
        const int length =
            std::max(doubleTextPlaces, m_apm_significant_digits(digits)) + scientificTextAllowance;
        text.resize(static_cast<std::size_t>(length));
        m_apm_to_string(text.data(), doubleTextPlaces, digits);
    }
    return std::strtod(text.c_str(), nullptr);
}

int32_t Number::int32Value() const {
    const double value = doubleValue();
    if (std::isnan(value)) return 0;
    if (value >= std::numeric_limits<int32_t>::max()) return std::numeric_limits<int32_t>::max();
    if (value <= std::numeric_limits<int32_t>::min()) return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}

} // namespace TBF
