#include "host/mrl_framework.h"
#include "hostlib/ui/framework/project_document.h"

namespace {

mrl::ui::UnsavedChanges unsavedChanges(bool keep)
{
    return keep ? mrl::ui::UnsavedChanges::Keep : mrl::ui::UnsavedChanges::Discard;
}

} // namespace

MRL_H_ShadowDatabase::MRL_H_ShadowDatabase() : m_project(std::make_unique<MRL_H_ProjectDocument>(*this)) {}

MRL_H_ShadowDatabase::~MRL_H_ShadowDatabase() = default;

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, int first, int last, bool keep)
{
    m_project->refresh({kwh, first, last}, unsavedChanges(keep));
}

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, bool keep) { m_project->refresh({kwh}, unsavedChanges(keep)); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh, int first, int last) { m_project->mark({kwh, first, last}); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh) { m_project->mark({kwh}); }
