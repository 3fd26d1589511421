#include "manager/entry_points.h"

#include "host/mrl_framework.h"
#include "host/mrl_textlist.h"
#include "host/mrl_widgets.h"
#include "manager/control_struct.h"
#include "manager/loadcase_manager.h"
#include "manager/plugins.h"

namespace {

/// The task word of a dialog that a library call opens.
constexpr int TASK_LIBRARY_DIALOG = 18;

const MRL_QT_InitTranslator TRANSLATOR("mrl_loadcase_dll");

} // namespace

int mrl_loadcase_manager(QWidget* parent, int db)
{
    MRL_LC_CtrlStruct control;
    return mrl_loadcase_manager(parent, db, control);
}

int mrl_loadcase_manager(QWidget* parent, int db, MRL_LC_CtrlStruct& control)
{
    MRL_H_ShadowDatabase document;
    document.attach(db);
    MRL_H_PluginParameter parameter;
    parameter.taskWord = TASK_LIBRARY_DIALOG;
    parameter.document = &document;
    parameter.parentWidget = parent;

    MRL_LC_CtrlStruct local = control;
    local.version = 1;
    const std::int32_t version = control.version;

    LoadcaseManager dialog(&parameter, &local, document.index());
    dialog.restoreGeometry(1150, 600);
    dialog.initDialog();
    const int result = dialog.exec();

    control = std::move(local);
    control.version = version;
    return result;
}

MRL_H_Plugin* MRL_H_PluginFactory(const QString& name)
{
    if (name == QLatin1String("lcmanager")) {
        return new LoadCaseManagerPlugin;
    }
    if (name == QLatin1String("actionmanager")) {
        return new ActionManagerPlugin;
    }
    return nullptr;
}
