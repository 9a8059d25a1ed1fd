#include "instrument/daq/sim_driver.h"

#include <gtest/gtest.h>

#include <cmath>

// Retrapping current of the RCSJ model against its known values.
TEST(SimJunction, RetrapRatioFollowsRcsj) {
    EXPECT_DOUBLE_EQ(SimDaqRetrapRatio(0.0), 1.0);
    EXPECT_DOUBLE_EQ(SimDaqRetrapRatio(0.5), 1.0);
    EXPECT_NEAR(SimDaqRetrapRatio(2.0), 0.790, 0.015);
    EXPECT_NEAR(SimDaqRetrapRatio(10.0), 0.393, 0.01);
}

TEST(SimJunction, RetrapRatioPrint) {
    for (double b : {0.7, 0.8, 1.0, 2.0, 5.0, 10.0, 20.0, 100.0})
        printf("beta %g Ir %.4f  v(1.5)=%.4f v(3)=%.4f\n", b, SimDaqRetrapRatio(b),
               SimDaqRunningVoltage(b, 1.5), SimDaqRunningVoltage(b, 3));
}
