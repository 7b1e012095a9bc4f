#pragma once

// Numbers of the strings in the language DLLs. They are macros because the resource compiler reads them too.
// A template holds the placeholder that stands behind its number: %d for a whole number, %s for a text, and
// each language keeps their order.

// Due-in texts of the reminder lists. The two frames take one of the counts as %s.
#define IDS_DUE_IN 201      // %s: not yet due
#define IDS_OVERDUE_BY 205  // %s: due in the past
#define IDS_DUE_MINUTE 203  // %d: one minute, inside a frame, as all counts below
#define IDS_DUE_MINUTES 210 // %d
#define IDS_DUE_HOUR 202    // %d
#define IDS_DUE_HOURS 209   // %d
#define IDS_DUE_DAY 200     // %d
#define IDS_DUE_DAYS 208    // %d
#define IDS_DUE_WEEK 206    // %d
#define IDS_DUE_WEEKS 212   // %d
#define IDS_DUE_MONTH 204   // %d
#define IDS_DUE_MONTHS 211  // %d
#define IDS_DUE_YEAR 207    // %d
#define IDS_DUE_YEARS 213   // %d

// Status line of the tooltip. The due date follows directly, so each ends with what separates the two. The
// count may be one, and there is no singular, so the texts must suit every count.
#define IDS_TOOLTIP_MINUTES_OVERDUE 173 // %d
#define IDS_TOOLTIP_HOURS_OVERDUE 172   // %d
#define IDS_TOOLTIP_DAYS_OVERDUE 177    // %d
#define IDS_TOOLTIP_DUE_NOW 174         // the reminder time has come, the due time has not passed
#define IDS_TOOLTIP_MINUTES_LEFT 176    // %d
#define IDS_TOOLTIP_HOURS_LEFT 175      // %d
#define IDS_TOOLTIP_DAYS_LEFT 178       // %d

// Reminder lists of the alert and the manage dialog.
#define IDS_COLUMN_SUBJECT 113     // column header: subject of the reminder
#define IDS_COLUMN_MAP 117         // column header: title of the map document
#define IDS_COLUMN_DUE 114         // column header: due-in text
#define IDS_HOST_NOT_AVAILABLE 103 // message: the application that shows the topic cannot be started
#define IDS_MESSAGE_CAPTION 168    // title of that message

// Alert dialog.
#define IDS_DUE_DATE_PREFIX 188     // stands directly before the long due date
#define IDS_SNOOZE 122              // button
#define IDS_SNOOZE_5_MINUTES 115    // menu item of the snooze button, as all below
#define IDS_SNOOZE_15_MINUTES 40101 // menu item
#define IDS_SNOOZE_30_MINUTES 40103 // menu item
#define IDS_SNOOZE_45_MINUTES 40104 // menu item
#define IDS_SNOOZE_1_HOUR 40105     // menu item
#define IDS_SNOOZE_2_HOURS 40106    // menu item
#define IDS_SNOOZE_4_HOURS 40108    // menu item
#define IDS_SNOOZE_8_HOURS 40109    // menu item
#define IDS_SNOOZE_12_HOURS 40110   // menu item
#define IDS_SNOOZE_1_DAY 40111      // menu item
#define IDS_SNOOZE_2_DAYS 40112     // menu item
#define IDS_SNOOZE_4_DAYS 40114     // menu item
#define IDS_SNOOZE_1_WEEK 40115     // menu item

// Manage dialog.
#define IDS_EDIT_REMINDER 169 // title of the add-reminder dialog when it edits a reminder

// Add-reminder dialog: the button that shows and hides the recurrence section. A reminder recurs only while
// the section is shown.
#define IDS_ADD_RECURRENCE 45000    // button: the section is hidden
#define IDS_REMOVE_RECURRENCE 45001 // button: the section is shown

// Add-reminder dialog: suggested subjects, numbered without gaps.
#define IDS_SUGGESTED_SUBJECT_1 125
#define IDS_SUGGESTED_SUBJECT_2 126
#define IDS_SUGGESTED_SUBJECT_3 127
#define IDS_SUGGESTED_SUBJECT_4 128
#define IDS_SUGGESTED_SUBJECT_5 129
#define IDS_SUGGESTED_SUBJECT_6 130

