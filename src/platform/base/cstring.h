// Byte text with value semantics: copies share one counted buffer until one of them is changed.
// A NUL inside is an ordinary character of the text, but comparisons end at it.
#pragma once

#include <array>
#include <atomic>
#include <compare>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/base/types.h"

[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowInvalidArgException();

// Head of a text buffer; the characters and an end mark follow it.
struct CStringData
{
    int nRefs;  // owners beside the first; negative: immortal, never counted nor written
    int nLength;
    int nCapacity;   // characters that fit, without the end mark
    unsigned nHash;  // CString::HashText of an immortal text, otherwise unused

    char* Text() { return reinterpret_cast<char*>(this + 1); }
};

struct CStringCharacter
{
    CStringData data;
    char szText[4];
};

extern const std::array<CStringCharacter, 256> g_aStringCharacters;  // one-character texts by code
extern const CStringCharacter g_emptyString;

// An argument of CString::Format.
class CFormatArg
{
public:
    enum EKind
    {
        signedNumber,
        unsignedNumber,
        text
    };

    template <class T>
    requires std::is_integral_v<T> CFormatArg(T nValue)
        : m_eKind(std::is_signed_v<T> ? signedNumber : unsignedNumber),
          m_nValue(static_cast<long long>(nValue))
    {
    }
    CFormatArg(const char* pszText);
    CFormatArg(const class CString& strText);

    EKind m_eKind;
    long long m_nValue = 0;
    std::string_view m_text;
};

class CString
{
public:
    CString() noexcept : m_pszText(EmptyText()) {}
    CString(const CString& str) noexcept : m_pszText(str.m_pszText) { AddRef(); }
    CString(CString&& str) noexcept : m_pszText(str.m_pszText) { str.m_pszText = EmptyText(); }
    CString(const char* pszText);  // null counts as empty
    CString(const char* pchText, int nLength);
    explicit CString(char ch, int nRepeat = 1);
    ~CString() { Release(); }

    CString& operator=(const CString& str) noexcept
    {
        if (m_pszText != str.m_pszText)
        {
            CString old(std::move(*this));
            m_pszText = str.m_pszText;
            AddRef();
        }
        return *this;
    }
    CString& operator=(CString&& str) noexcept
    {
        Swap(str);
        return *this;
    }
    CString& operator=(const char* pszText);
    CString& operator=(char ch) { return *this = FromChar(ch); }

    // A text whose buffer lives as long as the process and whose copies touch no counter. For data
    // of tables: equal texts share one buffer, and none is ever freed.
    static CString Immortal(const char* pszText);
    static CString Immortal(const char* pchText, int nLength);
    // The immortal text of length one; code 0 too.
    static CString FromChar(char ch) noexcept
    {
        return CString(Attach(g_aStringCharacters[static_cast<BYTE>(ch)].szText));
    }

    int GetLength() const { return Data()->nLength; }
    bool IsEmpty() const { return GetLength() == 0; }
    void Empty() { *this = CString(); }
    const char* GetString() const { return m_pszText; }
    operator const char*() const { return m_pszText; }
    std::string_view View() const { return { m_pszText, static_cast<std::size_t>(GetLength()) }; }

    // The end mark at index GetLength() may be read. CInvalidArgException for any other index.
    char GetAt(int nIndex) const
    {
        if (static_cast<unsigned>(nIndex) > static_cast<unsigned>(GetLength()))
            AfxThrowInvalidArgException();
        return m_pszText[nIndex];
    }
    char operator[](int nIndex) const { return GetAt(nIndex); }
    void SetAt(int nIndex, char ch);

    // A buffer of this text's own with room for nMinLength characters and the end mark. After
    // writing, ReleaseBuffer sets the length; -1 counts up to the end mark.
    char* GetBuffer(int nMinLength = 0);
    void ReleaseBuffer(int nNewLength = -1);

    CString& operator+=(const CString& str) { return AppendBytes(str.m_pszText, str.GetLength()); }
    CString& operator+=(const char* pszText) { return AppendBytes(pszText, LengthOf(pszText)); }
    CString& operator+=(char ch) { return AppendBytes(&ch, 1); }
    void Append(const char* pszText) { *this += pszText; }
    void Append(const char* pchText, int nLength) { AppendBytes(pchText, nLength); }

    // A part of the text. Counts and positions outside are cut to what there is.
    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;

    // Below, equal to or above 0 by the byte values up to the first NUL of either.
    int Compare(const char* pszText) const { return std::strcmp(m_pszText, pszText); }
    int CompareNoCase(const char* pszText) const;  // folds the letters of ASCII
    // Same length and same bytes, NULs included.
    bool IsIdentical(const CString& str) const
    {
        return m_pszText == str.m_pszText || View() == str.View();
    }

    // Changes the letters of ASCII only.
    CString& MakeUpper();

    // Blank, tab, line feed, vertical tab, form feed and carriage return, at the true ends of the
    // text, whatever stands inside.
    CString& TrimLeft();
    CString& TrimRight();

    // Index of the first (last) place at or after nStart; -1 if there is none.
    int Find(char ch, int nStart = 0) const;
    int Find(const char* pszPart, int nStart = 0) const;
    int ReverseFind(char ch) const;

    // Knows %s %d %u %c %%: the arguments carry their types, and each is shown as it is. A CString
    // that is passed as itself is taken with the NULs in it. "%c" of 0 is a text of length one.
    template <class... Args>
    void Format(const char* pszFormat, const Args&... args)
    {
        const CFormatArg aArgs[] = { CFormatArg(args)..., CFormatArg(0) };
        FormatArgs(pszFormat, aArgs, sizeof...(args));
    }
    void FormatArgs(const char* pszFormat, const CFormatArg* pArgs, std::size_t nArgs);

    void Swap(CString& str) noexcept { std::swap(m_pszText, str.m_pszText); }
    friend void swap(CString& a, CString& b) noexcept { a.Swap(b); }

    // Of the bytes up to the first NUL, so that equal texts have equal numbers. Not to be stored:
    // it depends on the order of bytes in the machine.
    unsigned GetHash() const
    {
        return Data()->nRefs < 0 ? Data()->nHash : HashText(m_pszText, std::strlen(m_pszText));
    }
    static constexpr unsigned HashText(const char* pchText, std::size_t nLength);

    friend bool operator==(const CString& a, const CString& b)
    {
        return a.m_pszText == b.m_pszText ||
               (*a.m_pszText == *b.m_pszText && std::strcmp(a.m_pszText, b.m_pszText) == 0);
    }
    friend bool operator==(const CString& a, const char* b)
    {
        return *a.m_pszText == *b && std::strcmp(a.m_pszText, b) == 0;
    }
    friend std::weak_ordering operator<=>(const CString& a, const CString& b)
    {
        return a.Compare(b) <=> 0;
    }
    friend std::weak_ordering operator<=>(const CString& a, const char* b)
    {
        return a.Compare(b) <=> 0;
    }

    friend CString operator+(const CString& a, const CString& b)
    {
        return Joined(a.View(), b.View());
    }
    friend CString operator+(const CString& a, const char* b)
    {
        return Joined(a.View(), ViewOf(b));
    }
    friend CString operator+(const char* a, const CString& b)
    {
        return Joined(ViewOf(a), b.View());
    }
    friend CString operator+(const CString& a, char b) { return Joined(a.View(), { &b, 1 }); }
    friend CString operator+(char a, const CString& b) { return Joined({ &a, 1 }, b.View()); }

private:
    struct Attach  // takes over a buffer with the reference it has
    {
        explicit Attach(const char* pszText) : m_pszText(const_cast<char*>(pszText)) {}
        char* m_pszText;
    };
    explicit CString(Attach attach) noexcept : m_pszText(attach.m_pszText) {}

    static char* EmptyText() { return const_cast<char*>(g_emptyString.szText); }
    static std::string_view ViewOf(const char* pszText)
    {
        return pszText != nullptr ? std::string_view(pszText) : std::string_view();
    }
    static int LengthOf(const char* pszText);
    static CString Joined(std::string_view first, std::string_view second);

    CStringData* Data() const { return reinterpret_cast<CStringData*>(m_pszText) - 1; }
    void AddRef() noexcept
    {
        std::atomic_ref<int> refs(Data()->nRefs);
        if (refs.load(std::memory_order_relaxed) >= 0)
            refs.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() noexcept
    {
        if (std::atomic_ref<int>(Data()->nRefs).load(std::memory_order_relaxed) >= 0)
            ReleaseCounted();
    }
    void ReleaseCounted() noexcept;
    bool IsOwn() const;
    CString& AppendBytes(const char* pchText, int nLength);
    void Reserve(int nLength);
    void SetLength(int nLength);
    CString& KeepPart(int nFirst, int nCount);

    char* m_pszText;  // never null
};

inline CFormatArg::CFormatArg(const char* pszText)
    : m_eKind(text), m_text(pszText != nullptr ? pszText : "(null)")
{
}
inline CFormatArg::CFormatArg(const CString& strText) : m_eKind(text), m_text(strText.View()) {}

// The first nCount bytes (at most 8) as a number.
constexpr unsigned long long LoadHashWord(const char* pch, std::size_t nCount)
{
    unsigned long long nWord = 0;
    if (nCount == 8 && !std::is_constant_evaluated())
    {
        std::memcpy(&nWord, pch, 8);
    }
    else if (nCount >= 4 && !std::is_constant_evaluated())
    {
        unsigned nFirst = 0;
        unsigned nLast = 0;  // may overlap the first four bytes
        std::memcpy(&nFirst, pch, 4);
        std::memcpy(&nLast, pch + nCount - 4, 4);
        nWord = nFirst | static_cast<unsigned long long>(nLast) << (8 * (nCount - 4));
    }
    else
    {
        for (std::size_t i = 0; i < nCount; ++i)
            nWord |= static_cast<unsigned long long>(static_cast<unsigned char>(pch[i])) << (8 * i);
    }
    return nWord;
}

constexpr unsigned CString::HashText(const char* pchText, std::size_t nLength)
{
    constexpr unsigned long long nFactor = 0x9E3779B97F4A7C15ULL;
    unsigned long long nHash = nLength;
    while (nLength > 0)
    {
        const std::size_t nStep = nLength < 8 ? nLength : 8;
        nHash = (nHash ^ LoadHashWord(pchText, nStep)) * nFactor;
        nHash ^= nHash >> 29;
        pchText += nStep;
        nLength -= nStep;
    }
    return static_cast<unsigned>(nHash ^ (nHash >> 32));
}
