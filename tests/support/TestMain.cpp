// The main program of every test suite.

#include "tests/support/RegistrySandbox.h"

#include <cstdio>
#include <ctime>
#include <gtest/gtest.h>

namespace
{

constexpr UINT kCrashExitCode = 99;

/// A crash must never look like success, whatever debugger the system would start.
LONG WINAPI ReportCrash(EXCEPTION_POINTERS* crash)
{
    std::fprintf(stderr, "crash: code 0x%08lX at %p\n", crash->ExceptionRecord->ExceptionCode,
                 crash->ExceptionRecord->ExceptionAddress);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

int main(int argc, char** argv)
{
    // A TZ variable misleads the C runtime; without it both the runtime and Windows use the system's zone.
    _putenv("TZ=");
    _tzset();
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(ReportCrash);
    const ts::test::RegistrySandbox sandbox;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
