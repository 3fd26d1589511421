#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace mrl::workbench {

/// The input text that the managers generate, to read and to take along.
class InputPage : public QWidget
{
    Q_OBJECT
  public:
    explicit InputPage(QWidget* parent);
    ~InputPage() override;

    void showText(const QString& text);

  private slots:
    void slot_copy();
    void slot_saveAs();

  private:
    QPlainTextEdit* m_text;
};

} // namespace mrl::workbench
