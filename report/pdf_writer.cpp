#include "report/pdf_writer.h"

#include <QIODevice>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace mrl::report {

namespace {

constexpr auto CREATION = "/CreationDate (D:";
constexpr int DATE_DIGITS = 14; // "20261122000000"
constexpr qint64 LONGEST_HEAD = 1 << 16;

/// Hands a PDF on to a sink. Qt states the moment of the writing in the document's head; the day of the report takes its
/// place there.
class SinkDevice : public QIODevice
{
  public:
    SinkDevice(const exchange::Sink& sink, const QDate& day)
        : m_sink(sink), m_day(day.toString(QStringLiteral("yyyyMMdd")).toLatin1() + "000000")
    {
        open(WriteOnly | Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool isFine() const { return m_isFine; }
    /// What is left of a document without such a statement.
    void finish() { pass(m_head); }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        const QByteArray piece = QByteArray::fromRawData(data, static_cast<int>(size));
        if (m_isHeadWritten) {
            pass(piece);
        } else {
            m_head += piece;
            lookForDate();
        }
        return m_isFine ? size : -1;
    }

  private:
    void lookForDate()
    {
        const int found = m_head.indexOf(CREATION);
        const int digits = found + static_cast<int>(qstrlen(CREATION));
        const bool isWhole = found >= 0 && m_head.size() >= digits + DATE_DIGITS;
        if (isWhole) {
            m_head.replace(digits, DATE_DIGITS, m_day);
        }
        if (isWhole || m_head.size() > LONGEST_HEAD) {
            m_isHeadWritten = true;
            pass(m_head);
            m_head.clear();
        }
    }
    void pass(const QByteArray& bytes)
    {
        m_isFine = m_isFine && m_sink({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }

    const exchange::Sink& m_sink;
    QByteArray m_day;
    QByteArray m_head;
    bool m_isHeadWritten = false;
    bool m_isFine = true;
};

} // namespace

std::optional<exchange::FormatError> writePdf(const Report& report, const PageLayout& pages,
                                              const exchange::Sink& sink)
{
    SinkDevice device(sink, report.day);
    {
        QPdfWriter writer(&device);
        writer.setResolution(UNITS_PER_INCH);
        writer.setPageLayout(
            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        writer.setTitle(report.project + QStringLiteral(": ") + report.title);
        writer.setCreator(QStringLiteral("mrl-report"));
        QPainter painter(&writer);
        for (int page = 0; page < pages.pageCount() && device.isFine(); ++page) {
            if (page > 0) {
                writer.newPage();
            }
            pages.paint(painter, page);
        }
    }
    device.finish();
    return device.isFine() ? std::nullopt : std::optional(exchange::FormatError{"the file can't be written"});
}

} // namespace mrl::report
