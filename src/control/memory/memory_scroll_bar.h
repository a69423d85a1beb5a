// A window's own scroll bar without the window: range, page and position as the system keeps them.
#pragma once

#include <optional>

// The range begins at 0. A page is cut to the length of the range, the position to what a thumb of
// that length can reach. Setting page or range can make the bar vanish or come back; that is told
// and left to the window.
class CMemoryScrollBar
{
public:
    int GetPos() const { return m_nPos; }
    int GetMax() const { return m_nMax; }
    int GetPage() const { return m_nPage; }

    // While a thumb is dragged.
    int GetTrackPos() const { return m_nTrackPos; }
    void SetTrackPos(int nPos) { m_nTrackPos = nPos; }

    bool IsShown() const { return m_bShown; }
    void Show(bool bShow) { m_bShown = bShow; }

    void SetPos(int nPos);
    // What becomes of the bar: true if it is to be seen, false if not; no value if it stays as it
    // is. A page alone never brings it back, and a value that stands already changes nothing.
    std::optional<bool> SetPage(int nPage);
    std::optional<bool> SetRange(int nMax);

private:
    void Trim();
    int LastPos() const;

    int m_nMax = 100;
    int m_nPage = 0;
    int m_nPos = 0;
    int m_nTrackPos = 0;
    bool m_bShown = false;
};
