// The help viewer: a modeless window that shows an HTML file, whatever its file name extension.
#pragma once

#include <QDialog>
#include <QTextDocument>
#include <string>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;

namespace vorn {

class help_window final : public QDialog {
public:
    explicit help_window(const QIcon&);
    // Opens a file at its top and brings the window to the front. A file that can't be read is reported on
    // the page.
    void open_file(const std::string& path);

private:
    QPushButton* add_button(QHBoxLayout&, const QString& caption);
    void add_navigation(QHBoxLayout&);
    void add_search(QHBoxLayout&);
    void add_zoom_keys();
    void use_fusion();
    void follow(const QUrl& link);
    // Selects the next match, wrapping around at the end of the page; reports when there is none.
    void search(QTextDocument::FindFlags);

    QTextBrowser* browser_;
    QLineEdit* search_field_;
    QLabel* search_result_;
};

}   // namespace vorn
