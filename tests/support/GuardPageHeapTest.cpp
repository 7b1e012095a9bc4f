// Proves that the guard-page heap finds faults: each is committed in a child process, which must not end
// well.

#include "platform/WindowsHeaders.h"
#include "tests/support/HeapKind.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr DWORD kHeapReport = 98;

/// Hides from the compiler where memory comes from, so that it neither warns of a fault nor removes it.
template <typename T>
volatile T* Launder(volatile T* memory)
{
    volatile T* volatile hidden = memory;
    return hidden;
}

void WriteOneByteIntoTheSlack()
{
    // 10 bytes are padded to 16.
    const std::unique_ptr<char[]> memory(new char[10]);
    Launder(memory.get())[10] = 'x';
}

void WriteOneByteBehindAnEvenSize()
{
    const std::unique_ptr<char[]> memory(new char[16]);
    Launder(memory.get())[16] = 'x';
}

void ReadPastThePage()
{
    const std::vector<wchar_t> memory(64, L'x');
    static_cast<void>(Launder(memory.data())[64]);
}

void ReadPastALongBlock()
{
    const std::unique_ptr<char[]> memory(new char[3 * 4096]);
    static_cast<void>(Launder(memory.get())[3 * 4096]);
}

volatile char* FreedMemory()
{
    const std::unique_ptr<char[]> memory(new char[16]);
    return Launder(memory.get());
}

void ReadAfterFree()
{
    volatile char* const stale = FreedMemory();
    static_cast<void>(*Launder(stale));
}

void WriteAfterFree()
{
    volatile char* const stale = FreedMemory();
    *Launder(stale) = 'x';
}

void FreeTwice()
{
    volatile char* const stale = FreedMemory();
    const std::unique_ptr<volatile char[]> again(Launder(stale));
}

/// Everything that is allowed: the first and the last byte of each size, more blocks than the quarantine
/// holds.
void CommitNoFault()
{
    for (std::size_t size = 0; size < 10000; ++size)
    {
        const std::unique_ptr<char[]> memory(new char[size]);
        if (size > 0)
        {
            Launder(memory.get())[0] = 'x';
            Launder(memory.get())[size - 1] = 'x';
        }
    }
}

struct Fault
{
    const char* name;
    void (*commit)();
};

constexpr Fault kFaults[] = {
    {"none", CommitNoFault},
    {"slack-write", WriteOneByteIntoTheSlack},
    {"page-write", WriteOneByteBehindAnEvenSize},
    {"page-read", ReadPastThePage},
    {"long-read", ReadPastALongBlock},
    {"free-read", ReadAfterFree},
    {"free-write", WriteAfterFree},
    {"double-free", FreeTwice},
};

/// The exit code of this program when it commits that fault.
DWORD ExitCodeOf(const char* fault)
{
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring command =
        L"\"" + std::wstring(self) + L"\" " + std::wstring(fault, fault + std::strlen(fault));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child{};
    if (CreateProcessW(self, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &child) == 0)
    {
        ADD_FAILURE() << "the child does not start: " << GetLastError();
        return 0;
    }
    constexpr DWORD kPatience = 60000;
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(child.hProcess, kPatience)) << fault;
    DWORD code = 0;
    EXPECT_NE(0, GetExitCodeProcess(child.hProcess, &code)) << fault;
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return code;
}

} // namespace

TEST(GuardPageHeapTest, Program_LinkedWithIt_KnowsSo)
{
    EXPECT_TRUE(ts::test::UsesGuardPageHeap());
    EXPECT_EQ(50, ts::test::Rounds(1000));
    EXPECT_EQ(1, ts::test::Rounds(3));
}

TEST(GuardPageHeapTest, Child_WithoutFault_EndsWell)
{
    EXPECT_EQ(0u, ExitCodeOf("none"));
}

TEST(GuardPageHeapTest, Child_WritesIntoTheSlack_IsReportedWhenFreed)
{
    EXPECT_EQ(kHeapReport, ExitCodeOf("slack-write"));
}

TEST(GuardPageHeapTest, Child_TouchesMemoryThatIsNotItsOwn_Crashes)
{
    for (const Fault& fault : kFaults)
    {
        if (fault.commit != CommitNoFault)
        {
            EXPECT_NE(0u, ExitCodeOf(fault.name)) << fault.name;
        }
    }
}

TEST(GuardPageHeapTest, Child_WithAnUnknownFault_IsNoSuccess)
{
    EXPECT_EQ(2u, ExitCodeOf("unheard-of"));
}

int main(int argc, char** argv)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    if (argc == 2 && argv[1][0] != '-')
    {
        for (const Fault& fault : kFaults)
        {
            if (std::strcmp(fault.name, argv[1]) == 0)
            {
                fault.commit();
                return 0;
            }
        }
        return 2;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
