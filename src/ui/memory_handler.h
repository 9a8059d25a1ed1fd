// The out-of-memory handler: asks Retry or Cancel through the host; Retry repeats the
// allocation, Cancel ends the process at once with exit code -1.
#pragma once
#include <cstddef>

// A std::new_handler. operator new does not tell a handler the size it wanted, so the program
// replaces the global operator new (every form, with the matching deletes over malloc and
// free): it notes the size on this thread before it calls the handler, and the box shows it.
void OutOfMemoryHandler();
// Installs the handler and gives the previous one back.
using NewHandler = void (*)();
NewHandler InstallOutOfMemoryHandler();
// The box alone: true for Retry.
bool AskRetryAllocation(size_t bytes);
