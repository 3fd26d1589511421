#include "loadcases/load_case_paste.h"

#include <set>

#include "host/mrl_table.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "loadcases/action_list.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_context.h"
#include "model/working_model.h"
#include "rules/load_case_columns.h"
#include "rules/load_case_numbers.h"

namespace {

/// The numbers of lines that become load cases.
class PastedNumbers
{
  public:
    PastedNumbers(const std::set<int>& rows, const std::set<int>& used)
        : m_taken(rows), m_free({rows.begin(), rows.end()}, std::nullopt, used)
    {
        m_taken.insert(used.begin(), used.end());
    }

    /// @param text of the number; empty: the next free one. @return 0 with a reason for one that can't be taken
    int take(const QString& text, QString& reason)
    {
        const int number = text.isEmpty() ? nextFree() : text.toInt();
        if (number < 1 || number > LC_MAX_NUMBER) {
            reason = text.isEmpty() ? LCM_LoadcaseWidget::tr("No number is free.")
                                    : LCM_LoadcaseWidget::tr("\"%1\" is no number from 1 to %2.")
                                          .arg(text)
                                          .arg(LC_MAX_NUMBER);
            return 0;
        }
        if (!m_taken.insert(number).second) {
            reason = LCM_LoadcaseWidget::tr("Load case %1 exists already.").arg(number);
            return 0;
        }
        m_free.take(number);
        return number;
    }

  private:
    int nextFree()
    {
        int number = m_free.next();
        while (m_taken.count(number) != 0) {
            m_free.take(number);
            number = m_free.next();
        }
        return number;
    }

    std::set<int> m_taken;
    LCM_FreeNumbers m_free;
};

QString keyOf(const QString& name) { return name.trimmed().toUpper(); }

} // namespace

LCM_LoadCasePaste::LCM_LoadCasePaste(LCM_LoadcaseWidget& tab, Report report)
    : LCM_PasteHelp(tab, std::move(report)), m_loadCases(tab)
{
}

void LCM_LoadCasePaste::begin()
{
    LCM_PasteHelp::begin();
    readActions();
}

/// A label counts before a name, and a name before a title.
void LCM_LoadCasePaste::readActions()
{
    m_labels.clear();
    const std::shared_ptr<const LCM_ActionList> list = m_loadCases.offeredActions();
    for (const ComboList& entry : list->entries()) {
        m_labels.insert(keyOf(entry.text), entry.text);
    }
    const QString none = list->text(LC_ACTION_NONE);
    for (const QString& name : {QString(), QStringLiteral("NONE")}) {
        m_labels.insert(name, none);
    }
    m_labels.insert(QStringLiteral("IMP"), list->text(LC_ACTION_IMPERFECTION));
    std::vector<std::pair<QString, QString>> titles;
    LCM_RowContext context = m_loadCases.rowContext();
    for (const ComboList& entry : list->entries()) {
        const tagCDB_LC_ACT* action = list->isMarker(entry.id) ? nullptr : context.actions.find(entry.id);
        if (action != nullptr) {
            addName(lcm_code_name(entry.id), entry.text);
            titles.emplace_back(lcm_title_text(action->title), entry.text);
        }
    }
    QHash<QString, QString> byTitle;
    for (const auto& [title, label] : titles) {
        const QString key = keyOf(title);
        byTitle.insert(key, byTitle.contains(key) ? QString() : label);
    }
    for (auto title = byTitle.cbegin(); title != byTitle.cend(); ++title) {
        addName(title.key(), title.value());
    }
}

void LCM_LoadCasePaste::addName(const QString& name, const QString& label)
{
    const QString key = keyOf(name);
    if (!m_labels.contains(key)) {
        m_labels.insert(key, label);
    }
}

QString LCM_LoadCasePaste::understand(int column, QString& text) const
{
    if (column != LC_COL_ACTION) {
        return {};
    }
    const auto label = m_labels.constFind(keyOf(text));
    if (label == m_labels.constEnd()) {
        return LCM_LoadcaseWidget::tr("No action is called \"%1\".").arg(text);
    }
    if (label->isEmpty()) {
        return LCM_LoadcaseWidget::tr("Several actions have the title \"%1\".").arg(text);
    }
    text = *label;
    return {};
}

std::vector<MRL_H_NewRow> LCM_LoadCasePaste::makeRows(const std::vector<QStringList>& lines,
                                                      const std::vector<int>& columns)
{
    const bool hasNumbers = !columns.empty() && columns.front() == LC_COL_NUMBER;
    std::set<int> present;
    m_loadCases.getAllLoadcases(present);
    PastedNumbers numbers(present, m_loadCases.workingModel()->knownLoadCaseNumbers());
    std::vector<MRL_H_NewRow> rows;
    std::vector<int> made;
    int next = m_loadCases.tableWidget()->rowCount();
    for (const QStringList& line : lines) {
        MRL_H_NewRow row;
        const int number = numbers.take(hasNumbers ? line.value(0).trimmed() : QString(), row.reason);
        if (number > 0) {
            row.row = next++;
            made.push_back(number);
        }
        rows.push_back(row);
    }
    m_loadCases.appendNewLoadcases(made);
    return rows;
}
