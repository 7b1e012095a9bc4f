#pragma once

#include "platform/mfc/CWnd.h"
#include "platform/mfc/atltypes.h"

#include <vector>

namespace ts
{

/// How a control follows the size of its dialog. What is not named stays as it is.
enum class Follow : unsigned
{
    Nothing = 0,
    MoveRight = 1, ///< keeps its distance from the right edge
    MoveDown = 2,
    GrowRight = 4,
    GrowDown = 8
};

[[nodiscard]] constexpr Follow operator|(Follow left, Follow right) noexcept
{
    return static_cast<Follow>(static_cast<unsigned>(left) | static_cast<unsigned>(right));
}

/// Arranges the controls of a dialog that the user can resize. The size that the template gives is the
/// smallest.
class DialogLayout
{
  public:
    /// Takes the present size and the present places of the controls as the ones to start from. Forgets what
    /// was added before.
    void Start(CWnd& dialog);
    void Add(int controlId, Follow follow);
    /// For when the window is gone.
    void Reset() noexcept;
    /// In answer to WM_SIZE, but not of a window that is minimised.
    void Arrange() const;
    /// In answer to WM_GETMINMAXINFO.
    void LimitSize(MINMAXINFO& limits) const noexcept;

  private:
    struct Item
    {
        HWND control;
        CRect place;
        Follow follow;
    };

    [[nodiscard]] static CRect PlaceOf(const Item& item, CSize growth) noexcept;

    CWnd* m_dialog = nullptr;
    CSize m_client;
    CSize m_smallest;
    std::vector<Item> m_items;
};

} // namespace ts
