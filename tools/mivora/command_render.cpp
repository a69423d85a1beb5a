// render, comment and fonts.
#include <cstdio>

#include "arguments.h"
#include "font_list.h"
#include "input_file.h"
#include "interruption.h"
#include "picture.h"
#include "platform/base/code_page.h"
#include "platform/gdi/dc.h"
#include "report.h"
#include "service/metafile_comment.h"
#include "text_input.h"

namespace
{
constexpr float s_fScale = 22.0F;  // as the library's C function gives sizes

CPictureOptions OptionsOf(const CArguments& arguments, const CPictureFormat& format)
{
    CPictureOptions options;
    options.nDpi = arguments.Number(OPT_DPI, options.nDpi);
    options.bBoxes = arguments.Has(OPT_BOXES);
    options.bGrayed = arguments.Has(OPT_GRAYED);
    options.strSelect = arguments.Value(OPT_SELECT);
    if (arguments.Has(OPT_SELECT) && options.strSelect.empty())
        options.strSelect = ":";  // no path
    if (!format.bDpi && (arguments.Has(OPT_DPI) || options.bBoxes))
    {
        throw CUsageError{ std::string(options.bBoxes ? "--boxes" : "--dpi") +
                           " is not for metafiles and stored formulas" };
    }
    return options;
}

void PrintSize(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%.9g %.9g\n", static_cast<double>(static_cast<float>(rect.Width()) * s_fScale),
                static_cast<double>(static_cast<float>(rect.Height()) * s_fScale));
}
}  // namespace

int RunRender(const CArguments& arguments)
{
    const std::string strPath = arguments.Value(OPT_OUTPUT);
    const CPictureFormat& format = FormatOfPath(strPath);
    const CPictureOptions options = OptionsOf(arguments, format);
    const std::string strTyped = TypedText(arguments);
    const CString strText = TextFromUtf8(strTyped);

    EndWhenInterrupted();
    CFormulaOut formula;
    CParseReport report;
    if (!FormTreeReporting(formula, strText, report))
        throw CFailure{ TakeLibraryMessages() };
    WritePicture(formula, format, strPath, options);
    PrintSize(formula);
    std::fflush(stdout);
    const bool bFound = WarnOfFindings(report, strTyped);
    if (IsInterrupted())
        return InterruptedStatus();
    return bFound && arguments.Has(OPT_STRICT) ? STATUS_FAILED : STATUS_DONE;
}

int RunComment(const CArguments& arguments)
{
    const std::string strPath = *arguments.Operand();
    const CInputFile readable(strPath);  // tells a missing file apart from one that is no metafile
    CBinTree tree;
    if (!tree.ReadMetafile(strPath.c_str()))
        throw CFailure{ strPath + ": " + TakeLibraryMessages() };
    const std::string strText = Utf8FromText(g_strMetaComment) + "\n";
    std::fwrite(strText.data(), 1, strText.size(), stdout);
    return STATUS_DONE;
}

int RunFonts(const CArguments&)
{
    for (const auto& [strFace, strFile] : FacesAndFiles())
        std::printf("%s\t%s\n", strFace.c_str(), strFile.empty() ? "-" : strFile.c_str());
    return STATUS_DONE;
}
