#include "Topics.h"

#include "ReminderRows.h"
#include "hosts/common/Collection.h"

#include <algorithm>
#include <array>

namespace ts::desktop
{
namespace
{

struct SampleTopic
{
    const wchar_t* title;
    const wchar_t* guid;
};

struct SampleMap
{
    const wchar_t* path;
    const wchar_t* title;
    const wchar_t* guid;
    std::array<SampleTopic, 4> topics;
};

constexpr std::array<SampleMap, 2> kSampleMaps = {{
    {L"C:\\Maps\\Product launch.map",
     L"Product launch",
     L"{B4A9E0D3-1C57-4F82-9A66-0E7D2C5B8F31}",
     {{{L"Press release", L"{61F0B7C2-8D34-4A19-B5E0-93A7C4D2160E}"},
       {L"Price list", L"{A27D5E48-0B96-4C3F-8E12-5D80F1B7A943}"},
       {L"Packaging", L"{0D93C6F1-72AE-45B8-9C05-E4B16A8D3F72}"},
       {L"Web shop", L"{F58B2A07-4E61-4D9C-A373-1C06E9D5B084}"}}}},
    {L"C:\\Maps\\Team.map",
     L"Team",
     L"{3E71D8A6-F02B-4C95-8D4E-A95C07B1E260}",
     {{{L"Budget", L"{9C4E07B5-D183-4F6A-92B8-60E5A1F7C3D4}"},
       {L"Holidays", L"{27A6F9D0-5B3C-4E81-A0D7-8F14B2C6E953}"},
       {L"Training", L"{E80D1B63-94C7-4A25-B7F9-3D62A5E8C041}"},
       {L"Weekly meeting", L"{45C8A2E9-6F10-4D7B-83AE-B9D07E1F5C26}"}}}},
}};

bool IsSame(const Topic& left, const Topic& right)
{
    return left.documentPath == right.documentPath && left.mapGuid == right.mapGuid &&
           left.guid == right.guid;
}

Topic TopicOf(const CcvReminderData& reminder)
{
    return {reminder.GetDocumentPath(), reminder.GetDocumentTitle(), reminder.GetMapGuid(),
            // A reminder that another program made may lack the title.
            reminder.GetObjectTitle().IsEmpty() ? reminder.GetSubject() : reminder.GetObjectTitle(),
            reminder.GetObjectGuid(), true};
}

void AddIfNew(std::vector<Topic>& topics, const Topic& topic)
{
    if (std::ranges::none_of(topics, [&](const Topic& other) { return IsSame(other, topic); }))
    {
        topics.push_back(topic);
    }
}

int CompareTexts(const CString& left, const CString& right)
{
    return CompareStringEx(LOCALE_NAME_USER_DEFAULT, LINGUISTIC_IGNORECASE, left, -1, right, -1, nullptr,
                           nullptr, 0) -
           CSTR_EQUAL;
}

bool ComesBefore(const Topic& left, const Topic& right)
{
    const int order = CompareTexts(left.documentTitle, right.documentTitle);
    return order != 0 ? order < 0 : CompareTexts(left.title, right.title) < 0;
}

} // namespace

std::vector<Topic> KnownTopics(const CcvReminderDataCollectionManager& manager)
{
    std::vector<Topic> topics;
    for (int index = 0; index < manager.GetRemindersCount(); ++index)
    {
        CcvReminderData* const record = manager.GetReminderByIndex(index);
        if (hosts::EnsureLoaded(*record))
        {
            AddIfNew(topics, TopicOf(*record));
        }
    }
    for (const SampleMap& map : kSampleMaps)
    {
        for (const SampleTopic& topic : map.topics)
        {
            AddIfNew(topics, {map.path, map.title, map.guid, topic.title, topic.guid});
        }
    }
    std::ranges::stable_sort(topics, ComesBefore);
    return topics;
}

CcvReminderData NewReminder(const Topic& topic, CTime now)
{
    constexpr std::int64_t kQuarter = 900;
    const CTime due = (now.GetTime() / kQuarter + 1) * kQuarter;
    CcvReminderData reminder{CString()};
    reminder.SetDocumentPath(topic.documentPath);
    reminder.SetDocumentTitle(topic.documentTitle);
    reminder.SetMapGuid(topic.mapGuid);
    reminder.SetObjectTitle(topic.title);
    reminder.SetObjectGuid(topic.guid);
    reminder.SetSubject(topic.title);
    reminder.SetInitialDueDate(due);
    reminder.SetNextDueDate(due);
    return reminder;
}

} // namespace ts::desktop
