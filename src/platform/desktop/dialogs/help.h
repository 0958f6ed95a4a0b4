// The help viewer: a modeless window that shows an HTML file, whatever its file name extension.
#pragma once

#include <QDialog>
#include <QTextDocument>
#include <string>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vorn {

class help_page;

class help_window final : public QDialog {
public:
    explicit help_window(const QIcon&);
    // Opens a file at its top, marks the chapters about `screen`, and brings the window to the front. A
    // window that wasn't open is placed beside `opener` if there is room. The page reports a file that can't
    // be read.
    void open_file(const std::string& path, const std::string& screen, const QWidget* opener);

private:
    QPushButton* add_button(QHBoxLayout&, const QString& caption);
    void add_navigation(QHBoxLayout&);
    void add_search(QHBoxLayout&);
    void add_zoom_keys();
    void use_fusion();
    void place_beside(const QWidget& opener);
    // Selects the next or the previous match, wrapping around. Reports if there is no match.
    void search(QTextDocument::FindFlags);

    help_page* page_;
    QLineEdit* search_field_;
    QLabel* search_result_;
};

}   // namespace vorn
