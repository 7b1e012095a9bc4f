#pragma once

#include <gtest/gtest.h>

namespace ts::test
{

/// Gives the program's windows a desktop of their own, so that programs that run at the same time do not take
/// each other's focus. Register it as an environment: it must come before the first window.
class TestDesktop : public testing::Environment
{
  public:
    void SetUp() override;
};

} // namespace ts::test
