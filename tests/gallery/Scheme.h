#pragma once

namespace ts::gallery
{

/// Sets the system's colours to white on black with a bright highlight, for as long as the desktop lives.
void UseHighContrast();

} // namespace ts::gallery
