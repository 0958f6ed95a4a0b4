// Message boxes, the input box and file dialogs: they look as usual on the platform, and belong to the window
// in front.
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <utility>

#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/files.h"

namespace vorn {

// The program separates lines by line feed and carriage return, which a box would show as two line breaks.
static QString box_text(const std::string& text)
{
    return QString::fromStdString(text).replace("\n\r", "\n");
}

// Indexed by `box_sign`.
static constexpr QMessageBox::Icon icons[] = {QMessageBox::NoIcon, QMessageBox::Information,
                                              QMessageBox::Question};

// Keys and buttons that are held down are released when the box is open, as separate events, so that their
// handlers don't run before the box is shown.
void desktop_machine::before_box()
{
    QTimer::singleShot(0, &clock_, [this] { release_input(); });
    move_.reset();
    sync();
    start_clock();
}

bool desktop_machine::message_box(const message& asked)
{
    before_box();
    QMessageBox box(front_window());
    box.setTextFormat(Qt::PlainText);
    box.setText(box_text(asked.text));
    box.setWindowTitle(asked.title.empty() ? "V.O.R.N." : QString::fromStdString(asked.title));
    box.setWindowIcon(icon_);
    box.setIcon(icons[static_cast<int>(asked.sign)]);
    box.setStandardButtons(asked.buttons == box_buttons::ok ? QMessageBox::Ok
                                                            : QMessageBox::Yes | QMessageBox::No);
    if (asked.on_return == default_button::no) box.setDefaultButton(QMessageBox::No);
    const double outer_box = std::exchange(box_opened_, world_clock());
    const int answer = box.exec();
    box_opened_ = outer_box;
    return answer == QMessageBox::Yes || asked.buttons == box_buttons::ok;
}

std::optional<std::string> desktop_machine::input_box(const std::string& title, const std::string& prompt,
                                                      const std::string& proposed)
{
    before_box();
    QInputDialog box(front_window());
    box.setWindowTitle(QString::fromStdString(title));
    box.setWindowIcon(icon_);
    box.setLabelText(box_text(prompt));
    box.setTextValue(QString::fromStdString(proposed));
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    return box.textValue().toStdString();
}

// Qt's name filters for pairs of name and patterns, such as "Range Files (*.arf)|*.arf|".
static QStringList name_filters(const std::string& pairs)
{
    const QStringList parts = QString::fromStdString(pairs).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].section('(', 0, 0).trimmed();
        const QString patterns = QString(parts[i + 1]).replace(';', ' ').trimmed();
        filters << (name + " (" + patterns + ')').trimmed();
    }
    return filters;
}

// The picture of which this file is the twin, or the file itself. A range made on a twin would be twice as
// large as intended.
static QString without_twin(const QString& file)
{
    static const QRegularExpression twin(QString(twin_mark) + R"((?=\.[^./]*$))");
    const QString plain = QString(file).remove(twin);
    return QFileInfo(plain).isFile() ? plain : file;
}

// Leaves twins out of the list of a file dialog.
struct files_without_twins final : QSortFilterProxyModel {
    using QSortFilterProxyModel::QSortFilterProxyModel;

    bool filterAcceptsRow(int row, const QModelIndex& folder) const override
    {
        const auto& all = static_cast<const QFileSystemModel&>(*sourceModel());
        const QString file = all.filePath(all.index(row, 0, folder));
        return without_twin(file) == file;
    }
    // Sorted by the file model, which lists folders first.
    void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }
};

static void prepare(QFileDialog& d, const file_dialog& asked)
{
    d.setAcceptMode(asked.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d.setFileMode(QFileDialog::AnyFile);   // the program itself handles missing files
    d.setOption(QFileDialog::DontConfirmOverwrite, asked.suffix.empty());
    d.setDefaultSuffix(QString::fromStdString(asked.suffix));
    QStringList filters = name_filters(asked.filter);
    if (asked.picture) {
        filters << QString("All pictures (%1)").arg(picture_patterns);
        d.setProxyModel(new files_without_twins(&d));   // ignored by a native dialog
    }
    if (!asked.save && !filters.contains("All Files (*)")) filters << "All Files (*)";
    d.setNameFilters(filters);
    if (!asked.proposed.empty()) d.selectFile(QString::fromStdString(asked.proposed));
    auto* list = d.findChild<QTreeView*>();   // null in a native dialog
    auto* files = d.findChild<QFileSystemModel*>();
    if (list == nullptr || files == nullptr) return;
    // The column widths are set each time a folder has been read. The user may then change them.
    list->header()->setSectionResizeMode(QHeaderView::Interactive);
    const auto fit = [list] {
        for (int column = 0; column < list->header()->count(); ++column) list->resizeColumnToContents(column);
    };
    QObject::connect(files, &QFileSystemModel::directoryLoaded, list, fit);
}

std::optional<std::string> desktop_machine::choose_file(const file_dialog& asked)
{
    before_box();
    QFileDialog d(front_window(), QString::fromStdString(asked.title),
                  QString::fromStdString(find_path(*this, asked.folder)));
    d.setWindowIcon(icon_);
    prepare(d, asked);
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return std::nullopt;
    const QString file = d.selectedFiles().constFirst();
    return QDir::toNativeSeparators(asked.picture ? without_twin(file) : file).toStdString();
}

}   // namespace vorn
