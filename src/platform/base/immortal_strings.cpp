// The pool of immortal texts: each is kept once, in blocks that are never freed.
#include <algorithm>
#include <memory_resource>
#include <mutex>
#include <new>
#include <unordered_set>

#include "platform/base/cstring.h"

namespace
{
// Up to the first NUL, as CString::GetHash tells.
unsigned HashOf(std::string_view text)
{
    return CString::HashText(text.data(), std::min(text.find('\0'), text.size()));
}

class CImmortalPool
{
public:
    const char* Find(std::string_view text)
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_texts.find(text);
        return it != m_texts.end() ? it->data() : Add(text);
    }

private:
    struct CHash
    {
        std::size_t operator()(std::string_view text) const { return HashOf(text); }
    };

    const char* Add(std::string_view text)
    {
        const int nLength = static_cast<int>(text.size());
        void* pPlace =
            m_memory.allocate(sizeof(CStringData) + text.size() + 1, alignof(CStringData));
        auto* pData = ::new (pPlace) CStringData{ -1, nLength, nLength, HashOf(text) };
        pData->Text()[text.copy(pData->Text(), text.size())] = '\0';
        m_texts.emplace(pData->Text(), text.size());
        return pData->Text();
    }

    std::mutex m_mutex;
    std::pmr::monotonic_buffer_resource m_memory{ 4096 };
    std::pmr::unordered_set<std::string_view, CHash> m_texts{ &m_memory };
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
