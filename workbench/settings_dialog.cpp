#include "workbench/settings_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>

#include "hostlib/data/settings/settings.h"
#include "hostlib/ui/widget/application.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

constexpr int RESTRICTED_MODES = 24;
constexpr int RESTRICTED_MODE = 8;

QLabel* hint(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft); // close to what it explains
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    label->setFont(font);
    return label;
}

} // namespace

SettingsDialog::SettingsDialog(QWidget* parent)
    : MRL_QT_Dialog(parent, "settings"), m_language(new MRL_QT4_ComboBox(this, "combo_language")),
      m_experimental(new MRL_QT_CheckBox(tr("&Experimental functions"), this, "check_experimental")),
      m_restricted(new MRL_QT_CheckBox(tr("&Restricted run mode"), this, "check_restricted")),
      m_extras(new MRL_QT_CheckBox(tr("&More than the plain managers"), this, "check_extras")),
      m_oneTab(new MRL_QT_CheckBox(tr("&One tab a task"), this, "check_one_tab"))
{
    setCaption(tr("Settings"));
    // Each language stands under its own name, so that its speakers find it.
    m_language->addItem(QStringLiteral("English"), settings::English);
    m_language->addItem(QStringLiteral("Deutsch"), settings::German);
    m_language->setCurrentId(settings::language());
    m_experimental->setChecked(MRL_QT_ApplicationInterface::experimentalOn());
    m_restricted->setChecked((settings::runMode() & RESTRICTED_MODES) != 0);
    m_extras->setChecked(wantsExtras());
    m_oneTab->setChecked(wantsOneTab());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(createForm());
    layout->addStretch(1);
    layout->addWidget(buttons);
    resize(480, sizeHint().height());
}

SettingsDialog::~SettingsDialog() = default;

QLayout* SettingsDialog::createForm()
{
    auto* form = new QFormLayout;
    form->addRow(tr("&Language:"), m_language);
    form->addRow(QString(), hint(tr("A change of the language holds from the next start."), this));
    form->addRow(tr("Functions:"), m_experimental);
    form->addRow(QString(), hint(tr("Shows commands that are still on trial, such as \"ADD ALL\" in the "
                                    "Action Manager."),
                                 this));
    form->addRow(QString(), m_restricted);
    form->addRow(QString(),
                 hint(tr("The Action Manager then offers the actions of the design code only."), this));
    form->addRow(QString(), m_extras);
    form->addRow(QString(),
                 hint(tr("Undo and redo, search, filter and a list of findings in the managers. The "
                         "workbench tells what an OK has changed."),
                      this));
    form->addRow(QString(), m_oneTab);
    form->addRow(QString(),
                 hint(tr("Each task then opens its own tab. With both tabs, deleting an action shows "
                         "which load cases use it."),
                      this));
    return form;
}

void SettingsDialog::accept()
{
    settings::setLanguage(m_language->getCurrentId());
    ui::setExperimental(m_experimental->isChecked());
    const int other = settings::runMode() & ~RESTRICTED_MODES;
    const bool was = (settings::runMode() & RESTRICTED_MODES) != 0;
    // Which of the restricted modes it is stays as it was.
    if (was != m_restricted->isChecked()) {
        settings::setRunMode(m_restricted->isChecked() ? other | RESTRICTED_MODE : other);
    }
    if (wantsExtras() != m_extras->isChecked()) {
        storeExtras(m_extras->isChecked());
    }
    storeOneTab(m_oneTab->isChecked());
    MRL_QT_Dialog::accept();
}

} // namespace mrl::workbench
