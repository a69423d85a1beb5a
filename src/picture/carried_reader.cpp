// Finds the source in pictures that may come from anywhere: none of their lengths is believed.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "picture/carried_text.h"
#include "picture/deflate.h"
#include "platform/base/code_page.h"

namespace
{
constexpr size_t s_nLongestText = size_t{ 1 } << 20;    // of a source, escaped
constexpr size_t s_nLongestStream = size_t{ 1 } << 24;  // of the objects of a PDF

using CFound = std::optional<std::string>;

// What stands before a NUL, which is taken off too; none without a NUL.
std::optional<std::string_view> TakeText(std::string_view& rest)
{
    const size_t nEnd = rest.find('\0');
    if (nEnd == rest.npos)
        return std::nullopt;
    const std::string_view text = rest.substr(0, nEnd);
    rest.remove_prefix(nEnd + 1);
    return text;
}

// --- PNG ---

constexpr std::string_view s_strPngSignature = "\x89PNG\r\n\x1A\n";

// Programs that write a picture anew turn one kind of text into another.
CFound TextOfChunk(std::string_view type, std::string_view data)
{
    if (TakeText(data) != CARRIED_NAME)
        return std::nullopt;
    if (type == "tEXt")
        return Windows1252ToUtf8(data);
    if (type == "zTXt" && !data.empty())
        return Windows1252ToUtf8(Inflate(data.substr(1), s_nLongestText));
    if (type != "iTXt" || data.size() < 2)
        return std::nullopt;
    const bool bCompressed = data[0] != '\0';
    data.remove_prefix(2);
    if (!TakeText(data) || !TakeText(data))  // language, translated keyword
        return std::nullopt;
    return bCompressed ? Inflate(data, s_nLongestText) : std::string(data);
}

CFound FindInPng(std::string_view bytes)
{
    constexpr size_t nFrame = 12;  // length, type, sum
    bytes.remove_prefix(s_strPngSignature.size());
    while (bytes.size() >= nFrame)
    {
        std::uint32_t nLength = 0;
        for (size_t n = 0; n < 4; ++n)
            nLength = nLength << 8 | static_cast<unsigned char>(bytes[n]);
        if (nLength > bytes.size() - nFrame)
            return std::nullopt;
        if (const CFound found = TextOfChunk(bytes.substr(4, 4), bytes.substr(8, nLength)))
            return found;
        bytes.remove_prefix(nFrame + nLength);
    }
    return std::nullopt;
}

// --- SVG ---

struct CEntity
{
    std::string_view name;
    char ch;
};
constexpr CEntity s_aEntities[] = {
    { "amp", '&' }, { "lt", '<' }, { "gt", '>' }, { "quot", '"' }, { "apos", '\'' },
};

// False for what is none.
bool AppendEntity(std::string& strText, std::string_view name)
{
    for (const CEntity& entity : s_aEntities)
    {
        if (entity.name == name)
        {
            strText += entity.ch;
            return true;
        }
    }
    if (!name.starts_with('#'))
        return false;
    name.remove_prefix(1);
    const bool bHex = name.starts_with('x');
    name.remove_prefix(bHex ? 1 : 0);
    std::uint32_t nCharacter = 0;
    const auto end =
        std::from_chars(name.data(), name.data() + name.size(), nCharacter, bHex ? 16 : 10);
    if (end.ec != std::errc() || end.ptr != name.data() + name.size() || nCharacter > 0x10FFFF)
        return false;
    AppendUtf8(strText, nCharacter);
    return true;
}

std::string PlainXml(std::string_view text)
{
    constexpr size_t nLongestEntity = 10;
    std::string strText;
    for (size_t n = 0; n < text.size(); ++n)
    {
        const size_t nEnd =
            text[n] == '&' ? text.substr(0, n + nLongestEntity).find(';', n) : text.npos;
        if (nEnd != text.npos && AppendEntity(strText, text.substr(n + 1, nEnd - n - 1)))
            n = nEnd;
        else
            strText += text[n];
    }
    return strText;
}

// What an element whose start tag begins at nTag holds.
CFound ElementText(std::string_view svg, size_t nTag)
{
    constexpr std::string_view strCData = "<![CDATA[";
    const size_t nEnd = svg.find('>', nTag);
    if (nEnd == svg.npos || svg[nEnd - 1] == '/')
        return std::nullopt;
    const std::string_view content = svg.substr(nEnd + 1);
    if (content.starts_with(strCData))
    {
        const size_t nClose = content.find("]]>");
        return nClose == content.npos
                   ? CFound()
                   : std::string(content.substr(strCData.size(), nClose - strCData.size()));
    }
    const size_t nClose = content.find('<');
    return nClose == content.npos ? CFound() : PlainXml(content.substr(0, nClose));
}

// The element of our namespace, with or without a prefix, wherever the prefix is declared.
CFound FindInSvg(std::string_view svg)
{
    const std::string strUrn = std::string("urn:") + CARRIED_NAME;
    const size_t nUrn = std::min(svg.find('"' + strUrn + '"'), svg.find('\'' + strUrn + '\''));
    const size_t nName = nUrn == svg.npos ? svg.npos : svg.rfind("xmlns", nUrn);
    if (nName == svg.npos)
        return std::nullopt;
    std::string_view prefix = svg.substr(nName + 5, nUrn - nName - 5);
    prefix = prefix.substr(0, prefix.find_first_of("= \t\r\n"));
    std::string strTag = "<source";
    if (prefix.starts_with(':'))
        strTag = "<" + std::string(prefix.substr(1)) + ":source";
    const size_t nTag = prefix.empty() ? svg.rfind(strTag, nUrn) : svg.find(strTag);
    return nTag == svg.npos ? CFound() : ElementText(svg, nTag);
}

// --- PDF ---

// The strings of a dictionary that holds nothing but simple values, as the one that describes a
// document does.
class CPdfDictionary
{
public:
    // nBudget: how many bytes may be read; what is read is taken off it.
    CPdfDictionary(std::string_view text, size_t& nBudget) : m_rest(text), m_nBudget(nBudget) {}

