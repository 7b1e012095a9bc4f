// Texts by their numbers, whatever the language library makes of them.

#include "module/LanguageText.h"
#include "module/InterfaceLanguage.h"
#include "module/ResourceScope.h"
#include "resources/StringIds.h"
#include "tests/support/TextOutput.h"

#include <gtest/gtest.h>

namespace
{

class LanguageTextTest : public testing::Test
{
  protected:
    LanguageTextTest() { ts::SetInterfaceLanguage(L"en"); }
    ~LanguageTextTest() override { ts::SetInterfaceLanguage(nullptr); }

    /// The text as the system reads it from the language library.
    static CString StoredText(unsigned id)
    {
        wchar_t text[500] = L"";
        EXPECT_NE(0, LoadStringW(g_resourceManager.GetResourceHandle(), id, text, 500)) << id;
        return text;
    }
};

} // namespace

TEST_F(LanguageTextTest, LoadText_OfANumber_IsTheTextOfTheLanguage)
{
    EXPECT_EQ(StoredText(IDS_TOOLTIP_DUE_NOW), ts::LoadText(IDS_TOOLTIP_DUE_NOW));
    const CString english = ts::LoadText(IDS_TOOLTIP_DUE_NOW);
    ts::SetInterfaceLanguage(L"de");
    EXPECT_EQ(StoredText(IDS_TOOLTIP_DUE_NOW), ts::LoadText(IDS_TOOLTIP_DUE_NOW));
    EXPECT_NE(english, ts::LoadText(IDS_TOOLTIP_DUE_NOW));
}

TEST_F(LanguageTextTest, LoadText_OfANumberWithoutAText_IsEmpty)
{
    for (const unsigned id : {0U, 1U, 65535U, 70000U})
    {
        EXPECT_TRUE(ts::LoadText(id).IsEmpty()) << id;
        EXPECT_TRUE(ts::FormatText(id, 7).IsEmpty()) << id;
        EXPECT_TRUE(ts::FormatText(id, CString(L"x")).IsEmpty()) << id;
    }
}

TEST_F(LanguageTextTest, LoadText_OfTheHostsResources_LeavesThem)
{
    const HINSTANCE host = GetModuleHandleW(L"kernel32.dll");
    AfxSetResourceHandle(host);
    EXPECT_FALSE(ts::LoadText(IDS_TOOLTIP_DUE_NOW).IsEmpty());
    EXPECT_EQ(host, AfxGetResourceHandle());
    AfxSetResourceHandle(nullptr);
}

TEST_F(LanguageTextTest, FormatText_OfACount_PutsItInItsPlace)
{
    std::wstring expected = StoredText(IDS_DUE_DAYS).GetString();
    const std::size_t place = expected.find(L"%d");
    ASSERT_NE(std::wstring::npos, place);
    expected.replace(place, 2, L"-9223372036854775808");
    EXPECT_EQ(CString(expected.c_str()),
              ts::FormatText(IDS_DUE_DAYS, std::numeric_limits<std::int64_t>::min()));
}

TEST_F(LanguageTextTest, FormatText_OfAText_PutsItInItsPlaceAsItStands)
{
    for (const wchar_t* inserted : {L"", L"%s", L"%d %n", L"plain"})
    {
        std::wstring expected = StoredText(IDS_DUE_IN).GetString();
        const std::size_t place = expected.find(L"%s");
        ASSERT_NE(std::wstring::npos, place);
        expected.replace(place, 2, inserted);
        EXPECT_EQ(CString(expected.c_str()), ts::FormatText(IDS_DUE_IN, CString(inserted)));
    }
}

TEST_F(LanguageTextTest, FormatText_WithoutAPlace_LeavesTheTextAlone)
{
    EXPECT_EQ(StoredText(IDS_TOOLTIP_DUE_NOW), ts::FormatText(IDS_TOOLTIP_DUE_NOW, 5));
    EXPECT_EQ(StoredText(IDS_TOOLTIP_DUE_NOW), ts::FormatText(IDS_TOOLTIP_DUE_NOW, CString(L"x")));
    EXPECT_EQ(StoredText(IDS_DUE_IN), ts::FormatText(IDS_DUE_IN, 5)) << "a text's place takes no number";
}

TEST_F(LanguageTextTest, FormatText_OfTwoTexts_FillsThePlacesInOrder)
{
    std::wstring expected = StoredText(IDS_APPOINTMENT_BODY).GetString();
    for (const wchar_t* inserted : {L"<1>", L"<2>"})
    {
        const std::size_t place = expected.find(L"%s");
        ASSERT_NE(std::wstring::npos, place);
        expected.replace(place, 2, inserted);
    }
    EXPECT_EQ(CString(expected.c_str()),
              ts::FormatText(IDS_APPOINTMENT_BODY, CString(L"<1>"), CString(L"<2>")));
    expected.replace(expected.find(L"<1>"), 3, L"%s");
    EXPECT_EQ(CString(expected.c_str()),
              ts::FormatText(IDS_APPOINTMENT_BODY, CString(L"%s"), CString(L"<2>")))
        << "a place in what was put in is none";
    EXPECT_EQ(ts::FormatText(IDS_DUE_IN, CString(L"<1>")),
              ts::FormatText(IDS_DUE_IN, CString(L"<1>"), CString(L"<2>")))
        << "what finds no place is left out";
}
