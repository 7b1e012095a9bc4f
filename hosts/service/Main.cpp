#include "App.h"
#include "Output.h"
#include "hosts/common/Console.h"

#include <cstdlib>
#include <ctime>
#include <sstream>

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int)
{
    // A TZ variable, of a Unix-like shell for example, would mislead the C runtime; the system's zone is
    // right.
    _putenv("TZ=");
    _tzset();

    std::ostringstream out;
    std::ostringstream err;
    const int code = ts::service::Run(ts::hosts::CommandLineArguments(), out, err);
    if (!out.view().empty())
    {
        ts::service::Tell(out.view(), false);
    }
    if (!err.view().empty())
    {
        ts::service::Tell(err.view(), true);
    }
    return code;
}
