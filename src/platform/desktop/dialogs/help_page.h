// The page of the help viewer: an HTML file, whatever its file name extension, with the pictures and moving
// pictures beside it.
#pragma once

#include <QPointer>
#include <QTextBrowser>
#include <optional>

class QMovie;
class QTextFragment;

namespace vorn {

class help_page final : public QTextBrowser {
public:
    explicit help_page(QWidget* parent);

    // The page marks what it names for this screen, by a comment such as <!--for simulator thermal-->.
    void set_screen(const QString& name) { screen_ = name; }
    void set_text_size(double points);
    void zoom(double points) { set_text_size(font().pointSizeF() + points); }
    // Follows a link within the file. A picture that is a link to a moving picture (a .gif) plays it while it
    // is in sight, or stops it.
    void follow(const QUrl&);

    static constexpr double normal_text = 10.5;   // points

protected:
    QVariant loadResource(int type, const QUrl&) override;
    void wheelEvent(QWheelEvent*) override;

private:
    QString path_of(const QUrl& name) const;
    void play(const QUrl& film);
    void show_frame();
    void stop_film();
    void replace_picture(const QTextFragment&, const QImage& by);
    // The picture that links to the film that plays.
    std::optional<QTextFragment> still() const;

    QString screen_;
    QPointer<QMovie> film_;   // the one that plays
    QUrl film_link_;
};

}   // namespace vorn
