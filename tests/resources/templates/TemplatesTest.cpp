// Every dialog template of every language DLL: nothing clipped, nothing covered, everything within reach of
// the keyboard, and the same controls in each language.

#include "tests/resources/templates/TemplateTable.h"
#include "tests/resources/templates/TemplateWindow.h"

#include <algorithm>
#include <bit>
#include <commctrl.h>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <utility>

namespace
{

using namespace ts::test;

constexpr int kNoNumber = -1;

/// Calls `check` with each template's window in each language.
template <typename Check>
void ForEachTemplate(Check check)
{
    for (const Language& language : kLanguages)
    {
        for (const UINT id : TemplatesOf(language))
        {
            const TemplateWindow dialog(language, id);
            check(dialog, language, id);
        }
    }
}

const TemplateFacts* FactsOf(unsigned id)
{
    const auto& all = AllTemplateFacts();
    const auto found = std::ranges::find(all, id, &TemplateFacts::id);
    return found == all.end() ? nullptr : &*found;
}

int DialogUnits(HWND dialog, int units)
{
    RECT rect{0, 0, units, 0};
    MapDialogRect(dialog, &rect);
    return rect.right;
}

// --- Texts ---

/// How large a text is that wraps at `width`, in the font of the window.
SIZE Measure(HWND window, const std::wstring& text, int width, UINT format)
{
    const HDC dc = GetDC(window);
    const HGDIOBJ font = std::bit_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
    const HGDIOBJ former = SelectObject(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    RECT rect{0, 0, width, 0};
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_CALCRECT | format);
    SelectObject(dc, former);
    ReleaseDC(window, dc);
    return {rect.right, rect.bottom};
}

/// What a control needs beside its text.
int WidthBesideText(HWND dialog, const Control& control)
{
    constexpr int kBoxAndGap = 14;
    constexpr int kButtonMargins = 8;
    constexpr int kSplitArrow = 12;
    constexpr int kGroupCorners = 12;
    switch (control.kind)
    {
    case ControlKind::kChoice:
        return DialogUnits(dialog, kBoxAndGap);
    case ControlKind::kPushButton:
    {
        const DWORD type = control.style & BS_TYPEMASK;
        const bool isSplit = type == BS_SPLITBUTTON || type == BS_DEFSPLITBUTTON;
        return DialogUnits(dialog, kButtonMargins + (isSplit ? kSplitArrow : 0));
    }
    case ControlKind::kFrame:
        return DialogUnits(dialog, kGroupCorners);
    default:
        return 0;
    }
}

void ExpectFits(const TemplateWindow& dialog, const Control& control, const std::wstring& text)
{
    // The font is another one on other machines, and texts grow and shrink by some tenths.
    constexpr int kPercentOfTheRoom = 85;
    const int room = control.rect.right - control.rect.left - WidthBesideText(dialog.Get(), control);
    const int width = room * kPercentOfTheRoom / 100;
    const bool wraps =
        control.kind == ControlKind::kText && (control.style & SS_TYPEMASK) != SS_LEFTNOWORDWRAP;
    const SIZE size = Measure(control.window, text, width, wraps ? DT_WORDBREAK : DT_SINGLELINE);
    EXPECT_LE(size.cx, width) << dialog.Name(control) << Utf8(text);
    EXPECT_LE(size.cy, control.rect.bottom - control.rect.top) << dialog.Name(control) << Utf8(text);
}

bool ShowsText(const Control& control)
{
    return control.IsVisible() && control.kind != ControlKind::kField && control.kind != ControlKind::kOther;
}

const Control* FindControl(const TemplateWindow& dialog, int id)
{
    const auto found = std::ranges::find(dialog.Controls(), id, &Control::id);
    return found == dialog.Controls().end() ? nullptr : &*found;
}

// --- Mnemonics ---

/// Who owns each letter, or a list of owners where there are several.
class Letters
{
  public:
    void Add(const std::string& owner, const std::wstring& text)
    {
        const wchar_t letter = MnemonicOf(text);
        if (letter != 0)
        {
            m_owners[letter].push_back(owner);
        }
    }
    /// Without the control `except`, whose text is another one.
    void AddTextsOf(const TemplateWindow& dialog, std::optional<int> except = {})
    {
        for (const Control& control : dialog.Controls())
        {
            if (ShowsText(control) && control.id != except)
            {
                Add(dialog.Name(control), control.text);
            }
        }
    }
    void ExpectOneOwnerEach() const
    {
        for (const auto& [letter, owners] : m_owners)
        {
            EXPECT_EQ(1u, owners.size())
                << Utf8({letter}) << " belongs to " << testing::PrintToString(owners);
        }
    }