// Add-reminder dialog: the words that show a lead time behind its number, and that are recognised again, as
// whole words in any case, when the text is read. The word for one minute also stands behind 0.
#define IDS_LEAD_MINUTE 111
#define IDS_LEAD_MINUTES 102
#define IDS_LEAD_HOUR 110
#define IDS_LEAD_HOURS 101
#define IDS_LEAD_DAY 181
#define IDS_LEAD_DAYS 182
#define IDS_LEAD_WEEK 183
#define IDS_LEAD_WEEKS 184

// Their first letters, small, by which a word that is none of the above is recognised. Minutes have none:
// they are what remains.
#define IDS_LEAD_HOUR_INITIAL 162
#define IDS_LEAD_DAY_INITIAL 185
#define IDS_LEAD_WEEK_INITIAL 186

// Add-reminder dialog: offered lead times, numbered without gaps. Each reads exactly as the dialog shows the
// same lead time by means of the words above.
#define IDS_LEAD_TIME_0_MINUTES 4301
#define IDS_LEAD_TIME_5_MINUTES 4302
#define IDS_LEAD_TIME_10_MINUTES 4303
#define IDS_LEAD_TIME_15_MINUTES 4304
#define IDS_LEAD_TIME_30_MINUTES 4305
#define IDS_LEAD_TIME_45_MINUTES 4306
#define IDS_LEAD_TIME_1_HOUR 4307
#define IDS_LEAD_TIME_2_HOURS 4308
#define IDS_LEAD_TIME_3_HOURS 4309
#define IDS_LEAD_TIME_4_HOURS 4310
#define IDS_LEAD_TIME_8_HOURS 4311
#define IDS_LEAD_TIME_12_HOURS 4312
#define IDS_LEAD_TIME_1_DAY 4313
#define IDS_LEAD_TIME_2_DAYS 4314
#define IDS_LEAD_TIME_3_DAYS 4315
#define IDS_LEAD_TIME_4_DAYS 4316
#define IDS_LEAD_TIME_1_WEEK 4317
#define IDS_LEAD_TIME_2_WEEKS 4318

// Recurrence panes: entries of the combo boxes, read as "the first Monday of January".
#define IDS_JANUARY 131
#define IDS_FEBRUARY 132
#define IDS_MARCH 133
#define IDS_APRIL 134
#define IDS_MAY 135
#define IDS_JUNE 136
#define IDS_JULY 137
#define IDS_AUGUST 138
#define IDS_SEPTEMBER 139
#define IDS_OCTOBER 140
#define IDS_NOVEMBER 141
#define IDS_DECEMBER 142
#define IDS_FIRST 143
#define IDS_SECOND 144
#define IDS_THIRD 145
#define IDS_FOURTH 146
#define IDS_LAST 147
#define IDS_DAY 148         // any day of the month
#define IDS_WEEKDAY 149     // Monday to Friday
#define IDS_WEEKEND_DAY 150 // Saturday or Sunday
#define IDS_SUNDAY 151
#define IDS_MONDAY 152
#define IDS_TUESDAY 153
#define IDS_WEDNESDAY 154
#define IDS_THURSDAY 155
#define IDS_FRIDAY 156
#define IDS_SATURDAY 157

// Recurrence panes: messages.
#define IDS_DAY_NOT_IN_EVERY_MONTH 164 // %d: OK or Cancel; the day is taken back to the end of short months
#define IDS_DAY_ABOVE_MAXIMUM 165      // %d: the last day that can be entered
#define IDS_NOT_A_WHOLE_NUMBER 61712   // a text where a number belongs, or a number beyond 32 bits
#define IDS_NUMBER_BELOW_ONE 166       // a day, or a number of days, weeks or months
#define IDS_LEAP_DAY 170               // OK or Cancel; February 29 becomes March 1 and stays there
#define IDS_NO_DAY_OF_WEEK 180         // a weekly pattern without a day

// Appointments in Outlook.
#define IDS_APPOINTMENT_BODY 171 // %s, %s: title and path of the map document

// The language itself.
#define IDS_LANGUAGE_CODE 45002 // "en", "de" or "fr"; some combo boxes have another order in some languages
