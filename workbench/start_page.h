#pragma once

#include <QStringList>
#include <QWidget>

class QLayout;
class QVBoxLayout;

namespace mrl::workbench {

/// What is seen while no project is open: the ways to one.
class StartPage : public QWidget
{
    Q_OBJECT
  public:
    explicit StartPage(QWidget* parent);
    ~StartPage() override;

    void showRecent(const QStringList& files);

  signals:
    void newWanted();
    void openWanted();
    void recentWanted(const QString& file);

  private:
    /// The icon beside the name of the program and what it is for, not yet in a layout.
    static QLayout* titleLine(QWidget* column);

    QWidget* m_recent;
    QVBoxLayout* m_recentLayout; ///< layout of m_recent
};

} // namespace mrl::workbench
