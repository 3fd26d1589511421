#include "workbench/report/report_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>

#include "hostlib/data/cdb/project.h"
#include "hostlib/ui/widget/translator.h"
#include "hostlib/ui/widget/window_size.h"
#include "report/compose.h"
#include "workbench/report/page_view.h"

namespace mrl::workbench {

namespace {

report::Report reportOf(int db, const QString& project, bool isModified)
{
    const QString language = ui::translationLanguage();
    return report::compose(
        report::readProject(db, project),
        {language.isEmpty() ? QStringLiteral("en") : language, QDate::currentDate(), isModified});
}

} // namespace

ReportDialog::ReportDialog(int db, const QString& project, bool isModified, QWidget* parent)
    : MRL_QT_Dialog(parent, "report"), m_db(db), m_project(project),
      m_report(reportOf(db, project, isModified)), m_pages(m_report), m_page(new QSpinBox(this)),
      m_area(new QScrollArea(this)), m_view(new PageView(m_pages, m_area))
{
    setCaption(tr("Report"));
    m_area->setWidget(m_view);
    m_area->setAlignment(Qt::AlignHCenter);
    m_area->setBackgroundRole(QPalette::Mid);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // or the width would depend on itself
    m_view->setAccessibleName(tr("Page of the report"));
    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(createPageRow());
    layout->addWidget(m_area, 1);
    layout->addLayout(createButtons());
    resize(ui::fittingSize(QSize(820, 900), *this));
    showPage(0);
    m_page->setFocus();
}

ReportDialog::~ReportDialog() = default;

QPushButton* ReportDialog::stepButton(const QString& text, const QString& name, const char* objectName,
                                      int step)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setAutoDefault(false);
    button->setMaximumWidth(3 * button->fontMetrics().height());
    connect(button, &QPushButton::clicked, this, [=] { showPage(m_view->page() + step); });
    return button;
}

QLayout* ReportDialog::createPageRow()
{
    m_page->setObjectName(QStringLiteral("spin_page"));
    m_page->setRange(1, m_pages.pageCount());
    m_page->setAccessibleName(tr("Page"));
    connect(m_page, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int page) { showPage(page - 1); });
    m_previous = stepButton(QString(QChar(0x25c0)), tr("Previous page"), "button_previous", -1);
    m_next = stepButton(QString(QChar(0x25b6)), tr("Next page"), "button_next", 1);
    // Whatever has the focus.
    connect(new QShortcut(QKeySequence(Qt::Key_PageUp), this), &QShortcut::activated, m_page,
            &QSpinBox::stepDown);
    connect(new QShortcut(QKeySequence(Qt::Key_PageDown), this), &QShortcut::activated, m_page,
            &QSpinBox::stepUp);
    auto* row = new MRL_QT_HBoxLayout;
    row->addStretch(1);
    row->addWidget(m_previous);
    row->addWidget(m_page);
    row->addWidget(new QLabel(tr("of %1").arg(m_pages.pageCount()), this));
    row->addWidget(m_next);
    row->addStretch(1);
    return row;
}

QLayout* ReportDialog::createButtons()
{
    auto* buttons = new QDialogButtonBox(this);
    auto* pdf = buttons->addButton(tr("Save as &PDF..."), QDialogButtonBox::ActionRole);
    auto* html = buttons->addButton(tr("Save as &HTML..."), QDialogButtonBox::ActionRole);
    auto* close = buttons->addButton(QDialogButtonBox::Close);
    close->setAutoDefault(false);
    connect(pdf, &QPushButton::clicked, this, [this] { save(report::FileKind::Pdf); });
    connect(html, &QPushButton::clicked, this, [this] { save(report::FileKind::Html); });
    connect(buttons, &QDialogButtonBox::rejected, this, &ReportDialog::reject);
    auto* row = new MRL_QT_HBoxLayout;
    row->addWidget(buttons);
    return row;
}

void ReportDialog::showPage(int page)
{
    m_view->showPage(page);
    m_area->verticalScrollBar()->setValue(0);
    const QSignalBlocker quiet(m_page);
    m_page->setValue(page + 1);
    m_previous->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < m_pages.pageCount());
}

void ReportDialog::fitPage() { m_view->setPageWidth(m_area->viewport()->width()); }

void ReportDialog::resizeEvent(QResizeEvent* event)
{
    MRL_QT_Dialog::resizeEvent(event);
    fitPage();
}

void ReportDialog::showEvent(QShowEvent* event)
{
    MRL_QT_Dialog::showEvent(event);
    fitPage();
}

void ReportDialog::save(report::FileKind kind)
{
    const bool isPdf = kind == report::FileKind::Pdf;
    const QString ending = QLatin1String(isPdf ? ".pdf" : ".html");
    const QFileInfo project(m_project);
    QString file = QFileDialog::getSaveFileName(this, tr("Save the report"),
                                                project.absolutePath() + QLatin1Char('/') +
                                                    project.completeBaseName() + ending,
                                                isPdf ? tr("PDF (*.pdf)") : tr("HTML (*.html *.htm)"));
    if (file.isEmpty()) {
        return;
    }
    if (QFileInfo(file).suffix().isEmpty()) {
        file += ending;
    }
    if (QFileInfo(file) == project) {
        QMessageBox::critical(this, tr("Report"), tr("The project itself can't be the file to write."));
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto failure =
        report::writeReport(m_report, kind, file, [this] { return bool(cdb::stickyError(m_db)); });
    QApplication::restoreOverrideCursor();
    if (failure) {
        QMessageBox::critical(
            this, tr("Report"),
            QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), failure->message.translated()));
        return;
    }
    m_written = file;
}

} // namespace mrl::workbench
