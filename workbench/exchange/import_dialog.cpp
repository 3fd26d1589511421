#include "workbench/exchange/import_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QTabWidget>

#include "hostlib/ui/widget/window_size.h"
#include "workbench/combinations/find_table.h"
#include "workbench/exchange/heading_choices.h"
#include "workbench/exchange/plan_model.h"
#include "workbench/exchange/text_form_fields.h"

namespace mrl::workbench {

namespace {

using exchange::Outcome;

constexpr Outcome OUTCOMES[] = {Outcome::Added, Outcome::Changed, Outcome::Unchanged, Outcome::Refused};
constexpr int MANY_ROWS = 1000;
constexpr QSize WANTED_SIZE(980, 620);
constexpr int ALL = -1; ///< of the field that chooses an outcome

enum Tab { RowsTab, ColumnsTab, NotesTab };

QString filters()
{
    QStringList endings;
    for (const auto& format : exchange::formats()) {
        for (const std::string& suffix : format->suffixes()) {
            endings << QStringLiteral("*.") + QString::fromStdString(suffix);
        }
    }
    return ImportDialog::tr("Tables (%1)").arg(endings.join(QLatin1Char(' '))) + QStringLiteral(";;") +
           ImportDialog::tr("All files (*)");
}

} // namespace

ImportDialog::ImportDialog(int db, RunStep runStep, QWidget* parent)
    : MRL_QT_Dialog(parent, "import"), m_db(db), m_runStep(std::move(runStep)),
      m_proposal(std::make_unique<ImportProposal>()), m_file(new QLineEdit(this)),
      m_format(newFittingField("combo_format", this)), m_sheet(newFittingField("combo_sheet", this)),
      m_textForm(new TextFormFields(TextFormFields::Purpose::Read, this)),
      m_match(newFittingField("combo_match", this)),
      m_createActions(new MRL_QT_CheckBox(tr("Take missing &actions from the design code"), this,
                                          "check_create_actions")),
      m_skipRefused(new MRL_QT_CheckBox(tr("Leave &out refused rows"), this, "check_skip_refused")),
      m_model(new PlanModel(this)), m_rows(new FindTable(m_model, "table_plan", this)),
      m_outcome(newFittingField("combo_outcome", this)), m_headings(new HeadingChoices(this)),
      m_notes(new QPlainTextEdit(this)), m_tabs(new QTabWidget(this)), m_summary(new QLabel(this))
{
    setCaption(tr("Import"));
    m_notes->setReadOnly(true);
    m_notes->setTabChangesFocus(true);
    m_notes->setObjectName(QStringLiteral("text_notes"));
    m_summary->setObjectName(QStringLiteral("label_summary"));
    m_summary->setWordWrap(true);
    m_summary->setTextFormat(Qt::PlainText);
    m_tabs->setObjectName(QStringLiteral("import_tabs"));
    m_tabs->addTab(createRowsPage(), tr("Rows"));
    m_tabs->addTab(m_headings, tr("Columns"));
    m_tabs->addTab(m_notes, tr("Notes"));
    m_tabs->setDocumentMode(true);
    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(createForm());
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_summary);
    layout->addWidget(createButtons());
    connect(m_textForm, &TextFormFields::changed, this, &ImportDialog::slot_propose);
    connect(m_headings, &HeadingChoices::chosenByHand, this, &ImportDialog::slot_propose);
    connect(m_createActions, &QCheckBox::clicked, this, &ImportDialog::slot_propose);
    connect(m_skipRefused, &QCheckBox::clicked, this, [this] { m_import->setEnabled(canApply()); });
    for (QComboBox* field : {m_format, m_sheet, m_match}) {
        connect(field, QOverload<int>::of(&QComboBox::activated), this, &ImportDialog::slot_propose);
    }
    connect(m_outcome, QOverload<int>::of(&QComboBox::activated), this, &ImportDialog::slot_showRows);
    m_import->setEnabled(false);
    resize(ui::fittingSize(WANTED_SIZE, *this));
}

ImportDialog::~ImportDialog()
{
    // A field that has the focus ends its editing when it goes, and then this is no dialog any more.
    m_file->disconnect(this);
}

