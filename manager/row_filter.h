#pragma once

#include <QString>

#include <optional>

class MRL_H_TableWidget;
class QTableWidgetItem;

/// Which rows of a table a person wants to see, as typed: a text that a cell has in its own, "=Q_B" for a cell of
/// exactly this text, value or first word, and ">1.0", "<", ">=", "<=" for a factor.
class LCM_RowFilter
{
  public:
    explicit LCM_RowFilter(const QString& wish);

    /// Whether every row is wanted.
    bool isEmpty() const { return m_text.isEmpty(); }
    /// Looks at the columns that are shown.
    bool accepts(const MRL_H_TableWidget& table, int row) const;

  private:
    enum class Kind { Contains, Equals, Above, AtLeast, Below, AtMost };

    bool acceptsCell(const QTableWidgetItem& cell) const;
    bool acceptsNumber(double number) const;

    Kind m_kind = Kind::Contains;
    QString m_text;
    std::optional<double> m_number;
};
