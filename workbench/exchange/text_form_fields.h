#pragma once

#include <QWidget>

#include "exchange/format.h"

class QComboBox;

namespace mrl::workbench {

/// A field as wide as its texts where there is room, and narrower on a small screen. It belongs to its parent.
QComboBox* newFittingField(const char* name, QWidget* parent);

/// The fields that say how the text of a file is written: encoding, separator, decimal sign.
class TextFormFields : public QWidget
{
    Q_OBJECT
  public:
    enum class Purpose { Read, Write };

    /// To write they begin with what the locale has; to read, with "automatic".
    TextFormFields(Purpose purpose, QWidget* parent);
    ~TextFormFields() override;

    /// Enters what is chosen; what is left to be found out stays as it is.
    void enterInto(exchange::FormatOptions& options) const;
    /// Tells beside "automatic" what was found out.
    void showFound(const exchange::TextForm& form);

  signals:
    void changed();

  private:
    QComboBox* createField(const QString& label, const char* name);
    void chooseByLocale();

    QComboBox* m_encoding = nullptr;
    QComboBox* m_separator = nullptr;
    QComboBox* m_decimal = nullptr;
};

} // namespace mrl::workbench
