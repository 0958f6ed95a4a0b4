#include "platform/desktop/dialogs/help.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/desktop/dialogs/help_page.h"
#include "platform/desktop/drawing/look.h"

namespace vorn {

constexpr QSize usual_size(860, 700), smallest_size(440, 320);

help_window::help_window(const QIcon& icon)
    : page_(new help_page(this)), search_field_(new QLineEdit(this)), search_result_(new QLabel(this))
{
    setWindowTitle("V.O.R.N. Help");
    setWindowIcon(icon);
    setWindowFlags(Qt::Window);
    setPalette(form_palette());
    setFont(text_font(text_size::normal, false, 1.1));
    resize(usual_size.boundedTo(screen()->availableSize()));
    setMinimumSize(smallest_size);
    auto* column = new QVBoxLayout(this);
    auto *search_row = new QHBoxLayout, *row = new QHBoxLayout;   // two rows need less width
    column->addWidget(page_);
    column->addLayout(search_row);
    column->addLayout(row);
    add_search(*search_row);
    add_navigation(*row);
    row->addStretch();
    connect(add_button(*row, "Close"), &QPushButton::clicked, this, &QDialog::close);
    add_zoom_keys();
    use_fusion();
}

// Another style might ignore the palette and draw light controls, with light text on them.
void help_window::use_fusion()
{
    QStyle* fusion = QStyleFactory::create("Fusion");
    fusion->setParent(QCoreApplication::instance());   // must outlive the controls
    for (QWidget* w : findChildren<QWidget*>()) w->setStyle(fusion);
}

QPushButton* help_window::add_button(QHBoxLayout& row, const QString& caption)
{
    auto* b = new QPushButton(caption, this);
    b->setAutoDefault(false);
    row.addWidget(b);
    return b;
}

// QTextBrowser itself handles Alt+Left and Alt+Right.
void help_window::add_navigation(QHBoxLayout& row)
{
    connect(add_button(row, "&Contents"), &QPushButton::clicked, page_, &QTextBrowser::home);
    QPushButton* back = add_button(row, "&Back");
    QPushButton* forward = add_button(row, "&Forward");
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, page_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, page_, &QTextBrowser::forward);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
}

void help_window::add_search(QHBoxLayout& row)
{
    search_field_->setPlaceholderText("Find in the manual");
    search_field_->setAccessibleName("Find in the manual");
    search_field_->setClearButtonEnabled(true);
    row.addWidget(search_field_);
    row.addWidget(search_result_);
    const auto next = [this] { search({}); };
    connect(search_field_, &QLineEdit::returnPressed, this, next);
    connect(search_field_, &QLineEdit::textChanged, search_result_, &QLabel::clear);
    connect(add_button(row, "Find &next"), &QPushButton::clicked, this, next);
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this, next);
    connect(new QShortcut(QKeySequence("Shift+F3"), this), &QShortcut::activated, this,
            [this] { search(QTextDocument::FindBackward); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        search_field_->setFocus();
        search_field_->selectAll();
    });
}

void help_window::add_zoom_keys()
{
    const auto add = [this](const char* keys, auto action) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, page_, action);
    };
    for (const char* keys : {"Ctrl++", "Ctrl+="}) add(keys, [this] { page_->zoom(1); });
    add("Ctrl+-", [this] { page_->zoom(-1); });
    add("Ctrl+0", [this] { page_->set_text_size(help_page::normal_text); });
}

void help_window::search(QTextDocument::FindFlags flags)
{
    const QString words = search_field_->text();
    if (words.isEmpty()) return search_field_->setFocus();
    search_result_->clear();
    if (page_->find(words, flags)) return;
    const QTextCursor before = page_->textCursor();
    page_->moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (page_->find(words, flags)) return;
    page_->setTextCursor(before);
    search_result_->setText("Not found");
}

// Places the window beside the opener, on the side with more room. If there is too little room, places it at
// the left edge of the desktop. There it hides the panels of a gunnery screen rather than the sight.
void help_window::place_beside(const QWidget& opener)
{
    const QRect all = opener.screen()->availableGeometry(), taken = opener.frameGeometry();
    const int left = taken.left() - all.left(), right = all.right() - taken.right();
    const int frame = taken.width() - opener.width(), title = taken.height() - opener.height();
    const int width = std::min(std::max(left, right) - frame, usual_size.width());
    if (width < minimumWidth()) {
        const QSize room(all.width() - frame, all.height() - title), size = usual_size.boundedTo(room);
        resize(size);
        return move(all.left(), all.top() + (room.height() - size.height()) / 2);
    }
    const int top = std::max(taken.top(), all.top());
    resize(width, std::min(std::max(opener.height(), usual_size.height()), all.bottom() - top - title));
    move(right >= left ? taken.right() + 1 : taken.left() - width - frame, top);
}

void help_window::open_file(const std::string& path, const std::string& screen, const QWidget* opener)
{
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
    const bool again = page_->source().adjusted(QUrl::RemoveFragment) == file;
    page_->set_screen(QString::fromStdString(screen));
    page_->setSource(file, QTextDocument::HtmlResource);
    if (again) page_->reload();   // the screen or the content of the file may have changed
    page_->clearHistory();        // the Contents button leads to the first page in the history
    page_->setFocus();
    if (!isVisible() && opener != nullptr) place_beside(*opener);
    show();
    raise();
    activateWindow();
}

}   // namespace vorn
