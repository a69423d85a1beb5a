// PDF is written on Linux only.
#include "picture/pdf.h"

std::string PdfBytes(const CDrawing&, const CPlacement&, const CPictureOptions&,
                     const std::vector<CNodeBox>&)
{
    throw CPictureFailure{ "there is no writer of PDF on this system" };
}
