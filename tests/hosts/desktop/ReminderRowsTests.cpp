#include "hosts/desktop/ReminderRows.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::desktop;

class RowsTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        ts::SetInterfaceLanguage(L"en");
    }
    void TearDown() override { ts::SetInterfaceLanguage(nullptr); }

    static CcvReminderData Make(const wchar_t* subject, const wchar_t* map, CTime due)
    {
        CcvReminderData reminder{CString()};
        reminder.SetDocumentPath(L"C:\\Maps\\Plan.map");
        reminder.SetDocumentTitle(map);
        reminder.SetMapGuid(L"{map}");
        reminder.SetObjectGuid(subject);
        reminder.SetObjectTitle(L"Topic");
        reminder.SetSubject(subject);
        reminder.SetInitialDueDate(due);
        reminder.SetNextDueDate(due);
        return reminder;
    }
    static CString Add(const wchar_t* subject, const wchar_t* map, CTime due)
    {
        CcvReminderData reminder = Make(subject, map, due);
        EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
        return reminder.GetReminderKey();
    }
    /// A recurring reminder whose pattern asks for a day that there is not.
    static void AddDamaged(const wchar_t* subject, const wchar_t* map)
    {
        CcvReminderData reminder = Make(subject, map, CTime(2025, 1, 1, 0, 0, 0));
        reminder.SetRecurrenceType(EcvReminderRecurrenceType::Monthly);
        reminder.SetMonthlyOccurenceType(EcvReminderMonthlyOccurence::OrdinalDayType);
        reminder.SetMonthlyReminderDayIntegralType(static_cast<EcvReminderDayIntegralType>(9));
        reminder.SetMonthlyReminderDayType(static_cast<long>(EcvReminderDayType::Day));
        reminder.SetMonthlyReminderPattern2Month(1);
        EXPECT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
    }
    static std::wstring Subjects(const std::vector<ReminderRow>& rows)
    {
        std::wstring text;
        for (const ReminderRow& row : rows)
        {
            text += row.subject + L" ";
        }
        return text;
    }

    const CTime m_now{2026, 11, 21, 12, 0, 0};
};

TEST_F(RowsTest, EachColumn_ShowsItsPartOfTheReminder)
{
    Add(L"Call", L"Plan", m_now + CTimeSpan(600));
    const CcvReminderDataCollectionManager manager(false);
    const auto rows = MakeRows(manager, m_now);
    ASSERT_EQ(1u, rows.size());
    EXPECT_EQ(L"Call", CellText(rows[0], ReminderColumn::Subject));
    EXPECT_EQ(L"Topic", CellText(rows[0], ReminderColumn::Topic));
    EXPECT_EQ(L"Plan", CellText(rows[0], ReminderColumn::Map));
    EXPECT_NE(std::wstring::npos, CellText(rows[0], ReminderColumn::Due).find(L"2026"));
    EXPECT_NE(std::wstring::npos, CellText(rows[0], ReminderColumn::DueIn).find(L"10 minutes"));
    EXPECT_FALSE(rows[0].isActive);
}

TEST_F(RowsTest, MapWithoutTitle_GoesByTheNameOfItsFile)
{
    Add(L"Call", L"", m_now);
    const CcvReminderDataCollectionManager manager(false);
    EXPECT_EQ(L"Plan.map", MakeRows(manager, m_now).at(0).map);
}

TEST_F(RowsTest, ReminderTime_MakesARowActiveUnlessDismissed)
{
    struct Row
    {
        const char* title;
        int dueAfter;
        int lead;
        bool dismissed;
        bool active;
    };
    const Row rows[] = {{"past", -1, 0, false, true},
                        {"now", 0, 0, false, true},
                        {"to come", 1, 0, false, false},
                        {"to come within its lead time", 60, 60, false, true},
                        {"past and dismissed", -1, 0, true, false}};
    for (const Row& row : rows)
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, ts::kRemindersPath);
        CcvReminderData reminder = Make(L"Call", L"Plan", m_now + CTimeSpan(row.dueAfter));
        reminder.SetReminderTimeSpan(CTimeSpan(row.lead));
        reminder.SetDismissed(row.dismissed);
        ASSERT_TRUE(reminder.SaveDataToRegistry(ts::kRemindersPath));
        const CcvReminderDataCollectionManager manager(false);
        EXPECT_EQ(row.active, MakeRows(manager, m_now).at(0).isActive) << row.title;
    }
}