QLayout* ImportDialog::createForm()
{
    m_format->addItem(tr("automatic"), QString());
    for (const auto& format : exchange::formats()) {
        m_format->addItem(format->description().translated(), QString::fromStdString(format->name()));
    }
    m_sheet->addItem(tr("automatic"), QString());
    m_sheet->addItem(tr("load cases"), QString::fromLatin1(exchange::nameOf(exchange::Sheet::LoadCases)));
    m_sheet->addItem(tr("actions"), QString::fromLatin1(exchange::nameOf(exchange::Sheet::Actions)));
    m_match->addItem(tr("their number"), false);
    m_match->addItem(tr("their title"), true);
    auto* form = new QFormLayout;
    form->addRow(tr("F&ile:"), createFileRow());
    form->addRow(createOptions());
    form->addRow(m_textForm);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return form;
}

QLayout* ImportDialog::createOptions()
{
    auto* options = new QVBoxLayout;
    const auto addLine = [&](const std::vector<std::pair<QString, QComboBox*>>& fields) {
        auto* line = new QHBoxLayout;
        for (const auto& [text, field] : fields) {
            auto* label = new QLabel(text, this);
            label->setBuddy(field);
            line->addWidget(label);
            line->addWidget(field);
        }
        line->addStretch(1);
        options->addLayout(line);
    };
    addLine({{tr("&Format:"), m_format}, {tr("&Content:"), m_sheet}});
    addLine({{tr("Load cases are found &by"), m_match}});
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(m_createActions);
    boxes->addWidget(m_skipRefused);
    boxes->addStretch(1);
    options->addLayout(boxes);
    return options;
}

QWidget* ImportDialog::createFileRow()
{
    auto* row = new QWidget(this);
    auto* layout = new MRL_QT_HBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_file->setObjectName(QStringLiteral("edit_file"));
    m_file->installEventFilter(this);
    connect(m_file, &QLineEdit::editingFinished, this, &ImportDialog::slot_fileEdited);
    auto* browse = new MRL_QT_PushButton(tr("B&rowse..."), row, "button_browse");
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &ImportDialog::slot_browse);
    layout->addWidget(m_file, 1);
    layout->addWidget(browse);
    row->setFocusProxy(m_file);
    return row;
}

QWidget* ImportDialog::createRowsPage()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 6, 0, 0);
    auto* line = new QHBoxLayout;
    auto* label = new QLabel(tr("&Show:"), page);
    label->setBuddy(m_outcome);
    line->addWidget(label);
    line->addWidget(m_outcome);
    line->addStretch(1);
    line->addWidget(m_rows->findField());
    layout->addLayout(line);
    layout->addWidget(m_rows, 1);
    return page;
}

QWidget* ImportDialog::createButtons()
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_import = buttons->button(QDialogButtonBox::Ok);
    m_import->setText(tr("I&mport"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ImportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ImportDialog::reject);
    return buttons;
}

void ImportDialog::slot_browse()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Import"), QFileInfo(m_file->text()).absolutePath(), filters());
    if (!file.isEmpty()) {
        openFile(file);
    }
}

void ImportDialog::slot_fileEdited()
{
    const QString file = m_file->text().trimmed();
    if (!file.isEmpty() && QFileInfo(file).absoluteFilePath() != m_read) {
        openFile(file);
    }
}

bool ImportDialog::eventFilter(QObject* object, QEvent* event)
{
    if (object == m_file && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            slot_fileEdited();
            return true;
        }
    }
    return MRL_QT_Dialog::eventFilter(object, event);
}

void ImportDialog::openFile(const QString& file)
{
    m_file->setText(QDir::toNativeSeparators(file));
    m_read = QFileInfo(file).absoluteFilePath();
    m_headings->forget();
    slot_propose();
}

ImportWish ImportDialog::wish() const
{
    ImportWish wish;
    wish.file = m_read;
    wish.format = exchange::formatOfName(m_format->currentData().toString().toStdString());
    m_textForm->enterInto(wish.told);
    const QString sheet = m_sheet->currentData().toString();
    for (const exchange::Sheet one : {exchange::Sheet::Actions, exchange::Sheet::LoadCases}) {
        if (sheet == QLatin1String(exchange::nameOf(one))) {
            wish.told.sheet = one;
        }
    }
    wish.told.columns = m_headings->chosen();
    wish.told.byTitle = m_match->currentData().toBool();
    wish.options.match = wish.told.byTitle ? exchange::Match::Title : exchange::Match::Number;
    wish.options.createActions = m_createActions->isChecked();
    return wish;
}

