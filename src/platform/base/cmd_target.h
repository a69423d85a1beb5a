// Objects that handle messages, the macros for their tables of handlers, and the way of a command
// through them.
//
//   BEGIN_MESSAGE_MAP(CPage, CCmdTarget)
//       ON_COMMAND(ID_FILE_OPEN, OnFileOpen)
//       ON_UPDATE_COMMAND_UI(ID_FILE_OPEN, OnUpdateFileOpen)
//   END_MESSAGE_MAP()
//
// A row is found by message, code and identifier, first in the class itself and then in its bases.
#pragma once

#include <bit>

#include "platform/base/object.h"

class CCmdTarget;
class CCmdUI;
struct tagNMHDR;

using AFX_PMSG = void (CCmdTarget::*)();

// One row: which message (and for commands which code and range of identifiers) goes to pfn. The
// last row of a table has nSig 0.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig;  // form of the handler's arguments
    AFX_PMSG pfn;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null in CCmdTarget
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Forms of the handlers of commands and notifications. Those that give a BOOL say with FALSE that
// the message goes on to the next target.
enum : UINT_PTR
{
    AfxSig_end,
    AfxSigCmd,         // void ()
    AfxSigCmdBool,     // BOOL ()
    AfxSigCmdId,       // void (UINT nID)
    AfxSigCmdIdBool,   // BOOL (UINT nID)
    AfxSigCmdUI,       // void (CCmdUI*)
    AfxSigNotify,      // void (NMHDR*, LRESULT*)
    AfxSigNotifyBool,  // BOOL (NMHDR*, LRESULT*)
    AfxSigNotifyId,    // void (UINT nID, NMHDR*, LRESULT*)
    AfxSigWindow,      // the first form of a handler of a window's messages
};

template <UINT_PTR nSig>
struct AfxHandlerForm;

// clang-format off
template <> struct AfxHandlerForm<AfxSigCmd> { using type = void (CCmdTarget::*)(); };
template <> struct AfxHandlerForm<AfxSigCmdBool> { using type = BOOL (CCmdTarget::*)(); };
template <> struct AfxHandlerForm<AfxSigCmdId> { using type = void (CCmdTarget::*)(UINT); };
template <> struct AfxHandlerForm<AfxSigCmdIdBool> { using type = BOOL (CCmdTarget::*)(UINT); };
template <> struct AfxHandlerForm<AfxSigCmdUI> { using type = void (CCmdTarget::*)(CCmdUI*); };
template <> struct AfxHandlerForm<AfxSigNotify> { using type = void (CCmdTarget::*)(tagNMHDR*, LRESULT*); };
template <> struct AfxHandlerForm<AfxSigNotifyBool> { using type = BOOL (CCmdTarget::*)(tagNMHDR*, LRESULT*); };
template <> struct AfxHandlerForm<AfxSigNotifyId> { using type = void (CCmdTarget::*)(UINT, tagNMHDR*, LRESULT*); };
// clang-format on

// A handler in a row, and out of it again for the call.
template <class Form>
AFX_PMSG AfxStoreHandler(Form pfn)
{
    return std::bit_cast<AFX_PMSG>(pfn);
}
template <UINT_PTR nSig>
auto AfxHandler(AFX_PMSG pfn)
{
    return std::bit_cast<typename AfxHandlerForm<nSig>::type>(pfn);
}

// The first row for the message in a map and then in those of its bases; null if there is none. A
// window's message has code and identifier 0.
const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT nMessage, UINT nCode,
                                            UINT nID);

// Codes of OnCmdMsg beside those of notifications.
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;
// What rows of commands have as their message.
constexpr UINT AFX_COMMAND_MESSAGE = 0x111;
// Added to the message of a control that its own table may answer before its parent's.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

// Who would handle a command.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
    AFX_PMSG pmf;
};

// What OnCmdMsg carries beside a notification.
struct AFX_NOTIFY
{
    LRESULT* pResult;
    tagNMHDR* pNMHDR;
};

