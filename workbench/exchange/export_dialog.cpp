#include "workbench/exchange/export_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>

#include "exchange/file_writing.h"
#include "hostlib/data/cdb/project.h"
#include "workbench/exchange/text_form_fields.h"

namespace mrl::workbench {

namespace {

using exchange::Sheet;

/// What can be chosen of a project, as the data of the field.
enum Choice { LoadCasesOnly, ActionsOnly, WholeProject };

QString suffixOf(const exchange::Format& format)
{
    // A workbook of another program's model has no ending of its own.
    const std::vector<std::string> suffixes = format.suffixes();
    return suffixes.empty() ? QStringLiteral("%1.xlsx").arg(QString::fromStdString(format.name()))
                            : QString::fromStdString(suffixes.front());
}

} // namespace

ExportDialog::ExportDialog(int db, const QString& project, QWidget* parent)
    : MRL_QT_Dialog(parent, "export"), m_db(db), m_project(project), m_format(new QComboBox(this)),
      m_sheets(new QComboBox(this)), m_versionLabel(new QLabel(tr("&Version:"), this)),
      m_version(new QComboBox(this)), m_textForm(new TextFormFields(TextFormFields::Purpose::Write, this)),
      m_file(new QLineEdit(this)), m_lossesHead(new QLabel(this)), m_losses(new QPlainTextEdit(this)),
      m_export(nullptr)
{
    setCaption(tr("Export"));
    static_cast<void>(
        cdb::facts(m_db, m_facts)); // an error stays with the database, and is told when it is written
    m_format->setObjectName(QStringLiteral("combo_format"));
    m_sheets->setObjectName(QStringLiteral("combo_sheets"));
    m_version->setObjectName(QStringLiteral("combo_version"));
    m_sheets->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_versionLabel->setBuddy(m_version);
    m_lossesHead->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_losses->setObjectName(QStringLiteral("text_losses"));
    m_losses->setReadOnly(true);
    m_losses->setTabChangesFocus(true);
    for (const auto& format : exchange::formats()) {
        m_format->addItem(format->description().translated(), QString::fromStdString(format->name()));
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_export = buttons->button(QDialogButtonBox::Ok);
    m_export->setText(tr("E&xport"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(createForm());
    layout->addWidget(m_lossesHead);
    layout->addWidget(m_losses, 1);
    layout->addWidget(buttons);
    connect(m_format, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ExportDialog::slot_formatChanged);
    connect(m_sheets, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ExportDialog::slot_wishChanged);
    m_file->setText(QDir::toNativeSeparators(QFileInfo(m_project).absolutePath() + QLatin1Char('/') +
                                             QFileInfo(m_project).completeBaseName()));
    slot_formatChanged();
    m_format->setFocus();
    resize(640, 420);
}

ExportDialog::~ExportDialog() = default;

QLayout* ExportDialog::createForm()
{
    auto* form = new QFormLayout;
    form->addRow(tr("&Format:"), m_format);
    form->addRow(tr("&Content:"), m_sheets);
    form->addRow(m_versionLabel, m_version);
    form->addRow(m_textForm);
    form->addRow(tr("F&ile:"), createFileRow());
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return form;
}

QWidget* ExportDialog::createFileRow()
{
    auto* row = new QWidget(this);
    auto* layout = new MRL_QT_HBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_file->setObjectName(QStringLiteral("edit_file"));
    auto* browse = new MRL_QT_PushButton(tr("&Browse..."), row, "button_browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &ExportDialog::slot_browse);
    connect(m_file, &QLineEdit::textChanged, this,
            [this] { m_export->setEnabled(!m_file->text().trimmed().isEmpty()); });
    layout->addWidget(m_file, 1);
    layout->addWidget(browse);
    row->setFocusProxy(m_file);
    return row;
}

const exchange::Format& ExportDialog::format() const
{
    return *exchange::formats()[static_cast<std::size_t>(m_format->currentIndex())];
}

QString ExportDialog::file() const { return QFileInfo(m_file->text().trimmed()).absoluteFilePath(); }

void ExportDialog::slot_browse()
{
    const QString ending = suffixOf(format());
    const QString name = QFileDialog::getSaveFileName(
        this, tr("Export"), file(),
        QStringLiteral("%1 (*.%2);;%3").arg(m_format->currentText(), ending, tr("All files (*)")), nullptr,
        QFileDialog::DontConfirmOverwrite);
    if (!name.isEmpty()) {
        m_file->setText(QDir::toNativeSeparators(name));
    }
}

void ExportDialog::slot_formatChanged()
{
    const QSignalBlocker quiet(m_sheets);
    m_sheets->clear();
    if (format().holdsManySheets()) {
        m_sheets->addItem(tr("the whole project"), WholeProject);
    }
    m_sheets->addItem(tr("load cases"), LoadCasesOnly);
    m_sheets->addItem(tr("actions"), ActionsOnly);
    m_version->clear();
    for (const std::string& version : format().versions()) {
        m_version->addItem(QString::fromStdString(version));
    }
    m_version->setCurrentIndex(m_version->count() - 1);
    m_versionLabel->setVisible(m_version->count() > 0);
    m_version->setVisible(m_version->count() > 0);
    m_textForm->setEnabled(format().isText());
    const QFileInfo present(m_file->text().trimmed());
    m_file->setText(QDir::toNativeSeparators(present.path() + QLatin1Char('/') + present.baseName() +
                                             QLatin1Char('.') + suffixOf(format())));
    slot_wishChanged();
}

void ExportDialog::slot_wishChanged()
{
    QStringList losses;
    for (const exchange::Message& loss : format().losses(source())) {
        losses << loss.translated();
    }
    m_lossesHead->setText(losses.isEmpty() ? tr("The file tells all values.")
                                           : tr("What the file won't tell (%1):").arg(losses.size()));
    m_losses->setPlainText(losses.join(QLatin1Char('\n')));
    m_losses->setVisible(!losses.isEmpty());
}

exchange::Source ExportDialog::source() const
{
    exchange::Source source;
    source.db = m_db;
    source.name = QFileInfo(m_project).completeBaseName().toStdString();
    source.facts = m_facts;
    const int choice = m_sheets->currentData().toInt();
    source.whole = choice == WholeProject;
    if (choice != LoadCasesOnly) {
        source.sheets.push_back(Sheet::Actions);
    }
    if (choice != ActionsOnly) {
        source.sheets.push_back(Sheet::LoadCases);
    }
    return source;
}

exchange::FormatOptions ExportDialog::options() const
{
    exchange::FormatOptions options;
    options.version = m_version->currentText().toStdString();
    if (format().isText()) {
        m_textForm->enterInto(options);
    }
    return options;
}

bool ExportDialog::mayReplace(const QString& path)
{
    if (QFileInfo(path) == QFileInfo(m_project)) {
        QMessageBox::critical(this, tr("Export"), tr("The project itself can't be the file to write."));
        return false;
    }
    return !QFileInfo::exists(path) ||
           QMessageBox::question(this, tr("Export"),
                                 tr("%1 exists. Should it be replaced?").arg(QDir::toNativeSeparators(path)),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void ExportDialog::accept()
{
    if (!mayReplace(file())) {
        return;
    }
    const auto failure = exchange::writeFile(format(), source(), options(), file(),
                                             [this] { return bool(cdb::stickyError(m_db)); });
    if (failure) {
        QMessageBox::critical(
            this, tr("Export"),
            QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file()), failure->message.translated()));
        return;
    }
    MRL_QT_Dialog::accept();
}

} // namespace mrl::workbench
