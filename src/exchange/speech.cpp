// Forms in words, with shorter ones where the operands are simple.
#include "exchange/speech.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <unordered_set>

#include "exchange/signs.h"
#include "exchange/spoken_language.h"

namespace
{
bool IsLetter(char ch)
{
    const auto nCode = static_cast<unsigned char>(ch);
    constexpr std::string_view others = "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA";
    return std::isalpha(nCode) != 0 || (nCode >= 0xC0 && ch != '\xD7' && ch != '\xF7') ||
           others.find(ch) != others.npos;
}

bool IsCapital(char ch)
{
    return ch >= 'A' && ch <= 'Z';
}

bool IsLeafForm(EForm nForm)
{
    return nForm == FORM_NAME || nForm == FORM_NUMBER || nForm == FORM_INFINITY ||
           nForm == FORM_PLANCK || nForm == FORM_LAMBDA || nForm == FORM_PLACEHOLDER;
}

bool IsLeaf(const CPart& part)
{
    return IsLeafForm(ReadPart(part).nForm);
}

// A leaf, or one with leaves around it. Looks no deeper, so that asking costs the same for all
// trees.
bool IsSmall(const CPart& part)
{
    const CReading reading = ReadPart(part);
    switch (reading.nForm)
    {
        case FORM_POWER:
        case FORM_SUB:
        case FORM_SUPER:
            return IsLeaf(reading.Operand(0)) && IsLeaf(reading.Operand(1));
        default:
            return IsLeafForm(reading.nForm);
    }
}

// i = 1, or x that tends to 0.
bool IsLeafPair(const CPart& part, EForm nForm)
{
    const CReading reading = ReadPart(part);
    return reading.nForm == nForm && IsLeaf(reading.Operand(0)) && IsLeaf(reading.Operand(1));
}

std::string_view FindWords(std::span<const CSpokenName> aNames, std::string_view text)
{
    const auto found = std::find_if(aNames.begin(), aNames.end(),
                                    [&](const CSpokenName& name) { return name.text == text; });
    return found != aNames.end() ? found->words : std::string_view();
}

CShownText TextOf(const CReading& reading)
{
    return ShownTextOf(*reading.pNode, reading.nType);
}

// Every word that the language itself uses: a name that is one of them is announced as a name.
class CWordList
{
public:
    explicit CWordList(const CSpokenLanguage& language)
    {
        for (int i = 0; i < FORM_COUNT; ++i)
            AddTemplate(language.pRows[i].text);
        for (int i = 0; i < SHORT_COUNT; ++i)
            AddTemplate(language.pShortRows[i].text);
        for (const auto& aNames :
             { language.aFunctions, language.aExtras, language.aPunctuation, language.aBrackets })
        {
            for (const CSpokenName& name : aNames)
                Add(name.words);
        }
        for (const auto& aWords : { language.aSymbols, language.aOrdinals, language.aMarks })
        {
            std::for_each(aWords.begin(), aWords.end(), [this](auto words) { Add(words); });
        }
        for (const CSpokenMeaning& meaning : language.aMeanings)
            Add(meaning.words);
        for (const std::string_view words : { language.strNothing,
                                              language.strOpenGroup,
                                              language.strCloseGroup,
                                              language.strCapital,
                                              language.strPrime,
                                              language.strSign,
                                              language.strName,
                                              language.strText,
                                              language.strEndText,
                                              language.strUnknown,
                                              language.strFunction,
                                              language.strLaplacian,
                                              language.strSum,
                                              language.strProduct,
                                              language.strIntegral,
                                              language.strDoubleIntegral,
                                              language.strTripleIntegral,
                                              language.strLimit,
                                              language.strDerivative,
                                              language.strPartialDerivative,
                                              language.strOperator,
                                              language.strOpen,
                                              language.strClose,
                                              language.strTurned,
                                              language.strNoBracket })
        {
            Add(words);
        }
    }

