#pragma once

#include "tests/outlook/Records.h"
#include "tests/outlook_standin/ClassFactory.h"
#include "tests/outlook_standin/Server.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ts::test
{

using Texts = std::vector<std::wstring>;

/// Calls of a test's expectation, one list after the other.
[[nodiscard]] Texts Join(std::initializer_list<Texts> parts);

/// What separates two lists of calls, readable; empty when they are equal.
[[nodiscard]] std::string Difference(const Texts& expected, const Texts& actual);

/// The option that other processes see while Outlook is started; nothing when it was never set.
[[nodiscard]] std::optional<bool> SynchronizeInProgress();

/// Begins each test with a stand-in Outlook in this process, which has an empty calendar, and ends it with no
/// object of it left.
class OutlookTest : public testing::Test
{
  protected:
    OutlookTest();
    ~OutlookTest() override;

    [[nodiscard]] standin::Server& Server() { return *m_server; }

    /// The calls since the last time, with the record's identifiers as GUID and ENTRY.
    [[nodiscard]] Texts TakeCalls(const CcvReminderData& record);
    /// The calls of one kind of access to one kind of object, such as "put RecurrencePattern".
    [[nodiscard]] static Texts Only(const Texts& calls, const std::wstring& prefix);

    /// The record with an appointment of its own.
    [[nodiscard]] CcvReminderData Mirror(CcvReminderData record);
    /// The record's appointment, wherever it is but among the deleted ones.
    [[nodiscard]] std::optional<standin::Item> ItemOf(const CcvReminderData& record);
    /// Changes the record's appointment behind the library's back.
    template <typename Change>
    void ChangeItemOf(const CcvReminderData& record, const Change& change)
    {
        Server().Write(
            [&](standin::Calendar& calendar)
            { change(*calendar.FindByGuid(record.GetOutlookObjectGuid().GetString()).value().item); });
    }
    [[nodiscard]] std::size_t CalendarSize();

    std::shared_ptr<standin::Server> m_server = std::make_shared<standin::Server>("");
    std::optional<standin::ClassRegistration> m_class;
};

/// The DATE of a local time.
[[nodiscard]] double DateOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

} // namespace ts::test
