#include "workbench/exchange/text_form_fields.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

#include "exchange/text_decoding.h"

namespace mrl::workbench {

namespace {

constexpr int NARROWEST_FIELD = 90; ///< on a small screen
constexpr char SEPARATORS[] = {',', ';', '\t', '|'};
constexpr char DECIMAL_SIGNS[] = {'.', ','};

QString separatorName(char separator)
{
    switch (separator) {
    case ',':
        return TextFormFields::tr("comma ,");
    case ';':
        return TextFormFields::tr("semicolon ;");
    case '\t':
        return TextFormFields::tr("tabulator");
    default:
        return QString(QLatin1Char(separator));
    }
}

QString decimalName(char sign)
{
    return sign == ',' ? TextFormFields::tr("comma ,") : TextFormFields::tr("point .");
}

char charOf(const QComboBox* field)
{
    const QString text = field->currentData().toString();
    return text.isEmpty() ? '\0' : text.at(0).toLatin1();
}

void tell(QComboBox* field, const QString& found)
{
    field->setItemText(0, found.isEmpty() ? TextFormFields::tr("automatic")
                                          : TextFormFields::tr("automatic: %1").arg(found));
}

} // namespace

TextFormFields::TextFormFields(Purpose purpose, QWidget* parent) : QWidget(parent)
{
    new QHBoxLayout(this); // the widget's
    layout()->setContentsMargins(0, 0, 0, 0);
    m_encoding = createField(tr("&Encoding:"), "combo_encoding");
    m_separator = createField(tr("Se&parator:"), "combo_separator");
    m_decimal = createField(tr("&Decimal sign:"), "combo_decimal");
    if (purpose == Purpose::Read) {
        for (QComboBox* field : {m_encoding, m_separator, m_decimal}) {
            field->addItem(tr("automatic"), QString());
        }
    }
    for (const std::string& name : exchange::encodingNames()) {
        m_encoding->addItem(QString::fromStdString(name), QString::fromStdString(name));
    }
    for (const char separator : SEPARATORS) {
        m_separator->addItem(separatorName(separator), QString(QLatin1Char(separator)));
    }
    for (const char sign : DECIMAL_SIGNS) {
        m_decimal->addItem(decimalName(sign), QString(QLatin1Char(sign)));
    }
    if (purpose == Purpose::Write) {
        chooseByLocale();
    }
    static_cast<QHBoxLayout*>(layout())->addStretch(1);
}

TextFormFields::~TextFormFields() = default;

QComboBox* newFittingField(const char* name, QWidget* parent)
{
    auto* field = new QComboBox(parent);
    field->setObjectName(QLatin1String(name));
    field->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    field->setMinimumWidth(NARROWEST_FIELD);
    return field;
}

QComboBox* TextFormFields::createField(const QString& label, const char* name)
{
    auto* field = newFittingField(name, this);
    auto* text = new QLabel(label, this);
    text->setBuddy(field);
    layout()->addWidget(text);
    layout()->addWidget(field);
    connect(field, QOverload<int>::of(&QComboBox::activated), this, &TextFormFields::changed);
    return field;
}

/// As spreadsheets do: where numbers have a comma, a semicolon separates.
void TextFormFields::chooseByLocale()
{
    const bool hasComma = QLocale().decimalPoint() == QLatin1Char(',');
    m_decimal->setCurrentIndex(hasComma ? 1 : 0);
    m_separator->setCurrentIndex(hasComma ? 1 : 0);
}

void TextFormFields::enterInto(exchange::FormatOptions& options) const
{
    options.encoding = m_encoding->currentData().toString().toStdString();
    options.separator = charOf(m_separator);
    options.decimalSign = charOf(m_decimal);
}

void TextFormFields::showFound(const exchange::TextForm& form)
{
    tell(m_encoding, QString::fromStdString(form.encoding));
    tell(m_separator, form.separator == 0 ? QString() : separatorName(form.separator));
    tell(m_decimal, form.decimalSign == 0 ? QString() : decimalName(form.decimalSign));
}

} // namespace mrl::workbench
