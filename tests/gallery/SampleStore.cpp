#include "tests/gallery/SampleStore.h"

#include "module/RegistryPaths.h"
#include "platform/Clock.h"
#include "reminders/CcvReminderData.h"

#include <array>
#include <stdexcept>

namespace ts::gallery
{
namespace
{

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;

std::int64_t Noon() noexcept
{
    static const std::int64_t noon = CTime(2026, 11, 21, 12, 0, 0).GetTime();
    return noon;
}

struct Sample
{
    std::int64_t dueIn;
    std::int64_t lead;
    EcvReminderRecurrenceType type;
};

constexpr std::size_t kCount = 8;
using enum EcvReminderRecurrenceType;
constexpr std::array<Sample, kCount> kSamples = {{{-3 * kDay, 0, None},
                                                  {-20 * kMinute, 15 * kMinute, Weekly},
                                                  {10 * kMinute, 15 * kMinute, None},
                                                  {5 * kHour, 8 * kHour, Daily},
                                                  {2 * kDay, kHour, None},
                                                  {9 * kDay, 14 * kDay, Monthly},
                                                  {45 * kDay, kDay, None},
                                                  {400 * kDay, kDay, Yearly}}};

struct Words
{
    const wchar_t* subject;
    const wchar_t* document;
};

constexpr std::array<Words, kCount> kEnglish = {
    {{L"Send the signed contract back", L"Customers"},
     {L"Team meeting", L"Weekly plan"},
     {L"Call Dr. Miller & ask for the figures", L"Budget"},
     {L"Water the plants", L"Home"},
     {L"Book the train to Prague before the prices go up", L"Conference in the spring"},
     {L"Pay the rent", L"Home"},
     {L"Renew the passport", L"Travel"},
     {L"Wedding anniversary", L"Family"}}};
constexpr std::array<Words, kCount> kGerman = {
    {{L"Unterschriebenen Vertrag zur\u00FCcksenden", L"Kunden"},
     {L"Teambesprechung", L"Wochenplan"},
     {L"Dr. M\u00FCller anrufen & nach den Zahlen fragen", L"Haushaltsplanung"},
     {L"Pflanzen gie\u00DFen", L"Zuhause"},
     {L"Bahnfahrt nach Prag buchen, bevor die Preise steigen", L"Fachtagung im Fr\u00FChjahr"},
     {L"Miete \u00FCberweisen", L"Zuhause"},
     {L"Reisepass verl\u00E4ngern", L"Reisen"},
     {L"Hochzeitstag", L"Familie"}}};
constexpr std::array<Words, kCount> kFrench = {
    {{L"Renvoyer le contrat sign\u00E9", L"Clients"},
     {L"R\u00E9union d\u2019\u00E9quipe", L"Plan de la semaine"},
     {L"Appeler le Dr Meunier & demander les chiffres", L"Budget pr\u00E9visionnel"},
     {L"Arroser les plantes", L"Maison"},
     {L"R\u00E9server le train pour Prague avant la hausse des prix", L"Conf\u00E9rence du printemps"},
     {L"Payer le loyer", L"Maison"},
     {L"Renouveler le passeport", L"Voyages"},
     {L"Anniversaire de mariage", L"Famille"}}};

const std::array<Words, kCount>& WordsOf(std::string_view language)
{
    return language == "de" ? kGerman : language == "fr" ? kFrench : kEnglish;
}

void SetPattern(CcvReminderData& reminder, EcvReminderRecurrenceType type)
{
    reminder.SetRecurrenceType(type);
    if (type == Daily)
    {
        reminder.SetDailyRecurrenceNumber(1);
    }
    else if (type == Weekly)
    {
        reminder.SetWeeklyRecurrenceNumber(1);
        reminder.SetWeeklyRecurrenceFlag(64);
    }
    else if (type == Monthly)
    {
        reminder.SetMonthlyRecurrentDayOfMonth(30);
        reminder.SetMonthlyReminderPattern1Month(1);
    }
    else if (type == Yearly)
    {
        reminder.SetYearlyRecurrentDay(26);
        reminder.SetYearlyReminderPattern1Month(EcvMonth::December);
    }
}

} // namespace

void StopClock() noexcept
{
    ReplaceClock(Noon);
}

void FillStore(std::string_view language)
{
    for (std::size_t index = 0; index < kCount; ++index)
    {
        const Sample& sample = kSamples[index];
        const Words& words = WordsOf(language)[index];
        CcvReminderData reminder{CString()};
        reminder.SetSubject(words.subject);
        reminder.SetDocumentTitle(words.document);
        reminder.SetDocumentPath(CString(L"C:\\Maps\\") + words.document);
        const wchar_t digit[] = {static_cast<wchar_t>(L'0' + index), L'\0'};
        reminder.SetMapGuid(CString(L"{map ") + digit + L"}");
        reminder.SetObjectGuid(L"{topic}");
        SetPattern(reminder, sample.type);
        reminder.SetInitialDueDate(CTime(Noon() + sample.dueIn));
        reminder.SetNextDueDate(CTime(Noon() + sample.dueIn));
        reminder.SetReminderTimeSpan(sample.lead);
        if (!reminder.SaveDataToRegistry(kRemindersPath))
        {
            throw std::runtime_error("a reminder cannot be stored");
        }
    }
}

} // namespace ts::gallery
