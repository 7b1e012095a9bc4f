// Texts that are put together from several strings, read as a whole.

#include "resources/StringIds.h"
#include "tests/resources/LanguageModule.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using namespace ts::test;

std::wstring WithNumber(const std::wstring& text, int number)
{
    const std::size_t at = text.find(L"%d");
    return at == std::wstring::npos ? text : std::wstring(text).replace(at, 2, std::to_wstring(number));
}

std::wstring WithText(const std::wstring& text, const std::wstring& inner)
{
    const std::size_t at = text.find(L"%s");
    return at == std::wstring::npos ? text : std::wstring(text).replace(at, 2, inner);
}

} // namespace

TEST(DueInSentencesTest, CountInsideItsFrame_ReadsAsOneSentence)
{
    struct Row
    {
        Language language;
        unsigned frame;
        unsigned count;
        int number;
        const char* expected;
    };
    const Row rows[] = {
        {kEnglish, IDS_DUE_IN, IDS_DUE_MINUTE, 1, "Due in 1 minute"},
        {kEnglish, IDS_DUE_IN, IDS_DUE_WEEKS, 3, "Due in 3 weeks"},
        {kEnglish, IDS_OVERDUE_BY, IDS_DUE_HOURS, 12, "Overdue by 12 hours"},
        {kEnglish, IDS_OVERDUE_BY, IDS_DUE_YEAR, 1, "Overdue by 1 year"},
        {kGerman, IDS_DUE_IN, IDS_DUE_MINUTE, 1, "Fällig in 1 Minute"},
        {kGerman, IDS_DUE_IN, IDS_DUE_DAY, 1, "Fällig in 1 Tag"},
        {kGerman, IDS_DUE_IN, IDS_DUE_DAYS, 3, "Fällig in 3 Tagen"},
        {kGerman, IDS_DUE_IN, IDS_DUE_MONTHS, 2, "Fällig in 2 Monaten"},
        {kGerman, IDS_OVERDUE_BY, IDS_DUE_MONTH, 1, "Seit 1 Monat überfällig"},
        {kGerman, IDS_OVERDUE_BY, IDS_DUE_HOURS, 12, "Seit 12 Stunden überfällig"},
        {kGerman, IDS_OVERDUE_BY, IDS_DUE_YEARS, 2, "Seit 2 Jahren überfällig"},
        {kGerman, IDS_OVERDUE_BY, IDS_DUE_WEEK, 1, "Seit 1 Woche überfällig"},
        {kFrench, IDS_DUE_IN, IDS_DUE_MINUTE, 1, "Échéance dans 1 minute"},
        {kFrench, IDS_DUE_IN, IDS_DUE_MONTH, 1, "Échéance dans 1 mois"},
        {kFrench, IDS_DUE_IN, IDS_DUE_MONTHS, 11, "Échéance dans 11 mois"},
        {kFrench, IDS_OVERDUE_BY, IDS_DUE_YEARS, 2, "En retard de 2 ans"},
        {kFrench, IDS_OVERDUE_BY, IDS_DUE_HOURS, 12, "En retard de 12 heures"},
    };
    for (const Row& row : rows)
    {
        const std::wstring inner = WithNumber(TextOf(row.language, row.count), row.number);
        EXPECT_EQ(row.expected, Utf8(WithText(TextOf(row.language, row.frame), inner)))
            << "number " << row.count << " inside " << row.frame << " in " << row.language.code;
    }
}

TEST(TooltipSentencesTest, StatusBeforeTheDate_ReadsAsOneLine)
{
    struct Row
    {
        Language language;
        unsigned id;
        const wchar_t* date;
        const char* expected;
    };
    const Row rows[] = {
        {kEnglish, IDS_TOOLTIP_HOURS_OVERDUE, L"10/5/2026 9:00 AM",
         "Hours overdue: 1 – due 10/5/2026 9:00 AM"},
        {kEnglish, IDS_TOOLTIP_DAYS_LEFT, L"10/5/2026 9:00 AM", "Days left: 1 – due 10/5/2026 9:00 AM"},
        {kEnglish, IDS_TOOLTIP_DUE_NOW, L"10/5/2026 9:00 AM", "Due now – 10/5/2026 9:00 AM"},
        {kGerman, IDS_TOOLTIP_HOURS_OVERDUE, L"05.10.2026 09:00",
         "Stunden überfällig: 1 – fällig am 05.10.2026 09:00"},
        {kGerman, IDS_TOOLTIP_DAYS_LEFT, L"05.10.2026 09:00",
         "Verbleibende Tage: 1 – fällig am 05.10.2026 09:00"},
        {kGerman, IDS_TOOLTIP_DUE_NOW, L"05.10.2026 09:00", "Jetzt fällig – 05.10.2026 09:00"},
        {kFrench, IDS_TOOLTIP_HOURS_OVERDUE, L"05/10/2026 09:00",
         "Heures de retard\u00A0: 1 – échéance le 05/10/2026 09:00"},
        {kFrench, IDS_TOOLTIP_DAYS_LEFT, L"05/10/2026 09:00",
         "Jours restants\u00A0: 1 – échéance le 05/10/2026 09:00"},
        {kFrench, IDS_TOOLTIP_DUE_NOW, L"05/10/2026 09:00", "Échéance imminente – 05/10/2026 09:00"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.expected, Utf8(WithNumber(TextOf(row.language, row.id), 1) + row.date))
            << "number " << row.id << " in " << row.language.code;
    }
}

TEST(AppointmentBodyTest, TitleAndPath_StandInThisOrder)
{
    for (const Language& language : kLanguages)
    {
        const std::wstring text = TextOf(language, IDS_APPOINTMENT_BODY);
        const std::wstring body = WithText(WithText(text, L"Plan"), L"C:\\Maps\\Plan.map");
        EXPECT_LT(body.find(L"Plan"), body.find(L"C:\\Maps\\Plan.map"))
            << Describe(language, IDS_APPOINTMENT_BODY);
        EXPECT_TRUE(body.ends_with(L" C:\\Maps\\Plan.map"))
            << "the path must be easy to mark, " << language.code;
    }
}

TEST(SnoozeMenuTest, EachItem_NamesTheNumberOfItsCommand)
{
    struct Row
    {
        unsigned id;
        int number;
        unsigned unit; // a due-in text of the same unit and number
    };
    const Row rows[] = {
        {115, 5, IDS_DUE_MINUTES},    {40101, 15, IDS_DUE_MINUTES}, {40103, 30, IDS_DUE_MINUTES},
        {40104, 45, IDS_DUE_MINUTES}, {40105, 1, IDS_DUE_HOUR},     {40106, 2, IDS_DUE_HOURS},
        {40108, 4, IDS_DUE_HOURS},    {40109, 8, IDS_DUE_HOURS},    {40110, 12, IDS_DUE_HOURS},
        {40111, 1, IDS_DUE_DAY},      {40112, 2, IDS_DUE_DAYS},     {40114, 4, IDS_DUE_DAYS},
        {40115, 1, IDS_DUE_WEEK},
    };
    for (const Language& language : kLanguages)
    {
        for (const Row& row : rows)
        {
            std::wstring expected = WithNumber(TextOf(language, row.unit), row.number);
            // German days stand in the dative there, and in the nominative here.
            if (language.id == kGerman.id && row.unit == IDS_DUE_DAYS)
            {
                expected.pop_back();
            }
            EXPECT_EQ(Utf8(expected), Utf8(TextOf(language, row.id))) << Describe(language, row.id);
        }
    }
}
