// Numbers are written and read in the C locale whatever the user's locale: the interface sets
// the process locale from the environment, and a comma for a decimal point would make files and
// switches unreadable elsewhere.
#pragma once
#include <locale.h>

// Switches the calling thread to the C locale while it lives; other threads are not affected.
class CLocaleScope {
  public:
    CLocaleScope();
    ~CLocaleScope();
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

  private:
    locale_t previous_;
};
