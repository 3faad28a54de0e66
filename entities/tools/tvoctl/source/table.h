#pragma once

#include <string>
#include <vector>

#include "output.h"

namespace tvoctl {

/// Rows of texts in aligned columns, for people. A text may hold any bytes.
class Table final
{
public:
    explicit Table(const std::vector<std::string>& heads);

    /// @param cells  as many as there are heads
    void Add(const std::vector<std::string>& cells);

    /// Prints nothing, not even the heads, when there are no rows.
    void Print(Output& out) const;

private:
    using Row = std::vector<std::string>;

    [[nodiscard]] std::string Line(const Row& row) const;

    std::vector<Row> m_rows;
    std::vector<std::size_t> m_widths;
};

}  // namespace tvoctl
