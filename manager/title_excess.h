#pragma once

#include <QObject>

class LCM_TabInterface;
class QLineEdit;

/// Tells while a title is typed what of it is longer than a record holds, since the rest would be gone in silence.
class LCM_TitleExcess : public QObject
{
    Q_OBJECT
  public:
    /// @param tab outlives this. @param titleColumn id of the column
    LCM_TitleExcess(LCM_TabInterface* tab, int titleColumn, QObject* parent);

    /// What a record doesn't keep of a title; empty when it keeps all.
    static QString excessOf(const QString& title);

  private:
    void watch(QLineEdit* editor);
    void tell(QLineEdit* editor) const;

    LCM_TabInterface* m_tab;
    int m_titleColumn;
};
