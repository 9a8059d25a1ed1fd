// Numbers in files are written and read in the C locale whatever the user's locale: the Qt
// interface sets the process locale from the environment, so a decimal comma would otherwise
// leak into data and settings files.
#pragma once
#include <cstdarg>
#include <cstddef>

// While one lives, this thread formats and parses in the C locale.
class CLocaleScope {
  public:
    CLocaleScope();
    ~CLocaleScope();
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

  private:
    void* previous_;
};

// snprintf and strtod in the C locale.
int SnprintfC(char* buffer, size_t size, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
int VsnprintfC(char* buffer, size_t size, const char* format, va_list args);
double StrToDoubleC(const char* text, char** end);