TEST_F(RowsTest, DamagedPattern_HasNoDueTimeAndKeepsNoOtherFromBeingShown)
{
    AddDamaged(L"damaged", L"A");
    Add(L"sound", L"B", m_now);
    const CcvReminderDataCollectionManager manager(false);
    auto rows = MakeRows(manager, m_now);
    SortRows(rows, ReminderColumn::Map, false);
    ASSERT_EQ(L"damaged sound ", Subjects(rows));
    EXPECT_EQ(std::nullopt, rows[0].due);
    EXPECT_EQ(L"No due time", rows[0].dueText);
    EXPECT_EQ(L"", rows[0].dueInText);
    EXPECT_FALSE(rows[0].isActive);
}

TEST_F(RowsTest, Order_FollowsTheColumnThenMapDueAndSubject)
{
    Add(L"b", L"Zoo", m_now + CTimeSpan(5));
    Add(L"a", L"zoo", m_now + CTimeSpan(5));
    Add(L"c", L"Alp", m_now + CTimeSpan(9));
    Add(L"d", L"Alp", m_now + CTimeSpan(7));
    AddDamaged(L"e", L"Alp");
    const CcvReminderDataCollectionManager manager(false);
    struct Row
    {
        ReminderColumn column;
        bool descending;
        const wchar_t* subjects;
    };
    const Row expected[] = {
        {ReminderColumn::Map, false, L"d c e a b "},     {ReminderColumn::Map, true, L"a b d c e "},
        {ReminderColumn::Subject, false, L"a b c d e "}, {ReminderColumn::Subject, true, L"e d c b a "},
        {ReminderColumn::Due, false, L"a b d c e "},     {ReminderColumn::DueIn, true, L"c d a b e "},
        {ReminderColumn::Topic, false, L"d c e a b "}};
    for (const Row& row : expected)
    {
        auto rows = MakeRows(manager, m_now);
        SortRows(rows, row.column, row.descending);
        EXPECT_EQ(row.subjects, Subjects(rows))
            << static_cast<int>(row.column) << (row.descending ? " descending" : "");
    }
}

TEST_F(RowsTest, Identity_FindsTheReminderInAReloadedCollection)
{
    Add(L"a", L"Plan", m_now);
    Add(L"b", L"Plan", m_now);
    CcvReminderDataCollectionManager manager(false);
    const ReminderIdentity second(*manager.GetReminderByIndex(1));
    const CString firstKey = manager.GetReminderByIndex(0)->GetReminderKey();
    ASSERT_TRUE(CcvReminderData(firstKey).DeleteDataFromRegistry(ts::kRemindersPath));
    manager.UpdateReminderCollection();
    const CcvReminderData* const found = FindReminder(manager, second);
    ASSERT_NE(nullptr, found);
    EXPECT_TRUE(found->GetSubject() == L"b");
    ASSERT_TRUE(CcvReminderData(second.key).DeleteDataFromRegistry(ts::kRemindersPath));
    manager.UpdateReminderCollection();
    EXPECT_EQ(nullptr, FindReminder(manager, second));
}

TEST_F(RowsTest, KeyThatNowHoldsAnotherTopic_IsNotThatReminder)
{
    const CString key = Add(L"a", L"Plan", m_now);
    CcvReminderDataCollectionManager manager(false);
    const ReminderIdentity identity(*manager.GetReminderByIndex(0));
    CcvReminderData other(key);
    ASSERT_TRUE(other.LoadDataFromRegistry(ts::kRemindersPath));
    other.SetObjectGuid(L"{another topic}");
    ASSERT_TRUE(other.SaveDataToRegistry(ts::kRemindersPath));
    manager.UpdateReminderCollection();
    EXPECT_EQ(nullptr, FindReminder(manager, identity));
}

} // namespace
