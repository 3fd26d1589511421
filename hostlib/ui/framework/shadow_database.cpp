#include "host/mrl_framework.h"
#include "hostlib/ui/framework/project_document.h"

MRL_H_ShadowDatabase::MRL_H_ShadowDatabase() : m_project(std::make_unique<MRL_H_ProjectDocument>(*this)) {}

MRL_H_ShadowDatabase::~MRL_H_ShadowDatabase() = default;

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, int first, int last, bool keep)
{
    m_project->refresh({kwh, first, last}, keep);
}

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, bool keep) { m_project->refresh({kwh}, keep); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh, int first, int last) { m_project->mark({kwh, first, last}); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh) { m_project->mark({kwh}); }
