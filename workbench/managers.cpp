#include "workbench/managers.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace mrl::workbench {

namespace {

constexpr Manager BOTH[] = {Manager::Actions, Manager::LoadCases};

using Factory = MRL_H_Plugin* (*)(const QString&);

/// Where the library is looked for: beside the program as it is built and as it is installed, then where the
/// system looks.
QStringList candidates()
{
    const QString folder = QCoreApplication::applicationDirPath();
    QStringList names;
    for (const char* path : {"/../lib/libmrl_loadcase.so", "/../" MRL_INSTALL_LIBDIR "/libmrl_loadcase.so"}) {
        const QString name = folder + QLatin1String(path);
        for (const QString& file : {name, name + QStringLiteral("." MRL_SOVERSION)}) {
            if (QFileInfo::exists(file)) {
                names << file;
            }
        }
    }
    names << QStringLiteral("libmrl_loadcase.so." MRL_SOVERSION);
    return names;
}

} // namespace

Managers::Managers()
{
    for (const QString& name : candidates()) {
        m_library.setFileName(name);
        if (m_library.load()) {
            break;
        }
    }
    const auto factory = reinterpret_cast<Factory>(m_library.resolve("MRL_H_PluginFactory"));
    if (!factory) {
        m_reason = m_library.errorString();
        return;
    }
    // mrl_loadcase_manager(QWidget*, int, MRL_LC_CtrlStruct&), as the compiler names it.
    m_dialog =
        reinterpret_cast<Dialog>(m_library.resolve("_Z20mrl_loadcase_managerP7QWidgetiR17MRL_LC_CtrlStruct"));
    m_rows = reinterpret_cast<Rows>(m_library.resolve("mrl_loadcase_manager_rows"));
    m_edited = reinterpret_cast<Edited>(m_library.resolve("mrl_loadcase_manager_edited"));
    m_actions.reset(factory(QStringLiteral("actionmanager")));
    m_loadCases.reset(factory(QStringLiteral("lcmanager")));
    if (!isLoaded()) {
        m_reason =
            QCoreApplication::translate("Workbench", "%1 holds no managers.").arg(m_library.fileName());
    }
}

// The library stays loaded: Qt may still hold meta-objects and translators of its code.
Managers::~Managers() = default;

MRL_H_Plugin* Managers::plugin(Manager which) const
{
    return which == Manager::Actions ? m_actions.get() : m_loadCases.get();
}

int Managers::call(Manager which, SupportedFunctions code, MRL_H_PluginParameter& parameter)
{
    const QString name = which == Manager::Actions
                             ? QCoreApplication::translate("mrl::workbench::TaskPanel", "Action Manager")
                             : QCoreApplication::translate("mrl::workbench::TaskPanel", "Load-case Manager");
    MRL_H_ProjectTask task(name);
    parameter.projectTask = &task;
    parameter.taskWord = plugin(which)->task();
    const int result = plugin(which)->function(code, &parameter);
    parameter.projectTask = nullptr;
    return result;
}

void Managers::load(MRL_H_ShadowDatabase& document)
{
    for (const Manager which : BOTH) {
        MRL_H_PluginParameter parameter;
        parameter.document = &document;
        call(which, MRL_H_FUNCTION_LOAD, parameter);
    }
}

void Managers::markForSaving(MRL_H_ShadowDatabase& document)
{
    for (const Manager which : BOTH) {
        MRL_H_PluginParameter parameter;
        parameter.document = &document;
        call(which, MRL_H_FUNCTION_SAVE, parameter);
    }
}

int Managers::openDialog(Manager which, MRL_H_ShadowDatabase& document, QWidget* parent)
{
    MRL_H_PluginParameter parameter;
    parameter.document = &document;
    parameter.parentWidget = parent;
    return call(which, MRL_H_FUNCTION_DIALOG, parameter);
}

std::optional<int> Managers::openDialog(MRL_LC_CtrlStruct& control, MRL_H_ShadowDatabase& document,
                                        QWidget* parent)
{
    return m_dialog ? std::optional<int>(m_dialog(parent, document.index(), control)) : std::nullopt;
}

int Managers::readRows(MRL_LC_OpenRows& rows, int count) const
{
    return m_rows ? m_rows(rows, count) : MRL_LC_ROWS_NONE;
}

bool Managers::readEdited(std::set<int>& loadCases, std::set<int>& actions) const
{
    if (m_edited) {
        m_edited(loadCases, actions);
    }
    return m_edited != nullptr;
}

QString Managers::generate(MRL_H_ShadowDatabase& document)
{
    QString text;
    for (const Manager which : BOTH) {
        MRL_H_PluginParameter parameter;
        parameter.document = &document;
        call(which, MRL_H_FUNCTION_GENERATE, parameter);
        for (int i = 0; parameter.lines && i < parameter.lines->count(); ++i) {
            text += parameter.lines->at(i) + QLatin1Char('\n');
        }
    }
    return text;
}

} // namespace mrl::workbench
