#pragma once

#include "platform/engine/sql_functions.h"

#include <functional>
#include <vector>

namespace vasclip::engine::sql {

/// A row as a back end without an SQL of its own has it: the stored value of a field of the table.
using RowValues = std::function<QVariant(int field)>;

/// Works typed expressions out over the rows of one table, for back ends that have no SQL of their own.
class Evaluator
{
public:
    Evaluator(RowValues row, const text::TimeSource& time)
        : m_row(std::move(row))
        , m_time(time)
    {}
    /// Over many rows, for counts and sums.
    Evaluator(std::vector<RowValues> rows, const text::TimeSource& time)
        : m_rows(std::move(rows))
        , m_time(time)
    {}

    /// @throws 3163, 3314 for a value that its field cannot take
    [[nodiscard]] QVariant Evaluate(const Typed& node) const;
    /// Is the condition true? One that is unknown is not.
    [[nodiscard]] bool Holds(const TypedPtr& condition) const;

private:
    [[nodiscard]] QVariant Argument(const Typed& node, std::size_t index) const
    {
        return Evaluate(*node.arguments[index]);
    }
    [[nodiscard]] QVariant Converted(const Typed& node) const;
    [[nodiscard]] QVariant Chain(const Typed& node, bool deciding) const;
    [[nodiscard]] QVariant Compared(const Typed& node) const;
    [[nodiscard]] QVariant Between(const Typed& node) const;
    [[nodiscard]] QVariant Joined(const Typed& node) const;
    [[nodiscard]] QVariant Arithmetic(const Typed& node) const;
    [[nodiscard]] QVariant Called(const Typed& node) const;
    [[nodiscard]] QVariant Aggregated(const Typed& node) const;

    RowValues m_row;
    std::vector<RowValues> m_rows;
    const text::TimeSource& m_time;
};

} // namespace vasclip::engine::sql
