#include "platform/desktop/dialogs/help_page.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImage>
#include <QMovie>
#include <QPainter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextObjectInterface>
#include <QTextTable>
#include <QWheelEvent>
#include <algorithm>

#include "platform/desktop/drawing/look.h"

namespace vorn {

namespace {

constexpr double smallest_text = 7, largest_text = 32;   // points
constexpr int page_margin = 22;

QString missing_page(const QString& file)
{
    return "<h2>The help file can't be opened</h2><p>" + file.toHtmlEscaped() +
           "</p><p>The trainer works without it.</p>";
}

// The colours of links, headings and marks: the document doesn't take them from the window's palette.
QString page_style()
{
    return QString(
               "a { color: %1 } h1, h2, h3 { color: %2 } p, li { line-height: 125% } b.here { color: %2 } "
               "pre { white-space: pre-wrap }")
        .arg(shade(colour::live).name(), shade(colour::highlight).name());
}

QString marked_for(QString html, const QString& screen)
{
    static const QRegularExpression note("<!--for ([a-z ]+)-->");
    qsizetype from = 0;
    for (QRegularExpressionMatch m = note.match(html); m.hasMatch(); m = note.match(html, from)) {
        const bool here = m.captured(1).split(' ').contains(screen);
        const QString mark = here ? " <b class=\"here\">&#9668;&nbsp;this&nbsp;screen</b>" : "";
        html.replace(m.capturedStart(), m.capturedLength(), mark);
        from = m.capturedStart() + mark.size();
    }
    return html;
}

// Draws pictures with smooth scaling at any device pixel ratio, and reduces pictures too wide for the page.
class picture_drawing final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument* page, int at, const QTextFormat& format) override
    {
        const QSizeF natural = picture(*page, format).size();
        if (natural.isEmpty()) return {0, 0};
        const double requested = format.toImageFormat().width();
        const double width = std::min(requested > 0 ? requested : natural.width(), available(*page, at));
        return {width, width * natural.height() / natural.width()};
    }

    void drawObject(QPainter* p, const QRectF& at, QTextDocument* page, int,
                    const QTextFormat& format) override
    {
        p->setRenderHint(QPainter::SmoothPixmapTransform);
        p->drawImage(at, picture(*page, format));
    }

private:
    // The width available at a position. Pictures beside each other are in a table without a border.
    static double available(const QTextDocument& page, int at)
    {
        double width = page.textWidth() - 2 * page.documentMargin();
        for (const QTextFrame* f = page.frameAt(at); f != nullptr; f = f->parentFrame()) {
            const auto* t = qobject_cast<const QTextTable*>(f);
            if (t == nullptr || t->format().border() != 0) continue;
            const double spacing = (t->columns() + 1) * t->format().cellSpacing();
            width = (width - spacing) / t->columns() - 2 * t->format().cellPadding();
        }
        return std::max(1.0, width);
    }

    static QImage picture(const QTextDocument& page, const QTextFormat& format)
    {
        return page.resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()))
            .value<QImage>();
    }
};

}   // namespace

help_page::help_page(QWidget* parent) : QTextBrowser(parent)
{
    setAccessibleName("Manual");
    set_text_size(normal_text);
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(page_margin);
    document()->setDefaultStyleSheet(page_style());
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject, new picture_drawing(this));
    connect(this, &QTextBrowser::anchorClicked, this, &help_page::follow);
    // Qt rounds the widths of columns up, so a table can be some pixels wider than the page. As long as only
    // the margin at the right is hidden, no scroll bar is needed.
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int hidden) {
        setHorizontalScrollBarPolicy(hidden < page_margin ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    });
}

QString help_page::path_of(const QUrl& name) const
{
    return source().resolved(name).toLocalFile();
}

QVariant help_page::loadResource(int type, const QUrl& name)
{
    const QString path = path_of(name);
    if (type == QTextDocument::ImageResource) return QImage(path);
    if (type != QTextDocument::HtmlResource) return {};
    QFile file(path);
    const QByteArray html = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return html.isEmpty() ? missing_page(path) : marked_for(QString::fromUtf8(html), screen_);
}

void help_page::set_text_size(double points)
{
    QFont changed = font();
    changed.setPointSizeF(std::clamp(points, smallest_text, largest_text));
    setFont(changed);
}

void help_page::wheelEvent(QWheelEvent* e)
{
    constexpr double notch = 120;   // one step of the wheel, in eighths of a degree
    if (!e->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(e);
    zoom(e->angleDelta().y() / notch);
}

void help_page::follow(const QUrl& link)
{
    if (link.path().endsWith(".gif")) return play(link);
    if (link.adjusted(QUrl::RemoveFragment) == source().adjusted(QUrl::RemoveFragment)) setSource(link);
}

// Films ---------------------------------------------------------------------------------------------------

static QUrl name_of(const QTextFragment& picture)
{
    return QUrl(picture.charFormat().toImageFormat().name());
}

// If the file can't be read, the still picture stays.
void help_page::play(const QUrl& film)
{
    const bool again = film_ != nullptr && film_link_ == film;
    stop_film();
    if (again) return;
    film_link_ = film;
    film_ = new QMovie(path_of(film), {}, this);
    connect(film_, &QMovie::frameChanged, this, &help_page::show_frame);
    film_->start();
}

void help_page::show_frame()
{
    const auto at = still();
    const auto place = [&] {
        const QTextBlock block = document()->findBlock(at->position());
        return document()->documentLayout()->blockBoundingRect(block).translated(
            0, -verticalScrollBar()->value());
    };
    if (!at || !isVisible() || !place().intersects(viewport()->rect())) return stop_film();
    replace_picture(*at, film_->currentImage());
}

void help_page::stop_film()
{
    if (film_ == nullptr) return;
    film_->disconnect(this);
    film_->deleteLater();   // not now: the signal being handled may come from the film
    film_ = nullptr;
    if (const auto at = still()) replace_picture(*at, QImage(path_of(name_of(*at))));
}

void help_page::replace_picture(const QTextFragment& at, const QImage& by)
{
    document()->addResource(QTextDocument::ImageResource, document()->baseUrl().resolved(name_of(at)), by);
    viewport()->update();
}

std::optional<QTextFragment> help_page::still() const
{
    for (QTextBlock b = document()->begin(); b.isValid(); b = b.next())
        for (auto i = b.begin(); !i.atEnd(); ++i) {
            const QTextCharFormat f = i.fragment().charFormat();
            if (f.isImageFormat() && source().resolved(QUrl(f.anchorHref())) == film_link_)
                return i.fragment();
        }
    return std::nullopt;
}

}   // namespace vorn

#include "help_page.moc"
