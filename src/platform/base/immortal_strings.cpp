// The pool of immortal texts: each is kept once, in blocks that are never freed.
#include <cstdlib>
#include <mutex>
#include <new>
#include <unordered_map>

#include "platform/base/cstring.h"

namespace
{
class CImmortalPool
{
public:
    const char* Find(std::string_view text)
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_texts.find(text);
        return it != m_texts.end() ? it->second : Add(text);
    }

private:
    static constexpr std::size_t s_nBlock = 4096;

    const char* Add(std::string_view text)
    {
        const std::size_t nBytes =
            (sizeof(CStringData) + text.size() + 1 + alignof(CStringData) - 1) &
            ~(alignof(CStringData) - 1);
        if (nBytes > m_nLeft)
        {
            const std::size_t nBlock = nBytes > s_nBlock ? nBytes : s_nBlock;
            m_pNext = static_cast<char*>(std::malloc(nBlock));
            if (m_pNext == nullptr)
            {
                m_nLeft = 0;
                AfxThrowMemoryException();
            }
            m_nLeft = nBlock;
        }
        const unsigned nHash = CString::HashText(
            text.data(), text.find('\0') < text.size() ? text.find('\0') : text.size());
        const int nLength = static_cast<int>(text.size());
        auto* pData = ::new (m_pNext) CStringData{ -1, nLength, nLength, nHash };
        text.copy(pData->Text(), text.size());
        pData->Text()[text.size()] = '\0';
        m_texts.emplace(std::string_view(pData->Text(), text.size()), pData->Text());
        m_pNext += nBytes;
        m_nLeft -= nBytes;
        return pData->Text();
    }

    std::mutex m_mutex;
    std::unordered_map<std::string_view, const char*> m_texts;
    char* m_pNext = nullptr;
    std::size_t m_nLeft = 0;
};
}  // namespace

CString CString::Immortal(const char* pszText)
{
    return Immortal(pszText, LengthOf(pszText));
}

CString CString::Immortal(const char* pchText, int nLength)
{
    if (nLength <= 0)
        return {};
    if (nLength == 1)
        return FromChar(*pchText);
    // Never destroyed: texts of static objects are used until the very end.
    static CImmortalPool& pool = *new CImmortalPool;
    try
    {
        return CString(Attach(pool.Find({ pchText, static_cast<std::size_t>(nLength) })));
    }
    catch (const std::bad_alloc&)
    {
        AfxThrowMemoryException();
    }
}
