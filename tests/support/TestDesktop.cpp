#include "tests/support/TestDesktop.h"

#include "platform/WindowsHeaders.h"

#include <string>

void ts::test::TestDesktop::SetUp()
{
    const std::wstring name = L"Tests" + std::to_wstring(GetCurrentProcessId());
    // The desktop goes with the process.
    const HDESK desktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    ASSERT_NE(nullptr, desktop);
    ASSERT_NE(FALSE, SetThreadDesktop(desktop));
}
