// Boxes, file dialogs, the manual and the printer.
#include "fixture.h"
#include "platform/desktop/devices/printing.h"

namespace vorn::desktop_tests {

struct boxes : desktop_test {
    boxes() { open(one); }
};

TEST_F(boxes, show_plain_text_and_return_true_only_for_yes)
{
    const auto ask = [&](std::function<void(QMessageBox&)> act, default_button b = default_button::yes) {
        when_box<QMessageBox>(std::move(act));
        return pc.message_box({"V. O. R. N.\n\r   \n\rARE <b>YOU</b> SURE ?", "SIMULATOR",
                               box_buttons::yes_no, box_sign::question, b});
    };
    EXPECT_FALSE(ask([](QMessageBox& b) {
        EXPECT_EQ(b.text(), "V. O. R. N.\n   \nARE <b>YOU</b> SURE ?") << "one line break for each pair";
        EXPECT_EQ(b.textFormat(), Qt::PlainText);
        EXPECT_EQ(b.windowTitle(), "SIMULATOR");
        EXPECT_EQ(b.icon(), QMessageBox::Question);
        b.reject();
    }));
    EXPECT_TRUE(ask([](QMessageBox& b) { b.button(QMessageBox::Yes)->click(); }));
    EXPECT_FALSE(ask([](QMessageBox& b) { b.button(QMessageBox::No)->click(); }));
    EXPECT_FALSE(ask([](QMessageBox& b) { QTest::keyClick(b.windowHandle(), Qt::Key_Escape); }));
    EXPECT_FALSE(ask([](QMessageBox& b) { b.close(); }));
    const auto enter = [](QMessageBox& b) { QTest::keyClick(b.windowHandle(), Qt::Key_Return); };
    EXPECT_TRUE(ask(enter, default_button::yes));
    EXPECT_FALSE(ask(enter, default_button::no));
}

TEST_F(boxes, an_input_box_proposes_a_text_and_returns_the_edited_one)
{
    when_box<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.textValue(), "NO NAME");
        box.setTextValue("Sennebrücke");
        QTest::keyClick(box.windowHandle(), Qt::Key_Return);
    });
    EXPECT_EQ(pc.input_box("NEW RANGE", "ENTER NAME", "NO NAME"), "Sennebrücke");
    answer(Qt::Key_Escape);
    EXPECT_EQ(pc.input_box("NEW RANGE", "ENTER NAME", "NO NAME"), std::nullopt);
}

TEST_F(boxes, columns_of_a_file_dialog_fit_the_names_and_can_be_dragged)
{
    write("a range with a name that is longer than the default width of a column.arf", "x");
    when_box<QFileDialog>([](QFileDialog& box) {
        auto* list = box.findChild<QTreeView*>();
        ASSERT_NE(list, nullptr);
        const auto fits = [&] { return list->columnWidth(0) > 300; };
        EXPECT_TRUE(QTest::qWaitFor(fits)) << list->columnWidth(0);
        const QHeaderView& header = *list->header();
        const QPoint edge(header.sectionSize(0) - 1, header.height() / 2);
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
        QTest::mouseMove(header.viewport(), edge - QPoint(100, 0));
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge - QPoint(100, 0));
        EXPECT_NEAR(header.sectionSize(0), edge.x() - 100, 5);
        box.reject();
    });
    pc.choose_file({"OPEN RANGE", "Range Files (*.arf)|*.arf|", folder.path().toStdString(), ""});
}

