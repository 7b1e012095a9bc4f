#include "ConsoleHarness.h"
#include "Strings.h"
#include "hosts/common/RegistryHandle.h"

#include <cstring>

namespace
{

/// The library's collection leaves every reminder unloaded from the first one on that cannot be opened.
class UnloadableReminder : public ConsoleTest
{
  protected:
    void SetUp() override
    {
        ConsoleTest::SetUp();
        // A link to nowhere is listed among the keys and cannot be opened. Keys are listed by their names.
        const CString path = CString(ts::kRemindersPath) + L"\\" + kUnloadable;
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_CREATE_LINK,
                                                 KEY_ALL_ACCESS, nullptr, &key, nullptr));
        const std::wstring target = L"\\Registry\\User\\None";
        std::vector<BYTE> bytes(target.size() * sizeof(wchar_t));
        std::memcpy(bytes.data(), target.data(), bytes.size());
        EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, L"SymbolicLinkValue", 0, REG_LINK, bytes.data(),
                                                static_cast<DWORD>(bytes.size())));
        RegCloseKey(key);
        m_key = Add("2950-03-04T09:00", {"--daily", "1"});
        ASSERT_LT(std::wstring(kUnloadable), ts::console::ToLibrary(m_key).GetString());
        CcvReminderDataCollectionManager collection(false);
        ASSERT_FALSE(collection.UpdateReminderCollection());
        ASSERT_EQ(2, collection.GetRemindersCount());
    }

    /// A deletion of the tree does not get past the link.
    void TearDown() override
    {
        HKEY key = nullptr;
        const CString path = CString(ts::kRemindersPath) + L"\\" + kUnloadable;
        ASSERT_EQ(ERROR_SUCCESS,
                  RegOpenKeyExW(HKEY_CURRENT_USER, path, REG_OPTION_OPEN_LINK, KEY_ALL_ACCESS, &key));
        EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(key, L""));
        RegCloseKey(key);
    }

    static constexpr wchar_t kUnloadable[] = L"{0-0}";
    std::string m_key;
};

TEST_F(UnloadableReminder, OthersAreListedShownAndFound)
{
    const Json list = SucceedJson({"list"});
    ASSERT_EQ(1u, list.size());
    EXPECT_EQ(m_key, list[0]["key"]);
    EXPECT_EQ("Send report", SucceedJson({"show", m_key})["subject"]);
    EXPECT_EQ(1u, SucceedJson({"next", m_key, "--count", "1"}).size());
    EXPECT_EQ(m_key, Succeed({"find", "C:\\maps\\plan.map", kMap, kTopic}));
}

TEST_F(UnloadableReminder, OthersAreChangedAndDeleted)
{
    Succeed({"edit", m_key, "--subject", "Other", "--topic", kOtherMap});
    EXPECT_EQ("Other", SucceedJson({"show", m_key})["subject"]);
    EXPECT_EQ("Moved 1 reminder.", Succeed({"move", "C:\\maps\\plan.map", "D:\\plan.map", kMap}));
    Succeed({"snooze", m_key, "1h"});
    Succeed({"dismiss", m_key});
    const Json json = SucceedJson({"show", m_key});
    EXPECT_EQ("2950-03-05T09:00:00", json["due"].get<std::string>().substr(0, 19));
    EXPECT_EQ("Deleted.", Succeed({"delete", m_key}));
    EXPECT_EQ(Json::array(), SucceedJson({"list"}));
}

TEST_F(UnloadableReminder, ItselfIsNotThere)
{
    for (const char* command : {"show", "dismiss", "delete", "open-appointment"})
    {
        ExpectFailure(1, "there is no reminder '{0-0}'", {command, "{0-0}"});
    }
}

} // namespace
