#pragma once

// Numbers of the templates and controls of the alert and the manage dialog. They are macros because the
// resource compiler reads them too.

#define IDD_REMINDER_ALERT 103
#define IDD_MANAGE_REMINDERS 112

// Of both.
#define IDC_REMINDER_DUE 1019        // due date and time of the selected reminder
#define IDC_NOTHING_SELECTED 1020    // shown in the place of a reminder's details
#define IDC_REMINDER_SUBJECT 1021    // subject of the selected reminder
#define IDC_OPEN_REMINDER 1023       // button
#define IDC_REMINDERS 1030           // list
#define IDC_REMINDER_RECURRENCE 1069 // picture: the selected reminder is recurrent

// Of the alert.
#define IDC_END_REMINDER 1026 // button
#define IDC_SNOOZE_PLACE 1028 // where the snooze button goes

// Of the manage dialog.
#define IDC_DELETE_REMINDER 1024 // button
#define IDC_EDIT_REMINDER 1025   // button
#define IDC_FILTER_LABEL 1031    // text before the radio buttons
#define IDC_FILTER_RECENT 1027   // radio button
#define IDC_FILTER_TODAY 1028    // radio button

// Commands of the alert's snooze button, which has the number of the first. Some of them are in no menu.
#define IDC_SNOOZE_FIRST 40001
#define IDC_SNOOZE_LAST 40018
