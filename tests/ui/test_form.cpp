// The base form: activation on show and after a modal child, the Tag "A"
// rule of list screens, Escape, and the busy pointer.
#include "support/ModalDriver.h"
#include "ui/Form.h"
#include "ui/RuntimeErrorBox.h"

#include <QPushButton>
#include <QtTest>

namespace {

// A list screen as the screens write it: refill on activation unless Tag is "A".
class ListForm : public Form {
public:
    using Form::Form;
    int fills = 0;
    bool throwOnActivate = false;

protected:
    void Form_Activate() override
    {
        if (throwOnActivate)
            throw RuntimeError(3021, QStringLiteral("No hay registro actual"));
        if (consumeTagA())
            return;
        ++fills;
    }
};

} // namespace

class TestForm : public QObject {
    Q_OBJECT

    QList<int> errors_;

private slots:
    void init()
    {
        errors_.clear();
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { errors_.append(e.Number()); });
    }
    void cleanup() { ui::setRuntimeErrorHandler({}); }

    void showingTheFormActivatesIt()
    {
        ListForm list;
        list.show();
        QCOMPARE(list.fills, 1);
        QCOMPARE(list.activations(), 1);
    }

    void closingAModalChildActivatesTheParentAgain()
    {
        ListForm list;
        list.show();
        Form child(&list);
        ModalDriver::closeNext();
        list.ShowModal(&child);
        QVERIFY(!ModalDriver::takeTimedOut());
        QCOMPARE(list.activations(), 2);
        QCOMPARE(list.fills, 2);
    }

    void tagASkipsTheRefillAndClearsTheTag()
    {
        ListForm list;
        list.show();
        list.Tag = QStringLiteral("A");
        Form child(&list);
        ModalDriver::closeNext();
        list.ShowModal(&child);
        QCOMPARE(list.activations(), 2);
        QCOMPARE(list.fills, 1);
        QCOMPARE(list.Tag, QString());
        // The next return refills again.
        Form second(&list);
        ModalDriver::closeNext();
        list.ShowModal(&second);
        QCOMPARE(list.fills, 2);
    }

    void consumeTagAOnlyTakesTheTagA()
    {
        Form form;
        form.Tag = QStringLiteral("B");
        QVERIFY(!form.consumeTagA());
        QCOMPARE(form.Tag, QStringLiteral("B"));
        form.Tag = QStringLiteral("A");
        QVERIFY(form.consumeTagA());
        QVERIFY(form.Tag.isEmpty());
    }

    void aModalChildIsActivatedWhenItShows()
    {
        ListForm list;
        list.show();
        ListForm child(&list);
        ModalDriver::closeNext();
        list.ShowModal(&child);
        QCOMPARE(child.fills, 1);
    }

    void showModalReturnsTheDialogsResult()
    {
        Form list;
        list.show();
        Form child(&list);
        ModalDriver::whenModal([](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
        QCOMPARE(list.ShowModal(&child), int(QDialog::Rejected));
        ModalDriver::whenModal([](QWidget* w) { static_cast<QDialog*>(w)->accept(); });
        QCOMPARE(list.ShowModal(&child), int(QDialog::Accepted));
    }

    void aChildThatDeletesItselfOnCloseIsNotTouchedAfter()
    {
        ListForm list;
        list.show();
        auto* child = new Form(&list);
        child->setAttribute(Qt::WA_DeleteOnClose);
        QPointer<Form> watch(child);
        ModalDriver::whenModal([](QWidget* w) { w->close(); });
        list.ShowModal(child);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(watch.isNull());
        QCOMPARE(list.fills, 2);
    }

    void runtimeErrorInActivationGoesToTheHandler()
    {
        ListForm list;
        list.throwOnActivate = true;
        list.show();
        QCOMPARE(errors_, QList<int>{3021});
    }

    void escapeDoesNothingWithoutACancelButton()
    {
        Form form;
        form.show();
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isVisible());
    }

    void escapePressesTheCancelButton()
    {
        Form form;
        auto* cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), &form);
        int clicks = 0;
        connect(cmdCancelar, &QPushButton::clicked, &form, [&] {
            ++clicks;
            form.Unload();
        });
        form.setCancelButton(cmdCancelar);
        form.show();
        QTest::keyClick(&form, Qt::Key_Escape);
        QCOMPARE(clicks, 1);
        QVERIFY(!form.isVisible());
    }

    void busyCursorCoversTheFormWhileItLives()
    {
        Form form;
        form.show();
        {
            BusyCursor busy(&form);
            QCOMPARE(form.cursor().shape(), Qt::WaitCursor);
        }
        QCOMPARE(form.cursor().shape(), Qt::ArrowCursor);
    }

    void busyCursorWithoutAFormCoversTheProgram()
    {
        {
            BusyCursor busy;
            QVERIFY(QApplication::overrideCursor());
            QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        QVERIFY(!QApplication::overrideCursor());
    }
};

QTEST_MAIN(TestForm)
#include "test_form.moc"
