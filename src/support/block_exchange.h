// Exchanges two memory blocks word by word (16-bit words). Curve records, point arrays and whole
// families move this way instead of being copied.
#pragma once
#include <cstddef>

// bytes must be even and neither pointer null (checked). A block exchanged with itself is left
// as it was. The blocks must not overlap partially.
void ExchangeBlocks(void* a, void* b, size_t bytes);

// Exchanges two objects of the same type bytewise.
template <class T> void ExchangeObjects(T& a, T& b) {
    static_assert(sizeof(T) % 2 == 0, "exchanged records have an even size");
    ExchangeBlocks(&a, &b, sizeof(T));
}
