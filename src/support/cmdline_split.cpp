// Splitting of a raw command line into words, in place.
#include "support/cmdline.h"
#include "support/cmdline_internal.h"

#include <cstdlib>
#include <cstring>

int gEscapes = 0;

namespace {

bool IsQuote(char c) {
    return c == '\'' || c == '"' || c == '`';
}

// An escape after the backslash at text[r]; writes one character at w. Returns the new read
// index. An escape cut by the end of the text takes the characters that are there.
std::size_t Escape(char* text, std::size_t r, std::size_t& w) {
    char c = text[r + 1];
    switch (c) {
    case 'a':
        text[w++] = 7;
        return r + 2;
    case 'b':
        text[w++] = 8;
        return r + 2;
    case 'f':
        text[w++] = 12;
        return r + 2;
    case 'n':
        text[w++] = 10;
        return r + 2;
    case 'r':
        text[w++] = 13;
        return r + 2;
    case 't':
        text[w++] = 9;
        return r + 2;
    case 'v':
        text[w++] = 11;
        return r + 2;
    case '\\':
    case '\'':
    case '"':
    case '?':
        text[w++] = c;
        return r + 2;
    default:
        break;
    }
    unsigned base, digits;
    std::size_t from;
    if (c == 'x') {
        base = 16, digits = 2, from = r + 2;
    } else if (c >= '0' && c <= '9') {
        base = 8, digits = 3, from = r + 1;
    } else {
        // Not an escape: the backslash stays and the next character is read as usual.
        text[w++] = '\\';
        return r + 1;
    }
    // Digits are taken as c - '0' in 8-bit arithmetic: right for 0 to 9, as the users know it.
    unsigned char value = 0;
    std::size_t i = from;
    for (; i < from + digits && text[i]; ++i)
        value =
            static_cast<unsigned char>(value * base + static_cast<unsigned char>(text[i] - '0'));
    if (i > from) text[w++] = static_cast<char>(value);
    return i;
}

// Splits the next word starting at r; returns the read index after it, or the end.
std::size_t SplitWord(char* text, std::size_t r, std::size_t& w) {
    char quote = 0;
    while (text[r]) {
        char c = text[r];
        if (!quote) {
            if (IsCmdLineSpace(c)) {
                ++r;
                break;
            }
            if (IsQuote(c))
                quote = c;
            else
                text[w++] = c;
            ++r;
        } else if (c == quote) {
            if (text[r + 1] == quote) {
                text[w++] = c;
                r += 2;
            } else {
                quote = 0;
                ++r;
            }
        } else if (gEscapes && c == '\\' && text[r + 1]) {
            r = Escape(text, r, w);
        } else {
            text[w++] = c;
            ++r;
        }
    }
    text[w++] = '\0';
    return r;
}

} // namespace

bool IsCmdLineSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\xFF';
}

char** SplitCommandLine(char* text, int* count) {
    static char gProgramName[] = "prog.exe";
    std::size_t capacity = 32, used = 0;
    char** vector = static_cast<char**>(std::malloc(capacity * sizeof(char*)));
    if (!vector) return nullptr;
    vector[used++] = gProgramName;
    std::size_t r = 0, w = 0;
    while (text) {
        while (IsCmdLineSpace(text[r]))
            ++r;
        if (!text[r]) break;
        if (used == capacity) {
            capacity *= 2;
            char** grown = static_cast<char**>(std::realloc(vector, capacity * sizeof(char*)));
            if (!grown) {
                std::free(vector);
                return nullptr;
            }
            vector = grown;
        }
        vector[used++] = text + w;
        r = SplitWord(text, r, w);
    }
    if (char** fitted = static_cast<char**>(std::realloc(vector, used * sizeof(char*))))
        vector = fitted;
    *count = static_cast<int>(used);
    return vector;
}
