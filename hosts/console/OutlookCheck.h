#pragma once

#include "OutlookReader.h"
#include "Session.h"
#include "Store.h"

#include <string>

namespace ts::console
{

/// Adds a reminder to Outlook, changes, dismisses and deletes it, and looks after each step whether Outlook
/// has what it should. Nothing of it is left in the end, whatever happens.
class OutlookCheck
{
  public:
    /// Raises OperationError when the mirror in Outlook is off or Outlook cannot be started.
    explicit OutlookCheck(const Session& session);
    OutlookCheck(const OutlookCheck&) = delete;
    OutlookCheck& operator=(const OutlookCheck&) = delete;
    ~OutlookCheck() = default;

    /// Prints how each step went. Raises OperationError when one failed.
    void Run();

  private:
    using Step = void (OutlookCheck::*)();

    void RunSteps();
    /// Whether the step was verified.
    bool Report(const char* name, Step step);
    void Add();
    void Modify();
    void Dismiss();
    void Remove();
    void AwaitOutlook() const;
    void AwaitIdentifiers();
    [[nodiscard]] std::optional<OutlookObject> FindAppointment() const;
    /// The same, which must be there.
    [[nodiscard]] OutlookObject Appointment() const;
    void CleanUp();

    const Session& m_session;
    Store m_store;
    OutlookReader m_outlook;
    CcvReminderData m_reminder;
    int m_failures = 0;
    bool m_removed = false;
};

} // namespace ts::console