  private:
    std::map<wchar_t, std::vector<std::string>> m_owners;
};

bool NeedsOwnMnemonic(const Control& control)
{
    return control.kind == ControlKind::kChoice ||
           (control.kind == ControlKind::kPushButton && control.id != IDOK && control.id != IDCANCEL &&
            !control.text.empty());
}

/// Whether a letter leads to the row of a field, from where Tab goes on.
bool IsRowReachable(const TemplateWindow& dialog, const Control& field)
{
    return std::ranges::any_of(dialog.Controls(),
                               [&field](const Control& other)
                               {
                                   return ShowsText(other) && MnemonicOf(other.text) != 0 &&
                                          AreInOneRow(other.rect, field.rect) &&
                                          other.rect.left < field.rect.left;
                               });
}

// --- Order ---

/// The stops of Tab. Of a group of radio buttons Tab visits one, for which the first one stands.
std::vector<const Control*> TabStops(const TemplateWindow& dialog)
{
    std::vector<const Control*> stops;
    bool isInRadioGroup = false;
    for (const Control& control : dialog.Controls())
    {
        isInRadioGroup = isInRadioGroup && !control.BeginsGroup();
        const bool isOtherRadio = control.IsRadioButton() && isInRadioGroup;
        isInRadioGroup = isInRadioGroup || control.IsRadioButton();
        if (control.IsVisible() && control.IsTabStop() && !isOtherRadio)
        {
            stops.push_back(&control);
        }
    }
    return stops;
}

bool Intersect(const Control& left, const Control& right)
{
    RECT common{};
    return IntersectRect(&common, &left.rect, &right.rect) != FALSE;
}

bool IsInside(const Control& inner, const Control& outer)
{
    RECT both{};
    UnionRect(&both, &inner.rect, &outer.rect);
    return EqualRect(&both, &outer.rect) != FALSE;
}

bool MayOverlap(const Control& left, const Control& right)
{
    return (left.kind == ControlKind::kFrame && IsInside(right, left)) ||
           (right.kind == ControlKind::kFrame && IsInside(left, right));
}

/// Control numbers with what each control is. Where a group begins depends on the order of the words.
using Inventory = std::multimap<int, std::pair<std::wstring, DWORD>>;

Inventory InventoryOf(const TemplateWindow& dialog)
{
    Inventory inventory;
    for (const Control& control : dialog.Controls())
    {
        if (control.id != kNoNumber)
        {
            inventory.emplace(control.id, std::pair(control.windowClass, control.style & ~DWORD{WS_GROUP}));
        }
    }
    return inventory;
}

/// As it stands in the template: the system adds styles to the windows that it makes.
DWORD ExtendedStyleOf(const Language& language, UINT id)
{
    constexpr std::size_t kOffset = 8;
    const auto module = OpenLanguageModule(language);
    const HRSRC found = FindResourceW(module.get(), MAKEINTRESOURCEW(id), RT_DIALOG);
    const void* const bytes = LockResource(LoadResource(module.get(), found));
    DWORD style = 0;
    std::memcpy(&style, static_cast<const std::byte*>(bytes) + kOffset, sizeof style);
    return style;
}

} // namespace

