// The page of the help viewer. It shows an HTML file with any file name extension, with its pictures and
// films (moving pictures, .gif).
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

    // Sets the name of the current screen. The page shows a mark at each comment that contains this name,
    // such as <!--for simulator thermal-->.
    void set_screen(const QString& name) { screen_ = name; }
    void set_text_size(double points);
    void zoom(double points) { set_text_size(font().pointSizeF() + points); }
    // Follows a link within the file. A link to a film starts it in place of the still picture, or stops
    // it if it is playing. The film also stops when it is scrolled out of view.
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
    // The still picture with the link to the film that is playing.
    std::optional<QTextFragment> still() const;

    QString screen_;
    QPointer<QMovie> film_;   // null if no film is playing
    QUrl film_link_;
};

}   // namespace vorn
