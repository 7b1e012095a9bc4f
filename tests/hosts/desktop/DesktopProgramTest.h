#pragma once

#include "TsServiceUtilities.h"
#include "tests/hosts/desktop/HostProcess.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A test of the program itself: works on the real registry of the Wine prefix, as the program does, with an
/// empty store at first.
class DesktopProgramTest : public testing::Test
{
  protected:
    DesktopProgramTest();
    ~DesktopProgramTest() override;

    /// Writes a reminder of a topic of that name; its key.
    static CString Add(const std::wstring& name, CTime due = CTime(2950, 3, 4, 9, 0, 0));
    /// The subjects of the stored reminders, in the order of the store.
    [[nodiscard]] static std::vector<std::wstring> StoredSubjects();
};