TEST_F(boxes, an_open_dialog_offers_all_files_and_for_pictures_all_formats)
{
    const auto offered = [&](bool save, bool picture) {
        QStringList filters;
        when_box<QFileDialog>([&](QFileDialog& box) {
            filters = box.nameFilters();
            EXPECT_EQ(box.selectedNameFilter(), "Range Files (*.arf)");
            box.reject();
        });
        file_dialog d{"OPEN", "Range Files (*.arf)|*.arf|", folder.path().toStdString(), "", save};
        d.picture = picture;
        pc.choose_file(d);
        return filters;
    };
    EXPECT_EQ(offered(true, false).size(), 1);
    EXPECT_EQ(offered(false, false), QStringList({"Range Files (*.arf)", "All Files (*)"}));
    const QStringList pictures = offered(false, true);
    ASSERT_EQ(pictures.size(), 3);
    EXPECT_TRUE(pictures[1].contains("*.jpg") && pictures[1].contains("*.ico"));
    EXPECT_EQ(pictures[2], "All Files (*)");
}

TEST_F(boxes, of_pictures_offer_no_twins)
{
    for (const char* name : {"valley.vrp", "valley@2x.vrp", "alone@2x.vrp"}) write(name, "x");
    const auto chosen = [&](const char* name) {
        when_box<QFileDialog>([&, name](QFileDialog& box) {
            const QAbstractItemModel& list = *box.findChild<QTreeView*>()->model();
            const auto offers = [&](const char* file) {
                const QModelIndex first = list.index(0, 0, box.findChild<QTreeView*>()->rootIndex());
                return !list.match(first, Qt::DisplayRole, file, 1, Qt::MatchExactly).isEmpty();
            };
            EXPECT_TRUE(QTest::qWaitFor([&] { return offers("valley.vrp") && offers("alone@2x.vrp"); }));
            EXPECT_FALSE(offers("valley@2x.vrp"));
            box.findChild<QLineEdit*>()->setText(name);
            static_cast<QDialog&>(box).accept();
        });
        file_dialog d{"OPEN PICTURE FOR RANGE", "(*.vrp)|*.vrp|", folder.path().toStdString()};
        d.picture = true;
        return pc.choose_file(d).value_or("");
    };
    EXPECT_EQ(chosen("valley@2x.vrp"), folder.filePath("valley.vrp").toStdString());
    EXPECT_EQ(chosen("alone@2x.vrp"), folder.filePath("alone@2x.vrp").toStdString());
}

struct help : boxes {
    void show(const QByteArray& html)
    {
        write("vorn.HLP", html);
        pc.run([&] { pc.show_help("VORN.hlp"); });
    }
    QTextBrowser* page() const
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && w->windowTitle().contains("Help")) return w->findChild<QTextBrowser*>();
        return nullptr;
    }
    void follow(const char* link) { emit page()->anchorClicked(page()->source().resolved(QUrl(link))); }
    QImage picture(const char* file) const
    {
        return page()->document()->resource(QTextDocument::ImageResource, QUrl(file)).value<QImage>();
    }
    QPushButton* button(const QString& caption) const
    {
        for (auto* b : page()->window()->findChildren<QPushButton*>())
            if (b->text() == caption) return b;
        return nullptr;
    }
};

