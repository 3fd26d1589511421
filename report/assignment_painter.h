#pragma once

/// Draws which load cases belong to which action, row by row, so that a page can end between two rows.

#include "report/assignment.h"
#include "report/canvas.h"

namespace mrl::report {

class AssignmentPainter
{
  public:
    AssignmentPainter(const Assignment& picture, const Faces& faces) : m_picture(picture), m_faces(faces) {}

    double headHeight() const;
    double rowHeight(std::size_t row) const;
    double legendHeight() const;

    /// Each is drawn from a left upper corner; the picture is as wide as the body of a page.
    void paintHead(Canvas& canvas, double x, double y) const;
    void paintRow(Canvas& canvas, double x, double y, std::size_t row) const;
    void paintLegend(Canvas& canvas, double x, double y) const;

  private:
    QStringList ranges(const AssignmentRow& row) const;
    void paintBar(Canvas& canvas, double x, double y, const AssignmentRow& row) const;
    void paintNumbers(Canvas& canvas, double x, double y, const AssignmentRow& row, double width) const;
    double placeOf(std::size_t position) const;

    const Assignment& m_picture;
    const Faces& m_faces;
};

/// The whole picture as SVG.
QByteArray assignmentSvg(const Assignment& picture, const Faces& faces);

} // namespace mrl::report
