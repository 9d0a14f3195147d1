// What a call raises, for tests of run-time failures.
#pragma once

#include "base/RuntimeFailure.h"

#include <gtest/gtest.h>

// Number of the failure that call raises; 0 where it raises none.
template <class Call>
int FailureNumber(Call call) {
    try {
        call();
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

// The failure that call raises; one that raises none fails the test.
template <class Call>
RuntimeFailure FailureOf(Call call) {
    try {
        call();
    } catch (const RuntimeFailure& failure) {
        return failure;
    }
    ADD_FAILURE() << "no failure";
    return RuntimeFailure(0, u"");
}
