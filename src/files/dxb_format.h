// AutoCAD DXB binary exchange files as the program reads them: the signature, the entity codes
// and the writing routines. Every multi-byte number is little-endian.
#pragma once
#include <cstdio>

// "AutoCAD DXB 1.0\r\n", the byte 0x1A and a terminating 0.
constexpr unsigned kDxbSignatureSize = 19;
extern const char kDxbSignature[kDxbSignatureSize];
// The first 16 bytes of the program's own trailer: 15 characters and a 0.
extern const char kDxbTrailerMarker[16];
constexpr unsigned kDxbFooterSize = 28;

enum : unsigned char {
    DXB_END = 0,
    DXB_LINE = 1,
    DXB_SEQUENCE_END = 0x11,
    DXB_POLYLINE = 0x13,
    DXB_VERTEX = 0x14,
    DXB_SCALE_FACTOR = 0x80,
    DXB_LAYER_NAME = 0x81,
    DXB_NUMBER_MODE = 0x87,
};

// The writers report nothing: the caller checks the stream with ferror.
void DxbWriteByte(std::FILE* f, unsigned char value);
void DxbWriteWord(std::FILE* f, unsigned value);
// A rectangle as a polyline of four vertices in number mode 0, closed by a sequence end.
void DxbWriteRectangle(std::FILE* f, unsigned left, unsigned bottom, unsigned right, unsigned top);
// A line entity from (x1, y1) to (x2, y2); the y values are rounded to 16 bits.
void DxbWriteLine(std::FILE* f, unsigned x1, float y1, unsigned x2, float y2);
// The text with its terminating 0.
void DxbWriteString(std::FILE* f, const char* text);
