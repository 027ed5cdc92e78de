// Marking a student's task by its rubric on the sample year: the values and
// points of each activity, the total and the partial total of the marked
// rows, the slider of one value and what it stores, and the total taken
// over into the mark field when the screen closes.
#include "core/Modulo.h"
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "rubrics/frmEvaluarNotaRubricaValor.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/Wheel.h"
#include "support/YearQueries.h"
#include "ui/FlexGrid.h"
#include "ui/UiFunciones.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

using yearq::count;
using yearq::value;
using Col = frmEvaluarNotaRubrica::Col;

namespace {

// Task 1 (Examen, 0 to 10) with two activities whose points are 3.75 and
// 4.375 for the values of Ana's mark 1 (7,5) and Uxía's mark 3 (0).
const char* const kExamen[] = {
    "DELETE * FROM tblTareasRubrica WHERE IdTarea = 1",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (10, 1, '1', 'Lectura', 'Le en voz "
    "alta', 50, 4)",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (11, 1, '2', 'Escritura', 'Escribe "
    "sen erros', 50, 8)",
    "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (10, 1, 10, 3, 4)",
    "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (11, 1, 11, 7, 8)",
    "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (12, 3, 10, 3, 4)",
    "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (13, 3, 11, 7, 8)",
};

void examen()
{
    for (const char* sql : kExamen)
        gConexion->Execute(QString::fromUtf8(sql));
}

QStringList valoresGardados()
{
    return yearq::column(QStringLiteral("SELECT Id & ' ' & IdNota & ' ' & IdActividad & ' ' & Valor & ' ' & "
                                        "Max FROM tblNotasRubrica ORDER BY Id"));
}

} // namespace

class TestRubricMarking : public QObject {
    Q_OBJECT

    ScreenYear seeded_;
    QLineEdit campo_;

    // The rubric of a mark as the mark dialog opens it, its field holding `nota`.
    void abrir(frmEvaluarNotaRubrica& f, qint32 tarea, qint32 idNota, qint32 maximo, const QString& nota)
    {
        campo_.setText(nota);
        f.setNotaMaxTarea(maximo);
        f.setIdTarea(tarea);
        f.setIdNota(idNota);
        f.setDesTarea(QStringLiteral(" Proyecto | Evaluación: 1ª Evaluación"));
        f.setAlumno(QStringLiteral("GARCÍA LÓPEZ ANA"));
        f.setCampoNota(&campo_);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
    }

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void theGridShowsEachActivityWithTheValueAndPointsOfTheMark()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("85"));
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(f.Caption(), QStringLiteral("Rúbrica de nota"));
        QCOMPARE(f.lblTarea->text(), QStringLiteral(" Proyecto | Evaluación: 1ª Evaluación"));
        QCOMPARE(f.lblAlumno->text(), QStringLiteral("GARCÍA LÓPEZ ANA"));
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(gridtext::row(g, 0),
                 (QStringList{QString(), QString(), QStringLiteral("Nº"), QStringLiteral("Descripción"),
                              QStringLiteral("Criterio"), QStringLiteral("% Valor"), QStringLiteral("Max. Valor"),
                              QStringLiteral("Valor"), QStringLiteral("Ptos"), QStringLiteral("Marcar")}));
        QCOMPARE(
            gridtext::row(g, 1),
            (QStringList{QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("Planificación"),
                         QStringLiteral("Presenta un plan con fechas"), QStringLiteral("40"), QStringLiteral("4"),
                         QStringLiteral("4"), QStringLiteral("40"), QString()}));
        QCOMPARE(
            gridtext::row(g, 3),
            (QStringList{QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("Ejecución"),
                         QStringLiteral("Cuida el huerto cada semana"), QStringLiteral("60"), QStringLiteral("10"),
                         QStringLiteral("8"), QStringLiteral("48"), QString()}));
        QCOMPARE(f.lblNota->text(), QStringLiteral("88"));
        QCOMPARE(f.lblNotaParcial->text(), QString());
        QCOMPARE(g.Row(), 1);
    }

