// The clipboard, and data objects as plain COM sees them.
#include "ole_blocks.h"
#include "platform/base/win32/com_pointer.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
int s_nSources = 0;

class CCountedSource : public COleDataSource
{
public:
    explicit CCountedSource(SIZE_T nSize)
    {
        ++s_nSources;
        CacheGlobalData(TestFormat(), MakeBlock(nSize));
        CacheGlobalData(CF_PRIVATEFIRST, MakeBlock(nSize));
    }
    ~CCountedSource() override { --s_nSources; }
};

class OleClipboard : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(AfxOleInit()); }
    void TearDown() override
    {
        OleSetClipboard(nullptr);
        EXPECT_EQ(s_nSources, 0);
    }
};

// Each twice: whoever gets a block may write into it.
void ExpectBlocks(SIZE_T nSize)
{
    COleDataObject object;
    ASSERT_TRUE(object.AttachClipboard());
    EXPECT_FALSE(object.IsDataAvailable(CF_TEXT));
    EXPECT_EQ(object.GetGlobalData(CF_TEXT), nullptr);
    for (const CLIPFORMAT nFormat : { TestFormat(), TestFormat(), CLIPFORMAT{ CF_PRIVATEFIRST },
                                      CLIPFORMAT{ CF_PRIVATEFIRST } })
    {
        EXPECT_TRUE(object.IsDataAvailable(nFormat));
        const CGlobalPtr block(object.GetGlobalData(nFormat));
        ASSERT_TRUE(IsBlock(block.get(), nSize));
        *CGlobalLock(block.get()).Data() ^= 1;
    }
}

TEST_F(OleClipboard, HoldsASourceUntilTheNextOne)
{
    for (const SIZE_T nSize : { 1, 6, 4096, 70001 })
    {
        auto* pSource = new CCountedSource(nSize);
        EXPECT_EQ(COleDataSource::GetClipboardOwner(), nullptr);
        pSource->SetClipboard();
        EXPECT_EQ(COleDataSource::GetClipboardOwner(), pSource);
        EXPECT_EQ(s_nSources, 1);
        ExpectBlocks(nSize);
        COleDataSource::FlushClipboard();
        EXPECT_EQ(s_nSources, 0);
        EXPECT_EQ(COleDataSource::GetClipboardOwner(), nullptr);
        ExpectBlocks(nSize);
        (new CCountedSource(nSize + 1))->SetClipboard();
        pSource = new CCountedSource(nSize + 2);
        const CObjectPtr<IDataObject> held(pSource->GetIDataObject(TRUE));
        pSource->SetClipboard();
        EXPECT_EQ(s_nSources, 1);
        OleSetClipboard(nullptr);
        EXPECT_EQ(COleDataSource::GetClipboardOwner(), nullptr) << "though somebody holds it";
    }
}

TEST_F(OleClipboard, IsLeftFilledWhenOleEnds)
{
    (new CCountedSource(10))->SetClipboard();
    AfxOleTerm();
    EXPECT_EQ(s_nSources, 0);
    EXPECT_FALSE(AfxOleIsInitialized());
    ASSERT_TRUE(AfxOleInit());
    ExpectBlocks(10);
}

TEST_F(OleClipboard, IsRefusedWithoutOle)
{
    std::thread(
        []
        {
            EXPECT_FALSE(AfxOleIsInitialized());
            CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            EXPECT_FALSE(AfxOleInit());
            CoUninitialize();
            try
            {
                (new CCountedSource(4))->SetClipboard();
                ADD_FAILURE() << "Nothing thrown";
            }
            catch (COleException* pException)
            {
                char szText[100];
                EXPECT_TRUE(pException->GetErrorMessage(szText, sizeof szText));
                EXPECT_STREQ(szText, "An operation of OLE failed with code 0x800401F0.");
                pException->Delete();
            }
            EXPECT_TRUE(AfxOleInit());
            AfxOleTerm();
        })
        .join();
    EXPECT_TRUE(AfxOleIsInitialized());
}

