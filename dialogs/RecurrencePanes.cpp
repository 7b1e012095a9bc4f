#include "dialogs/RecurrencePanes.h"

#include "resources/RecurrenceControls.h"

namespace ts
{

void RecurrencePanes::Create(CWnd& dialog)
{
    constexpr std::array<UINT, kCount> kTemplates{IDD_RECURRENCE_DAILY, IDD_RECURRENCE_WEEKLY,
                                                  IDD_RECURRENCE_MONTHLY, IDD_RECURRENCE_YEARLY};
    for (std::size_t kind = 0; kind < m_panes.size(); ++kind)
    {
        m_panes.at(kind)->Create(kTemplates.at(kind), &dialog);
        m_panes.at(kind)->ShowWindow(SW_HIDE);
    }
}

void RecurrencePanes::Load(const CcvReminderData& record)
{
    switch (record.GetRecurrenceType())
    {
    case EcvReminderRecurrenceType::Daily:
        LoadDaily(record);
        break;
    case EcvReminderRecurrenceType::Weekly:
        LoadWeekly(record);
        break;
    case EcvReminderRecurrenceType::Monthly:
        LoadMonthly(record);
        break;
    case EcvReminderRecurrenceType::Yearly:
        LoadYearly(record);
        break;
    default:
        return;
    }
    CWnd& pane = Pane(static_cast<int>(record.GetRecurrenceType()) - 1);
    if (pane.m_hWnd != nullptr)
    {
        pane.UpdateData(FALSE);
    }
}

bool RecurrencePanes::Accept(int kind) const
{
    CWnd& pane = Pane(kind);
    return pane.m_hWnd == nullptr || pane.UpdateData(TRUE) != FALSE;
}

void RecurrencePanes::Store(int kind, CcvReminderData& record) const
{
    const auto type = static_cast<EcvReminderRecurrenceType>(kind + 1);
    record.SetRecurrenceType(type);
    switch (type)
    {
    case EcvReminderRecurrenceType::Daily:
        StoreDaily(record);
        break;
    case EcvReminderRecurrenceType::Weekly:
        StoreWeekly(record);
        break;
    case EcvReminderRecurrenceType::Monthly:
        StoreMonthly(record);
        break;
    default:
        StoreYearly(record);
        break;
    }
}

void RecurrencePanes::LoadDaily(const CcvReminderData& record)
{
    m_daily.SetDailyOccurenceType(record.GetDailyOccurrenceType());
    m_daily.SetDailyNumber(record.GetDailyRecurrenceNumber());
}

void RecurrencePanes::StoreDaily(CcvReminderData& record) const
{
    record.SetDailyOccurenceType(m_daily.GetDailyOccurenceType());
    record.SetDailyRecurrenceNumber(m_daily.GetDailyNumber());
}

void RecurrencePanes::LoadWeekly(const CcvReminderData& record)
{
    m_weekly.SetWeeklyNumber(record.GetWeeklyRecurrenceNumber());
    m_weekly.SetIsRecurrentOnSunday(record.GetIsWeeklyRecurrenceOnSunday());
    m_weekly.SetIsRecurrentOnMonday(record.GetIsWeeklyRecurrenceOnMonday());
    m_weekly.SetIsRecurrentOnTuesday(record.GetIsWeeklyRecurrenceOnTuesday());
    m_weekly.SetIsRecurrentOnWednesday(record.GetIsWeeklyRecurrenceOnWednesday());
    m_weekly.SetIsRecurrentOnThursday(record.GetIsWeeklyRecurrenceOnThursday());
    m_weekly.SetIsRecurrentOnFriday(record.GetIsWeeklyRecurrenceOnFriday());
    m_weekly.SetIsRecurrentOnSaturday(record.GetIsWeeklyRecurrenceOnSaturday());
}

void RecurrencePanes::StoreWeekly(CcvReminderData& record) const
{
    record.SetWeeklyRecurrenceNumber(m_weekly.GetWeeklyNumber());
    record.SetIsWeeklyRecurrenceOnSunday(m_weekly.GetIsRecurrentOnSunday());
    record.SetIsWeeklyRecurrenceOnMonday(m_weekly.GetIsRecurrentOnMonday());
    record.SetIsWeeklyRecurrenceOnTuesday(m_weekly.GetIsRecurrentOnTuesday());
    record.SetIsWeeklyRecurrenceOnWednesday(m_weekly.GetIsRecurrentOnWednesday());
    record.SetIsWeeklyRecurrenceOnThursday(m_weekly.GetIsRecurrentOnThursday());
    record.SetIsWeeklyRecurrenceOnFriday(m_weekly.GetIsRecurrentOnFriday());
    record.SetIsWeeklyRecurrenceOnSaturday(m_weekly.GetIsRecurrentOnSaturday());
}

void RecurrencePanes::LoadMonthly(const CcvReminderData& record)
{
    m_monthly.SetMonthlyOccurenceType(record.GetMonthlyOccurrenceType());
    m_monthly.SetMonthlyReminderPattern1Month(record.GetMonthlyReminderPattern1Month());
    m_monthly.SetMonthlyReminderPattern2Month(record.GetMonthlyReminderPattern2Month());
    m_monthly.SetMonthlyRecurrentDayOfMonth(record.GetMonthlyRecurrentDayOfMonth());
    m_monthly.SetMonthlyReminderDayIntegralType(record.GetMonthlyReminderDayIntegralType());
    m_monthly.SetMonthlyReminderDayType(record.GetMonthlyReminderDayType());
}

void RecurrencePanes::StoreMonthly(CcvReminderData& record) const
{
    record.SetMonthlyOccurenceType(m_monthly.GetMonthlyOccurenceType());
    record.SetMonthlyReminderPattern1Month(m_monthly.GetMonthlyReminderPattern1Month());
    record.SetMonthlyReminderPattern2Month(m_monthly.GetMonthlyReminderPattern2Month());
    record.SetMonthlyRecurrentDayOfMonth(m_monthly.GetMonthlyRecurrentDayOfMonth());
    record.SetMonthlyReminderDayIntegralType(m_monthly.GetMonthlyReminderDayIntegralType());
    record.SetMonthlyReminderDayType(m_monthly.GetMonthlyReminderDayType());
}

void RecurrencePanes::LoadYearly(const CcvReminderData& record)
{
    m_yearly.SetYearlyOccurenceType(record.GetYearlyOccurenceType());
    m_yearly.SetYearlyReminderPattern1Month(record.GetYearlyReminderPattern1Month());
    m_yearly.SetYearlyReminderPattern2Month(record.GetYearlyReminderPattern2Month());
    m_yearly.SetYearlyRecurrentDay(record.GetYearlyRecurrentDay());
    m_yearly.SetYearlyReminderDayIntegralType(record.GetYearlyReminderDayIntegralType());
    m_yearly.SetYearlyReminderDayType(record.GetYearlyReminderDayType());
}

void RecurrencePanes::StoreYearly(CcvReminderData& record) const
{
    record.SetYearlyOccurenceType(m_yearly.GetYearlyOccurenceType());
    record.SetYearlyReminderPattern1Month(m_yearly.GetYearlyReminderPattern1Month());
    record.SetYearlyReminderPattern2Month(m_yearly.GetYearlyReminderPattern2Month());
    record.SetYearlyRecurrentDay(m_yearly.GetYearlyRecurrentDay());
    record.SetYearlyReminderDayIntegralType(m_yearly.GetYearlyReminderDayIntegralType());
    record.SetYearlyReminderDayType(m_yearly.GetYearlyReminderDayType());
}

} // namespace ts
