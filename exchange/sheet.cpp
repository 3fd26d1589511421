#include "exchange/sheet.h"

#include <QHash>
#include <QStringList>

namespace mrl::exchange {

namespace {

void addFactors(std::vector<Column>& columns)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const char* otherNames = factor.id == LCM_FactorId::Psi1s ? "Psi1'" : "";
        columns.push_back({factor.key, Kind::Factor, otherNames, &factor});
    }
}

std::vector<Column> actionColumns()
{
    std::vector<Column> columns{{"name", Kind::Key, "action|code|Einwirkung|Kurzname"},
                                {"title", Kind::Text, "description|Titel|Bezeichnung|Beschreibung"},
                                {"partition", Kind::Word, "category|Kategorie|Klassifizierung"},
                                {"superposition", Kind::Word, "Überlagerung|Ueberlagerung"}};
    addFactors(columns);
    return columns;
}

std::vector<Column> loadCaseColumns()
{
    std::vector<Column> columns{
        {"number", Kind::Key, "no|nr|load case|LC|Nummer|Lastfall|Lastfallnummer|LF"},
        {"title", Kind::Text, "name|description|Titel|Bezeichnung|Beschreibung"},
        {"action", Kind::Word, "Einwirkung"},
        {"DLX", Kind::Number, "dead weight X|Eigengewicht X", nullptr, &tagCDB_LC_CTRL::dlx},
        {"DLY", Kind::Number, "dead weight Y|Eigengewicht Y", nullptr, &tagCDB_LC_CTRL::dly},
        {"DLZ", Kind::Number, "dead weight Z|Eigengewicht Z", nullptr, &tagCDB_LC_CTRL::dlz},
        {"factor", Kind::Number, "Faktor|Lastfaktor", nullptr, &tagCDB_LC_CTRL::factor}};
    addFactors(columns);
    return columns;
}

QString plainHeading(const QString& heading)
{
    QString plain;
    for (const QChar c : heading.toLower()) {
        if (!c.isSpace() && !QStringLiteral("._-").contains(c)) {
            plain += c;
        }
    }
    return plain;
}

/// The columns of a sheet by their plain headings.
QHash<QString, int> columnsByHeading(Sheet sheet)
{
    QHash<QString, int> places;
    int place = 0;
    for (const Column& column : columnsOf(sheet)) {
        places.insert(plainHeading(QString::fromUtf8(column.name)), place);
        for (const QString& other : QString::fromUtf8(column.otherNames).split('|', Qt::SkipEmptyParts)) {
            places.insert(plainHeading(other), place);
        }
        ++place;
    }
    return places;
}

} // namespace

const std::vector<Column>& columnsOf(Sheet sheet)
{
    static const std::vector<Column> ACTIONS = actionColumns();
    static const std::vector<Column> LOAD_CASES = loadCaseColumns();
    return sheet == Sheet::Actions ? ACTIONS : LOAD_CASES;
}

const char* nameOf(Sheet sheet) { return sheet == Sheet::Actions ? "actions" : "loadcases"; }

int columnOfHeading(Sheet sheet, std::string_view heading)
{
    static const QHash<QString, int> ACTIONS = columnsByHeading(Sheet::Actions);
    static const QHash<QString, int> LOAD_CASES = columnsByHeading(Sheet::LoadCases);
    const QString plain = plainHeading(QString::fromUtf8(heading.data(), static_cast<int>(heading.size())));
    return (sheet == Sheet::Actions ? ACTIONS : LOAD_CASES).value(plain, -1);
}

} // namespace mrl::exchange
