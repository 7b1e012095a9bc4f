#pragma once

#include "TsServiceUtilities.h"

#include <vector>

namespace ts::desktop
{

/// A topic of a map document, to which a reminder can be attached.
struct Topic
{
    CString documentPath;
    CString documentTitle;
    CString mapGuid;
    CString title;
    CString guid;
    bool hasReminder = false;
};

/// The topics that the program knows: those with reminders, and those of some sample maps, which stand for
/// the documents that the user has open. By map, then by title.
[[nodiscard]] std::vector<Topic> KnownTopics(const CcvReminderDataCollectionManager& manager);

/// A reminder of the topic without a key yet, due at the next full quarter of an hour after `now`, with the
/// topic's title as its subject.
[[nodiscard]] CcvReminderData NewReminder(const Topic& topic, CTime now);

} // namespace ts::desktop
