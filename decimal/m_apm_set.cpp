// Values from machine numbers and from text.

#include "m_apm_fields.h"
#include "scratch.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>

using namespace mapm;

namespace {

constexpr std::int64_t kExponentLimit = 4 * MM_MAX_EXPONENT;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view skipBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

// The leading integer of a text, 0 without one, held at +-kExponentLimit.
std::int64_t leadingInteger(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c)) break;
        value = value * 10 + (c - '0');
        if (value > kExponentLimit) value = kExponentLimit;
    }
    return negative ? -value : value;
}

// The parts of a number's text, signs taken off.
struct NumberText {
    std::string_view whole;
    std::string_view fraction;
    std::int64_t exponent = 0;
};

NumberText splitNumber(std::string_view text) {
    NumberText result;
    const std::size_t mark = text.find_first_of("eE");
    if (mark != std::string_view::npos) {
        result.exponent = leadingInteger(text.substr(mark + 1));
        text = text.substr(0, mark);
    }
    const std::size_t point = text.find('.');
    result.whole = text.substr(0, point);
    if (point != std::string_view::npos) result.fraction = text.substr(point + 1);
    return result;
}

bool allDigits(std::string_view text) {
    for (const char c : text) {
        if (!isDigit(c)) return false;
    }
    return true;
}

// Digits of whole and fraction as one sequence, the last one having weight 10^position, packed into limbs
// that stand on multiples of 18 positions.
void packDigits(M_APM r, int sign, const NumberText& text) {
    const std::size_t digits = text.whole.size() + text.fraction.size();
    const std::int64_t position = text.exponent - static_cast<std::int64_t>(text.fraction.size());
    const std::int64_t low = floorDivide(position, kLimbDigits);
    const auto padding = static_cast<std::size_t>(position - low * kLimbDigits);
    const std::size_t n = (digits + padding + kLimbDigits - 1) / kLimbDigits;

    Limb* limbs = M_prepare(r, n, "'m_apm_set_string', Out of memory");
    std::size_t left = digits;
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t room = i == 0 ? kLimbDigits - padding : kLimbDigits;
        const std::size_t taken = left < room ? left : room;
        Limb value = 0;
        for (std::size_t k = left - taken; k < left; ++k) {
            const char c = k < text.whole.size() ? text.whole[k] : text.fraction[k - text.whole.size()];
            value = value * 10 + static_cast<Limb>(c - '0');
        }
        left -= taken;
        limbs[i] = i == 0 ? value * kPowersOfTen[padding] : value;
    }
    r->count = static_cast<std::int64_t>(n);
    r->low = low;
    r->sign = sign;
    M_apm_normalize(r);
}

// Sets r to a number of digits and at most one point that fits a limb, as nearly all texts are. False for any
// other text.
bool setShortNumber(M_APM r, int sign, std::string_view text) {
    Limb value = 0;
    std::size_t digits = 0;
    std::size_t decimals = 0;
    bool hasPoint = false;
    for (const char c : text) {
        if (isDigit(c)) {
            if (++digits > kLimbDigits) return false;
            value = value * 10 + static_cast<Limb>(c - '0');
            if (hasPoint) ++decimals;
        } else if (c == '.' && !hasPoint) {
            hasPoint = true;
        } else {
            return false;
        }
    }
    if (digits == 0) return false;
    const Limb unit = kPowersOfTen[decimals];
    r->limbs[0] = value % unit * kPowersOfTen[kLimbDigits - decimals];
    r->limbs[1] = value / unit;
    r->count = 2;
    r->low = -1;
    r->sign = sign;
    M_apm_normalize(r);
    return true;
}

} // namespace

void m_apm_set_string(M_APM r, const char* text) {
    std::string_view rest = skipBlanks(text);
    int sign = 1;
    if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) {
        sign = rest.front() == '-' ? -1 : 1;
        rest.remove_prefix(1);
    }
    if (setShortNumber(r, sign, rest)) return;
    const NumberText parts = splitNumber(rest);
    if (!allDigits(parts.whole) || !allDigits(parts.fraction)) {
        M_apm_log_error_msg(false, "'m_apm_set_string', Non-digit char found in parse");
        M_apm_log_error_msg(false, "Text =");
        M_apm_log_error_msg(false, text);
        M_set_to_zero(r);
        return;
    }
    if (parts.whole.empty() && parts.fraction.empty()) {
        M_set_to_zero(r);
        return;
    }
    packDigits(r, sign, parts);
}

void m_apm_set_long(M_APM r, long value) {
    const Limb magnitude = value < 0 ? 0 - static_cast<Limb>(value) : static_cast<Limb>(value);
    r->limbs[0] = magnitude % kBase;
    r->limbs[1] = magnitude / kBase;
    r->count = 2;
    r->low = 0;
    r->sign = value < 0 ? -1 : (value > 0 ? 1 : 0);
    M_apm_normalize(r);
}

void m_apm_set_double(M_APM r, double value) {
    if (!std::isfinite(value)) {
        M_apm_log_error_msg(false, "'m_apm_set_double', Invalid double input (likely a NAN or +/- INF)");
        M_set_to_zero(r);
        return;
    }
    // std::to_chars and not printf: the C locale may have another decimal point.
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer - 1, value, std::chars_format::scientific, 14);
    *end.ptr = '\0';
    m_apm_set_string(r, buffer);
}

void M_set_guess(M_APM r, double value) {
    // 10^17 units keep all bits that a double of this size has.
    const auto units = static_cast<std::int64_t>(std::llround(value * 1e17));
    m_apm_set_long(r, units);
    M_scale10(r, r, -17);
}
