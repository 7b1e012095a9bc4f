#pragma once

#include "reminders/CcvReminderData.h"
#include "tests/reminders/storage/RecordFields.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <string>

namespace ts::test
{

/// The path of the product's reminders, written out.
inline constexpr wchar_t kStore[] = L"Software\\Corvane\\Tessaly\\25\\Current";

/// Begins and ends each test without any reminders' key.
class StoreTest : public testing::Test
{
  protected:
    StoreTest();
    ~StoreTest() override;

    [[nodiscard]] static std::wstring PathOf(const std::wstring& key)
    {
        return std::wstring(kStore) + L"\\" + key;
    }
    /// The reminder's key, created when it is missing.
    [[nodiscard]] static RawKey Key(const std::wstring& key) { return RawKey(PathOf(key)); }
    /// A record of that key with everything that the store has for it.
    [[nodiscard]] static CcvReminderData Load(const std::wstring& key);
    /// All values of all reminders.
    [[nodiscard]] static std::map<std::wstring, RawValues> Snapshot();
};

} // namespace ts::test
