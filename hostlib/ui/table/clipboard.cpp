#include "hostlib/ui/table/clipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

#include <memory>

#include "hostlib/ui/table/html_table.h"
#include "hostlib/ui/table/tab_separated.h"

namespace mrl::table {

void copyToClipboard(const std::vector<QStringList>& block, Captions captions)
{
    auto copied = std::make_unique<QMimeData>();
    copied->setText(toTabSeparated(block));
    copied->setHtml(toHtmlTable(block, captions));
    QApplication::clipboard()->setMimeData(copied.release()); // the clipboard's
}

} // namespace mrl::table
