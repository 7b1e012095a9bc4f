#include "Table.h"

#include "DisplayText.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

using namespace ts::console;

namespace
{

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
    {
        lines.push_back(line);
    }
    return lines;
}

Table Example()
{
    Table table;
    table.AddColumn("DUE", Table::kWhole);
    table.AddColumn("SUBJECT", 8);
    table.AddColumn("DOCUMENT", 8);
    table.AddRow({"21.11.", "Send the weekly report", "A rather long title"}, "{key-0}");
    table.AddRow({"1.12.", "x", "\xE9\x80\xB1\xE6\xAC\xA1"});
    return table;
}

TEST(Table, EnoughRoom_AlignsColumnsAndCutsNothing)
{
    EXPECT_EQ("DUE     SUBJECT                 DOCUMENT\n"
              "21.11.  Send the weekly report  A rather long title\n"
              "  {key-0}\n"
              "1.12.   x                       \xE9\x80\xB1\xE6\xAC\xA1\n",
              Example().Text(100));
}

TEST(Table, LittleRoom_CutsTheWidestFirst)
{
    EXPECT_EQ("DUE     SUBJECT         DOCUMENT\n"
              "21.11.  Send the week\xE2\x80\xA6  A rather long\xE2\x80\xA6\n"
              "  {key-0}\n"
              "1.12.   x               \xE9\x80\xB1\xE6\xAC\xA1\n",
              Example().Text(38));
}

TEST(Table, ColumnsOfOneWidth_AreCutFromTheFirst)
{
    Table table;
    table.AddColumn("ONE", 2);
    table.AddColumn("TWO", 2);
    table.AddRow({"abcdef", "ghijkl"});
    EXPECT_EQ("ONE    TWO\n"
              "abcd\xE2\x80\xA6  ghijkl\n",
              table.Text(13));
}

TEST(Table, NoRoom_LeavesOutTheLastColumns)
{
    EXPECT_EQ("DUE     SUBJECT\n"
              "21.11.  Send th\xE2\x80\xA6\n"
              "  {key-0}\n"
              "1.12.   x\n",
              Example().Text(20));
    EXPECT_EQ("DUE\n21.11.\n  {key-0}\n1.12.\n", Example().Text(0));
}

TEST(Table, AnyWidth_NoLineIsWider)
{
    for (std::size_t width = 9; width < 80; ++width)
    {
        for (const std::string& line : Lines(Example().Text(width)))
        {
            EXPECT_LE(DisplayWidth(line), width) << line;
        }
    }
}

TEST(Table, ControlCharacters_DoNotReachTheTerminal)
{
    Table table;
    table.AddColumn("A", Table::kWhole);
    table.AddRow({"\x1B[2J\n"}, "\x1B]0;x\x07");
    const std::string text = table.Text(80);
    EXPECT_EQ(std::string::npos, text.find('\x1B')) << text;
    EXPECT_EQ(std::string::npos, text.find('\x07')) << text;
    EXPECT_EQ(3u, Lines(text).size());
}

TEST(FieldsText, LongValues_GoOnBelow)
{
    EXPECT_EQ("Name   short\n"
              "Other  a value that is too\n"
              "       long for one line\n",
              FieldsText({{"Name", "short"}, {"Other", "a value that is too long for one line"}}, 30));
}

TEST(FieldsText, NarrowTerminal_LeavesRoomForValues)
{
    EXPECT_EQ("Name  12345678901234567890\n      12345\n",
              FieldsText({{"Name", "1234567890123456789012345"}}, 3));
}

} // namespace
