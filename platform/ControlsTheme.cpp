#include "platform/ControlsTheme.h"

#include "platform/mfc/CWinApp.h"

#include <commctrl.h>
#include <mutex>

namespace
{

constexpr WORD kManifestResource = 2;

/// The activation context of the module's manifest.
class ManifestContext
{
  public:
    ManifestContext() noexcept
    {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.hModule = AfxGetInstanceHandle();
        request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
        m_context = CreateActCtxW(&request);
    }
    ManifestContext(const ManifestContext&) = delete;
    ManifestContext& operator=(const ManifestContext&) = delete;
    ~ManifestContext()
    {
        if (Exists())
        {
            ReleaseActCtx(m_context);
        }
    }

    [[nodiscard]] bool Exists() const noexcept { return m_context != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const noexcept { return m_context; }

  private:
    HANDLE m_context;
};

const ManifestContext& Context() noexcept
{
    static const ManifestContext context;
    return context;
}

/// Makes the classes of the common controls known to the process.
void RegisterControls() noexcept
{
    static std::once_flag registered;
    std::call_once(registered,
                   []
                   {
                       const INITCOMMONCONTROLSEX classes = {
                           sizeof classes, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
                       InitCommonControlsEx(&classes);
                   });
}

} // namespace

ts::ControlsThemeScope::ControlsThemeScope() noexcept
{
    if (Context().Exists() && ActivateActCtx(Context().Get(), &m_cookie) == FALSE)
    {
        m_cookie = 0;
    }
    RegisterControls();
}

ts::ControlsThemeScope::~ControlsThemeScope()
{
    if (m_cookie != 0)
    {
        DeactivateActCtx(0, m_cookie);
    }
}
