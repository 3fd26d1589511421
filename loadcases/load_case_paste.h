#pragma once

#include <QHash>

#include "actions/paste_help.h"

class LCM_LoadcaseWidget;

/// Pasting into the load-case table: an action is named as people name it, and lines beyond the last row become new
/// load cases.
class LCM_LoadCasePaste : public LCM_PasteHelp
{
  public:
    /// @param tab outlives this
    LCM_LoadCasePaste(LCM_LoadcaseWidget& tab, Report report);

    void begin() override;
    std::vector<MRL_H_NewRow> makeRows(const std::vector<QStringList>& lines,
                                       const std::vector<int>& columns) override;
    QString understand(int column, QString& text) const override;

  private:
    void readActions();
    void addName(const QString& name, const QString& label);

    LCM_LoadcaseWidget& m_loadCases;
    QHash<QString, QString>
        m_labels; ///< of the actions, by label, name and title in upper case; empty: ambiguous
};
