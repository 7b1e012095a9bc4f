#include "dialogs/CcvMfcAddReminderDialog.h"

#include "dialogs/CcvMfcAddReminderDialogInternal.h"
#include "module/ResourceScope.h"

#include <memory>

CcvMfcAddReminderDialog::CcvMfcAddReminderDialog(CWnd* parent)
{
    const ts::ResourceScope scope;
    SetInternalDialog(std::make_unique<CcvMfcAddReminderDialogInternal>(parent).release());
}

CcvMfcAddReminderDialog::CcvMfcAddReminderDialog(CcvMfcAddReminderDialog&& other) noexcept = default;

CcvMfcAddReminderDialog::~CcvMfcAddReminderDialog() = default;

CcvReminderData* CcvMfcAddReminderDialog::GetReminderData()
{
    return Dialog().GetReminderData();
}

void CcvMfcAddReminderDialog::UpdateReminderData(const CcvReminderData* record)
{
    Dialog().UpdateReminderData(*record);
}

void CcvMfcAddReminderDialog::SetDialogCaption(const CString& caption)
{
    Dialog().SetDialogCaption(caption);
}

CcvMfcAddReminderDialogInternal& CcvMfcAddReminderDialog::Dialog() const
{
    return dynamic_cast<CcvMfcAddReminderDialogInternal&>(*GetInternalDialog());
}
