// The mouse wheel over the grid of a list screen: one line per notch, up or
// down by the sign, whatever the size of the turn; a screen opened again gets
// a grid of its own that scrolls the same, and the old one is gone.
#include "core/Modulo.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmTareasTipos.h"
#include "support/SessionYear.h"
#include "support/Wheel.h"
#include "ui/FlexGrid.h"
#include "ui/MsgBox.h"

#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest>

namespace {

// One notch each way, a big turn, and the ends of the list.
void checkOneLinePerNotch(FlexGrid* grid)
{
    QCOMPARE(grid->TopRow(), 1);
    wheel(grid->viewport(), 120);
    QCOMPARE(grid->TopRow(), 1); // nothing above the first row
    wheel(grid->viewport(), -120);
    QCOMPARE(grid->TopRow(), 2);
    wheel(grid->viewport(), -120);
    QCOMPARE(grid->TopRow(), 3);
    wheel(grid->viewport(), 120);
    QCOMPARE(grid->TopRow(), 2);
    wheel(grid->viewport(), -480); // a fast turn in one message
    QCOMPARE(grid->TopRow(), 3);
    wheel(grid->viewport(), -15); // a fine-grained wheel's small step
    QCOMPARE(grid->TopRow(), 4);
    wheel(grid->viewport(), 480);
    QCOMPARE(grid->TopRow(), 3);
    // At the end of the list the scroll position counts the lines (the top
    // row may stand there half in view).
    QScrollBar* bar = grid->verticalScrollBar();
    bar->setValue(bar->maximum());
    wheel(grid->viewport(), -120);
    QCOMPARE(bar->value(), bar->maximum()); // nothing below the last row
    wheel(grid->viewport(), 120);
    QCOMPARE(bar->value(), bar->maximum() - 1);
    wheel(grid->viewport(), 360);
    QCOMPARE(bar->value(), bar->maximum() - 2);
}

} // namespace

class TestGridWheel : public QObject {
    Q_OBJECT

    SessionYear session_;

private slots:
    void init()
    {
        session_.start(TempYear::Fill::Empty);
        gConexion->ExecuteNative(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 80) "
                           "INSERT INTO tblTareasTipos (Id, Des, Min, Max) SELECT i, 'Tipo ' || i, 0, 10 FROM n;"
                           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 80) "
                           "INSERT INTO tblEvaluaciones (Id, Des) SELECT i, 'Evaluación ' || i FROM n;"));
        MsgBox::reset();
        MsgBox::setUnscriptedFatal(true);
    }

    void cleanup()
    {
        MsgBox::reset();
        session_.finish();
    }

    void theTaskTypesGridScrollsOneLinePerNotch()
    {
        frmTareasTipos form;
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QCOMPARE(form.mshDatos->Rows(), 81);
        checkOneLinePerNotch(form.mshDatos);
    }

    void aCatalogueListScrollsOneLinePerNotch()
    {
        frmEvaluaciones list;
        list.resize(700, 400);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        checkOneLinePerNotch(list.mshDatos);
    }

    void aScreenOpenedAgainScrollsItsOwnNewGrid()
    {
        QPointer<FlexGrid> first;
        {
            frmTareasTipos form;
            form.show();
            QVERIFY(QTest::qWaitForWindowExposed(&form));
            first = form.mshDatos;
            wheel(form.mshDatos->viewport(), -120);
            QCOMPARE(form.mshDatos->TopRow(), 2);
        }
        QVERIFY(first.isNull());
        frmTareasTipos again;
        again.show();
        QVERIFY(QTest::qWaitForWindowExposed(&again));
        checkOneLinePerNotch(again.mshDatos);
    }
};

QTEST_MAIN(TestGridWheel)
#include "test_grid_wheel.moc"
