// Code page 936 by the system's converter.
#include <iconv.h>

#include <algorithm>
#include <memory>

#include "platform/base/code_page.h"
#include "platform/base/free_by.h"

namespace
{
using CIconv = std::unique_ptr<void, CFreeBy<iconv_close>>;

CIconv OpenConverter()
{
    for (const char* pszName : { "CP936", "GBK", "GB18030" })
    {
        iconv_t converter = iconv_open("UTF-8", pszName);
        if (converter != reinterpret_cast<iconv_t>(-1))
            return CIconv(converter);
    }
    return nullptr;
}
}  // namespace

std::string CodePage936ToUtf8(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), [](char ch) { return (ch & 0x80) == 0; }))
        return std::string(text);
    const CIconv converter = OpenConverter();
    if (converter == nullptr)
        return Windows1252ToUtf8(text);
    std::string utf8(text.size() * 3, '\0');  // two bytes become at most three, one at most three
    char* pIn = const_cast<char*>(text.data());
    char* pOut = utf8.data();
    std::size_t nIn = text.size();
    std::size_t nOut = utf8.size();
    if (iconv(converter.get(), &pIn, &nIn, &pOut, &nOut) == static_cast<std::size_t>(-1))
        return Windows1252ToUtf8(text);
    utf8.resize(utf8.size() - nOut);
    return utf8;
}
