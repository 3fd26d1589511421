#include "hostlib/ui/table/plain_tool_tip.h"

#include <QTextDocument>

namespace mrl::table {

QString plainToolTip(const QString& text)
{
    if (!Qt::mightBeRichText(text)) {
        return text;
    }
    return QStringLiteral("<span style=\"white-space:pre-wrap\">%1</span>").arg(text.toHtmlEscaped());
}

} // namespace mrl::table
