#include "ui/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QQueue>

namespace {

struct Script {
    QQueue<int> answers;
    QList<MsgBox::Shown> shown;
    bool fatal = false;
};

Script& state()
{
    static Script s;
    return s;
}

QMessageBox::Icon iconOf(int flags)
{
    switch (flags & 0x70) {
    case vbCritical:
        return QMessageBox::Critical;
    case vbQuestion:
        return QMessageBox::Question;
    case vbExclamation:
        return QMessageBox::Warning;
    case vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int showBox(const QString& text, int flags, const QString& title)
{
    QMessageBox box(iconOf(flags), title, text, QMessageBox::NoButton, QApplication::activeWindow());
    QList<QPair<QPushButton*, int>> buttons;
    auto add = [&](const QString& caption, QMessageBox::ButtonRole role, int result) {
        buttons.append({box.addButton(caption, role), result});
    };
    switch (flags & 0x07) {
    case vbOKCancel:
        add(QStringLiteral("Aceptar"), QMessageBox::AcceptRole, vbOK);
        add(QStringLiteral("Cancelar"), QMessageBox::RejectRole, vbCancel);
        break;
    case vbYesNoCancel:
        add(QStringLiteral("Sí"), QMessageBox::YesRole, vbYes);
        add(QStringLiteral("No"), QMessageBox::NoRole, vbNo);
        add(QStringLiteral("Cancelar"), QMessageBox::RejectRole, vbCancel);
        break;
    case vbYesNo:
        add(QStringLiteral("Sí"), QMessageBox::YesRole, vbYes);
        add(QStringLiteral("No"), QMessageBox::NoRole, vbNo);
        break;
    default:
        add(QStringLiteral("Aceptar"), QMessageBox::AcceptRole, vbOK);
        break;
    }
    const int defaultIndex = (flags & vbDefaultButton2) && buttons.size() > 1 ? 1 : 0;
    box.setDefaultButton(buttons[defaultIndex].first);
    // Escape answers Cancel where there is one, and OK on a lone OK button;
    // a Yes/No question has to be answered.
    if (buttons.size() == 1)
        box.setEscapeButton(buttons[0].first);
    for (const auto& [button, result] : buttons)
        if (result == vbCancel)
            box.setEscapeButton(button);
    // The window that asked takes the keyboard back, with the field that had
    // it: a box answered while its window closes would leave no window with
    // the focus, and Escape would then reach none.
    const QPointer<QWidget> asker = QApplication::activeWindow();
    const QPointer<QWidget> field = QApplication::focusWidget();
    box.exec();
    if (asker && asker->isVisible()) {
        asker->activateWindow();
        if (field && field->window() == asker)
            field->setFocus();
    }
    for (const auto& [button, result] : buttons)
        if (box.clickedButton() == button)
            return result;
    return buttons.size() == 1 ? vbOK : vbCancel;
}

} // namespace

void MsgBox::setNextAnswer(int answer)
{
    state().answers.enqueue(answer);
}

void MsgBox::script(std::initializer_list<int> answers)
{
    for (int a : answers)
        setNextAnswer(a);
}

int MsgBox::pendingAnswers()
{
    return int(state().answers.size());
}

const QList<MsgBox::Shown>& MsgBox::shown()
{
    return state().shown;
}

void MsgBox::reset()
{
    state().answers.clear();
    state().shown.clear();
}

void MsgBox::setUnscriptedFatal(bool fatal)
{
    state().fatal = fatal;
}

bool MsgBox::unscriptedFatal()
{
    return state().fatal;
}

int MsgBox(const QString& text, int flags, const QString& title)
{
    Script& s = state();
    s.shown.append({text, flags, title});
    if (!s.answers.isEmpty())
        return s.answers.dequeue();
    if (s.fatal)
        qFatal("MsgBox without a scripted answer: \"%s\" (flags %d, title \"%s\")", qPrintable(text), flags,
               qPrintable(title));
    return showBox(text, flags, title);
}
