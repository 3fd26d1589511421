#include "actions/new_action_dialog.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QSet>

#include <algorithm>

#include "actions/new_action_fields.h"
#include "check/validate_name.h"
#include "host/mrl_table.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "model/working_model.h"
#include "rules/action_row.h"

namespace {

constexpr int PREDEFINED = 0;
constexpr int USER_DEFINED = 1;
constexpr int WITHOUT_USER_DEFINED = 1; ///< bit of the dialog option
constexpr int STANDARD = -1;            ///< id of the category entry that stands for the parent itself
constexpr int MAX_ACTION = 4;           ///< characters of a name
constexpr int MAX_ACTION_WITH_CATEGORY = 2;

} // namespace

struct MRL_LC_AddNewActionDialog::Private
{
    QButtonGroup* ways = nullptr;
    QWidget* preBox = nullptr;
    MRL_QT4_ComboBox* actionCombo = nullptr;
    MRL_QT4_ComboBox* categoryCombo = nullptr;
    MRL_H_LineEdit* preDescEdit = nullptr;
    QWidget* userBox = nullptr; ///< null when names of the user's own are not offered
    MRL_H_LineEdit* userActionEdit = nullptr;
    MRL_H_LineEdit* userCategoryEdit = nullptr;
    MRL_H_LineEdit* userDescEdit = nullptr;
    MRL_QT_InfoText* infoText = nullptr;
    MRL_QT_Ok* buttons = nullptr;

    LCM_DataClass* model = nullptr; ///< not owned
    QStringList usedNames;          ///< as the rows show them, padded with blanks
    QSet<QString> usedNameSet;      ///< the same, to be found fast

    bool isNameUsed(const LCM_SubAction& entry) const
    {
        return usedNameSet.contains(lcm_code_text(lcm_action_code(entry.record)));
    }

    /// Whether an action or one of its categories is left to be added.
    bool isOffered(const LCM_ActionEntry& parent) const
    {
        const bool allChildrenActive =
            std::all_of(parent.subActions.begin(), parent.subActions.end(),
                        [](const LCM_SubAction* child) { return child->state == LCM_STATE_ACTIVE; });
        if (allChildrenActive && parent.state != LCM_STATE_FREE) {
            return false;
        }
        return !parent.userDefined && !(parent.subActions.empty() && isNameUsed(parent));
    }

    const LCM_ActionEntry& parentAt(int index) const
    {
        return *model->actions[static_cast<std::size_t>(index)];
    }
};

MRL_LC_AddNewActionDialog::MRL_LC_AddNewActionDialog(int option, LCM_DataClass* model,
                                                     const QStringList& usedNames, QWidget* parent,
                                                     const char* name)
    : MRL_QT_Dialog(parent, name), d(std::make_unique<Private>()), m_dialogOption(option)
{
    setCaption(tr("New action"));
    d->model = model;
    d->usedNames = usedNames;
    d->usedNameSet = QSet<QString>(usedNames.begin(), usedNames.end());
    createWidgets();
    fillActionCombo();
    chooseFirstWay();
}

MRL_LC_AddNewActionDialog::~MRL_LC_AddNewActionDialog() = default;

QSize MRL_LC_AddNewActionDialog::sizeHint() const { return {300, 100}; }

void MRL_LC_AddNewActionDialog::createWidgets()
{
    // Tab order is the order in which the widgets are made: from top to bottom.
    setLayout(new MRL_QT_VBoxLayout);
    d->ways = new QButtonGroup(this);
    mrl_connect(d->ways, "2buttonClicked( int )", this, "1slot_radioClicked( int )", Qt::AutoConnection);
    d->ways->setExclusive(true);
    createPredefinedHalf();
    if ((m_dialogOption & WITHOUT_USER_DEFINED) == 0) {
        createUserHalf();
    }
    createFoot();
}

QRadioButton* MRL_LC_AddNewActionDialog::createRadioButton(int id, const QString& text)
{
    auto* button = new QRadioButton(text, this);
    d->ways->addButton(button, id);
    layout()->addWidget(button);
    return button;
}

