// The conventions of entry fields: focus colour and selection, white on
// leaving, Enter to the next field, the decimal comma, the search box.
#include "core/Modulo.h"
#include "support/ModalDriver.h"
#include "ui/Colors.h"
#include "ui/EntryConventions.h"
#include "ui/Form.h"
#include "ui/MsgBox.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtTest>

namespace {

const QColor kFocus(192, 192, 192);

struct EntryForm {
    Form form;
    QLineEdit* txtNom = new QLineEdit(&form);
    QLineEdit* txtNota = new QLineEdit(&form);
    QTextEdit* txtObs = new QTextEdit(&form);
    QComboBox* cmbGrupo = new QComboBox(&form);
    QLineEdit* txtUltimo = new QLineEdit(&form);
    QPushButton* cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), &form);
    int accepted = 0;

    EntryForm()
    {
        auto* layout = new QVBoxLayout(&form);
        for (QWidget* w : std::initializer_list<QWidget*>{txtNom, txtNota, txtObs, cmbGrupo, txtUltimo, cmdAceptar})
            layout->addWidget(w);
        cmbGrupo->setEditable(true);
        cmdAceptar->setDefault(true);
        QObject::connect(cmdAceptar, &QPushButton::clicked, [this] { ++accepted; });
        ui::installEntryConventions(&form);
        ui::installDecimalComma(txtNota);
    }

    bool show()
    {
        form.show();
        form.activateWindow();
        return QTest::qWaitForWindowActive(&form);
    }
};

} // namespace

class TestEntryConventions : public QObject {
    Q_OBJECT

private slots:
    void init() { gColor = QStringLiteral(" 12632256 "); }