    // False if it is no such dictionary.
    bool Read()
    {
        while (true)
        {
            SkipBlanks();
            if (m_rest.starts_with(">>"))
                return true;
            if (!m_rest.starts_with('/'))
                return false;
            const std::string_view key = Word();
            SkipBlanks();
            CFound value = Value();
            if (!value)
                return false;
            if (key == "/Creator")
                m_strCreator = std::move(*value);
            else if (key == "/Subject")
                m_strSubject = std::move(*value);
        }
    }

    const std::string& Creator() const { return m_strCreator; }
    const std::string& Subject() const { return m_strSubject; }

private:
    void Skip(size_t nBytes)
    {
        m_rest.remove_prefix(std::min(nBytes, m_rest.size()));
        m_nBudget -= std::min(nBytes, m_nBudget);
        if (m_nBudget == 0)
            m_rest = {};
    }
    void SkipBlanks() { Skip(std::min(m_rest.find_first_not_of(" \t\r\n\f"), m_rest.size())); }

    // A name, number or word; at least one character.
    std::string_view Word()
    {
        const size_t nEnd = std::min(m_rest.find_first_of(" \t\r\n\f/<>()[]", 1), m_rest.size());
        const std::string_view word = m_rest.substr(0, nEnd);
        Skip(nEnd);
        return word;
    }

    // As UTF-8; empty for what is no string, none at the end and for what is not simple.
    CFound Value()
    {
        if (m_rest.empty() || m_rest.starts_with("<<") || m_rest.starts_with('['))
            return std::nullopt;
        if (m_rest.starts_with('('))
            return LiteralString();
        if (m_rest.starts_with('<'))
            return HexString();
        while (!m_rest.empty() && m_rest[0] != '/' && m_rest[0] != '>')  // "5 0 R"
        {
            Word();
            SkipBlanks();
        }
        return std::string();
    }

    CFound LiteralString()
    {
        std::string strBytes;
        int nDepth = 0;
        size_t n = 0;
        for (; n < m_rest.size() && n < m_nBudget; ++n)
        {
            const char ch = m_rest[n];
            if (ch == '\\')
                n += AppendEscape(strBytes, m_rest.substr(n + 1));
            else if (ch == ')' && --nDepth == 0)
                break;
            else if (ch != '(' || nDepth++ > 0)
                strBytes += ch;
        }
        const bool bEnded = n < m_rest.size() && n < m_nBudget;
        Skip(n + 1);
        return bEnded ? CFound(TextString(strBytes)) : CFound();
    }

    // Gives how many bytes behind the backslash belong to it.
    static size_t AppendEscape(std::string& strBytes, std::string_view rest)
    {
        constexpr char szLetters[] = "nrtbf";
        constexpr char szMeant[] = "\n\r\t\b\f";
        const auto isOctal = [](char ch)
        {
            return ch >= '0' && ch <= '7';
        };
        if (rest.empty())
            return 0;
        if (const char* pLetter = std::strchr(szLetters, rest[0]); pLetter && rest[0] != '\0')
        {
            strBytes += szMeant[pLetter - szLetters];
            return 1;
        }
        if (rest.starts_with("\r\n"))
            return 2;
        if (rest[0] == '\n' || rest[0] == '\r')
            return 1;
        if (!isOctal(rest[0]))
        {
            strBytes += rest[0];
            return 1;
        }
        size_t nDigits = 0;
        int nCode = 0;
        for (; nDigits < 3 && nDigits < rest.size() && isOctal(rest[nDigits]); ++nDigits)
            nCode = nCode * 8 + rest[nDigits] - '0';
        strBytes += static_cast<char>(nCode);
        return nDigits;
    }

