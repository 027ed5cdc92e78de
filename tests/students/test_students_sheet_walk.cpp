// The student sheet walking the list it was opened on: previous and next in
// the list's order and filter, a student chosen in the search dialog, the
// consultation without buttons, and the entry conventions of its fields.
#include "FichaTest.h"
#include "students/frmAtopar.h"
#include "ui/Colors.h"
#include "ui/Dialogs.h"

#include <QFrame>
#include <QTabWidget>

using namespace alumnos_test;
using yearq::count;
using yearq::value;

class TestStudentsSheetWalk : public QObject, protected SheetFixture {
    Q_OBJECT

private slots:
    void init() { openYear(); }
    void cleanup() { closeYear(); }

    // ---- previous, next and search

    void previousOnTheFirstRecordLeavesTheSheetAsItIs()
    {
        auto f = ficha(1, 7, lista(QString(), 1));
        f->setCaption(QStringLiteral("Modificando CASTRO FERREÑO MARÍA"));
        f->txtDir->setText(QStringLiteral("Sen gardar"));
        click(f->cmdAnterior);
        QCOMPARE(f->txtDir->text(), QStringLiteral("Sen gardar"));
        QCOMPARE(f->Caption(), QStringLiteral("Modificando CASTRO FERREÑO MARÍA"));
        QCOMPARE(f->Id(), 7);
        QCOMPARE(list_->recordset().AbsolutePosition(), 1);
    }

