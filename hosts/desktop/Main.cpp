#include "App.h"
#include "UserOutput.h"

#include "platform/WindowsHeaders.h"

#include <cstdlib>
#include <ctime>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    // A TZ variable, of a Unix-like shell for example, would mislead the C runtime; the system's zone is
    // right.
    _putenv("TZ=");
    _tzset();
    return ts::desktop::Run(ts::desktop::Parse(ts::desktop::CommandLineArguments()));
}
