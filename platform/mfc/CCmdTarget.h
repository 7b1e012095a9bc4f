#pragma once

#include "platform/mfc/afx.h"
#include "platform/mfc/afxmsg_.h"

/// Something that has a message map.
class TS_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

  public:
    /// Calls the handler of a command or notification: `message` is WM_COMMAND or WM_NOTIFY, or one of the
    /// two with WM_REFLECT_BASE. False when the class and its bases have none.
    virtual BOOL OnCmdMsg(UINT message, UINT code, UINT id, AFX_CALL& call);

  protected:
    [[nodiscard]] static const AFX_MSGMAP* GetThisMessageMap();
    [[nodiscard]] virtual const AFX_MSGMAP* GetMessageMap() const;

    /// Calls the first handler of these in this class's map or the nearest base's; false when there is none.
    BOOL CallHandler(UINT message, UINT code, UINT id, AFX_CALL& call);
};
