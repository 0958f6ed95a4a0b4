#include "platform/desktop/dialogs/help.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>
#include <QTextBrowser>
#include <QTextObjectInterface>
#include <QWheelEvent>
#include <algorithm>

#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/look.h"

namespace vorn {

namespace {

constexpr qint64 largest_help_file = 4'000'000;
constexpr int largest_picture = 4000;   // pixels each way
constexpr int deepest_table = 20;       // tables in tables; laying them out takes twice the time for each
constexpr double normal_text = 10.5, smallest_text = 7, largest_text = 32;   // points

QString missing_page(const QString& file)
{
    return "<h2>The help file can't be opened</h2><p>" + file.toHtmlEscaped() +
           "</p><p>Practice goes on without it.</p>";
}

// A document takes its colours from here rather than from the window's palette.
QString page_style()
{
    return QString("a { color: %1 } h1, h2, h3 { color: %2 } p, li { line-height: 125% }")
        .arg(shade(colour::live).name(), shade(colour::highlight).name());
}

// A cell over thousands of columns or rows would keep the layout busy for minutes.
bool too_wide(const QString& page)
{
    static const QRegularExpression span("(col|row)span\\s*=\\s*[\"']?\\s*0*[0-9]{4}",
                                         QRegularExpression::CaseInsensitiveOption);
    return page.contains(span);
}

// A file that can be read at one go; neither a device, which may never end, nor a folder.
QByteArray contents(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > largest_help_file)
        return {};
    return file.readAll();
}

bool too_deep(const QString& page)
{
    int depth = 0, deepest = 0;
    for (qsizetype at = page.indexOf('<'); at >= 0; at = page.indexOf('<', at + 1)) {
        const QString tag = page.mid(at + 1, 40).trimmed();   // blanks before the name are none to the reader
        if (tag.startsWith("table", Qt::CaseInsensitive)) deepest = std::max(deepest, ++depth);
        if (tag.startsWith("/table", Qt::CaseInsensitive)) depth = std::max(0, depth - 1);
    }
    return deepest > deepest_table;
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

// Reads the help file as HTML, and pictures of its own folder and those below; nothing else.
class help_browser final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        const QString file = source().resolved(name).toLocalFile();
        if (type == QTextDocument::ImageResource) return picture(file);
        if (type != QTextDocument::HtmlResource) return {};
        const QByteArray bytes = contents(file);
        const QString page = QString::fromUtf8(bytes);
        return bytes.isEmpty() || too_deep(page) || too_wide(page) ? missing_page(file) : page;
    }

protected:
    void wheelEvent(QWheelEvent* e) override
    {
        if (!e->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(e);
        zoom(*this, e->angleDelta().y() / 120.0);   // of a notch of the wheel
    }

private:
    QVariant picture(const QString& file) const
    {
        const QString folder = QFileInfo(source().toLocalFile()).canonicalPath() + '/';
        if (!QFileInfo(file).canonicalFilePath().startsWith(folder)) return {};
        QByteArray bytes = contents(file);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const QByteArray format = picture_format(buffer);
        if (format.isEmpty()) return {};
        QImageReader reader(&buffer, format);
        reader.setAutoDetectImageFormat(false);
        const QSize size = reader.size();
        return size.width() <= largest_picture && size.height() <= largest_picture ? QVariant(reader.read())
                                                                                   : QVariant();
    }
};

// Draws pictures smooth at whatever size the page and the screen give them, and none wider than the page.
class picture_drawing final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument* page, int, const QTextFormat& format) override
    {
        const QSizeF natural = picture(*page, format).size();
        if (natural.isEmpty()) return {0, 0};
        const double wanted = format.toImageFormat().width();
        const double room = std::max(1.0, page->textWidth() - 2 * page->documentMargin());
        const double width = std::min(wanted > 0 ? wanted : natural.width(), room);
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
    : text_(new help_browser(this)), sought_(new QLineEdit(this)), outcome_(new QLabel(this))
{
    text_->setAccessibleName("Manual");
    setWindowTitle("V.O.R.N. Help");
    setWindowIcon(icon);
    setWindowFlags(Qt::Window);
    setModal(false);
    setPalette(form_palette());
    setFont(text_font(text_size::normal, false, 1.1));
    set_text_size(*text_, normal_text);
    resize(QSize(860, 700).boundedTo(screen()->availableSize()));
    setMinimumSize(480, 320);
    text_->setOpenLinks(false);
    text_->setFrameShape(QFrame::NoFrame);
    text_->document()->setDocumentMargin(22);
    text_->document()->setDefaultStyleSheet(page_style());
    text_->document()->documentLayout()->registerHandler(QTextFormat::ImageObject, new picture_drawing(this));
    auto* page = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    page->addWidget(text_);
    page->addLayout(row);
    add_roads(*row);
    add_search(*row);
    connect(add_button(*row, "Close"), &QPushButton::clicked, this, &QDialog::close);
    add_zoom_keys();
}

QPushButton* help_window::add_button(QHBoxLayout& row, const QString& caption)
{
    auto* b = new QPushButton(caption, this);
    b->setAutoDefault(false);
    row.addWidget(b);
    return b;
}

// The keys Alt+Left and Alt+Right are the browser's own.
void help_window::add_roads(QHBoxLayout& row)
{
    connect(add_button(row, "&Contents"), &QPushButton::clicked, text_, &QTextBrowser::home);
    QPushButton* back = add_button(row, "&Back");
    QPushButton* forward = add_button(row, "&Forward");
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, text_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, text_, &QTextBrowser::forward);
    connect(text_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(text_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(text_, &QTextBrowser::anchorClicked, this, &help_window::follow);
}

void help_window::add_search(QHBoxLayout& row)
{
    row.addStretch();
    row.addWidget(outcome_);
    sought_->setPlaceholderText("Find in the manual");
    sought_->setAccessibleName("Find in the manual");
    sought_->setClearButtonEnabled(true);
    row.addWidget(sought_);
    const auto next = [this] { search({}); };
    connect(sought_, &QLineEdit::returnPressed, this, next);
    connect(sought_, &QLineEdit::textChanged, outcome_, &QLabel::clear);
    connect(add_button(row, "Find &next"), &QPushButton::clicked, this, next);
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this, next);
    connect(new QShortcut(QKeySequence("Shift+F3"), this), &QShortcut::activated, this,
            [this] { search(QTextDocument::FindBackward); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        sought_->setFocus();
        sought_->selectAll();
    });
}

void help_window::add_zoom_keys()
{
    const auto add = [this](const char* keys, auto action) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, text_, action);
    };
    for (const char* keys : {"Ctrl++", "Ctrl+="}) add(keys, [this] { zoom(*text_, 1); });
    add("Ctrl+-", [this] { zoom(*text_, -1); });
    add("Ctrl+0", [this] { set_text_size(*text_, normal_text); });
}

// Within the file alone.
void help_window::follow(const QUrl& link)
{
    if (link.adjusted(QUrl::RemoveFragment) == text_->source().adjusted(QUrl::RemoveFragment))
        text_->setSource(link);
}

void help_window::search(QTextDocument::FindFlags flags)
{
    const QString words = sought_->text();
    if (words.isEmpty()) return sought_->setFocus();
    outcome_->clear();
    if (text_->find(words, flags)) return;
    const QTextCursor before = text_->textCursor();
    text_->moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (text_->find(words, flags)) return;
    text_->setTextCursor(before);
    outcome_->setText("Not found");
}

void help_window::open_file(const std::string& path)
{
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
    const bool again = text_->source().adjusted(QUrl::RemoveFragment) == file;
    text_->setSource(file, QTextDocument::HtmlResource);
    if (again) text_->reload();   // the file may have changed since it was last open
    text_->clearHistory();        // the page that is open now is the first one, to which Contents leads
    text_->setFocus();
    show();
    raise();
    activateWindow();
}

}   // namespace vorn

#include "help.moc"
