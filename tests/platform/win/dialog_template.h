// A dialog template made by a test.
#pragma once

#include "platform/base/types.h"

#include <initializer_list>
#include <vector>

// A template in memory: 16-bit words.
class CDialogTemplate
{
public:
    explicit CDialogTemplate(DWORD dwStyle)
    {
        AddLong(dwStyle);
        AddLong(0);
        Add({ 0, 10, 10, 150, 60 });  // number of items; place and size
        Add({ 0, 0 });                // no menu, the usual class
        AddText("dialog");
    }
    void AddItem(DWORD dwStyle, WORD nID, const char* pszClass, const char* pszText)
    {
        if (m_words.size() % 2 != 0)
            Add({ 0 });
        AddLong(dwStyle | WS_CHILD | WS_VISIBLE);
        AddLong(0);
        const WORD nTop = static_cast<WORD>(5 + 15 * m_words[4]);
        Add({ 5, nTop, 100, 12, nID });
        AddText(pszClass);
        AddText(pszText);
        Add({ 0 });  // no data
        ++m_words[4];
    }
    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }

private:
    void Add(std::initializer_list<WORD> words) { m_words.insert(m_words.end(), words); }
    void AddLong(DWORD n) { Add({ LOWORD(n), HIWORD(n) }); }
    void AddText(const char* psz)
    {
        do
            Add({ static_cast<BYTE>(*psz) });
        while (*psz++ != '\0');
    }
    std::vector<WORD> m_words;
};
