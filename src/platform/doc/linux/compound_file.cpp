// Compound files through the module that is loaded when the first one is touched.
#include "platform/doc/compound_file.h"

#include <dlfcn.h>

#include <vector>

#include "platform/base/exception.h"
#include "platform/base/module_path.h"
#include "platform/doc/linux/compound_module.h"

namespace
{
const CCompoundModule* LoadModule()
{
    // Beside the library, or as seen from a program that has it inside.
    const std::string strFile =
        BesideModule({ "mivora/" COMPOUND_MODULE_FILE,
                       "../" COMPOUND_LIBRARY_FOLDER "/mivora/" COMPOUND_MODULE_FILE,
                       "../lib/mivora/" COMPOUND_MODULE_FILE })
            .string();
    void* pModule = strFile.empty() ? nullptr : dlopen(strFile.c_str(), RTLD_NOW | RTLD_LOCAL);
    return pModule == nullptr
               ? nullptr
               : static_cast<const CCompoundModule*>(dlsym(pModule, COMPOUND_MODULE_SYMBOL));
}

const CCompoundModule& Module()
{
    static const CCompoundModule* s_pModule = LoadModule();
    if (s_pModule == nullptr)
        AfxThrowFileException(CFileException::fileNotFound, -1, COMPOUND_MODULE_FILE);
    return *s_pModule;
}

// Exceptions do not cross the module: the first one waits here.
struct CSink
{
    CFile& file;
    std::exception_ptr exception = nullptr;

    static int Write(void* pContext, const void* pBytes, std::size_t nBytes)
    {
        auto* pSink = static_cast<CSink*>(pContext);
        try
        {
            pSink->file.Write(pBytes, static_cast<UINT>(nBytes));
            return 1;
        }
        catch (CException*)
        {
            pSink->exception = std::current_exception();
            return 0;
        }
    }

    void Rethrow() const
    {
        if (exception)
            std::rethrow_exception(exception);
    }
};
}  // namespace

void PackCompoundFile(CFile& file, const char* pszStream, const CMemFile& content)
{
    CSink sink{ file };
    if (!Module().pfnPack(pszStream, content.GetData(),
                          static_cast<std::size_t>(content.GetLength()), CSink::Write, &sink))
    {
        sink.Rethrow();
        AfxThrowFileException(CFileException::genericException);
    }
}

BOOL UnpackCompoundFile(CFile& file, const char* pszStream, CMemFile& content)
{
    const std::vector<BYTE> bytes = ReadRest(file);
    CSink sink{ content };
    const int bUnpacked =
        Module().pfnUnpack(bytes.data(), bytes.size(), pszStream, CSink::Write, &sink);
    sink.Rethrow();
    content.SeekToBegin();
    return bUnpacked;
}
