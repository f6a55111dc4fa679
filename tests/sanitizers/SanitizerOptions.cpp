// Part of every sanitized program: a sanitizer asks the program itself how to behave, so that it
// behaves alike in a test, by hand, and as the child of a child.

#include <sanitizer/common_interface_defs.h>

#include "tests/sanitizers/Leaks.h"

// The names are the sanitizers' own.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" {

const char* __asan_default_options() {
    return "detect_stack_use_after_return=1:strict_init_order=1:check_initialization_order=1:"
           "print_suppressions=0";
}

// Beside the address sanitizer this one writes to standard error only: the other writes the place
// where it is told to.
void __ubsan_on_report() {
    __sanitizer_print_stack_trace();
}

const char* __lsan_default_suppressions() {
    return stagehopper::knownLeaks.data();
}

const char* __tsan_default_options() {
    // Libraries that are not instrumented look like races: what they synchronize is not seen.
    return "ignore_noninstrumented_modules=1:second_deadlock_stack=1";
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
