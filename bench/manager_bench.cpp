// Opening the dialog with n load cases where the host wants its extras. Raw is the plain dialog.
#include <memory>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "host/mrl_framework.h"
#include "host/mrl_widgets.h"
#include "manager/control_struct.h"
#include "manager/loadcase_manager.h"

namespace {

void wantExtras(int wanted)
{
    auto* application = qobject_cast<MRL_QT_Application*>(QCoreApplication::instance());
    bench::require(application != nullptr, "an application that keeps settings");
    application->setAppSettings("LF_Manager", "extras", wanted);
}

class OpenWithExtras : bench::LoadCases
{
  public:
    explicit OpenWithExtras(int count) : LoadCases(count)
    {
        m_document.attach(db);
        m_parameter.document = &m_document;
        m_control.mode = 0;
    }
    ~OpenWithExtras()
    {
        m_dialog.reset();
        m_document.attach(-1);
        wantExtras(0);
    }
    OpenWithExtras(const OpenWithExtras&) = delete;
    OpenWithExtras& operator=(const OpenWithExtras&) = delete;

    void prepareOurs() { prepare(1); }
    void ours() { open(); }
    void prepareRaw() { prepare(0); }
    void raw() { open(); }

  private:
    void prepare(int extras)
    {
        m_dialog.reset();
        wantExtras(extras);
    }
    void open()
    {
        m_dialog = std::make_unique<LoadcaseManager>(&m_parameter, &m_control, db);
        m_dialog->initDialog();
        m_dialog->show();
        QCoreApplication::processEvents();
    }

    MRL_H_ShadowDatabase m_document;
    MRL_H_PluginParameter m_parameter;
    MRL_LC_CtrlStruct m_control;
    std::unique_ptr<LoadcaseManager> m_dialog; ///< ends before what it works on
};
const bench::Timed<OpenWithExtras> OPEN("manager.open_with_extras", 1.1, {100'000});

} // namespace
