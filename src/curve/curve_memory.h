// Allocation of point arrays and curve arrays. A shortage of memory is an ordinary result here
// (new(std::nothrow) gives null) so that every operation can leave its data consistent and
// report, instead of throwing through a measurement thread.
#pragma once
#include <cstdint>
#include <new>

// How many of the coming array allocations to refuse as if memory had run out. Always 0 in the
// program; tests raise it to walk the failure paths.
extern unsigned gRefusedCurveAllocations;

template <class T> T* NewCurveArray(std::uint32_t n) {
    if (gRefusedCurveAllocations > 0) {
        --gRefusedCurveAllocations;
        return nullptr;
    }
    return new (std::nothrow) T[n];
}
