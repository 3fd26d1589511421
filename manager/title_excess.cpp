#include "manager/title_excess.h"

#include <QApplication>
#include <QLineEdit>
#include <QToolTip>

#include "actions/tab_interface.h"
#include "host/mrl_table.h"
#include "lcdata/values/packed_text.h"

LCM_TitleExcess::LCM_TitleExcess(LCM_TabInterface* tab, int titleColumn, QObject* parent)
    : QObject(parent), m_tab(tab), m_titleColumn(titleColumn)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        auto* editor = qobject_cast<QLineEdit*>(now);
        if (editor && m_tab->tableWidget()->viewport()->isAncestorOf(editor)) {
            watch(editor);
        }
    });
}

QString LCM_TitleExcess::excessOf(const QString& title)
{
    std::uint32_t field[LC_TITLE_WORDS];
    lcm_title_pack(title, field, LC_TITLE_WORDS);
    return title.mid(lcm_title_text(field).size());
}

void LCM_TitleExcess::watch(QLineEdit* editor)
{
    const MRL_H_TableWidget* table = m_tab->tableWidget();
    if (table->currentColumn() != table->getColumnNumber(m_titleColumn)) {
        return;
    }
    // An editor that gets the focus again is still watched.
    disconnect(editor, &QLineEdit::textChanged, this, nullptr);
    connect(editor, &QLineEdit::textChanged, this, [this, editor] { tell(editor); });
    tell(editor);
}

void LCM_TitleExcess::tell(QLineEdit* editor) const
{
    const QString excess = excessOf(editor->text());
    const QString told =
        excess.isEmpty()
            ? QString()
            : tr("Too long by %1 characters, which are not kept: %2").arg(excess.size()).arg(excess);
    editor->setAccessibleDescription(told);
    if (told.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(editor->mapToGlobal(editor->rect().bottomLeft()),
                           QStringLiteral("<p>%1</p>").arg(told.toHtmlEscaped()), editor);
    }
}
