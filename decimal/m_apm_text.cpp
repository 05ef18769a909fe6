// Text forms: scientific, plain, grouped, integer.

#include "m_apm_fields.h"
#include "scratch.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

using namespace mapm;

namespace {

// Writes the digits of the positions first, first - 1, ... last of |x|, zeros where x has none.
class DigitWriter {
public:
    explicit DigitWriter(M_APM_const x)
        : x_(x) {}

    char* write(char* out, std::int64_t first, std::int64_t last) {
        std::int64_t position = first;
        while (position >= last) {
            const std::int64_t limb = floorDivide(position, kLimbDigits);
            const std::int64_t bottom = limb * kLimbDigits;
            const std::int64_t end = bottom > last ? bottom : last;
            load(limb);
            const auto length = static_cast<std::size_t>(position - end + 1);
            std::memcpy(out, digits_ + (kLimbDigits - 1 - (position - bottom)), length);
            out += length;
            position = end - 1;
        }
        return out;
    }

private:
    void load(std::int64_t limb) {
        const std::int64_t index = limb - x_->low;
        const Limb value = x_->sign != 0 && index >= 0 && index < x_->count ? x_->limbs[index] : 0;
        if (value == 0) {
            std::memset(digits_, '0', sizeof digits_);
            return;
        }
        writeHalf(digits_, static_cast<std::uint32_t>(value / kHalfBase));
        writeHalf(digits_ + kLimbDigits / 2, static_cast<std::uint32_t>(value % kHalfBase));
    }

    // Nine digits: the two halves of a limb don't wait for each other's divisions.
    static void writeHalf(char* out, std::uint32_t value) {
        for (int i = kLimbDigits / 2; i-- > 0;) {
            out[i] = static_cast<char>('0' + value % 10);
            value /= 10;
        }
    }

    static constexpr Limb kHalfBase = kPowersOfTen[kLimbDigits / 2];

    M_APM_const x_;
    char digits_[kLimbDigits];
};

char* writeZeros(char* out, int count) {
    for (int i = 0; i < count; ++i)
        *out++ = '0';
    return out;
}

// Plain text of a value that needs no more rounding, with exactly `decimals` decimals; no point without them.
void writePlain(char* out, M_APM_const x, std::int64_t decimals) {
    if (x->sign < 0) *out++ = '-';
    const std::int64_t exponent = exponentOf(x);
    DigitWriter writer(x);
    if (exponent <= 0)
        *out++ = '0';
    else
        out = writer.write(out, exponent - 1, 0);
    if (decimals > 0) {
        *out++ = '.';
        out = writer.write(out, -1, -decimals);
    }
    *out = '\0';
}

bool hasOtherThanZeros(const char* text) {
    return std::strpbrk(text, "123456789") != nullptr;
}

} // namespace

void m_apm_to_string(char* out, int places, M_APM_const x) {
    if (x->sign == 0) {
        *out++ = '0';
        *out++ = '.';
        out = writeZeros(out, places < 0 ? 1 : places);
        std::strcpy(out, "E+0");
        return;
    }
    ScratchValue rounded;
    if (places < 0)
        m_apm_copy(rounded, x);
    else
        m_apm_round(rounded, places, x);
    const std::int64_t top = exponentOf(rounded) - 1;
    std::int64_t last = top - places;
    if (places < 0) {
        last = lastPosition(rounded);
        if (last == top) last = top - 1;
    }
    DigitWriter writer(rounded);
    if (rounded->sign < 0) *out++ = '-';
    out = writer.write(out, top, top);
    *out++ = '.';
    out = writer.write(out, top - 1, last);
    *out++ = 'E';
    *out++ = top < 0 ? '-' : '+';
    const auto end = std::to_chars(out, out + 20, top < 0 ? -top : top);
    *end.ptr = '\0';
}

void m_apm_to_integer_string(char* out, M_APM_const x) {
    const std::int64_t exponent = exponentOf(x);
    if (x->sign == 0 || exponent <= 0) {
        std::strcpy(out, "0");
        return;
    }
    if (x->sign < 0) *out++ = '-';
    DigitWriter writer(x);
    out = writer.write(out, exponent - 1, 0);
    *out = '\0';
}

void m_apm_to_fixpt_string(char* out, int places, M_APM_const x) {
    if (x->sign == 0) {
        *out++ = '0';
        if (places != 0) *out++ = '.';
        out = writeZeros(out, places < 0 ? 1 : places);
        *out = '\0';
        return;
    }
    if (places < 0) {
        const std::int64_t last = lastPosition(x);
        writePlain(out, x, last < 0 ? -last : 1);
        return;
    }
    ScratchValue rounded;
    M_round_at(rounded, x, -static_cast<std::int64_t>(places));
    writePlain(out, rounded, places);
}

void m_apm_to_fixpt_stringex(char* out, int places, M_APM_const x, char radixChar, char separatorChar,
                             int groupCount) {
    char* const text = m_apm_to_fixpt_stringexp(places, x, radixChar, separatorChar, groupCount);
    std::strcpy(out, text);
    std::free(text);
}

char* m_apm_to_fixpt_stringexp(int places, M_APM_const x, char radixChar, char separatorChar,
                               int groupCount) {
    ScratchValue magnitude;
    m_apm_absolute_value(magnitude, x);
    const auto length = static_cast<std::size_t>(m_apm_fixpt_length(places, magnitude));
    char* const plain = static_cast<char*>(std::malloc(length + 1));
    char* const result = static_cast<char*>(std::malloc(2 * length + 2));
    if (plain == nullptr || result == nullptr)
        M_apm_log_error_msg(true, "'m_apm_to_fixpt_stringexp', Out of memory");
    m_apm_to_fixpt_string(plain, places, magnitude);
    char* point = std::strchr(plain, '.');
    const std::size_t whole = point != nullptr ? static_cast<std::size_t>(point - plain) : std::strlen(plain);

    char* out = result;
    if (x->sign < 0 && hasOtherThanZeros(plain)) *out++ = '-';
    const bool grouped = separatorChar != 0 && groupCount > 0;
    const auto group = static_cast<std::size_t>(groupCount);
    for (std::size_t i = 0; i < whole; ++i) {
        if (grouped && i > 0 && (whole - i) % group == 0) *out++ = separatorChar;
        *out++ = plain[i];
    }
    if (point != nullptr) {
        *out++ = radixChar;
        std::strcpy(out, point + 1);
    } else {
        *out = '\0';
    }
    std::free(plain);
    return result;
}
