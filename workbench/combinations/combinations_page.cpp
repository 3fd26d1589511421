#include "workbench/combinations/combinations_page.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QSaveFile>
#include <QSplitter>
#include <QSvgRenderer>
#include <QSvgWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <unordered_map>

#include "combine/decimal.h"
#include "combine/remarks.h"
#include "host/mrl_widgets.h"
#include "report/readable.h"
#include "workbench/combinations/combination_list_model.h"
#include "workbench/combinations/contribution_picture.h"
#include "workbench/combinations/extremes_model.h"
#include "workbench/combinations/find_table.h"
#include "workbench/combinations/situations_model.h"
#include "workbench/combinations/terms_model.h"

namespace mrl::workbench {

namespace {

enum Tab { ListTab, ExtremesTab };

// Of the page: the situations stay in sight, most of it is for what governs.
constexpr int SITUATIONS_SHARE = 2;
constexpr int TABS_SHARE = 5;
constexpr int EXTREMES_SHARE = 3;
constexpr int DETAIL_SHARE = 4;
constexpr double SMALLEST_PICTURE = 0.5; // of its size

QLabel* textLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

/// Gives two parts their shares of the height; they go on growing in step.
void divide(QSplitter* splitter, int upper, int lower)
{
    constexpr int WHOLE = 1000;
    splitter->setStretchFactor(0, upper);
    splitter->setStretchFactor(1, lower);
    splitter->setSizes({upper * WHOLE, lower * WHOLE});
}

QWidget* column(std::initializer_list<QWidget*> widgets, QWidget* parent)
{
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 4, 0, 0);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget, qobject_cast<QLabel*>(widget) == nullptr ? 1 : 0);
    }
    return page;
}

} // namespace

CombinationsPage::CombinationsPage(QWidget* parent)
    : QWidget(parent), m_problem(textLabel("combinations_problem", this)),
      m_file(textLabel("responses_file", this)), m_changes(textLabel("responses_changes", this)),
      m_listRemark(textLabel("list_remark", this)), m_termsHead(textLabel("terms_head", this)),
      m_tabs(new QTabWidget(this)),
      m_savePicture(new MRL_QT_PushButton(tr("Save &picture as..."), this, "button_picture")),
      m_picture(new QSvgWidget(this)), m_situationsModel(new SituationsModel(this)),
      m_listModel(new CombinationListModel(this)), m_extremesModel(new ExtremesModel(this)),
      m_termsModel(new TermsModel(this)),
      m_situations(new FindTable(m_situationsModel, "table_situations", this)),
      m_list(new FindTable(m_listModel, "table_combinations", this)),
      m_extremes(new FindTable(m_extremesModel, "table_extremes", this)),
      m_terms(new FindTable(m_termsModel, "table_terms", this))
{
    setObjectName(QStringLiteral("combinations"));
    m_situations->table()->setAccessibleName(tr("Situations"));
    m_list->table()->setAccessibleName(tr("Combinations"));
    m_extremes->table()->setAccessibleName(tr("Extremes"));
    m_terms->table()->setAccessibleName(tr("Terms of the combination"));
    m_situations->table()->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_situations->table()->setWordWrap(true);
    m_tabs->setObjectName(QStringLiteral("combinations_tabs"));
    m_tabs->addTab(column({m_listRemark, m_list}, this), tr("List"));
    m_tabs->addTab(createExtremes(), tr("Extremes"));
    m_tabs->setDocumentMode(true);
    m_tabs->setCornerWidget(createFindFields());
    connect(m_tabs, &QTabWidget::currentChanged, this, &CombinationsPage::showFindField);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(m_situations);
    splitter->addWidget(m_tabs);
    divide(splitter, SITUATIONS_SHARE, TABS_SHARE);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createHead());
    layout->addWidget(m_problem);
    layout->addWidget(splitter, 1);
    connect(m_situations, &FindTable::currentChanged, this, &CombinationsPage::slot_situationChanged);
    connect(m_extremes->table()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CombinationsPage::slot_responseChanged);
    forget();
}

CombinationsPage::~CombinationsPage() = default;

QWidget* CombinationsPage::createHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* open = new MRL_QT_PushButton(tr("&Responses..."), head, "button_responses");
    connect(open, &QPushButton::clicked, this, &CombinationsPage::slot_open);
    layout->addWidget(open);
    layout->addWidget(m_file, 1, Qt::AlignVCenter);
    layout->addWidget(m_situations->findField());
    return head;
}

