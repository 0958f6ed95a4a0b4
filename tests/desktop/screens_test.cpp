// Set-up, range author and debrief on real widgets: keyboard, bad files, marks, printing, and texts at every
// size.
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>

#include "debrief/results.h"
#include "debrief/resultsfile.h"
#include "trainer_fixture.h"

namespace vorn::desktop_tests {

struct setup_keyboard : trainer_test {};

TEST_F(setup_keyboard, follows_the_order_of_the_work)
{
    const startsim_screen& s = t.startsim;
    open_setup();
    widget(s.Txtname).setFocus();
    const std::vector<QWidget*> order = tab_order(*pc.window(s.window));
    const auto position = [&](const screen_object& o) {
        return std::find(order.begin(), order.end(), &widget(o)) - order.begin();
    };
    EXPECT_LT(position(s.Opttime3), position(s.Optmode1)) << "the upper row of options comes first";
    EXPECT_LT(position(s.Optsys1), position(s.Cmdopenrange)) << "options come before the range";
    EXPECT_LT(position(s.Cmdopenrange), position(s.Cmdstart));
    const auto press_on = [&](const screen_object& o, Qt::Key k) {
        widget(o).setFocus();
        QTest::keyClick(pc.window(s.window)->windowHandle(), k);
    };
    press_on(s.Optsys1, Qt::Key_Down);
    EXPECT_EQ(t.shared.systemstatus, 2);
    press_on(s.HSccoax, Qt::Key_PageUp);
    EXPECT_EQ(t.shared.coaxerror, 210);
    press_on(s.Lblpractice[3], Qt::Key_Space);
    EXPECT_EQ(t.shared.practicenumber, 3);
}

struct author : trainer_test {
    author()
    {
        open_setup();
        answer_yes();
        click(t.startsim.cmdeditrange);
        EXPECT_TRUE(QTest::qWaitForWindowActive(pc.window(s.window)));
    }
    void hold_space(const screen_object& o)
    {
        widget(o).setFocus();
        QTest::keyPress(pc.window(s.window)->windowHandle(), Qt::Key_Space);
    }
    void release_space() { QTest::keyRelease(pc.window(s.window)->windowHandle(), Qt::Key_Space); }

    rauthor_screen& s = t.rauthor;
};

TEST_F(author, moves_the_view_only_while_space_is_held)
{
    hold_space(s.cmdright);
    QTest::qWait(60);
    EXPECT_TRUE(s.Timex1.Enabled);
    release_space();
    EXPECT_FALSE(s.Timex1.Enabled);
    EXPECT_LT(s.Imagerange.Left, -21780);
    hold_space(s.cmdright);
    widget(s.Textname).setFocus();
    EXPECT_FALSE(s.Timex1.Enabled) << "the button has lost the focus";
    release_space();

    hold_space(s.cmdright);
    QTest::mousePress(&widget(s.cmdup), Qt::LeftButton);
    EXPECT_FALSE(s.Timex1.Enabled) << "a button held by the mouse replaces the one held by Space";
    EXPECT_TRUE(s.Timey.Enabled);
    release_space();
    EXPECT_TRUE(s.Timey.Enabled);
    QTest::mouseRelease(&widget(s.cmdup), Qt::LeftButton);
    EXPECT_FALSE(s.Timey.Enabled);
}

TEST_F(author, shows_no_picture_that_is_unusable)
{
    const QString file = folder.filePath("own.vrp");
    const auto write = [&](const QByteArray& bytes) {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    QFile shipped(VORN_SOURCE_DIR "/data/ranges/visualrange.vrp");
    ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
    const QByteArray jpeg = shipped.readAll();
    QByteArray huge = jpeg.left(4000);
    const auto header = huge.indexOf("\xff\xc0");   // then its length, the depth, height and width
    ASSERT_GT(header, 0);
    huge.replace(header + 5, 4, "\xea\x60\xea\x60");   // 60000 x 60000
    for (const QByteArray& bytes : {QByteArray(), QByteArray("GIF89a"), huge, jpeg.left(300)}) {
        write(bytes);
        new_range("WET MOOR", file);
        EXPECT_FALSE(s.Imagerange.Visible) << bytes.size();
    }
    write(jpeg);
    new_range("WET MOOR", file);
    EXPECT_TRUE(s.Imagerange.Visible);
}

static void expect_no_text_cut(form_window& window)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        window.resize(static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
        QTest::qWait(1);
        for (const auto* label : window.findChildren<QLabel*>()) {
            if (!label->isVisible()) continue;
            const QRect needed =
                label->fontMetrics().boundingRect(label->rect(), Qt::TextWordWrap, label->text());
            EXPECT_TRUE(needed.height() <= label->height() + 1 && needed.width() <= label->width() + 1)
                << label->text().toStdString() << " at " << scale;
        }
        for (const auto* b : window.findChildren<QRadioButton*>())
            EXPECT_LE(b->sizeHint().width(), b->width() + 1) << b->text().toStdString() << ' ' << scale;
    }
}

TEST_F(author, and_set_up_cut_no_text_at_any_size)
{
    expect_no_text_cut(*pc.window(s.window));
    expect_no_text_cut(*pc.window(t.startsim.window));
}

// Three targets: killed with the second round, killed with one round far to the side, missed.
static practice_state example_record()
{
    practice_state r;
    r.studentdetails = "SMITH_123";
    r.targetcount = 3;
    r.resultrange = "THORNMERE DOWN";
    r.resultpicture = "visualrange.vrp";
    r.resultmode = "THERMAL";
    r.resulticon1 = r.resulticon2 = r.resulticon3 = "/target icons/target1.ico";
    for (int e = 1; e <= r.targetcount; ++e) {
        r.recsystem[e] = "FULL";
        r.rectarget[e] = e;
        r.recammo[e] = "FIN";
        r.rechit[e] = e == 3 ? "NO" : "YES";
        r.rectime[e] = e == 3 ? 100 : 10 + e;
        r.recwidth[e] = 385;
        r.recrange[e] = 1100;
        r.recx[e] = 9000 * e;
        r.recy[e] = 15000;
        r.recrounds[e] = 2;
        r.reclazex[e] = 20;
        r.reclazey[e] = -15;
        r.recaimx[e] = {0, -60, 30};
        r.recaimy[e] = {0, 70, 20};
        r.recfallx[e] = {0, e == 2 ? 9000 : -120, -40};
        r.recfally[e] = {0, -80, -30};
    }
    return r;
}

struct debrief : trainer_test {
    debrief()
    {
        open_setup();
        answer_yes();
        click(t.startsim.Cmddebrief);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w()));
        EXPECT_EQ(write_results(pc, folder.filePath("smith.vrn").toStdString(), example_record()), "");
        choose(folder.filePath("smith.vrn"));
        click(s.Cmdopen);
        EXPECT_EQ(s.selectedengagement, 1);
    }
    form_window& w() { return *pc.window(s.window); }

    results_screen& s = t.results;
};

