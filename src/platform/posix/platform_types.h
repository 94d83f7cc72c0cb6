#pragma once

// The records of the Windows interface that the engine's contract speaks of, for systems that do not define them:
// same names, same fields, same bytes. On Windows the build takes this file from another folder, which includes the
// system's own header instead.

#include <cstdint>

/// What other libraries may link against. Everything else of a library stays hidden.
#define ENGINE_API __attribute__((visibility("default")))
#define GUI_API __attribute__((visibility("default")))
/// A part of an exported class that is nobody else's business.
#define GUI_LOCAL __attribute__((visibility("hidden")))

struct tagRECT {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

struct tagPOINT {
    std::int32_t x;
    std::int32_t y;
};

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};

/// A logical font. lfHeight: its absolute value is the size in pixels. lfFaceName ends with a zero; 31 units at most.
struct LOGFONTW {
    std::int32_t lfHeight;
    std::int32_t lfWidth;
    std::int32_t lfEscapement;
    std::int32_t lfOrientation;
    std::int32_t lfWeight;
    std::uint8_t lfItalic;
    std::uint8_t lfUnderline;
    std::uint8_t lfStrikeOut;
    std::uint8_t lfCharSet;
    std::uint8_t lfOutPrecision;
    std::uint8_t lfClipPrecision;
    std::uint8_t lfQuality;
    std::uint8_t lfPitchAndFamily;
    char16_t lfFaceName[32];
};
static_assert(sizeof(LOGFONTW) == 92, "projects store words of this record");
