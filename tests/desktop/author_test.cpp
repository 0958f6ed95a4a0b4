// The range author on the real widgets: a range made by mouse, keyboard and dialogs.
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

#include "fixture.h"
#include "flow/intro.h"
#include "ranges/rangefile.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn::desktop_tests {

class author : public desktop_test {
protected:
    author()
    {
        pc.default_directory = VORN_SOURCE_DIR "/data";
        when_box<QMessageBox>([](QMessageBox& box) { box.accept(); });
        pc.run([this] { start_program(t); });
        click(t.intro.lblstart);
        answer_yes();
        click(t.startsim.cmdeditrange);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&w()));
    }
    form_window& w() { return *pc.window(s.window); }
    void answer_yes()
    {
        when_box<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    }
    void choose(const std::string& file)
    {
        when_box<QFileDialog>([file](QFileDialog& d) {
            d.selectFile(QString::fromStdString(file));
            static_cast<QDialog&>(d).accept();
        });
    }
    void new_range(const std::string& picture)
    {
        when_box<QInputDialog>([this, picture](QInputDialog& box) {
            box.setTextValue("WET MOOR");
            when_box<QMessageBox>([this, picture](QMessageBox& question) {
                choose(picture);
                question.button(QMessageBox::No)->click();
            });
            box.accept();
        });
        click(s.cmdnew);
    }

    trainer t{pc};
    rauthor_screen& s = t.rauthor;
    QTemporaryDir folder;
};

TEST_F(author, moves_while_the_space_bar_is_held_and_no_longer)
{
    w().widget(s.cmdright)->setFocus();
    QTest::keyPress(w().windowHandle(), Qt::Key_Space);
    QTest::qWait(60);
    EXPECT_TRUE(s.Timex1.Enabled);
    QTest::keyRelease(w().windowHandle(), Qt::Key_Space);
    EXPECT_FALSE(s.Timex1.Enabled);
    EXPECT_LT(s.Imagerange.Left, -21780);
    QTest::keyPress(w().windowHandle(), Qt::Key_Space);
    w().widget(s.Textname)->setFocus();
    EXPECT_FALSE(s.Timex1.Enabled) << "the button has lost the keyboard";
    QTest::keyRelease(w().windowHandle(), Qt::Key_Space);

    w().widget(s.cmdright)->setFocus();
    QTest::keyPress(w().windowHandle(), Qt::Key_Space);
    QTest::mousePress(w().widget(s.cmdup), Qt::LeftButton);
    EXPECT_FALSE(s.Timex1.Enabled) << "one hand lets go for the other";
    EXPECT_TRUE(s.Timey.Enabled);
    QTest::keyRelease(w().windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(s.Timey.Enabled);
    QTest::mouseRelease(w().widget(s.cmdup), Qt::LeftButton);
    EXPECT_FALSE(s.Timey.Enabled);
}

// One after another, broken, tiny and far too large ones: the screen answers and goes on.
TEST_F(author, pictures_that_are_no_use_leave_the_window_bare)
{
    const QString file = folder.filePath("own.vrp");
    const auto put = [&](const QByteArray& bytes) {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    QFile whole(VORN_SOURCE_DIR "/data/ranges/visualrange.vrp");
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray jpeg = whole.readAll();
    QByteArray huge = jpeg.left(4000);            // its head says 60000 x 60000
    const auto head = huge.indexOf("\xff\xc0");   // its length, its depth, and then the size
    ASSERT_GT(head, 0);
    huge.replace(head + 5, 4, "\xea\x60\xea\x60");
    for (const QByteArray& bytes : {QByteArray(), QByteArray("GIF89a"), huge, jpeg.left(300)}) {
        put(bytes);
        new_range(file.toStdString());
        EXPECT_FALSE(s.Imagerange.Visible) << bytes.size();
    }
    put(jpeg);
    new_range(file.toStdString());
    EXPECT_TRUE(s.Imagerange.Visible);
}

// Nor on the set-up, over which the author stands.
TEST_F(author, no_text_is_cut_at_any_size)
{
    for (form_window* window : {&w(), pc.window(t.startsim.window)})
        for (const double scale : {1.0, 1.5, 2.0}) {
            window->resize(static_cast<int>(1024 * scale), static_cast<int>(768 * scale));
            settle();
            for (const auto* label : window->findChildren<QLabel*>()) {
                if (!label->isVisible()) continue;
                const QRect needed =
                    label->fontMetrics().boundingRect(label->rect(), Qt::TextWordWrap, label->text());
                EXPECT_TRUE(needed.height() <= label->height() + 1 && needed.width() <= label->width() + 1)
                    << label->text().toStdString() << " at " << scale;
            }
            for (const auto* b : window->findChildren<QRadioButton*>())
                EXPECT_LE(b->sizeHint().width(), b->width() + 1) << b->text().toStdString() << ' ' << scale;
        }
}

}   // namespace vorn::desktop_tests
