// The drawing interface in C: device contexts, drawing objects, text, bitmaps, metafiles.
// On Windows it is the system's own; elsewhere these declarations, with its names and values.
#pragma once

#include "platform/base/types.h"

#ifndef _WIN32

#ifndef CALLBACK
#define CALLBACK
#endif

using HGDIOBJ = void*;
using HDC = class HDC__*;
using HFONT = struct HFONT__*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HBITMAP = struct HBITMAP__*;
using HPALETTE = struct HPALETTE__*;
using HENHMETAFILE = class HENHMETAFILE__*;

using RECTL = RECT;
using SIZEL = SIZE;
using POINTL = POINT;

// GetDeviceCaps
constexpr int HORZSIZE = 4;  // millimetres
constexpr int VERTSIZE = 6;
constexpr int HORZRES = 8;  // pixels
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int PLANES = 14;
constexpr int NUMCOLORS = 24;
constexpr int LOGPIXELSX = 88;  // pixels an inch
constexpr int LOGPIXELSY = 90;

// GetObjectType, GetCurrentObject
constexpr UINT OBJ_PEN = 1;
constexpr UINT OBJ_BRUSH = 2;
constexpr UINT OBJ_DC = 3;
constexpr UINT OBJ_PAL = 5;
constexpr UINT OBJ_FONT = 6;
constexpr UINT OBJ_BITMAP = 7;
constexpr UINT OBJ_MEMDC = 10;
constexpr UINT OBJ_ENHMETADC = 12;

// GetStockObject
constexpr int WHITE_BRUSH = 0;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int SYSTEM_FONT = 13;
constexpr int DEFAULT_PALETTE = 15;

// Mapping modes
constexpr int MM_TEXT = 1;
constexpr int MM_ANISOTROPIC = 8;

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr UINT TA_LEFT = 0;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_BASELINE = 24;
constexpr UINT GDI_ERROR = 0xFFFFFFFF;

constexpr int PS_SOLID = 0;
constexpr int PS_NULL = 5;

constexpr UINT BS_SOLID = 0;
constexpr UINT BS_NULL = 1;
constexpr UINT BS_HATCHED = 2;

constexpr int HS_BDIAGONAL = 3;  // rises from left to right

// Raster operations
constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD PATCOPY = 0x00F00021;

// Fonts
constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;
constexpr BYTE ANSI_CHARSET = 0;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr BYTE SYMBOL_CHARSET = 2;
constexpr BYTE ANTIALIASED_QUALITY = 4;
constexpr BYTE FIXED_PITCH = 1;
constexpr BYTE VARIABLE_PITCH = 2;
constexpr BYTE FF_ROMAN = 0x10;
constexpr BYTE FF_SWISS = 0x20;
constexpr BYTE TMPF_FIXED_PITCH = 1;  // set when the pitch is *not* fixed
constexpr BYTE TMPF_VECTOR = 2;
constexpr BYTE TMPF_TRUETYPE = 4;

// DrawText
constexpr UINT DT_LEFT = 0x000;
constexpr UINT DT_CENTER = 0x001;
constexpr UINT DT_RIGHT = 0x002;
constexpr UINT DT_VCENTER = 0x004;
constexpr UINT DT_BOTTOM = 0x008;
constexpr UINT DT_SINGLELINE = 0x020;
constexpr UINT DT_NOCLIP = 0x100;
constexpr UINT DT_EXTERNALLEADING = 0x200;
constexpr UINT DT_NOPREFIX = 0x800;

constexpr UINT ETO_OPAQUE = 2;
constexpr UINT ETO_CLIPPED = 4;

// IntersectClipRect
constexpr int ERROR_REGION = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;

// GetSysColor
constexpr int COLOR_ACTIVECAPTION = 2;
constexpr int COLOR_MENU = 4;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_MENUTEXT = 7;
constexpr int COLOR_WINDOWTEXT = 8;
constexpr int COLOR_CAPTIONTEXT = 9;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_BTNSHADOW = 16;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;
constexpr int COLOR_BTNHIGHLIGHT = 20;

