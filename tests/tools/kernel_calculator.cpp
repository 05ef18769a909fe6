// Reads lines `operation places a [b]` and writes the result of each on a line: the value in scientific text
// with all digits, or the text that a text operation gives. A driver for comparing the kernel with others.

#include "m_apm.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

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

using Exact = void (*)(M_APM, M_APM_const);
using ExactPair = void (*)(M_APM, M_APM_const, M_APM_const);
using Placed = void (*)(M_APM, int, M_APM_const);
using PlacedPair = void (*)(M_APM, int, M_APM_const, M_APM_const);

const std::map<std::string, Exact> kExact = {
    {"negate", m_apm_negate}, {"abs", m_apm_absolute_value},  {"floor", m_apm_floor},
    {"ceil", m_apm_ceil},     {"factorial", m_apm_factorial}, {"copy", m_apm_copy},
};

const std::map<std::string, ExactPair> kExactPairs = {
    {"add", m_apm_add},
    {"subtract", m_apm_subtract},
    {"multiply", m_apm_multiply},
    {"integer_divide", m_apm_integer_divide},
};

const std::map<std::string, Placed> kPlaced = {
    {"round", m_apm_round},     {"reciprocal", m_apm_reciprocal},
    {"sqrt", m_apm_sqrt},       {"cbrt", m_apm_cbrt},
    {"exp", m_apm_exp},         {"log", m_apm_log},
    {"log10", m_apm_log10},     {"sin", m_apm_sin},
    {"cos", m_apm_cos},         {"tan", m_apm_tan},
    {"arcsin", m_apm_arcsin},   {"arccos", m_apm_arccos},
    {"arctan", m_apm_arctan},   {"sinh", m_apm_sinh},
    {"cosh", m_apm_cosh},       {"tanh", m_apm_tanh},
    {"arcsinh", m_apm_arcsinh}, {"arccosh", m_apm_arccosh},
    {"arctanh", m_apm_arctanh},
};

const std::map<std::string, PlacedPair> kPlacedPairs = {
    {"divide", m_apm_divide},
    {"pow", m_apm_pow},
    {"arctan2", m_apm_arctan2},
};

std::string scientific(M_APM_const x) {
    std::vector<char> buffer(static_cast<std::size_t>(m_apm_significant_digits(x)) + 40);
    m_apm_to_string(buffer.data(), -1, x);
    return buffer.data();
}

std::string plain(int places, M_APM_const x) {
    std::vector<char> buffer(static_cast<std::size_t>(m_apm_fixpt_length(places, x)) + 1);
    m_apm_to_fixpt_string(buffer.data(), places, x);
    return buffer.data();
}

// 0 for what an int can't hold.
int toInt(M_APM_const x) {
    return m_apm_exponent(x) < 9 ? std::atoi(plain(0, x).c_str()) : 0;
}

std::string rounded(int places, M_APM_const x) {
    std::vector<char> buffer(static_cast<std::size_t>(places + m_apm_significant_digits(x)) + 40);
    m_apm_to_string(buffer.data(), places, x);
    return buffer.data();
}

std::string calculate(const std::string& operation, int places, M_APM_const a, M_APM_const b) {
    Value r;
    if (const auto row = kExact.find(operation); row != kExact.end())
        row->second(r, a);
    else if (const auto pair = kExactPairs.find(operation); pair != kExactPairs.end())
        pair->second(r, a, b);
    else if (const auto placed = kPlaced.find(operation); placed != kPlaced.end())
        placed->second(r, places, a);
    else if (const auto both = kPlacedPairs.find(operation); both != kPlacedPairs.end())
        both->second(r, places, a, b);
    else if (operation == "integer_pow")
        m_apm_integer_pow(r, places, a, toInt(b));
    else if (operation == "integer_pow_nr")
        m_apm_integer_pow_nr(r, a, toInt(b));
    else if (operation == "compare")
        return std::to_string(m_apm_compare(a, b));
    else if (operation == "fixpt")
        return plain(places, a);
    else if (operation == "string")
        return rounded(places, a);
    else if (operation == "remainder") {
        Value quotient;
        m_apm_integer_div_rem(quotient, r, a, b);
    } else
        return "unknown operation";
    return scientific(r);
}

} // namespace

int main() {
    std::ios::sync_with_stdio(false);
    m_apm_init_semaphore();
    {
        Value a;
        Value b;
        std::string line;
        while (std::getline(std::cin, line)) {
            std::istringstream words(line);
            std::string operation;
            std::string textA;
            std::string textB;
            int places = 0;
            words >> operation >> places >> textA >> textB;
            m_apm_set_string(a, textA.c_str());
            m_apm_set_string(b, textB.c_str());
            std::cout << calculate(operation, places, a, b) << '\n';
        }
    }
    m_apm_free_all_mem();
    return 0;
}
