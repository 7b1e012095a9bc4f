#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ts::console
{

/// A table for a terminal: a line of headings, then one line for each row, columns two spaces apart.
///
/// Where the terminal is too narrow, the columns that may shrink are cut, the widest first, down to their
/// least width; after that they are left out, the last one first. Columns that may not shrink are whole in
/// any case.
class Table
{
  public:
    /// A column that is never cut.
    static constexpr std::size_t kWhole = static_cast<std::size_t>(-1);

    /// Headings and least widths of the columns, from left to right.
    void AddColumn(std::string heading, std::size_t leastWidth);
    /// As many cells as there are columns; they may hold any UTF-8. `note`, where there is one, stands in a
    /// line of its own below the row, indented and whole.
    void AddRow(std::vector<std::string> cells, const std::string& note = {});

    /// The columns that the table takes when nothing is cut, without notes.
    [[nodiscard]] std::size_t NaturalWidth() const;
    /// The lines of the table, each at most `width` columns wide as far as whole columns allow it.
    [[nodiscard]] std::string Text(std::size_t width) const;

  private:
    struct Column
    {
        std::size_t leastWidth;
        std::size_t width;
    };

    [[nodiscard]] static std::size_t WidthOf(const std::vector<Column>& columns);
    [[nodiscard]] static bool ShrinkWidest(std::vector<Column>& columns);
    [[nodiscard]] static bool LeaveOutLast(std::vector<Column>& columns);

    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows{1};
    std::vector<std::string> m_notes{1};
};

/// Names and values below one another; values that are too long go on in the lines below.
[[nodiscard]] std::string FieldsText(const std::vector<std::pair<std::string, std::string>>& fields,
                                     std::size_t width);

} // namespace ts::console
