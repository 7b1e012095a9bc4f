#include "module/InterfaceLanguage.h"

#include "platform/ts/ResourceDLL.h"

void ts::SetInterfaceLanguage(const wchar_t* language)
{
    ResourceDLL::SetPreferredLanguage(language);
}
