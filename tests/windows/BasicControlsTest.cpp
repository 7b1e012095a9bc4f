// What the controls and the message box ask of the system.

#include "platform/ControlsTheme.h"
#include "platform/mfc/afxwin.h"
#include "tests/platform/ImportPatch.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

extern "C"
{
    extern decltype(&MessageBoxW) __imp_MessageBoxW;
}

namespace
{

/// Writes down the messages that it gets.
class NotedEdit : public CEdit
{
  public:
    std::vector<UINT> m_messages;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_messages.push_back(message);
        return CEdit::WindowProc(message, wParam, lParam);
    }
};

class Frame : public CWnd
{
  public:
    Frame()
    {
        CreateEx(0, L"#32770", L"the frame", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0);
    }
};

struct Box
{
    HWND owner = nullptr;
    std::wstring text;
    std::wstring title;
    UINT type = 0;
};

Box g_box;

int WINAPI NoteBox(HWND owner, LPCWSTR text, LPCWSTR title, UINT type)
{
    g_box = {owner, text, title, type};
    return IDYES;
}

} // namespace

TEST(BasicEditTest, SetSel_WithAndWithoutScrolling_AsksForTheCaretOnlyThen)
{
    Frame frame;
    NotedEdit edit;
    ASSERT_NE(FALSE, edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &frame, 1));
    for (const bool noScroll : {true, false})
    {
        edit.m_messages.clear();
        edit.SetSel(0, 1, noScroll ? TRUE : FALSE);
        EXPECT_EQ(noScroll ? 0 : 1, std::ranges::count(edit.m_messages, UINT{EM_SCROLLCARET}));
        EXPECT_EQ(1, std::ranges::count(edit.m_messages, UINT{EM_SETSEL}));
    }
}

TEST(MessageBoxTest, OverAWindow_IsOfItsTaskAndHasItsTitle)
{
    const ts::test::ImportPatch<decltype(&MessageBoxW)> patch(&__imp_MessageBoxW, NoteBox);
    Frame frame;
    SetActiveWindow(frame.m_hWnd);
    EXPECT_EQ(IDYES, AfxMessageBox(L"the text", MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(frame.m_hWnd, g_box.owner);
    EXPECT_EQ(L"the text", g_box.text);
    EXPECT_EQ(L"the frame", g_box.title);
    EXPECT_EQ(UINT{MB_YESNO | MB_ICONQUESTION | MB_TASKMODAL}, g_box.type);
}

TEST(ControlsThemeTest, EndOfTheScope_LeavesTheFormerContext)
{
    HANDLE before = nullptr;
    ASSERT_NE(FALSE, GetCurrentActCtx(&before));
    {
        const ts::ControlsThemeScope scope;
        HANDLE inside = nullptr;
        ASSERT_NE(FALSE, GetCurrentActCtx(&inside));
        EXPECT_NE(before, inside);
        ReleaseActCtx(inside);
    }
    HANDLE after = nullptr;
    ASSERT_NE(FALSE, GetCurrentActCtx(&after));
    EXPECT_EQ(before, after);
    ReleaseActCtx(after);
    ReleaseActCtx(before);
}

TEST(DeviceContextTest, FillSolidRect_OfAnyColour_KeepsTheBackgroundColour)
{
    Frame frame;
    const HDC handle = GetDC(frame.m_hWnd);
    CDC dc(handle);
    SetBkColor(handle, RGB(1, 2, 3));
    dc.FillSolidRect(CRect(0, 0, 10, 10), RGB(200, 100, 50));
    EXPECT_EQ(RGB(1, 2, 3), GetBkColor(handle));
    EXPECT_EQ(RGB(200, 100, 50), GetPixel(handle, 5, 5));
    ReleaseDC(frame.m_hWnd, handle);
}

TEST(GdiObjectTest, Attach_OfAnother_DeletesTheFormer)
{
    const HFONT first = CreateFontW(12, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    const HFONT second = CreateFontW(13, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    CFont font;
    EXPECT_NE(FALSE, font.Attach(first));
    EXPECT_NE(FALSE, font.Attach(first)) << "again the same";
    EXPECT_EQ(DWORD{OBJ_FONT}, GetObjectType(first));
    EXPECT_NE(FALSE, font.Attach(second));
    EXPECT_EQ(0U, GetObjectType(first));
    EXPECT_EQ(DWORD{OBJ_FONT}, GetObjectType(second));
}
