// Two plug-ins that note each call in the file that the environment names. Their dialogs end the program.
#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include "host/mrl_framework.h"

namespace {

class NotingPlugin : public MRL_H_Plugin
{
  public:
    NotingPlugin(const QString& name, MRL_H_Task task) : MRL_H_Plugin(task), m_name(name) {}

    int function(SupportedFunctions code, MRL_H_PluginParameter* parameter) override
    {
        QFile notes(qEnvironmentVariable("MRL_NOTES"));
        if (notes.open(QIODevice::Append)) {
            notes.write(QStringLiteral("%1 %2 %3\n")
                            .arg(m_name)
                            .arg(int(code))
                            .arg(parameter && parameter->document && parameter->document->index() >= 0)
                            .toUtf8());
        }
        if (code == MRL_H_FUNCTION_DIALOG) {
            QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        }
        return MRL_H_Plugin::function(code, parameter);
    }

  private:
    QString m_name;
};

} // namespace

extern "C" __attribute__((visibility("default"))) MRL_H_Plugin* MRL_H_PluginFactory(const QString& name)
{
    return new NotingPlugin(name, name == QStringLiteral("lcmanager") ? MRL_H_TASK_LOADCASES
                                                                      : MRL_H_TASK_ACTIONS); // the caller's
}
