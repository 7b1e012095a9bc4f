#include "RegistrySandbox.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    _putenv("TZ=");
    _tzset();
    testing::InitGoogleTest(&argc, argv);
    const RegistrySandbox sandbox;
    return RUN_ALL_TESTS();
}
