#include "platform/desktop/dialogs/help.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyleFactory>
#include <QTextBrowser>
#include <QTextObjectInterface>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

#include "platform/desktop/windows/look.h"

namespace vorn {

namespace {

constexpr double normal_text = 10.5, smallest_text = 7, largest_text = 32;   // points

QString missing_page(const QString& file)
{
    return "<h2>The help file can't be opened</h2><p>" + file.toHtmlEscaped() +
           "</p><p>The trainer works without it.</p>";
}

// The document takes its colours from this style sheet, not from the palette of the window.
QString page_style()
{
    return QString("a { color: %1 } h1, h2, h3 { color: %2 } p, li { line-height: 125% }")
        .arg(shade(colour::live).name(), shade(colour::highlight).name());
}

void set_text_size(QTextBrowser& browser, double points)
{
    QFont font = browser.font();
    font.setPointSizeF(std::clamp(points, smallest_text, largest_text));
    browser.setFont(font);
}

void zoom(QTextBrowser& browser, double by)
{
    set_text_size(browser, browser.font().pointSizeF() + by);
}

// Loads the help file as HTML, whatever its name, and the pictures it refers to.
class help_browser final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        const QString path = source().resolved(name).toLocalFile();
        if (type == QTextDocument::ImageResource) return QImage(path);
        if (type != QTextDocument::HtmlResource) return {};
        QFile file(path);
        const QByteArray html = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return html.isEmpty() ? missing_page(path) : QString::fromUtf8(html);
    }

protected:
    void wheelEvent(QWheelEvent* e) override
    {
        constexpr double notch = 120;   // of the wheel, in Qt's units
        if (!e->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(e);
        zoom(*this, e->angleDelta().y() / notch);
    }
};

// Draws pictures with smooth scaling at any device pixel ratio, and none wider than the page.
class picture_drawing final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument* page, int, const QTextFormat& format) override
    {
        const QSizeF natural = picture(*page, format).size();
        if (natural.isEmpty()) return {0, 0};
        const double requested = format.toImageFormat().width();
        const double available = std::max(1.0, page->textWidth() - 2 * page->documentMargin());
        const double width = std::min(requested > 0 ? requested : natural.width(), available);
        return {width, width * natural.height() / natural.width()};
    }

    void drawObject(QPainter* p, const QRectF& at, QTextDocument* page, int,
                    const QTextFormat& format) override
    {
        p->setRenderHint(QPainter::SmoothPixmapTransform);
        p->drawImage(at, picture(*page, format));
    }

private:
    static QImage picture(const QTextDocument& page, const QTextFormat& format)
    {
        return page.resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()))
            .value<QImage>();
    }
};

}   // namespace

help_window::help_window(const QIcon& icon)
    : browser_(new help_browser(this)), search_field_(new QLineEdit(this)), search_result_(new QLabel(this))
{
    browser_->setAccessibleName("Manual");
    setWindowTitle("V.O.R.N. Help");
    setWindowIcon(icon);
    setWindowFlags(Qt::Window);
    setModal(false);
    setPalette(form_palette());
    setFont(text_font(text_size::normal, false, 1.1));
    set_text_size(*browser_, normal_text);
    resize(QSize(860, 700).boundedTo(screen()->availableSize()));
    setMinimumSize(480, 320);
    browser_->setOpenLinks(false);
    browser_->setFrameShape(QFrame::NoFrame);
    browser_->document()->setDocumentMargin(22);
    browser_->document()->setDefaultStyleSheet(page_style());
    browser_->document()->documentLayout()->registerHandler(QTextFormat::ImageObject,
                                                            new picture_drawing(this));
    auto* page = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    page->addWidget(browser_);
    page->addLayout(row);
    add_navigation(*row);
    add_search(*row);
    connect(add_button(*row, "Close"), &QPushButton::clicked, this, &QDialog::close);
    add_zoom_keys();
    use_fusion();
}

// The style of the platform may draw its own light controls under the palette's light text.
void help_window::use_fusion()
{
    QStyle* fusion = QStyleFactory::create("Fusion");
    fusion->setParent(QCoreApplication::instance());   // outlives the controls
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
    connect(add_button(row, "&Contents"), &QPushButton::clicked, browser_, &QTextBrowser::home);
    QPushButton* back = add_button(row, "&Back");
    QPushButton* forward = add_button(row, "&Forward");
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::anchorClicked, this, &help_window::follow);
}

void help_window::add_search(QHBoxLayout& row)
{
    row.addStretch();
    row.addWidget(search_result_);
    search_field_->setPlaceholderText("Find in the manual");
    search_field_->setAccessibleName("Find in the manual");
    search_field_->setClearButtonEnabled(true);
    row.addWidget(search_field_);
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
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, browser_, action);
    };
    for (const char* keys : {"Ctrl++", "Ctrl+="}) add(keys, [this] { zoom(*browser_, 1); });
    add("Ctrl+-", [this] { zoom(*browser_, -1); });
    add("Ctrl+0", [this] { set_text_size(*browser_, normal_text); });
}

// Only links within the file are followed.
void help_window::follow(const QUrl& link)
{
    if (link.adjusted(QUrl::RemoveFragment) == browser_->source().adjusted(QUrl::RemoveFragment))
        browser_->setSource(link);
}

void help_window::search(QTextDocument::FindFlags flags)
{
    const QString words = search_field_->text();
    if (words.isEmpty()) return search_field_->setFocus();
    search_result_->clear();
    if (browser_->find(words, flags)) return;
    const QTextCursor before = browser_->textCursor();
    browser_->moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (browser_->find(words, flags)) return;
    browser_->setTextCursor(before);
    search_result_->setText("Not found");
}

void help_window::open_file(const std::string& path)
{
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
    const bool again = browser_->source().adjusted(QUrl::RemoveFragment) == file;
    browser_->setSource(file, QTextDocument::HtmlResource);
    if (again) browser_->reload();   // the file may have changed since
    browser_->clearHistory();        // the Contents button leads to the page open now
    browser_->setFocus();
    show();
    raise();
    activateWindow();
}

}   // namespace vorn

#include "help.moc"
