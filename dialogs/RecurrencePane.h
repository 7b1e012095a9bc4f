#pragma once

#include "dialogs/DialogMessageHook.h"
#include "platform/mfc/BasicControls.h"
#include "reminders/CcvReminderData.h"

class CDataExchange;
class CTime;

/// What the recurrence panes have in common.
namespace ts
{

/// Gives a command such as IDOK to the dialog around a pane.
void PassToOuterDialog(const CWnd& pane, UINT command);
/// Gives OK to it, after which the pane is offered no more keys by itself.
void PassOkToOuterDialog(const CWnd& pane, DialogMessageRegistration& messages);

// Each appends its entries to a combo box, with texts in the interface language.

/// January to December; the data is the EcvMonth. Selects January.
void FillMonths(CComboBox& combo);
/// First to last, in the order of EcvReminderDayIntegralType. Selects the first.
void FillOrdinals(CComboBox& combo);
/// The day types; the data is the EcvReminderDayType. Sunday comes first of the weekdays in English, last in
/// German and French. Selects nothing.
void FillDayTypes(CComboBox& combo);

/// The position of a day type among those that CcvReminderDataUtilities::GetDayTypeArray gives, 0 for any
/// other value. In German and French the combo boxes are not in this order.
[[nodiscard]] int DayTypeIndexOf(long dayType);
/// The month's entry, 0 for what is no month.
[[nodiscard]] int MonthIndexOf(EcvMonth month) noexcept;

// Suggestions for a pattern that starts at `start`, by its local date.

[[nodiscard]] int SuggestedOrdinalIndex(const CTime& start) noexcept;
/// The entry of the weekday; in German and French the one before it on a Sunday.
[[nodiscard]] int SuggestedDayTypeIndex(const CTime& start);

// Data exchange.

/// The index of the selected radio button of a group. An index that no button has selects the first.
void ExchangeRadio(CDataExchange* exchange, int id, int& index);
/// The index of the selected entry. An index that no entry has selects the first.
void ExchangeIndex(CDataExchange* exchange, int id, int& index);
/// The index, and in both directions the data of the entry there.
void ExchangeEntry(CDataExchange* exchange, int id, int& index, int& data);

// Refusals: they tell the user why and end the exchange with the focus on an edit control.

[[noreturn]] void Refuse(CDataExchange* exchange, int editId, const wchar_t* why);
[[noreturn]] void RefuseBelowOne(CDataExchange* exchange, int editId);
/// Goes on when the user agrees.
void AskToAccept(CDataExchange* exchange, int editId, const wchar_t* question);

} // namespace ts