    void aTaskWithoutActivitiesShowsAnEmptyGridAndClosingTakesTheDesignTextOver()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 2, 4, 5, QStringLiteral("4,75")); // Deberes tema 1: no rubric
        QCOMPARE(f.mshDatos->Rows(), 1);
        QCOMPARE(f.lblNota->text(), QStringLiteral("0"));
        MsgBox::setNextAnswer(vbYes);
        f.close();
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Actualizar a nota?"));
        QCOMPARE(campo_.text(), QStringLiteral("0"));
    }

    void anActivityWithMaxZeroGivesZeroPointsAndASliderWithNoTravel()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES "
                                          "(5, 3, '3', 'Diario', 'Anota cada día', 50, 0)"));
        gConexion->Execute(
            QStringLiteral("INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (5, 7, 5, 3, 0)"));
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("85"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColNum), QStringLiteral("3"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColValor), QStringLiteral("3"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColPtos), QStringLiteral("0"));
        QCOMPARE(f.lblNota->text(), QStringLiteral("88"));
        f.mshDatos->setRow(4);
        int minimo = -1, maximo = -1, tras = -1;
        QString etiqueta;
        auto run = onModal<frmEvaluarNotaRubricaValor>([&](frmEvaluarNotaRubricaValor* v) {
            minimo = v->sldValor->minimum();
            maximo = v->sldValor->maximum();
            QTest::keyClick(v->sldValor, Qt::Key_Right);
            wheel(v->sldValor, 120);
            tras = v->sldValor->value();
            etiqueta = v->lblValor->text();
            click(v->cmdCancelar);
        });
        f.AbrirValor();
        QVERIFY(run->closedByItself());
        QCOMPARE(minimo, 0);
        QCOMPARE(maximo, 0);
        QCOMPARE(tras, 0);
        QCOMPARE(etiqueta, QStringLiteral("0/0"));
    }

    void anActivityAddedAfterMarkingShowsValueZeroAndPointsZero()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES "
                                          "(5, 3, '3', 'Memoria', 'Explica o proceso', 20, 10)"));
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("85"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColDes), QStringLiteral("Memoria"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColValor), QStringLiteral("0"));
        QCOMPARE(f.mshDatos->TextMatrix(4, Col::ColPtos), QStringLiteral("0"));
        QCOMPARE(f.lblNota->text(), QStringLiteral("88"));
    }

    void aChangedMaxKeepsTheStoredMaxWhileThePointsUseTheNewOne()
    {
        gConexion->Execute(QStringLiteral("UPDATE tblTareasRubrica SET Max = 20 WHERE Id = 2")); // was 10
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("85"));
        QCOMPARE(f.mshDatos->TextMatrix(3, Col::ColMax), QStringLiteral("20"));
        QCOMPARE(f.mshDatos->TextMatrix(3, Col::ColPtos), QStringLiteral("24")); // 8 / 20 * 60
        f.mshDatos->setRow(3);
        auto run = onModal<frmEvaluarNotaRubricaValor>([](frmEvaluarNotaRubricaValor* v) {
            v->sldValor->setValue(15);
            QTest::keyClick(v->sldValor, Qt::Key_Return);
        });
        QTest::keyClick(f.mshDatos, Qt::Key_Return);
        QVERIFY(run->closedByItself());
        // The stored row keeps the Max of its first saving.
        QCOMPARE(value(QStringLiteral("SELECT Valor & '/' & Max FROM tblNotasRubrica WHERE Id = 2")).toString(),
                 QStringLiteral("15/10"));
        QCOMPARE(f.mshDatos->TextMatrix(3, Col::ColPtos), QStringLiteral("45")); // 15 / 20 * 60
    }

    void aMarkOf7Comma5WithATotalOf8Comma125AsksAndYesGives8Comma12()
    {
        examen();
        frmEvaluarNotaRubrica f;
        abrir(f, 1, 1, 10, QStringLiteral("7,5"));
        QCOMPARE(gridtext::column(*f.mshDatos, Col::ColPtos),
                 (QStringList{QStringLiteral("3,75"), QStringLiteral("4,375")}));
        QCOMPARE(f.lblNota->text(), QStringLiteral("8,125"));
        MsgBox::setNextAnswer(vbYes);
        QTest::keyClick(&f, Qt::Key_Escape);
        QVERIFY(!f.isVisible());
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Actualizar a nota?"));
        QCOMPARE(MsgBox::shown()[0].flags, vbYesNo + vbInformation + vbDefaultButton2);
        // Half to even, and the decimal comma of the machine's locale.
        QCOMPARE(campo_.text(), QStringLiteral("8,12"));
    }

    void aMarkOfZeroIsOverwrittenWithoutAsking()
    {
        examen();
        frmEvaluarNotaRubrica f;
        abrir(f, 1, 3, 10, QStringLiteral("0"));
        click(f.cmdSalir);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(campo_.text(), QStringLiteral("8,12"));
    }

    void anEmptyMarkFieldIsTakenAsZero()
    {
        examen();
        frmEvaluarNotaRubrica f;
        abrir(f, 1, 3, 10, QString());
        f.close();
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(campo_.text(), QStringLiteral("8,12"));
    }

    void answeringNoKeepsTheMarkAndTheValues()
    {
        examen();
        const QStringList antes = valoresGardados();
        frmEvaluarNotaRubrica f;
        abrir(f, 1, 1, 10, QStringLiteral("7,5"));
        MsgBox::setNextAnswer(vbNo);
        f.close();
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(campo_.text(), QStringLiteral("7,5"));
        QCOMPARE(valoresGardados(), antes);
    }

    void aMarkThatDoesNotConvertFailsAtClosing()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("oito"));
        f.close();
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(campo_.text(), QStringLiteral("oito"));
    }

    void theValueDialogStoresTheValueAndWritesTheRowAndTheTotal()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 8, 100, QStringLiteral("45")); // Brais: 2 of 4 and 4 of 10
        QCOMPARE(f.lblNota->text(), QStringLiteral("44"));
        // A mark on row 3 first: its partial total stays as it was.
        f.mshDatos->setRow(3);
        QTest::keyClick(f.mshDatos, Qt::Key_Space);
        QCOMPARE(f.lblNotaParcial->text(), QStringLiteral("24,00"));
        QString caption, num, des, cri, inicial;
        auto run = onModal<frmEvaluarNotaRubricaValor>([&](frmEvaluarNotaRubricaValor* v) {
            num = v->lblNum->text();
            des = v->lblDes->text();
            cri = v->lblCri->text();
            inicial = v->lblValor->text();
            QTest::keyClick(v->sldValor, Qt::Key_End);
            click(v->cmdAceptar);
        });
        QTest::keyClick(f.mshDatos, Qt::Key_Return);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("VALORACIÓN"));
        QCOMPARE(num, QStringLiteral("2"));
        QCOMPARE(des, QStringLiteral("Ejecución"));
        QCOMPARE(cri, QStringLiteral("Cuida el huerto cada semana"));
        QCOMPARE(inicial, QStringLiteral("4/10"));
        QCOMPARE(f.mshDatos->TextMatrix(3, Col::ColValor), QStringLiteral("10"));
        QCOMPARE(f.mshDatos->TextMatrix(3, Col::ColPtos), QStringLiteral("60"));
        QCOMPARE(f.lblNota->text(), QStringLiteral("80"));
        QCOMPARE(f.lblNotaParcial->text(), QStringLiteral("24,00"));
        QCOMPARE(value(QStringLiteral("SELECT Valor FROM tblNotasRubrica WHERE Id = 4")).toInt(), 10);
        QCOMPARE(count(QStringLiteral("tblNotasRubrica")), 4);

        // An activity without a value for the mark gets a new row.
        f.mshDatos->setRow(2); // Num "10", Max 5
        auto nova = onModal<frmEvaluarNotaRubricaValor>([](frmEvaluarNotaRubricaValor* v) {
            v->sldValor->setValue(3);
            click(v->cmdAceptar);
        });
        emit f.mshDatos->DblClick();
        QVERIFY(nova->closedByItself());
        QCOMPARE(valoresGardados().last(), QStringLiteral("5 8 4 3 5"));
        QCOMPARE(f.mshDatos->TextMatrix(2, Col::ColValor), QStringLiteral("3"));
        QCOMPARE(f.mshDatos->TextMatrix(2, Col::ColPtos), QStringLiteral("0")); // weight 0
        MsgBox::setNextAnswer(vbNo);
        f.close();
    }

    void cancelStoresNothing()
    {
        const QStringList antes = valoresGardados();
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("0"));
        auto run = onModal<frmEvaluarNotaRubricaValor>([](frmEvaluarNotaRubricaValor* v) {
            v->sldValor->setValue(1);
            QTest::keyClick(v->sldValor, Qt::Key_Escape);
        });
        f.AbrirValor();
        QVERIFY(run->closedByItself());
        QCOMPARE(valoresGardados(), antes);
        QCOMPARE(f.mshDatos->TextMatrix(1, Col::ColValor), QStringLiteral("4"));
        QCOMPARE(f.Tag, QString());
        QCOMPARE(f.mshDatos->Rows(), 4);
    }

    void theSliderAnswersTheKeysAndOneStepPerNotchOfTheWheel()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("0"));
        f.mshDatos->setRow(3); // 8 of 10
        QStringList visto;
        auto run = onModal<frmEvaluarNotaRubricaValor>([&](frmEvaluarNotaRubricaValor* v) {
            QSlider* s = v->sldValor;
            visto << QString::number(int(v->focusWidget() == s));
            QTest::keyClick(s, Qt::Key_Right);
            visto << v->lblValor->text();
            QTest::keyClick(s, Qt::Key_Left);
            QTest::keyClick(s, Qt::Key_Left);
            visto << v->lblValor->text();
            wheel(s, 120);
            visto << v->lblValor->text();
            wheel(s, -240);
            visto << v->lblValor->text();
            QTest::keyClick(s, Qt::Key_Home);
            visto << v->lblValor->text();
            QTest::keyClick(s, Qt::Key_PageUp);
            visto << v->lblValor->text();
            click(v->cmdCancelar);
        });
        f.AbrirValor();
        QVERIFY(run->closedByItself());
        QCOMPARE(visto, (QStringList{QStringLiteral("1"), QStringLiteral("9/10"), QStringLiteral("7/10"),
                                     QStringLiteral("8/10"), QStringLiteral("6/10"), QStringLiteral("0/10"),
                                     QStringLiteral("1/10")}));
    }

    void aClickOrSpaceMarksARowAndThePartialAddsTheMarkedPoints()
    {
        frmEvaluarNotaRubrica f;
        abrir(f, 3, 7, 100, QStringLiteral("0"));
        FlexGrid& g = *f.mshDatos;
        const QRect fila1 = g.visualRect(g.model()->index(1 - g.FixedRows(), 3));
        QTest::mouseClick(g.viewport(), Qt::LeftButton, Qt::NoModifier, fila1.center());
        QCOMPARE(g.TextMatrix(1, Col::ColMarcar), QStringLiteral("X"));
        QCOMPARE(f.lblNotaParcial->text(), QStringLiteral("40,00"));
        g.setRow(3);
        QTest::keyClick(&g, Qt::Key_Space);
        QCOMPARE(f.lblNotaParcial->text(), QStringLiteral("88,00"));
        QTest::keyClick(&g, Qt::Key_Space);
        QCOMPARE(g.TextMatrix(3, Col::ColMarcar), QString());
        QCOMPARE(f.lblNotaParcial->text(), QStringLiteral("40,00"));
        g.setRow(2);
        QTest::keyClick(&g, Qt::Key_Space);
        // "." clears every mark and the partial total, and stays on the row.
        QTest::keyClicks(&g, QStringLiteral("."));
        QCOMPARE(gridtext::column(g, Col::ColMarcar), (QStringList{QString(), QString(), QString()}));
        QCOMPARE(f.lblNotaParcial->text(), QString());
        QCOMPARE(g.Row(), 2);
        // Nothing of the marks is stored.
        QCOMPARE(count(QStringLiteral("tblNotasRubrica")), 4);
    }

    void sumarColumnaRubricaAddsThePointsAsSingles()
    {
        FlexGrid g;
        g.setCols(10);
        g.setRows(4);
        g.setTextMatrix(1, 8, QStringLiteral("0,1"));
        g.setTextMatrix(2, 8, QStringLiteral("0,2"));
        g.setTextMatrix(3, 8, QStringLiteral("3,75"));
        QCOMPARE(SumarColumnaRubrica(g), 0.1f + 0.2f + 3.75f);
        QVERIFY(g.Redraw());
    }
};

QTEST_MAIN(TestRubricMarking)
#include "test_rubric_marking.moc"
