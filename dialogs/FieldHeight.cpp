#include "dialogs/FieldHeight.h"

#include "platform/mfc/CDialog.h"
#include "platform/mfc/atltypes.h"

#include <commctrl.h>
#include <string_view>

namespace
{

bool IsComboBox(HWND window)
{
    constexpr int kLongest = 256;
    wchar_t name[kLongest] = L"";
    GetClassNameW(window, name, kLongest);
    return name == std::wstring_view(WC_COMBOBOXW);
}

void SetHeight(HWND combo, int height)
{
    // The height of the field itself, not of a row of its list, goes by this number.
    constexpr auto kField = static_cast<WPARAM>(-1);
    LRESULT text = SendMessageW(combo, CB_GETITEMHEIGHT, kField, 0);
    // The second step corrects the first: some systems do not ask back for the height that they tell.
    for (int step = 0; step < 2; ++step)
    {
        CRect place;
        GetWindowRect(combo, &place);
        text += height - place.Height();
        SendMessageW(combo, CB_SETITEMHEIGHT, kField, text);
    }
}

} // namespace

void ts::FitComboBoxes(const CDialog& dialog)
{
    constexpr int kDialogUnits = 14;
    CRect field(0, 0, 0, kDialogUnits);
    dialog.MapDialogRect(field);
    for (HWND child = GetWindow(dialog.m_hWnd, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
    {
        if (IsComboBox(child))
        {
            SetHeight(child, field.Height());
        }
    }
}
