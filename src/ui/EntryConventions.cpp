#include "ui/EntryConventions.h"

#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/MaskEdit.h"
#include "ui/RuntimeErrorBox.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>

namespace ui {

namespace {

// What a field has asked for, kept on the field itself.
const char* const kEntry = "cadernia_entry";
const char* const kDecimalComma = "cadernia_decimal_comma";
const char* const kMask = "cadernia_mask";
const char* const kHasFocus = "cadernia_has_focus";
const char* const kClickedIn = "cadernia_clicked_in"; // a masked box entered by the mouse
const char* const kEnterAsText = "cadernia_enter_as_text";

bool isMultiLine(const QObject* o)
{
    return qobject_cast<const QTextEdit*>(o) || qobject_cast<const QPlainTextEdit*>(o);
}

void selectAllOf(QWidget* w)
{
    if (auto* line = qobject_cast<QLineEdit*>(w))
        line->selectAll();
    else if (auto* combo = qobject_cast<QComboBox*>(w); combo && combo->lineEdit())
        combo->lineEdit()->selectAll();
    else if (auto* text = qobject_cast<QTextEdit*>(w))
        text->selectAll();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(w))
        plain->selectAll();
}

// The text a mask shows while empty: "##/##/####" -> "__/__/____".
QString blankOf(const QString& mask)
{
    QString out = mask;
    for (QChar& ch : out)
        if (ch == u'#' || ch == u'?' || ch == u'A' || ch == u'&')
            ch = u'_';
    return out;
}

// What a field runs on one of its events (the focus leaving it, Enter in a
// search box), kept as a child of the field and found again by the event's
// name.
class FieldHandler : public QObject {
public:
    FieldHandler(QWidget* field, const QString& event, std::function<void()> run) : QObject(field), run_(std::move(run))
    {
        setObjectName(event);
    }
    void run() const { run_(); }

    static FieldHandler* of(const QWidget* field, const QString& event)
    {
        return static_cast<FieldHandler*>(field->findChild<QObject*>(event, Qt::FindDirectChildrenOnly));
    }
    // The field's handler of the event, in place of any before it.
    static void set(QWidget* field, const QString& event, std::function<void()> run)
    {
        delete of(field, event);
        new FieldHandler(field, event, std::move(run));
    }

private:
    std::function<void()> run_;
};

const QString kOnLeave = QStringLiteral("cadernia_leave_handler");
const QString kOnSearch = QStringLiteral("cadernia_search_handler");

class EntryFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* field = qobject_cast<QWidget*>(watched);
        if (!field || !field->property(kEntry).toBool())
            return false;
        switch (event->type()) {
        case QEvent::FocusIn:
            return focusIn(field, static_cast<QFocusEvent*>(event));
        case QEvent::FocusOut:
            focusOut(field, static_cast<QFocusEvent*>(event));
            return false;
        case QEvent::KeyPress:
            return keyPress(field, static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonRelease:
            return clickedIn(field, event);
        default:
            return false;
        }
    }

private:
    // The field's own idea of having the focus: a message box or another
    // program taking the window's activation away and giving it back does not
    // move the focus between fields, while the first focus of a window shown
    // anew does.
    static bool windowOnly(const QFocusEvent* e)
    {
        return e->reason() == Qt::ActiveWindowFocusReason || e->reason() == Qt::PopupFocusReason;
    }

    bool focusIn(QWidget* field, QFocusEvent* event)
    {
        if (field->property(kHasFocus).toBool())
            return false;
        field->setProperty(kHasFocus, true);
        auto* masked = qobject_cast<MaskEdit*>(field);
        const QVariant mask = field->property(kMask);
        if (masked && mask.isValid())
            masked->setMask(mask.toString());
        // The field's own handler first: a masked line edit moves its cursor
        // to the first blank on Tab, which would undo the selection.
        static_cast<QObject*>(field)->event(event);
        setBackColor(field, colorFromVariant(gColor));
        selectAllOf(field);
        // The press that gave the focus goes on to place the cursor where it
        // landed; a masked box is selected again once the click is over, so
        // that typing fills it from its first position.
        field->setProperty(kClickedIn, masked && mask.isValid() && event->reason() == Qt::MouseFocusReason);
        return true;
    }

    bool clickedIn(QWidget* field, QEvent* event)
    {
        if (!field->property(kClickedIn).toBool())
            return false;
        field->setProperty(kClickedIn, false);
        static_cast<QObject*>(field)->event(event);
        selectAllOf(field);
        return true;
    }

