#pragma once

#include "reminders/CcvReminderData.h"

#include <string>

namespace ts::test
{

/// Who wrote a record, and for the how-manieth time: both show in every field, so that a record that two
/// writes have a share in can be told from a whole one.
struct Stamp
{
    wchar_t writer = L'?'; ///< a capital letter
    int number = -1;

    bool operator==(const Stamp&) const = default;
};

/// A record of that key, or without one, that belongs to the topic `topic` of the map `map`. The topic's
/// three fields, which say what the record is about, do not show the stamp.
[[nodiscard]] CcvReminderData StampedRecord(const CString& key, const std::wstring& map, int topic,
                                            Stamp stamp);
/// The topic's number.
[[nodiscard]] int TopicOf(const CcvReminderData& record);

/// The stamp that the record's subject shows.
[[nodiscard]] Stamp StampOf(const CcvReminderData& record);
/// The one that shows in the field that a save writes before the others.
[[nodiscard]] Stamp NewestStampOf(const CcvReminderData& record);

/// Whether the record is, but for a snooze, exactly what StampedRecord gives for its map, topic and stamp.
[[nodiscard]] bool IsWhole(const CcvReminderData& record);
/// Whether each of its fields is one of a stamped record of its map; they may be of different ones.
[[nodiscard]] bool IsMadeOfStampedFields(const CcvReminderData& record);

} // namespace ts::test
