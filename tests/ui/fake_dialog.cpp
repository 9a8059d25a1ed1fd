#include "fake_dialog.h"

#include <cstdio>

namespace {

FakeDialog& Of(void* c) {
    return *static_cast<FakeDialog*>(c);
}

FakeControl* Find(void* c, int id) {
    auto it = Of(c).controls.find(id);
    return it == Of(c).controls.end() ? nullptr : &it->second;
}

// A missing control reads as nothing and takes writes into a scratch record.
FakeControl& At(void* c, int id) {
    static FakeControl scratch;
    FakeControl* k = Find(c, id);
    return k ? *k : (scratch = FakeControl{.enabled = false});
}

const SetupDialogOps kFakeOps = {
    .Exists = [](void* c, int id) -> int { return Find(c, id) != nullptr; },
    .IsStatic = [](void* c, int id) -> int { return At(c, id).isStatic; },
    .IsEnabled = [](void* c, int id) -> int { return At(c, id).enabled; },
    .GetText = [](void* c, int id, char* text, size_t size) -> int {
        return Find(c, id) && std::snprintf(text, size, "%s", At(c, id).text.c_str()) >= 0;
    },
    .SetText = [](void* c, int id, const char* text) { At(c, id).text = text; },
    .LimitText = [](void* c, int id, size_t n) { At(c, id).limit = n; },
    .GetCheck = [](void* c, int id) -> int { return At(c, id).check; },
    .SetCheck = [](void* c, int id, int state) { At(c, id).check = state; },
    .Enable = [](void* c, int id, int on) { At(c, id).enabled = on; },
    .Show = [](void* c, int id, int on) { At(c, id).shown = on; },
    .FocusAndSelectAll = [](void* c, int id) { Of(c).focused = Of(c).selectedAll = id; },
    .NextRadio = [](void* c, int id) -> int { return At(c, id).nextRadio; },
    .Beep = [](void* c) { ++Of(c).beeps; },
    .End = [](void* c, int result) { Of(c).ended = result; },
};

} // namespace

FakeDialog::FakeDialog() : dialog{&kFakeOps, this} {}

void FakeDialog::AddRadioGroup(int first, int count) {
    for (int k = 0; k < count; ++k)
        controls[first + k].nextRadio = k + 1 < count ? first + k + 1 : first;
}