    void nextWalksTheListInItsOrderAndDropsWhatWasNotSaved()
    {
        auto f = ficha(1, 7, lista(QString(), 1));
        f->txtDir->setText(QStringLiteral("Sen gardar"));
        click(f->cmdSeguinte);
        QCOMPARE(f->Id(), 2);
        QCOMPARE(f->Caption(), QStringLiteral("FERNÁNDEZ NÚÑEZ BRAIS"));
        QCOMPARE(f->txtDir->text(), QStringLiteral("Avenida de Lugo 3"));
        QCOMPARE(columna(QStringLiteral("Dir"), 7), QStringLiteral("Rúa da Raíña 9"));
        click(f->cmdSeguinte);
        QCOMPARE(f->Id(), 1);
        click(f->cmdAnterior);
        QCOMPARE(f->Id(), 2);
        QCOMPARE(f->Estado(), quint8(1));
        // The name loaded by the move is the one the duplicate check keeps.
        click(f->cmdAceptar);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void nextOnTheLastRecordStays()
    {
        auto f = ficha(1, 6, lista(QString(), 8));
        f->txtDir->setText(QStringLiteral("Sen gardar"));
        click(f->cmdSeguinte);
        QCOMPARE(f->Id(), 6);
        QCOMPARE(f->txtDir->text(), QStringLiteral("Sen gardar"));
        QCOMPARE(list_->recordset().AbsolutePosition(), 8);
    }

    void navigationFollowsTheFilterOfTheList()
    {
        auto f = ficha(1, 7, lista(QStringLiteral("Castro"), 1));
        click(f->cmdSeguinte);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Pérez Castro"));
        click(f->cmdSeguinte);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Pérez Castro"));
        click(f->cmdAnterior);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Castro Ferreño"));
    }

    void searchLoadsTheChosenStudent()
    {
        auto f = ficha(1, 7, lista(QString(), 1));
        auto run = onModal<frmAtopar>([](frmAtopar* a) {
            a->mshDatos->setRow(6); // Rodríguez Iglesias
            pressEnter(a->mshDatos);
        });
        click(f->cmdBuscar);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Buscar Alumno"));
        QCOMPARE(f->Id(), 4);
        QCOMPARE(f->Estado(), quint8(1));
        QCOMPARE(f->txtNom->text(), QStringLiteral("Íñigo"));
        QCOMPARE(f->cmbGrupo->currentText(), QStringLiteral("1º ESO B"));
        QCOMPARE(f->Caption(), QStringLiteral("RODRÍGUEZ IGLESIAS ÍÑIGO"));
        QVERIFY(!CodigoAtopado.isValid());
        QCOMPARE(f->Tag, QString());
        QCOMPARE(list_->recordset().AbsolutePosition(), 6);
        // From there the list walks on.
        click(f->cmdSeguinte);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Souto Peña"));
    }

    void searchOutsideTheFilterLeavesTheListAtItsEndAndStillLoads()
    {
        auto f = ficha(1, 7, lista(QStringLiteral("Castro"), 1));
        auto run = onModal<frmAtopar>([](frmAtopar* a) {
            a->txtBuscar->setText(QStringLiteral("Souto"));
            pressEnter(a->txtBuscar);
            pressEnter(a->mshDatos);
        });
        click(f->cmdBuscar);
        QVERIFY(run->closedByItself());
        QCOMPARE(f->Id(), 8);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Souto Peña"));
        QVERIFY(list_->recordset().Eof());
        f->txtDir->setText(QStringLiteral("Rúa do Porto 4"));
        click(f->cmdAceptar);
        QCOMPARE(columna(QStringLiteral("Dir"), 8), QStringLiteral("Rúa do Porto 4"));
    }

    void closingTheSearchLeavesTheSheetOnTheSameStudent()
    {
        auto f = ficha(1, 7, lista(QString(), 1));
        f->setCaption(QStringLiteral("Modificando CASTRO FERREÑO MARÍA"));
        f->txtDir->setText(QStringLiteral("Sen gardar"));
        auto run = onModal<frmAtopar>([](frmAtopar* a) { a->close(); });
        click(f->cmdBuscar);
        QVERIFY(run->closedByItself());
        QCOMPARE(f->Id(), 7);
        QCOMPARE(f->txtDir->text(), QStringLiteral("Sen gardar"));
        QCOMPARE(f->Caption(), QStringLiteral("Modificando CASTRO FERREÑO MARÍA"));
        QCOMPARE(gAtopar, QStringLiteral("0"));
        QCOMPARE(f->Tag, QString());
    }

    void aNewStudentSheetHasNoListToWalk()
    {
        auto f = nova();
        click(f->cmdSeguinte);
        QCOMPARE(year_.harness.errors.size(), 1);
        QCOMPARE(year_.harness.errors.first().Number(), 91);
        year_.harness.errors.clear();
    }

    void consultModeShowsTheMarksTabWithoutTheButtonStrip()
    {
        auto f = ficha(2, 5, lista(QString(), 1));
        QVERIFY(!f->fraBotones->isVisible());
        QCOMPARE(f->sstDatos->currentIndex(), 1);
        QCOMPARE(f->txtApe->text(), QStringLiteral("Martínez Otero"));
        QCOMPARE(list_->recordset().Value(QStringLiteral("Id")).toInt(), 5);
        // Escape has no button to press.
        QTest::keyClick(f.get(), Qt::Key_Escape);
        QVERIFY(f->isVisible());
    }

    // ---- entry conventions

    void enterMovesToTheNextFieldAndTheFocusedFieldTakesTheColour()
    {
        auto f = nova();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.get()));
        f->txtApe->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(f->txtApe), kStripe);
        pressEnter(f->txtApe);
        QCOMPARE(f->focusWidget(), f->txtNom);
        QCOMPARE(ui::backColor(f->txtApe), ui::white());
        pressEnter(f->txtNom);
        QCOMPARE(f->focusWidget(), f->mskFecNac);
    }

    void datesTakeTheirMaskOnlyWhileFocused()
    {
        auto f = nova();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.get()));
        f->mskFecNac->setFocus(Qt::TabFocusReason);
        QCOMPARE(f->mskFecNac->Mask(), QStringLiteral("##/##/####"));
        QCOMPARE(f->mskFecNac->Text(), QStringLiteral("__/__/____"));
        f->txtDir->setFocus(Qt::TabFocusReason);
        QCOMPARE(f->mskFecNac->Mask(), QString());
        QCOMPARE(f->mskFecNac->Text(), QString());
    }
};

QTEST_MAIN(TestStudentsSheetWalk)
#include "test_students_sheet_walk.moc"
