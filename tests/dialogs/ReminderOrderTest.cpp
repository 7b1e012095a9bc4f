#include "dialogs/ReminderOrder.h"

#include "platform/WindowsHeaders.h"
#include "tests/support/HeapKind.h"
#include "tests/support/RandomSource.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <string>

namespace
{

using ts::ReminderSortKey;
using ts::test::RandomSource;
using Places = std::vector<int>;
using enum ReminderColumn;

constexpr auto kUnknown = static_cast<ReminderColumn>(16);

/// The rows' numbers in sorted order.
std::vector<int> Order(const std::vector<ReminderSortKey>& rows, ReminderColumn column, bool ascending = true)
{
    const std::vector<int> places = ts::SortedPlaces(rows, column, ascending);
    std::vector<int> order(places.size());
    for (std::size_t row = 0; row < places.size(); ++row)
    {
        order.at(static_cast<std::size_t>(places[row])) = static_cast<int>(row);
    }
    return order;
}

ReminderSortKey Row(bool isRecurrent, std::wstring_view subject, std::wstring_view title,
                    std::optional<CTime> due)
{
    return {isRecurrent, subject, title, due};
}

TEST(ReminderOrderTest, NoRows_GiveNoPlaces)
{
    EXPECT_EQ(Places{}, ts::SortedPlaces({}, DueIn, true));
}

TEST(ReminderOrderTest, Icon_PutsRecurringLast_ThenGoesOnAsForTheSubject)
{
    const std::vector<ReminderSortKey> rows = {Row(true, L"a", L"", 1), Row(false, L"b", L"", 1),
                                               Row(true, L"c", L"", 1), Row(false, L"a", L"", 1)};
    EXPECT_EQ((Places{3, 1, 0, 2}), Order(rows, Icon));
    EXPECT_EQ((Places{2, 0, 1, 3}), Order(rows, Icon, false));
}

TEST(ReminderOrderTest, Subject_DiffersInCaseOnly_DecidesLast)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"call b", L"", 1), Row(false, L"call B", L"", 1),
                                               Row(false, L"CALL A", L"", 1), Row(false, L"call a", L"", 1)};
    EXPECT_EQ((Places{2, 3, 1, 0}), Order(rows, Subject));
    EXPECT_EQ((Places{0, 1, 3, 2}), Order(rows, Subject, false));
}

TEST(ReminderOrderTest, Subject_CaseOfUmlautsAndOtherScripts_DecidesLastToo)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"\u00C4rzte", L"2", 1), // Ärzte
                                               Row(false, L"\u00E4rzte", L"1", 1), // ärzte
                                               Row(false, L"\u0416", L"2", 1),     // Zhe
                                               Row(false, L"\u0436", L"1", 1),     // zhe
                                               Row(false, L"z", L"", 1)};
    EXPECT_EQ((Places{4, 0, 1, 2, 3}), Order(rows, Subject));
}

TEST(ReminderOrderTest, EqualSubjects_FallBackToTitleThenDueTime)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"s", L"b", 1), Row(true, L"s", L"a", 9),
                                               Row(false, L"s", L"A", 5), Row(false, L"s", L"a", 2)};
    EXPECT_EQ((Places{2, 3, 1, 0}), Order(rows, Subject)) << "what recurs does not count";
    EXPECT_EQ((Places{0, 1, 3, 2}), Order(rows, Subject, false));
}

TEST(ReminderOrderTest, Document_DoesNotLookAtTheSubject)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"z", L"m", 3), Row(true, L"a", L"m", 2),
                                               Row(false, L"b", L"M", 9)};
    EXPECT_EQ((Places{2, 1, 0}), Order(rows, Document));
    EXPECT_EQ((Places{0, 1, 2}), Order(rows, Document, false));
}

TEST(ReminderOrderTest, DueIn_LooksAtTheDueTimeOnly)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"a", L"", 30), Row(true, L"b", L"", -10),
                                               Row(false, L"c", L"", 20)};
    EXPECT_EQ((Places{1, 2, 0}), Order(rows, DueIn));
    EXPECT_EQ((Places{0, 2, 1}), Order(rows, DueIn, false));
}

