#pragma once

#include "hosts/common/Errors.h"

namespace ts::console
{

using hosts::OperationError;
using hosts::UsageError;

} // namespace ts::console
