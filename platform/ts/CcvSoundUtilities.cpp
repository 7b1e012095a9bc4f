#include "platform/ts/CcvSoundUtilities.h"

#include <mmsystem.h>

BOOL CcvSoundUtilities::PlaySoundHelper(const CString& sound, HINSTANCE module, DWORD flags)
{
    return PlaySoundW(sound, module, flags);
}
