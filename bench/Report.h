#pragma once

#include "bench/Harness.h"

#include <ostream>

namespace ts::bench
{

/// Writes the results as a table: per group what the baseline is, then one line per comparison.
void WriteTable(std::ostream& out, const Harness& harness);
/// Writes the results as one JSON document, with the least and the greatest sample beside each median.
void WriteJson(std::ostream& out, const Harness& harness);

} // namespace ts::bench
