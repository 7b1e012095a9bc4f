#include "App.h"
#include "hosts/common/Console.h"

#include "platform/WindowsHeaders.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    ts::hosts::IgnoreZoneVariable();
    return ts::desktop::Run(ts::desktop::Parse(ts::hosts::CommandLineArguments()));
}