    static const CWordList& Of(const CSpokenLanguage& language)
    {
        static std::map<const CSpokenLanguage*, CWordList> s_lists;
        return s_lists.try_emplace(&language, language).first->second;
    }

    bool Has(std::string_view word) const { return m_words.count(word) != 0; }

private:
    void AddTemplate(const CTemplate& text)
    {
        const CPiece* pPiece = text.Pieces();
        while (pPiece->chCode != 0)
            Add((pPiece++)->Text());
        Add(pPiece->Text());
    }

    void Add(std::string_view words)
    {
        while (!words.empty())
        {
            const std::size_t nEnd = std::min(words.find(' '), words.size());
            m_words.insert(words.substr(0, nEnd));
            words.remove_prefix(std::min(nEnd + 1, words.size()));
        }
    }

    std::unordered_set<std::string_view> m_words;
};

class CSpeech
{
public:
    CSpeech(const CSpokenLanguage& language, std::string& out) : m_language(language), m_out(out) {}

    // May put simpler operands into the reading of a short form.
    const CFormRow& RowOf(CReading& reading)
    {
        const int nShort = ShortFormOf(reading);
        return nShort == SHORT_COUNT ? m_language.pRows[reading.nForm]
                                     : m_language.pShortRows[nShort];
    }

    void AppendText(std::string_view text)
    {
        m_out.append(text);
        if (!text.empty() && !text.starts_with(m_language.strEnd))
            m_nEnd = m_out.size();
    }
    void AppendNothing(ERank) { AppendText(m_language.strNothing); }
    void OpenGroup() { AppendText(m_language.strOpenGroup); }
    void CloseGroup() { AppendText(m_language.strCloseGroup); }

    // Takes away what only closes at the end of the words.
    void Finish() { m_out.resize(m_nEnd); }

    void AppendOwn(const CReading& reading, char chCode)
    {
        switch (chCode)
        {
            case 'n':
                AppendName(reading);
                break;
            case 'd':
                AppendNumber(TextOf(reading));
                break;
            case 'f':
                AppendFunctionName(reading);
                break;
            case 's':
                AppendOperator(reading);
                break;
            case 'b':
                AppendBigSign(reading);
                break;
            case 'o':
                m_out += *OrdinalOf(reading.Operand(1));
                break;
            case 'm':
                AppendMark(reading);
                break;
            default:
                AppendBracket(reading, chCode == 'l' ? 0 : 1);
        }
        m_nEnd = m_out.size();
    }

private:
    int ShortFormOf(CReading& reading) const
    {
        switch (reading.nForm)
        {
            case FORM_FRACTION:
                return IsSmall(reading.Operand(0)) && IsSmall(reading.Operand(1)) ? SHORT_OVER
                                                                                  : SHORT_COUNT;
            case FORM_POWER:
                return ShortPower(reading.Operand(1));
            case FORM_SUB:
            case FORM_SUPER:
                return !IsLeaf(reading.Operand(1)) ? SHORT_COUNT
                       : reading.nForm == FORM_SUB ? SHORT_SUB
                                                   : SHORT_SUPER;
            case FORM_SUB_SUPER:
                return IsLeaf(reading.Operand(1)) && IsLeaf(reading.Operand(2)) ? SHORT_SUB_SUPER
                                                                                : SHORT_COUNT;
            case FORM_CALL:
                return ShortCall(reading);
            case FORM_ROOT:
                return OrdinalOf(reading.Operand(1)) != nullptr ? SHORT_ROOT : SHORT_COUNT;
            case FORM_BIG_LOWER:
            case FORM_BIG_UPPER:
            case FORM_BIG_BOTH:
                return ShortLimits(reading);
            case FORM_LIMIT:
                return IsLeafPair(reading.Operand(0), FORM_OPERATOR) ? SHORT_LIMIT : SHORT_COUNT;
            case FORM_BRACE:
                return IsSymbol(TextOf(reading), "||") ? SHORT_ABSOLUTE_VALUE : SHORT_COUNT;
            case FORM_POSITIVE:
                return IsSymbol(TextOf(reading), "+") ? SHORT_COUNT : SHORT_OTHER_PREFIX;
            case FORM_NEGATIVE:
                return IsSymbol(TextOf(reading), "-") ? SHORT_COUNT : SHORT_OTHER_PREFIX;
            case FORM_INTEGRAND:
                return TextOf(reading).text == "d" ? SHORT_COUNT : SHORT_OTHER_INTEGRAND;
            default:
                return SHORT_COUNT;
        }
    }

