// The signs of each face, and what a node shows of them.
#include "exchange/signs.h"

#include <cctype>
#include <iterator>

#include "nodes/typed_node.h"

namespace
{
constexpr CSign s_unknown = { "\uFFFD", "\\rule{.5em}{.5em}" };

constexpr int s_nFirstSymbol = 0x20;

// "Symbol", from code 20 on. The two shapes of phi are those that the face shows. Plain TeX has no
// pieces of brackets: the bracket stands for them.
// clang-format off
constexpr CSign s_aSymbols[] = {
    { " ", "\\ " }, { "!", "!" }, { "∀", "\\forall" }, { "#", "\\#" },                          // 20
    { "∃", "\\exists" }, { "%", "\\%" }, { "&amp;", "\\&" }, { "∋", "\\ni" },
    { "(", "(" }, { ")", ")" }, { "∗", "\\ast" }, { "+", "+" },                                 // 28
    { ",", "," }, { "−", "-" }, { ".", "." }, { "/", "/" },
    { "0", "0" }, { "1", "1" }, { "2", "2" }, { "3", "3" },                                     // 30
    { "4", "4" }, { "5", "5" }, { "6", "6" }, { "7", "7" },
    { "8", "8" }, { "9", "9" }, { ":", ":" }, { ";", ";" },                                     // 38
    { "&lt;", "<" }, { "=", "=" }, { "&gt;", ">" }, { "?", "?" },
    { "≅", "\\cong" }, { "Α", "\\mathrm{A}" }, { "Β", "\\mathrm{B}" }, { "Χ", "\\mathrm{X}" },  // 40
    { "Δ", "\\Delta" }, { "Ε", "\\mathrm{E}" }, { "Φ", "\\Phi" }, { "Γ", "\\Gamma" },
    { "Η", "\\mathrm{H}" }, { "Ι", "\\mathrm{I}" }, { "ϑ", "\\vartheta" }, { "Κ", "\\mathrm{K}" },  // 48
    { "Λ", "\\Lambda" }, { "Μ", "\\mathrm{M}" }, { "Ν", "\\mathrm{N}" }, { "Ο", "\\mathrm{O}" },
    { "Π", "\\Pi" }, { "Θ", "\\Theta" }, { "Ρ", "\\mathrm{P}" }, { "Σ", "\\Sigma" },            // 50
    { "Τ", "\\mathrm{T}" }, { "Υ", "\\mathrm{Y}" }, { "ς", "\\varsigma" }, { "Ω", "\\Omega" },
    { "Ξ", "\\Xi" }, { "Ψ", "\\Psi" }, { "Ζ", "\\mathrm{Z}" }, { "[", "{[}" },                  // 58
    { "∴", "\\overset{\\cdot}{\\cdot\\cdot}" }, { "]", "{]}" }, { "⊥", "\\perp" }, { "_", "\\_" },
    { "‾", "\\overline{\\phantom{x}}" }, { "α", "\\alpha" }, { "β", "\\beta" }, { "χ", "\\chi" },  // 60
    { "δ", "\\delta" }, { "ε", "\\varepsilon" }, { "ϕ", "\\phi" }, { "γ", "\\gamma" },
    { "η", "\\eta" }, { "ι", "\\iota" }, { "φ", "\\varphi" }, { "κ", "\\kappa" },               // 68
    { "λ", "\\lambda" }, { "μ", "\\mu" }, { "ν", "\\nu" }, { "ο", "o" },
    { "π", "\\pi" }, { "θ", "\\theta" }, { "ρ", "\\rho" }, { "σ", "\\sigma" },                  // 70
    { "τ", "\\tau" }, { "υ", "\\upsilon" }, { "ϖ", "\\varpi" }, { "ω", "\\omega" },
    { "ξ", "\\xi" }, { "ψ", "\\psi" }, { "ζ", "\\zeta" }, { "{", "\\{" },                       // 78
    { "|", "\\vert" }, { "}", "\\}" }, { "∼", "\\sim" }, s_unknown,
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 80
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 88
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 90
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 98
    { "€", "\\text{€}" }, { "ϒ", "\\Upsilon" }, { "′", "{'}" }, { "≤", "\\leq" },                          // A0
    { "⁄", "/" }, { "∞", "\\infty" }, { "ƒ", "f" }, { "♣", "\\clubsuit" },
    { "♦", "\\diamondsuit" }, { "♥", "\\heartsuit" }, { "♠", "\\spadesuit" }, { "↔", "\\leftrightarrow" },  // A8
    { "←", "\\leftarrow" }, { "↑", "\\uparrow" }, { "→", "\\rightarrow" }, { "↓", "\\downarrow" },
    { "°", "{^{\\circ}}" }, { "±", "\\pm" }, { "″", "{''}" }, { "≥", "\\geq" },                 // B0
    { "×", "\\times" }, { "∝", "\\propto" }, { "∂", "\\partial" }, { "•", "\\bullet" },
    { "÷", "\\div" }, { "≠", "\\neq" }, { "≡", "\\equiv" }, { "≈", "\\approx" },                // B8
    { "…", "\\ldots" }, { "⏐", "\\vert" }, { "⎯", "{-}" }, { "↵", "\\hookleftarrow" },
    { "ℵ", "\\aleph" }, { "ℑ", "\\Im" }, { "ℜ", "\\Re" }, { "℘", "\\wp" },                      // C0
    { "⊗", "\\otimes" }, { "⊕", "\\oplus" }, { "∅", "\\emptyset" }, { "∩", "\\cap" },
    { "∪", "\\cup" }, { "⊃", "\\supset" }, { "⊇", "\\supseteq" }, { "⊄", "\\not\\subset" },     // C8
    { "⊂", "\\subset" }, { "⊆", "\\subseteq" }, { "∈", "\\in" }, { "∉", "\\notin" },
    { "∠", "\\angle" }, { "∇", "\\nabla" }, { "®", "\\text{®}" }, { "©", "\\text{©}" },         // D0
    { "™", "{^{\\mathrm{TM}}}" }, { "∏", "\\prod" }, { "√", "\\surd" }, { "⋅", "\\cdot" },
    { "¬", "\\neg" }, { "∧", "\\wedge" }, { "∨", "\\vee" }, { "⇔", "\\Leftrightarrow" },        // D8
    { "⇐", "\\Leftarrow" }, { "⇑", "\\Uparrow" }, { "⇒", "\\Rightarrow" }, { "⇓", "\\Downarrow" },
    { "◊", "\\diamond" }, { "⟨", "\\langle" }, { "®", "\\text{®}" }, { "©", "\\text{©}" },      // E0
    { "™", "{^{\\mathrm{TM}}}" }, { "∑", "\\sum" }, { "⎛", "(" }, { "⎜", "\\vert" },
    { "⎝", "(" }, { "⎡", "{[}" }, { "⎢", "\\vert" }, { "⎣", "{[}" },                            // E8
    { "⎧", "\\{" }, { "⎨", "\\{" }, { "⎩", "\\{" }, { "⎪", "\\vert" },
    s_unknown, { "⟩", "\\rangle" }, { "∫", "\\int" }, { "⌠", "\\int" },                         // F0
    { "⎮", "\\vert" }, { "⌡", "\\int" }, { "⎞", ")" }, { "⎟", "\\vert" },
    { "⎠", ")" }, { "⎤", "{]}" }, { "⎥", "\\vert" }, { "⎦", "{]}" },                            // F8
    { "⎫", "\\}" }, { "⎬", "\\}" }, { "⎭", "\\}" }, s_unknown,
};
// clang-format on
static_assert(std::size(s_aSymbols) == 256 - s_nFirstSymbol);

struct CExtraSign
{
    unsigned char nCode;
    CSign sign;
};

constexpr CExtraSign s_aExtras[] = {
    { ' ', { " ", "\\ " } },
    { 'h', { "ℏ", "\\hbar" } },
    { 'D', { "ƛ", "\\bar{\\lambda}" } },
    { 'b', { "↕", "\\updownarrow" } },
    { 'c', { "⇕", "\\Updownarrow" } },
};

// Windows-1252. Without packages for fonts LaTeX has no guillemets, low quotes, eth and thorn.
// clang-format off
constexpr CSign s_aTexts[] = {
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 00
    s_unknown, { " ", " " }, { " ", " " }, s_unknown, s_unknown, { " ", " " }, s_unknown, s_unknown,
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,     // 10
    s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown, s_unknown,
    { "\u00A0", "\\ " }, { "!", "!" }, { "\"", "''" }, { "#", "\\#" },                          // 20
    { "$", "\\$" }, { "%", "\\%" }, { "&amp;", "\\&" }, { "'", "'" },
    { "(", "(" }, { ")", ")" }, { "*", "*" }, { "+", "+" },                                     // 28
    { ",", "," }, { "-", "-" }, { ".", "." }, { "/", "/" },
    { "0", "0" }, { "1", "1" }, { "2", "2" }, { "3", "3" },                                     // 30
    { "4", "4" }, { "5", "5" }, { "6", "6" }, { "7", "7" },
    { "8", "8" }, { "9", "9" }, { ":", ":" }, { ";", ";" },                                     // 38
    { "&lt;", "\\textless{}" }, { "=", "=" }, { "&gt;", "\\textgreater{}" }, { "?", "?" },
    { "@", "@" }, { "A", "A" }, { "B", "B" }, { "C", "C" },                                     // 40
    { "D", "D" }, { "E", "E" }, { "F", "F" }, { "G", "G" },
    { "H", "H" }, { "I", "I" }, { "J", "J" }, { "K", "K" },                                     // 48
    { "L", "L" }, { "M", "M" }, { "N", "N" }, { "O", "O" },
    { "P", "P" }, { "Q", "Q" }, { "R", "R" }, { "S", "S" },                                     // 50
    { "T", "T" }, { "U", "U" }, { "V", "V" }, { "W", "W" },
    { "X", "X" }, { "Y", "Y" }, { "Z", "Z" }, { "[", "{[}" },                                   // 58
    { "\\", "\\textbackslash{}" }, { "]", "{]}" }, { "^", "\\textasciicircum{}" }, { "_", "\\_" },
    { "`", "`" }, { "a", "a" }, { "b", "b" }, { "c", "c" },                                     // 60
    { "d", "d" }, { "e", "e" }, { "f", "f" }, { "g", "g" },
    { "h", "h" }, { "i", "i" }, { "j", "j" }, { "k", "k" },                                     // 68
    { "l", "l" }, { "m", "m" }, { "n", "n" }, { "o", "o" },
    { "p", "p" }, { "q", "q" }, { "r", "r" }, { "s", "s" },                                     // 70
    { "t", "t" }, { "u", "u" }, { "v", "v" }, { "w", "w" },
    { "x", "x" }, { "y", "y" }, { "z", "z" }, { "{", "\\{" },                                   // 78
    { "|", "\\textbar{}" }, { "}", "\\}" }, { "~", "\\textasciitilde{}" }, s_unknown,
    { "€", "€" }, s_unknown, { "‚", "," }, { "ƒ", "f" },                                        // 80
    { "„", ",," }, { "…", "…" }, { "†", "†" }, { "‡", "‡" },
    { "ˆ", "\\textasciicircum{}" }, { "‰", "‰" }, { "Š", "Š" }, { "‹", "\\textless{}" },        // 88
    { "Œ", "Œ" }, s_unknown, { "Ž", "Ž" }, s_unknown,
    s_unknown, { "‘", "‘" }, { "’", "’" }, { "“", "“" },                                        // 90
    { "”", "”" }, { "•", "•" }, { "–", "–" }, { "—", "—" },
    { "˜", "\\textasciitilde{}" }, { "™", "™" }, { "š", "š" }, { "›", "\\textgreater{}" },      // 98
    { "œ", "œ" }, s_unknown, { "ž", "ž" }, { "Ÿ", "Ÿ" },
    { "\u00A0", "\\ " }, { "¡", "¡" }, { "¢", "¢" }, { "£", "£" },                              // A0
    { "¤", "¤" }, { "¥", "\\textup{¥}" }, { "¦", "¦" }, { "§", "§" },
    { "¨", "¨" }, { "©", "©" }, { "ª", "ª" }, { "«", "\\textless{}\\textless{}" },              // A8
    { "¬", "¬" }, { "\u00AD", "-" }, { "®", "®" }, { "¯", "¯" },
    { "°", "°" }, { "±", "±" }, { "²", "²" }, { "³", "³" },                                     // B0
    { "´", "´" }, { "µ", "µ" }, { "¶", "¶" }, { "·", "·" },
    { "¸", "¸" }, { "¹", "¹" }, { "º", "º" }, { "»", "\\textgreater{}\\textgreater{}" },        // B8
    { "¼", "¼" }, { "½", "½" }, { "¾", "¾" }, { "¿", "¿" },
    { "À", "À" }, { "Á", "Á" }, { "Â", "Â" }, { "Ã", "Ã" },                                     // C0
    { "Ä", "Ä" }, { "Å", "Å" }, { "Æ", "Æ" }, { "Ç", "Ç" },
    { "È", "È" }, { "É", "É" }, { "Ê", "Ê" }, { "Ë", "Ë" },                                     // C8
    { "Ì", "Ì" }, { "Í", "Í" }, { "Î", "Î" }, { "Ï", "Ï" },
    { "Ð", "Dh" }, { "Ñ", "Ñ" }, { "Ò", "Ò" }, { "Ó", "Ó" },                                    // D0
    { "Ô", "Ô" }, { "Õ", "Õ" }, { "Ö", "Ö" }, { "×", "×" },
    { "Ø", "Ø" }, { "Ù", "Ù" }, { "Ú", "Ú" }, { "Û", "Û" },                                     // D8
    { "Ü", "Ü" }, { "Ý", "Ý" }, { "Þ", "Th" }, { "ß", "ß" },
    { "à", "à" }, { "á", "á" }, { "â", "â" }, { "ã", "ã" },                                     // E0
    { "ä", "ä" }, { "å", "å" }, { "æ", "æ" }, { "ç", "ç" },
    { "è", "è" }, { "é", "é" }, { "ê", "ê" }, { "ë", "ë" },                                     // E8
    { "ì", "ì" }, { "í", "í" }, { "î", "î" }, { "ï", "ï" },
    { "ð", "dh" }, { "ñ", "ñ" }, { "ò", "ò" }, { "ó", "ó" },                                    // F0
    { "ô", "ô" }, { "õ", "õ" }, { "ö", "ö" }, { "÷", "÷" },
    { "ø", "ø" }, { "ù", "ù" }, { "ú", "ú" }, { "û", "û" },                                     // F8
    { "ü", "ü" }, { "ý", "ý" }, { "þ", "th" }, { "ÿ", "ÿ" },
};
// clang-format on
static_assert(std::size(s_aTexts) == 256);

bool IsFace(const char* pszFace, std::string_view usual, std::string_view lowerCase)
{
    if (usual == pszFace)
        return true;
    for (const char ch : lowerCase)
    {
        if (std::tolower(static_cast<unsigned char>(*pszFace++)) != ch)
            return false;
    }
    return *pszFace == 0;
}

std::string_view WithoutEndBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    return text;
}
}  // namespace

