#include "tests/outlook_standin/AutomationBase.h"
#include "tests/outlook_standin/Client.h"
#include "tests/outlook_standin/Standin.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::standin;
using namespace ts::standin::test;

constexpr wchar_t kGuid[] = L"{11111111-2222-3333-4444-555555555555}";

class StandinAppointment : public testing::Test
{
  protected:
    Dispatch NewAppointment()
    {
        return CallMethod(m_application, L"CreateItem", {Number(kAppointmentItem)}).AsObject();
    }
    std::wstring EntryIdOf(const Dispatch& item) { return TextOf(Get(item, L"EntryID").value); }

    InProcessOutlook m_outlook;
    Dispatch m_application = ActivateApplication();
};

TEST_F(StandinAppointment, New_BeforeSave_IsNotStored)
{
    const Dispatch item = NewAppointment();
    ASSERT_TRUE(Put(item, L"Subject", Text(L"Tea")).Succeeded());
    EXPECT_EQ(EntryIdOf(item), L"");
    EXPECT_EQ(m_outlook.CountItems(), 0U);
}

TEST_F(StandinAppointment, Save_New_StoresInCalendarUnderAnEntryId)
{
    const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
    const std::optional<Item> stored = m_outlook.FindItem(kGuid);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->subject, L"Tea");
    EXPECT_EQ(stored->entryId, EntryIdOf(item));
    EXPECT_EQ(stored->entryId.size(), 48U);
    EXPECT_EQ(m_outlook.FindFolderOf(kGuid), m_outlook.GetCalendarFolder());
}

TEST_F(StandinAppointment, Objects_Released_AreNoLongerCounted)
{
    {
        const Dispatch item = SaveAppointment(m_application, L"Tea", kGuid);
        EXPECT_EQ(m_outlook.LiveObjects(), 2);
    }
    m_application = nullptr;
    EXPECT_EQ(m_outlook.LiveObjects(), 0);
}

} // namespace
