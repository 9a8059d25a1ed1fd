// The argument vector, the options file and the lookups of switches by name.
#include "support/cmdline.h"
#include "support/bounded_text.h"
#include "support/cmdline_internal.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int gCaseInsensitive = 0;
char gOptionsFileText[4097];

namespace {

constexpr unsigned long OPTIONS_FILE_LIMIT = sizeof gOptionsFileText - 1;

char** gArgVector = nullptr;
int gArgCount = 0;
bool gOwnVector = false; // made by ParseCommandLine, as opposed to taken from main()

char Fold(char c) {
    return gCaseInsensitive && c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

// The rest of word after "-name", or null when word is not that switch.
const char* SwitchRest(const char* word, std::size_t wordLength, const char* name) {
    if (wordLength == 0 || word[0] != '-') return nullptr;
    std::size_t n = std::strlen(name);
    if (wordLength - 1 < n) return nullptr;
    for (std::size_t i = 0; i < n; ++i)
        if (Fold(word[1 + i]) != Fold(name[i])) return nullptr;
    return word + 1 + n;
}

// The word of text that starts at or after *at: its start and length, *at moved past it.
bool NextWord(const char* text, std::size_t* at, const char** word, std::size_t* length) {
    std::size_t i = *at;
    while (text[i] && IsCmdLineSpace(text[i]))
        ++i;
    if (!text[i]) return false;
    std::size_t start = i;
    while (text[i] && !IsCmdLineSpace(text[i]))
        ++i;
    *word = text + start;
    *length = i - start;
    *at = i;
    return true;
}

// StringFindSwith: the options file search. A value that does not fit the caller's buffer is a
// fault of the program, not of the user.
bool StringFindSwith(const char* list, const char* name, char* text, std::size_t size) {
    const char* value;
    std::size_t length;
    if (!ListSwitchValue(list, name, &value, &length)) return false;
    if (text && size) {
        if (length >= size)
            CmdLineFail(5,
                        "Internal Error in StringFindSwith() -- buffer is too small\nFile: %s, "
                        "line %u\nContact developers\n",
                        __FILE__, unsigned(__LINE__));
        std::memcpy(text, value, length);
        text[length] = '\0';
    }
    return true;
}

void ReadOptionsFile() {
    char name[CMDLINE_VALUE_SIZE];
    SwitchString("@", "", name, sizeof name);
    if (!name[0]) return;
    std::FILE* file = std::fopen(name, "rb");
    if (!file) CmdLineFail(3, "Can't open option's file '%s'", name);
    char text[sizeof gOptionsFileText + 1];
    std::size_t length = std::fread(text, 1, sizeof text, file);
    std::fclose(file);
    if (length > OPTIONS_FILE_LIMIT)
        CmdLineFail(5, "Internal error: options file is larger than %lu bytes\n",
                    OPTIONS_FILE_LIMIT);
    std::memcpy(gOptionsFileText, text, length);
    gOptionsFileText[length] = '\0';
}

} // namespace

void (*gCmdLineFailHook)(int code) = nullptr;

void CmdLineFail(int code, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    std::vfprintf(stderr, format, args);
    va_end(args);
    std::fflush(stderr);
    if (gCmdLineFailHook) gCmdLineFailHook(code);
    std::exit(code);
}

bool ParseCommandLine(char* text) {
    FreeCommandLine();
    int count = 0;
    char** vector = SplitCommandLine(text, &count);
    if (!vector) return false;
    gArgVector = vector;
    gArgCount = count;
    gOwnVector = true;
    ReadOptionsFile();
    return true;
}

bool ParseArgv(int count, char** vector) {
    FreeCommandLine();
    gArgVector = vector;
    gArgCount = vector ? count : 0;
    ReadOptionsFile();
    return true;
}

void FreeCommandLine() {
    if (gOwnVector) std::free(gArgVector);
    gArgVector = nullptr;
    gArgCount = 0;
    gOwnVector = false;
    gOptionsFileText[0] = '\0';
}

const char* ArgSwitchValue(int after, const char* name, int* index) {
    for (int i = after < 0 ? 1 : after + 1; i < gArgCount; ++i) {
        const char* word = gArgVector[i];
        if (!word) continue;
        if (const char* rest = SwitchRest(word, std::strlen(word), name)) {
            if (index) *index = i;
            return rest;
        }
    }
    return nullptr;
}

bool ListSwitchValue(const char* list, const char* name, const char** value, std::size_t* length) {
    std::size_t at = 0, wordLength;
    const char* word;
    while (list && NextWord(list, &at, &word, &wordLength)) {
        if (const char* rest = SwitchRest(word, wordLength, name)) {
            *value = rest;
            *length = wordLength - std::size_t(rest - word);
            return true;
        }
    }
    return false;
}

int FindSwitchAfter(int after, const char* name, char* text, size_t size) {
    int index = 0;
    const char* rest = ArgSwitchValue(after, name, &index);
    if (!rest) return 0;
    if (text && size) BoundedCopy(text, rest, size);
    return index;
}

int FindSwitch(const char* name, char* text, size_t size) {
    return FindSwitchAfter(0, name, text, size);
}

bool FindSwitchIn(const char* list, const char* name, char* text, size_t size) {
    return StringFindSwith(list, name, text, size);
}

int PositionalCount() {
    int count = 1;
    for (int i = 1; i < gArgCount; ++i)
        if (gArgVector[i] && gArgVector[i][0] != '-') ++count;
    return count;
}

const char* Positional(int n) {
    if (n == 0) return gArgCount > 0 ? gArgVector[0] : nullptr;
    if (n < 0) return nullptr;
    for (int i = 1; i < gArgCount; ++i)
        if (gArgVector[i] && gArgVector[i][0] != '-' && --n == 0) return gArgVector[i];
    return nullptr;
}
