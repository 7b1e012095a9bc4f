#pragma once

#include "platform/mfc/afx.h"
#include "reminders/CcvReminderData.h"

/// What the Outlook worker does for one queued command. Lives on the worker's stack for one execution, and
/// uses a record that belongs to the queue's entry; executing may change the record's Outlook identifiers.
///
/// Only adding works on a reminder that has no Outlook object GUID; the others do nothing then.
class CcvOutlookCommand : public CObject
{
    DECLARE_DYNAMIC(CcvOutlookCommand)

  public:
    virtual void Execute() = 0;

  protected:
    explicit CcvOutlookCommand(CcvReminderData* record) noexcept : m_record(record) {}
    [[nodiscard]] bool IsInOutlook() const;

    CcvReminderData* m_record;
};

class CcvAddReminderToOutlookCommand : public CcvOutlookCommand
{
    DECLARE_DYNAMIC(CcvAddReminderToOutlookCommand)

  public:
    explicit CcvAddReminderToOutlookCommand(CcvReminderData* record) noexcept : CcvOutlookCommand(record) {}
    void Execute() override;
};

class CcvModifyReminderInOutlookCommand : public CcvOutlookCommand
{
    DECLARE_DYNAMIC(CcvModifyReminderInOutlookCommand)

  public:
    explicit CcvModifyReminderInOutlookCommand(CcvReminderData* record) noexcept : CcvOutlookCommand(record)
    {
    }
    void Execute() override;
};

class CcvRemoveReminderFromOutlookCommand : public CcvOutlookCommand
{
    DECLARE_DYNAMIC(CcvRemoveReminderFromOutlookCommand)

  public:
    explicit CcvRemoveReminderFromOutlookCommand(CcvReminderData* record) noexcept : CcvOutlookCommand(record)
    {
    }
    void Execute() override;
};

class CcvDismissReminderInOutlookCommand : public CcvOutlookCommand
{
    DECLARE_DYNAMIC(CcvDismissReminderInOutlookCommand)

  public:
    /// `previousDueDate` is the due time (UTC) of the occurrence that was dismissed.
    CcvDismissReminderInOutlookCommand(CcvReminderData* record, const CTime& previousDueDate) noexcept
        : CcvOutlookCommand(record), m_previousDueDate(previousDueDate)
    {
    }
    void Execute() override;

  private:
    CTime m_previousDueDate;
};