    void focusOut(QWidget* field, QFocusEvent* event)
    {
        // A field the focus never reached is not left: a check that sends
        // the focus back to its own field, while the focus was on its way
        // to this one, takes it from here before it arrived.
        if (windowOnly(event) || !field->property(kHasFocus).toBool())
            return;
        // A field that loses the focus because it is being destroyed (its
        // form going away with the focus in it) is no longer what it was:
        // its form's part is gone too, and no check of it may run.
        if (field->metaObject() == &QWidget::staticMetaObject)
            return;
        field->setProperty(kHasFocus, false);
        field->setProperty(kClickedIn, false);
        auto* masked = qobject_cast<MaskEdit*>(field);
        const QVariant mask = field->property(kMask);
        if (masked && mask.isValid()) {
            masked->setMask(QString());
            if (masked->Text() == blankOf(mask.toString()))
                masked->setText(QString());
        }
        setBackColor(field, white());
        if (FieldHandler* handler = FieldHandler::of(field, kOnLeave))
            guardRuntime([handler] { handler->run(); });
    }

    bool keyPress(QWidget* field, QKeyEvent* event)
    {
        if (field->property(kDecimalComma).toBool() && event->text() == QLatin1String(".")) {
            QKeyEvent comma(QEvent::KeyPress, Qt::Key_Comma, event->modifiers(), QStringLiteral(","));
            QCoreApplication::sendEvent(field, &comma);
            return true;
        }
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return false;
        if (auto* combo = qobject_cast<QComboBox*>(field); combo && combo->view()->isVisible())
            return false; // Enter chooses in the open list
        if (field->property(kEnterAsText).toBool())
            return false;
        if (FieldHandler* search = FieldHandler::of(field, kOnSearch)) {
            guardRuntime([search] { search->run(); });
            return true;
        }
        focusNextField(field);
        return !isMultiLine(field);
    }
};

EntryFilter* filter()
{
    static QPointer<EntryFilter> instance;
    if (!instance)
        instance = new EntryFilter(qApp);
    return instance;
}

bool isField(const QWidget* w)
{
    if (qobject_cast<const QLineEdit*>(w)) {
        // The line edits inside combo and spin boxes belong to their owner.
        const QWidget* owner = w->parentWidget();
        return !qobject_cast<const QComboBox*>(owner) && !qobject_cast<const QAbstractSpinBox*>(owner);
    }
    if (auto* combo = qobject_cast<const QComboBox*>(w))
        return combo->isEditable();
    return isMultiLine(w);
}

void installOn(QWidget* field)
{
    field->setProperty(kEntry, true);
    if (auto* text = qobject_cast<QTextEdit*>(field))
        text->setTabChangesFocus(true);
    if (auto* plain = qobject_cast<QPlainTextEdit*>(field))
        plain->setTabChangesFocus(true);
    if (auto* masked = qobject_cast<MaskEdit*>(field); masked && !masked->Mask().isEmpty())
        masked->setProperty(kMask, masked->Mask());
    field->removeEventFilter(filter());
    field->installEventFilter(filter());
}

} // namespace

void installEntryConventions(QWidget* fieldOrForm)
{
    if (isField(fieldOrForm)) {
        installOn(fieldOrForm);
        return;
    }
    for (QWidget* child : fieldOrForm->findChildren<QWidget*>())
        if (isField(child))
            installOn(child);
}

void installDecimalComma(QLineEdit* field)
{
    installOn(field);
    field->setProperty(kDecimalComma, true);
}

void installMaskConventions(MaskEdit* field, const QString& mask)
{
    installOn(field);
    field->setProperty(kMask, mask);
}

void onFieldLeft(QWidget* field, std::function<void()> left)
{
    FieldHandler::set(field, kOnLeave, std::move(left));
    if (!field->property(kEntry).toBool())
        installOn(field);
}

void installSearchField(QLineEdit* field, std::function<void()> search)
{
    FieldHandler::set(field, kOnSearch, std::move(search));
    installOn(field);
    // No label stands beside a search field; a screen reader still says what it is for.
    if (field->accessibleName().isEmpty())
        field->setAccessibleName(QStringLiteral("Buscar"));
}

void focusNextField(QWidget* from)
{
    // The window moves the focus on from its focus widget, exactly as for Tab.
    QWidget* window = from->window();
    if (window->focusWidget() != from && from->isVisible())
        from->setFocus(Qt::OtherFocusReason);
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &tab);
}

void limitToColumn(QLineEdit* field, const QString& table, const QString& column)
{
    const int size = gConexion ? gConexion->columnSize(table, column) : 0;
    if (size > 0)
        field->setMaxLength(size);
}

void limitToColumn(QPlainTextEdit* field, const QString& table, const QString& column)
{
    const int size = gConexion ? gConexion->columnSize(table, column) : 0;
    if (size <= 0)
        return;
    QObject::connect(field, &QPlainTextEdit::textChanged, field, [field, size] {
        const QString text = field->toPlainText();
        if (text.size() <= size)
            return;
        field->setPlainText(text.left(size));
        field->moveCursor(QTextCursor::End);
    });
}

void keepEnterAsText(QPlainTextEdit* field)
{
    installOn(field);
    field->setProperty(kEnterAsText, true);
}

} // namespace ui
