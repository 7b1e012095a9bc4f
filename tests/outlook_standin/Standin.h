#pragma once

/// All that a test needs of the stand-in for Outlook. It is a test double: a calendar of its own behind the
/// few objects and members of Outlook's published object model that the library uses, with a log of every
/// call and faults on demand. That the library works with it says nothing about members or rules that it does
/// not have.

#include "tests/outlook_standin/InProcessOutlook.h"
#include "tests/outlook_standin/OutlookProcess.h"
