#pragma once

/// What the picture of a report is drawn on: a page or SVG.

#include <QByteArray>

#include "report/typography.h"

class QPainter;

namespace mrl::report {

class Canvas
{
  public:
    Canvas() = default;
    virtual ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// @param corner radius of the corners
    virtual void rectangle(const QRectF& where, const QColor& colour, double corner = 0) = 0;
    virtual void line(const QPointF& from, const QPointF& to, const QColor& colour, double width) = 0;
    /// @param corner the left upper one of the line
    virtual void text(const Face& face, const QString& text, const QPointF& corner, const QColor& colour) = 0;
};

class PainterCanvas : public Canvas
{
  public:
    explicit PainterCanvas(QPainter& painter) : m_painter(painter) {}
    void rectangle(const QRectF& where, const QColor& colour, double corner) override;
    void line(const QPointF& from, const QPointF& to, const QColor& colour, double width) override;
    void text(const Face& face, const QString& text, const QPointF& corner, const QColor& colour) override;

  private:
    QPainter& m_painter;
};

class SvgCanvas : public Canvas
{
  public:
    void rectangle(const QRectF& where, const QColor& colour, double corner) override;
    void line(const QPointF& from, const QPointF& to, const QColor& colour, double width) override;
    void text(const Face& face, const QString& text, const QPointF& corner, const QColor& colour) override;

    /// The picture, to stand within a page. @param title for people who don't see it
    QByteArray picture(double width, double height, const QString& title) const;

  private:
    QByteArray m_content;
};

} // namespace mrl::report