TEST_F(help, is_modeless_and_follows_only_links_within_the_file)
{
    show("<h1 id='top'>Contents</h1><a href='#fire'>fire</a><h1 id='fire'>Fire control</h1>");
    ASSERT_NE(page(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(page()->toPlainText().contains("Fire control"));
    follow("#fire");
    EXPECT_EQ(page()->source().fragment(), "fire");
    follow("https://example.org/");
    EXPECT_EQ(page()->source().fragment(), "fire");
    page()->backward();
    EXPECT_EQ(page()->source().fragment(), "");
    follow("#fire");
    page()->window()->close();
    pc.run([&] { pc.show_help("vorn.HLP"); });
    EXPECT_FALSE(page()->isBackwardAvailable() || button("&Back")->isEnabled()) << "the history is cleared";
    follow("#fire");
    EXPECT_TRUE(button("&Back")->isEnabled());
    button("&Contents")->click();
    EXPECT_EQ(page()->source().fragment(), "");
}

TEST_F(help, zooms_by_keys_and_wheel_within_limits)
{
    show("<h1>Contents</h1><p>laze, then lay, then fire</p>");
    ASSERT_TRUE(QTest::qWaitForWindowActive(page()->window()));
    const auto height = [&] { return page()->document()->size().height(); };
    const auto ctrl = [&](Qt::Key k) {
        QTest::keyClick(page()->window()->windowHandle(), k, Qt::ControlModifier);
    };
    const auto wheel = [&](int notches) {
        turn_wheel(*page()->viewport(), {50, 50}, notches, Qt::ControlModifier);
    };
    const double normal = height();
    ctrl(Qt::Key_Plus);
    const double larger = height();
    EXPECT_GT(larger, normal);
    ctrl(Qt::Key_Equal);
    EXPECT_GT(height(), larger);
    ctrl(Qt::Key_0);
    EXPECT_EQ(height(), normal);
    ctrl(Qt::Key_Minus);
    EXPECT_LT(height(), normal);
    wheel(2);
    EXPECT_EQ(height(), larger);
    for (int i = 0; i < 50; ++i) wheel(-1);
    EXPECT_GE(page()->document()->defaultFont().pointSizeF(), 6);
    for (int i = 0; i < 100; ++i) wheel(1);
    EXPECT_LE(page()->document()->defaultFont().pointSizeF(), 40);
}

TEST_F(help, shows_pictures_relative_to_the_file)
{
    for (const QString place : {"here", "moved"}) {
        write(place + "/ranges/help/dot.png", encoded(plain_image(3, 3), "PNG"));
        write(place + "/ranges/vorn.HLP", "<p>a <img src='help/dot.png'></p>");
        pc.run([&] { pc.show_help(place.toStdString() + "/ranges/vorn.HLP"); });
        EXPECT_EQ(picture("help/dot.png").size(), QSize(3, 3)) << place.toStdString();
    }
}

TEST_F(help, fits_pictures_beside_each_other_and_printed_lines_into_a_narrow_page)
{
    write("help/wide.png", encoded(plain_image(320, 20), "PNG"));
    show(
        "<table border='0' cellpadding='6'><tr><td><img src='help/wide.png'></td>"
        "<td><img src='help/wide.png'></td></tr></table>"
        "<pre>AVERAGE TIME..............................26.6666666666667</pre>");
    page()->window()->resize(page()->window()->minimumSize());
    EXPECT_EQ(page()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(help, marks_the_chapters_of_the_screen_it_was_opened_from)
{
    one.f.name = "simulator";
    show("<p>Sight<!--for simulator thermal--></p><p>Debrief<!--for results--></p>");
    EXPECT_TRUE(page()->document()->findBlockByNumber(0).text().endsWith("this\u00a0screen"));
    EXPECT_EQ(page()->document()->findBlockByNumber(1).text(), "Debrief");
    page()->window()->close();
    pc.open_manual = [&] { pc.show_help("vorn.HLP"); };
    QTest::keyClick(window(one).windowHandle(), Qt::Key_F1);
    ASSERT_NE(page(), nullptr) << "F1 opens the manual too";
}

TEST_F(help, opens_beside_the_screen_where_there_is_room)
{
    const QRect all = window(one).screen()->availableGeometry();
    window(one).move(all.left() + 300 - window(one).width(), all.top());   // 300 pixels stay visible
    show("<p>laze</p>");
    const QRect beside = page()->window()->frameGeometry();
    EXPECT_FALSE(beside.intersects(window(one).frameGeometry()));
    EXPECT_TRUE(all.contains(beside));
    page()->window()->close();
    window(one).setGeometry(all);
    show("<p>laze</p>");
    EXPECT_TRUE(page()->isVisible()) << "without room the window overlaps the screen";
    EXPECT_TRUE(all.contains(page()->window()->frameGeometry()));
    EXPECT_EQ(page()->window()->frameGeometry().left(), all.left()) << "the sights are on the right";
}

TEST_F(help, plays_a_moving_picture_when_it_is_clicked)
{
    write("help/still.png", encoded(plain_image(3, 3, Qt::green), "PNG"));
    // A red and a blue frame in an endless loop.
    write("help/film.gif",
          QByteArray::fromBase64("R0lGODlhAwADAPAAAP8AAAAAACH5BAAFAAAAIf8LTkVUU0NBUEUyLjADAQAAACwAAAAA"
                                 "AwADAAACA4R/BQAh+QQABQAAACwAAAAAAwADAIAAAP8AAAACA4R/BQA7"));
    show("<p><a href='help/film.gif'><img src='help/still.png'></a></p>");
    const auto shown = [&] { return picture("help/still.png").pixelColor(1, 1); };
    EXPECT_EQ(shown(), Qt::green);
    follow("help/film.gif");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == Qt::blue; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == Qt::red; }));
    follow("help/film.gif");
    EXPECT_EQ(shown(), Qt::green) << "a second click stops the moving picture";
    follow("help/absent.gif");
    EXPECT_EQ(shown(), Qt::green);
}

TEST_F(help, wraps_a_search_around)
{
    show("<p>laze, then lay, then fire</p>");
    auto* sought = page()->window()->findChild<QLineEdit*>();
    ASSERT_NE(sought, nullptr);
    sought->setText("then");
    std::vector<int> found;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(sought, Qt::Key_Return);
        found.push_back(page()->textCursor().selectionStart());
    }
    EXPECT_EQ(found, (std::vector<int>{6, 16, 6}));
    sought->setText("nowhere");
    QTest::keyClick(sought, Qt::Key_Return);
    EXPECT_EQ(page()->textCursor().selectionStart(), 6);
    EXPECT_TRUE(page()->window()->isVisible()) << "Enter only searches";
}

