#include <cmath>

#include "host/mrl_table.h"
#include "hostlib/ui/table/number_text.h"

namespace {

constexpr int WHOLE_NUMBER_FORMAT = 0;
constexpr int TEXT_FORMAT = -15;
constexpr int DEFAULT_MAX_LENGTH = 32767; ///< QLineEdit's own

QString textOf(const StrLineEdit& description, double value)
{
    if (value == description.value && !description.text.isNull()) {
        return description.text;
    }
    return mrl_h_getDimStringFromVal(value, description.format, description.precision);
}

bool allows(const StrLineEdit& description, double value)
{
    if (description.format == WHOLE_NUMBER_FORMAT && value != std::floor(value)) {
        return false;
    }
    return description.firstBound >= description.secondBound ||
           (value >= description.firstBound && value <= description.secondBound);
}

} // namespace

struct MRL_H_LineEdit::Private
{
    StrLineEdit description;
    mutable double last = 0.0; ///< the last number that the description allowed
};

MRL_H_LineEdit::MRL_H_LineEdit(QWidget* parent, const StructLineEdit& description, const char* name,
                               const QString& unit, const QString& toolTip, bool on)
    : QLineEdit(parent), d(std::make_unique<Private>())
{
    setObjectName(QString::fromLatin1(name));
    setPlaceholderText(unit);
    setToolTip(toolTip);
    setEnabled(on);
    updateVal(description);
    // An emptied or impossible input gives way to the last number when the person goes on.
    connect(this, &QLineEdit::editingFinished, this, [this] {
        bool ok = false;
        const double value = getVal(&ok);
        if (!ok && d->description.format != TEXT_FORMAT) {
            setText(textOf(d->description, value));
        }
    });
}

MRL_H_LineEdit::~MRL_H_LineEdit() = default;

StrLineEdit& MRL_H_LineEdit::getStrLineEdit() { return d->description; }

void MRL_H_LineEdit::updateVal(const StrLineEdit& description)
{
    d->description = description;
    const bool limited = description.format == TEXT_FORMAT && description.secondBound > 0.0;
    setMaxLength(limited ? static_cast<int>(description.secondBound) : DEFAULT_MAX_LENGTH);
    if (description.format == TEXT_FORMAT) {
        setText(description.text);
    } else {
        setVal(description.value);
    }
}

double MRL_H_LineEdit::getVal(bool* ok) const
{
    const bool named = !d->description.text.isNull() && text() == d->description.text;
    const auto number = named ? std::optional<double>(d->description.value) : mrl::table::parseNumber(text());
    const bool valid = number.has_value() && (named || allows(d->description, *number));
    if (ok != nullptr) {
        *ok = valid;
    }
    if (valid) {
        d->last = *number;
    }
    return d->last;
}

void MRL_H_LineEdit::setVal(double value)
{
    d->last = value;
    setText(textOf(d->description, value));
}
