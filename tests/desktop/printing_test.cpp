#include <QDir>
#include <QPdfWriter>

#include "fixture.h"
#include "platform/desktop/devices/printing.h"

namespace vorn::desktop_tests {

struct printing : desktop_test {
    qsizetype page_count(const std::vector<printed_line>& lines)
    {
        QPdfWriter printer(folder.filePath("report.pdf"));
        EXPECT_EQ(print_lines(printer, lines), "");
        QFile file(folder.filePath("report.pdf"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().count("/Type /Page\n");
    }

    const printed_line line{"ENGAGEMENT 1", "MS Sans Serif", 10, false, true};
};

TEST_F(printing, continues_on_the_next_page)
{
    printed_line large = line;
    large.size = 30;
    EXPECT_EQ(page_count({line}), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(40, line)), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(100, line)), 2);
    EXPECT_GE(page_count(std::vector<printed_line>(40, large)), 2);
    EXPECT_EQ(page_count({printed_line{"", "No Such Face", 800}, line}), 2) << "a line larger than the page";
}

TEST_F(printing, reports_a_printer_that_cannot_be_used)
{
    QPdfWriter printer(folder.filePath("no/such/folder/report.pdf"));
    EXPECT_NE(print_lines(printer, {line}), "");
    EXPECT_NE(print_to_pdf(pc, "/dev/full", {line}), "");
}

TEST_F(printing, without_a_printer_goes_to_a_file_or_is_cancelled)
{
    open(one);
    QString proposed;
    const auto print_to = [&](const QString& name) {
        when_box<QFileDialog>([&, name](QFileDialog& d) {
            proposed = d.selectedFiles().value(0);
            if (name.isEmpty()) return d.reject();
            d.selectFile(folder.filePath(name));
            static_cast<QDialog&>(d).accept();
        });
        return pc.print({line}, "SMITH: 1/2");
    };
    const print_outcome cancelled = print_to("");
    EXPECT_TRUE(cancelled.cancelled && cancelled.reason.empty());
    EXPECT_TRUE(QFileInfo(proposed).fileName().startsWith("SMITH_ 1_2 20")) << proposed.toStdString();
    EXPECT_FALSE(QFile::exists(proposed));
    const QString too_long = QString(247, 'r') + ".pdf";   // no room for the suffix of the temporary file
    EXPECT_EQ(print_to(too_long).reason, "The file can't be written.");
    const print_outcome printed = print_to("report");
    EXPECT_EQ(printed.reason, "");
    EXPECT_EQ(printed.file, folder.filePath("report.pdf").toStdString());
    EXPECT_TRUE(QFile::exists(folder.filePath("report.pdf")));
}

}   // namespace vorn::desktop_tests
