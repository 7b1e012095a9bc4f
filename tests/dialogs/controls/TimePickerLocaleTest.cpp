#include "dialogs/TimePickerLocale.h"
#include "platform/WindowsHeaders.h"
#include "tests/dialogs/controls/LocaleSettings.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>
#include <string>

using ts::test::LocaleSettings;

TEST(TimePickerLocaleTest, MadeOfSettings_KnowsHoursAndKeys)
{
    const auto american = ts::MakeTimePickerLocale(false, L"AM", L"pm");
    EXPECT_FALSE(american.is24Hour);
    EXPECT_EQ(12, american.maximumHour);
    EXPECT_EQ(L'A', american.amKey);
    EXPECT_EQ(L'p', american.pmKey);
    EXPECT_EQ(23, ts::MakeTimePickerLocale(true, L"AM", L"PM").maximumHour);
}

TEST(TimePickerLocaleTest, WithoutDesignators_ShowsZeros)
{
    const auto locale = ts::MakeTimePickerLocale(true, L"", L"");
    EXPECT_EQ(CString(L"0"), locale.amDesignator);
    EXPECT_EQ(CString(L"0"), locale.pmDesignator);
    EXPECT_EQ(L'0', locale.amKey);
    EXPECT_EQ(L'0', locale.pmKey);
}

TEST(TimePickerLocaleTest, ReadFromTheSystem_FollowsItsSettings)
{
    LocaleSettings settings;
    settings.Set(LOCALE_ITIME, L"0");
    settings.Set(LOCALE_S1159, L"Vm");
    settings.Set(LOCALE_S2359, L"Nm");
    auto locale = ts::ReadTimePickerLocale();
    EXPECT_FALSE(locale.is24Hour);
    EXPECT_EQ(CString(L"Vm"), locale.amDesignator);
    EXPECT_EQ(CString(L"Nm"), locale.pmDesignator);

    settings.Set(LOCALE_ITIME, L"1");
    settings.Set(LOCALE_S1159, L"");
    settings.Set(LOCALE_S2359, L"");
    locale = ts::ReadTimePickerLocale();
    EXPECT_TRUE(locale.is24Hour);
    EXPECT_EQ(CString(L"0"), locale.amDesignator);
    EXPECT_EQ(CString(L"0"), locale.pmDesignator);
}

TEST(TimePickerLocaleTest, WithLongDesignators_TakesEightAndNineCharacters)
{
    LocaleSettings settings;
    settings.Set(LOCALE_S1159, L"morning!");
    settings.Set(LOCALE_S2359, L"afternoon");
    auto locale = ts::ReadTimePickerLocale();
    EXPECT_EQ(CString(L"morning!"), locale.amDesignator);
    EXPECT_EQ(CString(L"afternoon"), locale.pmDesignator);

    settings.Set(LOCALE_S1159, L"morning!!");
    settings.Set(LOCALE_S2359, L"afternoon!");
    locale = ts::ReadTimePickerLocale();
    EXPECT_EQ(CString(L"0"), locale.amDesignator);
    EXPECT_EQ(CString(L"0"), locale.pmDesignator);
}

TEST(TimePickerLocaleTest, AtStartUp_StaysWhenSettingsChange)
{
    // Not asked for before the change; by itself this test also shows that the first question is no start-up.
    const ts::TimePickerLocale before = ts::ReadTimePickerLocale();
    LocaleSettings settings;
    settings.Set(LOCALE_ITIME, before.is24Hour ? L"0" : L"1");
    settings.Set(LOCALE_S1159, L"Zz");
    EXPECT_EQ(CString(L"Zz"), ts::ReadTimePickerLocale().amDesignator);
    EXPECT_EQ(before.is24Hour, ts::StartUpTimePickerLocale().is24Hour);
    EXPECT_EQ(before.amDesignator, ts::StartUpTimePickerLocale().amDesignator);
}

TEST(TimeFormatTest, WithLongTexts_TakesSeventyNineCharacters)
{
    LocaleSettings settings;
    const std::wstring longest = L"HH:mm:ss" + std::wstring(71, L'x');
    settings.Set(LOCALE_STIMEFORMAT, longest);
    EXPECT_EQ(CString(longest.c_str()), ts::ReadTimeFormat().picture);
}

TEST(TimeFormatTest, ReadFromTheSystem_FollowsItsSettings)
{
    LocaleSettings settings;
    settings.Set(LOCALE_STIMEFORMAT, L"tt hh.mm.ss");
    settings.Set(LOCALE_STIME, L".");
    const ts::TimeFormat format = ts::ReadTimeFormat();
    EXPECT_EQ(CString(L"tt hh.mm.ss"), format.picture);
    EXPECT_EQ(CString(L"."), format.separator);
}
