#pragma once

#include <map>

#include "exchange/format.h"
#include "host/mrl_widgets.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace mrl::workbench {

class TextFormFields;

/// Writes actions and load cases of a project as a table, after it has told what the file won't hold.
class ExportDialog : public MRL_QT_Dialog
{
    Q_OBJECT
  public:
    /// @param db of the project. @param project its file, beside which the table is proposed
    ExportDialog(int db, const QString& project, QWidget* parent);
    ~ExportDialog() override;

    /// The file to be written.
    QString file() const;

  public slots:
    /// Writes the file; stays open when that fails.
    void accept() override;

  private slots:
    void slot_browse();
    void slot_formatChanged();
    void slot_wishChanged();

  private:
    QLayout* createForm();
    QWidget* createFileRow();
    const exchange::Format& format() const;
    exchange::Source source() const;
    exchange::FormatOptions options() const;
    bool mayReplace(const QString& path);

    int m_db;
    QString m_project;
    std::map<std::string, std::string> m_facts;
    QComboBox* m_format;
    QComboBox* m_sheets;
    QLabel* m_versionLabel;
    QComboBox* m_version;
    TextFormFields* m_textForm;
    QLineEdit* m_file;
    QLabel* m_lossesHead;
    QPlainTextEdit* m_losses;
    QPushButton* m_export;
};

} // namespace mrl::workbench
