#pragma once

#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

class CcvSoundUtilities
{
  public:
    /// Plays a sound by name: of the system, of a file or, with a module, of a resource. `flags` are those of
    /// PlaySound. False when there is no such sound or nothing to play it with.
    static BOOL PlaySoundHelper(const CString& sound, HINSTANCE module, DWORD flags);
};
