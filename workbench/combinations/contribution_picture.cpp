#include "workbench/combinations/contribution_picture.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

#include "report/readable.h"

namespace mrl::workbench {

namespace {

constexpr int WIDTH = 520;
constexpr int LEFT = 150;  // of the bars; names stand ahead of it
constexpr int RIGHT = 430; // values stand behind it
constexpr int TOP = 34;
constexpr int ROW = 24;
constexpr int BAR = 16;
constexpr int TEXT_GAP = 8;
constexpr int DIGITS = 6;
constexpr auto SUM_COLOUR = "#404040";

class PictureText
{
    Q_DECLARE_TR_FUNCTIONS(ContributionPicture)
};

struct Bar
{
    QString name;
    QString colour;
    double value = 0;
};

/// Colours that can be told apart without seeing red and green.
QString colourOf(LCM_Role role)
{
    switch (role) {
    case LCM_Role::Permanent:
    case LCM_Role::Prestress:
        return QStringLiteral("#7a8ca3");
    case LCM_Role::Lead:
        return QStringLiteral("#d55e00");
    case LCM_Role::Others:
    case LCM_Role::Second:
        return QStringLiteral("#e6a04b");
    case LCM_Role::Accidental:
    case LCM_Role::Seismic:
    case LCM_Role::Imperfection:
        break;
    }
    return QStringLiteral("#0072b2");
}

std::vector<Bar> barsOf(const std::vector<TermRow>& terms)
{
    std::vector<Bar> bars;
    double sum = 0;
    for (const TermRow& term : terms) {
        const QString name = QString::fromStdString(term.origin.action) + QStringLiteral(", ") +
                             report::roleName(term.origin.role);
        const auto same =
            std::find_if(bars.begin(), bars.end(), [&](const Bar& bar) { return bar.name == name; });
        if (same == bars.end()) {
            bars.push_back({name, colourOf(term.origin.role), term.contribution()});
        } else {
            same->value += term.contribution();
        }
        sum += term.contribution();
    }
    bars.push_back({PictureText::tr("Sum"), QLatin1String(SUM_COLOUR), sum});
    return bars;
}

/// Where a value stands between the least and the greatest.
struct Scale
{
    double least = 0;
    double greatest = 0;

    double x(double value) const
    {
        const double range = greatest - least;
        return range == 0 ? LEFT : LEFT + (value - least) / range * (RIGHT - LEFT);
    }
};

QString text(double x, double y, const char* anchor, const QString& content)
{
    return QStringLiteral("<text x=\"%1\" y=\"%2\" text-anchor=\"%3\">%4</text>\n")
        .arg(x)
        .arg(y)
        .arg(QLatin1String(anchor), content.toHtmlEscaped());
}

QString drawn(const Bar& bar, const Scale& scale, int y)
{
    const double from = scale.x(std::min(0.0, bar.value));
    const double to = scale.x(std::max(0.0, bar.value));
    const double base = y + BAR - 4;
    return text(LEFT - TEXT_GAP, base, "end", bar.name) +
           QStringLiteral("<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" fill=\"%5\"/>\n")
               .arg(from)
               .arg(y)
               .arg(to - from)
               .arg(BAR)
               .arg(bar.colour) +
           text(RIGHT + TEXT_GAP, base, "start", QLocale().toString(bar.value, 'g', DIGITS));
}

} // namespace

QByteArray contributionPicture(const QString& title, const std::vector<TermRow>& terms)
{
    const std::vector<Bar> bars = barsOf(terms);
    Scale scale;
    for (const Bar& bar : bars) {
        scale.least = std::min(scale.least, bar.value);
        scale.greatest = std::max(scale.greatest, bar.value);
    }
    const int height = TOP + ROW * static_cast<int>(bars.size()) + TEXT_GAP;
    QString svg =
        QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" width=\"%1\" "
                       "height=\"%2\" font-family=\"sans-serif\" font-size=\"12\">\n"
                       "<rect width=\"%1\" height=\"%2\" fill=\"#ffffff\"/>\n")
            .arg(WIDTH)
            .arg(height);
    svg += text(TEXT_GAP, TOP - 14, "start", title);
    int y = TOP;
    for (const Bar& bar : bars) {
        svg += drawn(bar, scale, y);
        y += ROW;
    }
    svg += QStringLiteral("<line x1=\"%1\" y1=\"%2\" x2=\"%1\" y2=\"%3\" stroke=\"#808080\"/>\n</svg>\n")
               .arg(scale.x(0))
               .arg(TOP - 4)
               .arg(y - ROW + BAR + 4);
    return svg.toUtf8();
}

} // namespace mrl::workbench
