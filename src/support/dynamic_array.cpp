#include "support/dynamic_array.h"

#include <algorithm>
#include <new>

int DynamicArray::Resize(unsigned n) {
    if (n == 0) {
        delete[] data;
        data = nullptr;
        count = 0;
        return 1;
    }
    auto* fresh = new (std::nothrow) std::int16_t[n]();
    if (!fresh) return 0;
    if (data) std::copy(data, data + std::min(count, n), fresh);
    delete[] data;
    data = fresh;
    count = n;
    return 1;
}

std::int16_t& DynamicArray::Spare() {
    // Out-of-range access must not touch memory it does not own; it gets this cell instead.
    thread_local std::int16_t spare;
    spare = 0;
    return spare;
}
