/* The one header that a host includes: formula text in, pictures and sizes out.
 * C hosts get the two C functions, C++ hosts also the class CFormulaOut. */
#ifndef MIVORA_MIVORA_H
#define MIVORA_MIVORA_H

#ifdef __cplusplus
#include "platform/base/app.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"
#endif

#ifdef __cplusplus
extern "C"
{
#endif

    /* Writes the formula as an enhanced metafile and tells its size: 22 times the size in screen
     * pixels. The text is bytes of Windows-1252, the path must end in "wmf" in any case, the two
     * pointers must not be null. Always 1: what goes wrong is told in message boxes. */
    int StringToEMFFormula(const char* pszFormula, const char* pszPath, float* pfWidth,
                           float* pfHeight);

    /* Answers a message box. pszText is code page 936 (ASCII but for the Chinese messages),
     * nType what the box asks for (0: one OK button), the result the button: 1 is OK. */
    typedef int (*MivoraMessageBoxHandler)(const char* pszText, unsigned nType, void* pContext);

    /* Takes the place of the message boxes, which without a display are lines on standard error;
     * null brings them back. */
#ifndef __cplusplus
    void AfxSetMessageBoxHandler(MivoraMessageBoxHandler pfnHandler, void* pContext);
#endif

#ifdef __cplusplus
}
#endif

#endif
