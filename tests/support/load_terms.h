// How the terms of a member load are compared.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <utility>

#include "analysis/member_load_terms.h"

namespace zorlan::test {

/// Every term within 1e-12 of what is expected, of its size where that is above 1.
inline void ExpectTerms(const char* name, const LoadTerms& actual, const LoadTerms& expected) {
  const std::array<std::pair<double, double>, 7> values = {{{actual.Ci, expected.Ci},
                                                            {actual.Cj, expected.Cj},
                                                            {actual.Mo, expected.Mo},
                                                            {actual.Qi, expected.Qi},
                                                            {actual.Qj, expected.Qj},
                                                            {actual.Ni, expected.Ni},
                                                            {actual.Nj, expected.Nj}}};
  for (std::size_t i = 0; i < values.size(); ++i)
    EXPECT_NEAR(values[i].first, values[i].second, 1e-12 * (1 + std::abs(values[i].second)))
        << name << ", value " << i;
}

}  // namespace zorlan::test
