#include "loadcases/number_dialog.h"

#include "actions/host_settings.h"
#include "host/mrl_table.h"
#include "lcdata/values/records.h"
#include "loadcases/number_slider.h"
#include "rules/load_case_numbers.h"

LCM_LoadcaseNumberDialog::LCM_LoadcaseNumberDialog(QWidget* parent, const std::set<int>& taken,
                                                   bool asksFactor, const LCM_LoadcaseCopy& info)
    : MRL_QT_Dialog(parent, "lc number input"), usedNumbers(taken), copy(asksFactor)
{
    setModal(true);
    setCaption(tr("Target loadcase number"));
    createSlider(info.target);
    createLayout(info);
    slider->setLineEditFocus();
}

void LCM_LoadcaseNumberDialog::createSlider(int proposal)
{
    slider = new MySlider(this, "slider lc number", usedNumbers);
    slider->setKeyboardTracking(false);
    // The proposal must not count as a number that the user asked for.
    MRL_QT_SignalBlocker blocker(slider);
    slider->setRange(1, LC_MAX_NUMBER, 1);
    slider->setDisplayValue(proposal);
    slider->adjustGUIElements(true);
}

void LCM_LoadcaseNumberDialog::createLayout(const LCM_LoadcaseCopy& info)
{
    auto* layout = new MRL_QT_VBoxLayout(this);
    if (info.source > 0) {
        layout->addWidget(new MRL_QT_Label(tr("Copy from: %1").arg(info.source), this, "lblCopyFrom"));
    }

    auto* grid = new MRL_QT_GridLayout();
    layout->addLayout(grid);
    grid->addWidget(new QLabel(tr("Target loadcase:"), this), 0, 0);
    grid->addWidget(slider, 0, 1);
    if (copy) {
        StructLineEdit description;
        description.format = -3;
        description.flags = 0x800;
        m_pFac = new MRL_H_LineEdit(this, description, "m_pFac", QString(), QString(), true);
        m_pFac->setVal(info.factor);
        grid->addWidget(new MRL_QT_Label(tr("Factor:"), this), 1, 0);
        grid->addWidget(m_pFac, 1, 1);
        if (lcm_wants_extras()) {
            m_pFac->setAccessibleName(tr("Factor"));
        }
    }

    buttons = new MRL_QT_Ok(this, 3, "buttons");
    layout->addWidget(buttons);
    mrl_connect(buttons->cmdOk(), "2clicked( )", this, "1slot_accept( )", Qt::AutoConnection);
    mrl_connect(buttons->cmdCancel(), "2clicked( )", this, "1reject( )", Qt::AutoConnection);
}

int LCM_LoadcaseNumberDialog::number() const { return static_cast<int>(slider->getDisplayValue()); }

double LCM_LoadcaseNumberDialog::factor() const
{
    return m_pFac ? m_pFac->getVal() : static_cast<double>(LC_UNDEFINED);
}

void LCM_LoadcaseNumberDialog::slot_accept()
{
    if (usedNumbers.count(number())) {
        MRL_QT_MessageBox::critical(
            this, tr("Already assigned"),
            tr("This number is already assigned to a loadcase! Please choose another one."));
    } else if (!slider->isCorrected() || confirmCorrection()) {
        accept();
    }
}

bool LCM_LoadcaseNumberDialog::confirmCorrection()
{
    const int answer = MRL_QT_MessageBox::warning(this, tr("Already assigned"),
                                                  tr("Number %1 is already in use. Next free number is %2. "
                                                     "Should the next free number be used?")
                                                      .arg(slider->wantedNumber())
                                                      .arg(number()),
                                                  tr("Yes"), tr("No"), QString(), 0, -1);
    slider->clearCorrected();
    return answer == 0;
}
