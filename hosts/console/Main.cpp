#include "App.h"
#include "Console.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <sstream>

int main()
{
    // A TZ variable, of a Unix-like shell for example, would mislead the C runtime; the system's zone is
    // right.
    _putenv("TZ=");
    _tzset();

    using namespace ts::console;
    std::ostringstream out;
    std::ostringstream err;
    Session session{out, TerminalWidth()};
    int code = Run(CommandLineArguments(), session, err);
    if (!WriteText(STD_OUTPUT_HANDLE, out.str()) && code == kDone)
    {
        err << "reminders: the output could not be written\n";
        code = kFailed;
    }
    // Where the reason of a failure cannot be written either, the exit code alone must do.
    return WriteText(STD_ERROR_HANDLE, err.str()) ? code : std::max<int>(code, kFailed);
}
