#pragma once

#include <string_view>

namespace ts::hosts
{

/// Tells the user something, in UTF-8. A program with windows has no console of its own: the text goes to a
/// standard handle that was redirected, else to the console that the program was started from, else into a
/// message box of that title.
void Tell(std::string_view text, bool isError, const wchar_t* title);

} // namespace ts::hosts
