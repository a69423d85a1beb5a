// A drawing from the records of a metafile: they hold every call of the nodes, in the same form on
// each system.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>

#include "nodes/node.h"
#include "picture/drawing.h"
#include "picture/failure.h"
#include "platform/base/code_page.h"
#include "platform/base/system.h"
#include "platform/gdi/metafile_records.h"
#include "platform/gdi/native_gdi.h"
#include "service/screen_dc.h"
#include "tree/bin_tree.h"

namespace
{
constexpr size_t s_nFirstField = sizeof(EMR);
constexpr size_t s_nFaceName = offsetof(LOGFONTW, lfFaceName);
constexpr double s_fLargestPattern = 65536;

template <class T>
T At(const BYTE* pRecord, size_t nOffset)
{
    static_assert(std::is_trivially_copyable_v<T>);
    T value;
    std::memcpy(&value, pRecord + nOffset, sizeof value);
    return value;
}

char ByteOf(char16_t nUnit)
{
    if ((nUnit & 0xFF00) == 0xF000)  // a code of the face's own
        return static_cast<char>(nUnit & 0xFF);
    const int nCode = UnicodeToWindows1252(nUnit);
    return static_cast<char>(nCode >= 0 ? nCode : '?');
}

LOGFONTA DescriptionOf(const BYTE* pRecord)
{
    LOGFONTA font;
    std::memset(&font, 0, sizeof font);  // compared as bytes
    const BYTE* pWide = pRecord + offsetof(EMREXTCREATEFONTINDIRECTW, elfw);
    std::memcpy(&font, pWide, s_nFaceName);
    for (size_t n = 0; n + 1 < LF_FACESIZE; ++n)
    {
        const char16_t nUnit = At<char16_t>(pWide, s_nFaceName + n * sizeof nUnit);
        if (nUnit == 0)
            break;
        font.lfFaceName[n] = ByteOf(nUnit);
    }
    return font;
}

// Rows of pixels from a to b, b left out; a line that goes backwards leaves out the other end.
std::pair<double, double> Ends(int a, int b)
{
    return a <= b ? std::pair<double, double>(a, b) : std::pair<double, double>(b + 1.0, a + 1.0);
}

class CRecorder
{
public:
    explicit CRecorder(CDrawing& drawing) : m_drawing(drawing) {}

    void Take(const BYTE* pRecord)
    {
        switch (At<DWORD>(pRecord, 0))
        {
            case EMR_SETTEXTCOLOR:
                m_crText = At<COLORREF>(pRecord, s_nFirstField);
                break;
            case EMR_SETBKCOLOR:
                m_crBack = At<COLORREF>(pRecord, s_nFirstField);
                break;
            case EMR_MOVETOEX:
                m_pen = At<POINT>(pRecord, s_nFirstField);
                break;
            case EMR_CREATEPEN:
            case EMR_CREATEBRUSHINDIRECT:
            case EMR_EXTCREATEFONTINDIRECTW:
                Object(At<DWORD>(pRecord, s_nFirstField)) = pRecord;
                break;
            case EMR_DELETEOBJECT:
                Object(At<DWORD>(pRecord, s_nFirstField)) = nullptr;
                break;
            case EMR_SELECTOBJECT:
                Select(At<DWORD>(pRecord, s_nFirstField));
                break;
            case EMR_LINETO:
                TakeLine(At<POINT>(pRecord, s_nFirstField));
                break;
            case EMR_RECTANGLE:
                TakeHatchedBox(At<RECT>(pRecord, s_nFirstField));
                break;
            case EMR_EXTTEXTOUTW:
                TakeText(pRecord);
                break;
            default:
                break;
        }
    }

private:
    const BYTE*& Object(DWORD nHandle)
    {
        if (nHandle >= m_objects.size())
            m_objects.resize(nHandle + size_t{ 16 });
        return m_objects[nHandle];
    }

