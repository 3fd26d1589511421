#include "workbench/new_project_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>

#include "hostlib/data/designcode/designcode.h"
#include "lcdata/values/system_words.h"
#include "workbench/axis_name.h"

namespace mrl::workbench {

namespace {

/// A file name that is not taken yet.
QString freeName(const QString& folder, const QString& base)
{
    const QDir dir(folder);
    QString name = base + QStringLiteral(".cdb");
    for (int i = 2; dir.exists(name); ++i) {
        name = QStringLiteral("%1-%2.cdb").arg(base).arg(i);
    }
    return dir.filePath(name);
}

QString withEnding(const QString& file)
{
    const QString trimmed = file.trimmed();
    if (trimmed.isEmpty() || trimmed.endsWith(QLatin1String(".cdb"), Qt::CaseInsensitive)) {
        return trimmed;
    }
    return trimmed + QStringLiteral(".cdb");
}

/// What people call the code, and its name where the file doesn't say or can't be read.
QString labelOf(const designcode::Found& found)
{
    const auto read = designcode::read(found.file);
    const auto* code = std::get_if<designcode::DesignCode>(&read);
    return code && !code->label.empty() ? QString::fromStdString(code->label)
                                        : QString::fromStdString(found.name);
}

} // namespace

NewProjectDialog::NewProjectDialog(const QString& folder, QWidget* parent)
    : MRL_QT_Dialog(parent, "new project"), m_file(nullptr), m_designCode(new QComboBox(this)),
      m_system(new MRL_QT4_ComboBox(this, "combo_system")),
      m_gravity(new MRL_QT4_ComboBox(this, "combo_gravity")),
      m_defaults(
          new MRL_QT_CheckBox(tr("Store the &default actions of the design code"), this, "check_defaults")),
      m_create(nullptr)
{
    setCaption(tr("New project"));
    m_designCode->setObjectName(QStringLiteral("combo_designcode"));
    auto* form = new QFormLayout;
    form->addRow(tr("&File:"), createFileRow(folder));
    form->addRow(tr("Design &code:"), m_designCode);
    form->addRow(tr("&System:"), m_system);
    form->addRow(tr("&Gravity:"), m_gravity);
    form->addRow(QString(), m_defaults);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_create = buttons->button(QDialogButtonBox::Ok);
    m_create->setText(tr("C&reate"));
    connect(buttons, &QDialogButtonBox::accepted, this, &NewProjectDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NewProjectDialog::reject);

    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addWidget(buttons);

    fillDesignCodes();
    fillSystems();
    fillGravity();
    connect(m_system, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &NewProjectDialog::slot_systemChanged);
    connect(m_file, &QLineEdit::textChanged, this, &NewProjectDialog::slot_inputChanged);
    setTabOrder(m_file, m_designCode);
    m_file->setFocus();
    slot_inputChanged();
    resize(560, sizeHint().height());
}

NewProjectDialog::~NewProjectDialog() = default;

QWidget* NewProjectDialog::createFileRow(const QString& folder)
{
    auto* row = new QWidget(this);
    auto* layout = new MRL_QT_HBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_file = new QLineEdit(QDir::toNativeSeparators(freeName(folder, tr("project"))), row);
    m_file->setObjectName(QStringLiteral("edit_file"));
    m_file->setAccessibleName(tr("File"));
    auto* browse = new MRL_QT_PushButton(tr("&Browse..."), row, "button_browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &NewProjectDialog::slot_browse);
    layout->addWidget(m_file, 1);
    layout->addWidget(browse);
    row->setFocusProxy(m_file);
    return row;
}

void NewProjectDialog::fillDesignCodes()
{
    for (const auto& found : designcode::list()) {
        m_designCode->addItem(labelOf(found), QString::fromStdString(found.name));
    }
    const int usual = m_designCode->findData(QStringLiteral("en1990"));
    m_designCode->setCurrentIndex(usual >= 0 ? usual : 0);
}

void NewProjectDialog::fillSystems()
{
    m_system->addItem(tr("Spatial structure"), LC_SYSTEM_SPATIAL);
    m_system->addItem(tr("Plane structure"), LC_SYSTEM_PLANE);
    m_system->addItem(tr("Plate"), LC_SYSTEM_PLATE);
}

void NewProjectDialog::fillGravity()
{
    for (const LCM_GravityAxis& axis : LCM_GRAVITY_AXES) {
        m_gravity->addItem(axisName(axis.id), axis.id);
    }
    m_gravity->setCurrentId(lcm_usual_gravity(LC_SYSTEM_SPATIAL));
}

void NewProjectDialog::slot_browse()
{
    const QString file =
        QFileDialog::getSaveFileName(this, tr("File of the new project"), m_file->text(),
                                     tr("Projects (*.cdb)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (!file.isEmpty()) {
        m_file->setText(QDir::toNativeSeparators(file));
    }
}

void NewProjectDialog::slot_systemChanged(int)
{
    m_gravity->setCurrentId(lcm_usual_gravity(m_system->getCurrentId()));
}

void NewProjectDialog::slot_inputChanged()
{
    m_create->setEnabled(!m_file->text().trimmed().isEmpty() && m_designCode->currentIndex() >= 0);
}

NewProject NewProjectDialog::wish() const
{
    NewProject wish;
    wish.file = QFileInfo(withEnding(m_file->text())).absoluteFilePath();
    wish.designCode = m_designCode->currentData().toString();
    wish.systemClass = m_system->getCurrentId();
    wish.gravity = m_gravity->getCurrentId();
    wish.withDefaultActions = m_defaults->isChecked();
    return wish;
}

void NewProjectDialog::accept()
{
    const QString file = wish().file;
    if (QFileInfo::exists(file)) {
        const auto answer =
            QMessageBox::question(this, tr("New project"),
                                  tr("%1 exists. Should it be replaced?").arg(QDir::toNativeSeparators(file)),
                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes) {
            return;
        }
    }
    MRL_QT_Dialog::accept();
}

} // namespace mrl::workbench