    static int ShortPower(const CPart& exponent)
    {
        const CReading reading = ReadPart(exponent);
        if (reading.nForm == FORM_NUMBER)
        {
            const std::string_view text = TextOf(reading).text;
            if (text == "2" || text == "3")
                return text == "2" ? SHORT_SQUARED : SHORT_CUBED;
        }
        return IsLeafForm(reading.nForm) ? SHORT_TO_THE : SHORT_COUNT;
    }

    static int ShortCall(CReading& reading)
    {
        const CReading brackets = ReadPart(reading.Operand(1));
        if (brackets.nForm != FORM_BRACE || !IsSymbol(TextOf(brackets), "()") ||
            !IsLeaf(brackets.Operand(0)))
            return SHORT_COUNT;
        reading.apOperands[1] = brackets.apOperands[0];
        reading.anViews[1] = brackets.anViews[0];
        return SHORT_CALL;
    }

    static int ShortLimits(const CReading& reading)
    {
        const auto isShort = [](const CPart& limit)
        {
            return IsLeaf(limit) || IsLeafPair(limit, FORM_RELATION);
        };
        if (!isShort(reading.Operand(2)) ||
            (reading.nForm == FORM_BIG_BOTH && !isShort(reading.Operand(3))))
            return SHORT_COUNT;
        return reading.nForm == FORM_BIG_LOWER   ? SHORT_BIG_LOWER
               : reading.nForm == FORM_BIG_UPPER ? SHORT_BIG_UPPER
                                                 : SHORT_BIG_BOTH;
    }

    // Of a degree that is a small number; else null.
    const std::string_view* OrdinalOf(const CPart& degree) const
    {
        const CReading reading = ReadPart(degree);
        if (reading.nForm != FORM_NUMBER)
            return nullptr;
        std::size_t nDegree = 0;
        for (const char ch : TextOf(reading).text)
        {
            if (ch < '0' || ch > '9' || nDegree > 99)
                return nullptr;
            nDegree = 10 * nDegree + static_cast<std::size_t>(ch - '0');
        }
        return nDegree >= 2 && nDegree - 2 < m_language.aOrdinals.size()
                   ? &m_language.aOrdinals[nDegree - 2]
                   : nullptr;
    }

    // A letter or a sign by its words.
    void AppendCharacter(char ch, EFace nFace)
    {
        const auto nCode = static_cast<unsigned char>(ch);
        std::string_view words;
        if (nFace == FACE_SYMBOL)
        {
            words = nCode >= 0x20 ? m_language.aSymbols[nCode - 0x20] : words;
        }
        else if (nFace == FACE_EXTRA)
        {
            words = FindWords(m_language.aExtras, { &ch, 1 });
        }
        else if (IsWordPart(ch))
        {
            words = SignOf(nFace, nCode).mathML;
        }
        else
        {
            words = FindWords(m_language.aPunctuation, { &ch, 1 });
            const std::string_view sign = SignOf(nFace, nCode).mathML;
            words = words.empty() && sign != SignOf(nFace, 0).mathML ? sign : words;
        }
        m_out += words.empty() ? m_language.strUnknown : words;
    }

    void AppendCharacters(const CShownText& shown)
    {
        for (std::size_t i = 0; i < shown.text.size(); ++i)
        {
            const bool bInWord = shown.nFace == FACE_TEXT && i > 0 &&
                                 IsWordPart(shown.text[i - 1]) && IsWordPart(shown.text[i]);
            if (i > 0 && !bInWord)
                m_out += ' ';
            AppendCharacter(shown.text[i], shown.nFace);
        }
    }

