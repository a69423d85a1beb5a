// The second process of the tests: ole_partner.exe ROLE [SIZE]   Ends when its input does.
//   read         a line for each format on the clipboard, by plain COM
//   put SIZE     puts a block there and answers for it; flush SIZE leaves it behind at its end
//   target       a drop target, and at the end a line with what came; refuse, one that refuses
//   source       a window to drag from, and a line for each drag's effect
#include "ole_desk.h"

#include "platform/base/win32/com_pointer.h"
#include "platform/win/ole_data_source.h"
#include "platform/win/ole_init.h"

#include <cstdio>
#include <cstdlib>

namespace
{
void WriteFormats(SIZE_T nSize)
{
    IDataObject* pObject = nullptr;
    if (FAILED(OleGetClipboard(&pObject)))
        return;
    const CObjectPtr<IDataObject> object(pObject);
    IEnumFORMATETC* pFormats = nullptr;
    if (FAILED(object->EnumFormatEtc(DATADIR_GET, &pFormats)))
        return;
    const CObjectPtr<IEnumFORMATETC> formats(pFormats);
    FORMATETC format;
    STGMEDIUM medium;
    while (formats->Next(1, &format, nullptr) == S_OK)
    {
        // The system adds formats of its own behind ours.
        if (format.cfFormat != TestFormat() && format.cfFormat != CF_PRIVATEFIRST)
            continue;
        const HRESULT nResult = object->GetData(&format, &medium);
        std::printf("%s %lu %ld %s\n", format.cfFormat == CF_PRIVATEFIRST ? "private" : "own",
                    format.tymed, nResult,
                    SUCCEEDED(nResult) && IsBlock(medium.hGlobal, nSize) ? "same" : "different");
        if (SUCCEEDED(nResult))
            ReleaseStgMedium(&medium);
    }
}

COleDataSource* MakeSource(SIZE_T nSize)
{
    auto* pSource = new COleDataSource;
    pSource->CacheGlobalData(TestFormat(), MakeBlock(nSize));
    return pSource;
}

void BeTarget(CTestTarget::EManner eManner)
{
    CTestWindow window(s_targetPlace);
    CTestTarget target(&window, eManner);
    PumpToEnd();
    std::printf("%s %s %ld %ld\n", target.m_strLog.c_str(), target.m_bSame ? "same" : "none",
                target.m_point.x, target.m_point.y);
}

void BeSource()
{
    CTestWindow window(s_sourcePlace);
    window.m_onPress = []
    {
        const CRect atOnce(0, 0, 0, 0);
        COleDataSource* pSource = MakeSource(s_nBlock);
        std::printf("%lu\n", pSource->DoDragDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE, atOnce));
        delete pSource;
    };
    PumpToEnd();
}
}  // namespace

int main(int nArguments, char** ppszArguments)
{
    const std::string_view role = nArguments > 1 ? ppszArguments[1] : "";
    const SIZE_T nSize = nArguments > 2 ? std::strtoul(ppszArguments[2], nullptr, 10) : 0;
    if (!AfxOleInit())
        return 2;
    if (role == "read")
    {
        WriteFormats(nSize);
    }
    else if (role == "put" || role == "flush")
    {
        MakeSource(nSize)->SetClipboard();
        PumpToEnd();
        if (role == "flush")
            COleDataSource::FlushClipboard();
    }
    else if (role == "target" || role == "refuse")
    {
        BeTarget(role == "refuse" ? CTestTarget::refuses : CTestTarget::usual);
    }
    else if (role == "source")
    {
        BeSource();
    }
    else
    {
        return 2;
    }
    std::fflush(stdout);
    if (role != "put")  // which dies with its data on the clipboard
        AfxOleTerm();
    return 0;
}
