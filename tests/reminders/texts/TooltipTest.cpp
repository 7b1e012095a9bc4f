#include "module/InterfaceLanguage.h"
#include "platform/ts/CcvDateUtilities.h"
#include "platform/ts/CcvStringUtilities.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/texts/LiteralTexts.h"
#include "tests/support/FixedClock.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RandomSource.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using namespace ts::test;

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kNow = 1'800'000'000;

CcvReminderData Reminder(std::int64_t due, std::int64_t lead, const wchar_t* subject)
{
    CcvReminderData record{CString(L"{text-0}")};
    record.SetNextDueDate(due);
    record.SetReminderTimeSpan(lead);
    record.SetSubject(subject);
    return record;
}

CString Tooltip(CcvReminderData record)
{
    return CcvReminderDataUtilities::GetReminderTooltip(&record, CTime(kNow));
}

CString Expected(const wchar_t* subject, const CString& status, std::int64_t due)
{
    return L"<b>" + CString(subject) + L"</b><br>" + status + CcvDateUtilities::ShortDateString(CTime(due)) +
           L" " + CcvDateUtilities::ShortTimeString(CTime(due));
}

class TooltipTest : public testing::TestWithParam<const wchar_t*>
{
  protected:
    TooltipTest() { ts::SetInterfaceLanguage(GetParam()); }
    ~TooltipTest() override { ts::SetInterfaceLanguage(nullptr); }
};

INSTANTIATE_TEST_SUITE_P(Languages, TooltipTest, testing::Values(L"en", L"de", L"fr"),
                         [](const auto& language)
                         { return std::string(language.param, language.param + 2); });

} // namespace

TEST_P(TooltipTest, AnyDistance_EqualsTheLiteralRule)
{
    constexpr std::int64_t kReaches[] = {120, 2 * kHour, 3 * kDay, 36525 * kDay};
    RandomSource random;
    for (int round = 0; round < Rounds(4000); ++round)
    {
        const std::int64_t reach = random.OneOf(kReaches);
        const std::int64_t distance = random.Between(-reach, reach);
        const std::int64_t lead = random.Chance(30) ? random.Between<std::int64_t>(0, reach) : 0;
        const std::int64_t due = kNow + distance;
        ASSERT_EQ(Expected(L"Call", literal::TooltipStatus(GetParam(), distance, distance - lead), due),
                  Tooltip(Reminder(due, lead, L"Call")))
            << random << ' ' << distance << ' ' << lead;
    }
}

TEST_P(TooltipTest, EveryMinuteOfTwoDays_EqualsTheLiteralRule)
{
    for (std::int64_t distance = -2 * kDay; distance <= 2 * kDay;
         distance += 60 * (UsesGuardPageHeap() ? 41 : 1))
    {
        for (const std::int64_t offset : {-1, 0, 1})
        {
            const std::int64_t due = kNow + distance + offset;
            ASSERT_EQ(Expected(L"Call",
                               literal::TooltipStatus(GetParam(), distance + offset, distance + offset), due),
                      Tooltip(Reminder(due, 0, L"Call")))
                << distance + offset;
        }
    }
}

TEST_P(TooltipTest, BetweenReminderTimeAndDueTime_IsDueNowEndsIncluded)
{
    for (const std::int64_t distance : {std::int64_t{0}, kHour / 2, kHour})
    {
        EXPECT_EQ(Expected(L"Call", literal::TextOf(GetParam(), 174), kNow + distance),
                  Tooltip(Reminder(kNow + distance, kHour, L"Call")))
            << distance;
    }
}

TEST(TooltipMarkupTest, Snoozed_CountsToTheSnoozeTime)
{
    ts::SetInterfaceLanguage(L"en");
    const FixedClock clock{CTime(kNow)};
    CcvReminderData record = Reminder(kNow + kHour, kHour, L"Call");
    record.SetSnoozeTime(600);
    EXPECT_EQ(Expected(L"Call", literal::Formatted(L"en", 175, 1), kNow + kHour), Tooltip(record));
    ts::SetInterfaceLanguage(nullptr);
}

TEST(TooltipMarkupTest, SubjectOfMarkup_IsShownAsItStands)
{
    ts::SetInterfaceLanguage(L"en");
    EXPECT_EQ(Expected(L"&lt;/b&gt;&lt;a href=&quot;x&quot;&gt; R&amp;D", literal::TextOf(L"en", 174), kNow),
              Tooltip(Reminder(kNow, 0, L"</b><a href=\"x\"> R&D")));
    ts::SetInterfaceLanguage(nullptr);
}

TEST(TooltipMarkupTest, AnyText_ContainsNoMarkupAfterFixing)
{
    RandomSource random;
    constexpr wchar_t kLikely[] = {L'<',  L'>',    L'&', L'"',   L';',   L'\0',
                                   L'\t', L'\x1B', 0x7F, 0xD83D, 0xDE00, 0xFFFE};
    for (int round = 0; round < Rounds(3000); ++round)
    {
        std::wstring text;
        for (int length = random.Between(0, 20); length > 0; --length)
        {
            text +=
                random.Chance(60) ? random.OneOf(kLikely) : static_cast<wchar_t>(random.Between(1, 0xFFFF));
        }
        CString safe(text.c_str(), static_cast<int>(text.size()));
        CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(safe);
        const std::wstring found(safe.GetString(), static_cast<std::size_t>(safe.GetLength()));
        ASSERT_EQ(std::wstring::npos, found.find_first_of(L"<>\"\x1B\x7F\xFFFE"))
            << random << safe.GetString();
        ASSERT_EQ(std::wstring::npos, found.find(L'\0')) << random;
        for (std::size_t index = 0; index < found.size(); ++index)
        {
            const bool high = found[index] >= 0xD800 && found[index] <= 0xDBFF;
            const bool low = found[index] >= 0xDC00 && found[index] <= 0xDFFF;
            const bool afterHigh = index > 0 && found[index - 1] >= 0xD800 && found[index - 1] <= 0xDBFF;
            ASSERT_EQ(low, afterHigh) << random << " at " << index;
            ASSERT_TRUE(!high || index + 1 < found.size()) << random;
            if (found[index] == L'&')
            {
                const std::size_t end = found.find(L';', index);
                ASSERT_NE(std::wstring::npos, end) << random;
                const std::wstring reference = found.substr(index, end - index + 1);
                ASSERT_TRUE(reference == L"&amp;" || reference == L"&lt;" || reference == L"&gt;" ||
                            reference == L"&quot;")
                    << random;
            }
        }
    }
}

TEST(TooltipMarkupTest, PlainText_StaysAsItIs)
{
    for (const wchar_t* text :
         {L"", L"Besprechung \x00E4\x00F6\x00FC", L"\x65E5\x672C", L"\xD83D\xDE00 a\tb", L"it's 100 %d"})
    {
        CString fixed(text);
        CcvStringUtilities::FixInvalidUnformattedTooltipCharacters(fixed);
        EXPECT_EQ(CString(text), fixed);
    }
}
