#pragma once

/// The two managers as the workbench reaches them: by name, through a library that is loaded while it runs.

#include <QLibrary>
#include <QString>

#include <memory>
#include <optional>

#include "host/mrl_framework.h"
#include "host/mrl_textlist.h"
#include "manager/control_struct.h"
#include "manager/open_rows.h"

class QWidget;

namespace mrl::workbench {

enum class Manager { Actions, LoadCases };

class Managers
{
  public:
    Managers();
    ~Managers();
    Managers(const Managers&) = delete;
    Managers& operator=(const Managers&) = delete;

    /// Whether both plug-ins are there; else reason() says why not.
    bool isLoaded() const { return m_actions && m_loadCases; }
    const QString& reason() const { return m_reason; }

    /// The document opens: the plug-ins refresh their keys.
    void load(MRL_H_ShadowDatabase& document);
    /// The document is about to be saved: the plug-ins mark their keys.
    void markForSaving(MRL_H_ShadowDatabase& document);
    /// Runs the dialog of a manager, as its plug-in has it. @return the host's result value
    int openDialog(Manager which, MRL_H_ShadowDatabase& document, QWidget* parent);
    /// Runs the dialog as another module does: with a structure that says what is wanted and what came of it.
    /// @return the dialog's result, nothing if the library has no such function
    std::optional<int> openDialog(MRL_LC_CtrlStruct& control, MRL_H_ShadowDatabase& document,
                                  QWidget* parent);
    /// Reads some rows of the dialog that is open, see mrl_loadcase_manager_rows.
    int readRows(MRL_LC_OpenRows& rows, int count) const;
    /// What was edited in the dialog that was accepted last, see mrl_loadcase_manager_edited.
    /// @return whether the library can tell
    bool readEdited(std::set<int>& loadCases, std::set<int>& actions) const;
    /// The input text that the managers generate.
    QString generate(MRL_H_ShadowDatabase& document);

  private:
    MRL_H_Plugin* plugin(Manager which) const;
    int call(Manager which, SupportedFunctions code, MRL_H_PluginParameter& parameter);

    using Dialog = int (*)(QWidget*, int, MRL_LC_CtrlStruct&);

    using Rows = int (*)(MRL_LC_OpenRows&, int);
    using Edited = void (*)(std::set<int>&, std::set<int>&);

    QLibrary m_library;
    Dialog m_dialog = nullptr;
    Rows m_rows = nullptr;
    Edited m_edited = nullptr;
    QString m_reason;
    std::unique_ptr<MRL_H_Plugin> m_actions;
    std::unique_ptr<MRL_H_Plugin> m_loadCases;
};

} // namespace mrl::workbench
