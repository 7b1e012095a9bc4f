#include "App.h"
#include "ReminderService.h"
#include "hosts/common/Console.h"
#include "hosts/common/Output.h"

#include <sstream>

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int)
{
    ts::hosts::IgnoreZoneVariable();

    std::ostringstream out;
    std::ostringstream err;
    const int code = ts::service::Run(ts::hosts::CommandLineArguments(), out, err);
    if (!out.view().empty())
    {
        ts::hosts::Tell(out.view(), false, ts::service::kWindowTitle);
    }
    if (!err.view().empty())
    {
        ts::hosts::Tell(err.view(), true, ts::service::kWindowTitle);
    }
    return code;
}
