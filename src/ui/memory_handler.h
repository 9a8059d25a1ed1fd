// The out-of-memory handler: asks Retry or Cancel through the host; Retry repeats the
// allocation, Cancel ends the process at once with exit code -1.
#pragma once
#include <cstddef>

// A std::new_handler. operator new does not tell the handler the size it wanted, so the box
// shows the last size noted with NoteAllocationSize (0 when none was noted).
void OutOfMemoryHandler();
void NoteAllocationSize(size_t bytes);
// Installs the handler and gives the previous one back.
using NewHandler = void (*)();
NewHandler InstallOutOfMemoryHandler();
// The box alone: true for Retry.
bool AskRetryAllocation(size_t bytes);
