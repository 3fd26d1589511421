#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

#include "host/mrl_widgets.h"
#include "hostlib/ui/widget/number_spin_box.h"

struct MRL_QT_AdvancedSlider::Private
{
    MRL_QT_AdvancedSlider* q;
    std::set<int> excluded;
    mrl::ui::NumberSpinBox* input = nullptr;
    QSlider* slider = nullptr;
    int value = 0;
    bool telling = false;

    bool isFree(int number) const { return excluded.count(number) == 0; }
    int nextFree(int from, int direction) const;
    int corrected(int wanted) const;
    int stepped(int from, int steps) const;
    void show(int number);
    void take(int wanted);
    void sliderMoved(int action);
};

/// The first free number at or beyond one, within the range; the range's end plus one when there is none.
int MRL_QT_AdvancedSlider::Private::nextFree(int from, int direction) const
{
    int number = from;
    while (number >= input->minimum() && number <= input->maximum() && !isFree(number)) {
        number += direction;
    }
    return number;
}

int MRL_QT_AdvancedSlider::Private::corrected(int wanted) const
{
    const int inRange = std::clamp(wanted, input->minimum(), input->maximum());
    const int above = nextFree(inRange, 1);
    if (above <= input->maximum()) {
        return above;
    }
    const int below = nextFree(inRange, -1);
    return below >= input->minimum() ? below : inRange;
}

// A step goes on in its own direction: otherwise stepping down onto an excluded number would get stuck.
int MRL_QT_AdvancedSlider::Private::stepped(int from, int steps) const
{
    const qint64 target = qint64(from) + qint64(steps) * input->singleStep();
    const auto inRange = static_cast<int>(std::clamp<qint64>(target, input->minimum(), input->maximum()));
    const int found = nextFree(inRange, steps < 0 ? -1 : 1);
    return found >= input->minimum() && found <= input->maximum() ? found : from;
}

void MRL_QT_AdvancedSlider::Private::show(int number)
{
    const QSignalBlocker inputBlocker(input);
    const QSignalBlocker sliderBlocker(slider);
    value = number;
    input->setValue(number);
    slider->setValue(number);
}

void MRL_QT_AdvancedSlider::Private::take(int wanted)
{
    if (telling) {
        return;
    }
    telling = true;
    emit q->valueAboutToChange(wanted);
    telling = false;
    show(corrected(wanted));
}

// Called before the slider moves: its position may still be changed here.
void MRL_QT_AdvancedSlider::Private::sliderMoved(int action)
{
    const int wanted = slider->sliderPosition();
    const bool dragged = action == QAbstractSlider::SliderMove;
    if (dragged || wanted == value) {
        return;
    }
    const int direction = wanted < value ? -1 : 1;
    const int found = nextFree(wanted, direction);
    slider->setSliderPosition(found >= slider->minimum() && found <= slider->maximum() ? found : value);
}

MRL_QT_AdvancedSlider::MRL_QT_AdvancedSlider(QWidget* parent, int, const char* name,
                                             const std::set<int>& excluded)
    : QWidget(parent), d(std::make_unique<Private>())
{
    setObjectName(QString::fromLatin1(name));
    d->q = this;
    d->excluded = excluded;
    d->input =
        new mrl::ui::NumberSpinBox(this, [this](int from, int steps) { return d->stepped(from, steps); });
    d->slider = new QSlider(Qt::Horizontal, this);
    d->slider->setMinimumWidth(120);
    d->slider->setAccessibleName(tr("Number"));
    d->input->setAccessibleName(tr("Number"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->input);
    layout->addWidget(d->slider, 1);
    setFocusProxy(d->input);

    connect(d->input, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int number) { d->take(number); });
    connect(d->slider, &QSlider::valueChanged, this, [this](int number) { d->take(number); });
    connect(d->slider, &QSlider::actionTriggered, this, [this](int action) { d->sliderMoved(action); });
}

MRL_QT_AdvancedSlider::~MRL_QT_AdvancedSlider()
{
    // Destroying the focused input commits its edit and emits; this object can no longer receive that.
    d->input->disconnect(this);
    d->slider->disconnect(this);
}

void MRL_QT_AdvancedSlider::setRange(int lowest, int highest, int step)
{
    const QSignalBlocker inputBlocker(d->input);
    const QSignalBlocker sliderBlocker(d->slider);
    d->input->setRange(lowest, highest);
    d->input->setSingleStep(step);
    d->slider->setRange(lowest, highest);
    d->slider->setSingleStep(step);
    d->slider->setPageStep(std::max(step, (highest - lowest) / 20));
    d->value = d->input->value();
}

void MRL_QT_AdvancedSlider::setDisplayValue(double value)
{
    const int number = std::clamp(static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0)),
                                  d->input->minimum(), d->input->maximum());
    if (signalsBlocked()) {
        d->show(number);
    } else {
        d->take(number);
    }
}

double MRL_QT_AdvancedSlider::getDisplayValue() const
{
    // A typed number counts before the editing ends; while its change is being signalled the old one does.
    if (!d->telling) {
        d->input->interpretText();
    }
    return d->value;
}

void MRL_QT_AdvancedSlider::adjustGUIElements(bool on)
{
    // The spin box is as wide by itself as the longest number of its range.
    d->input->setSizePolicy(on ? QSizePolicy::Fixed : QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void MRL_QT_AdvancedSlider::setKeyboardTracking(bool on) { d->input->setKeyboardTracking(on); }

void MRL_QT_AdvancedSlider::setLineEditFocus() { d->input->selectNumber(); }

double MRL_QT_AdvancedSlider::checkValidValue(double value) const
{
    return d->corrected(static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0)));
}
