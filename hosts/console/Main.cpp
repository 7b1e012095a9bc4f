#include "App.h"
#include "hosts/common/Console.h"

#include <algorithm>
#include <ostream>

int main()
{
    using namespace ts::console;
    using namespace ts::hosts;
    IgnoreZoneVariable();
    StandardBuffer outBuffer(STD_OUTPUT_HANDLE);
    StandardBuffer errBuffer(STD_ERROR_HANDLE);
    std::ostream out(&outBuffer);
    std::ostream err(&errBuffer);
    Session session{out, err, TerminalWidth()};
    int code = Run(CommandLineArguments(), session);
    if (!out.flush() && code == kDone)
    {
        err << "reminders: the output could not be written\n";
        code = kFailed;
    }
    // Where the reason of a failure cannot be written either, the exit code alone must do.
    return err.flush() ? code : std::max<int>(code, kFailed);
}
