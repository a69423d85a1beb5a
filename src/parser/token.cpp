// What each character can begin or go on with.
// One table of bits for all 256 codes.
#include "parser/token.h"

#include <array>
#include <string_view>

namespace
{

constexpr int CODES = 256;

enum : BYTE
{
    CC_RELATION = 1,
    CC_NUMBER = 2,
    CC_DECIMAL = 4,
    CC_NAME = 8
};

constexpr std::array<BYTE, CODES> MakeClasses()
{
    std::array<BYTE, CODES> anClasses{};
    auto add = [&](std::string_view strChars, BYTE nClass)
    {
        for (char ch : strChars)
            anClasses[static_cast<BYTE>(ch)] |= nClass;
    };
    add("=+-<>!", CC_RELATION);
    add("0123456789.%", CC_NUMBER);
    add("0123456789.", CC_DECIMAL);
    add("abcdefghijklmnopqrstuvwxyz", CC_NAME);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZ", CC_NAME);
    add("'[]{}|", CC_NAME);
    return anClasses;
}

constexpr std::array<BYTE, CODES> s_anClasses = MakeClasses();

bool HasClass(char ch, BYTE nClass)
{
    return (s_anClasses[static_cast<BYTE>(ch)] & nClass) != 0;
}

}  // namespace

bool IsRelationChar(char ch)
{
    return HasClass(ch, CC_RELATION);
}

bool IsNumberChar(char ch)
{
    return HasClass(ch, CC_NUMBER);
}

bool IsDecimalChar(char ch)
{
    return HasClass(ch, CC_DECIMAL);
}

bool IsNameChar(char ch)
{
    return HasClass(ch, CC_NAME);
}
