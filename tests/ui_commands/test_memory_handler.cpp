#include "platform/headless_host.h"
#include "ui/memory_handler.h"

#include <gtest/gtest.h>

#include <new>
#include <tuple>
#include <vector>

// Under AddressSanitizer an allocation that can't be served comes back empty, as it does from
// the C library, rather than end the program.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}

// Every form of operator new shows the size it could not get. Retry returns to the allocation
// (the handler here then gives up, where the program's would try again); Cancel ends the
// program, so it is asked of AskRetryAllocation alone.
TEST(MemoryHandler, TheBoxShowsTheSizeThatCouldNotBeAllocated) {
    using Allocate = void* (*)(size_t);
    const Allocate kForms[] = {[](size_t n) { return ::operator new(n); },
                               [](size_t n) { return ::operator new[](n); },
                               [](size_t n) { return ::operator new(n, std::align_val_t(64)); },
                               [](size_t n) { return ::operator new(n, std::nothrow); }};
    std::new_handler previous = std::set_new_handler([] {
        OutOfMemoryHandler();
        throw std::bad_alloc();
    });
    size_t size = size_t(1) << 60;
    for (Allocate allocate : kForms) {
        HeadlessReset();
        HeadlessScriptAnswer(IDRETRY);
        size += 64;
        try {
            ::operator delete(allocate(size)); // a null from the nothrow form
        } catch (const std::bad_alloc&) {
        }
        std::vector<HeadlessBox> boxes = HeadlessBoxes();
        EXPECT_EQ(boxes.size(), 1u); // no ASSERT: the handler must be put back
        const std::string text = boxes.empty() ? "" : boxes[0].text;
        EXPECT_NE(text.find("allocate " + std::to_string(size) + " bytes.\n"), std::string::npos)
            << text;
    }
    std::set_new_handler(previous);
    HeadlessScriptAnswer(IDCANCEL);
    EXPECT_FALSE(AskRetryAllocation(1));
    const HeadlessBox box = HeadlessBoxes().back();
    EXPECT_EQ(std::tuple(box.caption, box.flags & MB_TYPEMASK),
              std::tuple("Vantrel", unsigned(MB_RETRYCANCEL)));
}
