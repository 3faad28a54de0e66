#include "table.h"

#include <algorithm>

#include "printable.h"

namespace tvoctl {
namespace {

constexpr std::size_t Gap = 2;

/// In characters; what is wider than one place on the screen is not expected here.
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

}  // namespace

Table::Table(const std::vector<std::string>& heads) : m_widths(heads.size())
{
    Add(heads);
}

void Table::Add(const std::vector<std::string>& cells)
{
    Row row;
    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        row.push_back(Printable(cells[i]));
        m_widths[i] = std::max(m_widths[i], Width(row.back()));
    }
    m_rows.push_back(std::move(row));
}

void Table::Print(Output& out) const
{
    if (m_rows.size() == 1)
    {
        return;
    }
    for (const Row& row : m_rows)
    {
        out.Print(Line(row));
    }
}

std::string Table::Line(const Row& row) const
{
    std::string line;
    for (std::size_t i = 0; i + 1 < row.size(); ++i)
    {
        line += row[i] + std::string(m_widths[i] - Width(row[i]) + Gap, ' ');
    }
    return line + row.back();
}

}  // namespace tvoctl
