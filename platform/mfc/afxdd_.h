#pragma once

#include "platform/mfc/CWnd.h"

class CDateTimeCtrl;
class CTime;

/// The resource module's text for a number that is none.
inline constexpr UINT AFX_IDP_PARSE_INT = 0xF110;

/// The direction and the place of a data exchange between the controls of a window and its members.
class TS_API CDataExchange
{
  public:
    CDataExchange(CWnd* window, BOOL saveAndValidate) noexcept
        : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(window)
    {
    }

    /// The control, which becomes the one that a failure puts the focus on. A control that is not there
    /// raises CNotSupportedException.
    HWND PrepareCtrl(int id);
    /// The same for an edit control, whose text a failure selects.
    HWND PrepareEditCtrl(int id);
    /// Ends the exchange with the focus on the last control that was prepared. The caller has told the user
    /// why.
    [[noreturn]] void Fail();

    BOOL m_bSaveAndValidate; ///< TRUE: from the controls to the members
    CWnd* m_pDlgWnd;

  private:
    HWND m_lastControl = nullptr;
    bool m_lastIsEdit = false;
};

// Each exchanges the value of one control with one member. The exchange fails on a value that the member
// cannot take.

/// Attaches the object to the control, once.
TS_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
TS_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
/// Spaces around the number are allowed. Anything else, and a number beyond 32 bits, is refused with the
/// message AFX_IDP_PARSE_INT.
TS_API void DDX_Text(CDataExchange* exchange, int id, int& value);
/// BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
TS_API void DDX_Check(CDataExchange* exchange, int id, int& value);
/// The index of the checked button of the group that begins with the control; -1 for none.
TS_API void DDX_Radio(CDataExchange* exchange, int id, int& value);
/// The index of the selected entry; -1 for none.
TS_API void DDX_CBIndex(CDataExchange* exchange, int id, int& value);
/// The local date or time of a date picker. The exchange fails when the picker shows none.
TS_API void DDX_DateTimeCtrl(CDataExchange* exchange, int id, CTime& value);
