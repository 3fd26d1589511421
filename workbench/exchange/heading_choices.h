#pragma once

#include <QTableWidget>

#include <map>

#include "exchange/format.h"

namespace mrl::workbench {

/// The headings of a file beside what each of them means, which can be chosen by hand.
class HeadingChoices : public QTableWidget
{
    Q_OBJECT
  public:
    explicit HeadingChoices(QWidget* parent);
    ~HeadingChoices() override;

    void show(const exchange::ReadTables& read);
    /// The headings that were chosen by hand, and the column of each; empty: passed over.
    const std::map<std::string, std::string>& chosen() const { return m_chosen; }
    /// Another file begins: nothing is chosen.
    void forget() { m_chosen.clear(); }

  signals:
    void chosenByHand();

  private:
    void addRow(exchange::Sheet sheet, const exchange::FoundHeading& heading);

    std::map<std::string, std::string> m_chosen;
};

} // namespace mrl::workbench