    static bool IsWordPart(char ch)
    {
        return IsLetter(ch) || std::isdigit(static_cast<unsigned char>(ch)) != 0;
    }

    void AppendName(const CReading& reading)
    {
        const CShownText shown = TextOf(reading);
        const std::string_view meaning = MeaningOf(reading, shown);
        if (!meaning.empty())
            m_out += meaning;
        else if (shown.nFace == FACE_TEXT)
            AppendTextName(shown);
        else
            AppendSignName(shown);
    }

    void AppendTextName(const CShownText& shown)
    {
        std::string_view name = shown.text;
        while (name.size() > 1 && name.back() == '\'')
            name.remove_suffix(1);
        const std::size_t nPrimes = shown.text.size() - name.size();
        if (!std::all_of(name.begin(), name.end(), IsLetter))
            return AppendQuoted(shown);
        if (name.size() == 1)
        {
            AppendLetter(name.front());
        }
        else
        {
            if (CWordList::Of(m_language).Has(name))
                m_out += m_language.strName;
            AppendCharacters({ name, shown.nFace });
        }
        for (std::size_t i = 0; i < nPrimes; ++i)
            m_out += m_language.strPrime;
    }

    void AppendLetter(char ch)
    {
        if (IsCapital(ch))
        {
            m_out += m_language.strCapital;
            m_out += static_cast<char>(ch + ('a' - 'A'));
        }
        else
        {
            AppendCharacter(ch, FACE_TEXT);
        }
    }

    // Letters of the other faces are their words; what is no letter is announced.
    void AppendSignName(const CShownText& shown)
    {
        const auto isLetter = [&](char ch)
        {
            return shown.nFace == FACE_EXTRA ? ch == 'h' || ch == 'D' : IsLetter(ch);
        };
        if (std::all_of(shown.text.begin(), shown.text.end(), isLetter))
            AppendCharacters(shown);
        else
            AppendQuoted(shown);
    }

    void AppendQuoted(const CShownText& shown)
    {
        const bool bSingle = shown.text.size() == 1;
        m_out += bSingle ? m_language.strSign : m_language.strText;
        AppendCharacters(shown);
        if (!bSingle)
            m_out += m_language.strEndText;
    }

    // Digits and points as they stand.
    void AppendNumber(const CShownText& shown)
    {
        bool bAfterDigit = true;
        for (std::size_t i = 0; i < shown.text.size(); ++i)
        {
            const char ch = shown.text[i];
            const bool bDigit = (ch >= '0' && ch <= '9') || ch == '.';
            if (i > 0 && !(bDigit && bAfterDigit))
                m_out += ' ';
            bAfterDigit = bDigit;
            if (bDigit)
                m_out += ch;
            else
                AppendCharacter(ch, shown.nFace);
        }
    }

    void AppendFunctionName(const CReading& reading)
    {
        const CShownText shown = TextOf(reading);
        const std::string_view words = reading.nType == NTI_FUNC && shown.nFace == FACE_TEXT
                                           ? FindWords(m_language.aFunctions, shown.text)
                                           : std::string_view();
        if (!words.empty())
        {
            m_out += words;
            return;
        }
        m_out += m_language.strFunction;
        AppendName(reading);
    }

    // Of a sign that shows as a question mark, or means more than it shows.
    std::string_view MeaningOf(const CReading& reading, const CShownText& shown) const
    {
        if (reading.nType == NTI_LAPLACE && IsSymbol(shown, "D"))
            return m_language.strLaplacian;
        if (!IsSymbol(shown, "?"))
            return {};
        for (const CSpokenMeaning& meaning : m_language.aMeanings)
        {
            if (meaning.nType == reading.nType)
                return meaning.words;
        }
        return {};
    }