void ImportDialog::slot_propose()
{
    if (m_read.isEmpty()) {
        return;
    }
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_model->show(nullptr, std::nullopt); // which looks into the proposal that ends here
    *m_proposal = proposeImport(m_db, wish());
    showProposal();
    QGuiApplication::restoreOverrideCursor();
}

void ImportDialog::showProposal()
{
    QStringList notes;
    for (const exchange::Message& note : m_proposal->read.notes) {
        notes << note.translated();
    }
    m_notes->setPlainText(notes.join(QLatin1Char('\n')));
    m_tabs->setTabText(NotesTab, tr("Notes (%1)").arg(notes.size()));
    m_format->setItemText(0, m_proposal->format == nullptr
                                 ? tr("automatic")
                                 : tr("automatic: %1").arg(m_proposal->format->description().translated()));
    m_textForm->setEnabled(m_proposal->format != nullptr && m_proposal->format->isText());
    m_textForm->showFound(m_proposal->read.form);
    m_headings->show(m_proposal->read);
    const bool isRead = m_proposal->error.isEmpty();
    m_summary->setText(isRead ? summary() : m_proposal->error);
    // Columns that don't fit are put right there.
    if (!isRead && m_headings->rowCount() > 0) {
        m_tabs->setCurrentIndex(ColumnsTab);
    }
    fillOutcomes();
    slot_showRows();
    m_rows->fitColumns({PlanModel::Changes, PlanModel::Remarks});
    m_import->setEnabled(canApply());
}

void ImportDialog::fillOutcomes()
{
    const int chosen = m_outcome->count() == 0 ? ALL : m_outcome->currentData().toInt();
    m_outcome->clear();
    m_outcome->addItem(tr("all rows (%1)").arg(m_proposal->plan.rows.size()), ALL);
    for (const Outcome outcome : OUTCOMES) {
        m_outcome->addItem(QStringLiteral("%1 (%2)").arg(PlanModel::nameOf(outcome)).arg(count(outcome)),
                           static_cast<int>(outcome));
    }
    m_outcome->setCurrentIndex(m_outcome->findData(chosen));
}

void ImportDialog::slot_showRows()
{
    const int chosen = m_outcome->currentData().toInt();
    m_model->show(&m_proposal->plan,
                  chosen == ALL ? std::nullopt : std::optional(static_cast<Outcome>(chosen)));
}

QString ImportDialog::summary() const
{
    QStringList parts;
    for (const Outcome outcome : OUTCOMES) {
        parts << QStringLiteral("%1 %2").arg(count(outcome)).arg(PlanModel::nameOf(outcome));
    }
    return parts.join(QStringLiteral(", "));
}

bool ImportDialog::canApply() const
{
    const bool changes = m_proposal->format != nullptr && m_proposal->error.isEmpty() &&
                         count(Outcome::Added) + count(Outcome::Changed) > 0;
    return changes && (m_skipRefused->isChecked() || count(Outcome::Refused) == 0);
}

void ImportDialog::accept()
{
    if (!canApply()) {
        return;
    }
    QProgressDialog progress(tr("Importing..."), tr("Cancel"), 0,
                             static_cast<int>(m_proposal->plan.rows.size()), this);
    progress.setObjectName(QStringLiteral("import_progress"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setAutoClose(false); // the transaction is to end first
    if (progress.maximum() > MANY_ROWS) {
        progress.setMinimumDuration(0); // before it is shown it can't be cancelled
    }
    ImportOutcome outcome = ImportOutcome::Failed;
    m_runStep(tr("Import of %1").arg(QFileInfo(m_read).fileName()), [&] {
        outcome = applyImport(m_db, *m_proposal, [&](int rows) {
            progress.setValue(rows);
            return !progress.wasCanceled();
        });
    });
    progress.close();
    switch (outcome) {
    case ImportOutcome::Done:
        MRL_QT_Dialog::accept();
        break;
    case ImportOutcome::Cancelled:
        m_summary->setText(tr("Cancelled; the project is as it was."));
        break;
    case ImportOutcome::Failed:
        QMessageBox::critical(this, tr("Import"),
                              tr("The rows could not be written. The project is as it was."));
        break;
    }
}

} // namespace mrl::workbench
