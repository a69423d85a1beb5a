// CString: buffers, editing and searching.
#include "platform/base/cstring.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>

namespace
{
constexpr int nMaxLength = INT_MAX - 64;
constexpr std::string_view s_whiteSpace = " \t\n\v\f\r";

template <std::size_t... nCodes>
constexpr std::array<CStringCharacter, 256> MakeCharacters(std::index_sequence<nCodes...>)
{
    return { { { { -1, 1, 1,
                   nCodes == 0
                       ? CString::HashText("", 0)
                       : CString::HashText(std::array{ static_cast<char>(nCodes) }.data(), 1) },
                 { static_cast<char>(nCodes), 0, 0, 0 } }... } };
}

CStringData* NewData(int nCapacity)
{
    if (nCapacity < 0 || nCapacity > nMaxLength)
        AfxThrowMemoryException();
    void* p = std::malloc(sizeof(CStringData) + static_cast<std::size_t>(nCapacity) + 1);
    if (p == nullptr)
        AfxThrowMemoryException();
    return ::new (p) CStringData{ 0, 0, nCapacity, 0 };
}

// A length that the caller worked out in 64 bits.
int CheckedLength(long long nLength)
{
    if (nLength > nMaxLength)
        AfxThrowMemoryException();
    return static_cast<int>(nLength);
}

int CheckedLength(std::size_t nLength)
{
    return CheckedLength(static_cast<long long>(std::min<std::size_t>(nLength, LLONG_MAX)));
}

char UpperAscii(char ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 32) : ch;
}
char LowerAscii(char ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + 32) : ch;
}

int IndexOf(std::size_t nPlace)
{
    return nPlace == std::string_view::npos ? -1 : static_cast<int>(nPlace);
}
}  // namespace

constinit const std::array<CStringCharacter, 256> g_aStringCharacters =
    MakeCharacters(std::make_index_sequence<256>());
constinit const CStringCharacter g_emptyString = { { -1, 0, 0, CString::HashText("", 0) },
                                                   { 0, 0, 0, 0 } };

int CString::LengthOf(const char* pszText)
{
    return pszText != nullptr ? CheckedLength(std::strlen(pszText)) : 0;
}

CString::CString(const char* pszText) : CString(pszText, LengthOf(pszText)) {}

CString::CString(const char* pchText, int nLength) : m_pszText(EmptyText())
{
    if (nLength > 0 && pchText != nullptr)
    {
        m_pszText = NewData(nLength)->Text();
        std::memcpy(m_pszText, pchText, static_cast<std::size_t>(nLength));
        SetLength(nLength);
    }
}

CString::CString(char ch, int nRepeat) : m_pszText(EmptyText())
{
    if (nRepeat == 1)
    {
        m_pszText = FromChar(ch).m_pszText;
    }
    else if (nRepeat > 1)
    {
        std::memset(GetBuffer(nRepeat), static_cast<unsigned char>(ch),
                    static_cast<std::size_t>(nRepeat));
        SetLength(nRepeat);
    }
}

CString& CString::operator=(const char* pszText)
{
    CString str(pszText);  // the text may lie in this buffer
    Swap(str);
    return *this;
}

void CString::ReleaseCounted() noexcept
{
    std::atomic_ref<int> refs(Data()->nRefs);
    // A sole owner needs no atomic step: nobody else can become one.
    if (refs.load(std::memory_order_acquire) == 0 ||
        refs.fetch_sub(1, std::memory_order_acq_rel) == 0)
        std::free(Data());
}

bool CString::IsOwn() const
{
    return std::atomic_ref<int>(Data()->nRefs).load(std::memory_order_acquire) == 0;
}

// Makes the buffer this text's own, with room for nLength characters; keeps what fits.
void CString::Reserve(int nLength)
{
    if (IsOwn() && Data()->nCapacity >= nLength)
        return;
    CStringData* pNew = NewData(nLength);
    pNew->nLength = std::min(GetLength(), nLength);
    std::memcpy(pNew->Text(), m_pszText, static_cast<std::size_t>(pNew->nLength));
    pNew->Text()[pNew->nLength] = '\0';
    Release();
    m_pszText = pNew->Text();
}

void CString::SetLength(int nLength)
{
    Data()->nLength = nLength;
    m_pszText[nLength] = '\0';
}

