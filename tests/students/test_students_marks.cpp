// The student sheet's marks tab: points computed from the task marks and the
// weights beside the typed marks, each on a year built for the case.
#include "MarksTest.h"
#include "marks/frmEvaluarNota.h"
#include "marks/frmNotaFinal.h"
#include "support/ModalForm.h"

#include <QLineEdit>
#include <QPushButton>

using namespace marks_test;
using yearq::count;
using yearq::value;

namespace {

enum : int { EvEval = 1, EvMat, EvPtos, EvNota, EvIdEva, EvIdMat };
enum : int { FiMat = 1, FiPtos, FiNota, FiNFO, FiNFE };

} // namespace

class TestStudentsMarks : public QObject {
    Q_OBJECT

    SheetOnYear year_;

    // Examen and Deberes on a scale of 10, marked 6 and 8 for student 1 in
    // the first evaluation of Lengua.
    void twoTypes(double pesoExamen, double pesoDeberes)
    {
        tipo(1, QStringLiteral("Examen"), 10);
        tipo(2, QStringLiteral("Deberes"), 10);
        if (pesoExamen > 0)
            peso(1, 1, 1, pesoExamen);
        if (pesoDeberes > 0)
            peso(2, 1, 1, pesoDeberes);
        tarea(1, QStringLiteral("Examen tema 1"), 1, 1, 1);
        tarea(2, QStringLiteral("Deberes tema 1"), 2, 1, 1);
        nota(1, 1, QStringLiteral("6"), QStringLiteral("Repasar"));
        nota(2, 1, QStringLiteral("8"));
    }

    // A counting task of Examen with a mark in each evaluation given.
    void marksIn(std::initializer_list<int> evals, int mat = 1, const QString& mark = QStringLiteral("7"))
    {
        if (count(QStringLiteral("tblTareasTipos")) == 0)
            tipo(1, QStringLiteral("Examen"), 10);
        for (int eva : evals) {
            const int id = nextId("tblTareas");
            tarea(id, QStringLiteral("Tarea %1").arg(id), 1, eva, mat);
            nota(id, 1, mark);
        }
    }

private slots:
    void init()
    {
        year_.start();
        MsgBox::reset();
    }
    void cleanup() { year_.finish(); }

    // ---- the points