    void Select(DWORD nHandle)
    {
        const bool bStock = (nHandle & ENHMETA_STOCK_OBJECT) != 0;
        const BYTE* pObject = bStock ? nullptr : Object(nHandle);
        if (pObject == nullptr)
            return;
        const DWORD nType = At<DWORD>(pObject, 0);
        if (nType == EMR_EXTCREATEFONTINDIRECTW)
            m_pFont = pObject;
        else if (nType == EMR_CREATEPEN)
            m_crPen = At<COLORREF>(pObject, offsetof(EMRCREATEPEN, lopn.lopnColor));
    }

    void AddLine(double x1, double y1, double x2, double y2)
    {
        m_drawing.lines.push_back({ x1, y1, x2, y2, m_crPen });
    }

    void TakeLine(POINT to)
    {
        const POINT from = std::exchange(m_pen, to);
        if (from.y == to.y && from.x != to.x)
        {
            const auto [x1, x2] = Ends(from.x, to.x);
            AddLine(x1, from.y + 0.5, x2, from.y + 0.5);
        }
        else if (from.x == to.x && from.y != to.y)
        {
            const auto [y1, y2] = Ends(from.y, to.y);
            AddLine(from.x + 0.5, y1, from.x + 0.5, y2);
        }
        else if (from.x != to.x)
        {
            AddLine(from.x + 0.5, from.y + 0.5, to.x + 0.5, to.y + 0.5);
        }
    }

    // The record has the last column and row in it. Lines from the lower left to the upper right
    // fill the frame, at the places where a pattern of the whole device has them.
    void TakeHatchedBox(const RECT& box)
    {
        const double l = box.left;
        const double t = box.top;
        const double r = box.right + 1.0;
        const double b = box.bottom + 1.0;
        AddLine(l, t + 0.5, r, t + 0.5);
        AddLine(l, b - 0.5, r, b - 0.5);
        AddLine(l + 0.5, t + 1, l + 0.5, b - 1);
        AddLine(r - 0.5, t + 1, r - 0.5, b - 1);
        if (r - l > s_fLargestPattern || b - t > s_fLargestPattern)
            return;  // the size of a damaged file: no picture is so large
        const double fFirst = std::floor((l + t + 2) / HATCH_STEP + 1) * HATCH_STEP;
        for (double fSum = fFirst; fSum < r + b - 2; fSum += HATCH_STEP)
        {
            const double x1 = std::max(l + 1, fSum - b + 1);
            const double x2 = std::min(r - 1, fSum - t - 1);
            AddLine(x1, fSum - x1, x2, fSum - x2);
        }
    }

    void TakeText(const BYTE* pRecord)
    {
        const EMRTEXT text = At<EMREXTTEXTOUTW>(pRecord, 0).emrtext;
        if (text.nChars != 0)
            AddText(pRecord, text);
        else if ((text.fOptions & ETO_OPAQUE) != 0)
            AddFill(CRect(At<RECT>(pRecord, offsetof(EMREXTTEXTOUTW, emrtext.rcl))));
    }

    // Every node that is shown begins with the fill of its own part.
    void AddFill(CRect rect)
    {
        ++m_nNode;
        rect.NormalizeRect();
        Uncover(rect);
        if (m_crBack != m_crWindow && !rect.IsRectEmpty())
            m_drawing.marks.push_back({ rect, m_crBack });
    }

    void Uncover(const CRect& rect)
    {
        std::vector<CDrawnMark>& marks = m_drawing.marks;
        for (size_t n = 0; n < marks.size();)
        {
            CRect common;
            if (!common.IntersectRect(marks[n].rect, rect))
            {
                ++n;
                continue;
            }
            const CDrawnMark mark = marks[n];
            marks[n] = marks.back();
            marks.pop_back();
            const CRect& old = mark.rect;
            for (const CRect& rest : { CRect(old.left, old.top, old.right, common.top),
                                       CRect(old.left, common.bottom, old.right, old.bottom),
                                       CRect(old.left, common.top, common.left, common.bottom),
                                       CRect(common.right, common.top, old.right, common.bottom) })
            {
                if (!rest.IsRectEmpty())
                    marks.push_back({ rest, mark.colour });
            }
        }
    }

