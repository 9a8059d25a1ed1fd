#include "measure/measure_run.h"
#include "measure/sweep_range.h"

#include <gtest/gtest.h>

#include <vector>

namespace {
std::vector<std::uint32_t> Walk(const SweepRange& r) {
    std::vector<std::uint32_t> values;
    SweepIterator it(r);
    std::uint32_t v;
    for (it.Begin(); it.HasMore(v) && values.size() < 1000; it.Next())
        values.push_back(v);
    return values;
}
} // namespace

// A step beyond the span gives one point.
TEST(SweepRange, PointCounts) {
    EXPECT_EQ(SweepPointCount(SweepRange{0, 65535, 128, 0, 0, nullptr}), 65535u / 128 + 1);
    SweepRange big = {10, 20, 50, 0, 0, nullptr};
    EXPECT_EQ(SweepPointCount(big), 1u);
    EXPECT_EQ(Walk(big), (std::vector<std::uint32_t>{10}));
}

TEST(SweepRange, DirectionsWrapAndTurningValue) {
    SweepRange up = {0, 10, 5, 0, 0, nullptr};
    EXPECT_EQ(Walk(up), (std::vector<std::uint32_t>{0, 5, 10}));
    SweepRange down = {10, 0, 4, 0, 0, nullptr};
    // The subtraction below zero wraps high and ends the sweep.
    EXPECT_EQ(Walk(down), (std::vector<std::uint32_t>{10, 6, 2}));
    SweepRange both = {0, 10, 5, 1, 0, nullptr};
    EXPECT_EQ(Walk(both), (std::vector<std::uint32_t>{0, 5, 10, 10, 5, 0}));
    SweepRange bothDown = {9, 1, 4, 1, 0, nullptr};
    // The turning value is to, even when the forward run stopped short of it.
    EXPECT_EQ(Walk(bothDown), (std::vector<std::uint32_t>{9, 5, 1, 1, 5, 9}));
    SweepRange odd = {0, 10, 4, 1, 0, nullptr};
    EXPECT_EQ(Walk(odd), (std::vector<std::uint32_t>{0, 4, 8, 10, 6, 2}));
}

TEST(MeasureRun, ProgressText) {
    char text[128];
    int percent = -1;
    FormatProgress(text, sizeof text, 2000, 25, 100, &percent);
    EXPECT_EQ(std::tuple(std::string(text), percent),
              std::tuple("25.0 % (Estimated: 6.0 sec left, 8.0 sec total)", 25));
    FormatProgress(text, sizeof text, 1000, 3, 7, &percent);
    EXPECT_EQ(percent, 42);
}
