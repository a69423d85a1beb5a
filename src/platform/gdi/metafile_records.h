// The records of an enhanced metafile as they lie in a file: little endian, 32-bit fields, each
// record a multiple of four bytes. Names and layouts are those of the published structures.
#pragma once

#include "platform/gdi/gdi.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>

static_assert(std::endian::native == std::endian::little, "records are copied as they lie");

#ifndef _WIN32

constexpr DWORD ENHMETA_SIGNATURE = 0x464D4520;  // " EMF"
constexpr DWORD ENHMETA_VERSION = 0x10000;
constexpr DWORD ENHMETA_STOCK_OBJECT = 0x80000000;
constexpr DWORD GM_COMPATIBLE = 1;

constexpr DWORD EMR_HEADER = 1;
constexpr DWORD EMR_SETWINDOWEXTEX = 9;
constexpr DWORD EMR_SETWINDOWORGEX = 10;
constexpr DWORD EMR_SETVIEWPORTEXTEX = 11;
constexpr DWORD EMR_SETVIEWPORTORGEX = 12;
constexpr DWORD EMR_EOF = 14;
constexpr DWORD EMR_SETMAPMODE = 17;
constexpr DWORD EMR_SETBKMODE = 18;
constexpr DWORD EMR_SETTEXTALIGN = 22;
constexpr DWORD EMR_SETTEXTCOLOR = 24;
constexpr DWORD EMR_SETBKCOLOR = 25;
constexpr DWORD EMR_MOVETOEX = 27;
constexpr DWORD EMR_INTERSECTCLIPRECT = 30;
constexpr DWORD EMR_SAVEDC = 33;
constexpr DWORD EMR_RESTOREDC = 34;
constexpr DWORD EMR_SELECTOBJECT = 37;
constexpr DWORD EMR_CREATEPEN = 38;
constexpr DWORD EMR_CREATEBRUSHINDIRECT = 39;
constexpr DWORD EMR_DELETEOBJECT = 40;
constexpr DWORD EMR_RECTANGLE = 43;
constexpr DWORD EMR_LINETO = 54;
constexpr DWORD EMR_GDICOMMENT = 70;
constexpr DWORD EMR_BITBLT = 76;
constexpr DWORD EMR_STRETCHBLT = 77;
constexpr DWORD EMR_EXTCREATEFONTINDIRECTW = 82;
constexpr DWORD EMR_EXTTEXTOUTW = 84;

struct EMR
{
    DWORD iType;
    DWORD nSize;  // bytes of the whole record
};

struct EMREOF
{
    EMR emr;
    DWORD nPalEntries;
    DWORD offPalEntries;
    DWORD nSizeLast;  // the record's size once more, so that a file can be read from its end
};

// cbData bytes follow, filled up to a multiple of four.
struct EMRGDICOMMENT
{
    EMR emr;
    DWORD cbData;
};

struct EMRCREATEPEN
{
    EMR emr;
    DWORD ihPen;
    LOGPEN lopn;
};

struct EMRCREATEBRUSHINDIRECT
{
    EMR emr;
    DWORD ihBrush;
    DWORD lbStyle;
    COLORREF lbColor;
    DWORD lbHatch;
};

struct LOGFONTW
{
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char16_t lfFaceName[LF_FACESIZE];
};

struct EXTLOGFONTW
{
    LOGFONTW elfLogFont;
    char16_t elfFullName[2 * LF_FACESIZE];
    char16_t elfStyle[LF_FACESIZE];
    DWORD elfVersion;
    DWORD elfStyleSize;
    DWORD elfMatch;
    DWORD elfReserved;
    BYTE elfVendorId[4];
    DWORD elfCulture;
    BYTE elfPanose[10];
    WORD nPad;
};

struct EMREXTCREATEFONTINDIRECTW
{
    EMR emr;
    DWORD ihFont;
    EXTLOGFONTW elfw;
};

struct XFORM
{
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
};

struct EMRBITBLT
{
    EMR emr;
    RECTL rclBounds;
    LONG xDest;
    LONG yDest;
    LONG cxDest;
    LONG cyDest;
    DWORD dwRop;
    LONG xSrc;
    LONG ySrc;
    XFORM xformSrc;
    COLORREF crBkColorSrc;
    DWORD iUsageSrc;
    DWORD offBmiSrc;  // offsets from the start of the record; 0: no bitmap
    DWORD cbBmiSrc;
    DWORD offBitsSrc;
    DWORD cbBitsSrc;
};

struct EMRSTRETCHBLT
{
    EMRBITBLT blt;
    LONG cxSrc;
    LONG cySrc;
};

struct EMRTEXT
{
    POINTL ptlReference;
    DWORD nChars;
    DWORD offString;
    DWORD fOptions;
    RECTL rcl;
    DWORD offDx;
};

// The text in UTF-16 follows, filled up to a multiple of four, then one advance for each unit.
struct EMREXTTEXTOUTW
{
    EMR emr;
    RECTL rclBounds;
    DWORD iGraphicsMode;
    FLOAT exScale;  // hundredths of a millimetre in a logical unit
    FLOAT eyScale;
    EMRTEXT emrtext;
};

#endif

// Records of one number: states, selections, deletions.
struct EMRVALUE
{
    EMR emr;
    DWORD nValue;
};

// Records of one point or one size.
struct EMRPAIR
{
    EMR emr;
    LONG x;
    LONG y;
};

struct EMRRECT
{
    EMR emr;
    RECTL rect;
};

static_assert(sizeof(ENHMETAHEADER) == 108 && sizeof(EMREOF) == 20);
static_assert(sizeof(EMRCREATEPEN) == 28 && sizeof(EMRCREATEBRUSHINDIRECT) == 24);
static_assert(sizeof(EMREXTCREATEFONTINDIRECTW) == 332 && sizeof(EMREXTTEXTOUTW) == 76);
static_assert(sizeof(EMRBITBLT) == 100 && sizeof(EMRSTRETCHBLT) == 108);

constexpr std::size_t RoundUp4(std::size_t nBytes)
{
    return (nBytes + 3) & ~std::size_t{ 3 };
}

// Type and size of the record at an offset, where at least they are.
inline EMR HeadAt(std::span<const BYTE> bytes, std::size_t nOffset)
{
    EMR head;
    std::memcpy(&head, bytes.data() + nOffset, sizeof head);
    return head;
}

// All fields zero but the head. A longer record sets its size itself.
template <class T>
T MakeRecord(DWORD nType)
{
    T record{};
    DWORD anHead[] = { nType, sizeof(T) };
    std::memcpy(static_cast<void*>(&record), anHead, sizeof anHead);
    return record;
}
