#pragma once

#include "platform/KernelHandle.h"

namespace ts::hosts
{

/// The right to be the one process of its kind in a user's session. It goes with its owner, also when that
/// one is killed. Lives on one thread.
class SingleInstance
{
  public:
    /// `name` is that of the kind. Raises OperationError when the system refuses.
    explicit SingleInstance(const wchar_t* name);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    /// Competes for it until `findOther` finds the window of the process that has it: one that is starting
    /// will have a window soon, and one that is ending will let go. The window, or null when the right is
    /// ours. Raises OperationError when neither comes about.
    template <typename FindOther>
    [[nodiscard]] HWND Compete(FindOther findOther)
    {
        constexpr int kAttempts = 400;
        for (int attempt = 0; attempt < kAttempts && !m_isOwner; ++attempt)
        {
            if (Acquire())
            {
                break;
            }
            if (const HWND other = findOther(); other != nullptr)
            {
                return other;
            }
        }
        RequireOwner();
        return nullptr;
    }

  private:
    /// Waits for it a moment.
    bool Acquire();
    void RequireOwner() const;

    KernelHandle m_mutex;
    bool m_isOwner = false;
};

/// Asks the process of that window to come to the front, by a message of its own. The user has just started
/// this process, so it may give away the foreground.
void HandOver(HWND other, UINT message) noexcept;

} // namespace ts::hosts