EFace FaceFromName(const char* pszFace)
{
    switch (*pszFace)
    {
        case 'S':
        case 's':
            return IsFace(pszFace, "Symbol", "symbol") ? FACE_SYMBOL : FACE_TEXT;
        case 'M':
        case 'm':
            return IsFace(pszFace, "MT Extra", "mt extra") ? FACE_EXTRA : FACE_TEXT;
        default:
            return FACE_TEXT;
    }
}

const CSign& SignOf(EFace nFace, unsigned char nCode)
{
    if (nFace == FACE_TEXT)
        return s_aTexts[nCode];
    if (nFace == FACE_SYMBOL)
        return nCode < s_nFirstSymbol ? s_unknown : s_aSymbols[nCode - s_nFirstSymbol];
    for (const CExtraSign& extra : s_aExtras)
    {
        if (extra.nCode == nCode)
            return extra.sign;
    }
    return s_unknown;
}

CShownText ShownTextOf(const CNode& node, ENodeType nType)
{
    constexpr int nNoKind = -1;  // a function that shows what it holds
    if (NodeTypeData(nType).nKinds == KINDS_SIGN)
    {
        // A damaged archive can give a node of another class the name of a type with kinds.
        const auto* pTyped = dynamic_cast<const CTypedNode*>(&node);
        if (pTyped != nullptr && pTyped->m_saSymbols.GetSize() != 0 &&
            (nType != NTI_FUNC || pTyped->GetKind() != nNoKind))
        {
            // A blank shows nothing, but it has its place in a pair of brackets.
            return { pTyped->m_saSymbols[pTyped->GetKind()].View(),
                     FaceFromName(pTyped->m_saFonts[pTyped->GetKind()].GetString()) };
        }
    }
    return { WithoutEndBlanks(node.m_strSymbol.View()),
             FaceFromName(node.GetLogFont()->lfFaceName) };
}

bool BeginsWithDoubleIntegral(const CShownText& shown)
{
    return shown.nFace == FACE_SYMBOL && shown.text.starts_with("\xF2\xF2");
}

int KindOf(const CNode& node, int nWithout)
{
    const auto* pTyped = dynamic_cast<const CTypedNode*>(&node);
    return pTyped != nullptr ? pTyped->GetKind() : nWithout;
}
