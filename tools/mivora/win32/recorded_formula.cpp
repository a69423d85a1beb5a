#include "win32/recorded_formula.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

#include "picture_file.h"
#include "report.h"

namespace
{
// A record that is changed before it is played.
template <class T>
class CChangedRecord
{
public:
    explicit CChangedRecord(const ENHMETARECORD& record)
        : m_bytes(std::max<size_t>(record.nSize, sizeof(T)))
    {
        std::memcpy(m_bytes.data(), &record, record.nSize);
    }
    T* operator->() { return reinterpret_cast<T*>(m_bytes.data()); }
    const ENHMETARECORD* Record() const
    {
        return reinterpret_cast<const ENHMETARECORD*>(m_bytes.data());
    }

private:
    std::vector<BYTE> m_bytes;
};

bool IsDrawnWithPen(DWORD nType)
{
    static constexpr DWORD s_aTypes[] = {
        EMR_LINETO,  EMR_POLYLINE,   EMR_POLYGON,   EMR_POLYLINE16, EMR_POLYGON16,    EMR_RECTANGLE,
        EMR_ELLIPSE, EMR_POLYBEZIER, EMR_ROUNDRECT, EMR_ARC,        EMR_POLYBEZIER16,
    };
    return std::find(std::begin(s_aTypes), std::end(s_aTypes), nType) != std::end(s_aTypes);
}

// Plays records on an enlarged context. The screen's pixels are squares there: what fills them on
// the screen has to fill them here.
class CPlayer
{
public:
    explicit CPlayer(double fScale) : m_fScale(fScale) { m_screen.CreateCompatibleDC(nullptr); }

    void Play(HDC hDC, HANDLETABLE* pTable, const ENHMETARECORD& record, int nHandles)
    {
        const auto play = [=](const ENHMETARECORD* pRecord)
        {
            PlayEnhMetaFileRecord(hDC, pTable, pRecord, static_cast<UINT>(nHandles));
        };
        if (record.iType == EMR_EXTCREATEFONTINDIRECTW)
            PlayFont(record, play);
        else if (record.iType == EMR_EXTTEXTOUTW && (GetTextAlign(hDC) & s_nVertical) == TA_TOP)
            PlayText(hDC, record, play);
        else if (IsDrawnWithPen(record.iType))
            PlayLine(hDC, record, play);
        else
            play(&record);
    }

private:
    static constexpr UINT s_nVertical = TA_BASELINE | TA_BOTTOM;

    // Signs have edges in grey, whatever the user's screen has.
    template <class F>
    static void PlayFont(const ENHMETARECORD& record, F play)
    {
        CChangedRecord<EMREXTCREATEFONTINDIRECTW> font(record);
        font->elfw.elfLogFont.lfQuality = ANTIALIASED_QUALITY;
        play(font.Record());
    }

    // The ascent of the larger font is not the screen's enlarged: it is rounded anew.
    template <class F>
    void PlayText(HDC hDC, const ENHMETARECORD& record, F play)
    {
        TEXTMETRICA metrics{};
        const HGDIOBJ hOld = SelectObject(m_screen, GetCurrentObject(hDC, OBJ_FONT));
        m_screen.GetTextMetrics(&metrics);
        SelectObject(m_screen, hOld);
        CChangedRecord<EMREXTTEXTOUTW> text(record);
        text->emrtext.ptlReference.y += metrics.tmAscent;
        const UINT nAlign = GetTextAlign(hDC);
        SetTextAlign(hDC, nAlign | TA_BASELINE);
        play(text.Record());
        SetTextAlign(hDC, nAlign);
    }

    // A pen's line lies around the corners of the pixels, not in their middle.
    template <class F>
    void PlayLine(HDC hDC, const ENHMETARECORD& record, F play)
    {
        XFORM old{};
        const auto fShift = static_cast<FLOAT>((1 - 1 / m_fScale) / 2);
        const XFORM shift = { 1, 0, 0, 1, fShift, fShift };
        GetWorldTransform(hDC, &old);
        ModifyWorldTransform(hDC, &shift, MWT_LEFTMULTIPLY);
        play(&record);
        SetWorldTransform(hDC, &old);
    }

    double m_fScale;
    CDC m_screen;  // for questions
};

// Called by the system, which no exception may cross.
int CALLBACK PlayRecord(HDC hDC, HANDLETABLE* pTable, const ENHMETARECORD* pRecord, int nHandles,
                        LPARAM lParam) noexcept
{
    try
    {
        reinterpret_cast<CPlayer*>(lParam)->Play(hDC, pTable, *pRecord, nHandles);
        return 1;
    }
    catch (...)
    {
        return 0;
    }
}
}  // namespace

CRecordedFormula::CRecordedFormula(CFormulaOut& formula, const std::string& strPath)
{
    CClientDC screen(nullptr);
    CMetaFileDC dc;
    // A frame of millimetres is no whole number of pixels, but that of 96 screens is, and what it
    // becomes at N dots per inch is N screens large.
    const CRect frame(0, 0, s_nScreenDpi * screen.GetDeviceCaps(HORZSIZE) * 100,
                      s_nScreenDpi * screen.GetDeviceCaps(VERTSIZE) * 100);
    m_screen = CSize(screen.GetDeviceCaps(HORZRES), screen.GetDeviceCaps(VERTRES));
    if (!dc.CreateEnhanced(&screen, nullptr, &frame, nullptr))
        throw CFailure{ "cannot draw " + strPath + ": " + LastErrorText() };
    dc.SetAttribDC(screen);
    formula.DrawTree(&dc, CRect(0, 0, 0, 0));
    m_hRecords = dc.CloseEnhanced();
    if (m_hRecords == nullptr)
        throw CFailure{ "cannot draw " + strPath + ": " + LastErrorText() };
}

CRecordedFormula::~CRecordedFormula()
{
    DeleteEnhMetaFile(m_hRecords);
}

void CRecordedFormula::Play(CDC& dc, int nDpi) const
{
    CPlayer player(static_cast<double>(nDpi) / s_nScreenDpi);
    const RECT rect = { 0, 0, m_screen.cx * nDpi, m_screen.cy * nDpi };
    if (!EnumEnhMetaFile(dc, m_hRecords, PlayRecord, &player, &rect))
        throw std::bad_alloc();  // all else is drawn as far as it goes
    GdiFlush();                  // before the pixels are touched
}
