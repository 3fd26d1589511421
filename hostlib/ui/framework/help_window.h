#pragma once

#include <QWidget>

class QLineEdit;
class QTextBrowser;

namespace mrl::ui {

/// A window that shows help pages. It belongs to the window from which help was asked for, so that it can be
/// read and scrolled while that one, modal or not, waits for input.
class HelpWindow : public QWidget
{
    Q_OBJECT
  public:
    /// @param owner the window that help was asked from; may be null
    explicit HelpWindow(QWidget* owner);

    /// The help window of a window, made when there is none.
    static HelpWindow* of(QWidget* owner);

    void showPage(const QString& book, const QString& topic);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLayout* makeBar();
    void find();
    void followTitle();

    QTextBrowser* m_browser;
    QLineEdit* m_search;
};

} // namespace mrl::ui