    void twoTypesWeighted30And70GivePoints740()
    {
        twoTypes(30, 70);
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->Rows(), 2);
        QCOMPARE(cells(*f.mshEval, 1, 1), QStringLiteral("1ª Evaluación | Lengua | 7,40 |  | 1 | 1"));
        QVERIFY(!red(*f.mshEval, 1, EvPtos));
        QCOMPARE(cells(*f.mshNotas, 1, 1), QStringLiteral("Deberes | 8,00 | 70 | 5,60 | 2"));
        QCOMPARE(cells(*f.mshNotas, 2, 1), QStringLiteral("Examen | 6,00 | 30 | 1,80 | 1"));
        QCOMPARE(cells(*f.mshNotasDetalle, 1, 1, 3), QStringLiteral("Deberes tema 1 | 8,00 | "));
        // The points are never stored: nothing was written.
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 0);
    }

    void aMissingWeightCountsNothingAndTheRedPointsComeWithoutAMessage()
    {
        twoTypes(30, 0);
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->TextMatrix(1, EvPtos), QStringLiteral("1,80"));
        QVERIFY(red(*f.mshEval, 1, EvPtos));
        QCOMPARE(cells(*f.mshNotas, 1, 1, 4), QStringLiteral("Deberes | 8,00 | 0 | 0,00"));
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(year_.errors().isEmpty());
    }

    void aTypeOnAScaleOf5DoublesItsMean()
    {
        tipo(1, QStringLiteral("Cuaderno"), 5);
        peso(1, 1, 1, 100);
        tarea(1, QStringLiteral("Cuaderno 1"), 1, 1, 1);
        tarea(2, QStringLiteral("Cuaderno 2"), 1, 1, 1);
        nota(1, 1, QStringLiteral("3"));
        nota(2, 1, QStringLiteral("5"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->TextMatrix(1, EvPtos), QStringLiteral("8,00"));
        QCOMPARE(cells(*f.mshNotas, 1, 1, 4), QStringLiteral("Cuaderno | 4,00 | 100 | 8,00"));
    }

    void aTaskThatDoesNotCountChangesNothingAndIsNotListed()
    {
        twoTypes(30, 70);
        tarea(3, QStringLiteral("Dictado"), 1, 1, 1, false);
        nota(3, 1, QStringLiteral("0"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->TextMatrix(1, EvPtos), QStringLiteral("7,40"));
        QCOMPARE(cells(*f.mshNotas, 2, 1, 2), QStringLiteral("Examen | 6,00"));
        f.mshNotas->setRow(2);
        QCOMPARE(f.mshNotasDetalle->Rows(), 2);
        QCOMPARE(cells(*f.mshNotasDetalle, 1, 1, 3), QStringLiteral("Examen tema 1 | 6,00 | Repasar"));
        // Its mark stays where it was.
        QCOMPARE(value(QStringLiteral("SELECT Nota FROM tblNotas WHERE IdTarea = 3")).toDouble(), 0.0);
    }

    void anEvaluationWithOnlyTasksThatDoNotCountHasNoRow()
    {
        twoTypes(30, 70);
        tarea(3, QStringLiteral("Dictado"), 1, 2, 1, false);
        nota(3, 1, QStringLiteral("9"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->Rows(), 2);
        QCOMPARE(f.mshEval->TextMatrix(1, EvEval), QStringLiteral("1ª Evaluación"));
    }

    void aStoredMarkOfFiveIsBlackAndOf499Red()
    {
        marksIn({1, 2});
        peso(1, 1, 1, 100);
        peso(1, 2, 1, 100);
        notaEval(1, 1, 1, QStringLiteral("5"));
        notaEval(2, 1, 1, QStringLiteral("4.99"));
        auto& f = year_.open(1);
        // The newest evaluation first.
        QCOMPARE(cells(*f.mshEval, 1, 1, 4), QStringLiteral("2ª Evaluación | Lengua | 7,00 | 4,99"));
        QCOMPARE(cells(*f.mshEval, 2, 1, 4), QStringLiteral("1ª Evaluación | Lengua | 7,00 | 5,00"));
        QVERIFY(red(*f.mshEval, 1, EvNota));
        QVERIFY(!red(*f.mshEval, 2, EvNota));
        QVERIFY(f.mshEval->CellFontBold(2, EvNota));
        QCOMPARE(f.mshEval->CellFontSize(2, EvNota), 12.0);
    }

    void aTypedMarkOf15IsStoredAndShownAsAnyOther()
    {
        marksIn({1});
        auto& f = year_.open(1);
        QString caption;
        float shown = 0;
        auto run = onModal<frmNotaFinal>([&](frmNotaFinal* d) {
            caption = d->Caption();
            shown = d->Nota();
            d->txtNota->setText(QStringLiteral("15"));
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshEval, 1, EvNota);
        QVERIFY(run->closedByItself());
        QCOMPARE(caption, QStringLiteral("NOTA FINAL DE Modificando SOUTO VIDAL IRIA"));
        QCOMPARE(shown, -1.0f);
        QCOMPARE(value(QStringLiteral("SELECT Nota FROM tblNotasEval WHERE IdEval = 1 AND IdMat = 1 AND IdAlu = 1"))
                     .toDouble(),
                 15.0);
        QCOMPARE(f.mshEval->TextMatrix(1, EvNota), QStringLiteral("15,00"));
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void enterOnAnEvaluationRowOpensItsMarkWithTheMarkShown()
    {
        marksIn({1});
        notaEval(1, 1, 1, QStringLiteral("6.5"));
        auto& f = year_.open(1);
        float shown = 0;
        QString tipo;
        auto run = onModal<frmNotaFinal>([&](frmNotaFinal* d) {
            shown = d->Nota();
            tipo = d->Tipo();
            d->close();
        });
        f.mshEval->setFocus();
        QTest::keyClick(f.mshEval, Qt::Key_Return);
        QVERIFY(run->opened);
        QCOMPARE(shown, 6.5f);
        QCOMPARE(tipo, QStringLiteral("Eval"));
    }

    void theEvaluationMarkDialogOpensOnlyOnTheMarksTab()
    {
        marksIn({1});
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabDatos);
        QVERIFY(!alumnos_test::opensAModal([&] { f.EditaNotaEval(); }));
    }

    void eliminarInTheDialogRemovesEveryEvaluationWhileBorrarEvalRemovesOne()
    {
        marksIn({1, 2, 3});
        notaEval(1, 1, 1, QStringLiteral("6"));
        notaEval(2, 1, 1, QStringLiteral("7"));
        notaEval(3, 1, 1, QStringLiteral("8"));
        notaEval(1, 2, 1, QStringLiteral("4"));
        auto& f = year_.open(1);
        // "Borrar Eval." on the row of the 3ª: that one goes.
        MsgBox::setNextAnswer(vbYes);
        click(f.cmdBorrarEval);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("¿Borrar la nota de Lengua de la 3ª Evaluación evaluación?"));
        QCOMPARE(MsgBox::shown().last().flags, vbYesNo + vbInformation);
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 3);
        QCOMPARE(f.mshEval->TextMatrix(1, EvNota), QString());
        QCOMPARE(f.mshEval->TextMatrix(2, EvNota), QStringLiteral("7,00"));
        // "&Eliminar" on the 2ª: every evaluation of Lengua goes, Matemáticas stays.
        f.mshEval->setRow(2);
        auto run = onModal<frmNotaFinal>([](frmNotaFinal* d) { click(d->cmdEliminar); });
        doubleClickCell(f.mshEval, 2, EvNota);
        QVERIFY(run->closedByItself());
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 1);
        QCOMPARE(value(QStringLiteral("SELECT IdMat FROM tblNotasEval")).toInt(), 2);
        QCOMPARE(f.mshEval->TextMatrix(2, EvNota), QString());
    }

    void borrarEvalOnAnEmptyMarkDoesNothingAndNoAnswerKeepsIt()
    {
        marksIn({1, 2});
        notaEval(1, 1, 1, QStringLiteral("6"));
        auto& f = year_.open(1);
        click(f.cmdBorrarEval); // row 1 is the 2ª, without a mark
        QVERIFY(MsgBox::shown().isEmpty());
        f.mshEval->setRow(2);
        MsgBox::setNextAnswer(vbNo);
        click(f.cmdBorrarEval);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 1);
    }

    // ---- the final marks

    void theMeanOfTheMarksCountsEveryEvaluationInView()
    {
        marksIn({1, 2, 3});
        for (int eva = 1; eva <= 3; ++eva)
            peso(1, eva, 1, 100);
        notaEval(1, 1, 1, QStringLiteral("8"));
        notaEval(2, 1, 1, QStringLiteral("6"));
        notaFinal(1, 1, QStringLiteral("7.5"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshFinal->Rows(), 2);
        QCOMPARE(cells(*f.mshFinal, 1, 1, 5), QStringLiteral("Lengua | 7 | 4,67 | 7,5 | "));
    }

    void theMeansRoundHalfToEven()
    {
        // 8 and 8,25 in two evaluations: both means are 8,125 exactly.
        tipo(1, QStringLiteral("Examen"), 10);
        for (int eva = 1; eva <= 2; ++eva) {
            peso(1, eva, 1, 100);
            tarea(eva, QStringLiteral("Examen"), 1, eva, 1);
        }
        nota(1, 1, QStringLiteral("8"));
        nota(2, 1, QStringLiteral("8.25"));
        notaEval(1, 1, 1, QStringLiteral("8"));
        notaEval(2, 1, 1, QStringLiteral("8.25"));
        auto& f = year_.open(1);
        QCOMPARE(cells(*f.mshEval, 1, EvPtos, EvNota), QStringLiteral("8,25 | 8,25"));
        QCOMPARE(cells(*f.mshFinal, 1, FiMat, FiNota), QStringLiteral("Lengua | 8,12 | 8,12"));
    }

    void nfeOnASubjectWithoutNfoOpensWithZeroAndAcceptingChangesNothing()
    {
        marksIn({1});
        notaEval(1, 1, 1, QStringLiteral("6"));
        auto& f = year_.open(1);
        QCOMPARE(cells(*f.mshFinal, 1, FiNFO, FiNFE), QStringLiteral(" | "));
        float shown = -5;
        QString tipo;
        QString texto;
        auto run = onModal<frmNotaFinal>([&](frmNotaFinal* d) {
            shown = d->Nota();
            tipo = d->Tipo();
            texto = d->txtNota->text();
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshFinal, 1, FiNFE);
        QVERIFY(run->closedByItself());
        QCOMPARE(tipo, QStringLiteral("FinalE"));
        QCOMPARE(shown, 0.0f);
        QCOMPARE(texto, QStringLiteral("0"));
        QCOMPARE(count(QStringLiteral("tblNotasFinal")), 0);
        QCOMPARE(cells(*f.mshFinal, 1, FiNFO, FiNFE), QStringLiteral(" | "));
    }

    void theGridNeverProposesAFinalMark()
    {
        marksIn({1, 2});
        peso(1, 1, 1, 100);
        notaEval(1, 1, 1, QStringLiteral("6"));
        auto& f = year_.open(1);
        QCOMPARE(cells(*f.mshFinal, 1, FiMat, FiNFE), QStringLiteral("Lengua | 3,5 | 3 |  | "));
        QString texto = QStringLiteral("?");
        float shown = 0;
        auto run = onModal<frmNotaFinal>([&](frmNotaFinal* d) {
            texto = d->txtNota->text();
            shown = d->Nota();
            d->close();
        });
        doubleClickCell(f.mshFinal, 1, FiNFO);
        QVERIFY(run->opened);
        QCOMPARE(shown, -1.0f);
        QCOMPARE(texto, QString());
        QCOMPARE(count(QStringLiteral("tblNotasFinal")), 0);
    }

    void aFinalMarkRefreshesEveryGridWhileAnEvaluationMarkLeavesTheFinalsStale()
    {
        marksIn({1});
        peso(1, 1, 1, 100);
        notaEval(1, 1, 1, QStringLiteral("6"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshFinal->TextMatrix(1, FiNota), QStringLiteral("6"));
        auto eval = onModal<frmNotaFinal>([](frmNotaFinal* d) {
            d->txtNota->setText(QStringLiteral("9"));
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshEval, 1, EvNota);
        QVERIFY(eval->closedByItself());
        QCOMPARE(f.mshEval->TextMatrix(1, EvNota), QStringLiteral("9,00"));
        QCOMPARE(f.mshFinal->TextMatrix(1, FiNota), QStringLiteral("6"));
        auto final = onModal<frmNotaFinal>([](frmNotaFinal* d) {
            d->txtNota->setText(QStringLiteral("8,5"));
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshFinal, 1, FiNFO);
        QVERIFY(final->closedByItself());
        QCOMPARE(cells(*f.mshFinal, 1, FiMat, FiNFE), QStringLiteral("Lengua | 7 | 9 | 8,5 | "));
        QCOMPARE(value(QStringLiteral("SELECT NotaO FROM tblNotasFinal WHERE IdMat = 1 AND IdAlu = 1")).toDouble(),
                 8.5);
    }

    void onlyTheFinalMarkColumnsOpenTheDialog()
    {
        marksIn({1});
        notaEval(1, 1, 1, QStringLiteral("6"));
        auto& f = year_.open(1);
        f.mshFinal->setRow(1);
        f.mshFinal->setCol(FiNota);
        QVERIFY(!alumnos_test::opensAModal([&] { f.EditaNotaFinal(); }));
    }

    // ---- the tasks below

    void aTaskMarkOpensItsDialogAndThePointsFollowAtOnce()
    {
        twoTypes(30, 70);
        auto& f = year_.open(1);
        f.mshNotas->setRow(2);
        QString des;
        qint32 idTarea = 0;
        qint32 idNota = 0;
        float shown = 0;
        quint8 estado = 0;
        auto run = onModal<frmEvaluarNota>([&](frmEvaluarNota* d) {
            des = d->DesTarea();
            idTarea = d->IdTarea();
            idNota = d->IdNota();
            shown = d->Nota();
            estado = d->Estado();
            d->txtNota->setText(QStringLiteral("10"));
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshNotasDetalle, 1, 1);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Souto Vidal Iria"));
        QCOMPARE(des, QStringLiteral("EXAMEN | Evaluación: 1ª Evaluación | Materia: Lengua | Grupo: 3º ESO B"));
        QCOMPARE(idTarea, 1);
        QCOMPARE(idNota, 1);
        QCOMPARE(shown, 6.0f);
        QCOMPARE(estado, quint8(1));
        // 0,3 × 10 + 0,7 × 8
        QCOMPARE(f.mshEval->TextMatrix(1, EvPtos), QStringLiteral("8,60"));
    }

    void aRowChangeShowsTheTypesAndTasksOfThatRow()
    {
        twoTypes(30, 70);
        tarea(3, QStringLiteral("Examen de fracciones"), 1, 1, 2);
        nota(3, 1, QStringLiteral("3"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->Rows(), 3);
        const int mates = f.mshEval->TextMatrix(1, EvMat) == QLatin1String("Matemáticas") ? 1 : 2;
        f.mshEval->setRow(mates);
        QCOMPARE(f.mshNotas->Rows(), 2);
        QCOMPARE(cells(*f.mshNotas, 1, 1, 3), QStringLiteral("Examen | 3,00 | 0"));
        QCOMPARE(f.mshNotasDetalle->TextMatrix(1, 1), QStringLiteral("Examen de fracciones"));
    }

    void theWeightsAreThoseOfTheGroupTheStudentIsInNow()
    {
        twoTypes(30, 70);
        peso(1, 1, 1, 100, 2);
        exec(QStringLiteral("UPDATE tblAlumnos SET Grupo = 2 WHERE Id = 1"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->TextMatrix(1, EvPtos), QStringLiteral("6,00"));
    }

    void consultModeHasNoButtonsButItsGridsOpenTheMarkDialogs()
    {
        marksIn({1});
        auto& f = year_.open(1, 2);
        QVERIFY(!f.fraBotones->isVisible());
        QCOMPARE(f.sstDatos->currentWidget(), f.tabNotas);
        auto eval = onModal<frmNotaFinal>([](frmNotaFinal* d) { d->close(); });
        doubleClickCell(f.mshEval, 1, EvNota);
        QVERIFY(eval->opened);
        auto task = onModal<frmEvaluarNota>([](frmEvaluarNota* d) { d->close(); });
        doubleClickCell(f.mshNotasDetalle, 1, 1);
        QVERIFY(task->opened);
    }

    void aStudentWithoutMarksKeepsTwoEmptyRows()
    {
        auto& f = year_.open(2);
        QCOMPARE(f.mshEval->Rows(), 2);
        QCOMPARE(cells(*f.mshEval, 0, 1, 4), QStringLiteral("Evaluación | Materia | Ptos. | NOTA"));
        QCOMPARE(cells(*f.mshEval, 1, 1), QStringLiteral(" |  |  |  |  | "));
        QCOMPARE(f.mshFinal->Rows(), 1);
        QVERIFY(!alumnos_test::opensAModal([&] { f.EditaNotaEval(); }));
    }

    // ---- what the run-time reports

    void aTypeWithMaxZeroRaisesTheDivisionError()
    {
        tipo(1, QStringLiteral("Roto"), 0);
        peso(1, 1, 1, 100);
        tarea(1, QStringLiteral("Tarea"), 1, 1, 1);
        nota(1, 1, QStringLiteral("5"));
        year_.open(1);
        QCOMPARE(year_.errors().size(), 1);
        QCOMPARE(year_.errors().first().Number(), 11);
        year_.errors().clear();
    }

    void aStoredMarkWithoutAnyEvaluationRowDividesZeroByZero()
    {
        marksIn({1});
        notaEval(1, 2, 1, QStringLiteral("5"));
        year_.open(1);
        QCOMPARE(year_.errors().size(), 1);
        QCOMPARE(year_.errors().first().Number(), 6);
        year_.errors().clear();
    }

    void aTypeWhoseMarksAreAllNullCannotBeShown()
    {
        tipo(1, QStringLiteral("Examen"), 10);
        tarea(1, QStringLiteral("Tarea"), 1, 1, 1);
        nota(1, 1, QStringLiteral("Null"));
        year_.open(1);
        QCOMPARE(year_.errors().size(), 1);
        QCOMPARE(year_.errors().first().Number(), 94);
        year_.errors().clear();
    }

    void twoEvaluationMarksOfOnePairShowNone()
    {
        marksIn({1});
        notaEval(1, 1, 1, QStringLiteral("6"));
        notaEval(1, 1, 1, QStringLiteral("7"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->TextMatrix(1, EvNota), QString());
    }
};

QTEST_MAIN(TestStudentsMarks)
#include "test_students_marks.moc"
