#pragma once

#include <QHeaderView>

#include <functional>
#include <vector>

/// The header of the rows. Qt measures two hundred row numbers for its width whenever a row comes or goes;
/// one with as many digits tells it as well.
class RowHeader : public QHeaderView
{
  public:
    explicit RowHeader(QWidget* parent);
    QSize sizeHint() const override;
    /// Which rows bear the mark of a finding.
    void setMarkedRows(std::function<bool(int row)> isMarked);

  protected:
    void changeEvent(QEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int row) const override;

  private:
    std::function<bool(int)> m_isMarked;
    mutable int m_digits = 0; ///< of the number of rows that m_hint was measured for
    mutable QSize m_hint;
};

/// The header of the columns. Qt measures all its texts for its height at each layout, thus whenever rows
/// come or go; they only change with the columns themselves.
class ColumnHeader : public QHeaderView
{
  public:
    explicit ColumnHeader(QWidget* parent);
    QSize sizeHint() const override;
    void setModel(QAbstractItemModel* model) override;

  protected:
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    std::vector<bool> shownSections() const;

    mutable std::vector<bool> m_measured; ///< the sections that m_hint was measured for
    mutable QSize m_hint;                 ///< invalid: to be measured
};
