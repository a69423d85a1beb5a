// The objects behind HGDIOBJ: fonts, pens, brushes, bitmaps, palettes.
// A handle is the address of the object; stock objects and system brushes live for ever.
#pragma once

#include "platform/gdi/gdi.h"

#include <utility>

class CHandleObject
{
public:
    static constexpr int NOT_STOCK = -1;

    explicit CHandleObject(UINT nType) : m_nType(nType) {}
    virtual ~CHandleObject() = default;
    CHandleObject(const CHandleObject&) = delete;
    CHandleObject& operator=(const CHandleObject&) = delete;

    // OBJ_FONT, OBJ_PEN ...; 0 when the object was deleted and waits for its next use.
    UINT Type() const { return m_nType; }
    // Index for GetStockObject, or NOT_STOCK; metafile records hold it too.
    int StockIndex() const { return m_nStock; }
    // Stock objects and system brushes: DeleteObject leaves them alone.
    bool IsPermanent() const { return m_bPermanent; }
    HGDIOBJ Handle() { return this; }

    // GetObject: the bytes written, or what they would be for a null buffer; 0 if cb is too small.
    virtual int Describe(int cb, void* pBuffer) const = 0;

    // Device contexts count their selection of it; the last one that lets go of an object that
    // was deleted meanwhile ends it.
    void AddSelection() { ++m_nSelected; }
    void RemoveSelection()
    {
        if (--m_nSelected == 0 && m_bDeletePending)
            Recycle();
    }
    int SelectionCount() const { return m_nSelected; }

    // Ends the object: at once, or when it is no longer selected. Permanent ones stay.
    void Delete();
    void MakePermanent(int nStock)
    {
        m_nStock = nStock;
        m_bPermanent = true;
    }

protected:
    // Ends the object: frees it, or keeps the memory for the next one of its kind.
    virtual void Recycle() { delete this; }

    UINT m_nType;
    int m_nStock = NOT_STOCK;
    int m_nSelected = 0;  // a saved state counts, too
    bool m_bPermanent = false;
    bool m_bDeletePending = false;
};

// Fonts, pens and brushes come and go by thousands: the memory of a deleted one serves again. A
// handle that was deleted stays readable that way, and is known by its type 0.
template <class T>
class CRecycled : public CHandleObject
{
public:
    using CHandleObject::CHandleObject;

protected:
    // A deleted object, or a new one; of the type given.
    static T* Take(UINT nType)
    {
        T* pObject = s_pFree ? std::exchange(s_pFree, s_pFree->m_pNextFree) : new T;
        pObject->m_nType = nType;
        pObject->m_bDeletePending = false;
        return pObject;
    }
    void Recycle() override
    {
        m_nType = 0;
        m_pNextFree = s_pFree;
        s_pFree = static_cast<T*>(this);
    }

private:
    static inline T* s_pFree = nullptr;
    T* m_pNextFree = nullptr;
};

class CFontObject final : public CRecycled<CFontObject>
{
public:
    CFontObject() : CRecycled(OBJ_FONT) {}
    // The bytes behind the face's end are cleared, and a face that fills the field is cut to 31.
    static CFontObject* Create(const LOGFONTA& font);

    // As given by the caller: logical units.
    const LOGFONTA& LogFont() const { return m_font; }
    // What FindFontFace says of it; asked on the first use.
    int FaceId() const { return m_nFaceId >= 0 ? m_nFaceId : ResolveFace(); }

    int Describe(int cb, void* pBuffer) const override;

private:
    int ResolveFace() const;

    LOGFONTA m_font{};
    mutable int m_nFaceId = -1;
};

class CPenObject final : public CRecycled<CPenObject>
{
public:
    CPenObject() : CRecycled(OBJ_PEN) {}
    static CPenObject* Create(const LOGPEN& pen);
    const LOGPEN& LogPen() const { return m_pen; }
    int Describe(int cb, void* pBuffer) const override;

private:
    LOGPEN m_pen{};
};

class CBrushObject final : public CRecycled<CBrushObject>
{
public:
    CBrushObject() : CRecycled(OBJ_BRUSH) {}
    static CBrushObject* Create(const LOGBRUSH& brush);
    const LOGBRUSH& LogBrush() const { return m_brush; }
    int Describe(int cb, void* pBuffer) const override;

private:
    LOGBRUSH m_brush{};
};

// A palette has no effect: all devices show true colours. There is the stock one only.
class CPaletteObject final : public CHandleObject
{
public:
    CPaletteObject() : CHandleObject(OBJ_PAL) {}
    int Describe(int cb, void* pBuffer) const override;
};

// The object of a handle, or null for a null handle, for one that was deleted (as far as that can
// be told), and for one of another kind.
CHandleObject* ObjectFromHandle(HGDIOBJ hObject);
template <class T>
T* ObjectFromHandle(HGDIOBJ hObject, UINT nType)
{
    CHandleObject* pObject = ObjectFromHandle(hObject);
    return pObject && pObject->Type() == nType ? static_cast<T*>(pObject) : nullptr;
}
inline CBrushObject* BrushFromHandle(HGDIOBJ h)
{
    return ObjectFromHandle<CBrushObject>(h, OBJ_BRUSH);
}

// The stock object, or null for an index that has none.
CHandleObject* StockObject(int nIndex);

// Copies cbData bytes of an object's description, as GetObject does.
int DescribeBytes(const void* pData, int cbData, int cb, void* pBuffer);

// Hears of every DeleteObject call, before it takes effect, permanent objects included. A recorder
// is one: it frees the number that it gave to the object. Known from construction to destruction.
class CObjectListener
{
public:
    CObjectListener();
    virtual ~CObjectListener();
    CObjectListener(const CObjectListener&) = delete;
    CObjectListener& operator=(const CObjectListener&) = delete;

    virtual void ObjectDeleted(const CHandleObject& object) = 0;

    static void TellDeleted(const CHandleObject& object)
    {
        for (CObjectListener* p = s_pFirst; p;)
        {
            CObjectListener* pNext = p->m_pNext;
            p->ObjectDeleted(object);
            p = pNext;
        }
    }

private:
    static CObjectListener* s_pFirst;
    CObjectListener* m_pNext;
    CObjectListener* m_pPrevious = nullptr;
};
