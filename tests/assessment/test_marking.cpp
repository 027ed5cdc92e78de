// The marking grid of a task on the sample year: the rows and the band
// colour of column 0, the band counts with their edge cases, changing and
// deleting a mark, sorting by a title, and the screens opened from it.
#include "assessment/Bandas.h"
#include "assessment/frmEvaluar.h"
#include "core/Modulo.h"
#include "marks/frmEvaluarNota.h"
#include "reports/engine/ReportDocument.h"
#include "reports/viewers/frmInforme.h"
#include "students/frmAlumnosFicha.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ReportFixture.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using yearq::count;
using yearq::value;

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "
const QString kCabecera =
    QStringLiteral(" Examen | Evaluación: 1ª Evaluación | Materia: Lengua | Grupo: 5º Primaria A");

// Whether column 0 of the row carries a colour of its own (the fixed
// column shows the button face when it has none).
bool coloured(const FlexGrid& g, int r)
{
    return g.hasCellBackColor(r, 0);
}

QStringList statistics(const frmEvaluar& f)
{
    return gridtext::row(*f.mshEstatistica, 1);
}

void clickTitle(FlexGrid& g, int col)
{
    QHeaderView* h = g.horizontalHeader();
    QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(col - 1) + 4, 4));
}

} // namespace

class TestMarking : public QObject {
    Q_OBJECT

    std::unique_ptr<ReportFixture> fixture_;
    ScreenHarness harness_;

    void open(frmEvaluar& f, qint32 tarea, qint32 grupo, qint16 maximo)
    {
        f.setIdTarea(tarea);
        f.setIdGrupo(grupo);
        f.setValorMaximo(maximo);
        f.lblCabecera->setText(kCabecera);
        f.show();
    }

    // A ninth task of 5º Primaria A on its own type, with its marks.
    void extraTask(int min, int max, const QStringList& marks = {}, int grupo = 1)
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (4, 'Outro', %1, %2)")
                               .arg(min)
                               .arg(max));
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) "
                                          "VALUES (9, 'Outra', 4, 1, 1, %1, True, False)")
                               .arg(grupo));
        for (int i = 0; i < marks.size(); ++i)
            gConexion->Execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (%1, 9, %2, %3)")
                                   .arg(100 + i)
                                   .arg(i + 1)
                                   .arg(marks[i]));
    }