TEST_F(OleClipboard, AnswersWishesByTheDocumentedCodes)
{
    const std::pair<FORMATETC, HRESULT> aCases[] = {
        { { TestFormat(), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL | TYMED_ISTREAM }, S_OK },
        { { CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL }, DV_E_FORMATETC },
        { { TestFormat(), nullptr, DVASPECT_ICON, -1, TYMED_HGLOBAL }, DV_E_DVASPECT },
        { { TestFormat(), nullptr, DVASPECT_CONTENT, 0, TYMED_HGLOBAL }, DV_E_LINDEX },
        { { TestFormat(), nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM }, DV_E_TYMED },
    };
    FORMATETC format = aCases[0].first;
    CObjectPtr<IDataObject> object;
    {
        CCountedSource source(7);
        source.CacheGlobalData(TestFormat(), MakeBlock(8));  // instead of the first
        EXPECT_THROW(source.CacheGlobalData(TestFormat(), nullptr), CInvalidArgException*);
        object.reset(source.GetIDataObject(TRUE));
        for (auto [wish, nResult] : aCases)
        {
            STGMEDIUM medium{};
            EXPECT_EQ(object->QueryGetData(&wish), nResult);
            EXPECT_EQ(object->GetData(&wish, &medium), nResult);
            EXPECT_EQ(IsBlock(medium.hGlobal, 8), nResult == S_OK);
            ReleaseStgMedium(&medium);
        }

        for (const SIZE_T nRoom : { 7, 8, 100 })  // a block of the receiver's
        {
            const CGlobalPtr room(GlobalAlloc(GHND, nRoom));
            STGMEDIUM medium{ TYMED_HGLOBAL, {}, nullptr };
            medium.hGlobal = room.get();
            EXPECT_EQ(object->GetDataHere(&format, &medium), nRoom < 8 ? STG_E_MEDIUMFULL : S_OK);
            EXPECT_EQ(IsBlock(room.get(), 8), nRoom == 8);
        }
        STGMEDIUM medium{};
        DWORD nConnection = 1;
        EXPECT_EQ(object->SetData(&format, &medium, FALSE), DV_E_FORMATETC);
        EXPECT_EQ(object->DAdvise(&format, 0, nullptr, &nConnection), OLE_E_ADVISENOTSUPPORTED);
        EXPECT_EQ(nConnection, 0U);
        EXPECT_EQ(object->QueryGetData(nullptr), E_INVALIDARG);
    }
    STGMEDIUM medium{};
    IEnumFORMATETC* pFormats = nullptr;
    EXPECT_EQ(object->GetData(&format, &medium), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->EnumFormatEtc(DATADIR_GET, &pFormats), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.release()->Release(), 0U);
}

// What one call of Next gives: whether it is all that was asked for, and the formats.
std::string Fetch(const CObjectPtr<IEnumFORMATETC>& formats, ULONG nCount)
{
    FORMATETC aFormats[3] = {};
    ULONG nFetched = 0;
    std::string strFetched = formats->Next(nCount, aFormats, &nFetched) == S_OK ? "all" : "end";
    for (ULONG n = 0; n < nFetched; ++n)
    {
        EXPECT_EQ(aFormats[n].tymed, static_cast<DWORD>(TYMED_HGLOBAL));
        strFetched += aFormats[n].cfFormat == CF_TEXT           ? " text"
                      : aFormats[n].cfFormat == CF_PRIVATEFIRST ? " private"
                      : aFormats[n].cfFormat == TestFormat()    ? " own"
                                                                : " other";
    }
    return strFetched;
}

TEST_F(OleClipboard, EnumeratesFormats)
{
    CCountedSource source(3);
    source.CacheGlobalData(CF_TEXT, MakeBlock(3));
    IEnumFORMATETC* pFormats = nullptr;
    IDataObject* pObject = source.GetIDataObject(FALSE);
    EXPECT_EQ(pObject->EnumFormatEtc(DATADIR_SET, &pFormats), E_NOTIMPL);
    ASSERT_EQ(pObject->EnumFormatEtc(DATADIR_GET, &pFormats), S_OK);
    const CObjectPtr<IEnumFORMATETC> formats(pFormats);
    EXPECT_EQ(formats->Skip(1), S_OK);
    ASSERT_EQ(formats->Clone(&pFormats), S_OK);
    const CObjectPtr<IEnumFORMATETC> clone(pFormats);
    FORMATETC aFormats[2];
    EXPECT_EQ(Fetch(formats, 3), "end private text");
    EXPECT_EQ(formats->Next(1, aFormats, nullptr), S_FALSE);
    EXPECT_EQ(formats->Next(2, aFormats, nullptr), E_INVALIDARG);
    EXPECT_EQ(Fetch(clone, 1), "all private") << "goes on where the original stood";
    EXPECT_EQ(formats->Reset(), S_OK);
    EXPECT_EQ(Fetch(formats, 3), "all own private text");
    EXPECT_EQ(formats->Skip(1), S_FALSE);
}
}  // namespace
