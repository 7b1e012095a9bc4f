#include "ConsoleHarness.h"

namespace
{

class AddCommand : public ConsoleTest
{
};

TEST_F(AddCommand, AllFields_AreStored)
{
    const std::string key =
        Succeed({"add", "--document", "C:\\Pl\xC3\xA4ne\\\xE8\xA8\x88\xE7\x94\xBB.map", "--map", kMap,
                 "--topic", kTopic, "--title", "\xE9\x80\xB1\xE6\xAC\xA1", "--document-title", "Gro\xC3\x9F",
                 "--subject", "Bericht \xF0\x9F\x93\x85", "--due", "2950-03-04T09:00", "--lead", "2h"});
    EXPECT_EQ(std::string("{") + kMap + "-0}", key);
    const Json json = SucceedJson({"show", key});
    EXPECT_EQ("C:\\Pl\xC3\xA4ne\\\xE8\xA8\x88\xE7\x94\xBB.map", json["documentPath"]);
    EXPECT_EQ(kMap, json["mapGuid"]);
    EXPECT_EQ(kTopic, json["objectGuid"]);
    EXPECT_EQ("\xE9\x80\xB1\xE6\xAC\xA1", json["objectTitle"]);
    EXPECT_EQ("Gro\xC3\x9F", json["documentTitle"]);
    EXPECT_EQ("Bericht \xF0\x9F\x93\x85", json["subject"]);
    EXPECT_EQ(7200, json["leadSeconds"]);
    EXPECT_EQ(false, json["snoozed"]);
    EXPECT_EQ(false, json["dismissed"]);
    EXPECT_EQ("", json["outlookObjectGuid"]);
    EXPECT_EQ("", json["outlookEntryId"]);
    EXPECT_EQ("2950-03-04T09:00:00", json["nextDue"].get<std::string>().substr(0, 19));
}

TEST_F(AddCommand, SecondReminderOfAMap_GetsTheNextKey)
{
    EXPECT_EQ(std::string("{") + kMap + "-0}", Add("2950-03-04"));
    EXPECT_EQ(std::string("{") + kMap + "-1}", Add("2950-03-04"));
    Succeed({"delete", std::string("{") + kMap + "-0}"});
    EXPECT_EQ(std::string("{") + kMap + "-0}", Add("2950-03-04"));
}

TEST_F(AddCommand, GuidWithoutBraces_IsStoredWithThemInItsOwnCase)
{
    std::vector<std::string> arguments = AddArguments("2950-03-04");
    arguments[4] = "6b1d7c5e-0f43-4c0b-9A35-3f1b8e6a2d01";
    const Json json = SucceedJson({"show", Succeed(arguments)});
    EXPECT_EQ("{6b1d7c5e-0f43-4c0b-9A35-3f1b8e6a2d01}", json["mapGuid"]);
}

TEST_F(AddCommand, LineBreaksInTexts_AreTakenOut)
{
    std::vector<std::string> arguments = AddArguments("2950-03-04", {"--title", "a\r\nb"});
    arguments[8] = "Send\nreport";
    const Json json = SucceedJson({"show", Succeed(arguments)});
    EXPECT_EQ("Sendreport", json["subject"]);
    EXPECT_EQ("ab", json["objectTitle"]);
}

TEST_F(AddCommand, TextsThatLookLikeSyntax_AreTakenAsTheyAre)
{
    for (const char* text : {"-5 degrees", "--due", "[a,b]", "/x", "a=b", "{}", "%d", "\"quoted\"", "list"})
    {
        std::vector<std::string> arguments = AddArguments("2950-03-04", {"--title", text});
        arguments[2] = text;
        arguments[8] = text;
        const Json json = SucceedJson({"show", Succeed(arguments)});
        EXPECT_EQ(text, json["subject"]);
        EXPECT_EQ(text, json["objectTitle"]);
        EXPECT_EQ(text, json["documentPath"]);
    }
}

TEST_F(AddCommand, OffsetOfTheDueTime_Counts)
{
    const std::string key = Add("2950-03-04T09:00+05:00");
    EXPECT_EQ(SucceedJson({"show", key})["nextDue"],
              SucceedJson({"show", Add("2950-03-04T04:00Z")})["nextDue"]);
}

TEST_F(AddCommand, BadArguments_AreRefusedAndNothingWritten)
{
    struct Row
    {
        std::size_t index;
        const char* value;
        const char* reason;
    };
    const Row rows[] = {
        {2, "", "--document must not be empty"},
        {4, "", "--map is no GUID"},
        {4, "x", "--map is no GUID"},
        {4, "{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01", "--map is no GUID"},
        {4, "6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D0G", "--map is no GUID"},
        {4, "6B1D7C5E0F434C0B9A353F1B8E6A2D01", "--map is no GUID"},
        {4, "{{6B1D7C5E-0F43-4C0B-9A35-3F1B8E6A2D01}}", "--map is no GUID"},
        {6, "6B1D7C5E-0F43-4C0B-9A35", "--topic is no GUID"},
        {8, "", "--subject must not be empty"},
        {8, "  \r\n", "--subject must not be empty"},
        {10, "", "--due"},
        {10, "2026-02-30T09:00", "does not exist"},
        {10, "2026-02-03T25:00", "does not exist"},
        {10, "tomorrow", "is no time"},
        {10, "1969-01-01", "1970 to 3000"},
    };
    for (const Row& row : rows)
    {
        std::vector<std::string> arguments = AddArguments("2950-03-04");
        arguments[row.index] = row.value;
        ExpectFailure(2, row.reason, arguments);
    }
    ExpectFailure(2, "is no span", AddArguments("2950-03-04", {"--lead", "1y"}));
    ExpectFailure(2, "longer than a thousand years",
                  AddArguments("2950-03-04", {"--lead", "99999999999999999999w"}));
}

TEST_F(AddCommand, MissingOption_IsNamed)
{
    for (const std::size_t index : {1u, 3u, 5u, 7u, 9u})
    {
        std::vector<std::string> arguments = AddArguments("2950-03-04");
        const std::string name = arguments[index];
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(index),
                        arguments.begin() + static_cast<std::ptrdiff_t>(index) + 2);
        ExpectFailure(2, name, arguments);
    }
}

} // namespace
