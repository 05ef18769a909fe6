#pragma once

// What the calculator adds to the decimal kernel: constants, rounding to whole numbers, the text of a
// value without idle zeros, and the cut of results that are noise. As in the kernel, the result comes first.
// Functions without a word on locking are called under a `TBF::KernelLock`, or on values that no other
// thread uses while nobody else is in the kernel.

#include "m_apm.h"

#include <string>

// Constants; borrowed, to be read only, valid for ever.
M_APM TBF_MAPM_0_5();
M_APM TBF_MAPM_0_01();
M_APM TBF_MAPM_180();
M_APM TBF_MAPM_100();

// Makes the constants now; otherwise the first use makes them.
void TBFMAPMExtensionsInit();

// `x` rounded to a whole number, halves away from zero. `places` has no effect: the results are whole
// whatever it says. `result` may be `x`.
void TBF_mapm_round(M_APM result, int places, M_APM_const x);
void TBF_mapm_round_mt(M_APM result, int places, M_APM_const x); // takes the lock

// Plain text of `x`, rounded to `places` decimals and without zeros at the end of them; whole numbers have
// no point. Takes the lock.
std::string TBF_mapm_to_fitted_string(M_APM_const x, int places);

// Decimals behind the point in the plain text of `x`, the last of them not 0; none for whole numbers and
// null.
int64_t TBF_mapm_decimals(M_APM_const x);

// A size in bytes that suffices for the plain text of `x` with up to 100 decimals; 0 for null.
int TBF_mapm_buffer_size(M_APM_const x);

// Makes `x` 0 if its scientific exponent is below -precision. Takes the lock unless `alreadyLocked`.
void TBF_mapm_truncate_tiny_number(M_APM x, int precision, bool alreadyLocked);
