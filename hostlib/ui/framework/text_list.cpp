#include "host/mrl_textlist.h"

#include <QStringList>

MRL_T_String::MRL_T_String(const QString& text) : m_text(text) {}

const QString& MRL_T_String::text() const { return m_text; }

struct MRL_T_Liste::Private
{
    MRL_T_String name;
    QStringList lines;
};

MRL_T_Liste::MRL_T_Liste(const MRL_T_String& name) : d(std::make_unique<Private>()) { d->name = name; }

MRL_T_Liste::~MRL_T_Liste() = default;

void MRL_T_Liste::Append(const QString& text)
{
    // A line feed ends a line; the last one needs none.
    const QString ended = text.endsWith(QLatin1Char('\n')) ? text.chopped(1) : text;
    const auto lines = ended.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        d->lines << (line.endsWith(QLatin1Char('\r')) ? line.chopped(1) : line);
    }
}

void MRL_T_Liste::Append(const char* text) { Append(QString::fromUtf8(text)); }

MRL_T_Liste::Line MRL_T_Liste::GetLast() const { return count() - 1; }

void MRL_T_Liste::Delete(Line line)
{
    if (line >= 0 && line < count()) {
        d->lines.removeAt(line);
    }
}

const MRL_T_String& MRL_T_Liste::name() const { return d->name; }

int MRL_T_Liste::count() const { return d->lines.size(); }

QString MRL_T_Liste::at(Line line) const { return d->lines.value(line); }
