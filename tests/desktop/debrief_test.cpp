// The debrief on the real widgets: a record from a file, its marks at their places.
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "debrief/results.h"
#include "debrief/resultsfile.h"
#include "fixture.h"
#include "flow/intro.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn::desktop_tests {

// A practice of six: a target killed with the second round, one with a round far to the side, one missed, and
// so on.
practice_state record()
{
    practice_state r;
    r.studentdetails = "SMITH_123";
    r.targetcount = 6;
    r.resultrange = "THORNMERE DOWN";
    r.resultpicture = "visualrange.vrp";
    r.resultmode = "THERMAL";
    r.resulticon1 = "/target icons/target1.ico";
    r.resulticon2 = "/target icons/target2.ico";
    r.resulticon3 = "/target icons/target3.ico";
    static constexpr const char* ammo[] = {"FIN", "HESH", "COAX"};
    for (int e = 1; e <= 6; ++e) {
        r.recsystem[e] = e == 4 ? "LAZE ONLY" : "FULL";
        r.rectarget[e] = e;
        r.recammo[e] = ammo[(e - 1) % 3];
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

class debrief : public desktop_test {
protected:
    debrief()
    {
        pc.default_directory = VORN_SOURCE_DIR "/data";
        when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        click(t.startsim.Cmddebrief);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w()));
    }
    form_window& w() { return *pc.window(s.window); }
    void open_record()
    {
        const std::string file = folder.filePath("smith.vrn").toStdString();
        ASSERT_EQ(write_results(pc, file, record()), "");
        when_box<QFileDialog>([file](QFileDialog& d) {
            d.selectFile(QString::fromStdString(file));
            static_cast<QDialog&>(d).accept();
        });
        click(s.Cmdopen);
        ASSERT_EQ(s.selectedengagement, 1);
    }
    QPoint middle(const screen_object& o) { return w().widget(o)->geometry().center(); }

    trainer t{pc};
    results_screen& s = t.results;
    QTemporaryDir folder;
};

TEST_F(debrief, shows_each_mark_at_its_place_and_a_far_one_at_the_edge)
{
    open_record();
    for (const double scale : {1.0, 2.0}) {
        w().resize(static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
        settle();
        click(s.Lbltgtnumber[1]);
        const auto pixels = [&](double twips) { return twips / twips_per_pixel * scale; };
        const QPoint target = middle(s.Imgreptarget);
        // 4 twips of the picture to one of the sight; the record's offsets run to the target.
        EXPECT_NEAR(middle(s.Imagepoa).x() - target.x(), pixels(60 * 4), 1.5);
        EXPECT_NEAR(middle(s.Imagepoa).y() - target.y(), pixels(70 * 4), 1.5);
        EXPECT_NEAR(middle(s.Imgfos).x() - target.x(), pixels(120 * 4), 1.5);
        EXPECT_NEAR(middle(s.Imgfos).y() - target.y(), pixels(80 * 4), 1.5);
        EXPECT_NEAR(middle(s.Imglaze).x() - target.x(), pixels(-20 * 4), 1.5);
        EXPECT_TRUE(w().widget(s.cmdround2)->isVisible());
        click(s.Lbltgtnumber[2]);
        EXPECT_LT(s.Imgfos.Left, -30000);
        EXPECT_TRUE(w().widget(s.Frame1)->rect().contains(w().widget(s.Imgfos)->geometry()));
    }
    click(s.Lbltgtnumber[3]);
    EXPECT_EQ(s.Lbltarget.Caption, "NO");
    EXPECT_EQ(widget<QLineEdit>(s.Txtstudent).text().trimmed(), "SMITH_123");
    EXPECT_TRUE(widget<QLineEdit>(s.Txtstudent).isReadOnly());
}

TEST_F(debrief, without_a_printer_the_report_goes_to_a_file_or_nowhere)
{
    open_record();
    QString offered;
    // Yes to each box, and a name for the file or none; gives what was told after the question.
    const auto print_to = [&](const QString& name) {
        QStringList told;
        QTimer hands;
        QObject::connect(&hands, &QTimer::timeout, &hands, [&] {
            QWidget* up = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(up)) {
                told << box->text();
                box->buttons().first()->click();
            }
            auto* file = qobject_cast<QFileDialog*>(up);
            if (file != nullptr) offered = file->directory().filePath("report.pdf");
            if (file != nullptr && name.isEmpty()) file->reject();
            if (file != nullptr && !name.isEmpty()) {
                file->selectFile(folder.filePath(name));
                static_cast<QDialog*>(file)->accept();
            }
        });
        hands.start(2);
        click(s.Cmdprint);
        return told.mid(1);
    };
    EXPECT_EQ(print_to(""), QStringList());
    EXPECT_FALSE(offered.isEmpty() || QFile::exists(offered)) << offered.toStdString();
    const QString too_long = QString(247, 'r') + ".pdf";   // with the ending of its part
    EXPECT_EQ(print_to(too_long), QStringList("THE RECORD COULD NOT BE PRINTED\nThe file can't be written."));
}

}   // namespace vorn::desktop_tests
