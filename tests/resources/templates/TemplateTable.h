#pragma once

#include "resources/AddReminderControls.h"
#include "resources/RecurrenceControls.h"
#include "resources/RemindersControls.h"
#include "resources/StringIds.h"

#include <vector>

/// What the code expects of the dialog templates beyond what stands in them. A new template gets a row.
namespace ts::test
{

struct TemplateFacts
{
    unsigned id;
    /// The controls that the code asks for, each of which is there once.
    std::vector<int> controls;
    /// Texts that are shown in the dialog besides those of the template, one at a time for each control.
    struct LaterText
    {
        int control;
        unsigned text;
    };
    std::vector<LaterText> laterTexts;
    /// Templates of panes that are shown in the dialog, one at a time.
    std::vector<unsigned> panes;
};

inline const std::vector<TemplateFacts>& AllTemplateFacts()
{
    static const std::vector<TemplateFacts> facts = {
        {IDD_RECURRENCE_DAILY, {1041, 1043}, {}, {}},
        {IDD_RECURRENCE_WEEKLY, {1011, 1012, 1013, 1014, 1015, 1016, 1017, 1018}, {}, {}},
        {IDD_RECURRENCE_MONTHLY, {1037, 1043, 1044, 1046, 1047, 1048}, {}, {}},
        {IDD_RECURRENCE_YEARLY, {1036, 1039, 1040, 1041, 1042, 1044}, {}, {}},
        {IDD_ADD_REMINDER,
         {1001, 1002, 1003, 1004, 1007, 1008, 1009, 1052, 1064, 1068, 9000, 9001, 1, 2},
         {{IDC_ADD_TOGGLE_RECURRENCE, IDS_ADD_RECURRENCE},
          {IDC_ADD_TOGGLE_RECURRENCE, IDS_REMOVE_RECURRENCE}},
         {IDD_RECURRENCE_DAILY, IDD_RECURRENCE_WEEKLY, IDD_RECURRENCE_MONTHLY, IDD_RECURRENCE_YEARLY}},
        {IDD_DELETE_RECURRENCE, {1053, 1054, 1, 2}, {}, {}},
        // The snooze button takes the place of a text that is not shown.
        {IDD_REMINDER_ALERT,
         {1019, 1020, 1021, 1023, 1026, 1028, 1030, 1069, 2},
         {{IDC_SNOOZE_PLACE, IDS_SNOOZE}},
         {}},
        {IDD_MANAGE_REMINDERS, {1019, 1020, 1021, 1023, 1024, 1025, 1027, 1028, 1030, 1031, 1069, 2}, {}, {}},
    };
    return facts;
}

} // namespace ts::test