void MRL_LC_AddNewActionDialog::createPredefinedHalf()
{
    createRadioButton(PREDEFINED, tr("Pre defined actions"))->setChecked(true);
    LCM_NewActionFields fields(this, {tr("Action:"), tr("Category:"), tr("Description:")});
    d->preBox = fields.box();
    d->actionCombo = fields.addComboBox();
    d->categoryCombo = fields.addComboBox();
    d->preDescEdit = fields.addLineEdit("line_pre_desc", 32.0, 0);
    setCategoryEnabled(false);
    layout()->addWidget(d->preBox);

    mrl_connect(d->actionCombo, "2activated( const QString& )", this,
                "1slot_selectionChangedAction( const QString& )", Qt::AutoConnection);
    mrl_connect(d->categoryCombo, "2activated( const QString& )", this,
                "1slot_selectionChangedCategory( const QString& )", Qt::AutoConnection);
    mrl_connect(d->preDescEdit, "2textChanged( const QString& )", this,
                "1slot_descriptionChanged( const QString& )", Qt::AutoConnection);
}

void MRL_LC_AddNewActionDialog::createUserHalf()
{
    createRadioButton(USER_DEFINED, tr("User defined action"));
    LCM_NewActionFields fields(this, {tr("Action:"), tr("Category:"), tr("Description:")});
    d->userBox = fields.box();
    d->userActionEdit = fields.addLineEdit("line_user_action", MAX_ACTION, 0x80800);
    d->userCategoryEdit = fields.addLineEdit("line_user_category", 1.0, 0x80000);
    d->userDescEdit = fields.addLineEdit("line_user_desc", 32.0, 0);
    layout()->addWidget(d->userBox);

    mrl_connect(d->userActionEdit, "2textChanged( const QString& )", this,
                "1slot_userActionTextChanged( const QString& )", Qt::AutoConnection);
    mrl_connect(d->userCategoryEdit, "2textChanged( const QString& )", this,
                "1slot_userCategoryTextChanged( const QString& )", Qt::AutoConnection);
    mrl_connect(d->userDescEdit, "2textChanged( const QString& )", this,
                "1slot_descriptionChanged( const QString& )", Qt::AutoConnection);
}

void MRL_LC_AddNewActionDialog::createFoot()
{
    d->infoText = new MRL_QT_InfoText(QString(), this, nullptr);
    // Keeps the height of a line of text while hidden, so that nothing jumps while a name is typed.
    d->infoText->setText(tr("Name already used!"));
    d->infoText->setMinimumHeight(d->infoText->sizeHint().height());
    d->infoText->setText(QString());
    QSizePolicy policy = d->infoText->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    d->infoText->setSizePolicy(policy);
    d->infoText->hide();
    layout()->addWidget(d->infoText);

    d->buttons = new MRL_QT_Ok(this, 3, nullptr);
    d->buttons->cmdOk()->setDefault(true);
    mrl_connect(d->buttons->cmdOk(), "2clicked( )", this, "1slot_okClicked( )", Qt::AutoConnection);
    mrl_connect(d->buttons->cmdCancel(), "2clicked( )", this, "1reject( )", Qt::AutoConnection);
    layout()->addWidget(d->buttons);
}

void MRL_LC_AddNewActionDialog::chooseFirstWay()
{
    if (d->actionCombo->count() > 0) {
        slot_radioClicked(PREDEFINED);
        return;
    }
    d->ways->button(PREDEFINED)->setEnabled(false);
    if (d->userBox == nullptr) {
        return;
    }
    d->ways->button(USER_DEFINED)->setChecked(true);
    slot_radioClicked(USER_DEFINED);
}

void MRL_LC_AddNewActionDialog::fillActionCombo()
{
    for (std::size_t i = 0; i < d->model->actions.size(); ++i) {
        const LCM_ActionEntry& parent = *d->model->actions[i];
        if (d->isOffered(parent)) {
            d->actionCombo->addItem(lcm_action_label(parent.record), static_cast<int>(i));
        }
    }
    slot_selectionChangedAction(d->actionCombo->itemText(0));
    d->actionCombo->setFocus();
}

void MRL_LC_AddNewActionDialog::fillCategoryCombo()
{
    d->categoryCombo->clear();
    categoryIndex = -1;
    bool anyChild = false;
    if (actionIndex >= 0) {
        const LCM_ActionEntry& parent = d->parentAt(actionIndex);
        if (parent.state == LCM_STATE_FREE) {
            d->categoryCombo->addItem(QStringLiteral("Standard"), STANDARD);
        }
        for (std::size_t i = 0; i < parent.subActions.size(); ++i) {
            const LCM_SubAction& child = *parent.subActions[i];
            if (child.state == LCM_STATE_ACTIVE || d->isNameUsed(child)) {
                continue;
            }
            d->categoryCombo->addItem(lcm_member_label(child.record), static_cast<int>(i));
            anyChild = true;
        }
    }
    d->categoryCombo->setCurrentId(STANDARD);
    slot_selectionChangedCategory(QString());
    setCategoryEnabled(anyChild);
}

