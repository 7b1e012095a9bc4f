#include "platform/ts/CcvSoundUtilities.h"

#include "platform/LoadedLibrary.h"

#include <bit>

namespace
{

using PlaySoundFunction = BOOL(WINAPI*)(LPCWSTR, HMODULE, DWORD);

/// The system's function, or null. Its library comes with the first sound and stays, for sounds that play on:
/// most programs never need it, and Wine's leaves a dozen handles behind each time it is unloaded.
PlaySoundFunction FindPlaySound()
{
    static const ts::LoadedLibrary library(
        LoadLibraryExW(L"winmm.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    return library == nullptr ? nullptr
                              : std::bit_cast<PlaySoundFunction>(GetProcAddress(library.get(), "PlaySoundW"));
}

} // namespace

BOOL CcvSoundUtilities::PlaySoundHelper(const CString& sound, HINSTANCE module, DWORD flags)
{
    const PlaySoundFunction play = FindPlaySound();
    return play != nullptr && play(sound, module, flags) != FALSE;
}