TEST_F(debrief, shows_each_mark_at_its_place_and_a_far_one_at_the_edge)
{
    for (const double scale : {1.0, 2.0}) {
        w().resize(static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
        settle();
        click(s.Lbltgtnumber[1]);
        // Offsets from the target in twips of the sight; the debrief shows them four times as large.
        const auto expect_at = [&](const screen_object& mark, int x, int y) {
            const QPoint offset =
                widget(mark).geometry().center() - widget(s.Imgreptarget).geometry().center();
            EXPECT_NEAR(offset.x(), x * 4 / twips_per_pixel * scale, 1.5);
            EXPECT_NEAR(offset.y(), y * 4 / twips_per_pixel * scale, 1.5);
        };
        expect_at(s.Imagepoa, 60, 70);
        expect_at(s.Imgfos, 120, 80);
        expect_at(s.Imglaze, -20, -15);
        EXPECT_TRUE(widget(s.cmdround2).isVisible());
        click(s.Lbltgtnumber[2]);
        EXPECT_LT(s.Imgfos.Left, -30000);
        EXPECT_TRUE(widget(s.Frame1).rect().contains(widget(s.Imgfos).geometry()));
    }
    click(s.Lbltgtnumber[3]);
    EXPECT_EQ(s.Lbltarget.Caption, "NO");
    EXPECT_EQ(widget<QLineEdit>(s.Txtstudent).text().trimmed(), "SMITH_123");
    EXPECT_TRUE(widget<QLineEdit>(s.Txtstudent).isReadOnly());
    expect_no_text_cut(w());
}

TEST_F(debrief, without_a_printer_saves_the_report_as_a_file_or_not_at_all)
{
    QString offered, proposed;
    // Answers yes to each box and gives the file dialog a name, or cancels it. Returns the texts of the boxes
    // after the first question.
    const auto print_to = [&](const QString& name) {
        QStringList texts;
        QTimer answers;
        QObject::connect(&answers, &QTimer::timeout, &answers, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                texts << box->text();
                box->buttons().first()->click();
            }
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            if (dialog == nullptr) return;
            proposed = QFileInfo(dialog->selectedFiles().value(0)).fileName();
            offered = dialog->directory().filePath(proposed);
            if (name.isEmpty()) return dialog->reject();
            dialog->selectFile(folder.filePath(name));
            static_cast<QDialog*>(dialog)->accept();
        });
        answers.start(2);
        click(s.Cmdprint);
        return texts.mid(1);
    };
    EXPECT_EQ(print_to(""), QStringList());
    EXPECT_FALSE(offered.isEmpty() || QFile::exists(offered)) << offered.toStdString();
    const QRegularExpression named("^SMITH_123 \\d{4}-\\d\\d-\\d\\d\\.pdf$");
    EXPECT_TRUE(named.match(proposed).hasMatch()) << proposed.toStdString();
    EXPECT_EQ(s.outcome.Caption, "");
    const QString too_long = QString(247, 'r') + ".pdf";   // no room for the ending of the temporary file
    EXPECT_EQ(print_to(too_long), QStringList("THE RECORD COULD NOT BE PRINTED\nThe file can't be written."));
    EXPECT_EQ(print_to("own.pdf"), QStringList());
    EXPECT_EQ(s.outcome.Caption, folder.filePath("own.pdf").toStdString() + " is saved");
}

}   // namespace vorn::desktop_tests
