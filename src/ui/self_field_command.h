// "Self-field": removes the field a measured critical current makes by itself from the marked
// curves, with the dialog for one curve or the one for several.
#pragma once

// 1 when the curves were changed, 0 when a dialog was cancelled or there was nothing to do.
int SelfFieldCommand(void* window);
