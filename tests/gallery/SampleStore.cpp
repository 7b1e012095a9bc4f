#include "tests/gallery/SampleStore.h"

#include "module/RegistryPaths.h"
#include "platform/Clock.h"
#include "reminders/CcvReminderData.h"

#include <array>
#include <stdexcept>
#include <string>

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

/// What strains a layout. Some of it no font of the machine may have.
constexpr std::array<Words, kCount> kLong = {
    {{L"Tell everybody about the change of plan ", L"Minutes of the meeting "},
     {L"Donaudampfschifffahrtsgesellschaftskapit\u00E4n", L"Rindfleischetikettierungs\u00FCberwachung"},
     {L"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD (today) ",
      L"\u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645 "},
     {L"\U0001F389\U0001F4C5 Party ", L"\U0001F680"},
     {L"R&D && Sales & more &amp; ", L"A&B "},
     {L"\tTabs\tand\r\nline breaks ", L"Line\nbreaks "},
     {L"WWWWWWWWWW", L"iiiiiiiiii"},
     {L"\u4F1A\u8B70\u306E\u8CC7\u6599", L"\u4E88\u7B97"}}};

/// Repeats a text up to the length that strains.
CString Long(const wchar_t* text)
{
    constexpr std::size_t kLength = 500;
    std::wstring repeated;
    while (repeated.size() < kLength)
    {
        repeated += text;
    }
    return CString(repeated.substr(0, kLength).c_str());
}

Words WordsOf(const Contents& contents, std::size_t index)
{
    const auto& words = contents.longTexts          ? kLong
                        : contents.language == "de" ? kGerman
                        : contents.language == "fr" ? kFrench
                                                    : kEnglish;
    return words[index % kCount];
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
        reminder.SetMonthlyReminderPattern2Month(1);
    }
    else if (type == Yearly)
    {
        reminder.SetYearlyRecurrentDay(26);
        reminder.SetYearlyReminderPattern1Month(EcvMonth::December);
    }
}

void SetTimes(CcvReminderData& reminder, std::size_t index)
{
    const Sample& sample = kSamples[index % kCount];
    const bool isRepeated = index >= kCount;
    const CTime due(Noon() + (isRepeated ? -static_cast<std::int64_t>(index) * kMinute : sample.dueIn));
    SetPattern(reminder, sample.type);
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    reminder.SetReminderTimeSpan(isRepeated ? 0 : sample.lead);
}

} // namespace

void StopClock() noexcept
{
    ReplaceClock(Noon);
}

void FillStore(const Contents& contents)
{
    for (int number = 0; number < contents.count; ++number)
    {
        const auto index = static_cast<std::size_t>(number);
        const Words words = WordsOf(contents, index);
        const auto text = [&contents](const wchar_t* word)
        { return contents.longTexts ? Long(word) : CString(word); };
        CcvReminderData reminder{CString()};
        reminder.SetSubject(text(words.subject));
        reminder.SetDocumentTitle(text(words.document));
        reminder.SetDocumentPath(CString(L"C:\\Maps\\") + text(words.document));
        reminder.SetMapGuid(CString(L"{map ") + std::to_wstring(number).c_str() + L"}");
        reminder.SetObjectGuid(L"{topic}");
        SetTimes(reminder, index);
        if (!reminder.SaveDataToRegistry(kRemindersPath))
        {
            throw std::runtime_error("a reminder cannot be stored");
        }
    }
}

} // namespace ts::gallery
