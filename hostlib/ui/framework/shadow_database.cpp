#include "host/mrl_framework.h"
#include "hostlib/ui/framework/document.h"

MRL_H_ShadowDatabase::MRL_H_ShadowDatabase() : d(std::make_unique<Private>(*this)) {}

MRL_H_ShadowDatabase::~MRL_H_ShadowDatabase() = default;

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, int first, int last, bool keep)
{
    d->refresh({kwh, first, last}, keep);
}

void MRL_H_ShadowDatabase::cdb2shadow(int kwh, bool keep) { d->refresh({kwh}, keep); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh, int first, int last) { d->mark({kwh, first, last}); }

void MRL_H_ShadowDatabase::addSaveKwh(int kwh) { d->mark({kwh}); }
