#include "ConsoleHarness.h"
#include "TimeText.h"

namespace
{

class StateCommands : public ConsoleTest
{
};

TEST_F(StateCommands, Snooze_CountsFromNow)
{
    const std::string key = Add("2020-03-04T09:00");
    const CTime before = CTime::GetCurrentTime();
    EXPECT_EQ(0u, Succeed({"snooze", key, "2h"}).find("Snoozed until "));
    const CTime after = CTime::GetCurrentTime();
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ(true, json["snoozed"]);
    EXPECT_EQ(json["snoozeTime"], json["reminderTime"]);
    const CTime until = ts::console::ParseTime(json["snoozeTime"].get<std::string>(), "");
    EXPECT_GE(until, before + CTimeSpan(7200));
    EXPECT_LE(until, after + CTimeSpan(7200));
    EXPECT_NE(std::string::npos, Succeed({"show", key}).find("Snoozed until"));
}

TEST_F(StateCommands, SnoozeOfNoSpan_IsRefused)
{
    const std::string key = Add("2020-03-04T09:00");
    for (const char* span : {"0m", "0w", "", "1", "h", "-1h", "1y", "52000w", "99999999999999999999d"})
    {
        ExpectFailure(2, "SPAN", {"snooze", key, span});
    }
    ExpectFailure(2, "SPAN", {"snooze", key});
}

TEST_F(StateCommands, DismissOnce_MarksItAndEndsTheSnooze)
{
    const std::string key = Add("2020-03-04T09:00");
    Succeed({"snooze", key, "2h"});
    EXPECT_EQ("Dismissed.", Succeed({"dismiss", key}));
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ(true, json["dismissed"]);
    EXPECT_EQ(false, json["snoozed"]);
    EXPECT_EQ("No longer dismissed.", Succeed({"undismiss", key}));
    EXPECT_EQ(false, SucceedJson({"show", key})["dismissed"]);
}

TEST_F(StateCommands, UndismissOfAReminderThatIsNot_ChangesNothing)
{
    const std::string key = Add("2950-03-04T09:00", {"--daily", "1"});
    const std::string before = Snapshot();
    EXPECT_EQ("The reminder is not dismissed.", Succeed({"undismiss", key}));
    EXPECT_EQ(before, Snapshot());
}

TEST_F(StateCommands, DismissRecurring_EndsTheOccurrenceThatIsShown)
{
    // Due daily since twelve days ago, half a day before now, so the occurrence in force is that of today's
    // half or of yesterday's, not the stored one.
    const CTime now = CTime::GetCurrentTime();
    const CTime start = now - CTimeSpan(12 * 86400 + 43200);
    const std::string key = Add(TimeArgument(start), {"--daily", "1"});
    WriteInt64(key, L"NextRecurrentDueDate", start.GetTime());
    const CTime shown = start + CTimeSpan(12 * 86400);
    ASSERT_EQ(TimeArgument(shown), SucceedJson({"show", key})["due"]);
    const CTime next = shown + CTimeSpan(86400);
    EXPECT_EQ("Dismissed. Next due " + ts::console::ShortTime(next) + ".", Succeed({"dismiss", key}));
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ(TimeArgument(next), json["nextDue"]);
    EXPECT_EQ(TimeArgument(next), json["due"]);
    EXPECT_EQ(TimeArgument(start), json["initialDue"]);
    EXPECT_EQ(false, json["dismissed"]);
}

TEST_F(StateCommands, DismissRecurringAhead_MovesOnByOneOccurrence)
{
    const std::string key = Add("2950-03-04T09:00", {"--monthly", "1", "--day", "31"});
    Succeed({"snooze", key, "1w"});
    Succeed({"dismiss", key});
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ("2950-04-30T09:00:00", json["due"].get<std::string>().substr(0, 19));
    EXPECT_EQ(false, json["snoozed"]);
}

TEST_F(StateCommands, DismissOfAPatternWithoutEnd_SaysThatNothingFollows)
{
    const std::string key = Add("2950-03-04T09:00", {"--weekly", "1", "--on", "mon"});
    WriteDword(key, L"RecurrenceOption2", 0);
    EXPECT_EQ("Dismissed. No occurrence follows.", Succeed({"dismiss", key}));
    EXPECT_TRUE(SucceedJson({"show", key})["due"].is_null());
}

TEST_F(StateCommands, DismissOfADamagedPattern_FailsAndWritesNothing)
{
    const std::string key = Add("2950-03-04T09:00", {"--monthly", "1", "--the", "last", "--of", "day"});
    WriteDword(key, L"RecurrenceOption4", 9);
    ExpectFailure(1, "cannot be found", {"dismiss", key});
}

TEST_F(StateCommands, Delete_RemovesTheKeyWithAllBelow)
{
    const std::string key = Add("2950-03-04T09:00");
    const std::string other = Add("2950-03-05T09:00");
    WriteText(key + "\\below", L"x", L"y");
    EXPECT_EQ("Deleted.", Succeed({"delete", key}));
    EXPECT_EQ(std::string::npos, Snapshot().find(key));
    EXPECT_NE(std::string::npos, Snapshot().find(other));
}

TEST_F(StateCommands, Move_ChangesEveryReminderOfThatMapAndPath)
{
    const std::string first = Add("2950-03-04T09:00");
    const std::string second = Add("2950-03-05T09:00");
    std::vector<std::string> otherMap = AddArguments("2950-03-04");
    otherMap[4] = kOtherMap;
    const std::string third = Succeed(otherMap);
    EXPECT_EQ("Moved 2 reminders.", Succeed({"move", "C:\\maps\\plan.map", "D:\\\xC3\xBC.map", kMap}));
    EXPECT_EQ("D:\\\xC3\xBC.map", SucceedJson({"show", first})["documentPath"]);
    EXPECT_EQ("D:\\\xC3\xBC.map", SucceedJson({"show", second})["documentPath"]);
    EXPECT_EQ("C:\\maps\\plan.map", SucceedJson({"show", third})["documentPath"]);
    EXPECT_EQ("Moved 1 reminder.", Succeed({"move", "C:\\maps\\plan.map", "C:\\maps\\plan.map",
                                            "77777777-0F43-4C0B-9A35-3F1B8E6A2D02"}));
}

TEST_F(StateCommands, MoveThatMatchesNothing_ChangesNothing)
{
    Add("2950-03-04T09:00");
    const std::string before = Snapshot();
    EXPECT_EQ("Moved 0 reminders.", Succeed({"move", "c:\\MAPS\\plan.map", "D:\\x.map", kMap}));
    EXPECT_EQ(before, Snapshot());
    ExpectFailure(2, "MAPGUID is no GUID", {"move", "a", "b", "c"});
    ExpectFailure(2, "NEWPATH", {"move", "C:\\maps\\plan.map", "", kMap});
    ExpectFailure(2, "MAPGUID", {"move", "a", "b"});
}

TEST_F(StateCommands, Find_PrintsTheKey)
{
    const std::string key = Add("2950-03-04T09:00");
    EXPECT_EQ(key, Succeed({"find", "C:\\maps\\plan.map", kMap, kTopic}));
    EXPECT_EQ(key, Succeed({"find", "C:\\maps\\plan.map", "6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01", kTopic}));
    ExpectFailure(1, "there is no reminder", {"find", "c:\\maps\\plan.map", kMap, kTopic});
    ExpectFailure(1, "there is no reminder", {"find", "C:\\maps\\plan.map", kMap, kMap});
    ExpectFailure(2, "MAPGUID is no GUID", {"find", "C:\\maps\\plan.map", "x", kTopic});
    ExpectFailure(2, "TOPICGUID is no GUID", {"find", "C:\\maps\\plan.map", kMap, "x"});
    ExpectFailure(2, "PATH", {"find"});
}

TEST_F(StateCommands, OpenAppointmentOfAReminderThatHasNone_Fails)
{
    const std::string key = Add("2950-03-04T09:00");
    ExpectFailure(1, "has no appointment in Outlook", {"open-appointment", key});
    ExpectFailure(1, "there is no reminder", {"open-appointment", "{x-0}"});
}

TEST_F(StateCommands, FindWithoutAStore_Fails)
{
    ExpectFailure(1, "there is no reminder", {"find", "C:\\maps\\plan.map", kMap, kTopic});
}

} // namespace
