#include "workbench/steps/changes_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "hostlib/ui/widget/window_size.h"
#include "workbench/steps/changes_table.h"

namespace mrl::workbench {

namespace {

constexpr QSize WANTED_SIZE(820, 480);

QLabel* wrapped(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

ChangesDialog::ChangesDialog(const QString& heading, std::vector<ShownChange> changes, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Changes"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(wrapped(heading, this));
    auto* table = new ChangesTable(tr("Before"), tr("After"), this);
    table->show(std::move(changes));
    layout->addWidget(table, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(ui::fittingSize(WANTED_SIZE, *this));
}

ConflictDialog::ConflictDialog(std::vector<ShownChange> differences, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Save project"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(wrapped(tr("Another program has changed this project since it was opened."), this));
    auto* table = new ChangesTable(tr("In the file"), tr("Here"), this);
    table->show(std::move(differences));
    layout->addWidget(table, 1);
    layout->addWidget(
        wrapped(tr("Overwriting replaces the actions and load cases of the file by those shown here. "
                   "\"Save as\" keeps both. Reloading gives up what is here, and can be undone."),
                this));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    addChoice(tr("&Reload"), Choice::Reload, "button_reload", buttons);
    addChoice(tr("Save &as..."), Choice::SaveAs, "button_save_as", buttons);
    addChoice(tr("&Overwrite"), Choice::Overwrite, "button_overwrite", buttons);
    buttons->button(QDialogButtonBox::Cancel)->setDefault(true);
    layout->addWidget(buttons);
    resize(ui::fittingSize(WANTED_SIZE, *this));
}

void ConflictDialog::addChoice(const QString& text, Choice choice, const char* name,
                               QDialogButtonBox* buttons)
{
    auto* button = new QPushButton(text, buttons);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    buttons->addButton(button, QDialogButtonBox::ActionRole);
    connect(button, &QPushButton::clicked, this, [this, choice] {
        m_choice = choice;
        accept();
    });
}

} // namespace mrl::workbench
