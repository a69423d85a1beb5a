// The target of a metafile's device context: keeps each call as a record and draws nothing.
#pragma once

#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/metafile/metafile_bits.h"
#include "platform/gdi/metafile_records.h"

#include <optional>
#include <string>
#include <vector>

// Numbers the objects of a recording. The lowest free number comes next; 0 stands for the metafile.
class CMetafileObjects
{
public:
    // The number of an object; 0 if it has none.
    DWORD Find(const CHandleObject& object) const
    {
        for (std::size_t i = 0; i < m_slots.size(); ++i)
        {
            if (m_slots[i] == &object)
                return static_cast<DWORD>(i + 1);
        }
        return 0;
    }
    // 0 when there are as many as a header can count.
    DWORD Add(const CHandleObject& object);
    void Remove(DWORD nNumber) { m_slots[nNumber - 1] = nullptr; }
    // Slots that a player needs, slot 0 included.
    WORD Count() const { return static_cast<WORD>(m_slots.size() + 1); }

private:
    std::vector<const CHandleObject*> m_slots;  // by number - 1; null is free
};

class CMetafileWriter final : public CDrawTarget, private CObjectListener
{
public:
    // pFrame in hundredths of a millimetre; null takes the bounds of what is drawn.
    CMetafileWriter(const CDeviceInfo& device, const RECT* pFrame, LPCSTR pszFile,
                    LPCSTR pszDescription);
    ~CMetafileWriter() override;

    // Ends the recording. The caller releases the bits; null if memory was short at any call.
    CMetafileBits* Finish();
    bool HasFailed() const { return m_bFailed; }
    const std::optional<std::string>& FileName() const { return m_strFile; }

    void ObjectSelected(CDeviceContext& dc, const CHandleObject& object) override;
    void TextColorSet(CDeviceContext&, COLORREF colour) override
    {
        WriteValue(EMR_SETTEXTCOLOR, colour);
    }
    void BkColorSet(CDeviceContext&, COLORREF colour) override
    {
        WriteValue(EMR_SETBKCOLOR, colour);
    }
    void BkModeSet(CDeviceContext&, int nMode) override
    {
        WriteValue(EMR_SETBKMODE, static_cast<DWORD>(nMode));
    }
    void TextAlignSet(CDeviceContext&, UINT nAlign) override
    {
        WriteValue(EMR_SETTEXTALIGN, nAlign);
    }
    void MapModeSet(CDeviceContext&, int nMode) override
    {
        WriteValue(EMR_SETMAPMODE, static_cast<DWORD>(nMode));
    }
    void WindowOrgSet(CDeviceContext&, POINT point) override
    {
        WritePair(EMR_SETWINDOWORGEX, point.x, point.y);
    }
    void WindowExtSet(CDeviceContext&, SIZE size) override
    {
        WritePair(EMR_SETWINDOWEXTEX, size.cx, size.cy);
    }
    void ViewportOrgSet(CDeviceContext&, POINT point) override
    {
        WritePair(EMR_SETVIEWPORTORGEX, point.x, point.y);
    }
    void ViewportExtSet(CDeviceContext&, SIZE size) override
    {
        WritePair(EMR_SETVIEWPORTEXTEX, size.cx, size.cy);
    }
    void MovedTo(CDeviceContext&, POINT point) override
    {
        WritePair(EMR_MOVETOEX, point.x, point.y);
    }
    void StateSaved(CDeviceContext&) override;
    void StateRestored(CDeviceContext& dc, int nSaved) override;
    void ClipRectIntersected(CDeviceContext&, const RECT& rect) override;
    bool PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight) override;
    bool ExtTextOut(CDeviceContext& dc, const CTextRun& run) override;
    bool LineTo(CDeviceContext& dc, POINT from, POINT to) override;
    bool Rectangle(CDeviceContext& dc, const RECT& rect) override;
    bool StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                    const RECT& from) override;
    bool Comment(CDeviceContext&, std::span<const BYTE> data) override;

private:
    void ObjectDeleted(const CHandleObject& object) override;

    void WriteHeader(const CDeviceInfo& device, LPCSTR pszDescription);
    bool WriteCreation(const CHandleObject& object, DWORD nNumber);
    // nBytes of a record, not initialised; null if memory is short.
    BYTE* WriteLong(std::size_t nBytes);
    template <class T>
    bool Write(const T& record)
    {
        BYTE* pPlace = WriteLong(sizeof(T));
        if (pPlace)
            std::memcpy(pPlace, &record, sizeof(T));
        return pPlace != nullptr;
    }
    void WriteValue(DWORD nType, DWORD nValue)
    {
        Write(EMRVALUE{ { nType, sizeof(EMRVALUE) }, nValue });
    }
    void WritePair(DWORD nType, LONG x, LONG y)
    {
        Write(EMRPAIR{ { nType, sizeof(EMRPAIR) }, x, y });
    }
    RECTL TextBounds(const CDeviceContext& dc, const CTextRun& run) const;
    void GrowBounds(const RECTL& bounds);

    CMetafileBitsPtr m_pBits;  // null if memory is short
    CMetafileObjects m_objects;
    RECTL m_bounds{ 0, 0, -1, -1 };  // pixels, right and bottom inside; empty before the first
    std::optional<RECT> m_frame;
    std::optional<std::string> m_strFile;
    DWORD m_nRecords = 0;
    int m_nSaved = 0;  // states on the stack
    bool m_bFailed = false;
};
