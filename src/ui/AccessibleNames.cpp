#include "ui/AccessibleNames.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QWidget>

#include <algorithm>

namespace ui {

namespace {

// The distances, in pixels at 100 %, over which a label still belongs to a
// control: beside it on its line, or just above it.
constexpr int kBeside = 320;
constexpr int kAbove = 40;

bool isFocusable(const QWidget* w)
{
    return !w->isWindow() && w->focusPolicy() != Qt::NoFocus;
}

// Not hidden below `root`. The pages of a tab or stacked widget count as
// shown: their controls are named before their page comes to the front.
bool shownUnder(const QWidget* w, const QWidget* root)
{
    for (const QWidget* p = w; p && p != root; p = p->parentWidget()) {
        if (p->isHidden() && !qobject_cast<const QStackedWidget*>(p->parentWidget()))
            return false;
    }
    return true;
}

// Labels and controls are compared within one page of a stacked widget (or
// the window): the pages lie on top of one another.
QWidget* pageOf(QWidget* w, QWidget* root)
{
    for (QWidget* p = w; p && p != root; p = p->parentWidget()) {
        if (qobject_cast<QStackedWidget*>(p->parentWidget()))
            return p;
    }
    return root;
}

// "&Curso:" reads as "Curso:", as Qt reads the caption of a buddy label.
QString caption(const QString& labelText)
{
    QString text =
        Qt::mightBeRichText(labelText) ? QTextDocumentFragment::fromHtml(labelText).toPlainText() : labelText;
    text.remove(QRegularExpression(QStringLiteral("&(?!&)")));
    return text.simplified();
}

// A tab widget, or its bar, by the captions of its tabs.
QString tabCaptions(QWidget* w)
{
    auto* bar = qobject_cast<QTabBar*>(w);
    if (auto* tabs = qobject_cast<QTabWidget*>(w))
        bar = tabs->tabBar();
    if (!bar)
        return QString();
    QStringList captions;
    for (int i = 0; i < bar->count(); ++i)
        captions << caption(bar->tabText(i));
    return captions.join(QStringLiteral(", "));
}

QRect rectIn(const QWidget* w, const QWidget* page)
{
    return QRect(w->mapTo(page, QPoint(0, 0)), w->size());
}

// The caption of the nearest label on the control's line to its left, with
// no other control in between; else of the nearest label just above it.
QString labelBeside(QWidget* control, QWidget* root, const QList<QLabel*>& labels, const QList<QWidget*>& controls)
{
    QWidget* page = pageOf(control, root);
    const QRect r = rectIn(control, page);
    const QLabel* left = nullptr;
    int leftGap = kBeside;
    const QLabel* above = nullptr;
    int aboveGap = kAbove;
    for (QLabel* l : labels) {
        if (pageOf(l, root) != page || caption(l->text()).isEmpty())
            continue;
        const QRect lr = rectIn(l, page);
        const bool sameLine =
            lr.top() < r.bottom() && lr.bottom() > r.top() && qAbs(lr.center().y() - r.center().y()) <= r.height();
        if (sameLine && lr.right() <= r.left() + 4 && r.left() - lr.right() < leftGap) {
            const bool between = std::any_of(controls.begin(), controls.end(), [&](QWidget* other) {
                if (other == control || pageOf(other, root) != page)
                    return false;
                const QRect o = rectIn(other, page);
                return o.top() < r.bottom() && o.bottom() > r.top() && o.left() >= lr.right() && o.right() <= r.left();
            });
            if (!between) {
                left = l;
                leftGap = r.left() - lr.right();
            }
        }
        const bool overlaps = lr.left() < r.right() && lr.right() > r.left();
        if (overlaps && lr.bottom() <= r.top() + 4 && r.top() - lr.bottom() < aboveGap) {
            above = l;
            aboveGap = r.top() - lr.bottom();
        }
    }
    if (left)
        return caption(left->text());
    return above ? caption(above->text()) : QString();
}

} // namespace

QString accessibleName(QWidget* widget)
{
    QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(widget);
    return iface ? iface->text(QAccessible::Name).trimmed() : QString();
}

void nameControls(QWidget* root)
{
    // Laid out pages that were never shown have no places yet.
    for (QWidget* w : root->findChildren<QWidget*>()) {
        if (w->layout() && !w->isVisible())
            w->layout()->activate();
    }
    QList<QWidget*> controls;
    for (QWidget* w : root->findChildren<QWidget*>()) {
        if (isFocusable(w) && shownUnder(w, root))
            controls << w;
    }
    const QList<QLabel*> labels = root->findChildren<QLabel*>();
    // Parents come before their parts (the field inside a combo box).
    for (QWidget* w : controls) {
        if (!w->accessibleName().isEmpty() || !accessibleName(w).isEmpty())
            continue;
        QString name = tabCaptions(w);
        QWidget* parent = w->parentWidget();
        if (name.isEmpty() && (qobject_cast<QComboBox*>(parent) || qobject_cast<QAbstractSpinBox*>(parent) ||
                               qobject_cast<QAbstractScrollArea*>(parent)))
            name = accessibleName(parent);
        if (name.isEmpty())
            name = labelBeside(w, root, labels, controls);
        // A grid, list or chart that no label introduces is what the window
        // shows: it takes the window's caption.
        if (name.isEmpty() && qobject_cast<QAbstractScrollArea*>(w))
            name = w->window()->windowTitle();
        if (name.isEmpty())
            name = w->toolTip();
        if (name.isEmpty()) {
            if (auto* edit = qobject_cast<QLineEdit*>(w))
                name = edit->placeholderText();
        }
        if (!name.isEmpty())
            w->setAccessibleName(name);
    }
}

QList<QWidget*> unnamedControls(QWidget* root)
{
    QList<QWidget*> unnamed;
    for (QWidget* w : root->findChildren<QWidget*>()) {
        if (isFocusable(w) && shownUnder(w, root) && accessibleName(w).isEmpty())
            unnamed << w;
    }
    return unnamed;
}

} // namespace ui