    void AppendOperator(const CReading& reading)
    {
        const CShownText shown = TextOf(reading);
        const std::string_view meaning = MeaningOf(reading, shown);
        if (!meaning.empty())
            m_out += meaning;
        else
            AppendCharacters(shown);
    }

    void AppendBigSign(const CReading& reading)
    {
        CShownText shown = TextOf(reading);
        const std::string_view words = BigWords(reading.nType, shown);
        m_out += words;
        if (!shown.text.empty())
        {
            m_out += words == m_language.strOperator ? "" : " ";
            AppendCharacters(shown);
        }
    }

    // The words of a large sign. Leaves in shown what they do not tell.
    std::string_view BigWords(ENodeType nType, CShownText& shown) const
    {
        struct CUsual
        {
            ENodeType nType;
            EFace nFace;
            std::string_view text;
            std::string_view CSpokenLanguage::*pWords;
        };
        static constexpr CUsual s_aUsual[] = {
            { NTI_SUM, FACE_SYMBOL, "\xE5", &CSpokenLanguage::strSum },
            { NTI_PROD, FACE_SYMBOL, "?", &CSpokenLanguage::strProduct },
            { NTI_PROD, FACE_SYMBOL, "\xD5", &CSpokenLanguage::strProduct },
            { NTI_LIMES, FACE_TEXT, "lim", &CSpokenLanguage::strLimit },
            { NTI_DERIVE, FACE_TEXT, "d", &CSpokenLanguage::strDerivative },
            { NTI_PARTDERIVE, FACE_SYMBOL, "?", &CSpokenLanguage::strPartialDerivative },
            { NTI_PARTDERIVE, FACE_SYMBOL, "\xB6", &CSpokenLanguage::strPartialDerivative },
        };
        for (const CUsual& usual : s_aUsual)
        {
            if (usual.nType == nType && usual.nFace == shown.nFace && usual.text == shown.text)
            {
                shown.text = {};
                return m_language.*usual.pWords;
            }
        }
        if (nType != NTI_INTEGRAL || shown.nFace != FACE_SYMBOL)
            return m_language.strOperator;
        const std::size_t nSigns = std::min<std::size_t>(
            3, std::min(shown.text.find_first_not_of('\xF2'), shown.text.size()));
        shown.text.remove_prefix(nSigns);
        return nSigns == 3   ? m_language.strTripleIntegral
               : nSigns == 2 ? m_language.strDoubleIntegral
                             : m_language.strIntegral;
    }

    void AppendMark(const CReading& reading)
    {
        const int nKind = KindOf(*reading.pNode, 0);
        if (nKind >= 0 && nKind < static_cast<int>(m_language.aMarks.size()))
            m_out += m_language.aMarks[static_cast<std::size_t>(nKind)];
        else
            AppendQuoted(TextOf(reading));
    }

    void AppendBracket(const CReading& reading, std::size_t nSide)
    {
        const CShownText shown = TextOf(reading);
        m_out += nSide == 0 ? m_language.strOpen : m_language.strClose;
        if (nSide >= shown.text.size() || shown.text[nSide] == ' ')
        {
            m_out += m_language.strNoBracket;
            return;
        }
        for (const CSpokenName& bracket : m_language.aBrackets)
        {
            const std::size_t nFound = bracket.text.find(shown.text[nSide]);
            if (nFound != bracket.text.npos)
            {
                m_out += nFound == nSide ? std::string_view() : m_language.strTurned;
                m_out += bracket.words;
                return;
            }
        }
        AppendCharacters({ shown.text.substr(nSide, 1), shown.nFace });
    }

    const CSpokenLanguage& m_language;
    std::string& m_out;
    std::size_t m_nEnd = 0;  // behind the last words that do more than close
};
}  // namespace

std::string SpokenText(const CNode* pRoot)
{
    CWriterMemory memory;
    CSpeech dialect(SpokenEnglish(), memory.m_text);
    CFormWriter<CSpeech>(dialect, memory.m_open).Write(pRoot, RANK_ANY);
    dialect.Finish();
    return memory.m_text;
}
