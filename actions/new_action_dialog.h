#pragma once

#include <QStringList>

#include <memory>

#include "actions/new_action.h"
#include "host/mrl_widgets.h"

class QRadioButton;

/// The dialog behind the New button: a free action of the design code, or a name of the user's own. It
/// changes nothing itself; after acceptance its fields of LCM_NewAction hold the choice.
class MRL_LC_AddNewActionDialog : public MRL_QT_Dialog, public LCM_NewAction
{
    Q_OBJECT
  public:
    /// @param option bit 0 set: names of the user's own are not offered
    /// @param model read only; outlives the dialog
    /// @param usedNames the texts of the action cells of all rows, with the blanks that pad them
    MRL_LC_AddNewActionDialog(int option, LCM_DataClass* model, const QStringList& usedNames, QWidget* parent,
                              const char* name);
    ~MRL_LC_AddNewActionDialog() override;

    QSize sizeHint() const override;

  public slots:
    void slot_selectionChangedAction(const QString& text);
    void slot_selectionChangedCategory(const QString& text);
    void slot_userActionTextChanged(const QString& text);
    void slot_userCategoryTextChanged(const QString& text);
    void slot_descriptionChanged(const QString& text);
    void slot_radioClicked(int id);
    void slot_okClicked();

  private:
    struct Private;

    void createWidgets();
    void createPredefinedHalf();
    void createUserHalf();
    QRadioButton* createRadioButton(int id, const QString& text);
    void createFoot();
    void chooseFirstWay();
    void fillActionCombo();
    void fillCategoryCombo();
    void setCategoryEnabled(bool enabled);
    /// Shows why the name is refused or hides the message, and enables OK for a valid name.
    void judgeName(bool actionChanged);

    std::unique_ptr<Private> d;
    int m_dialogOption;
};
