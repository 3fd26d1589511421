#include "workbench/designcode/recode_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

#include "hostlib/ui/widget/window_size.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/system_words.h"
#include "workbench/axis_name.h"
#include "workbench/designcode/recode_model.h"

namespace mrl::workbench {

namespace {

constexpr QSize WANTED_SIZE(900, 520);

} // namespace

RecodeDialog::RecodeDialog(int db, const QString& code, QWidget* parent)
    : MRL_QT_Dialog(parent, "recode"), m_db(db), m_codes(new QComboBox(this)),
      m_system(new MRL_QT4_ComboBox(this, "combo_system")),
      m_gravity(new MRL_QT4_ComboBox(this, "combo_gravity")),
      m_moves(
          new MRL_QT_CheckBox(tr("&Dead weight along the old direction of gravity acts along the new one"),
                              this, "check_move_dead_weight")),
      m_model(new RecodeModel(this)), m_table(createTable()), m_loadCases(new QLabel(this)),
      m_refusal(new QLabel(this))
{
    setCaption(tr("Another design code"));
    createFields();
    fillCodes(code);
    fillSystem();
    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_codes, changed, this, &RecodeDialog::chooseCode);
    connect(m_system, changed, this, &RecodeDialog::planAgain);
    connect(m_gravity, changed, this, &RecodeDialog::planAgain);
    connect(m_moves, &QCheckBox::toggled, this, &RecodeDialog::planAgain);
    chooseCode();
    resize(ui::fittingSize(WANTED_SIZE, *this));
}

RecodeDialog::~RecodeDialog() = default;

void RecodeDialog::createFields()
{
    m_codes->setObjectName(QStringLiteral("combo_designcode"));
    auto* form = new QFormLayout;
    form->addRow(tr("Design &code:"), m_codes);
    form->addRow(tr("&System:"), m_system);
    form->addRow(tr("&Gravity:"), m_gravity);
    form->addRow(QString(), m_moves);
    m_loadCases->setObjectName(QStringLiteral("label_load_cases"));
    m_refusal->setObjectName(QStringLiteral("label_refusal"));
    for (QLabel* label : {m_loadCases, m_refusal}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new MRL_QT_VBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_loadCases);
    layout->addWidget(m_refusal);
    layout->addWidget(buttons);
}

QTableView* RecodeDialog::createTable()
{
    auto* table = new QTableView(this);
    table->setObjectName(QStringLiteral("table_plan"));
    table->setAccessibleName(tr("What changes"));
    table->setModel(m_model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    return table;
}

void RecodeDialog::fillCodes(const QString& code)
{
    for (const auto& found : designcode::list()) {
        m_codes->addItem(QString::fromStdString(found.name));
    }
    if (m_codes->findText(code) < 0) { // a path that the project stores
        m_codes->addItem(code);
    }
    m_codes->setCurrentText(code);
}

void RecodeDialog::fillSystem()
{
    m_system->addItem(tr("Spatial structure"), LC_SYSTEM_SPATIAL);
    m_system->addItem(tr("Plane structure"), LC_SYSTEM_PLANE);
    m_system->addItem(tr("Plate"), LC_SYSTEM_PLATE);
    m_system->setCurrentId(lcm_system_class(m_db));
    for (const LCM_GravityAxis& axis : LCM_GRAVITY_AXES) {
        m_gravity->addItem(axisName(axis.id), axis.id);
    }
    m_gravity->setCurrentId(lcm_gravity_direction(m_db));
}

void RecodeDialog::chooseCode()
{
    m_wish.map.clear();
    m_reason.clear();
    m_code = newCodeOf(m_db, m_codes->currentText().toStdString(), m_reason);
    planAgain();
}

void RecodeDialog::planAgain()
{
    m_wish.systemClass = m_system->getCurrentId();
    // A damaged project may have a direction that the list doesn't offer.
    m_wish.gravity =
        m_gravity->currentIndex() >= 0 ? std::optional<int>(m_gravity->getCurrentId()) : std::nullopt;
    m_wish.movesDeadWeight = m_moves->isChecked();
    m_plan = m_code ? planRecode(m_db, *m_code, m_wish) : LCM_RecodePlan();
    showPlan();
}

void RecodeDialog::showPlan()
{
    m_model->show(m_plan.rows);
    showTargets();
    m_table->resizeColumnsToContents();
    m_table->horizontalHeader()->setStretchLastSection(true);
    QStringList numbers;
    for (const LCM_RecodeLoadCase& loadCase : m_plan.loadCases) {
        numbers << QString::number(loadCase.number);
    }
    m_loadCases->setText(numbers.isEmpty()
                             ? QString()
                             : tr("Load cases that change: %1").arg(numbers.join(QStringLiteral(", "))));
    const QString refusal = m_code ? QString::fromStdString(m_plan.refusal) : m_reason;
    m_refusal->setText(refusal.isEmpty() ? QString() : tr("Not possible: %1").arg(refusal));
    m_ok->setEnabled(refusal.isEmpty());
}

/// The choice of an action of the new code in each row.
void RecodeDialog::showTargets()
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const LCM_RecodeRow& action = m_model->at(row);
        auto* targets = new MRL_QT4_ComboBox(m_table, "combo_becomes");
        targets->addItem(lcm_code_name(action.oldCode), action.oldCode);
        for (const designcode::DefaultAction& target : m_code->code.actions) {
            if (target.code != action.oldCode) {
                targets->addItem(lcm_code_name(target.code), target.code);
            }
        }
        targets->setCurrentId(action.newCode);
        targets->setAccessibleName(tr("What %1 becomes").arg(lcm_code_name(action.oldCode)));
        connect(targets, QOverload<int>::of(&QComboBox::activated), this,
                [this, targets, code = action.oldCode] { mapTo(code, targets->getCurrentId()); });
        m_table->setIndexWidget(m_model->index(row, RecodeModel::Becomes), targets);
    }
}

void RecodeDialog::mapTo(int oldCode, int newCode)
{
    if (newCode == oldCode) {
        m_wish.map.erase(oldCode);
    } else {
        m_wish.map[oldCode] = newCode;
    }
    // The list that was chosen from goes with the plan.
    QMetaObject::invokeMethod(
        this, [this] { planAgain(); }, Qt::QueuedConnection);
}

} // namespace mrl::workbench
