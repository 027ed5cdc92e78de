#include "ui/Form.h"

#include "ui/RuntimeErrorBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QShowEvent>

Form::Form(QWidget* parent) : QDialog(parent) {}

bool Form::consumeTagA()
{
    if (Tag != QLatin1String("A"))
        return false;
    Tag.clear();
    return true;
}

int Form::showModal()
{
    int result = QDialog::Rejected;
    ui::guardRuntime([&] { result = exec(); });
    return result;
}

int Form::ShowModal(Form* child)
{
    if (!child->parentWidget())
        child->setParent(this, child->windowFlags() | Qt::Dialog);
    // The child may delete itself on close: nothing of it is touched after.
    const int result = child->showModal();
    // Only a form on screen becomes active again.
    if (isVisible())
        activate();
    return result;
}

void Form::activate()
{
    ++activations_;
    ui::guardRuntime([this] { Form_Activate(); });
}

void Form::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // A spontaneous show is the window system restoring the form, not an
    // activation of it.
    if (!event->spontaneous())
        activate();
}

void Form::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        if (cancelButton_ && cancelButton_->isEnabled() && cancelButton_->isVisible())
            cancelButton_->click();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

BusyCursor::BusyCursor(QWidget* form) : overall_(form == nullptr)
{
    if (!overall_) {
        QWidget* window = form->window();
        form_ = window;
        hadCursor_ = window->testAttribute(Qt::WA_SetCursor);
        previous_ = window->cursor();
        window->setCursor(Qt::WaitCursor);
    } else {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

BusyCursor::~BusyCursor()
{
    if (overall_) {
        QApplication::restoreOverrideCursor();
    } else if (form_) {
        if (hadCursor_)
            form_->setCursor(previous_);
        else
            form_->unsetCursor();
    }
}
