#include "ReminderDialog.h"

#include "Errors.h"

#include <memory>
#include <type_traits>

namespace ts::console
{
namespace
{

struct ScreenRelease
{
    void operator()(HDC screen) const noexcept { ReleaseDC(nullptr, screen); }
};

} // namespace

bool HasDisplay()
{
    USEROBJECTFLAGS flags{};
    if (GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) ==
            FALSE ||
        (flags.dwFlags & WSF_VISIBLE) == 0)
    {
        return false;
    }
    // What has no pixels is no screen.
    const std::unique_ptr<std::remove_pointer_t<HDC>, ScreenRelease> screen(GetDC(nullptr));
    return screen != nullptr && GetPixel(screen.get(), 0, 0) != CLR_INVALID;
}

bool EditInDialog(const Session& session, CcvReminderData& reminder, const CString& caption)
{
    const char* const kNoDisplay = "the dialog cannot be shown: there is no display";
    if (!session.hasDisplay())
    {
        throw OperationError(kNoDisplay);
    }
    CcvMfcAddReminderDialog dialog;
    if (!caption.IsEmpty())
    {
        dialog.SetDialogCaption(caption);
    }
    dialog.UpdateReminderData(&reminder);
    const INT_PTR result = dialog.DoModal();
    if (result == -1)
    {
        throw OperationError(kNoDisplay);
    }
    if (result == IDOK)
    {
        reminder = *dialog.GetReminderData();
    }
    return result == IDOK;
}

} // namespace ts::console
