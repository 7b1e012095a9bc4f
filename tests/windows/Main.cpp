#include "tests/support/TestDesktop.h"

namespace
{

[[maybe_unused]] testing::Environment* const g_desktop =
    testing::AddGlobalTestEnvironment(std::make_unique<ts::test::TestDesktop>().release());

} // namespace
