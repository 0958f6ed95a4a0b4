#include "platform/desktop/help.h"

#include <QFile>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>

#include "platform/desktop/look.h"

namespace vorn {

namespace {

constexpr qint64 largest_help_file = 4'000'000;

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

// Reads the help file as HTML, and beside it pictures of its own folder; nothing else.
class help_browser final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        QFile file(source().resolved(name).toLocalFile());
        const bool readable = file.open(QIODevice::ReadOnly) && file.size() <= largest_help_file;
        if (type == QTextDocument::ImageResource) return readable ? file.readAll() : QByteArray();
        return readable ? QString::fromUtf8(file.readAll()) : missing_page(file.fileName());
    }
};

}   // namespace

help_window::help_window(const QIcon& icon) : text_(new help_browser(this))
{
    setWindowTitle("V.O.R.N. Help");
    setWindowIcon(icon);
    setWindowFlags(Qt::Window);
    setModal(false);
    setPalette(form_palette());
    setFont(text_font(text_size::normal, false, 1.1));
    resize(820, 640);
    text_->setOpenLinks(false);
    text_->setFrameShape(QFrame::NoFrame);
    text_->document()->setDocumentMargin(22);
    text_->document()->setDefaultStyleSheet(page_style());
    auto* page = new QVBoxLayout(this);
    page->addWidget(text_);
    page->addLayout(new QHBoxLayout);
    connect_buttons();
    add_zoom_keys();
}

QPushButton* help_window::add_button(const QString& caption)
{
    auto* b = new QPushButton(caption, this);
    b->setAutoDefault(false);
    static_cast<QHBoxLayout*>(layout()->itemAt(1)->layout())->addWidget(b);
    return b;
}

void help_window::connect_buttons()
{
    QPushButton* contents = add_button("&Contents");
    QPushButton* back = add_button("&Back");
    QPushButton* forward = add_button("&Forward");
    static_cast<QHBoxLayout*>(layout()->itemAt(1)->layout())->addStretch();
    QPushButton* close = add_button("Close");
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(contents, &QPushButton::clicked, text_, &QTextBrowser::home);
    connect(back, &QPushButton::clicked, text_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, text_, &QTextBrowser::forward);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    connect(text_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(text_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(text_, &QTextBrowser::anchorClicked, text_, [this](const QUrl& link) {
        if (link.adjusted(QUrl::RemoveFragment) == text_->source().adjusted(QUrl::RemoveFragment))
            text_->setSource(link);
    });
}

void help_window::add_zoom_keys()
{
    const auto zoom = [this](const QKeySequence& keys, int by) {
        connect(new QShortcut(keys, this), &QShortcut::activated, text_, [this, by] { text_->zoomIn(by); });
    };
    zoom(QKeySequence("Ctrl++"), 1);
    zoom(QKeySequence("Ctrl+="), 1);
    zoom(QKeySequence("Ctrl+-"), -1);
}

void help_window::open_file(const std::string& path)
{
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(path));
    text_->clearHistory();
    text_->setSource(file, QTextDocument::HtmlResource);
    text_->reload();   // the file may have changed since it was last open
    show();
    raise();
    activateWindow();
}

}   // namespace vorn
