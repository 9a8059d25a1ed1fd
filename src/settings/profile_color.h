// Colours in vtl.ini are written "0x%06X", which the decimal profile readers would take for 0.
#pragma once

unsigned long ReadProfileColor(const char* section, const char* key, unsigned long defaultValue,
                               const char* fileName);
int WriteProfileColor(const char* section, const char* key, unsigned long color,
                      const char* fileName);