/// The page has four tables, and no line of its own for the field of each.
QWidget* CombinationsPage::createFindFields()
{
    auto* fields = new QWidget(this);
    auto* layout = new QHBoxLayout(fields);
    layout->setContentsMargins(0, 0, 0, 2);
    layout->addWidget(m_list->findField());
    layout->addWidget(m_extremes->findField());
    return fields;
}

void CombinationsPage::showFindField()
{
    const bool isList = m_tabs->currentIndex() == ListTab;
    m_list->findField()->setVisible(isList && !m_list->isHidden());
    m_extremes->findField()->setVisible(!isList);
}

QWidget* CombinationsPage::createTermsHead()
{
    connect(m_savePicture, &QPushButton::clicked, this, &CombinationsPage::slot_savePicture);
    auto* head = new QWidget(this);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_termsHead, 1, Qt::AlignVCenter);
    layout->addWidget(m_terms->findField());
    layout->addWidget(m_savePicture);
    return head;
}

QWidget* CombinationsPage::createExtremes()
{
    m_picture->setObjectName(QStringLiteral("picture"));
    auto* picture = new QWidget(this);
    auto* pictureLayout = new QVBoxLayout(picture);
    pictureLayout->setContentsMargins(0, 0, 0, 0);
    pictureLayout->addWidget(m_picture, 1);
    auto* detail = new QSplitter(Qt::Horizontal, this);
    detail->addWidget(m_terms);
    detail->addWidget(picture);
    detail->setStretchFactor(0, 1);
    auto* lower = new QWidget(this);
    auto* lowerLayout = new QVBoxLayout(lower);
    lowerLayout->setContentsMargins(0, 0, 0, 0);
    lowerLayout->addWidget(createTermsHead());
    lowerLayout->addWidget(detail, 1);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(column({m_changes, m_extremes}, this));
    splitter->addWidget(lower);
    divide(splitter, EXTREMES_SHARE, DETAIL_SHARE);
    return splitter;
}

void CombinationsPage::follow(int db)
{
    m_db = db;
    m_isStale = true;
    if (isVisible()) {
        refresh();
    }
}

void CombinationsPage::forget()
{
    m_db = -1;
    m_responses.reset();
    m_source.reset();
    tellChanges({});
    m_file->setText(tr("No responses: a CSV file with a row for each, and a column for each load case."));
    m_isStale = true;
}

void CombinationsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void CombinationsPage::refresh()
{
    if (!m_isStale) {
        return;
    }
    m_isStale = false;
    const std::size_t chosen = situation();
    const std::vector<combine::Extremes> before = m_extremesModel->extremes();
    m_source = m_db < 0 ? std::make_shared<ProjectCombinations>() : readCombinations(m_db);
    m_problem->setText(m_source->problem);
    m_problem->setVisible(!m_source->problem.isEmpty());
    {
        const QSignalBlocker blocker(m_situations);
        m_situationsModel->show(*m_source);
        m_situations->fitColumns({SituationsModel::Formula});
        m_situations->setCurrentRow(static_cast<int>(chosen));
    }
    showSituation();
    const bool isSame = m_responses && before.size() == m_extremesModel->extremes().size();
    tellChanges(isSame ? changeText(*m_responses, before, m_extremesModel->extremes()) : QString());
}

void CombinationsPage::tellChanges(const QString& text)
{
    m_changes->setText(text);
    m_changes->setVisible(!text.isEmpty());
}

std::size_t CombinationsPage::situation() const
{
    const int row = m_situations->currentRow();
    return row < 0 ? 0 : static_cast<std::size_t>(row);
}

const ProjectCombinations::Planned* CombinationsPage::planned() const
{
    const bool stands = m_source && situation() < m_source->situations.size();
    return stands ? &m_source->situations[situation()] : nullptr;
}

void CombinationsPage::showSituation()
{
    showList();
    const bool isShown = planned() != nullptr && m_responses && missingColumns().isEmpty();
    const int row = m_extremes->currentRow();
    m_extremesModel->show(isShown ? m_source : nullptr, situation(), m_responses);
    m_extremes->fitColumns({ExtremesModel::MaxKey, ExtremesModel::MinKey});
    if (row >= 0 && row < m_extremesModel->rowCount()) {
        m_extremes->setCurrentRow(row);
    }
    m_file->setText(!m_responses ? m_file->text()
                    : isShown || planned() == nullptr
                        ? tr("%1: %2 responses")
                              .arg(QFileInfo(m_responses->file).fileName(),
                                   QLocale().toString(static_cast<int>(m_responses->names.size())))
                        : missingColumns());
    showTerms();
}

