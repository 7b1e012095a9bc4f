#include "tests/outlook/OutlookTest.h"

#include "outlook/OutlookAppointments.h"
#include "tests/support/RawRegistry.h"

#include <algorithm>
#include <objbase.h>

namespace ts::test
{
namespace
{

constexpr wchar_t kSettings[] = L"Software\\Corvane\\Tessaly\\25\\Settings";
constexpr wchar_t kInProgress[] = L"SynchInProgress";

void Replace(std::wstring& text, const CString& what, const wchar_t* with)
{
    const std::wstring searched = what.GetString();
    const std::size_t position = searched.empty() ? std::wstring::npos : text.find(searched);
    if (position != std::wstring::npos)
    {
        text.replace(position, searched.size(), with);
    }
}

std::string Narrow(const std::wstring& text)
{
    return testing::PrintToString(CString(text.c_str()));
}

} // namespace

Texts Join(std::initializer_list<Texts> parts)
{
    Texts whole;
    for (const Texts& part : parts)
    {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

std::string Difference(const Texts& expected, const Texts& actual)
{
    std::string text;
    for (std::size_t index = 0; index < std::max(expected.size(), actual.size()); ++index)
    {
        const std::string wanted = index < expected.size() ? Narrow(expected[index]) : "nothing";
        const std::string got = index < actual.size() ? Narrow(actual[index]) : "nothing";
        if (wanted != got)
        {
            text += "call " + std::to_string(index + 1) + ": expected " + wanted + ", got " + got + "\n";
        }
    }
    return text;
}

std::optional<bool> SynchronizeInProgress()
{
    const auto value = RawKey(kSettings).Read(kInProgress);
    return value ? std::optional(*value != RawDword(0)) : std::nullopt;
}

OutlookTest::OutlookTest()
{
    // Without its key the option cannot be set.
    const RawKey created(kSettings);
    CoInitialize(nullptr);
    m_class.emplace(m_server);
}

OutlookTest::~OutlookTest()
{
    EXPECT_EQ(0, Server().GetLiveObjects());
    EXPECT_NE(std::optional(true), SynchronizeInProgress());
    DeleteKeyTree(kSettings);
    m_class.reset();
    CoUninitialize();
}

Texts OutlookTest::TakeCalls(const CcvReminderData& record)
{
    Texts calls;
    for (const standin::Call& call : Server().GetCalls())
    {
        std::wstring text = ToText(call);
        Replace(text, record.GetOutlookObjectGuid(), L"GUID");
        Replace(text, record.GetOutlookEntryId(), L"ENTRY");
        calls.push_back(std::move(text));
    }
    Server().ClearCalls();
    return calls;
}

Texts OutlookTest::Only(const Texts& calls, const std::wstring& prefix)
{
    Texts matching;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(matching),
                 [&](const std::wstring& call) { return call.starts_with(prefix); });
    return matching;
}

CcvReminderData OutlookTest::Mirror(CcvReminderData record)
{
    AddAppointmentToOutlook(record);
    EXPECT_FALSE(record.GetOutlookEntryId().IsEmpty());
    Server().ClearCalls();
    return record;
}

std::optional<standin::Item> OutlookTest::ItemOf(const CcvReminderData& record)
{
    return Server().Read(
        [&](standin::Calendar& calendar) -> std::optional<standin::Item>
        {
            const auto place = calendar.FindByGuid(record.GetOutlookObjectGuid().GetString());
            return place ? std::optional(*place->item) : std::nullopt;
        });
}

std::size_t OutlookTest::CalendarSize()
{
    return Server().Read([](standin::Calendar& calendar)
                         { return calendar.FindFolder(calendar.calendarFolder)->items.size(); });
}

double DateOf(int year, int month, int day, int hour, int minute, int second)
{
    SYSTEMTIME fields{};
    fields.wYear = static_cast<WORD>(year);
    fields.wMonth = static_cast<WORD>(month);
    fields.wDay = static_cast<WORD>(day);
    fields.wHour = static_cast<WORD>(hour);
    fields.wMinute = static_cast<WORD>(minute);
    fields.wSecond = static_cast<WORD>(second);
    double date = 0;
    EXPECT_TRUE(SystemTimeToVariantTime(&fields, &date));
    return date;
}

} // namespace ts::test
