// A target that keeps the calls that arrive, as lines of text.
#pragma once

#include "platform/gdi/linux/device_context.h"
#include "platform/gdi/linux/font_cache.h"

#include <memory>
#include <string>
#include <vector>

class CRecordingTarget : public CDrawTarget
{
public:
    explicit CRecordingTarget(std::vector<std::string>& calls) : m_calls(calls) {}

    void ObjectSelected(CDeviceContext&, const CHandleObject& object) override
    {
        Add("select", { object.Type() });
    }
    void BkColorSet(CDeviceContext&, COLORREF colour) override { Add("bkcolor", { colour }); }
    void MovedTo(CDeviceContext&, POINT point) override { Add("move", { point.x, point.y }); }
    bool PatBlt(CDeviceContext&, int x, int y, int nWidth, int nHeight) override
    {
        return Add("patblt", { x, y, nWidth, nHeight });
    }
    bool ExtTextOut(CDeviceContext& dc, const CTextRun& run) override
    {
        std::vector<INT> dx(run.m_text.size());
        dc.LogicalAdvances(run, dx);
        Add("text", { run.m_ptReference.x, run.m_ptReference.y, run.m_nOptions });
        if (run.m_pRect)
            Append("rect", { run.m_pRect->left, run.m_pRect->top, run.m_pRect->right,
                             run.m_pRect->bottom });
        Append("dx", std::vector<long long>(dx.begin(), dx.end()));
        std::vector<long long> codes;
        for (BYTE byte : run.m_text)
            codes.push_back(dc.Font().Unicode(byte, dc.State().m_pFont->LogFont().lfCharSet));
        return Append("codes", codes);
    }
    bool LineTo(CDeviceContext&, POINT from, POINT to) override
    {
        return Add("line", { from.x, from.y, to.x, to.y });
    }
    bool Rectangle(CDeviceContext&, const RECT& r) override
    {
        return Add("rectangle", { r.left, r.top, r.right, r.bottom });
    }
    bool StretchBlt(CDeviceContext&, const RECT&, CDeviceContext&, const RECT&) override
    {
        return Add("stretch", {});
    }

private:
    bool Add(const char* pszVerb, const std::vector<long long>& numbers)
    {
        m_calls.emplace_back();
        return AppendWord(pszVerb, numbers);
    }
    bool Append(const char* pszWord, const std::vector<long long>& numbers)
    {
        m_calls.back() += ' ';
        return AppendWord(pszWord, numbers);
    }
    bool AppendWord(const char* pszWord, const std::vector<long long>& numbers)
    {
        m_calls.back() += pszWord;
        for (long long n : numbers)
            m_calls.back() += ' ' + std::to_string(n);
        return true;
    }

    std::vector<std::string>& m_calls;  // not owned
};

// A device context of the screen's kind whose calls are kept.
struct CRecordedDC
{
    std::vector<std::string> m_calls;
    HDC m_hDC =
        new CDeviceContext(OBJ_DC, ScreenDevice(), std::make_unique<CRecordingTarget>(m_calls));

    CRecordedDC() = default;
    ~CRecordedDC() { DeleteDC(m_hDC); }
    CRecordedDC(const CRecordedDC&) = delete;
    CRecordedDC& operator=(const CRecordedDC&) = delete;
};