constexpr DWORD BI_RGB = 0;
constexpr DWORD BI_BITFIELDS = 3;
constexpr UINT DIB_RGB_COLORS = 0;

struct TEXTMETRICA
{
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRIC = TEXTMETRICA;

struct LOGPEN
{
    UINT lopnStyle;
    POINT lopnWidth;  // y is not used
    COLORREF lopnColor;
};

struct LOGBRUSH
{
    UINT lbStyle;
    COLORREF lbColor;
    UINT_PTR lbHatch;
};

struct BITMAP
{
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

struct RGBQUAD
{
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

struct BITMAPINFOHEADER
{
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;  // negative: rows from the top down
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct BITMAPINFO
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

#pragma pack(push, 2)
struct BITMAPFILEHEADER
{
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)

struct ENHMETAHEADER
{
    DWORD iType;
    DWORD nSize;
    RECTL rclBounds;  // pixels, right and bottom inside
    RECTL rclFrame;   // hundredths of a millimetre
    DWORD dSignature;
    DWORD nVersion;
    DWORD nBytes;
    DWORD nRecords;
    WORD nHandles;
    WORD sReserved;
    DWORD nDescription;
    DWORD offDescription;
    DWORD nPalEntries;
    SIZEL szlDevice;
    SIZEL szlMillimeters;
    DWORD cbPixelFormat;
    DWORD offPixelFormat;
    DWORD bOpenGL;
    SIZEL szlMicrometers;
};

// nSize bytes in all; dParm is as long as that leaves.
struct ENHMETARECORD
{
    DWORD iType;
    DWORD nSize;
    DWORD dParm[1];
};

struct HANDLETABLE
{
    HGDIOBJ objectHandle[1];
};

using ENHMFENUMPROC = int(CALLBACK*)(HDC hDC, HANDLETABLE* pTable, const ENHMETARECORD* pRecord,
                                     int nHandles, LPARAM lParam);

// Device contexts (linux/gdi_api.cpp)
HDC GetDC(HWND hWnd);  // null: the screen
int ReleaseDC(HWND hWnd, HDC hDC);
HDC CreateCompatibleDC(HDC hDC);
BOOL DeleteDC(HDC hDC);
int SaveDC(HDC hDC);
BOOL RestoreDC(HDC hDC, int nSaved);
int GetDeviceCaps(HDC hDC, int nIndex);
int SetMapMode(HDC hDC, int nMode);
BOOL SetWindowOrgEx(HDC hDC, int x, int y, POINT* pOld);
BOOL SetWindowExtEx(HDC hDC, int cx, int cy, SIZE* pOld);
BOOL SetViewportOrgEx(HDC hDC, int x, int y, POINT* pOld);
BOOL SetViewportExtEx(HDC hDC, int cx, int cy, SIZE* pOld);
BOOL LPtoDP(HDC hDC, POINT* pPoints, int nCount);
BOOL DPtoLP(HDC hDC, POINT* pPoints, int nCount);
int SetBkMode(HDC hDC, int nMode);
int GetBkMode(HDC hDC);
COLORREF SetBkColor(HDC hDC, COLORREF colour);
COLORREF GetBkColor(HDC hDC);
COLORREF SetTextColor(HDC hDC, COLORREF colour);
COLORREF GetTextColor(HDC hDC);
UINT SetTextAlign(HDC hDC, UINT nAlign);
int IntersectClipRect(HDC hDC, int nLeft, int nTop, int nRight, int nBottom);

// Drawing objects (linux/gdi_api_objects.cpp)
HFONT CreateFontIndirectA(const LOGFONTA* pFont);
HPEN CreatePen(int nStyle, int nWidth, COLORREF colour);
HBRUSH CreateSolidBrush(COLORREF colour);
HBRUSH CreateHatchBrush(int nHatch, COLORREF colour);
HPALETTE SelectPalette(HDC hDC, HPALETTE hPalette, BOOL bForceBackground);
UINT RealizePalette(HDC hDC);
HGDIOBJ GetStockObject(int nIndex);
HGDIOBJ SelectObject(HDC hDC, HGDIOBJ hObject);
BOOL DeleteObject(HGDIOBJ hObject);
HGDIOBJ GetCurrentObject(HDC hDC, UINT nType);  // OBJ_FONT, OBJ_PEN, OBJ_BRUSH
UINT GetObjectType(HGDIOBJ hObject);
int GetObjectA(HGDIOBJ hObject, int cbBuffer, LPVOID pBuffer);
COLORREF GetSysColor(int nIndex);
HBRUSH GetSysColorBrush(int nIndex);

// Shapes (linux/gdi_api.cpp)
int FillRect(HDC hDC, const RECT* pRect, HBRUSH hBrush);
BOOL MoveToEx(HDC hDC, int x, int y, POINT* pOld);
BOOL LineTo(HDC hDC, int x, int y);
BOOL Rectangle(HDC hDC, int nLeft, int nTop, int nRight, int nBottom);

// Text (linux/gdi_api_text.cpp)
int DrawTextA(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat);
BOOL ExtTextOutA(HDC hDC, int x, int y, UINT nOptions, const RECT* pRect, LPCSTR pszText,
                 UINT nCount, const INT* pDx);
BOOL GetTextExtentPoint32A(HDC hDC, LPCSTR pszText, int nCount, SIZE* pSize);
BOOL GetTextMetricsA(HDC hDC, TEXTMETRICA* pMetrics);

// Bitmaps (linux/bitmap.cpp, linux/dib.cpp, linux/stretch.cpp)
HBITMAP CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* pBits);
HBITMAP CreateCompatibleBitmap(HDC hDC, int nWidth, int nHeight);
int GetDIBits(HDC hDC, HBITMAP hBitmap, UINT nStart, UINT nLines, LPVOID pBits, BITMAPINFO* pInfo,
              UINT nUsage);
BOOL BitBlt(HDC hDC, int x, int y, int nWidth, int nHeight, HDC hSource, int xSource, int ySource,
            DWORD nRop);
BOOL StretchBlt(HDC hDC, int x, int y, int nWidth, int nHeight, HDC hSource, int xSource,
                int ySource, int nSourceWidth, int nSourceHeight, DWORD nRop);
COLORREF GetPixel(HDC hDC, int x, int y);
COLORREF SetPixel(HDC hDC, int x, int y, COLORREF colour);

// Enhanced metafiles (linux/metafile_writer.cpp, linux/metafile_reader.cpp)
HDC CreateEnhMetaFileA(HDC hReference, LPCSTR pszFile, const RECT* pFrame, LPCSTR pszDescription);
HENHMETAFILE CloseEnhMetaFile(HDC hDC);
HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE hMetaFile, LPCSTR pszFile);
HENHMETAFILE GetEnhMetaFileA(LPCSTR pszFile);
BOOL DeleteEnhMetaFile(HENHMETAFILE hMetaFile);
BOOL EnumEnhMetaFile(HDC hDC, HENHMETAFILE hMetaFile, ENHMFENUMPROC pCallback, LPVOID pParam,
                     const RECT* pRect);
UINT GetEnhMetaFileHeader(HENHMETAFILE hMetaFile, UINT cbBuffer, ENHMETAHEADER* pHeader);
UINT GetEnhMetaFileBits(HENHMETAFILE hMetaFile, UINT cbBuffer, BYTE* pBuffer);
HENHMETAFILE SetEnhMetaFileBits(UINT cbBuffer, const BYTE* pBuffer);
BOOL GdiComment(HDC hDC, UINT cbData, const BYTE* pData);

#endif
