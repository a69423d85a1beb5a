// inspect, and layout of a stored formula.
#include <cstdio>
#include <optional>

#include "facade/layout_form.h"
#include "pictures/picture.h"
#include "stored/stored_formula.h"
#include "words/arguments.h"

namespace
{
int Print(const std::string& strText)
{
    std::fwrite(strText.data(), 1, strText.size(), stdout);
    return STATUS_DONE;
}
}  // namespace

int RunInspect(const CArguments& arguments)
{
    const std::string strOutput = arguments.Value(OPT_OUTPUT);
    std::optional<CFileFormat> format;
    if (arguments.Has(OPT_OUTPUT))
        format = CFileFormat::OfPath(strOutput);
    CFormulaOut formula;
    LoadStored(formula, *arguments.Operand());
    // Drawing puts signs and rectangles into the nodes: what is told is what was stored.
    const std::string strTold =
        arguments.Has(OPT_JSON) ? DescribeStoredAsJson(formula) : DescribeStored(formula);
    if (format)
        WriteFormula(formula, *format, strOutput, {});
    return Print(strTold);
}

int LayOutStored(const CArguments& arguments)
{
    CFormulaOut formula;
    LoadStored(formula, arguments.Value(OPT_FML));
    return Print(LayoutForm(formula) + "\n");
}
