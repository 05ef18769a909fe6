#pragma once

// A kernel value that frees itself, and texts of values, for the kernel's tests. One thread, as the plain
// functions want it.

#include "m_apm.h"

#include <algorithm>
#include <string>
#include <vector>

class KernelValue {
public:
    KernelValue()
        : value_(m_apm_init_mt()) {}
    explicit KernelValue(const std::string& text)
        : KernelValue() {
        m_apm_set_string_mt(value_, text.c_str());
    }
    ~KernelValue() { m_apm_free_mt(value_); }
    KernelValue(const KernelValue&) = delete;
    KernelValue& operator=(const KernelValue&) = delete;

    operator M_APM() const { return value_; }

    // Scientific text with all digits.
    std::string text() const {
        std::vector<char> buffer(static_cast<std::size_t>(m_apm_significant_digits(value_)) + 40);
        m_apm_to_string_mt(buffer.data(), -1, value_);
        return buffer.data();
    }

    std::string plain(int places) const {
        std::vector<char> buffer(static_cast<std::size_t>(m_apm_fixpt_length(places, value_)) + 1);
        m_apm_to_fixpt_string_mt(buffer.data(), places, value_);
        return buffer.data();
    }

    std::string integer() const {
        std::vector<char> buffer(static_cast<std::size_t>(std::max(m_apm_exponent(value_), 0)) + 4);
        m_apm_to_integer_string_mt(buffer.data(), value_);
        return buffer.data();
    }

private:
    M_APM value_;
};