// The style of Windows would draw light controls with the light text of the palette.
TEST_F(help, draws_its_controls_itself_whatever_the_style_of_the_platform)
{
    const QString before = QApplication::style()->name();
    QApplication::setStyle("Windows");
    show("<p>page</p>");
    for (const QWidget* w : page()->window()->findChildren<QWidget*>())
        EXPECT_EQ(w->style()->name(), "fusion") << w->metaObject()->className();
    QApplication::setStyle(before);
}

TEST_F(help, reports_a_missing_file)
{
    pc.run([&] { pc.show_help("absent.HLP"); });
    ASSERT_NE(page(), nullptr);
    EXPECT_TRUE(page()->toPlainText().contains("absent.HLP"));
    write("absent.HLP", "<p>here now</p>");
    pc.run([&] { pc.show_help("absent.HLP"); });
    EXPECT_EQ(page()->toPlainText(), "here now");
}

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
    EXPECT_EQ(page_count({line}), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(40, line)), 1);
    EXPECT_EQ(page_count(std::vector<printed_line>(100, line)), 2);
    EXPECT_GE(page_count(std::vector<printed_line>(40, {"ENGAGEMENT 1", "MS Sans Serif", 30})), 2);
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
    when_box<QFileDialog>([&](QFileDialog& d) {
        proposed = d.selectedFiles().value(0);
        d.reject();
    });
    const print_outcome cancelled = pc.print({line}, "SMITH: 1/2");
    EXPECT_TRUE(cancelled.cancelled && cancelled.reason.empty());
    EXPECT_TRUE(QFileInfo(proposed).fileName().startsWith("SMITH_ 1_2 20")) << proposed.toStdString();
    EXPECT_FALSE(QFile::exists(proposed));
    choose(folder.filePath(QString(247, 'r') + ".pdf"));   // no room for the suffix of the temporary file
    EXPECT_EQ(pc.print({line}, "SMITH").reason, "The file can't be written.");
    choose(folder.filePath("report"));
    const print_outcome printed = pc.print({line}, "SMITH");
    EXPECT_EQ(printed.reason, "");
    EXPECT_EQ(printed.file, folder.filePath("report.pdf").toStdString());
    EXPECT_TRUE(QFile::exists(folder.filePath("report.pdf")));
}

}   // namespace vorn::desktop_tests
