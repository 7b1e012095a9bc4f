#include "Table.h"

#include "DisplayText.h"

#include <algorithm>

namespace ts::console
{
namespace
{

constexpr std::size_t kGap = 2;

/// A width that is left for the values of fields even where the terminal has none.
constexpr std::size_t kLeastValueWidth = 20;

void AppendLine(std::string& text, std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
}

void AppendPadded(std::string& line, const std::string& cell, std::size_t width)
{
    line += cell;
    line.append(width - std::min(width, DisplayWidth(cell)), ' ');
}

} // namespace

void Table::AddColumn(std::string heading, std::size_t leastWidth)
{
    m_columns.push_back({leastWidth, DisplayWidth(heading)});
    m_rows.front().push_back(std::move(heading));
}

void Table::AddRow(std::vector<std::string> cells, const std::string& note)
{
    for (std::size_t index = 0; index < cells.size(); ++index)
    {
        cells[index] = Printable(cells[index]);
        m_columns[index].width = std::max(m_columns[index].width, DisplayWidth(cells[index]));
    }
    m_rows.push_back(std::move(cells));
    m_notes.push_back(Printable(note));
}

std::size_t Table::NaturalWidth() const
{
    return WidthOf(m_columns);
}

std::size_t Table::WidthOf(const std::vector<Column>& columns)
{
    std::size_t width = 0;
    for (const Column& column : columns)
    {
        width += column.width == 0 ? 0 : column.width + (width == 0 ? 0 : kGap);
    }
    return width;
}

bool Table::ShrinkWidest(std::vector<Column>& columns)
{
    Column* widest = nullptr;
    for (Column& column : columns)
    {
        const bool shrinks = column.leastWidth != kWhole && column.width > column.leastWidth;
        if (shrinks && (widest == nullptr || column.width > widest->width))
        {
            widest = &column;
        }
    }
    if (widest != nullptr)
    {
        --widest->width;
    }
    return widest != nullptr;
}

bool Table::LeaveOutLast(std::vector<Column>& columns)
{
    const auto last =
        std::find_if(columns.rbegin(), columns.rend(),
                     [](const Column& column) { return column.leastWidth != kWhole && column.width != 0; });
    if (last != columns.rend())
    {
        last->width = 0;
    }
    return last != columns.rend();
}

std::string Table::Text(std::size_t width) const
{
    std::vector<Column> columns = m_columns;
    // A column may be a megabyte wide; beyond the terminal's width its width does not matter.
    for (Column& column : columns)
    {
        column.width = column.leastWidth == kWhole ? column.width : std::min(column.width, width);
    }
    while (WidthOf(columns) > width && (ShrinkWidest(columns) || LeaveOutLast(columns)))
    {
    }
    std::string text;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        std::string line;
        for (std::size_t index = 0; index < columns.size(); ++index)
        {
            if (columns[index].width != 0)
            {
                line.append(line.empty() ? 0 : kGap, ' ');
                AppendPadded(line, CutToWidth(m_rows[row][index], columns[index].width),
                             columns[index].width);
            }
        }
        AppendLine(text, std::move(line));
        if (!m_notes[row].empty())
        {
            AppendLine(text, std::string(kGap, ' ') + m_notes[row]);
        }
    }
    return text;
}

std::string FieldsText(const std::vector<std::pair<std::string, std::string>>& fields, std::size_t width)
{
    std::size_t nameWidth = 0;
    for (const auto& [name, value] : fields)
    {
        nameWidth = std::max(nameWidth, DisplayWidth(name));
    }
    const std::size_t indent = nameWidth + kGap;
    const std::size_t valueWidth = std::max(width, indent + kLeastValueWidth) - indent;
    std::string text;
    for (const auto& [name, value] : fields)
    {
        std::string line;
        AppendPadded(line, name, indent);
        for (const std::string& part : WrapToWidth(Printable(value), valueWidth))
        {
            AppendLine(text, line + part);
            line.assign(indent, ' ');
        }
    }
    return text;
}

} // namespace ts::console
