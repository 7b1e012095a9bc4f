#include "platform/mfc/CCmdTarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace
{

bool Answers(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id)
{
    return entry.nMessage == message && entry.nCode == code && entry.nID <= id && id <= entry.nLastID;
}

const AFX_MSGMAP* BaseOf(const AFX_MSGMAP& map)
{
    return map.pfnGetBaseMap == nullptr ? nullptr : map.pfnGetBaseMap();
}

} // namespace

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

BOOL CCmdTarget::CallHandler(UINT message, UINT code, UINT id, AFX_CALL& call)
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr; map = BaseOf(*map))
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry)
        {
            if (Answers(*entry, message, code, id))
            {
                entry->pfn(*this, call);
                return TRUE;
            }
        }
    }
    return FALSE;
}

BOOL CCmdTarget::OnCmdMsg(UINT message, UINT code, UINT id, AFX_CALL& call)
{
    return CallHandler(message, code, id, call);
}
