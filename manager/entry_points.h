#pragma once

/// The dialog and the plug-ins as other modules reach them.

#include "lcdata/export.h"

struct MRL_LC_CtrlStruct;
class MRL_H_Plugin;
class QString;
class QWidget;

/// The caller is to delete the load cases that nothing uses: the dialog was left without saving.
constexpr int MRL_LC_DELETE_UNUSED = 40021;

/// Runs the dialog with both tabs, the actions tab in front.
/// @return as the other form
MRL_LC_API int mrl_loadcase_manager(QWidget* parent, int db);

/// Runs the dialog.
/// @param parent may be null. @param db index of an open database; it stays the current one afterwards
/// @param control [in, out] what is wanted, and what came of it
/// @return 1 after acceptance, 0 after rejection, MRL_LC_DELETE_UNUSED as told there
MRL_LC_API int mrl_loadcase_manager(QWidget* parent, int db, MRL_LC_CtrlStruct& control);

/// Makes a plug-in: "lcmanager" or "actionmanager", in exactly this spelling.
/// @return the plug-in, owned by the caller; null for any other name
/// @note C linkage, so that a host finds it by its name.
extern "C" MRL_LC_API MRL_H_Plugin* MRL_H_PluginFactory(const QString& name);
