// The compound file module: libgsf, behind a table of two functions.
#include "platform/doc/linux/compound_module.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <algorithm>
#include <memory>

#include "platform/base/free_by.h"

namespace
{
template <class T>
using CObjectPtr = std::unique_ptr<T, CFreeBy<g_object_unref>>;

// A damaged file is an answer, not a line on standard error.
void DropMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

class CQuiet
{
public:
    CQuiet() : m_pfnOld(g_log_set_default_handler(DropMessage, nullptr)) { gsf_init(); }
    ~CQuiet() { g_log_set_default_handler(m_pfnOld, nullptr); }
    CQuiet(const CQuiet&) = delete;
    CQuiet& operator=(const CQuiet&) = delete;

private:
    GLogFunc m_pfnOld;
};

int Pack(const char* pszStream, const void* pBytes, std::size_t nBytes, PFN_SINK pfnSink,
         void* pContext)
{
    const CQuiet quiet;
    const CObjectPtr<GsfOutput> memory(gsf_output_memory_new());
    const CObjectPtr<GsfOutfile> root(gsf_outfile_msole_new(memory.get()));
    if (root == nullptr)
        return 0;
    const CObjectPtr<GsfOutput> stream(gsf_outfile_new_child(root.get(), pszStream, FALSE));
    if (stream == nullptr ||
        !gsf_output_write(stream.get(), nBytes, static_cast<const guint8*>(pBytes)) ||
        !gsf_output_close(stream.get()) || !gsf_output_close(GSF_OUTPUT(root.get())))
        return 0;
    auto* pMemory = GSF_OUTPUT_MEMORY(memory.get());
    return pfnSink(pContext, gsf_output_memory_get_bytes(pMemory),
                   static_cast<std::size_t>(gsf_output_size(memory.get())));
}

int CopyStream(GsfInput* pStream, PFN_SINK pfnSink, void* pContext)
{
    constexpr gsf_off_t nPiece = 0x10000;
    for (gsf_off_t nLeft = gsf_input_remaining(pStream); nLeft > 0;)
    {
        const auto nBytes = static_cast<std::size_t>(std::min(nLeft, nPiece));
        const guint8* pBytes = gsf_input_read(pStream, nBytes, nullptr);
        if (pBytes == nullptr || !pfnSink(pContext, pBytes, nBytes))
            return 0;
        nLeft -= static_cast<gsf_off_t>(nBytes);
    }
    return 1;
}

int Unpack(const void* pFile, std::size_t nFile, const char* pszStream, PFN_SINK pfnSink,
           void* pContext)
{
    const CQuiet quiet;
    const CObjectPtr<GsfInput> memory(gsf_input_memory_new(static_cast<const guint8*>(pFile),
                                                           static_cast<gsf_off_t>(nFile), FALSE));
    const CObjectPtr<GsfInfile> root(memory ? gsf_infile_msole_new(memory.get(), nullptr)
                                            : nullptr);
    if (root == nullptr)
        return 0;
    const CObjectPtr<GsfInput> stream(gsf_infile_child_by_name(root.get(), pszStream));
    // A stream that claims more than the file can hold is believed nothing.
    if (stream == nullptr || gsf_input_size(stream.get()) > static_cast<gsf_off_t>(nFile))
        return 0;
    return CopyStream(stream.get(), pfnSink, pContext);
}
}  // namespace

extern "C" [[gnu::visibility("default")]] const CCompoundModule g_mivoraCompoundModule;
const CCompoundModule g_mivoraCompoundModule = { Pack, Unpack };
