#pragma once

// Numbers of the pictures in the language DLLs. They are macros because the resource compiler reads them too.

#define IDI_REMINDER 107 // of the dialogs

// Bitmaps of 16 by 16 pixels that are drawn transparent where they have the colour (0, 128, 128).
#define IDB_RECURRENCE 192
#define IDB_RECURRENCE_SELECTED 193 // over the highlight colour
