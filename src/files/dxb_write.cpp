#include "files/dxb_format.h"

#include <cmath>
#include <cstring>

const char kDxbSignature[kDxbSignatureSize] = "AutoCAD DXB 1.0\r\n\x1A";
const char kDxbTrailerMarker[16] = "VTL's DXB      ";

void DxbWriteByte(std::FILE* f, unsigned char value) {
    std::fputc(value, f);
}

void DxbWriteWord(std::FILE* f, unsigned value) {
    DxbWriteByte(f, static_cast<unsigned char>(value & 0xFF));
    DxbWriteByte(f, static_cast<unsigned char>((value >> 8) & 0xFF));
}

void DxbWriteRectangle(std::FILE* f, unsigned left, unsigned bottom, unsigned right, unsigned top) {
    DxbWriteByte(f, DXB_POLYLINE);
    DxbWriteWord(f, 1);
    const unsigned corners[4][2] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
    for (const auto& c : corners) {
        DxbWriteByte(f, DXB_VERTEX);
        DxbWriteWord(f, c[0]);
        DxbWriteWord(f, c[1]);
    }
    DxbWriteByte(f, DXB_SEQUENCE_END);
}

void DxbWriteLine(std::FILE* f, unsigned x1, float y1, unsigned x2, float y2) {
    DxbWriteByte(f, DXB_LINE);
    DxbWriteWord(f, x1);
    DxbWriteWord(f, static_cast<unsigned>(std::lround(y1)));
    DxbWriteWord(f, x2);
    DxbWriteWord(f, static_cast<unsigned>(std::lround(y2)));
}

void DxbWriteString(std::FILE* f, const char* text) {
    std::fwrite(text, 1, std::strlen(text) + 1, f);
}
