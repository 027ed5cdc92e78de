// The rubric of a task on the sample year: the activities in the order of
// their numbers as text, the sheet of an activity with its checks on
// leaving a field and on saving, the delete that leaves the values behind,
// and the screens opened from the rubric.
#include "core/Modulo.h"
#include "rubrics/frmGraficoRubrica.h"
#include "rubrics/frmRubricas.h"
#include "rubrics/frmTareasRubrica.h"
#include "rubrics/frmTareasRubricaActividad.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

using yearq::count;
using yearq::value;

namespace {

constexpr int kColId = 1;
constexpr int kColNum = 2;

// The rubric of "Proyecto huerto" (task 3): activities 1, 10 and 2.
void abrir(frmTareasRubrica& form, qint32 tarea = 3)
{
    form.setIdTarea(tarea);
    form.setTipoTarea(QStringLiteral("Proyecto"));
    form.lblCabecera->setText(QStringLiteral(" Proyecto | Evaluación: 1ª Evaluación"));
    form.show();
}

// Types into the focused sheet's fields and accepts.
void escribir(frmTareasRubricaActividad* f, const QString& num, const QString& por, const QString& max)
{
    f->txtNum->setText(num);
    f->txtDes->setPlainText(QStringLiteral("Actividade ") + num);
    f->txtPor->setText(por);
    f->txtMax->setText(max);
    f->txtCri->setPlainText(QStringLiteral("Criterio ") + num);
    f->cmdAceptar->click();
}

// Types into a field and leaves it by Tab, as the teacher does.
void teclear(QLineEdit* field, const QString& text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Tab);
}

} // namespace

