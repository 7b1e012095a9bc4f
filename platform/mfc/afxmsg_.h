#pragma once

#include "platform/mfc/CDC.h"
#include "platform/mfc/atltypes.h"

#include <bit>
#include <tuple>
#include <type_traits>

// Message maps: which function of a class answers which message. A class says DECLARE_MESSAGE_MAP(); its
// source lists the messages between BEGIN_MESSAGE_MAP and END_MESSAGE_MAP. Each entry unpacks the message for
// its function, whose type the compiler checks.

class CCmdTarget;
class CWnd;

/// The state of a command, as a handler of ON_UPDATE_COMMAND_UI sees and sets it.
class CCmdUI
{
  public:
    explicit CCmdUI(UINT id) noexcept : m_nID(id) {}

    void Enable(BOOL on = TRUE) noexcept { m_enabled = on != FALSE; }
    [[nodiscard]] bool IsEnabled() const noexcept { return m_enabled; }

    UINT m_nID;

  private:
    bool m_enabled = true;
};

/// The notification codes of commands from menus, and of the question whether a command is enabled.
inline constexpr UINT CN_COMMAND = 0;
inline constexpr UINT CN_UPDATE_COMMAND_UI = 0xFFFFFFFF;

/// Added to a message that a control's parent hands back to the control.
inline constexpr UINT WM_REFLECT_BASE = 0xBC00;

/// A message on its way to its handler. What is not there is 0.
struct AFX_CALL
{
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    UINT id = 0;
    CCmdUI* commandUi = nullptr;
    LRESULT result = 0;
};

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage; ///< 0 ends the map
    UINT nCode;    ///< notification code
    UINT nID;      ///< first and last command or control
    UINT nLastID;
    void (*pfn)(CCmdTarget& target, AFX_CALL& call);
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)(); ///< null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

/// What the map entries are made of: functions that take a message apart, and the call itself.
namespace ts::message
{

/// Lives as long as the call that it is made for.
struct DeviceContext
{
    CDC dc;
    operator CDC*() noexcept { return &dc; }
};

inline constexpr AFX_MSGMAP_ENTRY kEnd{};

[[nodiscard]] TS_API CWnd* WindowOf(WPARAM handle);

inline std::tuple<> Nothing(AFX_CALL&)
{
    return {};
}
inline std::tuple<WPARAM, LPARAM> Raw(AFX_CALL& call)
{
    return {call.wParam, call.lParam};
}
inline std::tuple<UINT> Id(AFX_CALL& call)
{
    return {call.id};
}
inline std::tuple<CCmdUI*> CommandUi(AFX_CALL& call)
{
    return {call.commandUi};
}
inline std::tuple<NMHDR*, LRESULT*> Notification(AFX_CALL& call)
{
    return {std::bit_cast<NMHDR*>(call.lParam), &call.result};
}
inline std::tuple<CREATESTRUCTW*> Creation(AFX_CALL& call)
{
    return {std::bit_cast<CREATESTRUCTW*>(call.lParam)};
}
inline std::tuple<DeviceContext> Drawing(AFX_CALL& call)
{
    return {DeviceContext{CDC(std::bit_cast<HDC>(call.wParam))}};
}
inline std::tuple<UINT, int, int> NewSize(AFX_CALL& call)
{
    return {static_cast<UINT>(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)};
}
inline std::tuple<UINT_PTR> Timer(AFX_CALL& call)
{
    return {call.wParam};
}
inline std::tuple<UINT, UINT, UINT> Key(AFX_CALL& call)
{
    return {static_cast<UINT>(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)};
}
inline std::tuple<UINT, CPoint> Mouse(AFX_CALL& call)
{
    return {static_cast<UINT>(call.wParam), CPoint(call.lParam)};
}
inline std::tuple<UINT, short, CPoint> Wheel(AFX_CALL& call)
{
    return {LOWORD(call.wParam), static_cast<short>(HIWORD(call.wParam)), CPoint(call.lParam)};
}
inline std::tuple<CWnd*, UINT, UINT> Cursor(AFX_CALL& call)
{
    return {WindowOf(call.wParam), LOWORD(call.lParam), HIWORD(call.lParam)};
}
inline std::tuple<CWnd*> OtherWindow(AFX_CALL& call)
{
    return {WindowOf(call.wParam)};
}
inline std::tuple<UINT, LPARAM> SystemCommand(AFX_CALL& call)
{
    return {static_cast<UINT>(call.wParam), call.lParam};
}
inline std::tuple<UINT, const wchar_t*> Setting(AFX_CALL& call)
{
    return {static_cast<UINT>(call.wParam), std::bit_cast<const wchar_t*>(call.lParam)};
}

template <typename>
struct MemberFunction;
template <typename R, typename C, typename... A>
struct MemberFunction<R (C::*)(A...)>
{
    using Class = C;
    using Result = R;
};

/// Calls `Handler`, a member of the target's class, with what `Unpack` finds in the message.
template <auto Handler, auto Unpack>
void Call(CCmdTarget& target, AFX_CALL& call)
{
    using Function = MemberFunction<decltype(Handler)>;
    auto& object = dynamic_cast<typename Function::Class&>(target);
    auto arguments = Unpack(call);
    const auto invoke = [&object](auto&... each) { return (object.*Handler)(each...); };
    if constexpr (std::is_void_v<typename Function::Result>)
    {
        std::apply(invoke, arguments);
    }
    else
    {
        call.result = static_cast<LRESULT>(std::apply(invoke, arguments));
    }
}

} // namespace ts::message

