// Message boxes, the input box and the file dialogs: the platform's own, over the screen that asks.
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QTreeView>
#include <utility>

#include "platform/desktop/desktop_machine.h"
#include "platform/desktop/dialogs/boxes.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/files.h"

namespace vorn {

// The program joins lines by line feed and carriage return; a box would show the pair as a blank line.
static QString box_text(const std::string& text)
{
    return QString::fromStdString(text).replace("\n\r", "\n");
}

static QMessageBox::Icon icon_of(box_sign sign)
{
    if (sign == box_sign::information) return QMessageBox::Information;
    return sign == box_sign::question ? QMessageBox::Question : QMessageBox::NoIcon;
}

// What is held is let go behind the box, each as an event of its own: no handler runs in the midst of the one
// that asks.
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
    box.setIcon(icon_of(asked.sign));
    box.setStandardButtons(asked.buttons == box_buttons::ok ? QMessageBox::Ok
                                                            : QMessageBox::Yes | QMessageBox::No);
    if (asked.on_return == default_button::no) box.setDefaultButton(QMessageBox::No);
    const double beneath = std::exchange(box_opened_, world_clock());
    const int answer = box.exec();
    box_opened_ = beneath;
    return answer == QMessageBox::Yes || asked.buttons == box_buttons::ok;
}

std::optional<std::string> desktop_machine::input_box(const std::string& title, const std::string& prompt,
                                                      const std::string& proposed)
{
    before_box();
    QInputDialog box(front_window());
    box.setInputMode(QInputDialog::TextInput);
    box.setWindowTitle(QString::fromStdString(title));
    box.setWindowIcon(icon_);
    box.setLabelText(box_text(prompt));
    box.setTextValue(QString::fromStdString(proposed));
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    return box.textValue().toStdString();
}

QStringList name_filters(const std::string& pairs)
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

static void prepare(QFileDialog& d, const file_dialog& asked)
{
    d.setAcceptMode(asked.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d.setFileMode(
        QFileDialog::AnyFile);   // the program itself says what is wrong with a name that isn't there
    d.setOption(QFileDialog::DontConfirmOverwrite, asked.suffix.empty());
    d.setDefaultSuffix(QString::fromStdString(asked.suffix));
    QStringList filters = name_filters(asked.filter);
    if (asked.picture) filters << QString("All pictures (%1)").arg(picture_patterns);
    if (!asked.save && !filters.contains("All Files (*)")) filters << "All Files (*)";
    d.setNameFilters(filters);
    if (!asked.proposed.empty()) d.selectFile(QString::fromStdString(asked.proposed));
    auto* list = d.findChild<QTreeView*>();   // there is none in a dialog of the desktop's own
    auto* files = d.findChild<QFileSystemModel*>();
    if (list == nullptr || files == nullptr) return;
    // As wide as a folder needs when it is read, and from then on as the user drags them.
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
    return QDir::toNativeSeparators(d.selectedFiles().constFirst()).toStdString();
}

}   // namespace vorn
