// The exported functions: arguments are checked and handed on.
#include "mivora/mivora_c.h"

#include <cstring>
#include <memory>
#include <new>

#include "capi/call.h"
#include "capi/formula.h"
#include "capi/paint.h"
#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "facade/formula_words.h"
#include "facade/layout_form.h"
#include "facade/node_json.h"
#include "facade/stored_bytes.h"
#include "facade/typed_text.h"
#include "nodes/node.h"
#include "picture/carried_text.h"
#include "picture/metafile.h"

namespace
{
std::string TextOf(const char* pText, size_t nLength)
{
    NeedPointers(pText);
    return { pText, nLength == MIVORA_WHOLE ? std::strlen(pText) : nLength };
}

// What a call gives is nothing until it succeeds.
void Clear(char** ppBytes, size_t* pnSize)
{
    if (ppBytes != nullptr)
        *ppBytes = nullptr;
    if (pnSize != nullptr)
        *pnSize = 0;
}

// Makes a formula by one of its operations.
template <class Fill>
mivora_status Make(const mivora_look* pLook, mivora_formula** ppFormula, Fill fill)
{
    if (ppFormula != nullptr)
        *ppFormula = nullptr;
    return Call(
        [&]
        {
            NeedPointers(ppFormula);
            const mivora_look look = OptionsOf(pLook);
            auto pFormula = std::make_unique<mivora_formula>();
            fill(*pFormula, look);
            *ppFormula = pFormula.release();
        });
}

// Gives what a formula is written as.
template <class Write>
mivora_status WriteBytes(const mivora_formula* pFormula, char** ppBytes, size_t* pnSize,
                         Write write)
{
    Clear(ppBytes, pnSize);
    return Call(
        [&]
        {
            NeedPointers(pFormula, ppBytes, pnSize);
            pFormula->TakeGap();
            Give(write(), ppBytes, pnSize);
        });
}

// The text that travels in a picture; the comment of a metafile ends at a NUL.
std::string SourceFor(const CPictureFormat& format, const CString& strText)
{
    std::string strSource = Utf8FromText(strText);
    return format.bLook ? strSource : strSource.substr(0, strSource.find('\0'));
}

void Gray(CFormulaOut& formula, bool bGrayed)
{
    formula.m_Tree.SetSelection(nullptr, bGrayed ? PF_GRAYED : 0);
}

mivora_size SizeOf(const CPictureSize& size)
{
    return { static_cast<double>(size.nWidth), static_cast<double>(size.nHeight), size.fAxis,
             size.fDepth, size.fEm };
}

std::string WriteForm(mivora_formula& formula, mivora_form nForm)
{
    const CNode* pRoot = formula.formula.m_Tree.GetRootNode();
    Gray(formula.formula, false);
    switch (nForm)
    {
        case MIVORA_TREE_JSON:
            return TreeAsJson(pRoot);
        case MIVORA_LAYOUT_JSON:
            return LayoutForm(formula.formula, formula.report);
        case MIVORA_MATHML:
            return MathMLText(pRoot);
        case MIVORA_LATEX:
            return LatexText(pRoot);
        case MIVORA_SPEECH:
            return SpokenText(pRoot);
        case MIVORA_FORTRAN:
            return Utf8FromText(formula.formula.m_Tree.GetFormulaText(0));
    }
    RefuseArgument("there is no form " + std::to_string(static_cast<int>(nForm)));
}

std::string SourceIn(std::string_view bytes)
{
    const ECarrier carrier = CarrierOf(bytes);
    if (carrier == CARRIER_UNKNOWN)
        throw CCallFailure{ MIVORA_INVALID_DATA, "the bytes are no picture that is known" };
    const std::optional<std::string> source =
        carrier == CARRIER_METAFILE ? MetafileSource(bytes) : FindCarriedSource(bytes);
    if (!source)
        throw CCallFailure{ MIVORA_NO_SOURCE, "no formula's text is in this picture" };
    return *source;
}
}  // namespace

