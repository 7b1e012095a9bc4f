#pragma once

// The one place that includes windows.h, so that every file sees it with the same switches.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#include <windows.h>

// A macro of the platform's headers that would rename CTime::GetCurrentTime.
#ifdef GetCurrentTime
#undef GetCurrentTime
#endif
