#pragma once

#include "platform/KernelHandle.h"

namespace ts::desktop
{

/// Posted to the main window of the running application by one that the user started beside it: the user
/// wants to see it.
inline constexpr UINT kShowMessage = WM_APP + 1;

/// Makes this process the application of the user's session, for as long as the object lives. Lives on one
/// thread.
class SingleInstance
{
  public:
    enum class Outcome
    {
        First,  ///< this process is the application
        Second, ///< another one is, and has a window
        Refused ///< another one is about to end, and takes too long
    };

    SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    [[nodiscard]] Outcome GetOutcome() const noexcept { return m_outcome; }

    /// Has the other application show itself.
    static void ShowOther();

  private:
    [[nodiscard]] Outcome Compete() const;

    KernelHandle m_mutex;
    Outcome m_outcome;
};

} // namespace ts::desktop
