#include <gtest/gtest.h>

#include <QFile>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/devices/printing.h"

namespace vorn {

struct printing : testing::Test {
    qsizetype page_count(const std::vector<printed_line>& lines)
    {
        QPdfWriter printer(folder.filePath("report.pdf"));
        EXPECT_EQ(print_lines(printer, lines), "");
        QFile file(folder.filePath("report.pdf"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().count("/Type /Page\n");
    }

    QTemporaryDir folder;
};

TEST_F(printing, continues_on_the_next_page)
{
    const printed_line small{"ENGAGEMENT 1", "MS Sans Serif", 10, false, true};
    printed_line large = small;
    large.size = 30;
    EXPECT_EQ(page_count({small}), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(40, small)), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(100, small)), 2);
    EXPECT_GE(page_count(std::vector<printed_line>(40, large)), 2);
    EXPECT_EQ(page_count({printed_line{"", "No Such Face", 800}, small}), 2) << "a line larger than the page";
}

TEST_F(printing, reports_a_printer_that_cannot_be_used)
{
    QPdfWriter printer(folder.filePath("no/such/folder/report.pdf"));
    EXPECT_NE(print_lines(printer, {{"ENGAGEMENT 1", "", 10, true, false}}), "");
    desktop_machine pc;
    EXPECT_NE(print_to_pdf(pc, "/dev/full", {{"ENGAGEMENT 1", "", 10, true, false}}), "");
}

}   // namespace vorn
