#include "platform/ThreadSlot.h"

#include <gtest/gtest.h>
#include <thread>

TEST(ThreadSlotTest, Get_OnEachThread_IsWhatThatThreadSet)
{
    const ts::ThreadSlot slot;
    const ts::ThreadSlot neighbour;
    int mine = 0;
    int others = 0;
    EXPECT_EQ(nullptr, slot.Get());
    slot.Set(&mine);
    std::thread(
        [&]
        {
            EXPECT_EQ(nullptr, slot.Get());
            slot.Set(&others);
            EXPECT_EQ(&others, slot.Get());
        })
        .join();
    EXPECT_EQ(&mine, slot.Get());
    EXPECT_EQ(nullptr, neighbour.Get());
    slot.Set(nullptr);
    EXPECT_EQ(nullptr, slot.Get());
}

TEST(ThreadSlotTest, Get_OfAnyValue_KeepsTheLastError)
{
    const ts::ThreadSlot slot;
    SetLastError(ERROR_FILE_NOT_FOUND);
    static_cast<void>(slot.Get());
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
}

TEST(ThreadSlotTest, Destruction_OfMany_GivesTheirPlacesBack)
{
    // A process has some thousand places.
    for (int round = 0; round < 5000; ++round)
    {
        const ts::ThreadSlot slot;
        int value = 0;
        slot.Set(&value);
        ASSERT_EQ(&value, slot.Get()) << round;
    }
}
