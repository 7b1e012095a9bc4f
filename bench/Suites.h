#pragma once

#include "bench/Harness.h"

namespace ts::bench
{

/// One step to the next occurrence, per pattern, and the calendar question behind ordinal patterns.
void MeasureSteps(Harness& harness);
/// The due time of reminders that began 20 years ago.
void MeasureCatchUp(Harness& harness);
/// Loading and saving 1,000 reminders, in a registry key of this process.
void MeasureStore(Harness& harness);
/// Loading, finding and changing reminders through the collection manager.
void MeasureCollection(Harness& harness);
/// Making an appointment; only where the stand-in for Outlook is built (TS_WITH_OUTLOOK_STANDIN).
void MeasureOutlook(Harness& harness);
/// The reminder list with 10,000 rows.
void MeasureList(Harness& harness);

} // namespace ts::bench