    CFound HexString()
    {
        const size_t nEnd = m_rest.find('>');
        if (nEnd == m_rest.npos)
            return std::nullopt;
        std::string strDigits;
        for (const char ch : m_rest.substr(1, nEnd - 1))
        {
            if (std::strchr(" \t\r\n\f", ch) == nullptr)
                strDigits += ch;
        }
        strDigits += strDigits.size() % 2 != 0 ? "0" : "";
        std::string strBytes;
        for (size_t n = 0; n < strDigits.size(); n += 2)
        {
            unsigned nByte = 0;
            std::from_chars(&strDigits[n], &strDigits[n] + 2, nByte, 16);
            strBytes += static_cast<char>(nByte);
        }
        Skip(nEnd + 1);
        return TextString(strBytes);
    }

    static std::string TextString(const std::string& strBytes)
    {
        if (strBytes.starts_with("\xEF\xBB\xBF"))
            return strBytes.substr(3);
        if (!strBytes.starts_with("\xFE\xFF"))
            return Windows1252ToUtf8(strBytes);
        std::string strText;
        const auto unit = [&](size_t n) -> std::uint32_t
        {
            return n + 1 < strBytes.size() ? static_cast<unsigned char>(strBytes[n]) << 8 |
                                                 static_cast<unsigned char>(strBytes[n + 1])
                                           : 0U;
        };
        for (size_t n = 2; n + 1 < strBytes.size(); n += 2)
        {
            std::uint32_t nCharacter = unit(n);
            if ((nCharacter & 0xFC00) == 0xD800 && (unit(n + 2) & 0xFC00) == 0xDC00)
            {
                nCharacter = 0x10000 + ((nCharacter & 0x3FF) << 10) + (unit(n + 2) & 0x3FF);
                n += 2;
            }
            AppendUtf8(strText, nCharacter);
        }
        return strText;
    }

    std::string_view m_rest;
    size_t& m_nBudget;
    std::string m_strCreator;
    std::string m_strSubject;
};

CFound FindInDictionaries(std::string_view text)
{
    size_t nBudget = 4 * text.size() + s_nLongestText;
    for (size_t n = text.find("<<"); n != text.npos && nBudget > 0; n = text.find("<<", n + 1))
    {
        CPdfDictionary dictionary(text.substr(n + 2), nBudget);
        if (dictionary.Read() && dictionary.Creator() == CARRIED_NAME &&
            !dictionary.Subject().empty())
            return dictionary.Subject();
    }
    return std::nullopt;
}

// Programs that write a PDF anew put its dictionaries into compressed streams.
CFound FindInStreams(std::string_view bytes)
{
    constexpr std::string_view strMark = "/ObjStm";
    constexpr std::string_view strStream = "stream";
    constexpr int nMostStreams = 256;
    size_t n = bytes.find(strMark);
    for (int nCount = 0; n != bytes.npos && nCount < nMostStreams; ++nCount)
    {
        size_t nData = bytes.find(strStream, n);
        if (nData == bytes.npos)
            return std::nullopt;
        nData += strStream.size();
        nData = std::min(bytes.find_first_not_of("\r\n", nData), bytes.size());
        if (const CFound found = FindInDictionaries(Inflate(bytes.substr(nData), s_nLongestStream)))
            return found;
        n = bytes.find(strMark, nData);
    }
    return std::nullopt;
}

CFound FindInPdf(std::string_view bytes)
{
    const CFound found = FindInDictionaries(bytes);
    return found ? found : FindInStreams(bytes);
}
}  // namespace

ECarrier CarrierOf(std::string_view bytes)
{
    constexpr size_t nEmfMark = 40;
    constexpr size_t nPdfHead = 1024;
    constexpr size_t nSvgHead = 4096;
    if (bytes.starts_with(std::string_view("\1\0\0\0", 4)) &&
        bytes.substr(std::min(nEmfMark, bytes.size())).starts_with(" EMF"))
        return CARRIER_METAFILE;
    if (bytes.starts_with(s_strPngSignature))
        return CARRIER_PNG;
    if (bytes.starts_with("BM"))
        return CARRIER_BMP;
    if (bytes.substr(0, nPdfHead).find("%PDF-") != bytes.npos)
        return CARRIER_PDF;
    if (bytes.substr(0, nSvgHead).find("<svg") != bytes.npos)
        return CARRIER_SVG;
    return CARRIER_UNKNOWN;
}

std::optional<std::string> FindCarriedSource(std::string_view bytes)
{
    CFound found;
    switch (CarrierOf(bytes))
    {
        case CARRIER_PNG:
            found = FindInPng(bytes);
            break;
        case CARRIER_SVG:
            found = FindInSvg(bytes);
            break;
        case CARRIER_PDF:
            found = FindInPdf(bytes);
            break;
        default:
            break;
    }
    if (found)
        found = UnescapeCarried(*found);
    return found;
}
