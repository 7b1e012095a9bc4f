#include "outlook/OutlookApplication.h"

#include "module/CcvReminderOptionUtilities.h"
#include "outlook/OutlookMembers.h"

#include <exception>
#include <objbase.h>

namespace
{

/// The marker that a synchronisation is in progress, while it lives.
class InProgressMark
{
  public:
    InProgressMark() { CcvReminderOptionUtilities::SetSynchronizeInProgress(true); }
    InProgressMark(const InProgressMark&) = delete;
    InProgressMark& operator=(const InProgressMark&) = delete;
    ~InProgressMark()
    {
        try
        {
            CcvReminderOptionUtilities::SetSynchronizeInProgress(false);
        }
        catch (const std::exception&)
        {
            // Without memory the mark cannot be taken away; that must not end the program.
        }
    }
};

} // namespace

std::optional<ts::AutomationObject> ts::CreateOutlookApplication()
{
    const InProgressMark mark;
    // A thread that is in an apartment of another kind already serves as well.
    CoInitialize(nullptr);
    void* created = nullptr;
    CoCreateInstance(outlook::kApplicationClass, nullptr, CLSCTX_LOCAL_SERVER, outlook::kApplicationInterface,
                     &created);
    if (created == nullptr)
    {
        return std::nullopt;
    }
    return AutomationObject(DispatchPtr(static_cast<IDispatch*>(created), false));
}
