/* The one header that a host includes: formula text in, pictures and sizes out.
 *
 * StringToEMFFormula writes a formula as an enhanced metafile and tells its size: 22 times the size
 * in screen pixels. The text is bytes of Windows-1252, the path must end in "wmf" in any case.
 * Always 1: what goes wrong is told in message boxes, and no exception comes out. A file that
 * cannot be written is not told at all: whoever has to know looks for the file. With a null pointer
 * no file is written, and the sizes are 0 where they can be stored. It may be called from any
 * thread, and lets one call in at a time.
 *
 * AfxSetMessageBoxHandler takes the place of the message boxes, which without a display are lines
 * on standard error; a null handler brings them back. The handler gets a text, valid during the
 * call, the buttons that are asked for (0: OK alone) and pContext; it gives the button pressed, 1
 * for OK. AfxGetMessageCodePage tells a handler the encoding of its text: 65001 (UTF-8) if it names
 * a path or comes from the system, 936 for all other texts of the library, some of them Chinese.
 *
 * AfxSetInstallPrefix tells where share/mivora/fonts lies, before the first call, should it be
 * neither beside the library nor where the environment variable MIVORA_PREFIX says; null takes it
 * back.
 *
 * C++ hosts get the same and the class CFormulaOut, with the platform classes that it needs. */
#ifndef MIVORA_MIVORA_H
#define MIVORA_MIVORA_H

#if defined(__cplusplus) && __cplusplus < 202002L

#error "Mivora needs C++20: compile with -std=c++20"

#elif defined(__cplusplus)

#include "platform/base/app.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

#else

int StringToEMFFormula(const char* pszFormula, const char* pszPath, float* pfWidth,
                       float* pfHeight);

typedef int (*AFX_MESSAGE_BOX_HANDLER)(const char* pszText, unsigned nType, void* pContext);
void AfxSetMessageBoxHandler(AFX_MESSAGE_BOX_HANDLER pfnHandler, void* pContext);
unsigned AfxGetMessageCodePage(void);

void AfxSetInstallPrefix(const char* pszFolder);

#endif

#endif
