#pragma once

#include "platform/Export.h"

namespace ts
{

/// Makes the library show its texts in `language` (L"en", L"de", L"fr", or with a region), from the next text
/// on and in the whole process; null goes back to the interface languages of the user. A language for which
/// there is no library gives English. For hosts that let their user choose. Any thread.
TS_API void SetInterfaceLanguage(const wchar_t* language);

} // namespace ts