class TestRubricDefinition : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void theGridShowsTheActivitiesWithTheirWeightAndTop()
    {
        frmTareasRubrica form;
        abrir(form);
        const FlexGrid& g = *form.mshDatos;
        QCOMPARE(form.Caption(), QStringLiteral("Rúbrica de tarea"));
        QCOMPARE(form.Sql(),
                 QStringLiteral("SELECT * FROM tblTareasRubrica WHERE tblTareasRubrica.IdTarea = 3 ORDER BY Num"));
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(gridtext::row(g, 0),
                 (QStringList{QString(), QString(), QStringLiteral("Nº"), QStringLiteral("Descripción"),
                              QStringLiteral("% Valor"), QStringLiteral("Max. Valor")}));
        QCOMPARE(gridtext::row(g, 1),
                 (QStringList{QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1"),
                              QStringLiteral("Planificación"), QStringLiteral("40"), QStringLiteral("4")}));
        QCOMPARE(gridtext::row(g, 3),
                 (QStringList{QStringLiteral("3"), QStringLiteral("2"), QStringLiteral("2"),
                              QStringLiteral("Ejecución"), QStringLiteral("60"), QStringLiteral("10")}));
        QCOMPARE(g.ColWidth(0), 500);
        QCOMPARE(g.ColWidth(kColId), 0);
        // 500 and 600, or the width of the title in the grid's font.
        QVERIFY(g.ColWidth(kColNum) >= 500);
        QVERIFY(g.ColWidth(4) >= 600);
        QVERIFY(g.ColWidth(5) >= 600);
        QVERIFY(g.ColWidth(5) < 1500);
        QCOMPARE(g.ColWidth(3), g.pixelsToTwips(g.width()) * 70 / 100);
        // Banded: white, gColor, white.
        QCOMPARE(g.CellBackColor(1, 3), ui::white());
        QCOMPARE(g.CellBackColor(2, 3), QColor(192, 192, 192));
        QCOMPARE(g.Row(), 1);
    }

    void anActivityNumberedTenSortsByTheColumnsOwnOrder()
    {
        frmTareasRubrica form;
        abrir(form);
        // Num is text: "10" comes between "1" and "2".
        QCOMPARE(gridtext::column(*form.mshDatos, kColNum),
                 (QStringList{QStringLiteral("1"), QStringLiteral("10"), QStringLiteral("2")}));
    }

    void aTaskWithoutActivitiesHasAGridWithoutRows()
    {
        frmTareasRubrica form;
        abrir(form, 2);
        QCOMPARE(form.mshDatos->Rows(), 1);
        QCOMPARE(form.mshDatos->TextMatrix(0, kColNum), QStringLiteral("Nº"));
        // The buttons of a row do nothing.
        click(form.cmdEditar);
        click(form.cmdBorrar);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void nuevoAddsAnActivityToTheTaskAndTheListFillsAgain()
    {
        frmTareasRubrica form;
        abrir(form);
        QString id;
        bool focoNum = false;
        auto run = onModal<frmTareasRubricaActividad>([&](frmTareasRubricaActividad* f) {
            id = f->txtId->text();
            focoNum = QApplication::focusWidget() == f->txtNum;
            QCOMPARE(f->Estado(), quint8(0));
            escribir(f, QStringLiteral("3"), QStringLiteral("12,5"), QStringLiteral("8"));
        });
        click(form.cmdNovo);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Actividade Nova"));
        QCOMPARE(id, QStringLiteral("5"));
        QVERIFY(focoNum);
        QCOMPARE(value(QStringLiteral("SELECT IdTarea & '|' & Num & '|' & Des & '|' & Por & '|' & Max & "
                                      "'|' & Cri FROM tblTareasRubrica WHERE Id = 5"))
                     .toString(),
                 QStringLiteral("3|3|Actividade 3|12,5|8|Criterio 3"));
        QCOMPARE(gridtext::column(*form.mshDatos, kColNum),
                 (QStringList{QStringLiteral("1"), QStringLiteral("10"), QStringLiteral("2"), QStringLiteral("3")}));
        QCOMPARE(form.mshDatos->TextMatrix(4, 4), QStringLiteral("12,5"));
    }

    void weightsOf60And60AreAccepted()
    {
        frmTareasRubrica form;
        abrir(form, 2);
        for (const char* num : {"1", "2"}) {
            auto run = onModal<frmTareasRubricaActividad>([num](frmTareasRubricaActividad* f) {
                escribir(f, QLatin1String(num), QStringLiteral("60"), QStringLiteral("10"));
            });
            click(form.cmdNovo);
            QVERIFY(run->closedByItself());
        }
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(yearq::column(QStringLiteral("SELECT Por FROM tblTareasRubrica WHERE IdTarea = 2 ORDER BY Num")),
                 (QStringList{QStringLiteral("60"), QStringLiteral("60")}));
        QCOMPARE(gridtext::column(*form.mshDatos, 4), (QStringList{QStringLiteral("60"), QStringLiteral("60")}));
    }

    void theChecksOnSavingComeInOrder()
    {
        frmTareasRubrica form;
        abrir(form);
        frmTareasRubricaActividad f(form.Tarea(), &form);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        MsgBox::script({vbOK, vbOK, vbOK});
        f.cmdAceptar->click();
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un número de actividade"));
        QCOMPARE(MsgBox::shown().last().flags, vbInformation);
        QCOMPARE(f.focusWidget(), f.txtNum);
        f.txtNum->setText(QStringLiteral("4"));
        f.txtPor->setText(QStringLiteral("moito"));
        f.cmdAceptar->click();
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un % de valoración correcto"));
        QCOMPARE(f.focusWidget(), f.txtPor);
        QCOMPARE(f.txtPor->selectedText(), QStringLiteral("moito"));
        f.txtPor->setText(QStringLiteral("150")); // no upper limit
        f.txtMax->setText(QStringLiteral("dez"));
        f.cmdAceptar->click();
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un valor máximo de 0 a 255"));
        QCOMPARE(f.focusWidget(), f.txtMax);
        QCOMPARE(f.txtMax->selectedText(), QStringLiteral("dez"));
        QCOMPARE(count(QStringLiteral("tblTareasRubrica")), 4);
        f.txtMax->setText(QStringLiteral("10"));
        f.cmdAceptar->click();
        QCOMPARE(MsgBox::shown().size(), 3);
        QCOMPARE(value(QStringLiteral("SELECT Por FROM tblTareasRubrica WHERE Num = '4'")).toDouble(), 150.0);
    }

    void maxZeroCannotBeLeftByTheKeyboardYetTheMessageOn256SaysZeroTo255()
    {
        frmTareasRubrica form;
        abrir(form);
        frmTareasRubricaActividad f(form.Tarea(), &form);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.txtNum->setText(QStringLiteral("4"));
        f.txtPor->setText(QStringLiteral("20"));
        MsgBox::setNextAnswer(vbOK);
        teclear(f.txtMax, QStringLiteral("0"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Debe de poñer un nº maior de cero"));
        QCOMPARE(QApplication::focusWidget(), f.txtMax);
        // 256 standing in the field, which is not left: the check on saving.
        f.txtMax->setText(QStringLiteral("256"));
        MsgBox::setNextAnswer(vbOK);
        f.cmdAceptar->click();
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un valor máximo de 0 a 255"));
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(count(QStringLiteral("tblTareasRubrica")), 4);
        QVERIFY(seeded_.harness.errors.isEmpty());
    }

    void leavingTheTopAbove255OrBelowZeroIsTheBytesOverflow()
    {
        frmTareasRubrica form;
        abrir(form);
        frmTareasRubricaActividad f(form.Tarea(), &form);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        teclear(f.txtMax, QStringLiteral("256"));
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(seeded_.harness.errors[0].Number(), int(RuntimeError::Overflow));
        teclear(f.txtMax, QStringLiteral("-1"));
        QCOMPARE(seeded_.harness.errors.size(), 2);
        QCOMPARE(seeded_.harness.errors[1].Number(), int(RuntimeError::Overflow));
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void leavingTheWeightOrTheTopWithoutANumberAsksAndComesBack()
    {
        frmTareasRubrica form;
        abrir(form);
        frmTareasRubricaActividad f(form.Tarea(), &form);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        MsgBox::script({vbOK, vbOK});
        teclear(f.txtPor, QStringLiteral("x"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Poña un nº correcto"));
        QCOMPARE(QApplication::focusWidget(), f.txtPor);
        // "." is typed as ",".
        teclear(f.txtPor, QStringLiteral("33.5"));
        QCOMPARE(f.txtPor->text(), QStringLiteral("33,5"));
        teclear(f.txtMax, QStringLiteral("x"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Poña un número correcto maior de cero"));
        QCOMPARE(QApplication::focusWidget(), f.txtMax);
        QCOMPARE(MsgBox::shown().size(), 2);
    }

    void enterMovesOnFromNumberWeightAndTopAndIsALineBreakInTheTexts()
    {
        frmTareasRubrica form;
        abrir(form);
        frmTareasRubricaActividad f(form.Tarea(), &form);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        QCOMPARE(QApplication::focusWidget(), f.txtNum);
        QTest::keyClicks(f.txtNum, QStringLiteral("7"));
        QTest::keyClick(f.txtNum, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), f.txtDes);
        QTest::keyClicks(f.txtDes, QStringLiteral("Unha"));
        QTest::keyClick(f.txtDes, Qt::Key_Return);
        QTest::keyClicks(f.txtDes, QStringLiteral("dous"));
        QCOMPARE(QApplication::focusWidget(), f.txtDes);
        QCOMPARE(f.txtDes->toPlainText(), QStringLiteral("Unha\ndous"));
        f.txtPor->setFocus();
        QTest::keyClicks(f.txtPor, QStringLiteral("50"));
        QTest::keyClick(f.txtPor, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), f.txtMax);
        QTest::keyClicks(f.txtMax, QStringLiteral("4"));
        QTest::keyClick(f.txtMax, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), f.txtCri);
        QTest::keyClick(f.txtCri, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), f.txtCri);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void editarOpensTheRowAndComesBackToTheSameRow()
    {
        frmTareasRubrica form;
        abrir(form);
        form.mshDatos->setRow(2); // Num "10", key 4
        QString num, des, cri;
        bool focoDes = false;
        auto run = onModal<frmTareasRubricaActividad>([&](frmTareasRubricaActividad* f) {
            num = f->txtNum->text();
            des = f->txtDes->toPlainText();
            cri = f->txtCri->toPlainText();
            focoDes = QApplication::focusWidget() == f->txtDes;
            QCOMPARE(f->txtId->text(), QStringLiteral("4"));
            QCOMPARE(f->txtPor->text(), QStringLiteral("0"));
            QCOMPARE(f->txtMax->text(), QStringLiteral("5"));
            f->txtNum->setText(QStringLiteral("3"));
            f->cmdAceptar->click();
        });
        click(form.cmdEditar);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando actividade nº  10"));
        QCOMPARE(num, QStringLiteral("10"));
        QCOMPARE(des, QStringLiteral("Presentación"));
        QCOMPARE(cri, QStringLiteral("Expone ante la clase"));
        QVERIFY(focoDes);
        QCOMPARE(value(QStringLiteral("SELECT Num FROM tblTareasRubrica WHERE Id = 4")).toString(),
                 QStringLiteral("3"));
        // The list is read again and the grid goes back to the row it was on.
        QCOMPARE(gridtext::column(*form.mshDatos, kColNum),
                 (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
        QCOMPARE(form.mshDatos->Row(), 2);
        QCOMPARE(form.Tag, QString());
    }

    void deletingAnActivityLeavesItsValuesInTblNotasRubrica()
    {
        frmTareasRubrica form;
        abrir(form);
        form.mshDatos->setRow(1); // Num "1", key 1, valued in marks 7 and 8
        MsgBox::script({vbYes, vbOK});
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("¿Borrar a actividade nº 1?"));
        QCOMPARE(MsgBox::shown()[0].flags, vbYesNo + vbInformation);
        QCOMPARE(MsgBox::shown()[1].text, QStringLiteral("PROCESO FINALIZADO"));
        QCOMPARE(count(QStringLiteral("tblTareasRubrica WHERE Id = 1")), 0);
        QCOMPARE(count(QStringLiteral("tblNotasRubrica WHERE IdActividad = 1")), 2);
        QCOMPARE(gridtext::column(*form.mshDatos, kColNum), (QStringList{QStringLiteral("10"), QStringLiteral("2")}));
    }

    void answeringNoDeletesNothing()
    {
        frmTareasRubrica form;
        abrir(form);
        MsgBox::setNextAnswer(vbNo);
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(count(QStringLiteral("tblTareasRubrica")), 4);
    }

    void plantillaAndGraficoOpenTheirScreensOverTheRubric()
    {
        frmTareasRubrica form;
        abrir(form);
        auto plantilla = onModal<frmRubricas>([](frmRubricas* f) { click(f->cmdSalir); });
        click(form.cmdPlantilla);
        QVERIFY(plantilla->closedByItself());
        QCOMPARE(plantilla->caption, QStringLiteral("RÚBRICAS"));
        QCOMPARE(form.Tag, QString());
        auto grafico = onModal<frmGraficoRubrica>([](frmGraficoRubrica* f) { f->close(); });
        click(form.cmdGrafico);
        QVERIFY(grafico->opened);
        QCOMPARE(grafico->caption, QStringLiteral("Grafico de Rúbrica"));
        QCOMPARE(form.cmdPlantilla->text(), QStringLiteral("Cargar &Plantilla"));
        QCOMPARE(form.cmdGrafico->text(), QStringLiteral("&Gráfico"));
    }
};

QTEST_MAIN(TestRubricDefinition)
#include "test_rubric_definition.moc"
