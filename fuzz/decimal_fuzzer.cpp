// Any text as a number: parsing must end in time linear in the text with a value in normal form, and every
// text form of that value must read back as the same value, or as its rounding.

#include "m_apm.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Plain text beyond this length is not written: an exponent of nine digits would fill memory.
constexpr std::int64_t kMaxText = 20'000;

class Value {
public:
    Value()
        : value_(m_apm_init()) {}
    ~Value() { m_apm_free(value_); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    operator M_APM() const { return value_; }

private:
    M_APM value_;
};

void require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

void checkScientific(M_APM_const x, int places) {
    const int digits = m_apm_significant_digits(x);
    std::vector<char> buffer(static_cast<std::size_t>(places > digits ? places : digits) + 40);
    m_apm_to_string(buffer.data(), places, x);
    const Value back;
    const Value expected;
    m_apm_set_string(back, buffer.data());
    if (places < 0)
        m_apm_copy(expected, x);
    else
        m_apm_round(expected, places, x);
    require(m_apm_compare(back, expected) == 0, "scientific text reads back");
}

void checkPlain(M_APM_const x, int places) {
    const std::int64_t length = m_apm_fixpt_length(places, x);
    if (length > kMaxText) return;
    std::vector<char> buffer(static_cast<std::size_t>(length) + 1);
    m_apm_to_fixpt_string(buffer.data(), places, x);
    require(std::string(buffer.data()).size() <= static_cast<std::size_t>(length), "the length bound holds");
    const Value back;
    m_apm_set_string(back, buffer.data());
    if (places < 0) {
        require(m_apm_compare(back, x) == 0, "plain text reads back");
    } else {
        // Within half a unit of the place.
        const Value difference;
        m_apm_subtract(difference, back, x);
        m_apm_add(difference, difference, difference);
        m_apm_absolute_value(difference, difference);
        const Value unit;
        m_apm_set_string(unit, ("1e-" + std::to_string(places)).c_str());
        require(m_apm_compare(difference, unit) <= 0, "plain text rounds by half a unit at most");
    }
    char* const grouped = m_apm_to_fixpt_stringexp(places, x, ',', '.', 3);
    std::string joined;
    for (const char* c = grouped; *c != '\0'; ++c) {
        if (*c != '.') joined += *c == ',' ? '.' : *c;
    }
    std::free(grouped);
    m_apm_set_string(back, joined.c_str());
    const Value again;
    m_apm_set_string(again, buffer.data());
    require(m_apm_compare(back, again) == 0, "grouped text holds the same digits");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool ready = (m_apm_init_semaphore(), true);
    require(ready, "the lock exists");
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Value x;
    m_apm_set_string(x, text.c_str());
    for (const int places : {-1, 0, 7, 40})
        checkScientific(x, places);
    for (const int places : {-1, 0, 1, 18, 50})
        checkPlain(x, places);

    // x - x = 0 and x * 1 = x whatever the digits.
    const Value r;
    m_apm_subtract(r, x, x);
    require(m_apm_sign(r) == 0, "x - x is 0");
    m_apm_multiply(r, x, MM_One);
    require(m_apm_compare(r, x) == 0, "x * 1 is x");
    return 0;
}