    void focusedFieldTakesGColorAndSelectsItsText()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNota->setText(QStringLiteral("7,5"));
        f.txtNom->setFocus(Qt::TabFocusReason);
        f.txtNom->setText(QStringLiteral("Ana"));
        f.txtNota->setFocus(Qt::MouseFocusReason);
        QCOMPARE(ui::backColor(f.txtNota), kFocus);
        QCOMPARE(f.txtNota->selectedText(), QStringLiteral("7,5"));
    }

    void firstFieldOfAShownFormIsEntered()
    {
        EntryForm f;
        QVERIFY(f.show());
        QVERIFY(f.txtNom->hasFocus());
        QCOMPARE(ui::backColor(f.txtNom), kFocus);
    }

    void aMessageBoxOverTheFieldLeavesItEntered()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNota->setFocus(Qt::TabFocusReason);
        f.txtNota->setText(QStringLiteral("abc"));
        f.txtNota->setSelection(0, 1);
        ModalDriver::clickButton(QStringLiteral("Aceptar"));
        MsgBox(QStringLiteral("Ponga un nº correcto"), vbInformation);
        QVERIFY(!ModalDriver::takeTimedOut());
        QCOMPARE(ui::backColor(f.txtNota), kFocus);
        QCOMPARE(f.txtNota->selectedText(), QStringLiteral("a")); // not entered anew
    }

    void leavingTheFieldMakesItWhite()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f.txtNom), kFocus);
        f.txtNota->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f.txtNom), QColor(Qt::white));
        QCOMPARE(ui::backColor(f.txtNota), kFocus);
    }

    void emptyGColorGivesABlackFocus()
    {
        gColor = QVariant();
        EntryForm f;
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f.txtNom), QColor(Qt::black));
    }

    void enterMovesFocusToTheNextFieldAndNoDefaultButtonTakesIt()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QTest::keyClick(f.txtNom, Qt::Key_Return);
        QVERIFY(f.txtNota->hasFocus());
        QTest::keyClick(f.txtNota, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(f.txtObs->hasFocus());
        QCOMPARE(f.accepted, 0);
        QVERIFY(f.form.isVisible());
    }

    void enterInAMultiLineFieldMovesOnAndStillReachesIt()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtObs->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(f.txtObs, QStringLiteral("hola"));
        QTest::keyClick(f.txtObs, Qt::Key_Return);
        QVERIFY(f.cmbGrupo->hasFocus());
        QCOMPARE(f.txtObs->toPlainText(), QStringLiteral("hola\n"));
    }

    void editableComboTakesTheConventions()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.cmbGrupo->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f.cmbGrupo), kFocus);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(f.txtUltimo->hasFocus());
        QCOMPARE(f.cmbGrupo->count(), 0); // Enter added no item
        QCOMPARE(ui::backColor(f.cmbGrupo), QColor(Qt::white));
    }

    void pointIsTypedAsCommaInMarkFields()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNota->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(f.txtNota, QStringLiteral("7.5"));
        QCOMPARE(f.txtNota->text(), QStringLiteral("7,5"));
        f.txtNom->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(f.txtNom, QStringLiteral("a.b"));
        QCOMPARE(f.txtNom->text(), QStringLiteral("a.b"));
    }

    void windowActivationIsNotAFieldChange()
    {
        EntryForm f;
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(f.txtNom, &out);
        QCOMPARE(ui::backColor(f.txtNom), kFocus);
    }

    void focusNextFieldFollowsTheTabOrder()
    {
        EntryForm f;
        QVERIFY(f.show());
        QWidget::setTabOrder(f.txtNom, f.txtUltimo);
        f.txtNom->setFocus(Qt::TabFocusReason);
        ui::focusNextField(f.txtNom);
        QVERIFY(f.txtUltimo->hasFocus());
    }

    void aCheckThatSendsTheFocusBackRunsNoCheckOfTheFieldItWasGoingTo()
    {
        EntryForm f;
        QStringList left;
        ui::onFieldLeft(f.txtNom, [&] {
            left << QStringLiteral("txtNom");
            f.txtNom->setFocus();
        });
        ui::onFieldLeft(f.txtNota, [&] {
            left << QStringLiteral("txtNota");
            f.txtNota->setFocus();
        });
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QTest::keyClick(f.txtNom, Qt::Key_Tab);
        // txtNota never had the focus: only txtNom was left, once.
        QCOMPARE(left, QStringList{QStringLiteral("txtNom")});
        QVERIFY(f.txtNom->hasFocus());
        QCOMPARE(ui::backColor(f.txtNota), QColor(Qt::white));
    }

    void aMultiLineFieldKeptForTextTakesEnterAsALineBreakAndStays()
    {
        Form form;
        auto* des = new QPlainTextEdit(&form);
        auto* next = new QLineEdit(&form);
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(des);
        layout->addWidget(next);
        ui::keepEnterAsText(des);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        des->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(des), kFocus);
        QTest::keyClicks(des, QStringLiteral("a"));
        QTest::keyClick(des, Qt::Key_Return);
        QTest::keyClicks(des, QStringLiteral("b"));
        QCOMPARE(des->toPlainText(), QStringLiteral("a\nb"));
        QVERIFY(des->hasFocus());
        QTest::keyClick(des, Qt::Key_Tab);
        QVERIFY(next->hasFocus());
    }

    void searchFieldRunsItsSearchOnEnterAndKeepsTheFocus()
    {
        EntryForm f;
        int searches = 0;
        ui::installSearchField(f.txtNom, [&] { ++searches; });
        QVERIFY(f.show());
        f.txtNom->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f.txtNom), kFocus);
        QTest::keyClicks(f.txtNom, QStringLiteral("Castro"));
        QCOMPARE(f.txtNom->text(), QStringLiteral("Castro"));
        QTest::keyClick(f.txtNom, Qt::Key_Return);
        QCOMPARE(searches, 1);
        QVERIFY(f.txtNom->hasFocus());
        QCOMPARE(f.accepted, 0);
        // The other fields keep moving on.
        f.txtNota->setFocus(Qt::TabFocusReason);
        QTest::keyClick(f.txtNota, Qt::Key_Return);
        QCOMPARE(searches, 1);
        QVERIFY(f.txtObs->hasFocus());
        QCOMPARE(ui::backColor(f.txtNom), QColor(Qt::white));
    }
};

QTEST_MAIN(TestEntryConventions)
#include "test_entry_conventions.moc"
