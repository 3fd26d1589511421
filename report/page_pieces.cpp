#include "report/page_pieces.h"

#include <QPainter>

#include "report/assignment_painter.h"
#include "report/table_painter.h"
#include "report/words.h"

namespace mrl::report {

namespace {

constexpr int MOST_LINES = 60; // of a paragraph, which a page holds
constexpr double WARNING_BAR = 80;
constexpr double INDENT = 300;
constexpr double CONTENTS_INDENT = 600;
constexpr double LINE_GAP = 60;
const QColor WARNING_COLOUR(0xb3, 0x5c, 0x00);

class HeadingPieces : public Pieces
{
  public:
    HeadingPieces(const Heading& heading, const Faces& faces)
        : m_face(heading.level == 1 ? faces.heading1 : faces.heading2), m_isFirstLevel(heading.level == 1),
          m_text(m_face.elided(heading.text, BODY_WIDTH))
    {
    }
    std::size_t count() const override { return 1; }
    double above() const override { return m_isFirstLevel ? 800 : 450; }
    double height(std::size_t) const override { return m_face.lineHeight() + (m_isFirstLevel ? 180 : 60); }
    bool leadsOn() const override { return true; }
    double paint(QPainter& painter, double y, std::size_t row) const override
    {
        painter.setPen(INK);
        drawLines(painter, m_face, {m_text}, LEFT, y);
        return height(row);
    }

  private:
    const Face& m_face;
    bool m_isFirstLevel;
    QString m_text;
};

class ParagraphPieces : public Pieces
{
  public:
    ParagraphPieces(const Paragraph& paragraph, const Faces& faces)
        : m_style(paragraph.style), m_face(faceOf(paragraph.style, faces)),
          m_lines(m_face.lines(paragraph.text, BODY_WIDTH - indent(), MOST_LINES))
    {
    }
    std::size_t count() const override { return 1; }
    double above() const override { return m_style == Style::Command ? 60 : 180; }
    double height(std::size_t) const override { return m_lines.size() * m_face.lineHeight() + 120; }
    double paint(QPainter& painter, double y, std::size_t row) const override
    {
        if (m_style == Style::Warning) {
            painter.fillRect(QRectF(LEFT, y, WARNING_BAR, m_lines.size() * m_face.lineHeight()),
                             WARNING_COLOUR);
        }
        painter.setPen(m_style == Style::Remark ? PALE_INK : INK);
        drawLines(painter, m_face, m_lines, LEFT + indent(), y);
        return height(row);
    }

  private:
    static const Face& faceOf(Style style, const Faces& faces)
    {
        return style == Style::Remark ? faces.small : style == Style::Command ? faces.command : faces.body;
    }
    double indent() const { return m_style == Style::Warning || m_style == Style::Command ? INDENT : 0; }

    Style m_style;
    const Face& m_face;
    QStringList m_lines;
};

class TablePieces : public Pieces
{
  public:
    TablePieces(const Table& table, const Faces& faces) : m_table(table), m_painter(table, faces) {}
    std::size_t count() const override { return m_table.count; }
    double above() const override { return 150; }
    double headHeight() const override { return m_painter.headHeight(); }
    double height(std::size_t row) const override { return m_painter.rowHeight(m_table.row(row)); }
    void paintHead(QPainter& painter, double y) const override { m_painter.paintHead(painter, LEFT, y); }
    double paint(QPainter& painter, double y, std::size_t row) const override
    {
        return m_painter.paintRow(painter, LEFT, y, m_table.row(row));
    }
    void paintEnd(QPainter& painter, double y) const override { m_painter.paintEnd(painter, LEFT, y); }

  private:
    const Table& m_table;
    TablePainter m_painter;
};

/// The rows of the picture, and its legend as the last one.
class PicturePieces : public Pieces
{
  public:
    PicturePieces(const Assignment& picture, const Faces& faces)
        : m_rows(picture.rows.size()), m_painter(picture, faces)
    {
    }
    std::size_t count() const override { return m_rows + 1; }
    double above() const override { return 150; }
    bool staysTogether() const override { return true; }
    double headHeight() const override { return m_painter.headHeight(); }
    double height(std::size_t row) const override
    {
        return row == m_rows ? m_painter.legendHeight() : m_painter.rowHeight(row);
    }
    void paintHead(QPainter& painter, double y) const override
    {
        PainterCanvas canvas(painter);
        m_painter.paintHead(canvas, LEFT, y);
    }
    double paint(QPainter& painter, double y, std::size_t row) const override
    {
        PainterCanvas canvas(painter);
        if (row == m_rows) {
            m_painter.paintLegend(canvas, LEFT, y);
        } else {
            m_painter.paintRow(canvas, LEFT, y, row);
        }
        return height(row);
    }

  private:
    std::size_t m_rows;
    AssignmentPainter m_painter;
};

class ContentsPieces : public Pieces
{
  public:
    ContentsPieces(const Faces& faces, const std::vector<Mark>& marks) : m_faces(faces), m_marks(marks) {}
    std::size_t count() const override { return m_marks.size(); }
    double above() const override { return 500; }
    double headHeight() const override { return m_faces.heading2.lineHeight() + LINE_GAP; }
    double height(std::size_t) const override { return m_faces.body.lineHeight() + LINE_GAP; }
    void paintHead(QPainter& painter, double y) const override
    {
        painter.setPen(INK);
        drawLines(painter, m_faces.heading2, {Text::tr("Contents")}, LEFT, y);
    }
    double paint(QPainter& painter, double y, std::size_t row) const override
    {
        const Mark& mark = m_marks[row];
        const QString page = QString::number(mark.page + 1);
        const double left = LEFT + m_faces.body.width(mark.text) + CONTENTS_INDENT / 2;
        const double right = LEFT + BODY_WIDTH - m_faces.body.width(page) - CONTENTS_INDENT / 2;
        painter.setPen(QPen(PALE_RULE, 12));
        const double base = y + m_faces.body.ascent();
        painter.drawLine(QPointF(left, base), QPointF(right, base));
        painter.setPen(INK);
        drawLines(painter, m_faces.body, {mark.text}, LEFT, y);
        drawLinesToTheLeftOf(painter, m_faces.body, {page}, LEFT + BODY_WIDTH, y);
        return height(row);
    }

  private:
    const Faces& m_faces;
    const std::vector<Mark>& m_marks;
};

struct Maker
{
    const Faces& faces;
    const std::vector<Mark>& marks;

    std::unique_ptr<Pieces> operator()(const Heading& heading) const
    {
        return std::make_unique<HeadingPieces>(heading, faces);
    }
    std::unique_ptr<Pieces> operator()(const Paragraph& paragraph) const
    {
        return std::make_unique<ParagraphPieces>(paragraph, faces);
    }
    std::unique_ptr<Pieces> operator()(const Table& table) const
    {
        return std::make_unique<TablePieces>(table, faces);
    }
    std::unique_ptr<Pieces> operator()(const Assignment& picture) const
    {
        return std::make_unique<PicturePieces>(picture, faces);
    }
    std::unique_ptr<Pieces> operator()(const Contents&) const
    {
        return std::make_unique<ContentsPieces>(faces, marks);
    }
};

} // namespace

std::unique_ptr<Pieces> piecesOf(const Block& block, const Faces& faces, const std::vector<Mark>& marks)
{
    return std::visit(Maker{faces, marks}, block);
}

} // namespace mrl::report
