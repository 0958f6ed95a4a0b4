#include "platform/desktop/devices/printing.h"

#include <QBuffer>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRegularExpression>
#include <QStandardPaths>

#include "platform/desktop/desktop_machine.h"
#include "platform/files.h"

namespace vorn {

static QFont printed_font(const printed_line& l)
{
    QFont font(QString::fromStdString(l.face));
    font.setPointSizeF(l.size);
    font.setBold(l.bold);
    font.setUnderline(l.underline);
    return font;
}

std::string print_lines(QPagedPaintDevice& printer, const std::vector<printed_line>& lines)
{
    QPainter page;
    if (!page.begin(&printer)) return "The printer can't be used.";
    const double bottom = printer.pageLayout().paintRectPixels(printer.logicalDpiY()).height();
    double top = 0;
    for (const printed_line& l : lines) {
        const QFont font = printed_font(l);
        const QFontMetricsF metrics(font, &printer);
        if (top > 0 && top + metrics.height() > bottom) {
            if (!printer.newPage()) return "The printer has stopped.";
            top = 0;
        }
        page.setFont(font);
        page.drawText(QPointF(0, top + metrics.ascent()), QString::fromStdString(l.text));
        top += metrics.lineSpacing();
    }
    return page.end() ? std::string() : "The printer has stopped.";
}

static std::string pdf_bytes(const std::vector<printed_line>& lines)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&bytes);
        pdf.setResolution(300);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
        if (!print_lines(pdf, lines).empty()) return {};
    }
    return bytes.data().toStdString();
}

// The pages are made in memory, since write_file leaves an earlier report unchanged if it fails.
std::string print_to_pdf(const machine& m, const std::string& file, const std::vector<printed_line>& lines)
{
    const std::string bytes = pdf_bytes(lines);
    return bytes.empty() ? "The pages can't be drawn." : write_file(m, file, bytes);
}

// The file name of a report: name and date. Characters that some file systems don't allow are replaced.
static std::string dated_file_name(const std::string& name)
{
    QString proposed = QString::fromStdString(name) + ' ' + QDate::currentDate().toString(Qt::ISODate);
    return proposed.replace(QRegularExpression("[/\\\\:*?\"<>|[:cntrl:]]"), "_").trimmed().toStdString() +
           ".pdf";
}

// Without a printer the lines go to a PDF file that the user selects.
print_outcome desktop_machine::print(const std::vector<printed_line>& lines, const std::string& name)
{
    if (printer_present()) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setDocName("V.O.R.N. practice report");   // shown in the print queue
        return {.reason = print_lines(printer, lines)};
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString place = QFileInfo(documents).isDir() ? documents : QDir::homePath();
    const auto file = choose_file({.title = "THERE IS NO PRINTER: SAVE AS PDF",
                                   .filter = "PDF Files (*.pdf)|*.pdf|",
                                   .folder = place.toStdString(),
                                   .proposed = dated_file_name(name),
                                   .save = true,
                                   .suffix = "pdf"});
    if (!file) return {.cancelled = true};
    return {.reason = print_to_pdf(*this, *file, lines), .file = *file};
}

}   // namespace vorn
