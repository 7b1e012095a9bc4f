// The views of the six recurrence options: one slot, several names.

#include "reminders/CcvReminderData.h"

void CcvReminderData::ResetRecurrenceOptions()
{
    m_recurrenceOption1 = 0;
    m_recurrenceOption2 = 0;
    m_recurrenceOption3 = 0;
    m_recurrenceOption4 = 0;
    m_recurrenceOption5 = 0;
    m_recurrenceOption6 = 0;
}

EcvReminderDailyOccurence CcvReminderData::GetDailyOccurrenceType() const
{
    return static_cast<EcvReminderDailyOccurence>(m_recurrenceOption1);
}

void CcvReminderData::SetDailyOccurenceType(EcvReminderDailyOccurence type)
{
    m_recurrenceOption1 = static_cast<std::int32_t>(type);
}

int CcvReminderData::GetDailyRecurrenceNumber() const
{
    return m_recurrenceOption2;
}

void CcvReminderData::SetDailyRecurrenceNumber(int days)
{
    m_recurrenceOption2 = days;
}

int CcvReminderData::GetWeeklyRecurrenceNumber() const
{
    return m_recurrenceOption1;
}

void CcvReminderData::SetWeeklyRecurrenceNumber(int weeks)
{
    m_recurrenceOption1 = weeks;
}

long CcvReminderData::GetWeeklyRecurrenceFlag() const
{
    return m_recurrenceOption2;
}

void CcvReminderData::SetWeeklyRecurrenceFlag(long days)
{
    m_recurrenceOption2 = days;
}

bool CcvReminderData::IsOnWeekday(int bit) const
{
    return (m_recurrenceOption2 >> bit & 1) != 0;
}

void CcvReminderData::SetOnWeekday(int bit, bool on)
{
    if (on)
    {
        m_recurrenceOption2 |= 1 << bit;
    }
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnSunday() const
{
    return IsOnWeekday(0);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnMonday() const
{
    return IsOnWeekday(1);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnTuesday() const
{
    return IsOnWeekday(2);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnWednesday() const
{
    return IsOnWeekday(3);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnThursday() const
{
    return IsOnWeekday(4);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnFriday() const
{
    return IsOnWeekday(5);
}

bool CcvReminderData::GetIsWeeklyRecurrenceOnSaturday() const
{
    return IsOnWeekday(6);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnSunday(bool on)
{
    SetOnWeekday(0, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnMonday(bool on)
{
    SetOnWeekday(1, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnTuesday(bool on)
{
    SetOnWeekday(2, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnWednesday(bool on)
{
    SetOnWeekday(3, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnThursday(bool on)
{
    SetOnWeekday(4, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnFriday(bool on)
{
    SetOnWeekday(5, on);
}

void CcvReminderData::SetIsWeeklyRecurrenceOnSaturday(bool on)
{
    SetOnWeekday(6, on);
}

EcvReminderMonthlyOccurence CcvReminderData::GetMonthlyOccurrenceType() const
{
    return static_cast<EcvReminderMonthlyOccurence>(m_recurrenceOption1);
}

void CcvReminderData::SetMonthlyOccurenceType(EcvReminderMonthlyOccurence type)
{
    m_recurrenceOption1 = static_cast<std::int32_t>(type);
}

int CcvReminderData::GetMonthlyRecurrentDayOfMonth() const
{
    return m_recurrenceOption2;
}

void CcvReminderData::SetMonthlyRecurrentDayOfMonth(int day)
{
    m_recurrenceOption2 = day;
}

int CcvReminderData::GetMonthlyReminderPattern1Month() const
{
    return m_recurrenceOption3;
}

void CcvReminderData::SetMonthlyReminderPattern1Month(int months)
{
    m_recurrenceOption3 = months;
}

EcvReminderDayIntegralType CcvReminderData::GetMonthlyReminderDayIntegralType() const
{
    return static_cast<EcvReminderDayIntegralType>(m_recurrenceOption4);
}

void CcvReminderData::SetMonthlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal)
{
    m_recurrenceOption4 = static_cast<std::int32_t>(ordinal);
}

long CcvReminderData::GetMonthlyReminderDayType() const
{
    return m_recurrenceOption5;
}

void CcvReminderData::SetMonthlyReminderDayType(long dayType)
{
    m_recurrenceOption5 = dayType;
}

int CcvReminderData::GetMonthlyReminderPattern2Month() const
{
    return m_recurrenceOption6;
}

void CcvReminderData::SetMonthlyReminderPattern2Month(int months)
{
    m_recurrenceOption6 = months;
}

EcvReminderYearlyOccurence CcvReminderData::GetYearlyOccurenceType() const
{
    return static_cast<EcvReminderYearlyOccurence>(m_recurrenceOption1);
}

void CcvReminderData::SetYearlyOccurenceType(EcvReminderYearlyOccurence type)
{
    m_recurrenceOption1 = static_cast<std::int32_t>(type);
}

int CcvReminderData::GetYearlyRecurrentDay() const
{
    return m_recurrenceOption2;
}

void CcvReminderData::SetYearlyRecurrentDay(int day)
{
    m_recurrenceOption2 = day;
}

EcvMonth CcvReminderData::GetYearlyReminderPattern1Month() const
{
    return static_cast<EcvMonth>(m_recurrenceOption3);
}

void CcvReminderData::SetYearlyReminderPattern1Month(EcvMonth month)
{
    m_recurrenceOption3 = static_cast<std::int32_t>(month);
}

EcvReminderDayIntegralType CcvReminderData::GetYearlyReminderDayIntegralType() const
{
    return static_cast<EcvReminderDayIntegralType>(m_recurrenceOption4);
}

void CcvReminderData::SetYearlyReminderDayIntegralType(EcvReminderDayIntegralType ordinal)
{
    m_recurrenceOption4 = static_cast<std::int32_t>(ordinal);
}

long CcvReminderData::GetYearlyReminderDayType() const
{
    return m_recurrenceOption5;
}

void CcvReminderData::SetYearlyReminderDayType(long dayType)
{
    m_recurrenceOption5 = dayType;
}

EcvMonth CcvReminderData::GetYearlyReminderPattern2Month() const
{
    return static_cast<EcvMonth>(m_recurrenceOption6);
}

void CcvReminderData::SetYearlyReminderPattern2Month(EcvMonth month)
{
    m_recurrenceOption6 = static_cast<std::int32_t>(month);
}