    void AddText(const BYTE* pRecord, const EMRTEXT& text)
    {
        const size_t nFont = FontIndex();
        m_drawing.texts.push_back(
            { nFont, m_crText,
              CPoint(text.ptlReference.x,
                     WrapAdd(text.ptlReference.y, m_drawing.fonts[nFont].glyphs.m_nAscent)),
              m_drawing.glyphs.size(), text.nChars, m_nNode });
        const BYTE* pText = pRecord + text.offString;
        const BYTE* pAdvances = pRecord + text.offDx;
        int nOffset = 0;
        for (DWORD n = 0; n < text.nChars; ++n)
        {
            const char ch = ByteOf(At<char16_t>(pText, n * sizeof(char16_t)));
            m_drawing.glyphs.push_back({ static_cast<BYTE>(ch), nOffset });
            nOffset = WrapAdd(nOffset, At<int>(pAdvances, n * sizeof(int)));
        }
    }

    size_t FontIndex()
    {
        const LOGFONTA font = m_pFont != nullptr ? DescriptionOf(m_pFont) : LOGFONTA{};
        const std::string strKey(reinterpret_cast<const char*>(&font), sizeof font);
        const auto [it, bNew] = m_fonts.try_emplace(strKey, m_drawing.fonts.size());
        if (bNew)
            m_drawing.fonts.push_back({ font, FindGlyphFont(font) });
        return it->second;
    }

    CDrawing& m_drawing;
    const COLORREF m_crWindow = GetSysColor(COLOR_WINDOW);
    std::vector<const BYTE*> m_objects;  // records that made them, by handle
    std::unordered_map<std::string, size_t> m_fonts;
    const BYTE* m_pFont = nullptr;
    COLORREF m_crPen = 0;
    COLORREF m_crText = 0;
    COLORREF m_crBack = 0xFFFFFF;
    POINT m_pen{};
    int m_nNode = -1;
};

// A drawing is taken apart by the fills of its nodes.
class CFillScope
{
public:
    explicit CFillScope(CBinTree& tree) : m_tree(tree), m_nMode(tree.GetSelectionMode())
    {
        tree.SetSelectionMode(m_nMode & ~static_cast<int>(PF_NO_FILL));
    }
    ~CFillScope() { m_tree.SetSelectionMode(m_nMode); }
    CFillScope(const CFillScope&) = delete;
    CFillScope& operator=(const CFillScope&) = delete;

private:
    CBinTree& m_tree;
    int m_nMode;
};

std::vector<BYTE> PaintedRecords(CBinTree& tree, CDC& screen)
{
    CMetaFileDC dc;
    if (!dc.CreateEnhanced(&screen, nullptr, nullptr, nullptr))
        throw CPictureFailure{ "the system records no drawing" };
    dc.SetAttribDC(screen.GetSafeHdc());
    const CFillScope fills(tree);
    tree.Draw(&dc, CRect(0, 0, 0, 0));
    const CMetafilePtr pRecords(dc.CloseEnhanced());
    std::vector<BYTE> bytes = EnhMetaFileBytes(pRecords.get());
    if (bytes.empty())
        throw CPictureFailure{ "there is no memory for the drawing", true };
    return bytes;
}
}  // namespace

CDrawing RecordDrawing(CBinTree& tree)
{
    CScreenDC screen;
    CDrawing drawing;
    drawing.size = tree.MeasureTree(&screen).Size();
    if (tree.GetRootNode() == nullptr)
        return drawing;
    drawing.nAxis = tree.GetRootNode()->m_nBaseline;
    const std::vector<BYTE> bytes = PaintedRecords(tree, screen);
    CRecorder recorder(drawing);
    for (size_t n = 0; n < bytes.size(); n += At<DWORD>(&bytes[n], sizeof(DWORD)))
        recorder.Take(&bytes[n]);
    return drawing;
}
