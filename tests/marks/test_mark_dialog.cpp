// The dialog of one task mark on the sample year: the limits of the task
// type, the checks on leaving the mark, the INSERT with the digits as typed
// and the UPDATE through single precision, and "&Rubricar" that saves first
// and takes the rubric's total back into the mark.
#include "core/Modulo.h"
#include "marks/frmEvaluarNota.h"
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "rubrics/frmEvaluarNotaRubricaValor.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

using yearq::count;

class TestMarkDialog : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

    // A mark as SQLite holds it.
    QString stored(int idNota)
    {
        return yearq::native(seeded_.path(), QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = %1").arg(idNota))
            .value(0);
    }

    // The dialog on task 6 (Examen, 0 to 10): Ana's mark 8 (key 12), or
    // Uxía's, who has none.
    void open(frmEvaluarNota& d, bool existing)
    {
        d.setIdTarea(6);
        d.setDesTarea(QStringLiteral(" Examen | Evaluación: 2ª Evaluación"));
        if (existing) {
            d.setIdAlu(1);
            d.setIdNota(12);
            d.setNota(8);
            d.setObs(QStringLiteral("Sigue así"));
        } else {
            d.setIdAlu(3);
            d.setIdNota(-1);
            d.setObs(QStringLiteral("no se muestra"));
        }
        d.show();
        QVERIFY(QTest::qWaitForWindowActive(&d));
    }

    // Types the mark into the empty field and leaves it by Tab.
    void typeAndLeave(frmEvaluarNota& d, const QString& text)
    {
        d.txtNota->clear();
        QTest::keyClicks(d.txtNota, text);
        QTest::keyClick(d.txtNota, Qt::Key_Tab);
    }

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void theLimitsOfTheTaskTypeAreShown()
    {
        frmEvaluarNota d;
        d.setIdTarea(2); // Deberes, 0 to 5
        d.show();
        QCOMPARE(d.lblInfo->text(), QStringLiteral("Nota mínima: 0 | Nota máxima: 5"));
        QCOMPARE(d.focusWidget(), d.txtNota);
        frmEvaluarNota none;
        none.setIdTarea(99); // no such task: 0 and 10
        none.show();
        QCOMPARE(none.lblInfo->text(), QStringLiteral("Nota mínima: 0 | Nota máxima: 10"));
        QCOMPARE(none.Min(), 0);
        QCOMPARE(none.Max(), 10);
        QCOMPARE(d.cmdRubricar->text(), QStringLiteral("&Rubricar"));
    }

    void anExistingMarkShowsWithItsRemarkAndANewOneEmpty()
    {
        frmEvaluarNota d;
        open(d, true);
        QCOMPARE(d.txtNota->text(), QStringLiteral("8"));
        QCOMPARE(d.txtObs->text(), QStringLiteral("Sigue así"));
        frmEvaluarNota n;
        open(n, false);
        QCOMPARE(n.txtNota->text(), QString());
        QCOMPARE(n.txtObs->text(), QString());
    }

    void aPointIsTypedAsAComma()
    {
        frmEvaluarNota d;
        open(d, false);
        QTest::keyClicks(d.txtNota, QStringLiteral("7.25"));
        QCOMPARE(d.txtNota->text(), QStringLiteral("7,25"));
    }

    void leavingWithoutANumberAsksAndComesBack()
    {
        frmEvaluarNota d;
        open(d, false);
        MsgBox::setNextAnswer(vbOK);
        typeAndLeave(d, QStringLiteral("siete"));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Ponga un nº correcto"));
        QCOMPARE(MsgBox::shown()[0].flags, vbInformation);
        QCOMPARE(QApplication::focusWidget(), d.txtNota);
    }

    void aboveTheMaximumOrBelowTheMinimumTheLimitIsWritten()
    {
        frmEvaluarNota d;
        open(d, false);
        MsgBox::script({vbOK, vbOK});
        typeAndLeave(d, QStringLiteral("12"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("El valor máximo permitido es 10"));
        QCOMPARE(d.txtNota->text(), QStringLiteral("10"));
        d.txtNota->setFocus();
        typeAndLeave(d, QStringLiteral("-0.5"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("El valor mínimo permitido es 0"));
        QCOMPARE(d.txtNota->text(), QStringLiteral("0"));
    }

    void aRightMarkJustLosesItsFocusColourAndEnterMovesOn()
    {
        frmEvaluarNota d;
        open(d, false);
        QCOMPARE(ui::backColor(d.txtNota), ui::colorFromVariant(gColor));
        QTest::keyClicks(d.txtNota, QStringLiteral("6.5"));
        QTest::keyClick(d.txtNota, Qt::Key_Return);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(ui::backColor(d.txtNota), ui::white());
        QCOMPARE(QApplication::focusWidget(), d.txtObs);
        QVERIFY(d.isVisible());
    }

    void anInsertCarriesTheDigitsAsTypedAndTheColumnKeepsTheNearestSingle()
    {
        frmEvaluarNota d;
        open(d, false);
        QTest::keyClicks(d.txtNota, QStringLiteral("8.123456789"));
        d.txtObs->setText(QStringLiteral("Bien"));
        d.cmdAceptar->click();
        QVERIFY(!d.isVisible());
        QCOMPARE(d.IdNota(), 18);
        QCOMPARE(stored(18), QStringLiteral("8.12345695495605")); // float(8.123456789)
        QCOMPARE(yearq::value(QStringLiteral("SELECT IdTarea & '-' & IdAlu & '-' & Obs FROM tblNotas WHERE Id = 18"))
                     .toString(),
                 QStringLiteral("6-3-Bien"));
    }

    void anUpdateGoesThroughSinglePrecisionAndTheColumnKeepsTheNearestSingle()
    {
        frmEvaluarNota d;
        open(d, true);
        d.txtNota->clear();
        QTest::keyClicks(d.txtNota, QStringLiteral("8.123456789"));
        d.cmdAceptar->click();
        QCOMPARE(stored(12), QStringLiteral("8.12345695495605")); // float(8.123457)
        QCOMPARE(yearq::value(QStringLiteral("SELECT Obs FROM tblNotas WHERE Id = 12")).toString(),
                 QStringLiteral("Sigue así"));
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    void theCommaAndThePointInAMark()
    {
        // Typed, the point is a comma; pasted, it stays a point: the INSERT
        // takes it as a decimal point, the single precision of the UPDATE as
        // a thousands separator.
        frmEvaluarNota nueva;
        open(nueva, false);
        nueva.txtNota->setText(QStringLiteral("7.5"));
        nueva.cmdAceptar->click();
        QCOMPARE(stored(18), QStringLiteral("7.5"));

        frmEvaluarNota typed;
        open(typed, true);
        typed.txtNota->clear();
        QTest::keyClicks(typed.txtNota, QStringLiteral("7.5"));
        typed.cmdAceptar->click();
        QCOMPARE(stored(12), QStringLiteral("7.5"));

        frmEvaluarNota pasted;
        open(pasted, true);
        pasted.txtNota->setText(QStringLiteral("7.5"));
        pasted.cmdAceptar->click();
        QCOMPARE(stored(12), QStringLiteral("75.0"));
    }

    void aceptarDoesNoCheckOfItsOwn()
    {
        frmEvaluarNota d;
        open(d, true);
        d.txtNota->setText(QStringLiteral("15"));
        d.cmdAceptar->click(); // the focus never left the mark
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(stored(12), QStringLiteral("15.0"));
    }

    void rubricarSavesFirstAndTheRubricTotalComesBackIntoTheMark()
    {
        // Task 6 (Examen, 0 to 10) given two activities.
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES "
                                          "(10, 6, '1', 'Lectura', 'Le en voz alta', 50, 4)"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES "
                                          "(11, 6, '2', 'Escritura', 'Escribe sen erros', 50, 8)"));
        frmEvaluarNota d;
        open(d, false);
        d.setCaption(QStringLiteral("PÉREZ CASTRO UXÍA"));
        QTest::keyClicks(d.txtNota, QStringLiteral("0"));
        qint32 idNota = 0, maximo = 0, tarea = 0;
        QString tarefa, alumno, guardada;
        auto run = onModal<frmEvaluarNotaRubrica>([&](frmEvaluarNotaRubrica* r) {
            // The mark is already in tblNotas: the values have a mark to belong to.
            idNota = r->IdNota();
            maximo = r->NotaMaxTarea();
            tarea = r->IdTarea();
            tarefa = r->lblTarea->text();
            alumno = r->lblAlumno->text();
            guardada = stored(18);
            for (int fila : {1, 2}) {
                r->mshDatos->setRow(fila);
                auto valor = onModal<frmEvaluarNotaRubricaValor>([](frmEvaluarNotaRubricaValor* v) {
                    QTest::keyClick(v->sldValor, Qt::Key_End);
                    QTest::keyClick(v->sldValor, Qt::Key_Left);
                    QTest::keyClick(v->sldValor, Qt::Key_Return);
                });
                r->AbrirValor();
                QVERIFY(valor->closedByItself());
            }
            click(r->cmdSalir);
        });
        click(d.cmdRubricar);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Rúbrica de nota"));
        QCOMPARE(idNota, 18);
        QCOMPARE(guardada, QStringLiteral("0.0"));
        QCOMPARE(maximo, 10);
        QCOMPARE(tarea, 6);
        QCOMPARE(tarefa, QStringLiteral(" Examen | Evaluación: 2ª Evaluación"));
        QCOMPARE(alumno, QStringLiteral("PÉREZ CASTRO UXÍA"));
        // 3 of 4 and 7 of 8 at half each: 3,75 + 4,375, rounded half to even;
        // a mark of 0 takes it without a question.
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(d.isVisible());
        QCOMPARE(d.txtNota->text(), QStringLiteral("8,12"));
        QCOMPARE(d.Tag, QString());
        QCOMPARE(yearq::count(QStringLiteral("tblNotasRubrica WHERE IdNota = 18")), 2);
        d.cmdAceptar->click(); // now the UPDATE of the same row
        QCOMPARE(stored(18), QStringLiteral("8.11999988555908"));
        QCOMPARE(count(QStringLiteral("tblNotas")), 18);
    }

    void cancellingTheMarkDialogAfterTheRubricKeepsTheValuesAndTheFirstSaving()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES "
                                          "(10, 6, '1', 'Lectura', 'Le en voz alta', 100, 4)"));
        frmEvaluarNota d;
        open(d, true); // Ana's 8
        auto run = onModal<frmEvaluarNotaRubrica>([](frmEvaluarNotaRubrica* r) {
            auto valor = onModal<frmEvaluarNotaRubricaValor>([](frmEvaluarNotaRubricaValor* v) {
                v->sldValor->setValue(1);
                click(v->cmdAceptar);
            });
            r->AbrirValor();
            MsgBox::setNextAnswer(vbYes);
            r->close();
        });
        click(d.cmdRubricar);
        QVERIFY(run->closedByItself());
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Actualizar a nota?"));
        QCOMPARE(d.txtNota->text(), QStringLiteral("2,5"));
        click(d.cmdCancelar);
        QCOMPARE(stored(12), QStringLiteral("8.0"));
        QCOMPARE(yearq::column(QStringLiteral("SELECT Valor FROM tblNotasRubrica WHERE IdNota = 12")),
                 QStringList{QStringLiteral("1")});
    }

    void cancelWritesNothing()
    {
        frmEvaluarNota d;
        open(d, false);
        QTest::keyClicks(d.txtNota, QStringLiteral("9"));
        click(d.cmdCancelar);
        QVERIFY(!d.isVisible());
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    void anApostropheInTheRemarkBreaksTheStatement()
    {
        frmEvaluarNota d;
        open(d, false);
        QTest::keyClicks(d.txtNota, QStringLiteral("5"));
        d.txtObs->setText(QStringLiteral("Non o fixo d'aquela"));
        d.cmdAceptar->click();
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    void aMarkThatDoesNotConvertFailsAtSaving()
    {
        frmEvaluarNota d;
        open(d, true);
        d.txtNota->setText(QStringLiteral("ocho"));
        d.cmdAceptar->click();
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(seeded_.harness.errors.first().Number(), 13);
        QCOMPARE(stored(12), QStringLiteral("8.0"));
    }

    void estadoIsKeptAndNotConsulted()
    {
        frmEvaluarNota d;
        d.setEstado(1);
        open(d, true);
        QCOMPARE(d.Estado(), quint8(1));
        QCOMPARE(d.txtNota->text(), QStringLiteral("8"));
    }
};

QTEST_MAIN(TestMarkDialog)
#include "test_mark_dialog.moc"
