#include "report/canvas.h"

#include <QPainter>

namespace mrl::report {

namespace {

QByteArray rounded(double value) { return QByteArray::number(qRound(value)); }

QByteArray attribute(const char* name, double value)
{
    return QByteArray(" ") + name + "=\"" + rounded(value) + "\"";
}

QByteArray attribute(const char* name, const QColor& colour)
{
    return QByteArray(" ") + name + "=\"" + colour.name().toLatin1() + "\"";
}

} // namespace

void PainterCanvas::rectangle(const QRectF& where, const QColor& colour, double corner)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(colour);
    if (corner > 0) {
        m_painter.drawRoundedRect(where, corner, corner);
    } else {
        m_painter.drawRect(where);
    }
}

void PainterCanvas::line(const QPointF& from, const QPointF& to, const QColor& colour, double width)
{
    m_painter.setPen(QPen(colour, width));
    m_painter.drawLine(from, to);
}

void PainterCanvas::text(const Face& face, const QString& text, const QPointF& corner, const QColor& colour)
{
    m_painter.setPen(colour);
    drawLines(m_painter, face, {text}, corner.x(), corner.y());
}

void SvgCanvas::rectangle(const QRectF& where, const QColor& colour, double corner)
{
    m_content += "<rect" + attribute("x", where.x()) + attribute("y", where.y()) +
                 attribute("width", where.width()) + attribute("height", where.height()) +
                 attribute("fill", colour) + (corner > 0 ? attribute("rx", corner) : QByteArray()) + "/>\n";
}

void SvgCanvas::line(const QPointF& from, const QPointF& to, const QColor& colour, double width)
{
    m_content += "<line" + attribute("x1", from.x()) + attribute("y1", from.y()) + attribute("x2", to.x()) +
                 attribute("y2", to.y()) + attribute("stroke", colour) + attribute("stroke-width", width) +
                 "/>\n";
}

void SvgCanvas::text(const Face& face, const QString& text, const QPointF& corner, const QColor& colour)
{
    m_content += "<text" + attribute("x", corner.x()) + attribute("y", corner.y() + face.ascent()) +
                 attribute("font-size", face.font().pixelSize()) +
                 (face.font().bold() ? " font-weight=\"bold\"" : "") + attribute("fill", colour) + ">" +
                 text.toHtmlEscaped().toUtf8() + "</text>\n";
}

QByteArray SvgCanvas::picture(double width, double height, const QString& title) const
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + rounded(width) + " " +
           rounded(height) + "\" role=\"img\">\n<title>" + title.toHtmlEscaped().toUtf8() + "</title>\n" +
           m_content + "</svg>\n";
}

} // namespace mrl::report
