#pragma once
// The base of every screen: a dialog with the form's Tag, its activation
// event and the way it opens its modal children.
//
// Form_Activate() runs when the form is shown and again each time a modal
// child opened through ShowModal() closes, as a form becomes active again.
// A list screen writes its refill rule there:
//     void Form_Activate() override { if (consumeTagA()) return; Rellenar(); }
// and opens children like this, the child a stack object so that every
// opening starts afresh and its recordsets go when it goes:
//     frmAlumnosFicha ficha(this);
//     ficha.setEstado(1);
//     Tag = "A";
//     ShowModal(&ficha);
#include "ui/RuntimeErrorBox.h"

#include <QAbstractButton>
#include <QCursor>
#include <QDialog>
#include <QPointer>
#include <QString>

class Form : public QDialog {
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);

    QString Tag;

    // True when Tag is "A", which it then clears: the refill is to be skipped.
    bool consumeTagA();

    // Runs child modally (see showModal), then activates this form again.
    int ShowModal(Form* child);
    // Runs this form modally under the run-time error handler; QDialog's
    // result. Form_Activate runs as it is shown.
    int showModal();

    // Closes the form; a modal form returns from showModal().
    void Unload() { close(); }

    QString Caption() const { return windowTitle(); }
    void setCaption(const QString& caption) { setWindowTitle(caption); }

    // Escape presses this button, like a command button marked Cancel. With
    // none, Escape does nothing: a form closes only by its own code.
    void setCancelButton(QAbstractButton* button) { cancelButton_ = button; }

    // Runs Form_Activate under the run-time error handler.
    void activate();
    int activations() const { return activations_; }

protected:
    virtual void Form_Activate() {}

    // Runs a handler of this form on a signal, under the run-time error
    // handler like every event of a form:
    //     onSignal(cmdNovo, &QPushButton::clicked, &frmTareasTipos::cmdNovo_Click);
    template <class Sender, class Signal, class F>
    void onSignal(Sender* sender, Signal signal, void (F::*handler)())
    {
        F* self = static_cast<F*>(this);
        connect(sender, signal, this, [self, handler] { ui::guardRuntime([&] { (self->*handler)(); }); });
    }

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointer<QAbstractButton> cancelButton_;
    int activations_ = 0;
};

// The busy pointer (11) over one form while it lives, or over the whole
// program when no form is given; the previous pointer comes back after it.
class BusyCursor {
public:
    explicit BusyCursor(QWidget* form = nullptr);
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

private:
    bool overall_;
    QPointer<QWidget> form_;
    bool hadCursor_ = false;
    QCursor previous_;
};
