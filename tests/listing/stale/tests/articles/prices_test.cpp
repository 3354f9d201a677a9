#include "../../src/articles/prices.h"

#include <gtest/gtest.h>

TEST(Prezzi, SiRiempiono) {
  RiempiPrezzi();
}
