#pragma once

#include "module/RegistryPaths.h"
#include "tests/collection/ManagerInside.h"
#include "tests/support/RawRegistry.h"

#include <gtest/gtest.h>
#include <optional>

namespace ts::test
{

/// What a user chose, as the settings hold it.
inline void SetOutlookOption(bool mirrors)
{
    RawKey(kSettingsPath).Write(L"SynchronizeOutlookAppoints", RawDword(mirrors ? 1 : 0));
}

/// What a change handed to the worker: a command of that kind for that key, and nothing more. Nothing at all
/// where there is no kind.
inline void ExpectCommand(HeldWorker& held, std::optional<OutlookCommandKind> kind, const CString& key)
{
    const auto command = held.Take();
    ASSERT_EQ(kind.has_value(), command != nullptr);
    if (kind)
    {
        EXPECT_EQ(static_cast<int>(*kind), static_cast<int>(command->kind));
        EXPECT_EQ(key, command->record->GetReminderKey());
        EXPECT_EQ(nullptr, held.Take());
    }
}

} // namespace ts::test
