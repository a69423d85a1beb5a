#include "win32/png_bytes.h"

#include "platform/base/types.h"

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "report.h"
#include "system_calls.h"

namespace
{
struct CReleaseObject
{
    void operator()(IUnknown* pObject) const { pObject->Release(); }
};
template <class T>
using CObjectPtr = std::unique_ptr<T, CReleaseObject>;

// Takes results of calls, and tells the first failure.
class CCheck
{
public:
    explicit CCheck(const std::string& strPath) : m_strPath(strPath) {}

    void operator()(HRESULT nResult) const
    {
        if (FAILED(nResult))
            throw CFailure{ "cannot draw " + m_strPath + ": " + SystemErrorText(nResult) };
    }
    // The object that a function gives by its out parameter.
    template <class T, class F>
    CObjectPtr<T> Make(F create) const
    {
        T* pObject = nullptr;
        (*this)(create(&pObject));
        return CObjectPtr<T>(pObject);
    }

private:
    const std::string& m_strPath;
};

// Without the fourth byte, which would be an opacity.
std::vector<BYTE> ThreeBytesEach(const unsigned char* pPixels, const CSize& size)
{
    const auto nPixels = static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy);
    std::vector<BYTE> bytes(nPixels * 3);
    for (size_t n = 0; n < nPixels; ++n)
        std::copy_n(pPixels + n * 4, 3, bytes.data() + n * 3);
    return bytes;
}

void Encode(IStream* pStream, const CSize& size, std::vector<BYTE> pixels, const CCheck& check)
{
    const auto pFactory = check.Make<IWICImagingFactory>(
        [](IWICImagingFactory** pp)
        {
            return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory, reinterpret_cast<void**>(pp));
        });
    const auto pEncoder = check.Make<IWICBitmapEncoder>(
        [&](IWICBitmapEncoder** pp)
        { return pFactory->CreateEncoder(GUID_ContainerFormatPng, nullptr, pp); });
    check(pEncoder->Initialize(pStream, WICBitmapEncoderNoCache));
    const auto pFrame = check.Make<IWICBitmapFrameEncode>(
        [&](IWICBitmapFrameEncode** pp) { return pEncoder->CreateNewFrame(pp, nullptr); });
    const auto nWidth = static_cast<UINT>(size.cx);
    const auto nHeight = static_cast<UINT>(size.cy);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    check(pFrame->Initialize(nullptr));
    check(pFrame->SetSize(nWidth, nHeight));
    check(pFrame->SetPixelFormat(&format));
    check(
        pFrame->WritePixels(nHeight, nWidth * 3, static_cast<UINT>(pixels.size()), pixels.data()));
    check(pFrame->Commit());
    check(pEncoder->Commit());
}

std::string BytesOf(IStream* pStream, const CCheck& check)
{
    STATSTG status{};
    check(pStream->Stat(&status, STATFLAG_NONAME));
    check(pStream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr));
    std::string strBytes(static_cast<size_t>(status.cbSize.QuadPart), '\0');
    ULONG nRead = 0;
    check(pStream->Read(strBytes.data(), static_cast<ULONG>(strBytes.size()), &nRead));
    strBytes.resize(nRead);
    return strBytes;
}

// For as long as objects are used.
class CComponents
{
public:
    explicit CComponents(const CCheck& check)
    {
        check(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    }
    ~CComponents() { CoUninitialize(); }
    CComponents(const CComponents&) = delete;
    CComponents& operator=(const CComponents&) = delete;
};
}  // namespace

std::string PngBytes(const unsigned char* pPixels, const CSize& size, const std::string& strPath)
{
    const CCheck check(strPath);
    const CComponents components(check);
    const auto pStream =
        check.Make<IStream>([](IStream** pp) { return CreateStreamOnHGlobal(nullptr, TRUE, pp); });
    Encode(pStream.get(), size, ThreeBytesEach(pPixels, size), check);
    return BytesOf(pStream.get(), check);
}
