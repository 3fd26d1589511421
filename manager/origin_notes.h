#pragma once

#include <QObject>

#include "history/step.h"
#include "host/mrl_cell_notes.h"

class LCM_TabInterface;
class QLabel;
class QMenu;

/// Tells where the factors of both tables come from: in the tool tip of a cell and in a line for the current one, by
/// slanted text where a factor differs from the design code, and in the help of the row (Shift+F1). The menu of
/// the actions tells what "reinit" would change.
class LCM_OriginNotes : public QObject
{
    Q_OBJECT
  public:
    /// @param line shows the origin of the current cell. All outlive this but for the parent
    LCM_OriginNotes(const LCM_HistoryTabs& tabs, QLabel& line, QObject* parent);
    ~LCM_OriginNotes() override;

  private:
    /// The note on a cell of one of the tables.
    using NoteOn = MRL_H_CellNote (*)(const MRL_H_TableWidget& table, int row, int column);

    void follow(LCM_TabInterface* tab, NoteOn noteOn);
    void showCurrent();
    void fillMenu(QMenu& menu);

    LCM_HistoryTabs m_tabs;
    QLabel& m_line;
};
