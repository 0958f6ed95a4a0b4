// The help viewer: one window beside the screens, on a file that holds HTML whatever its name says.
#pragma once

#include <QDialog>

class QPushButton;
class QTextBrowser;

namespace vorn {

class help_window final : public QDialog {
public:
    explicit help_window(const QIcon&);
    // Opens a file at its contents and brings the window to the front.
    void open_file(const std::string& path);

private:
    QPushButton* add_button(const QString& caption);
    void connect_buttons();
    void add_zoom_keys();

    QTextBrowser* text_;
};

}   // namespace vorn
