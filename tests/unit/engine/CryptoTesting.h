// Both sides of the seam, for tests that each has to pass.
#pragma once

#include "engine/clsCryptoAPI.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

struct CryptoSide {
    const char* name;
    CryptoOperations (*make)();
};

class CryptoTest : public testing::TestWithParam<CryptoSide> {
protected:
    CryptoOperations Table() { return GetParam().make(); }
};

inline auto CryptoSides() {
    return testing::Values(CryptoSide{"system", SystemCryptoOperations},
                           CryptoSide{"own", OwnCryptoOperations});
}
inline std::string NameOfSide(const testing::TestParamInfo<CryptoSide>& side) {
    return side.param.name;
}
