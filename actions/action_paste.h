#pragma once

#include <QHash>
#include <QSet>

#include "actions/paste_help.h"

class LCM_ActionsWidget;
struct LCM_NewAction;
struct LCM_TypedName;

/// Pasting into the table of the actions: lines beyond the last row become new actions, by the name in their first field.
/// A free action of the design code comes with its values, any other name makes an action of one's own.
class LCM_ActionPaste : public LCM_PasteHelp
{
  public:
    /// @param tab outlives this
    LCM_ActionPaste(LCM_ActionsWidget& tab, Report report);

    std::vector<MRL_H_NewRow> makeRows(const std::vector<QStringList>& lines,
                                       const std::vector<int>& columns) override;
    QString understand(int column, QString& text) const override;

  private:
    /// The free actions of the design code by name.
    QHash<QString, LCM_NewAction> freeActions() const;
    /// What a name makes. @param reason [out] why it makes none
    std::optional<LCM_NewAction> actionOf(const LCM_TypedName& typed,
                                          const QHash<QString, LCM_NewAction>& free, QSet<QString>& used,
                                          QString& reason) const;

    LCM_ActionsWidget& m_actions;
};