CString& CString::AppendBytes(const char* pchText, int nLength)
{
    if (nLength <= 0)
        return *this;
    const int nOld = GetLength();
    const int nNew = CheckedLength(static_cast<long long>(nOld) + nLength);
    CString old;  // keeps the buffer in which pchText may lie
    if (!IsOwn() || Data()->nCapacity < nNew)
    {
        old = *this;
        // A text that grows step by step must not be copied as often as it has characters.
        const long long nRoom = nOld > 0 ? nNew + static_cast<long long>(nNew) / 2 : nNew;
        Reserve(static_cast<int>(std::min<long long>(nRoom, nMaxLength)));
    }
    std::memcpy(m_pszText + nOld, pchText, static_cast<std::size_t>(nLength));
    SetLength(nNew);
    return *this;
}

CString CString::Joined(std::string_view first, std::string_view second)
{
    CString result;
    const int nLength = CheckedLength(first.size() + second.size());
    if (nLength > 0)
    {
        result.m_pszText = NewData(nLength)->Text();
        first.copy(result.m_pszText, first.size());
        second.copy(result.m_pszText + first.size(), second.size());
        result.SetLength(nLength);
    }
    return result;
}

void CString::SetAt(int nIndex, char ch)
{
    if (nIndex < 0 || nIndex >= GetLength())
        AfxThrowInvalidArgException();
    GetBuffer()[nIndex] = ch;
}

char* CString::GetBuffer(int nMinLength)
{
    Reserve(std::max(nMinLength, GetLength()));
    return m_pszText;
}

void CString::ReleaseBuffer(int nNewLength)
{
    if (!IsOwn())
        return;  // no buffer was taken
    const int nCapacity = Data()->nCapacity;
    if (nNewLength < 0)
        nNewLength = static_cast<int>(strnlen(m_pszText, static_cast<std::size_t>(nCapacity)));
    if (nNewLength > nCapacity)
        AfxThrowInvalidArgException();
    SetLength(nNewLength);
}

CString CString::Mid(int nFirst) const
{
    return Mid(nFirst, GetLength());
}

CString CString::Mid(int nFirst, int nCount) const
{
    const int nLength = GetLength();
    nFirst = std::clamp(nFirst, 0, nLength);
    nCount = std::clamp(nCount, 0, nLength - nFirst);
    if (nCount == nLength)
        return *this;
    return nCount == 1 ? FromChar(m_pszText[nFirst]) : CString(m_pszText + nFirst, nCount);
}

CString CString::Left(int nCount) const
{
    return Mid(0, nCount);
}

CString CString::Right(int nCount) const
{
    return Mid(GetLength() - std::clamp(nCount, 0, GetLength()), nCount);
}

int CString::CompareNoCase(const char* pszText) const
{
    const char* p = m_pszText;
    while (*p != '\0' && LowerAscii(*p) == LowerAscii(*pszText))
    {
        ++p;
        ++pszText;
    }
    return static_cast<unsigned char>(LowerAscii(*p)) -
           static_cast<unsigned char>(LowerAscii(*pszText));
}

CString& CString::MakeUpper()
{
    const std::string_view text = View();
    if (std::any_of(text.begin(), text.end(), [](char ch) { return UpperAscii(ch) != ch; }))
    {
        char* pch = GetBuffer();
        std::transform(pch, pch + GetLength(), pch, UpperAscii);
    }
    return *this;
}

CString& CString::KeepPart(int nFirst, int nCount)
{
    if (nCount == GetLength())
        return *this;
    if (nCount == 0 || !IsOwn())
        return *this = Mid(nFirst, nCount);
    std::memmove(m_pszText, m_pszText + nFirst, static_cast<std::size_t>(nCount));
    SetLength(nCount);
    return *this;
}

namespace
{
// Index of the first character that is none of the set; the length if there is none.
int FirstOther(std::string_view text, std::string_view set)
{
    return static_cast<int>(std::min(text.find_first_not_of(set), text.size()));
}

// One behind the last character that is none of the set.
int EndOfOther(std::string_view text, std::string_view set)
{
    return static_cast<int>(text.find_last_not_of(set) + 1);  // npos + 1 is 0
}
}  // namespace

CString& CString::TrimLeft()
{
    const int nFirst = FirstOther(View(), s_whiteSpace);
    return KeepPart(nFirst, GetLength() - nFirst);
}

CString& CString::TrimRight()
{
    return KeepPart(0, EndOfOther(View(), s_whiteSpace));
}

int CString::Find(char ch, int nStart) const
{
    return nStart < 0 ? -1 : IndexOf(View().find(ch, static_cast<std::size_t>(nStart)));
}

int CString::Find(const char* pszPart, int nStart) const
{
    if (nStart < 0 || pszPart == nullptr)
        return -1;
    return IndexOf(View().find(pszPart, static_cast<std::size_t>(nStart)));
}

int CString::ReverseFind(char ch) const
{
    return IndexOf(View().rfind(ch));
}
