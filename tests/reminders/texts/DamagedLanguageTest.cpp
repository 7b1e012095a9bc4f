// Texts from a language library that somebody has tampered with.

#include "module/InterfaceLanguage.h"
#include "platform/ts/CcvDateUtilities.h"
#include "reminders/CcvReminderDataUtilities.h"
#include "tests/reminders/texts/LiteralTexts.h"
#include "tests/support/TextOutput.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace
{

using namespace ts::test;

constexpr std::int64_t kNow = 1'800'000'000;

std::string BytesOfText(const std::wstring& text)
{
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

/// The English library with other texts, as a language that is named after this program and the test.
class DamagedLanguageTest : public testing::Test
{
  protected:
    DamagedLanguageTest()
    {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const std::filesystem::path path(program);
        m_language =
            path.stem().wstring() + L"-" +
            std::filesystem::path(testing::UnitTest::GetInstance()->current_test_info()->name()).wstring();
        m_path = path.parent_path() / (L"TsServiceUtilities." + m_language + L".dll");
        std::ifstream english(path.parent_path() / L"TsServiceUtilities.en.dll", std::ios::binary);
        m_library.assign(std::istreambuf_iterator<char>(english), std::istreambuf_iterator<char>());
    }
    ~DamagedLanguageTest() override { ts::SetInterfaceLanguage(nullptr); }

    /// Puts `text`, filled up with blanks, where that text stands.
    void Replace(unsigned id, std::wstring text)
    {
        const CString former = literal::TextOf(L"en", id);
        ASSERT_LE(text.size(), static_cast<std::size_t>(former.GetLength())) << id;
        text.resize(static_cast<std::size_t>(former.GetLength()), L' ');
        const std::size_t place = m_library.find(BytesOfText(former.GetString()));
        ASSERT_NE(std::string::npos, place) << id;
        m_library.replace(place, BytesOfText(text).size(), BytesOfText(text));
    }

    /// From now on the library's texts come from the damaged language, which stays mapped.
    void Use() const
    {
        std::ofstream(m_path, std::ios::binary) << m_library;
        ts::SetInterfaceLanguage(m_language.c_str());
    }

    std::wstring m_language;
    std::filesystem::path m_path;
    std::string m_library;
};

CcvReminderData DueNow()
{
    CcvReminderData record{CString(L"{text-0}")};
    record.SetNextDueDate(kNow);
    return record;
}

} // namespace

TEST_F(DamagedLanguageTest, Tooltip_OfAStatusWithMarkup_ShowsItAsItStands)
{
    const std::wstring blanks(static_cast<std::size_t>(literal::TextOf(L"en", 174).GetLength()) - 2, L' ');
    Replace(174, L"<&");
    Use();
    CcvReminderData record = DueNow();
    EXPECT_EQ(L"<b></b><br>&lt;&amp;" + CString(blanks.c_str()) +
                  CcvDateUtilities::ShortDateString(CTime(kNow)) + L" " +
                  CcvDateUtilities::ShortTimeString(CTime(kNow)),
              CcvReminderDataUtilities::GetReminderTooltip(&record, CTime(kNow)));
}

TEST_F(DamagedLanguageTest, DueIn_OfATextWithForeignPlaces_LeavesThemAlone)
{
    std::wstring expected = literal::TextOf(L"en", 201).GetString();
    const std::size_t length = static_cast<std::size_t>(literal::TextOf(L"en", 203).GetLength());
    Replace(203, L"%s%n");
    Use();
    std::wstring minute = L"%s%n";
    minute.resize(length, L' ');
    expected.replace(expected.find(L"%s"), 2, minute);
    CcvReminderData record = DueNow();
    EXPECT_EQ(CString(expected.c_str()), CcvReminderDataUtilities::GetDueInString(&record, CTime(kNow)));
}
