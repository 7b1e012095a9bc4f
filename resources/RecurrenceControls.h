#pragma once

// Numbers of the recurrence panes, of the question before a recurring reminder is deleted, and of their
// controls. They are macros because the resource compiler reads them too. Each template has numbers of its own.

#define IDD_RECURRENCE_DAILY 108
#define IDC_DAILY_EVERY_N_DAYS 1041 // first of two radio buttons
#define IDC_DAILY_EVERY_WEEKDAY 1042
#define IDC_DAILY_NUMBER 1043

#define IDD_RECURRENCE_WEEKLY 4298
#define IDC_WEEKLY_NUMBER 1011
#define IDC_WEEKLY_SUNDAY 1012
#define IDC_WEEKLY_MONDAY 1013
#define IDC_WEEKLY_TUESDAY 1014
#define IDC_WEEKLY_WEDNESDAY 1015
#define IDC_WEEKLY_THURSDAY 1016
#define IDC_WEEKLY_FRIDAY 1017
#define IDC_WEEKLY_SATURDAY 1018

#define IDD_RECURRENCE_MONTHLY 110
#define IDC_MONTHLY_ON_DAY 1044 // first of two radio buttons
#define IDC_MONTHLY_ON_DAY_TYPE 1045
#define IDC_MONTHLY_DAY 1037
#define IDC_MONTHLY_DAY_MONTHS 1046
#define IDC_MONTHLY_ORDINAL 1047
#define IDC_MONTHLY_DAY_TYPE 1048
#define IDC_MONTHLY_DAY_TYPE_MONTHS 1043

#define IDD_RECURRENCE_YEARLY 111
#define IDC_YEARLY_ON_DAY 1036 // first of two radio buttons
#define IDC_YEARLY_ON_DAY_TYPE 1037
#define IDC_YEARLY_DAY 1039
#define IDC_YEARLY_DAY_MONTH 1042
#define IDC_YEARLY_ORDINAL 1040
#define IDC_YEARLY_DAY_TYPE 1041
#define IDC_YEARLY_DAY_TYPE_MONTH 1044

#define IDD_DELETE_RECURRENCE 114
#define IDC_DELETE_ICON 1053
#define IDC_DELETE_INSTANCE 1054 // first of two radio buttons
#define IDC_DELETE_SERIES 1055

#ifndef IDC_STATIC
#define IDC_STATIC (-1) // a control that nobody asks for
#endif
