#pragma once

#include <QStringList>
#include <QWidget>

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
    QWidget* m_recent;           ///< child of this
    QVBoxLayout* m_recentLayout; ///< layout of m_recent
};

} // namespace mrl::workbench
