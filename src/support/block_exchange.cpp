#include "support/block_exchange.h"
#include "support/debug_check.h"

#include <cstdint>
#include <cstring>

void ExchangeBlocks(void* a, void* b, size_t bytes) {
    VASSERT(a != nullptr && b != nullptr);
    VASSERT(bytes % 2 == 0);
    if (!a || !b || bytes % 2 != 0 || a == b) return;
    auto* p = static_cast<unsigned char*>(a);
    auto* q = static_cast<unsigned char*>(b);
    // Eight bytes at a time gives the same result as 16-bit words, four times faster.
    while (bytes >= 8) {
        std::uint64_t x, y;
        std::memcpy(&x, p, 8);
        std::memcpy(&y, q, 8);
        std::memcpy(p, &y, 8);
        std::memcpy(q, &x, 8);
        p += 8;
        q += 8;
        bytes -= 8;
    }
    while (bytes >= 2) {
        std::uint16_t x, y;
        std::memcpy(&x, p, 2);
        std::memcpy(&y, q, 2);
        std::memcpy(p, &y, 2);
        std::memcpy(q, &x, 2);
        p += 2;
        q += 2;
        bytes -= 2;
    }
}
