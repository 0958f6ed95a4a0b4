// The help viewer: one window beside the screens, on a file that holds HTML whatever its name says.
#pragma once

#include <QDialog>
#include <QTextDocument>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;

namespace vorn {

class help_window final : public QDialog {
public:
    explicit help_window(const QIcon&);
    // Opens a file at its contents and brings the window to the front.
    void open_file(const std::string& path);

private:
    QPushButton* add_button(QHBoxLayout&, const QString& caption);
    void add_roads(QHBoxLayout&);
    void add_search(QHBoxLayout&);
    void add_zoom_keys();
    void follow(const QUrl& link);
    // Goes on to the next place of the words sought, round the end of the page; says when there is none.
    void search(QTextDocument::FindFlags);

    QTextBrowser* text_;
    QLineEdit* sought_;
    QLabel* outcome_;
};

}   // namespace vorn