class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Hands a command to its handler; FALSE if there is none. nCode is CN_COMMAND, the code of a
    // control's notification, CN_UPDATE_COMMAND_UI (pExtra is a CCmdUI*), or has a message other
    // than WM_COMMAND in its high word (WM_NOTIFY: pExtra is an AFX_NOTIFY*). With pHandlerInfo
    // nothing is called: it is filled. Overrides route to further targets.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

private:
    BOOL CallHandler(const AFX_MSGMAP_ENTRY& entry, UINT nID, void* pExtra);
};

// What shows a command to the user: asked before it is shown. The class itself shows nothing, and
// only keeps what the handler said.
class CCmdUI
{
public:
    CCmdUI() = default;
    virtual ~CCmdUI() = default;
    CCmdUI(const CCmdUI&) = delete;
    CCmdUI& operator=(const CCmdUI&) = delete;

    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1);  // 0 off, 1 on, 2 undecided
    virtual void SetRadio(BOOL bOn = TRUE);
    virtual void SetText(const char* pszText);
    // For a handler that leaves the answer to the next target.
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    // Asks the handler of m_nID. Where none has said whether it is enabled and
    // bDisableIfNoHandler is set, it is when the command itself has a handler.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    UINT m_nID = 0;
    UINT m_nIndex = 0;                // of the item in its menu
    UINT m_nIndexMax = 0;             // number of items
    BOOL m_bEnableChanged = FALSE;    // Enable was called
    BOOL m_bContinueRouting = FALSE;  // ContinueRouting was called
};

#define DECLARE_MESSAGE_MAP()                                      \
protected:                                                         \
    [[maybe_unused]] static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)        \
    const AFX_MSGMAP* theClass::GetMessageMap() const \
    {                                                 \
        return GetThisMessageMap();                   \
    }                                                 \
    const AFX_MSGMAP* theClass::GetThisMessageMap()   \
    {                                                 \
        using ThisClass [[maybe_unused]] = theClass;  \
        using TheBaseClass = baseClass;               \
        static const AFX_MSGMAP_ENTRY s_aEntries[] = {
#define END_MESSAGE_MAP()                                                             \
    {                                                                                 \
        0, 0, 0, 0, AfxSig_end, nullptr                                               \
    }                                                                                 \
    }                                                                                 \
    ;                                                                                 \
    static const AFX_MSGMAP s_map = { &TheBaseClass::GetThisMessageMap, s_aEntries }; \
    return &s_map;                                                                    \
    }

// A row whose handler has the form nSig.
#define AFX_MESSAGE_ROW(nMessage, nCode, nID, nLastID, nSig, pfn) \
    { nMessage,                                                   \
      nCode,                                                      \
      static_cast<UINT>(nID),                                     \
      static_cast<UINT>(nLastID),                                 \
      nSig,                                                       \
      AfxStoreHandler<AfxHandlerForm<nSig>::type>(                \
          static_cast<AfxHandlerForm<nSig>::type>(&ThisClass::pfn)) },

#define ON_COMMAND(nID, pfn) \
    AFX_MESSAGE_ROW(AFX_COMMAND_MESSAGE, CN_COMMAND, nID, nID, AfxSigCmd, pfn)
#define ON_COMMAND_EX(nID, pfn) \
    AFX_MESSAGE_ROW(AFX_COMMAND_MESSAGE, CN_COMMAND, nID, nID, AfxSigCmdIdBool, pfn)
#define ON_COMMAND_RANGE(nID, nLastID, pfn) \
    AFX_MESSAGE_ROW(AFX_COMMAND_MESSAGE, CN_COMMAND, nID, nLastID, AfxSigCmdId, pfn)
#define ON_UPDATE_COMMAND_UI(nID, pfn) ON_UPDATE_COMMAND_UI_RANGE(nID, nID, pfn)
#define ON_UPDATE_COMMAND_UI_RANGE(nID, nLastID, pfn)                                           \
    AFX_MESSAGE_ROW(AFX_COMMAND_MESSAGE, static_cast<UINT>(CN_UPDATE_COMMAND_UI), nID, nLastID, \
                    AfxSigCmdUI, pfn)
