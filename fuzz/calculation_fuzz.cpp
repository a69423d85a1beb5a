// Any bytes as a text for the calculator.
#include <cstdint>

#include "parser/formula_parser.h"
#include "quiet_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    CFormulaParser parser;
    WORD wPosition = 0;
    CString strMessage;
    parser.Calculation(CString(reinterpret_cast<const char*>(pData), static_cast<int>(nSize)), 1.5,
                       &wPosition, &strMessage);
    return 0;
}