void MRL_LC_AddNewActionDialog::setCategoryEnabled(bool enabled)
{
    d->categoryCombo->setEnabled(enabled);
    d->categoryCombo->setToolTip(enabled ? QString() : tr("The action has no category that could be added."));
}

void MRL_LC_AddNewActionDialog::slot_selectionChangedAction(const QString&)
{
    if (d->actionCombo->count() == 0) {
        return;
    }
    d->preDescEdit->setText(QString());
    actionIndex = d->actionCombo->getCurrentId();
    description = lcm_title_text(d->parentAt(actionIndex).record.title);
    d->preDescEdit->setText(description);
    fillCategoryCombo();
    slot_selectionChangedCategory(QString());
}

void MRL_LC_AddNewActionDialog::slot_selectionChangedCategory(const QString&)
{
    categoryIndex = d->categoryCombo->getCurrentId();
    if (actionIndex < 0) {
        return;
    }
    const LCM_ActionEntry& parent = d->parentAt(actionIndex);
    const tagCDB_LC_ACT& chosen = categoryIndex < 0
                                      ? parent.record
                                      : parent.subActions[static_cast<std::size_t>(categoryIndex)]->record;
    description = lcm_title_text(chosen.title);
    d->preDescEdit->setText(description);
}

void MRL_LC_AddNewActionDialog::slot_descriptionChanged(const QString& text) { description = text; }

void MRL_LC_AddNewActionDialog::slot_radioClicked(int id)
{
    const bool userDefined = id != PREDEFINED;
    d->preBox->setEnabled(!userDefined);
    if (d->userBox != nullptr) {
        d->userBox->setEnabled(userDefined);
    }
    description = (userDefined && d->userBox != nullptr ? d->userDescEdit : d->preDescEdit)->text();
    if (!userDefined) {
        actionName.clear();
        categoryName.clear();
        actionIndex = d->actionCombo->getCurrentId();
        categoryIndex = d->categoryCombo->getCurrentId();
        d->buttons->cmdOk()->setEnabled(true);
    } else if (d->userBox != nullptr) {
        // The message and OK stay as the judgement of the typed name left them.
        actionName = d->userActionEdit->text().toUpper();
        categoryName = d->userCategoryEdit->text().toUpper();
        actionIndex = -1;
        categoryIndex = -1;
        if (d->userActionEdit->text().isEmpty()) {
            d->buttons->cmdOk()->setEnabled(false);
        }
    }
}

void MRL_LC_AddNewActionDialog::slot_userActionTextChanged(const QString& text)
{
    if (d->userBox == nullptr) {
        return;
    }
    actionIndex = -1;
    actionName = text.toUpper().trimmed();
    const bool roomForCategory = actionName.size() <= MAX_ACTION_WITH_CATEGORY;
    if (!roomForCategory) {
        d->userCategoryEdit->setText(QString());
    }
    d->userCategoryEdit->setEnabled(roomForCategory);
    d->userCategoryEdit->setToolTip(
        roomForCategory ? QString() : tr("Only an action of at most 2 characters can have a category."));
    judgeName(true);
}

void MRL_LC_AddNewActionDialog::slot_userCategoryTextChanged(const QString& text)
{
    if (d->userBox == nullptr) {
        return;
    }
    categoryIndex = -1;
    const QString actionText = d->userActionEdit->text();
    if (!text.trimmed().isEmpty() && actionText.size() > MAX_ACTION_WITH_CATEGORY) {
        d->userActionEdit->setText(actionText.left(MAX_ACTION_WITH_CATEGORY));
    }
    categoryName = text.toUpper().trimmed();
    if (categoryName.isEmpty()) {
        d->userActionEdit->getStrLineEdit().secondBound = MAX_ACTION;
    }
    judgeName(false);
}

void MRL_LC_AddNewActionDialog::judgeName(bool actionChanged)
{
    QString message;
    const bool valid = validateName(actionName.trimmed(), categoryName, d->usedNames, actionChanged, message);
    if (!valid) {
        d->infoText->setText(message);
    }
    d->infoText->setVisible(!valid);
    d->buttons->cmdOk()->setEnabled(valid);
}

void MRL_LC_AddNewActionDialog::slot_okClicked()
{
    if (actionIndex >= 0) {
        actionName.clear();
        categoryName.clear();
    }
    accept();
}
