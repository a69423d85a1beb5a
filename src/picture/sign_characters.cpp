// The signs of MathML tell the characters.
#include "picture/sign_characters.h"

#include "exchange/signs.h"

std::string CharacterOf(const CDrawnFont& font, BYTE nCode)
{
    constexpr std::string_view strUnknown = "\uFFFD";
    if (nCode <= ' ')
        return " ";
    const EFace nFace = FaceFromName(font.description.lfFaceName);
    const std::string_view sign = SignOf(nFace, nCode).mathML;
    if (sign == strUnknown)
        return " ";
    // What XML escapes are signs of ASCII, which all faces have at their own codes.
    return sign.starts_with('&') ? std::string(1, static_cast<char>(nCode)) : std::string(sign);
}
