#include "platform/host.h"
#include "platform/headless_host.h"

#include <atomic>

namespace {
std::atomic<const HostTable*> gHost{nullptr};
}

const HostTable& Host() {
    const HostTable* host = gHost.load(std::memory_order_acquire);
    return host ? *host : HeadlessHostTable();
}

void SetHost(const HostTable* host) {
    gHost.store(host, std::memory_order_release);
}
