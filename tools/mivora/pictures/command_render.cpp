// render, comment and fonts, and measure for programs.
#include <cstdio>
#include <vector>

#include "picture/carried_text.h"
#include "pictures/picture.h"
#include "platform/base/code_page.h"
#include "platform/gdi/dc.h"
#include "report.h"
#include "service/metafile_comment.h"
#include "system/font_list.h"
#include "system/input_file.h"
#include "system/interruption.h"
#include "system/output_file.h"
#include "texts/text_input.h"
#include "words/arguments.h"

namespace
{
constexpr float s_fScale = 22.0F;  // as the library's C function gives sizes

void Form(CFormulaOut& formula, const CString& strText, CParseReport& report)
{
    if (!FormTreeReporting(formula, strText, report))
        throw CFailure{ TakeLibraryMessages() };
}

// Gives the exit status.
int TellFindings(const CArguments& arguments, const CParseReport& report,
                 const std::string& strTyped)
{
    std::fflush(stdout);
    const bool bFound = WarnOfFindings(report, strTyped);
    return bFound && arguments.Has(OPT_STRICT) ? STATUS_FAILED : STATUS_DONE;
}

void PrintSize(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%.9g %.9g\n", static_cast<double>(static_cast<float>(rect.Width()) * s_fScale),
                static_cast<double>(static_cast<float>(rect.Height()) * s_fScale));
}

std::string ReadWhole(const std::string& strPath)
{
    CInputFile file(strPath);
    std::string strBytes;
    std::vector<char> buffer(65536);
    while (const size_t nCount = file.Read(buffer.data(), buffer.size()))
        strBytes.append(buffer.data(), nCount);
    return strBytes;
}

std::string CommentOfMetafile(const std::string& strPath)
{
    CBinTree tree;
    if (!tree.ReadMetafile(strPath.c_str()))
        throw CFailure{ strPath + ": " + TakeLibraryMessages() };
    return Utf8FromText(g_strMetaComment);
}
}  // namespace

int RunRender(const CArguments& arguments)
{
    const std::string strPath = arguments.Value(OPT_OUTPUT);
    const CFileFormat format = FormatOf(arguments);
    const CDrawOptions options = DrawOptionsOf(arguments, format);
    const std::string strTyped = TypedText(arguments);
    const CString strText = TextFromUtf8(strTyped);

    EndWhenInterrupted();
    CFormulaOut formula;
    CParseReport report;
    Form(formula, strText, report);
    const CPictureSize size = WriteFormula(formula, format, strPath, options);
    if (arguments.Has(OPT_JSON))
        std::printf("%s\n", SizeAsJson(size).c_str());
    else if (strPath != STANDARD_OUTPUT)
        PrintSize(formula);
    const int nStatus = TellFindings(arguments, report, strTyped);
    return IsInterrupted() ? InterruptedStatus() : nStatus;
}

int MeasureAsJson(const CArguments& arguments)
{
    const CDrawOptions options = MeasureOptionsOf(arguments);
    const std::string strTyped = TypedText(arguments);
    CFormulaOut formula;
    CParseReport report;
    Form(formula, TextFromUtf8(strTyped), report);
    ApplyLook(formula, options.look);
    try
    {
        std::printf("%s\n", SizeAsJson(MeasurePicture(formula, options.picture)).c_str());
    }
    catch (const CPictureFailure& failure)
    {
        throw CFailure{ "cannot measure: " + failure.strReason };
    }
    return TellFindings(arguments, report, strTyped);
}

int RunComment(const CArguments& arguments)
{
    const std::string strPath = *arguments.Operand();
    const std::string strBytes = ReadWhole(strPath);
    std::optional<std::string> source;
    switch (CarrierOf(strBytes))
    {
        case CARRIER_PNG:
        case CARRIER_SVG:
        case CARRIER_PDF:
            source = FindCarriedSource(strBytes);
            if (!source)
            {
                throw CFailure{ strPath +
                                ": no formula's text is in this picture; it was made "
                                "without one, or a program took it out" };
            }
            break;
        case CARRIER_BMP:
            throw CFailure{ strPath + ": a .bmp holds no text" };
        default:
            source = CommentOfMetafile(strPath);
    }
    *source += "\n";
    std::fwrite(source->data(), 1, source->size(), stdout);
    return STATUS_DONE;
}

int RunFonts(const CArguments&)
{
    for (const auto& [strFace, strFile] : FacesAndFiles())
        std::printf("%s\t%s\n", strFace.c_str(), strFile.empty() ? "-" : strFile.c_str());
    return STATUS_DONE;
}
