#pragma once

#include "host/mrl_framework.h"

/// The task that edits load cases: both tabs, the load cases in front. It owns the whole of KWH 12.
class LoadCaseManagerPlugin : public MRL_H_Plugin
{
    Q_OBJECT
  public:
    LoadCaseManagerPlugin();
    ~LoadCaseManagerPlugin() override;
    int function(SupportedFunctions code, MRL_H_PluginParameter* parameter) override;
};

/// The task that edits actions alone. It owns the keys of KWH 14 that are action codes, and generates the
/// input text that echoes the actions.
class ActionManagerPlugin : public MRL_H_Plugin
{
    Q_OBJECT
  public:
    ActionManagerPlugin();
    ~ActionManagerPlugin() override;
    int function(SupportedFunctions code, MRL_H_PluginParameter* parameter) override;

  private:
    static int openDialog(const MRL_H_PluginParameter& parameter);
    static void generate(MRL_H_PluginParameter& parameter);
};