TEST(ReminderOrderTest, NoDueTime_IsLastInBothDirections)
{
    const std::vector<ReminderSortKey> rows = {Row(false, L"", L"", std::nullopt), Row(false, L"", L"", 1),
                                               Row(false, L"", L"", std::nullopt), Row(false, L"", L"", 2)};
    EXPECT_EQ((Places{1, 3, 0, 2}), Order(rows, DueIn));
    EXPECT_EQ((Places{3, 1, 0, 2}), Order(rows, DueIn, false));
}

TEST(ReminderOrderTest, UnknownColumn_KeepsTheOrder)
{
    const std::vector<ReminderSortKey> rows = {Row(true, L"b", L"b", 2), Row(false, L"a", L"a", 1)};
    EXPECT_EQ((Places{0, 1}), Order(rows, kUnknown));
    EXPECT_EQ((Places{0, 1}), Order(rows, kUnknown, false));
}

// --- Properties ---

/// Rows with many equal fields.
std::vector<ReminderSortKey> RandomRows(RandomSource& random)
{
    constexpr std::wstring_view kTexts[] = {L"", L"a", L"A", L"b", L"B", L"ab", L"\u00E4", L"\u00C4"};
    std::vector<ReminderSortKey> rows(random.Between<std::size_t>(0, 40));
    for (ReminderSortKey& row : rows)
    {
        row = Row(random.Chance(50), random.OneOf(kTexts), random.OneOf(kTexts), std::nullopt);
        if (random.Chance(80))
        {
            row.due = CTime(random.Between(1, 3));
        }
    }
    return rows;
}

std::wstring Lower(std::wstring_view text)
{
    std::wstring lower(text);
    CharLowerW(lower.data());
    return lower;
}

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

int CompareTexts(std::wstring_view left, std::wstring_view right)
{
    const int folded = Sign(Lower(left).compare(Lower(right)));
    return folded != 0 ? folded : Sign(left.compare(right));
}

/// The rule, word by word: negative when `a` stands before `b`.
int Compare(const ReminderSortKey& a, const ReminderSortKey& b, ReminderColumn column, bool ascending)
{
    const int direction = ascending ? 1 : -1;
    if (column == Icon && a.isRecurrent != b.isRecurrent)
    {
        return a.isRecurrent ? direction : -direction;
    }
    if (column == Icon || column == Subject)
    {
        if (const int result = CompareTexts(a.subject, b.subject); result != 0)
        {
            return result * direction;
        }
    }
    if (column == Icon || column == Subject || column == Document)
    {
        if (const int result = CompareTexts(a.documentTitle, b.documentTitle); result != 0)
        {
            return result * direction;
        }
    }
    if (!a.due || !b.due)
    {
        return int{!a.due} - int{!b.due};
    }
    return *a.due == *b.due ? 0 : (*a.due < *b.due ? -direction : direction);
}

TEST(ReminderOrderTest, AnyRows_AreSortedByTheRuleAndKeepTheirOrderWhereItFindsNone)
{
    RandomSource random;
    for (int round = 0; round < ts::test::Rounds(2000); ++round)
    {
        const std::vector<ReminderSortKey> rows = RandomRows(random);
        const ReminderColumn column = random.OneOf(std::vector{Icon, Subject, Document, DueIn});
        const bool ascending = random.Chance(50);
        const std::vector<int> order = Order(rows, column, ascending);
        for (std::size_t place = 1; place < order.size(); ++place)
        {
            const auto first = static_cast<std::size_t>(order[place - 1]);
            const auto second = static_cast<std::size_t>(order[place]);
            const int result = Compare(rows[first], rows[second], column, ascending);
            ASSERT_TRUE(result < 0 || (result == 0 && first < second))
                << random << " round " << round << " place " << place;
        }
    }
}

TEST(ReminderOrderTest, AnyOrderBefore_GivesTheSameOrderOfDifferentRows)
{
    RandomSource random;
    for (int round = 0; round < ts::test::Rounds(500); ++round)
    {
        std::vector<ReminderSortKey> rows = RandomRows(random);
        for (std::size_t row = 0; row < rows.size(); ++row)
        {
            rows[row].due = CTime(static_cast<std::int64_t>(row) + 1);
        }
        std::vector<ReminderSortKey> reversed(rows.rbegin(), rows.rend());
        std::vector<int> order = Order(reversed, Icon);
        for (int& row : order)
        {
            row = static_cast<int>(rows.size()) - 1 - row;
        }
        ASSERT_EQ(Order(rows, Icon), order) << random << " round " << round;
    }
}

} // namespace
