// The dialog of the evaluation and final marks on the sample year, driven
// through its properties as the student sheet does: the insert and the
// update of each kind, the three deletes with their asymmetries, and the
// extraordinary mark that only ever joins the ordinary one's row.
#include "core/Modulo.h"
#include "marks/frmNotaFinal.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using yearq::count;

class TestFinalMarks : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

    // Rows of a query as SQLite holds them, Null spelled out.
    QStringList rows(const QString& sql) { return yearq::native(seeded_.path(), sql); }
    QStringList evaluationMarks(int alumno, int materia)
    {
        return rows(QStringLiteral("SELECT IdEval || ':' || IFNULL(Nota, 'Null') || ':' || IFNULL(Obs, 'Null') FROM "
                                   "tblNotasEval WHERE IdAlu = %1 AND IdMat = %2 ORDER BY IdEval")
                        .arg(alumno)
                        .arg(materia));
    }
    QStringList finalMark(int alumno, int materia)
    {
        return rows(QStringLiteral("SELECT IFNULL(NotaO, 'Null') || ':' || IFNULL(NotaE, 'Null') || ':' || IFNULL(Obs, "
                                   "'Null') FROM tblNotasFinal WHERE IdAlu = %1 AND IdMat = %2")
                        .arg(alumno)
                        .arg(materia));
    }

    void open(frmNotaFinal& d, const QString& tipo, int eval, int materia, int alumno, float nota)
    {
        d.setTipo(tipo);
        d.setIdEval(eval);
        d.setIdMat(materia);
        d.setIdAlu(alumno);
        d.setNota(nota);
        d.setCaption(QStringLiteral("NOTA FINAL DE Consultando GARCÍA LÓPEZ ANA"));
        d.show();
        QVERIFY(QTest::qWaitForWindowActive(&d));
    }

    void retype(frmNotaFinal& d, const QString& text)
    {
        d.txtNota->clear();
        QTest::keyClicks(d.txtNota, text);
    }

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void aFirstEvaluationMarkInsertsASecondOneUpdatesIt()
    {
        frmNotaFinal first;
        open(first, QStringLiteral("Eval"), 1, 2, 1, -1);
        QCOMPARE(first.txtNota->text(), QString());
        QCOMPARE(first.focusWidget(), first.txtNota);
        QTest::keyClicks(first.txtNota, QStringLiteral("6.5"));
        first.txtObs->setText(QStringLiteral("Primera"));
        click(first.cmdAceptar);
        QVERIFY(!first.isVisible());
        QCOMPARE(rows(QStringLiteral("SELECT Id || ':' || IdEval || ':' || Nota FROM tblNotasEval WHERE IdMat = 2 AND "
                                     "IdAlu = 1")),
                 QStringList{QStringLiteral("9:1:6.5")});

        frmNotaFinal second;
        open(second, QStringLiteral("Eval"), 1, 2, 1, 6.5f);
        QCOMPARE(second.txtNota->text(), QStringLiteral("6,5"));
        QCOMPARE(second.txtObs->text(), QStringLiteral("Primera"));
        retype(second, QStringLiteral("7"));
        click(second.cmdAceptar);
        QCOMPARE(evaluationMarks(1, 2), QStringList{QStringLiteral("1:7.0:Primera")});
        QCOMPARE(evaluationMarks(1, 1), (QStringList{"1:7.0:Bien", "2:8.5:Null"}));
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 9);
    }

    void eliminarOnOneEvaluationRemovesTheSubjectInEveryEvaluation()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("Eval"), 1, 1, 1, 7);
        QCOMPARE(d.txtObs->text(), QStringLiteral("Bien"));
        QCOMPARE(d.cmdEliminar->text(), QStringLiteral("&Eliminar"));
        click(d.cmdEliminar);
        QVERIFY(!d.isVisible());
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(evaluationMarks(1, 1), QStringList()); // the 2ª evaluation went too
        QCOMPARE(evaluationMarks(2, 1).size(), 1);      // other students stay
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 6);
    }

    void eliminarOnTheOrdinaryMarkRemovesTheExtraordinaryOneAsWell()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalO"), 0, 1, 2, 4);
        QCOMPARE(d.txtObs->text(), QStringLiteral("Aprueba en septiembre"));
        click(d.cmdEliminar);
        QCOMPARE(finalMark(2, 1), QStringList());
        QCOMPARE(count(QStringLiteral("tblNotasFinal")), 5);
    }

    void eliminarOnTheExtraordinaryMarkClearsItAlone()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalE"), 0, 1, 2, 5.5f);
        click(d.cmdEliminar);
        QCOMPARE(finalMark(2, 1), QStringList{QStringLiteral("4.0:Null:Aprueba en septiembre")});
    }

    void aMarkOf12OnAnEvaluationIsAccepted()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("Eval"), 3, 1, 1, -1);
        QTest::keyClicks(d.txtNota, QStringLiteral("12"));
        QTest::keyClick(d.txtNota, Qt::Key_Tab);
        QVERIFY(MsgBox::shown().isEmpty());
        click(d.cmdAceptar);
        QCOMPARE(evaluationMarks(1, 1).last(), QStringLiteral("3:12.0:"));
    }

    void aCommaOrAPointBothEndUpAsAPointInTheStatement()
    {
        frmNotaFinal typed;
        open(typed, QStringLiteral("FinalO"), 0, 3, 7, -1);
        QTest::keyClicks(typed.txtNota, QStringLiteral("6.25"));
        QCOMPARE(typed.txtNota->text(), QStringLiteral("6,25"));
        QCOMPARE(typed.sqlGuardar(),
                 QStringLiteral("INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, Obs) VALUES(7, 3, 7, 6.25, '')"));
        typed.txtNota->setText(QStringLiteral("6.25")); // pasted with a point
        QVERIFY(typed.sqlGuardar().contains(QStringLiteral(", 6.25, ''")));

        frmNotaFinal update;
        open(update, QStringLiteral("FinalO"), 0, 1, 1, 8);
        retype(update, QStringLiteral("6.25"));
        QCOMPARE(update.sqlGuardar(), QStringLiteral("UPDATE tblNotasFinal SET tblNotasFinal.NotaO = 6.25, "
                                                     "tblNotasFinal.Obs = 'Promociona' WHERE tblNotasFinal.IdMat=1 AND "
                                                     "tblNotasFinal.IdAlu = 1"));
    }

    void anInsertCarriesTheDigitsAndAnUpdateGoesThroughSingleBothStoredAsSingle()
    {
        frmNotaFinal nueva;
        open(nueva, QStringLiteral("Eval"), 2, 2, 4, -1);
        QTest::keyClicks(nueva.txtNota, QStringLiteral("5,123456789"));
        QVERIFY(nueva.sqlGuardar().contains(QStringLiteral(", 5.123456789, ''")));
        click(nueva.cmdAceptar);
        // The column is a Single: what is stored is the nearest one.
        QCOMPARE(evaluationMarks(4, 2).last(), QStringLiteral("2:5.12345695495605:"));

        frmNotaFinal cambio;
        open(cambio, QStringLiteral("Eval"), 2, 2, 4, 5.123457f);
        retype(cambio, QStringLiteral("5,123456789"));
        QVERIFY(cambio.sqlGuardar().contains(QStringLiteral("Nota = 5.123457,")));
        click(cambio.cmdAceptar);
        QCOMPARE(evaluationMarks(4, 2).last(), QStringLiteral("2:5.12345695495605:"));
    }

    void cancelWritesNothing()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalO"), 0, 1, 1, 8);
        retype(d, QStringLiteral("3"));
        click(d.cmdCancelar);
        QVERIFY(!d.isVisible());
        QCOMPARE(finalMark(1, 1), QStringList{QStringLiteral("8.0:Null:Promociona")});
    }

    void theExtraordinaryMarkOfASubjectWithoutAnOrdinaryOneStoresNothingAndSaysNothing()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalE"), 0, 1, 4, 0); // Íñigo has no final mark in Lengua
        QCOMPARE(d.txtNota->text(), QStringLiteral("0"));
        retype(d, QStringLiteral("7"));
        click(d.cmdAceptar);
        QVERIFY(!d.isVisible());
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(seeded_.harness.errors.isEmpty());
        QCOMPARE(finalMark(4, 1), QStringList());
        QCOMPARE(count(QStringLiteral("tblNotasFinal")), 6);
    }

    void anEmptyExtraordinaryCellOpensWithZeroAndTheRemarkOfTheRow()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalE"), 0, 1, 1, 0);
        QCOMPARE(d.txtNota->text(), QStringLiteral("0"));
        QCOMPARE(d.txtObs->text(), QStringLiteral("Promociona"));
        retype(d, QStringLiteral("9"));
        click(d.cmdAceptar);
        QCOMPARE(finalMark(1, 1), QStringList{QStringLiteral("8.0:9.0:Promociona")});
    }

    void theOrdinaryMarkMakesTheRowTheExtraordinaryOneJoins()
    {
        frmNotaFinal ordinaria;
        open(ordinaria, QStringLiteral("FinalO"), 0, 1, 4, -1);
        QTest::keyClicks(ordinaria.txtNota, QStringLiteral("4"));
        ordinaria.txtObs->setText(QStringLiteral("Pendiente"));
        click(ordinaria.cmdAceptar);
        frmNotaFinal extraordinaria;
        open(extraordinaria, QStringLiteral("FinalE"), 0, 1, 4, 0);
        QCOMPARE(extraordinaria.txtObs->text(), QStringLiteral("Pendiente"));
        retype(extraordinaria, QStringLiteral("6"));
        click(extraordinaria.cmdAceptar);
        QCOMPARE(finalMark(4, 1), QStringList{QStringLiteral("4.0:6.0:Pendiente")});
    }

    void aStoredMarkWithoutItsRowShowsNoRemark()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("Eval"), 2, 3, 6, 5);
        QCOMPARE(d.txtNota->text(), QStringLiteral("5"));
        QCOMPARE(d.txtObs->text(), QString());
    }

    void leavingTheMarkWithoutANumberAsksAndComesBack()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("Eval"), 1, 1, 1, 7);
        MsgBox::setNextAnswer(vbOK);
        retype(d, QStringLiteral("notable"));
        QTest::keyClick(d.txtNota, Qt::Key_Return);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Ponga un nº correcto"));
        QCOMPARE(QApplication::focusWidget(), d.txtNota);
    }

    void theExtraordinaryMarkWithMinusOneFormsNoStatementAndFails()
    {
        frmNotaFinal d;
        open(d, QStringLiteral("FinalE"), 0, 1, 1, -1);
        QCOMPARE(d.sqlGuardar(), QString());
        QTest::keyClicks(d.txtNota, QStringLiteral("5"));
        click(d.cmdAceptar); // the connection refuses the empty text
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(finalMark(1, 1), QStringList{QStringLiteral("8.0:Null:Promociona")});
    }
};

QTEST_MAIN(TestFinalMarks)
#include "test_final_marks.moc"
