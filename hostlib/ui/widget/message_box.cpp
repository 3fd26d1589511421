#include <QAbstractButton>
#include <QMessageBox>

#include "host/mrl_widgets.h"

namespace {

struct Choice
{
    QString texts[3];
    int defaultButton;
    int escapeButton;
};

void prepare(QMessageBox& box, const QString& title, const QString& text)
{
    box.setWindowTitle(title);
    box.setText(text);
    // Names that people typed may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

int runBox(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& text,
           const Choice& choice)
{
    QMessageBox box(parent);
    prepare(box, title, text);
    box.setIcon(icon);
    QAbstractButton* buttons[3] = {nullptr, nullptr, nullptr};
    int count = 0;
    for (int i = 0; i < 3; ++i) {
        if (choice.texts[i].isEmpty())
            continue;
        // One role for all: the order stays as given on every desktop, and no role makes a button the
        // escape button by itself.
        auto* button = box.addButton(choice.texts[i], QMessageBox::ActionRole);
        buttons[i] = button;
        ++count;
        if (i == choice.defaultButton)
            box.setDefaultButton(button);
    }
    if (count == 0) {
        buttons[0] = box.addButton(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
    } else if (choice.escapeButton >= 0 && choice.escapeButton < 3 && buttons[choice.escapeButton]) {
        box.setEscapeButton(buttons[choice.escapeButton]);
    }
    box.exec();
    for (int i = 0; i < 3; ++i) {
        if (buttons[i] && box.clickedButton() == buttons[i])
            return i;
    }
    return -1;
}

} // namespace

int MRL_QT_MessageBox::information(QWidget* parent, const QString& title, const QString& text,
                                   const QString& button0, const QString& button1, const QString& button2,
                                   int defaultButton, int escapeButton)
{
    return runBox(parent, QMessageBox::Information, title, text,
                  {{button0, button1, button2}, defaultButton, escapeButton});
}

int MRL_QT_MessageBox::warning(QWidget* parent, const QString& title, const QString& text,
                               const QString& button0, const QString& button1, const QString& button2,
                               int defaultButton, int escapeButton)
{
    return runBox(parent, QMessageBox::Warning, title, text,
                  {{button0, button1, button2}, defaultButton, escapeButton});
}

int MRL_QT_MessageBox::critical(QWidget* parent, const QString& title, const QString& text,
                                const QString& button0, const QString& button1, const QString& button2,
                                int defaultButton, int escapeButton)
{
    return runBox(parent, QMessageBox::Critical, title, text,
                  {{button0, button1, button2}, defaultButton, escapeButton});
}

int MRL_QT_MessageBox::question(QWidget* parent, const QString& title, const QString& text, int button0,
                                int button1, int button2)
{
    QMessageBox box(parent);
    prepare(box, title, text);
    box.setIcon(QMessageBox::Question);
    for (const int button : {button0, button1, button2}) {
        if (button != 0)
            box.addButton(static_cast<QMessageBox::StandardButton>(button));
    }
    return box.exec();
}
