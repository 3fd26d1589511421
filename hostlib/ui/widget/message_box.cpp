#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

#include "host/mrl_widgets.h"
#include "hostlib/data/cdb/project.h"

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

// A list of hundreds of names would push the buttons off the screen.
void limitHeight(QMessageBox& box)
{
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!label || !grid || !screen) {
        return;
    }
    const QSize room = screen->availableSize();
    const int highest = room.height() / 2;
    if (label->sizeHint().height() <= highest) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->removeWidget(label);
    auto* area = new QScrollArea(&box);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int scrollBar = area->verticalScrollBar()->sizeHint().width();
    area->setMinimumSize(std::min(label->sizeHint().width() + scrollBar, room.width() * 6 / 10), highest);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    area->setWidget(label);
    grid->addWidget(area, row, column, rows, columns);
}

/// Shows the box. Meanwhile the process holds no write lock: other programs could not write either, for as
/// long as the user is away.
int runModal(QMessageBox& box)
{
    limitHeight(box);
    const mrl::cdb::WriteLockPause pause;
    return box.exec();
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
        if (choice.texts[i].isEmpty()) {
            continue;
        }
        // One role for all: the order stays as given on every desktop, and no role makes a button the
        // escape button by itself.
        auto* button = box.addButton(choice.texts[i], QMessageBox::ActionRole);
        buttons[i] = button;
        ++count;
        if (i == choice.defaultButton) {
            box.setDefaultButton(button);
        }
    }
    if (count == 0) {
        buttons[0] = box.addButton(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
    } else if (choice.escapeButton >= 0 && choice.escapeButton < 3 && buttons[choice.escapeButton]) {
        box.setEscapeButton(buttons[choice.escapeButton]);
    }
    runModal(box);
    for (int i = 0; i < 3; ++i) {
        if (buttons[i] && box.clickedButton() == buttons[i]) {
            return i;
        }
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
        if (button != 0) {
            box.addButton(static_cast<QMessageBox::StandardButton>(button));
        }
    }
    return runModal(box);
}