private slots:
    void init()
    {
        fixture_ = std::make_unique<ReportFixture>();
        gColor = QStringLiteral(" 12632256 ");
        gFilaActual = 0;
        harness_.start();
    }

    void cleanup()
    {
        harness_.finish();
        fixture_.reset();
    }

    // ---- the grid and the bands

    void everyStudentOfTheGroupWithTheMarkAndRemark()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(g.Cols(), 7);
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Alumno", "NOTA", "Observaciones", "", ""}));
        QCOMPARE(gridtext::widths(g), (QList<int>{500, 800, 4500, 1200, 5000, 0, 0}));
        QCOMPARE(gridtext::row(g, 1).mid(0, 6), (QStringList{"1", "2", "FERNÁNDEZ NÚÑEZ BRAIS", "4,9995", "", "2"}));
        QCOMPARE(gridtext::row(g, 2).mid(0, 6),
                 (QStringList{"2", "1", "GARCÍA LÓPEZ ANA", "7,5", "Buen trabajo", "1"}));
        QCOMPARE(gridtext::row(g, 3).mid(0, 6),
                 (QStringList{"3", "3", "PÉREZ CASTRO UXÍA", "0", "No se presenta", "3"}));
        for (int r = 1; r < 4; ++r) {
            const int key = g.TextMatrix(r, 6).toInt();
            QVERIFY(key >= r && key <= 1500);
        }
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(2, 4), kStripe);
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.Col(), 1);
        QCOMPARE(f.NotasEncontradas(), 3);
        QCOMPARE(gridtext::row(*f.mshEstatistica, 0), (QStringList{"IN", "SF", "BE", "NT", "SB", "Correción"}));
        for (int b = 0; b < bands::Count; ++b)
            QCOMPARE(f.mshEstatistica->CellBackColor(0, b), bands::colour(b));
        QCOMPARE(bands::colour(bands::IN), QColor(0xFF, 0x91, 0x91));
        QCOMPARE(bands::colour(bands::SB), QColor(0xEB, 0xDE, 0xA0));
    }

    void aMarkOfZeroIsNeitherColouredNorCountedYetDivides()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        QVERIFY(!coloured(*f.mshDatos, 3));
        // 1 of 3 in SF and 1 of 3 in NT: the percentages add up to 66,6.
        QCOMPARE(statistics(f), (QStringList{"-", "1 | 33,3%", "-", "1 | 33,3%", "-", "3/3"}));
    }

    void aMarkOf4_9995IsColouredInAndCountedSf()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        QCOMPARE(f.mshDatos->CellBackColor(1, 0), bands::colour(bands::IN));
        QCOMPARE(f.mshDatos->CellBackColor(2, 0), bands::colour(bands::NT));
        QCOMPARE(statistics(f)[bands::SF], QStringLiteral("1 | 33,3%"));
        QCOMPARE(statistics(f)[bands::IN], QStringLiteral("-"));
    }

    void aMarkOf5_995IsColouredSfAndCountedNowhereAndOneAboveTheMaximumIsNeither()
    {
        frmEvaluar f;
        open(f, 2, 1, 5); // Deberes, Max 5: 2,9975 -> 5.995; 4,75 -> 9.5; 6 -> 12
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.TextMatrix(1, 3), QStringLiteral("2,9975"));
        QCOMPARE(g.CellBackColor(1, 0), bands::colour(bands::SF));
        QCOMPARE(g.CellBackColor(2, 0), bands::colour(bands::SB));
        QCOMPARE(g.TextMatrix(3, 3), QStringLiteral("6"));
        QVERIFY(!coloured(g, 3));
        QCOMPARE(statistics(f), (QStringList{"-", "-", "-", "-", "1 | 33,3%", "3/3"}));
    }

    void theColoursUseValorMaximoAndTheCountsTheTypeOfTheTask()
    {
        frmEvaluar f;
        open(f, 1, 1, 5);                                                    // the type says 10
        QCOMPARE(f.mshDatos->CellBackColor(1, 0), bands::colour(bands::SB)); // 4,9995 / 5 * 10
        QVERIFY(!coloured(*f.mshDatos, 2));                                  // 7,5 / 5 * 10 = 15
        QCOMPARE(statistics(f), (QStringList{"-", "1 | 33,3%", "-", "1 | 33,3%", "-", "3/3"}));
    }

    void aNegativeMarkTakesTheButtonFace()
    {
        extraTask(-5, 5, {"2", "-2"}); // Ana 2, Brais -2
        frmEvaluar f;
        open(f, 9, 1, 5);
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.TextMatrix(1, 3), QStringLiteral("-2"));
        QVERIFY(coloured(g, 1));
        QCOMPARE(g.CellBackColor(1, 0), ui::buttonFace());
        QCOMPARE(g.CellBackColor(2, 0), bands::colour(bands::IN)); // 2 / 5 * 10 = 4
        QCOMPARE(statistics(f), (QStringList{"1 | 50,0%", "-", "-", "-", "-", "2/3"}));
    }

    void aStudentWhoLeftTheGroupCountsButDoesNotDivide()
    {
        frmEvaluar f;
        open(f, 8, 3, 10); // Xoán 7 in the group, Antía 3 of a deleted group
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(gridtext::column(g, 2), (QStringList{"CASTRO FERREÑO MARÍA", "VÁZQUEZ MUÑOZ XOÁN"}));
        QCOMPARE(gridtext::column(g, 3), (QStringList{"", "7"}));
        QCOMPARE(f.NotasEncontradas(), 1);
        QCOMPARE(statistics(f), (QStringList{"1 | 100,0%", "-", "-", "1 | 100,0%", "-", "2/2"}));
    }

    void aGroupWithNoStudentsGivesAnEmptyGridAndDashes()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (4, 'D', 2, False)"));
        extraTask(0, 10, {}, 4);
        frmEvaluar f;
        open(f, 9, 4, 10);
        QCOMPARE(f.mshDatos->Rows(), 2);
        QCOMPARE(f.mshDatos->TextMatrix(1, 1), QString());
        QCOMPARE(statistics(f), (QStringList{"-", "-", "-", "-", "-", "0/0"}));
    }

    void aTaskWithNoMarksGivesDashesAndNoneOverTheStudents()
    {
        extraTask(0, 10);
        frmEvaluar f;
        open(f, 9, 1, 10);
        QCOMPARE(gridtext::column(*f.mshDatos, 3), (QStringList{"", "", ""}));
        QCOMPARE(statistics(f), (QStringList{"-", "-", "-", "-", "-", "0/3"}));
    }

    void aMarkNotGivenYetShowsEmptyAndUncolouredButIsFound()
    {
        gConexion->Execute(QStringLiteral("UPDATE tblNotas SET Nota = Null WHERE Id = 1")); // Ana, task 1
        frmEvaluar f;
        open(f, 1, 1, 10);
        QCOMPARE(gridtext::row(*f.mshDatos, 2).mid(3, 3), (QStringList{"", "Buen trabajo", "1"}));
        QVERIFY(!coloured(*f.mshDatos, 2));
        QCOMPARE(f.NotasEncontradas(), 3);
        QCOMPARE(statistics(f), (QStringList{"-", "1 | 33,3%", "-", "-", "-", "3/3"}));
    }

    void aMaximumOfZeroIsADivisionByZero()
    {
        extraTask(0, 0, {"5"});
        frmEvaluar f;
        open(f, 9, 1, 0);
        QCOMPARE(harness_.errors.size(), 1);
        QCOMPARE(harness_.errors.first().Number(), 11);
    }

    // ---- changing a mark

    void aDoubleClickChangesTheMarkAndRecounts()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        QString caption, des, info, shown;
        qint32 nota = 0, alu = 0, tarea = 0;
        auto run = onModal<frmEvaluarNota>([&](frmEvaluarNota* d) {
            caption = d->Caption();
            des = d->DesTarea();
            nota = d->IdNota();
            alu = d->IdAlu();
            tarea = d->IdTarea();
            info = d->lblInfo->text();
            shown = d->txtNota->text();
            d->txtNota->setText(QStringLiteral("9,5"));
            d->cmdAceptar->click();
        });
        emit f.mshDatos->DblClick();
        QVERIFY(run->closedByItself());
        QCOMPARE(caption, QStringLiteral("FERNÁNDEZ NÚÑEZ BRAIS"));
        QCOMPARE(des, kCabecera);
        QCOMPARE(nota, 2);
        QCOMPARE(alu, 2);
        QCOMPARE(tarea, 1);
        QCOMPARE(info, QStringLiteral("Nota mínima: 0 | Nota máxima: 10"));
        QCOMPARE(shown, QStringLiteral("4,9995"));
        QCOMPARE(value(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 2")).toFloat(), 9.5f);
        QCOMPARE(f.mshDatos->TextMatrix(1, 3), QStringLiteral("9,5"));
        QCOMPARE(f.mshDatos->CellBackColor(1, 0), bands::colour(bands::SB));
        QCOMPARE(statistics(f), (QStringList{"-", "-", "-", "1 | 33,3%", "1 | 33,3%", "3/3"}));
        QCOMPARE(f.mshDatos->Row(), 1);
        QCOMPARE(gFilaActual, 1);
        QCOMPARE(f.Tag, QString());
    }

    void enterOnARowWithoutAMarkInsertsOne()
    {
        frmEvaluar f;
        open(f, 6, 1, 10); // Uxía has no mark in task 6
        f.mshDatos->setRow(3);
        qint32 idNota = 0;
        auto run = onModal<frmEvaluarNota>([&](frmEvaluarNota* d) {
            idNota = d->IdNota();
            QCOMPARE(d->txtNota->text(), QString());
            d->txtNota->setText(QStringLiteral("6"));
            d->txtObs->setText(QStringLiteral("Recuperada"));
            d->cmdAceptar->click();
        });
        QTest::keyClick(f.mshDatos, Qt::Key_Return);
        QVERIFY(run->closedByItself());
        QCOMPARE(idNota, -1);
        QCOMPARE(
            value(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 18 AND IdTarea = 6 AND IdAlu = 3")).toFloat(),
            6.0f);
        QCOMPARE(gridtext::row(*f.mshDatos, 3).mid(2, 4), (QStringList{"PÉREZ CASTRO UXÍA", "6", "Recuperada", "18"}));
        QCOMPARE(f.mshDatos->CellBackColor(3, 0), bands::colour(bands::BE));
        QCOMPARE(statistics(f), (QStringList{"-", "1 | 33,3%", "1 | 33,3%", "1 | 33,3%", "-", "3/3"}));
        QCOMPARE(f.mshDatos->Row(), 3);
    }

    void aMarkThatHasGoneStaysOnTheGridUntilARebuild()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        gConexion->Execute(QStringLiteral("DELETE * FROM tblNotas WHERE Id = 1")); // Ana's 7,5
        auto run = onModal<frmEvaluarNota>([](frmEvaluarNota* d) { d->cmdAceptar->click(); });
        emit f.mshDatos->DblClick(); // Brais, saved as it was
        QVERIFY(run->closedByItself());
        QCOMPARE(f.mshDatos->TextMatrix(2, 3), QStringLiteral("7,5"));
        QCOMPARE(f.NotasEncontradas(), 2);
        QCOMPARE(statistics(f), (QStringList{"-", "1 | 50,0%", "-", "-", "-", "2/3"}));
    }

    // ---- deleting a mark

    void deletingAMarkLeavesTheStatisticsStale()
    {
        frmEvaluar f;
        open(f, 3, 1, 100); // Proyecto huerto: Brais 45, Ana 85 with rubric values
        const QStringList before{"1 | 50,0%", "-", "-", "1 | 50,0%", "-", "2/3"};
        QCOMPARE(statistics(f), before);
        f.mshDatos->setRow(2);
        MsgBox::setNextAnswer(vbYes);
        click(f.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Esta seguro de eliminar la nota de \r\nGARCÍA LÓPEZ ANA"));
        QCOMPARE(MsgBox::shown()[0].flags, vbYesNo + vbInformation);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotas WHERE Id = 7")).toInt(), 0);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotasRubrica WHERE IdNota = 7")).toInt(), 0);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotasRubrica WHERE IdNota = 8")).toInt(), 2);
        QCOMPARE(gridtext::row(*f.mshDatos, 2).mid(2, 4), (QStringList{"GARCÍA LÓPEZ ANA", "", "", ""}));
        QVERIFY(!coloured(*f.mshDatos, 2));
        QCOMPARE(f.mshDatos->Row(), 2);
        QCOMPARE(statistics(f), before);

        // The next change of a mark brings them up to date.
        auto run = onModal<frmEvaluarNota>([](frmEvaluarNota* d) { d->cmdAceptar->click(); });
        f.mshDatos->setRow(1);
        click(f.cmdEvaluarNota);
        QVERIFY(run->closedByItself());
        QCOMPARE(statistics(f), (QStringList{"1 | 100,0%", "-", "-", "-", "-", "1/3"}));
    }

    void deletingIsRefusedByNo()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        MsgBox::setNextAnswer(vbNo);
        click(f.cmdBorrar);
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    void deletingARowWithoutAMarkIsARunTimeError()
    {
        frmEvaluar f;
        open(f, 6, 1, 10);
        f.mshDatos->setRow(3);
        MsgBox::setNextAnswer(vbYes);
        click(f.cmdBorrar);
        QCOMPARE(harness_.errors.size(), 1);
        QCOMPARE(harness_.errors.first().Number(), int(RuntimeError::TypeMismatch));
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    // ---- sorting

    void aTitleClickSortsAscendingThenDescendingThenAscending()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        FlexGrid& g = *f.mshDatos;
        clickTitle(g, 3);
        QCOMPARE(gridtext::column(g, 3), (QStringList{"0", "4,9995", "7,5"}));
        QCOMPARE(g.CellBackColor(2, 0), bands::colour(bands::IN)); // the colour goes with its row
        QCOMPARE(g.CellBackColor(3, 0), bands::colour(bands::NT));
        QCOMPARE(g.CellBackColor(1, 2), ui::white());
        QCOMPARE(g.CellBackColor(2, 2), kStripe);
        clickTitle(g, 3);
        QCOMPARE(gridtext::column(g, 3), (QStringList{"7,5", "4,9995", "0"}));
        clickTitle(g, 3);
        QCOMPARE(gridtext::column(g, 3), (QStringList{"0", "4,9995", "7,5"}));
        clickTitle(g, 2);
        QCOMPARE(gridtext::column(g, 2),
                 (QStringList{"FERNÁNDEZ NÚÑEZ BRAIS", "GARCÍA LÓPEZ ANA", "PÉREZ CASTRO UXÍA"}));
    }

    void theReportsPaintTheBandsInTheColoursOfTheGrid()
    {
        const QString style = reports::ReportDocument::houseStyle();
        for (int b = 0; b < bands::Count; ++b) {
            const QString rule =
                QStringLiteral("td.band%1 { background-color: %2;").arg(bands::name(b), bands::colour(b).name());
            QVERIFY2(style.contains(rule), qPrintable(rule));
        }
        QCOMPARE(bands::colour(bands::BE).name(), QStringLiteral("#6d80e2")); // blue on screen and on paper
    }

    void theSortedTitleShowsTheArrowOfItsDirection()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        FlexGrid& g = *f.mshDatos;
        QHeaderView* titles = g.horizontalHeader();
        QVERIFY(!titles->isSortIndicatorShown());
        clickTitle(g, 3);
        QVERIFY(titles->isSortIndicatorShown());
        QCOMPARE(titles->sortIndicatorSection(), 3 - g.FixedCols());
        QCOMPARE(titles->sortIndicatorOrder(), Qt::AscendingOrder);
        clickTitle(g, 3);
        QCOMPARE(titles->sortIndicatorOrder(), Qt::DescendingOrder);
        clickTitle(g, 2);
        QCOMPARE(titles->sortIndicatorSection(), 2 - g.FixedCols());
        QCOMPARE(titles->sortIndicatorOrder(), Qt::AscendingOrder);
        // Deleting a mark fills the grid anew, in the students' order: no arrow.
        g.setRow(1);
        MsgBox::setNextAnswer(vbYes);
        click(f.cmdBorrar);
        QVERIFY(!titles->isSortIndicatorShown());
    }

    void aNewOpeningForgetsTheLastSort()
    {
        {
            frmEvaluar f;
            open(f, 1, 1, 10);
            clickTitle(*f.mshDatos, 3);
        }
        frmEvaluar f;
        open(f, 1, 1, 10);
        clickTitle(*f.mshDatos, 3); // ascending again, not descending
        QCOMPARE(gridtext::column(*f.mshDatos, 3), (QStringList{"0", "4,9995", "7,5"}));
    }

    // ---- the screens opened from the grid

    void fichaOpensTheStudentSheetToConsult()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        f.mshDatos->setRow(2);
        quint8 estado = 0;
        qint32 id = 0;
        bool list = false;
        QString marks;
        QString types;
        auto run = onModal<frmAlumnosFicha>([&](frmAlumnosFicha* s) {
            estado = s->Estado();
            id = s->Id();
            list = s->rcAlumnos() != nullptr;
            // The marks tab is in view and filled.
            if (s->sstDatos->currentWidget() == s->tabNotas)
                for (int r = 1; r < s->mshEval->Rows(); ++r)
                    marks += s->mshEval->TextMatrix(r, 1) + u'/' + s->mshEval->TextMatrix(r, 2) + u'/' +
                             s->mshEval->TextMatrix(r, 4) + u';';
            types = s->mshNotas->TextMatrix(1, 1);
            s->close();
        });
        click(f.cmdFichaAlumno);
        QVERIFY(run->opened);
        QCOMPARE(run->caption, QStringLiteral("Consultando GARCÍA LÓPEZ ANA"));
        QCOMPARE(estado, quint8(2));
        QCOMPARE(id, 1);
        QVERIFY(list);
        QCOMPARE(marks, QStringLiteral("2ª Evaluación/Lengua/8,50;1ª Evaluación/Lengua/7,00;"));
        QCOMPARE(types, QStringLiteral("Examen"));
        QCOMPARE(f.cmdFichaAlumno->text(), QStringLiteral("&Ficha"));
    }

    void fichaDoesNothingOnAnEmptyGroup()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (4, 'D', 2, False)"));
        frmEvaluar f;
        open(f, 1, 4, 10);
        const int activations = f.activations();
        click(f.cmdFichaAlumno);
        QCOMPARE(f.activations(), activations);
    }

    void informesPrintsTheMarksWithTheFiveBandCells()
    {
        frmEvaluar f;
        open(f, 1, 1, 10);
        QStringList entries;
        QString title, html;
        auto run = onModal<frmInforme>([&](frmInforme* informe) {
            for (int i = 0; i < informe->lstInforme->count(); ++i)
                entries << informe->lstInforme->item(i)->text();
            informe->lstInforme_Click(informe->lstInforme->item(0));
            if (informe->shownReport()) {
                title = informe->shownReport()->header().title;
                html = informe->shownReport()->html();
            }
            informe->close();
        });
        click(f.cmdInformes);
        QVERIFY(run->opened);
        QCOMPARE(entries, QStringList{QStringLiteral("Notas Alumno")});
        QCOMPARE(title, kCabecera);
        QVERIFY(html.contains(QStringLiteral("1 | 33,3%")));
        QVERIFY(html.contains(QStringLiteral("Fernández Núñez")));
        QVERIFY(!html.contains(QStringLiteral("Rodríguez")));
        QCOMPARE(f.cmdEvaluarNota->text(), QStringLiteral("Cambiar N&ota"));
        QCOMPARE(f.cmdInformes->text(), QStringLiteral("&Informes"));
    }
};

QTEST_MAIN(TestMarking)
#include "test_marking.moc"
