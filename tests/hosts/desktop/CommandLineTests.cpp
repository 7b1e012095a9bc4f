#include "hosts/desktop/CommandLine.h"

#include <gtest/gtest.h>

namespace
{

using namespace ts::desktop;

struct Row
{
    std::vector<std::string> arguments;
    Task task;
    std::string textPart;
};

TEST(CommandLine, Arguments_GiveTheTask)
{
    const Row rows[] = {
        {{}, Task::Run, ""},
        {{"-Embedding"}, Task::Serve, ""},
        {{"/Embedding"}, Task::Serve, ""},
        {{"-embedding"}, Task::Serve, ""},
        {{"/EMBEDDING"}, Task::Serve, ""},
        {{"--register"}, Task::Register, ""},
        {{"--unregister"}, Task::Unregister, ""},
        {{"--help"}, Task::Tell, "--unregister"},
        {{"-h"}, Task::Tell, "--register"},
        {{"--version"}, Task::Tell, "TessalyHost 25.0.0\n"},
        {{"--register", "--unregister"}, Task::Complain, "excludes"},
        {{"--unknown"}, Task::Complain, "--unknown"},
        {{"C:\\maps\\plan.map"}, Task::Complain, "plan.map"},
        {{"Embedding"}, Task::Complain, "Embedding"},
        {{""}, Task::Complain, "--help"},
    };
    for (const Row& row : rows)
    {
        const CommandLine parsed = Parse(row.arguments);
        const std::string what = testing::PrintToString(row.arguments) + " " + parsed.text;
        EXPECT_EQ(row.task, parsed.task) << what;
        EXPECT_NE(std::string::npos, parsed.text.find(row.textPart)) << what;
        EXPECT_EQ(row.textPart.empty(), parsed.text.empty()) << what;
    }
}

} // namespace