mivora_status mivora_last_error(mivora_error* error)
{
    if (error == nullptr)
        return MIVORA_INVALID_ARGUMENT;
    TellLastError(*error);
    return MIVORA_OK;
}

void mivora_free(void* bytes)
{
    ::operator delete(bytes);
}

const char* mivora_version(void)
{
    return MIVORA_VERSION;
}

mivora_status mivora_formula_from_text(const char* text, size_t length, const mivora_look* look,
                                       mivora_formula** formula)
{
    return Make(look, formula,
                [&](mivora_formula& made, const mivora_look& wanted)
                { made.FormText(TextOf(text, length), wanted); });
}

mivora_status mivora_formula_from_fml(const void* bytes, size_t size, const mivora_look* look,
                                      mivora_formula** formula)
{
    return Make(look, formula,
                [&](mivora_formula& made, const mivora_look& wanted)
                {
                    NeedPointers(bytes);
                    made.LoadStored({ static_cast<const char*>(bytes), size }, wanted);
                });
}

void mivora_formula_free(mivora_formula* formula)
{
    EndFormula(formula);
}

mivora_status mivora_formula_problem(const mivora_formula* formula, mivora_error* problem)
{
    return Call(
        [=]
        {
            NeedPointers(formula, problem);
            *problem = { formula->nProblem, formula->nProblemPosition, formula->strProblem.c_str(),
                         formula->strExcerpt.c_str() };
        });
}

mivora_status mivora_formula_text(const mivora_formula* formula, char** text, size_t* length)
{
    return WriteBytes(formula, text, length,
                      [=] { return Utf8FromText(formula->formula.m_strFormula); });
}

mivora_status mivora_formula_size(mivora_formula* formula, const mivora_paint* paint,
                                  mivora_size* size)
{
    return Call(
        [=]
        {
            NeedPointers(formula, size);
            const CPictureOptions options = PaintOptions(OptionsOf(paint), nullptr);
            formula->TakeGap();
            Gray(formula->formula, false);
            *size = SizeOf(MeasurePicture(formula->formula, options));
        });
}

mivora_status mivora_formula_picture(mivora_formula* formula, const char* format,
                                     const mivora_paint* paint, char** bytes, size_t* size,
                                     mivora_size* measured)
{
    return WriteBytes(formula, bytes, size,
                      [=]
                      {
                          const mivora_paint wanted = OptionsOf(paint);
                          const CPictureFormat& found = FormatOf(format);
                          CPictureOptions options = PaintOptions(wanted, &found);
                          CFormulaOut& painted = formula->formula;
                          Gray(painted, wanted.grayed != 0);
                          if (wanted.no_source == 0)
                          {
                              options.strSource = SourceFor(found, painted.m_strFormula);
                              options.strTitle = WordsOf(painted);
                          }
                          const CPictureFile picture = MakePicture(painted, found, options);
                          if (measured != nullptr)
                              *measured = SizeOf(picture.size);
                          return picture.strBytes;
                      });
}

mivora_status mivora_picture_source(const void* bytes, size_t size, char** text, size_t* length)
{
    Clear(text, length);
    return Call(
        [=]
        {
            NeedPointers(bytes, text, length);
            Give(SourceIn({ static_cast<const char*>(bytes), size }), text, length);
        });
}

mivora_status mivora_formula_fml(mivora_formula* formula, char** bytes, size_t* size)
{
    return WriteBytes(formula, bytes, size, [=] { return StoredBytes(formula->formula); });
}

mivora_status mivora_formula_write(mivora_formula* formula, mivora_form form, char** text,
                                   size_t* length)
{
    return WriteBytes(formula, text, length, [=] { return WriteForm(*formula, form); });
}

mivora_status mivora_calculate(const char* text, size_t length, double* value)
{
    return Call(
        [=]
        {
            NeedPointers(text, value);
            CalculateInto(TextOf(text, length), value);
        });
}
