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

const SetupDialogOps kFakeOps = {
    .Exists = [](void* c, int id) -> int { return Find(c, id) != nullptr; },
    .IsStatic = [](void* c, int id) -> int { return Find(c, id) && Find(c, id)->isStatic; },
    .IsEnabled = [](void* c, int id) -> int { return Find(c, id) && Find(c, id)->enabled; },
    .GetText = [](void* c, int id, char* text, size_t size) -> int {
        FakeControl* k = Find(c, id);
        if (!k) return 0;
        std::snprintf(text, size, "%s", k->text.c_str());
        return 1;
    },
    .SetText =
        [](void* c, int id, const char* text) {
            if (FakeControl* k = Find(c, id)) k->text = text;
        },
    .LimitText =
        [](void* c, int id, size_t n) {
            if (FakeControl* k = Find(c, id)) k->limit = n;
        },
    .GetCheck = [](void* c, int id) -> int { return Find(c, id) ? Find(c, id)->check : 0; },
    .SetCheck =
        [](void* c, int id, int state) {
            if (FakeControl* k = Find(c, id)) k->check = state;
        },
    .Enable =
        [](void* c, int id, int on) {
            if (FakeControl* k = Find(c, id)) k->enabled = on;
        },
    .Show =
        [](void* c, int id, int on) {
            if (FakeControl* k = Find(c, id)) k->shown = on;
        },
    .FocusAndSelectAll =
        [](void* c, int id) {
            Of(c).focused = id;
            Of(c).selectedAll = id;
        },
    .NextRadio = [](void* c, int id) -> int { return Find(c, id) ? Find(c, id)->nextRadio : 0; },
    .Beep = [](void* c) { ++Of(c).beeps; },
    .End = [](void* c, int result) { Of(c).ended = result; },
};

} // namespace

FakeDialog::FakeDialog() {
    dialog.ops = &kFakeOps;
    dialog.context = this;
}

void FakeDialog::AddRadioGroup(int first, int count) {
    for (int k = 0; k < count; ++k)
        controls[first + k].nextRadio = k + 1 < count ? first + k + 1 : first;
}
