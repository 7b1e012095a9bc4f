#pragma once

// Numbers of the dialog that stands around the panes under test; the resource compiler reads them too.
#define IDD_OUTER 6001
#define IDC_OUTER_BEFORE 6010
#define IDC_OUTER_DATE 6011
#define IDC_OUTER_AFTER 6012
