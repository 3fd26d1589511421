#pragma once

#include "combine/explain.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// A term of a combination with the response of its load case.
struct TermRow
{
    combine::Origin origin;
    double response = 0;

    double contribution() const { return origin.factor * response; }
};

/// One combination, load case by load case.
class TermsModel : public RowsModel<TermRow>
{
    Q_OBJECT
  public:
    enum Column { LoadCase, Action, Role, Factor, Origin, Response, Contribution, Columns };

    explicit TermsModel(QObject* parent);
    void show(std::vector<TermRow> terms);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return Columns; }
    QString caption(int section) const override;

  private:
    static QVariant text(const TermRow& row, int column);
};

} // namespace mrl::workbench
