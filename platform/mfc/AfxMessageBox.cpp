#include "platform/ControlsTheme.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/CWnd.h"

#include <bit>

int AfxMessageBox(const wchar_t* text, UINT type)
{
    const HWND owner = GetActiveWindow();
    CString title;
    if (owner != nullptr)
    {
        CWnd::FromHandle(owner)->GetWindowText(title);
    }
    const ts::ControlsThemeScope theme;
    return MessageBoxW(owner, text, title, type | MB_TASKMODAL);
}

int AfxMessageBox(UINT textId, UINT type)
{
    const wchar_t* text = nullptr;
    const int length = LoadStringW(AfxGetResourceHandle(), textId, std::bit_cast<LPWSTR>(&text), 0);
    return AfxMessageBox(CString(text, length), type);
}
