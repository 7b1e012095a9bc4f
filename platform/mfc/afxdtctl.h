#pragma once

#include "platform/mfc/CWnd.h"
#include "platform/mfc/atltime.h"

#include <optional>

/// A picker for a local date or time of day.
class TS_API CDateTimeCtrl : public CWnd
{
    DECLARE_DYNAMIC(CDateTimeCtrl)

  public:
    /// False, and `time` untouched, when the picker shows no time or one that CTime cannot hold.
    BOOL GetTime(CTime& time) const;
    /// False when the time has no local date or lies outside the range.
    BOOL SetTime(const CTime& time) { return SetTimeOf(m_hWnd, time); }
    /// The times that can be picked, both limits included. False when one has no local date.
    BOOL SetRange(const CTime& minimum, const CTime& maximum);

    [[nodiscard]] static std::optional<CTime> TimeOf(HWND picker);
    static BOOL SetTimeOf(HWND picker, const CTime& time);
};
