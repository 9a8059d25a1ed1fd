#include "settings/settings_file.h"

char gIniFileName[4096] = "vtl.ini";
