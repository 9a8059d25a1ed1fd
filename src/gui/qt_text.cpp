#include "gui/qt_text.h"

#include <QFile>

namespace {

// The characters that Windows-1252 puts where Latin-1 has control codes; 0 for the five unused
// places.
const char16_t kHigh[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

QString TextFromStored(const char* text) {
    QString out;
    for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); p && *p; ++p) {
        char16_t c = *p;
        if (c >= 0x80 && c < 0xA0 && kHigh[c - 0x80] != 0) c = kHigh[c - 0x80];
        out.append(QChar(c));
    }
    return out;
}

QByteArray StoredFromText(const QString& text) {
    QByteArray out;
    out.reserve(text.size());
    for (QChar q : text) {
        char16_t c = q.unicode();
        char byte = '?';
        // A byte of 0x80 to 0x9F stands for itself only where the code page leaves it unused.
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF) || (c < 0xA0 && kHigh[c - 0x80] == 0)) {
            byte = static_cast<char>(c);
        } else {
            for (int i = 0; i < 32; ++i)
                if (kHigh[i] == c) byte = static_cast<char>(0x80 + i);
        }
        out.append(byte);
    }
    return out;
}

QString PathToQt(const char* path) {
    return QFile::decodeName(path ? path : "");
}

QByteArray PathFromQt(const QString& path) {
    return QFile::encodeName(path);
}
