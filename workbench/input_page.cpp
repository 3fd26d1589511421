#include "workbench/input_page.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QVBoxLayout>

#include "host/mrl_widgets.h"

namespace mrl::workbench {

InputPage::InputPage(QWidget* parent) : QWidget(parent), m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("input"));
    m_text->setObjectName(QStringLiteral("text_input"));
    m_text->setAccessibleName(tr("Generated input"));
    m_text->setReadOnly(true);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);

    auto* copy = new MRL_QT_PushButton(tr("&Copy"), this, "button_copy");
    auto* save = new MRL_QT_PushButton(tr("Sa&ve text as..."), this, "button_save_text");
    connect(copy, &QPushButton::clicked, this, &InputPage::slot_copy);
    connect(save, &QPushButton::clicked, this, &InputPage::slot_saveAs);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(copy);
    buttons->addWidget(save);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addLayout(buttons);
}

InputPage::~InputPage() = default;

void InputPage::showText(const QString& text) { m_text->setPlainText(text); }

void InputPage::slot_copy() { QGuiApplication::clipboard()->setText(m_text->toPlainText()); }

void InputPage::slot_saveAs()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save the generated input"), QString(),
                                                      tr("Input text (*.dat);;All files (*)"));
    if (name.isEmpty()) {
        return;
    }
    QSaveFile file(name);
    const QByteArray bytes = m_text->toPlainText().toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) {
        return;
    }
    QMessageBox::critical(this, tr("Save the generated input"),
                          QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(name), file.errorString()));
}

} // namespace mrl::workbench
