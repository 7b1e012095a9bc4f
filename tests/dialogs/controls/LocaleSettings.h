#pragma once

#include "platform/WindowsHeaders.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace ts::test
{

/// Changes settings of the user's locale while it lives.
class LocaleSettings
{
  public:
    LocaleSettings() = default;
    LocaleSettings(const LocaleSettings&) = delete;
    LocaleSettings& operator=(const LocaleSettings&) = delete;
    ~LocaleSettings()
    {
        for (const auto& [type, text] : m_before)
        {
            SetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.c_str());
        }
    }

    void Set(LCTYPE type, const std::wstring& text)
    {
        wchar_t before[100] = L"";
        ASSERT_NE(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before, 100)) << type;
        m_before.emplace(m_before.begin(), type, before);
        ASSERT_NE(FALSE, SetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.c_str()))
            << type << " " << GetLastError();
    }

  private:
    std::vector<std::pair<LCTYPE, std::wstring>> m_before;
};

} // namespace ts::test
