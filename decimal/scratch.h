#pragma once

// Scratch memory and scratch values of the kernel, taken and given back in stack order by scope guards, so
// that a calculation allocates almost nothing once the pools have grown. Under the kernel's lock.

#include "limbs.h"
#include "m_apm.h"

namespace mapm {

// Limb arrays that live as long as the guard. Guards nest; a guard may take several arrays, whose contents
// are undefined at first.
class Scratch {
public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    Limb* take(std::size_t n);
    Limb* takeZeroed(std::size_t n);

private:
    // Position of the shared arena before this guard.
    std::size_t block_;
    std::size_t used_;
};

// A value from the kernel's pool of scratch values, given back at the end of the scope. Its first value is
// whatever the last user left.
class ScratchValue {
public:
    ScratchValue();
    ~ScratchValue();
    ScratchValue(const ScratchValue&) = delete;
    ScratchValue& operator=(const ScratchValue&) = delete;

    operator M_APM() const { return value_; }
    M_APM operator->() const { return value_; }

private:
    M_APM value_;
};

// Frees both pools. Nothing may be in use.
void freeScratch();

} // namespace mapm

// The pool behind ScratchValue: the next value, and giving back the last `count`.
M_APM M_get_stack_var();
void M_restore_stack(int count);
