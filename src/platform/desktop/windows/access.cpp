// Describes pictures to screen readers.
#include <QAccessibleWidget>
#include <algorithm>

#include "platform/desktop/windows/views.h"

namespace vorn {

namespace {

class described_picture final : public QAccessibleWidget {
public:
    explicit described_picture(picture_view& view) : QAccessibleWidget(&view, QAccessible::Graphic) {}

    // For a picture without a name Qt would use the name of the frame around it.
    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? widget()->accessibleName() : QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override
    {
        QAccessible::State s = QAccessibleWidget::state();
        if (covered()) s.invisible = true;
        return s;
    }

private:
    // Of two lamps at the same place only the one on top is visible.
    bool covered() const
    {
        const QObjectList& siblings = widget()->parentWidget()->children();
        const auto above = std::find(siblings.begin(), siblings.end(), widget()) + 1;
        return std::any_of(above, siblings.end(), [this](QObject* o) {
            const auto* view = dynamic_cast<const picture_view*>(o);
            return view != nullptr && view->isVisible() && view->geometry() == widget()->geometry();
        });
    }
};

QAccessibleInterface* description(const QString&, QObject* o)
{
    auto* view = dynamic_cast<picture_view*>(o);
    return view != nullptr && view->focusPolicy() == Qt::NoFocus ? new described_picture(*view) : nullptr;
}

}   // namespace

void describe_pictures()
{
    QAccessible::installFactory(description);
}

}   // namespace vorn
