#include "OutlookCheck.h"

#include "DisplayText.h"
#include "Errors.h"
#include "Strings.h"
#include "TimeText.h"

#include <array>
#include <cmath>

namespace ts::console
{
namespace
{

constexpr wchar_t kSubject[] = L"Check of the reminders in Outlook (may be deleted)";
constexpr wchar_t kChangedSubject[] = L"Check of the reminders in Outlook, changed (may be deleted)";
constexpr int kHour = 9;
constexpr CTimeSpan kOneDay(86'400);
constexpr long kRecursDaily = 0; // olRecursDaily

void Require(bool condition, const std::string& reason)
{
    if (!condition)
    {
        throw OperationError(reason);
    }
}

bool IsSameTime(DATE left, DATE right)
{
    constexpr DATE kHalfASecond = 0.5 / 86'400;
    return std::abs(left - right) < kHalfASecond;
}

CString NewGuid()
{
    GUID guid{};
    // 38 characters and the terminator.
    std::array<wchar_t, 39> text{};
    Require(SUCCEEDED(CoCreateGuid(&guid)) &&
                StringFromGUID2(guid, text.data(), static_cast<int>(text.size())) != 0,
            "no GUID can be made");
    return {text.data()};
}

/// Due every day from tomorrow, at a time of day that no change of the clocks touches.
CcvReminderData TestReminder()
{
    const CTime tomorrow = CTime::GetCurrentTime() + kOneDay;
    const CTime due(tomorrow.GetYear(), tomorrow.GetMonth(), tomorrow.GetDay(), kHour, 0, 0);
    CcvReminderData reminder{CString()};
    reminder.SetDocumentPath(L"reminders outlook-check");
    reminder.SetMapGuid(NewGuid());
    reminder.SetObjectGuid(NewGuid());
    reminder.SetSubject(kSubject);
    reminder.SetRecurrenceType(EcvReminderRecurrenceType::Daily);
    reminder.SetDailyOccurenceType(EcvReminderDailyOccurence::EveryNDays);
    reminder.SetDailyRecurrenceNumber(1);
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    return reminder;
}

Store::Outlook RequireMirror()
{
    Require(CcvReminderOptionUtilities::GetSynchronizeOutlookAppointments(),
            "reminders are not mirrored in Outlook: see 'reminders options outlook'");
    return Store::Outlook::Mirrored;
}

void CheckSubject(const OutlookObject& appointment, const CString& expected)
{
    const CString subject = appointment.Text(L"Subject");
    Require(subject == expected, "its subject is " + Quoted(FromLibrary(subject)));
}

void CheckEveryNDays(const OutlookObject& appointment, long days)
{
    Require(appointment.Number(L"IsRecurring") != 0, "it does not recur");
    const OutlookObject pattern = appointment.Object(L"GetRecurrencePattern");
    const long type = pattern.Number(L"RecurrenceType");
    const long interval = pattern.Number(L"Interval");
    Require(type == kRecursDaily && interval == days, "it recurs in another pattern (type " +
                                                          std::to_string(type) + ", interval " +
                                                          std::to_string(interval) + ")");
}

} // namespace

OutlookCheck::OutlookCheck(const Session& session)
    : m_session(session), m_store(RequireMirror()), m_reminder(TestReminder())
{
}

void OutlookCheck::Run()
{
    try
    {
        RunSteps();
    }
    catch (...)
    {
        CleanUp();
        throw;
    }
    CleanUp();
    Require(m_failures == 0, "Outlook does not mirror reminders as it should");
    m_session.out << "Outlook mirrors reminders as it should.\n";
}

void OutlookCheck::RunSteps()
{
    // Without an appointment there is nothing to change.
    if (Report("add", &OutlookCheck::Add))
    {
        Report("modify", &OutlookCheck::Modify);
        Report("dismiss", &OutlookCheck::Dismiss);
        Report("remove", &OutlookCheck::Remove);
    }
}

bool OutlookCheck::Report(const char* name, Step step)
{
    std::string result = "verified";
    try
    {
        (this->*step)();
    }
    catch (const OperationError& error)
    {
        ++m_failures;
        result = std::string("failed: ") + error.what();
    }
    m_session.out << name << ": " << Printable(result) << "\n";
    m_session.out.flush();
    return result == "verified";
}

void OutlookCheck::Add()
{
    m_store.Add(m_reminder);
    AwaitIdentifiers();
    Require(!m_reminder.GetOutlookObjectGuid().IsEmpty(), "no appointment was made");
    const OutlookObject appointment = Appointment();
    CheckSubject(appointment, kSubject);
    CheckEveryNDays(appointment, 1);
    Require(IsSameTime(appointment.Date(L"Start"), OutlookDate(m_reminder.GetInitialDueDate())),
            "it begins at another time");
    Require(appointment.Number(L"ReminderSet") == 0, "Outlook reminds of it, too");
}

void OutlookCheck::Modify()
{
    m_reminder.SetSubject(kChangedSubject);
    m_reminder.SetDailyRecurrenceNumber(2);
    m_store.Modify(m_reminder);
    AwaitIdentifiers();
    const OutlookObject appointment = Appointment();
    CheckSubject(appointment, kChangedSubject);
    CheckEveryNDays(appointment, 2);
}

void OutlookCheck::Dismiss()
{
    const DATE dismissed = OutlookDate(m_reminder.GetNextDueDate());
    Require(HasOccurrence(Appointment(), dismissed), "the occurrence to dismiss is not in the calendar");
    m_store.Dismiss(m_reminder);
    AwaitIdentifiers();
    const OutlookObject appointment = Appointment();
    Require(!HasOccurrence(appointment, dismissed), "the dismissed occurrence is still in the calendar");
    Require(appointment.Number(L"IsRecurring") != 0, "the series has ended");
    Require(HasOccurrence(appointment, dismissed + 2), "the next occurrence has gone, too");
}

void OutlookCheck::Remove()
{
    m_store.Delete(m_reminder);
    AwaitOutlook();
    Require(!FindAppointment(), "it is still in the calendar");
    m_removed = true;
}

void OutlookCheck::AwaitOutlook() const
{
    Require(m_store.AwaitOutlook(m_session.outlookPatience),
            "Outlook was not done with it after " + SpanText(m_session.outlookPatience));
}

/// Gets the appointment's identifiers, which the library stored.
void OutlookCheck::AwaitIdentifiers()
{
    AwaitOutlook();
    m_store.Reload();
    m_reminder = m_store.Get(FromLibrary(m_reminder.GetReminderKey()));
}

/// Deletes what is left of the reminder and of its appointment. Raises nothing of its own.
void OutlookCheck::CleanUp()
{
    if (m_removed)
    {
        return;
    }
    try
    {
        m_store.Reload();
        m_reminder = m_store.Get(FromLibrary(m_reminder.GetReminderKey()));
        m_store.Delete(m_reminder);
    }
    catch (const OperationError&)
    {
        // There is none, as it should be.
    }
    try
    {
        AwaitOutlook();
        if (const auto left = FindAppointment())
        {
            left->Ask(L"Delete");
        }
    }
    catch (const OperationError& error)
    {
        m_session.err << "reminders: look for an appointment named " << Quoted(FromLibrary(kSubject))
                      << " in the calendar and delete it (" << Printable(error.what()) << ")\n";
        m_store.AbandonOutlook();
    }
}

std::optional<OutlookObject> OutlookCheck::FindAppointment() const
{
    if (m_reminder.GetOutlookObjectGuid().IsEmpty())
    {
        return std::nullopt;
    }
    return m_outlook.FindAppointment(m_reminder.GetOutlookEntryId(), m_reminder.GetOutlookObjectGuid());
}

OutlookObject OutlookCheck::Appointment() const
{
    const auto appointment = FindAppointment();
    if (!appointment)
    {
        throw OperationError("the appointment is not in the calendar");
    }
    return *appointment;
}

} // namespace ts::console
