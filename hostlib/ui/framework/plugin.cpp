#include "host/mrl_framework.h"
#include "host/mrl_textlist.h"

MRL_H_CDBDoc::MRL_H_CDBDoc() = default;

MRL_H_CDBDoc::~MRL_H_CDBDoc() = default;

void MRL_H_CDBDoc::attach(int db) { m_index = db; }

int MRL_H_CDBDoc::index() const { return m_index; }

MRL_H_ProjectTask::MRL_H_ProjectTask(const QString& name) : m_name(name) {}

MRL_H_ProjectTask::~MRL_H_ProjectTask() = default;

QString MRL_H_ProjectTask::getName() const { return m_name; }

MRL_H_PluginParameter::MRL_H_PluginParameter() = default;

// Here, where the list of lines is complete.
MRL_H_PluginParameter::~MRL_H_PluginParameter() = default;

MRL_H_Plugin::MRL_H_Plugin(MRL_H_Task task) : m_task(task) {}

MRL_H_Plugin::~MRL_H_Plugin() = default;

int MRL_H_Plugin::function(SupportedFunctions, MRL_H_PluginParameter*) { return 0; }

MRL_H_Task MRL_H_Plugin::task() const { return m_task; }
