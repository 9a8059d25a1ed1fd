// Allocation of point arrays and curve arrays. A shortage of memory is an ordinary result here
// (new(std::nothrow) gives null) so that every operation can leave its data consistent and
// report, instead of throwing through a measurement thread.
#pragma once
#include <cstdint>
#include <new>

// How many more array allocations may succeed before they fail as if memory had run out;
// negative (the program's value) means no limit. Tests set it to walk the failure paths.
extern int gCurveAllocationBudget;

template <class T> T* NewCurveArray(std::uint32_t n) {
    if (gCurveAllocationBudget == 0) return nullptr;
    if (gCurveAllocationBudget > 0) --gCurveAllocationBudget;
    return new (std::nothrow) T[n];
}
