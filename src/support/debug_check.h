// Checks for programming errors: a failed condition reports expression, file and line through
// the installed handler and work goes on. They are never messages to the user.
#pragma once

// The handler gets the expression (or a message), the source file and the line.
using AssertHandler = void (*)(const char* expression, const char* file, unsigned line);

// Reports one failure through the installed handler (default: a line on standard error).
void AssertFailed(const char* expression, const char* file, unsigned line);
// Installs a handler; null restores the default. Returns the previous one.
AssertHandler SetAssertHandler(AssertHandler handler);

#define VASSERT(cond)                                                                              \
    ((cond) ? (void)0 : AssertFailed(#cond, __FILE__, static_cast<unsigned>(__LINE__)))
// A failure with a fixed message instead of the expression.
#define VASSERT_MSG(cond, message)                                                                 \
    ((cond) ? (void)0 : AssertFailed(message, __FILE__, static_cast<unsigned>(__LINE__)))
