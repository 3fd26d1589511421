#pragma once

/// A dialog as the managers derive theirs, which notes the calls of its hooks.

#include <QBoxLayout>
#include <QLineEdit>

#include <functional>

#include "host/mrl_framework.h"

namespace mrl::test {

class SampleDialog : public MRL_H_Dialog
{
  public:
    SampleDialog(MRL_H_PluginParameter* parameter, bool help = true, const QRect& place = QRect(-1, -1, 1, 1))
        : MRL_H_Dialog(parameter, "SampleDialog", "General", help, false, place)
    {
    }

    QStringList calls;
    bool valid = true;
    std::function<void()> onCheck = [] {};
    std::function<void()> onSave = [] {};
    std::function<void()> onInit = [] {};
    QLineEdit* edit = nullptr; ///< child of this

  protected:
    int createContents(QBoxLayout* layout) override
    {
        calls << "create";
        edit = new QLineEdit(this);
        layout->addWidget(edit, 1);
        return 17;
    }
    void initContents() override
    {
        calls << "init";
        onInit();
    }
    bool checkContents() override
    {
        calls << "check";
        onCheck();
        return valid;
    }
    void saveContents() override
    {
        calls << "save";
        onSave();
    }
    void noOpHook() override { calls << "noop"; }
    void showHelp() override { calls << "help"; }
};

} // namespace mrl::test
