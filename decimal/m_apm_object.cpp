// Objects: making, freeing, storage, normal form, reports.

#include "m_apm_fields.h"
#include "m_apm_work.h"
#include "scratch.h"

#include <cstdio>
#include <cstdlib>
#include <new>

using namespace mapm;

namespace {

bool constantsMade = false;
bool warningsEnabled = false;

// Values that were freed wait to be made again, up to this many. Under AddressSanitizer none do, so that the
// use of a dead value is found.
constexpr std::size_t kMostIdleValues = 512;
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kKeepsIdleValues = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kKeepsIdleValues = false;
#else
constexpr bool kKeepsIdleValues = true;
#endif
#else
constexpr bool kKeepsIdleValues = true;
#endif

struct IdleValues {
    M_APM values[kMostIdleValues];
    std::size_t count = 0;
};

IdleValues idle;

void (*outOfMemoryHandler)() = nullptr;

} // namespace

void M_apm_log_error_msg(bool fatal, const char* message) {
    if (fatal) {
        if (outOfMemoryHandler) outOfMemoryHandler();
        std::fprintf(stderr, "MAPM Error: %s\n", message);
        std::exit(100);
    }
    // A 0 in place of a result that was refused isn't worth a message.
    if (warningsEnabled && !m_apm_work_is_spent()) std::fprintf(stderr, "MAPM Warning: %s\n", message);
}

void m_apm_set_warnings_enabled(bool enabled) {
    warningsEnabled = enabled;
}

void m_apm_set_out_of_memory_handler(void (*handler)()) {
    outOfMemoryHandler = handler;
}

M_APM M_new_value() {
    M_APM x = idle.count > 0 ? idle.values[--idle.count] : new (std::nothrow) M_APM_struct;
    if (x == nullptr) M_apm_log_error_msg(true, "'m_apm_init', Out of memory");
    x->limbs = x->inlineLimbs;
    x->ident = kLiveIdent;
    x->low = 0;
    x->count = 0;
    x->capacity = kInlineLimbs;
    x->sign = 0;
    return x;
}

M_APM m_apm_init() {
    if (!constantsMade) {
        constantsMade = true;
        M_init_constants();
    }
    return M_new_value();
}

void m_apm_free(M_APM x) {
    if (x == nullptr) return;
    if (x->ident != kLiveIdent) {
        M_apm_log_error_msg(false, "'m_apm_free', Invalid M_APM variable");
        return;
    }
    x->ident = kFreedIdent;
    if (x->limbs != x->inlineLimbs) std::free(x->limbs);
    if (kKeepsIdleValues && idle.count < kMostIdleValues)
        idle.values[idle.count++] = x;
    else
        delete x;
}

void m_apm_free_all_mem() {
    freeTransformTables();
    M_free_power_cache();
    M_free_constants();
    freeScratch();
    while (idle.count > 0)
        delete idle.values[--idle.count];
    constantsMade = false;
}

void M_shrink(M_APM x) {
    if (x->limbs != x->inlineLimbs) std::free(x->limbs);
    x->limbs = x->inlineLimbs;
    x->capacity = kInlineLimbs;
    M_set_to_zero(x);
}

Limb* M_prepare(M_APM x, std::size_t n, const char* message) {
    if (n <= static_cast<std::size_t>(x->capacity)) return x->limbs;
    // The old contents are not wanted: freeing first keeps the peak low.
    if (x->limbs != x->inlineLimbs) std::free(x->limbs);
    const std::size_t capacity = n + 4;
    x->limbs = static_cast<Limb*>(std::malloc(capacity * sizeof(Limb)));
    if (x->limbs == nullptr) M_apm_log_error_msg(true, message);
    x->capacity = static_cast<std::int64_t>(capacity);
    return x->limbs;
}

void M_set_to_zero(M_APM x) {
    x->sign = 0;
    x->count = 0;
    x->low = 0;
}

void M_apm_normalize(M_APM x) {
    std::size_t n = trimmed(x->limbs, limbCount(x));
    if (n == 0 || x->sign == 0) {
        M_set_to_zero(x);
        return;
    }
    std::size_t zeros = 0;
    while (x->limbs[zeros] == 0)
        ++zeros;
    if (zeros > 0) {
        n -= zeros;
        copy(x->limbs, x->limbs + zeros, n);
        x->low += static_cast<std::int64_t>(zeros);
    }
    x->count = static_cast<std::int64_t>(n);
    const std::int64_t top = x->low + x->count;
    if (top > kMaxTop)
        x->low -= top - kMaxTop;
    else if (top <= -kMaxTop)
        x->low += -kMaxTop + 1 - top;
}

void M_set_limbs(M_APM x, int sign, const Limb* limbs, std::size_t n, std::int64_t low) {
    Limb* target = M_prepare(x, n, "'M_set_limbs', Out of memory");
    copy(target, limbs, n);
    x->count = static_cast<std::int64_t>(n);
    x->low = low;
    x->sign = sign;
    M_apm_normalize(x);
}

void m_apm_copy(M_APM r, M_APM_const a) {
    if (r == a) return;
    Limb* target = M_prepare(r, limbCount(a), "'m_apm_copy', Out of memory");
    copy(target, a->limbs, limbCount(a));
    r->count = a->count;
    r->low = a->low;
    r->sign = a->sign;
}

void m_apm_negate(M_APM r, M_APM_const a) {
    m_apm_copy(r, a);
    r->sign = -r->sign;
}

void m_apm_absolute_value(M_APM r, M_APM_const a) {
    m_apm_copy(r, a);
    if (r->sign < 0) r->sign = 1;
}

void M_shift_limbs(M_APM r, std::int64_t shift) {
    if (r->sign == 0) return;
    r->low += shift;
    M_apm_normalize(r);
}

void M_scale10(M_APM r, M_APM_const a, std::int64_t shift) {
    const std::int64_t limbs = floorDivide(shift, kLimbDigits);
    const auto digits = static_cast<std::size_t>(shift - limbs * kLimbDigits);
    M_multiply_small(r, a, kPowersOfTen[digits]);
    M_shift_limbs(r, limbs);
}
