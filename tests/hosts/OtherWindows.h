#pragma once

#include "platform/WindowsHeaders.h"

#include <initializer_list>
#include <string>
#include <vector>

// Windows of other processes.

/// The process of a window, 0 without one.
[[nodiscard]] DWORD ProcessOf(HWND window);
/// The first visible dialog of a process with that title, or any when it is empty.
[[nodiscard]] HWND FindDialog(DWORD process, const std::wstring& title = L"");
/// The window of that window's thread that has the focus, null without one.
[[nodiscard]] HWND FocusOf(HWND window);

[[nodiscard]] int RowCount(HWND list);
/// -1 when no row is selected.
[[nodiscard]] int SelectedRow(HWND list);
[[nodiscard]] std::wstring CellText(HWND list, int row, int column);
/// Of all rows, from above.
[[nodiscard]] std::vector<std::wstring> ColumnTexts(HWND list, int column);

// Keys as the keyboard makes them, for whatever window has the focus.
void PressKeys(std::initializer_list<WORD> keys);
void TypeKeys(const std::wstring& text);
