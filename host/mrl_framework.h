#pragma once

/// The host framework library: plug-ins and what they are told, the document, the base of the managers'
/// dialogs, and the generators of input text.

#include <QObject>
#include <QRect>
#include <QString>

#include <memory>
#include <string>

#include "host/mrl_export.h"
#include "host/mrl_widgets.h"

class QBoxLayout;
class QLayout;
class MRL_T_Liste;
/// The project behind a document, known to the host alone.
class MRL_H_ProjectDocument;

/// A database as the host's document objects see it.
class MRL_HOST_API MRL_H_CDBDoc
{
  public:
    MRL_H_CDBDoc();
    virtual ~MRL_H_CDBDoc();
    MRL_H_CDBDoc(const MRL_H_CDBDoc&) = delete;
    MRL_H_CDBDoc& operator=(const MRL_H_CDBDoc&) = delete;

    /// Binds the object to an open database as it stands; the database isn't owned.
    void attach(int db);
    /// The index of the database, -1 when the object isn't bound.
    int index() const;

  private:
    int m_index = -1;
};

/// The document: the host's private copy of a project, in which plug-ins work until the host saves it.
/// Bound by `attach` alone it has no project file: refreshing then does nothing, and marks are only recorded.
class MRL_HOST_API MRL_H_ShadowDatabase : public MRL_H_CDBDoc
{
  public:
    MRL_H_ShadowDatabase();
    ~MRL_H_ShadowDatabase() override;

    /// Refreshes a key range of the document from the project.
    /// @param first, last KWL, both included.
    /// @param keep true: a range with unsaved changes stays as it is; false: the project's state holds
    void cdb2shadow(int kwh, int first, int last, bool keep);
    /// The same for a whole group.
    void cdb2shadow(int kwh, bool keep);
    /// Marks a key range for the host's saving. @param first, last KWL, both included
    void addSaveKwh(int kwh, int first, int last);
    /// The same for a whole group.
    void addSaveKwh(int kwh);

    /// The host's own side of the document: which project stands behind it, what is marked, saving.
    MRL_H_ProjectDocument& host() { return *m_project; }
    const MRL_H_ProjectDocument& host() const { return *m_project; }

  private:
    std::unique_ptr<MRL_H_ProjectDocument> m_project;
};

/// A task of the project as the host lists it.
class MRL_HOST_API MRL_H_ProjectTask
{
  public:
    explicit MRL_H_ProjectTask(const QString& name);
    ~MRL_H_ProjectTask();
    QString getName() const;

  private:
    QString m_name;
};

/// What the host tells a plug-in, and what it gets back. Owns nothing of what it points at but `lines`.
struct MRL_HOST_API MRL_H_PluginParameter
{
    MRL_H_PluginParameter();
    ~MRL_H_PluginParameter();
    MRL_H_PluginParameter(const MRL_H_PluginParameter&) = delete;
    MRL_H_PluginParameter& operator=(const MRL_H_PluginParameter&) = delete;

    int taskWord = 0;                         ///< the task, 18 for a dialog of a library call
    MRL_H_ProjectTask* projectTask = nullptr; ///< the task that runs
    QWidget* parentWidget = nullptr;          ///< the parent of dialogs
    std::unique_ptr<MRL_T_Liste> lines;       ///< [out] the generated input, made by the plug-in
    MRL_H_ShadowDatabase* document = nullptr; ///< the document
};

/// Task numbers of the host.
enum MRL_H_Task : int { MRL_H_TASK_LOADCASES = 12, MRL_H_TASK_ACTIONS = 93 };

/// Function codes of a plug-in. The host also calls codes that have no name here.
enum SupportedFunctions : int {
    MRL_H_FUNCTION_LOAD = 1,     ///< the document opens: refresh your keys
    MRL_H_FUNCTION_DIALOG = 2,   ///< open your dialog
    MRL_H_FUNCTION_GENERATE = 8, ///< generate your input text
    MRL_H_FUNCTION_SAVE = 21,    ///< the document is saved: mark your keys
    MRL_H_FUNCTION_ABILITIES = 101
};

/// The base of all plug-ins.
class MRL_HOST_API MRL_H_Plugin : public QObject
{
    Q_OBJECT
  public:
    explicit MRL_H_Plugin(MRL_H_Task task);
    ~MRL_H_Plugin() override;

    /// Does what the code says. The base handles every code by doing nothing. @return the host's result
    /// value, 0 here
    virtual int function(SupportedFunctions code, MRL_H_PluginParameter* parameter);
    MRL_H_Task task() const;

  private:
    MRL_H_Task m_task;
};

/// The base of the managers' dialogs: OK, Cancel and Help with F1, the saved geometry, and the order of the
/// hooks. An acceptance is one database transaction on the document's database. When the check fails, nothing is
/// written; when saving fails, the user is told, the database is as before and the dialog stays open.
class MRL_HOST_API MRL_H_Dialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param parameter outlives the dialog; its parent widget becomes the dialog's parent
    /// @param name under which the geometry is kept. @param group the group of that setting
    /// @param help a Help button and F1. @param modeless false: modal
    /// @param place centred when its position is negative
    MRL_H_Dialog(MRL_H_PluginParameter* parameter, const QString& name, const QString& group, bool help,
                 bool modeless, const QRect& place);
    ~MRL_H_Dialog() override;

    /// Builds the dialog: createContents with the main layout, then the buttons, then initContents.
    /// @return what createContents gave
    int initDialog();
    MRL_H_PluginParameter* parameter() const;

  public slots:
    /// checkContents; when that is true saveContents in one transaction, and close with result 1.
    void accept() override;
    /// Closes with result 0 and saves nothing.
    void reject() override;

  protected:
    /// Builds the contents into the dialog's layout.
    virtual int createContents(QBoxLayout* layout) = 0;
    virtual void initContents() = 0;
    /// @return true if the dialog may close
    virtual bool checkContents() = 0;
    virtual void saveContents() = 0;
    /// Called when the dialog is rejected, before it closes.
    virtual void noOpHook() = 0;
    /// The Help button and F1.
    virtual void showHelp() = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QLayout* makeButtons();
    bool saveInOneTransaction();
    void tellNotSaved(const QString& what, const QString& reason);

    struct Private;
    std::unique_ptr<Private> d;
};

/// The head of generated input as one text of several lines; its last line is one that a caller may delete.
MRL_HOST_API QString mrl_h_generateAutomatic(const QString& title);
/// The lines that open a module in the input. @param setting mrl_lib_setting(108). @param zero always 0
MRL_HOST_API QString mrl_h_generatePROG(MRL_H_PluginParameter* parameter, const QString& module,
                                        const QString& text, const QString& title, int setting, int zero);
/// The lines that close a module. @param setting mrl_lib_setting(108)
MRL_HOST_API QString mrl_h_generateENDE(int setting);
