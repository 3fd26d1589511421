#include "workbench/combinations/extremes_model.h"

#include <QLocale>

#include "combine/decimal.h"

namespace mrl::workbench {

using combine::Envelope;

namespace {

constexpr int DIGITS = 6;

bool isNumber(int column) { return column == ExtremesModel::Max || column == ExtremesModel::Min; }

} // namespace

ExtremesModel::ExtremesModel(QObject* parent) : QAbstractTableModel(parent) {}

ExtremesModel::~ExtremesModel() = default;

void ExtremesModel::show(std::shared_ptr<const ProjectCombinations> source, std::size_t situation,
                         std::shared_ptr<const Responses> responses)
{
    beginResetModel();
    m_envelope.reset();
    m_extremes.clear();
    m_source = std::move(source);
    m_responses = std::move(responses);
    if (m_source && m_responses) {
        const combine::Plan& plan = m_source->situations.at(situation).plan;
        m_envelope = std::make_unique<Envelope>(plan, m_responses->numbers);
        auto all = combine::extremesOfAll(plan, m_responses->numbers, m_responses->values.data(),
                                          m_responses->names.size());
        m_extremes = all ? std::move(all->extremes) : std::vector<combine::Extremes>();
    }
    endResetModel();
}

std::optional<combine::Combination> ExtremesModel::combination(int row, Envelope::Direction direction) const
{
    return m_envelope ? m_envelope->combination(m_responses->row(static_cast<std::size_t>(row)), direction)
                      : std::nullopt;
}

int ExtremesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_extremes.size());
}

int ExtremesModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QVariant ExtremesModel::value(const combine::Extreme& extreme) const
{
    return extreme.expression < 0 ? QVariant() : QVariant(QLocale().toString(extreme.value, 'g', DIGITS));
}

QString ExtremesModel::key(int row, Envelope::Direction direction) const
{
    const auto governing = combination(row, direction);
    return governing ? QString::fromStdString(combine::keyText(governing->key)) : QString();
}

QVariant ExtremesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    const combine::Extremes& extremes = m_extremes[row];
    const int column = index.column();
    if (role == Qt::TextAlignmentRole) {
        return QVariant((isNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (role == Qt::UserRole) {
        return isNumber(column) ? QVariant(column == Max ? extremes.max.value : extremes.min.value)
                                : QVariant();
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (column) {
    case Name:
        return m_responses->names[row];
    case Max:
        return value(extremes.max);
    case Min:
        return value(extremes.min);
    default:
        return key(index.row(), column == MaxKey ? Envelope::Direction::Max : Envelope::Direction::Min);
    }
}

QVariant ExtremesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    switch (section) {
    case Name:
        return tr("Response");
    case Max:
        return tr("Maximum");
    case Min:
        return tr("Minimum");
    default:
        return tr("Governing combination");
    }
}

} // namespace mrl::workbench
