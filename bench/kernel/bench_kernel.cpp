// The kernel beside MPFR at the same precision, in one run: a row for each operation with both times, their
// ratio and the ratio it must not pass. Exit code 1 when a row passes it.
//
// usage: bench_kernel [--quick]

#include "m_apm.h"

#include <mpfr.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// Digits of a value at the calculator's working precision.
constexpr int kPlaces = 100;
constexpr mpfr_prec_t kBits = 336;

std::string randomDigits(std::mt19937_64& random, int count) {
    std::string digits(static_cast<std::size_t>(count), '0');
    for (char& digit : digits)
        digit = static_cast<char>('0' + random() % 10);
    digits.front() = digits.back() = '7';
    return digits;
}

// The least time of one call, in nanoseconds, over several rounds: other work on the machine only adds to it.
double bestTime(const std::function<void()>& work, double secondsPerRound) {
    std::size_t calls = 1;
    double best = 1e18;
    for (int round = 0; round < 9;) {
        const auto start = Clock::now();
        for (std::size_t i = 0; i < calls; ++i)
            work();
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        if (elapsed < secondsPerRound && calls < (std::size_t{1} << 24) && best == 1e18) {
            calls *= 2;
            continue;
        }
        best = std::min(best, elapsed / static_cast<double>(calls) * 1e9);
        ++round;
    }
    return best;
}

struct Row {
    std::string name;
    double limit;
    std::function<void()> kernel;
    std::function<void()> peer;
};

struct Operand {
    Operand(const std::string& text, mpfr_prec_t bits)
        : value(m_apm_init()) {
        m_apm_set_string(value, text.c_str());
        mpfr_init2(peer, bits);
        mpfr_set_str(peer, text.c_str(), 10, MPFR_RNDN);
    }
    ~Operand() {
        m_apm_free(value);
        mpfr_clear(peer);
    }
    Operand(const Operand&) = delete;
    Operand& operator=(const Operand&) = delete;

    M_APM value;
    mpfr_t peer;
};

bool printRow(const Row& row, double secondsPerRound) {
    const double kernel = bestTime(row.kernel, secondsPerRound);
    const double peer = bestTime(row.peer, secondsPerRound);
    const double ratio = kernel / peer;
    std::printf("%-28s %12.1f %12.1f %8.2f %8.1f%s\n", row.name.c_str(), kernel, peer, ratio, row.limit,
                ratio > row.limit ? "  OVER" : "");
    std::fflush(stdout);
    return ratio <= row.limit;
}

std::vector<Row> shortRows(Operand& a, Operand& b, Operand& r) {
    return {
        {"multiply, 101 digits", 4, [&] { m_apm_multiply(r.value, a.value, b.value); },
         [&] { mpfr_mul(r.peer, a.peer, b.peer, MPFR_RNDN); }},
        {"divide, 101 digits", 5, [&] { m_apm_divide(r.value, kPlaces, a.value, b.value); },
         [&] { mpfr_div(r.peer, a.peer, b.peer, MPFR_RNDN); }},
        {"square root, 101 digits", 12, [&] { m_apm_sqrt(r.value, kPlaces, a.value); },
         [&] { mpfr_sqrt(r.peer, a.peer, MPFR_RNDN); }},
        {"exp, 101 digits", 5, [&] { m_apm_exp(r.value, kPlaces, a.value); },
         [&] { mpfr_exp(r.peer, a.peer, MPFR_RNDN); }},
        {"ln, 101 digits", 10, [&] { m_apm_log(r.value, kPlaces, a.value); },
         [&] { mpfr_log(r.peer, a.peer, MPFR_RNDN); }},
        {"sin, 101 digits", 6, [&] { m_apm_sin(r.value, kPlaces, a.value); },
         [&] { mpfr_sin(r.peer, a.peer, MPFR_RNDN); }},
    };
}

} // namespace

int main(int argumentCount, char** arguments) {
    const bool quick = argumentCount > 1 && std::strcmp(arguments[1], "--quick") == 0;
    const double secondsPerRound = quick ? 0.005 : 0.05;
    m_apm_init_semaphore();
    std::mt19937_64 random(1);
    bool within = true;
    {
        Operand a("2." + randomDigits(random, kPlaces), kBits);
        Operand b("7." + randomDigits(random, kPlaces), kBits);
        Operand r("0", kBits);
        std::printf("%-28s %12s %12s %8s %8s\n", "operation", "kernel ns", "MPFR ns", "ratio", "at most");
        for (const Row& row : shortRows(a, b, r))
            within = printRow(row, secondsPerRound) && within;
    }
    {
        constexpr int kLong = 1'000'000;
        constexpr mpfr_prec_t kLongBits = 3'321'929;
        Operand a(randomDigits(random, kLong), kLongBits);
        Operand b(randomDigits(random, kLong), kLongBits);
        Operand r("0", 2 * kLongBits);
        const Row row{"multiply, 1,000,000 digits", 5, [&] { m_apm_multiply(r.value, a.value, b.value); },
                      [&] { mpfr_mul(r.peer, a.peer, b.peer, MPFR_RNDN); }};
        within = printRow(row, secondsPerRound) && within;
    }
    m_apm_free_all_mem();
    mpfr_free_cache();
    return within ? 0 : 1;
}
