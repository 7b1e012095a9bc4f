// Names and searches of reminder keys, without loading reminders.

#include "platform/ts/CcvPathUtilities.h"
#include "platform/ts/SECRegistry.h"
#include "reminders/CcvReminderDataUtilities.h"

#include <string>

namespace
{

/// Calls `visit(name, key)` for each subkey of `basePath` that opens with `access`, in enumeration order,
/// until `visit` answers false. A subkey that vanishes meanwhile is passed over.
template <typename Visit>
void ForEachReminderKey(const CString& basePath, REGSAM access, Visit visit)
{
    SECRegistry reminders;
    if (!reminders.Connect(HKEY_CURRENT_USER) || !reminders.Open(basePath, KEY_READ))
    {
        return;
    }
    CString name;
    for (DWORD index = 0; reminders.EnumerateKeys(index, name); ++index)
    {
        SECRegistry key;
        key.Connect(HKEY_CURRENT_USER);
        if (key.Open(CcvPathUtilities::AppendToPath(basePath, name), access) && !visit(name, key))
        {
            return;
        }
    }
}

/// Whether the key's text value is exactly `expected`; a missing value reads as empty.
bool HasText(const SECRegistry& key, const wchar_t* name, const CString& expected)
{
    CString text;
    key.GetStringValue(name, text);
    return text == expected;
}

} // namespace

CString CcvReminderDataUtilities::GenerateUniqueReminderKey(const CString& basePath, const CString& name)
{
    // The registry's names end at the first zero: with a zero inside, all candidates would be the same key.
    const CString path = basePath.GetString();
    const CString prefix = L"{" + CString(name.GetString()) + L"-";
    SECRegistry key;
    key.Connect(HKEY_CURRENT_USER);
    for (unsigned number = 0;; ++number)
    {
        CString candidate = prefix + std::to_wstring(number).c_str() + L"}";
        if (!key.Open(CcvPathUtilities::AppendToPath(path, candidate), KEY_READ))
        {
            return candidate;
        }
    }
}

CString CcvReminderDataUtilities::FindReminderKey(const CString& basePath, const CString& documentPath,
                                                  const CString& mapGuid, const CString& objectGuid)
{
    CString found;
    ForEachReminderKey(basePath, KEY_READ,
                       [&](const CString& name, const SECRegistry& key)
                       {
                           if (!HasText(key, L"DocumentPath", documentPath) ||
                               !HasText(key, L"MapGuid", mapGuid) || !HasText(key, L"ObjectGuid", objectGuid))
                           {
                               return true;
                           }
                           found = name;
                           return false;
                       });
    return found;
}

void CcvReminderDataUtilities::UpdateDocumentPath(const CString& basePath, const CString& oldPath,
                                                  const CString& newPath, const CString& mapGuid)
{
    ForEachReminderKey(basePath, KEY_ALL_ACCESS,
                       [&](const CString&, SECRegistry& key)
                       {
                           if (HasText(key, L"DocumentPath", oldPath) && HasText(key, L"MapGuid", mapGuid))
                           {
                               key.SetStringValue(L"DocumentPath", newPath);
                           }
                           return true;
                       });
}