TEST(Templates, Languages_HaveTheSameTemplatesAndControls)
{
    const std::vector<UINT> english = TemplatesOf(kEnglish);
    for (const Language& language : kLanguages)
    {
        ASSERT_EQ(english, TemplatesOf(language)) << language.code;
        for (const UINT id : english)
        {
            const TemplateWindow dialog(language, id);
            EXPECT_EQ(InventoryOf(TemplateWindow(kEnglish, id)), InventoryOf(dialog)) << dialog.Name();
        }
    }
}

TEST(Templates, Table_KnowsEachTemplate)
{
    const std::vector<UINT> english = TemplatesOf(kEnglish);
    for (const UINT id : english)
    {
        EXPECT_NE(nullptr, FactsOf(id)) << "template " << id;
    }
    EXPECT_EQ(english.size(), AllTemplateFacts().size());
}

TEST(Templates, ControlsOfTheCode_AreThereOnce)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT id)
        {
            const TemplateFacts* const facts = FactsOf(id);
            ASSERT_NE(nullptr, facts) << dialog.Name();
            const Inventory inventory = InventoryOf(dialog);
            for (const int control : facts->controls)
            {
                EXPECT_EQ(1u, inventory.count(control)) << dialog.Name() << "control " << control;
            }
        });
}

TEST(Templates, Numbers_AreNotGivenTwice)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const Inventory inventory = InventoryOf(dialog);
            for (const auto& [id, description] : inventory)
            {
                EXPECT_EQ(1u, inventory.count(id)) << dialog.Name() << "control " << id;
            }
        });
}

TEST(Templates, Panes_LetTheTabKeyIntoThem)
{
    constexpr UINT kPanes[] = {IDD_RECURRENCE_DAILY, IDD_RECURRENCE_WEEKLY, IDD_RECURRENCE_MONTHLY,
                               IDD_RECURRENCE_YEARLY};
    ForEachTemplate(
        [&](const TemplateWindow& dialog, const Language& language, UINT id)
        {
            const bool isPane = std::ranges::find(kPanes, id) != std::end(kPanes);
            EXPECT_EQ(isPane ? DWORD{WS_EX_CONTROLPARENT} : 0, ExtendedStyleOf(language, id))
                << dialog.Name();
        });
}

TEST(Templates, Fonts_AreTheSystemsOwn)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const auto style = static_cast<DWORD>(GetWindowLongPtrW(dialog.Get(), GWL_STYLE));
            EXPECT_EQ(DWORD{DS_SHELLFONT}, style & DS_SHELLFONT) << dialog.Name();
        });
}

TEST(Templates, Texts_FitTheirControls)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            for (const Control& control : dialog.Controls())
            {
                if (ShowsText(control) && !control.text.empty())
                {
                    ExpectFits(dialog, control, control.text);
                }
            }
        });
}

TEST(Templates, LaterTexts_FitTheirControls)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language& language, UINT id)
        {
            const TemplateFacts* const facts = FactsOf(id);
            ASSERT_NE(nullptr, facts) << dialog.Name();
            for (const auto& [number, text] : facts->laterTexts)
            {
                const Control* const control = FindControl(dialog, number);
                ASSERT_NE(nullptr, control) << dialog.Name() << "control " << number;
                ExpectFits(dialog, *control, TextOf(language, text));
            }
        });
}

TEST(Templates, Captions_FitTheirDialogs)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const auto style = static_cast<DWORD>(GetWindowLongPtrW(dialog.Get(), GWL_STYLE));
            if ((style & WS_CAPTION) != WS_CAPTION)
            {
                return;
            }
            wchar_t caption[200]{};
            GetWindowTextW(dialog.Get(), caption, static_cast<int>(std::size(caption)));
            EXPECT_NE(std::wstring(), caption) << dialog.Name();
            const int buttons = 3 * GetSystemMetrics(SM_CXSIZE);
            EXPECT_LE(Measure(dialog.Get(), caption, 0, DT_SINGLELINE).cx + buttons, dialog.ClientSize().cx)
                << dialog.Name();
        });
}

