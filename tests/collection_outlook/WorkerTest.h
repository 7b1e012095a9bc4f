#pragma once

#include "collection/CcvReminderDataCollectionManager.h"
#include "tests/outlook/Records.h"
#include "tests/support/RawRegistry.h"
#include "tests/support/TextOutput.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace ts::test
{

/// Whether `holds` says so within half a minute, asked again and again. Sent messages are let through.
[[nodiscard]] bool BecomesTrue(const std::function<bool()>& holds);

/// Begins each test with an empty store, in which synchronisation is on, and a manager with its worker.
class WorkerTest : public testing::Test
{
  protected:
    WorkerTest();
    ~WorkerTest() override;

    /// Lets the worker finish what is queued.
    void Finish();
    /// Adds the reminder and lets the worker finish; the stored record of it, with its identifiers.
    [[nodiscard]] CcvReminderData* AddAndFinish(CcvReminderData& record);
    /// Loads the collection; its only record.
    [[nodiscard]] CcvReminderData* Only();
    [[nodiscard]] static std::size_t StoredReminders();
    /// The value of the only reminder's key, as it is stored.
    [[nodiscard]] static std::optional<RawValue> Stored(const std::wstring& name);

    std::unique_ptr<CcvReminderDataCollectionManager> m_manager;
};

} // namespace ts::test