void CombinationsPage::showList()
{
    const ProjectCombinations::Planned* shown = planned();
    m_listModel->show(shown);
    m_list->fitColumns({CombinationListModel::Key});
    const bool isLong = shown != nullptr && shown->count > CombinationListModel::MOST;
    m_listRemark->setText(
        isLong ? tr("%1 combinations are too many to read. Responses from a file show which of them govern.")
                     .arg(report::readableCount(shown->count))
               : QString());
    m_listRemark->setVisible(isLong);
    m_list->setVisible(!isLong);
    showFindField();
}

QString CombinationsPage::missingColumns() const
{
    const std::vector<int> missing = combine::Envelope(planned()->plan, m_responses->numbers).missing();
    return missing.empty() ? QString()
                           : tr("%1: there is no column for %2")
                                 .arg(QFileInfo(m_responses->file).fileName(),
                                      QString::fromStdString(combine::loadCasesText(missing)));
}

void CombinationsPage::slot_situationChanged()
{
    tellChanges({});
    showSituation();
}

void CombinationsPage::slot_responseChanged() { showTerms(); }

/// The combination of the current cell: that of the minimum in its two columns, else that of the maximum.
void CombinationsPage::showTerms()
{
    using Direction = combine::Envelope::Direction;
    const int row = m_extremes->currentRow();
    const int columnAt = m_extremes->table()->currentIndex().column();
    const bool isMin = columnAt == ExtremesModel::Min || columnAt == ExtremesModel::MinKey;
    const auto combination =
        row < 0 ? std::nullopt : m_extremesModel->combination(row, isMin ? Direction::Min : Direction::Max);
    std::vector<TermRow> terms;
    QString title;
    if (combination) {
        const double* values = m_responses->row(static_cast<std::size_t>(row));
        std::unordered_map<int, double> responses;
        for (std::size_t i = 0; i < m_responses->numbers.size(); ++i) {
            responses[m_responses->numbers[i]] = values[i];
        }
        for (combine::Origin& origin :
             combine::explain(m_source->model, planned()->situation, planned()->plan, *combination)) {
            const double response = responses[origin.number];
            terms.push_back({std::move(origin), response});
        }
        title = QStringLiteral("%1, %2, %3")
                    .arg(m_responses->names[static_cast<std::size_t>(row)],
                         isMin ? tr("minimum") : tr("maximum"), report::situationTitle(planned()->situation));
    }
    m_termsHead->setText(combination ? title : tr("Choose a response to see its combination."));
    m_svg = combination ? contributionPicture(title, terms) : QByteArray();
    m_termsModel->show(std::move(terms));
    m_terms->fitColumns({TermsModel::Origin});
    m_picture->load(m_svg);
    m_picture->renderer()->setAspectRatioMode(Qt::KeepAspectRatio); // which holds for what is loaded
    m_picture->setMinimumSize(m_picture->sizeHint() * SMALLEST_PICTURE);
    m_picture->setMaximumSize(m_picture->sizeHint());
    m_picture->parentWidget()->setVisible(!m_svg.isEmpty());
    m_savePicture->setVisible(!m_svg.isEmpty());
}

QString CombinationsPage::openResponses(const QString& file)
{
    QString error;
    const auto responses = readResponses(file, error);
    if (!responses) {
        return error;
    }
    m_responses = responses;
    tellChanges({});
    showSituation();
    m_tabs->setCurrentIndex(ExtremesTab);
    if (m_extremesModel->rowCount() > 0) {
        m_extremes->setCurrentRow(0);
    }
    return {};
}

void CombinationsPage::slot_open()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open responses"), QString(),
                                                      tr("Responses (*.csv *.txt);;All files (*)"));
    if (file.isEmpty()) {
        return;
    }
    const QString reason = openResponses(file);
    if (!reason.isEmpty()) {
        QMessageBox::critical(this, tr("Open responses"),
                              QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason));
    }
}

void CombinationsPage::slot_savePicture()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save the picture"), QString(),
                                                      tr("Pictures (*.svg);;All files (*)"));
    if (name.isEmpty()) {
        return;
    }
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(m_svg) == m_svg.size() && file.commit()) {
        return;
    }
    QMessageBox::critical(this, tr("Save the picture"),
                          QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(name), file.errorString()));
}

} // namespace mrl::workbench