TEST(Templates, Controls_CoverNeitherEachOtherNorTheEdge)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const SIZE client = dialog.ClientSize();
            const std::vector<Control>& controls = dialog.Controls();
            for (auto left = controls.begin(); left != controls.end(); ++left)
            {
                EXPECT_TRUE(left->rect.left >= 0 && left->rect.top >= 0 && left->rect.right <= client.cx &&
                            left->rect.bottom <= client.cy)
                    << dialog.Name(*left);
                for (auto right = left + 1; left->IsVisible() && right != controls.end(); ++right)
                {
                    EXPECT_FALSE(right->IsVisible() && Intersect(*left, *right) && !MayOverlap(*left, *right))
                        << dialog.Name(*left) << "and " << dialog.Name(*right);
                }
            }
        });
}

TEST(Templates, Mnemonics_AreThereForAllThatCanBeChosen)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            for (const Control& control : dialog.Controls())
            {
                if (control.IsVisible() && NeedsOwnMnemonic(control))
                {
                    EXPECT_NE(0, MnemonicOf(control.text)) << dialog.Name(control);
                }
            }
        });
}

TEST(Templates, Mnemonics_HaveOneOwnerEach)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language& language, UINT id)
        {
            const TemplateFacts* const facts = FactsOf(id);
            ASSERT_NE(nullptr, facts) << dialog.Name();
            Letters letters;
            letters.AddTextsOf(dialog);
            letters.ExpectOneOwnerEach();
            for (const auto& [control, text] : facts->laterTexts)
            {
                Letters withText;
                withText.AddTextsOf(dialog, control);
                withText.Add(Describe(language, text), TextOf(language, text));
                withText.ExpectOneOwnerEach();
                for (const UINT pane : facts->panes)
                {
                    Letters withPane = withText;
                    withPane.AddTextsOf(TemplateWindow(language, pane));
                    withPane.ExpectOneOwnerEach();
                }
            }
        });
}

// The dialog around the panes shows the one or the other of these texts.
TEST(Templates, PaneMnemonics_LeaveTheButtonOfTheRecurrenceItsOwn)
{
    for (const Language& language : kLanguages)
    {
        for (const UINT pane :
             {IDD_RECURRENCE_DAILY, IDD_RECURRENCE_WEEKLY, IDD_RECURRENCE_MONTHLY, IDD_RECURRENCE_YEARLY})
        {
            for (const unsigned text : {IDS_ADD_RECURRENCE, IDS_REMOVE_RECURRENCE})
            {
                Letters letters;
                letters.AddTextsOf(TemplateWindow(language, pane));
                letters.Add(Describe(language, text), TextOf(language, text));
                letters.ExpectOneOwnerEach();
            }
        }
    }
}

TEST(Templates, Fields_HaveALabelBeforeThem)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const Control* former = nullptr;
            for (const Control& control : dialog.Controls())
            {
                const Control* const label = std::exchange(former, &control);
                if (control.kind != ControlKind::kField || !control.IsVisible())
                {
                    continue;
                }
                ASSERT_TRUE(label != nullptr && label->kind == ControlKind::kText && !label->text.empty())
                    << dialog.Name(control);
                EXPECT_LE(label->rect.left, control.rect.left) << dialog.Name(control);
                EXPECT_TRUE(MnemonicOf(label->text) != 0 ||
                            (!label->IsVisible() && IsRowReachable(dialog, control)))
                    << dialog.Name(control) << "no letter leads to it";
            }
        });
}

TEST(Templates, TabOrder_GoesFromTopToBottomAndFromLeftToRight)
{
    ForEachTemplate(
        [](const TemplateWindow& dialog, const Language&, UINT)
        {
            const Control* former = nullptr;
            for (const Control* const stop : TabStops(dialog))
            {
                if (former != nullptr && AreInOneRow(former->rect, stop->rect))
                {
                    EXPECT_LE(former->rect.right, stop->rect.left)
                        << dialog.Name(*former) << "before " << dialog.Name(*stop);
                }
                else if (former != nullptr)
                {
                    EXPECT_LE(former->rect.bottom, stop->rect.top)
                        << dialog.Name(*former) << "before " << dialog.Name(*stop);
                }
                former = stop;
            }
        });
}