#define DECLARE_MESSAGE_MAP()                                                                                \
  protected:                                                                                                 \
    [[nodiscard]] static const AFX_MSGMAP* GetThisMessageMap();                                              \
    [[nodiscard]] const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(class_name, base_class_name)                                                       \
    const AFX_MSGMAP* class_name::GetMessageMap() const                                                      \
    {                                                                                                        \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* class_name::GetThisMessageMap()                                                        \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = class_name;                                                       \
        using BaseClass = base_class_name;                                                                   \
        static constexpr AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    ts::message::kEnd                                                                                        \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP map = {&BaseClass::GetThisMessageMap, entries};                                  \
    return &map;                                                                                             \
    }

#define TS_MAP_ENTRY(number, code, first, last, handler, unpack)                                             \
    AFX_MSGMAP_ENTRY{number, code, first, last,                                                              \
                     &ts::message::Call<&ThisClass::handler, &ts::message::unpack>},
#define TS_MESSAGE_ENTRY(number, handler, unpack) TS_MAP_ENTRY(number, 0, 0, 0, handler, unpack)

/// LRESULT handler(WPARAM, LPARAM)
#define ON_MESSAGE(number, handler) TS_MESSAGE_ENTRY(number, handler, Raw)

// void handler()
#define ON_CONTROL(code, id, handler)                                                                        \
    TS_MAP_ENTRY(WM_COMMAND, static_cast<UINT>(code), id, id, handler, Nothing)
#define ON_COMMAND(id, handler) ON_CONTROL(CN_COMMAND, id, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_CONTROL_REFLECT(code, handler)                                                                    \
    TS_MAP_ENTRY(WM_REFLECT_BASE + WM_COMMAND, static_cast<UINT>(code), 0, 0, handler, Nothing)
// void handler(UINT id)
#define ON_COMMAND_RANGE(first, last, handler) TS_MAP_ENTRY(WM_COMMAND, CN_COMMAND, first, last, handler, Id)
#define ON_CONTROL_RANGE(code, first, last, handler)                                                         \
    TS_MAP_ENTRY(WM_COMMAND, static_cast<UINT>(code), first, last, handler, Id)
// void handler(CCmdUI*)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, handler)                                                     \
    TS_MAP_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, handler, CommandUi)
#define ON_UPDATE_COMMAND_UI(id, handler) ON_UPDATE_COMMAND_UI_RANGE(id, id, handler)
// void handler(NMHDR*, LRESULT*)
#define ON_NOTIFY(code, id, handler)                                                                         \
    TS_MAP_ENTRY(WM_NOTIFY, static_cast<UINT>(code), id, id, handler, Notification)
#define ON_NOTIFY_REFLECT(code, handler)                                                                     \
    TS_MAP_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, static_cast<UINT>(code), 0, 0, handler, Notification)

// The functions that these name are members of CWnd, which pass the message on.
#define ON_WM_CREATE() TS_MESSAGE_ENTRY(WM_CREATE, OnCreate, Creation)
#define ON_WM_DESTROY() TS_MESSAGE_ENTRY(WM_DESTROY, OnDestroy, Nothing)
#define ON_WM_CLOSE() TS_MESSAGE_ENTRY(WM_CLOSE, OnClose, Nothing)
#define ON_WM_PAINT() TS_MESSAGE_ENTRY(WM_PAINT, OnPaint, Nothing)
#define ON_WM_ERASEBKGND() TS_MESSAGE_ENTRY(WM_ERASEBKGND, OnEraseBkgnd, Drawing)
#define ON_WM_SIZE() TS_MESSAGE_ENTRY(WM_SIZE, OnSize, NewSize)
#define ON_WM_TIMER() TS_MESSAGE_ENTRY(WM_TIMER, OnTimer, Timer)
#define ON_WM_KEYDOWN() TS_MESSAGE_ENTRY(WM_KEYDOWN, OnKeyDown, Key)
#define ON_WM_SYSKEYDOWN() TS_MESSAGE_ENTRY(WM_SYSKEYDOWN, OnSysKeyDown, Key)
#define ON_WM_CHAR() TS_MESSAGE_ENTRY(WM_CHAR, OnChar, Key)
#define ON_WM_LBUTTONDOWN() TS_MESSAGE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown, Mouse)
#define ON_WM_LBUTTONUP() TS_MESSAGE_ENTRY(WM_LBUTTONUP, OnLButtonUp, Mouse)
#define ON_WM_LBUTTONDBLCLK() TS_MESSAGE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk, Mouse)
#define ON_WM_MOUSEWHEEL() TS_MESSAGE_ENTRY(WM_MOUSEWHEEL, OnMouseWheel, Wheel)
#define ON_WM_SETCURSOR() TS_MESSAGE_ENTRY(WM_SETCURSOR, OnSetCursor, Cursor)
#define ON_WM_SETFOCUS() TS_MESSAGE_ENTRY(WM_SETFOCUS, OnSetFocus, OtherWindow)
#define ON_WM_KILLFOCUS() TS_MESSAGE_ENTRY(WM_KILLFOCUS, OnKillFocus, OtherWindow)
#define ON_WM_GETDLGCODE() TS_MESSAGE_ENTRY(WM_GETDLGCODE, OnGetDlgCode, Nothing)
#define ON_WM_SYSCOMMAND() TS_MESSAGE_ENTRY(WM_SYSCOMMAND, OnSysCommand, SystemCommand)
#define ON_WM_SYSCOLORCHANGE() TS_MESSAGE_ENTRY(WM_SYSCOLORCHANGE, OnSysColorChange, Nothing)
#define ON_WM_SETTINGCHANGE() TS_MESSAGE_ENTRY(WM_SETTINGCHANGE, OnSettingChange, Setting)
