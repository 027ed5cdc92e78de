// The band counts of a group's final, evaluation and recovery marks, on years
// built for each case: the screen as it opens, the counts with the bounds of
// these marks (0 counts, 4.995 and the other hundredths fall between bands,
// above 10 nowhere), which statement counts, the keys kept when a text is not
// found, the chart beside the table and the list it prints.
#include "assessment/Bandas.h"
#include "assessment/frmEstatisticas.h"
#include "assessment/frmEvaluar.h"
#include "core/Modulo.h"
#include "reports/engine/ReportDocument.h"
#include "reports/viewers/frmInformeListado.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ReportFixture.h"
#include "support/ScreenHarness.h"
#include "support/YearBuilder.h"
#include "ui/Colors.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QHorizontalStackedBarSeries>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "

// A mark as the cases write it: "Null" or a number with a point.
QVariant nota(const QString& text)
{
    return text == QLatin1String("Null") ? QVariant() : QVariant(text.toDouble());
}

const QString kGrupoA = QStringLiteral("5º Primaria - A");
const QString kGrupoB = QStringLiteral("1º ESO - B");
const QString kGrupoC = QStringLiteral("1º ESO - C");

// The count cells of each row, "<subject>: IN SF BE NT SB".
QStringList counts(const frmEstatisticas& f)
{
    QStringList rows;
    const FlexGrid& g = *f.mshDatos;
    for (int r = 1; r < g.Rows(); ++r)
        rows << g.TextMatrix(r, 2) + QStringLiteral(": ") + gridtext::row(g, r).mid(3).join(u' ');
    return rows;
}

QHorizontalStackedBarSeries* bars(const frmEstatisticas& f)
{
    const QList<QAbstractSeries*> series = f.chtBandas->chart()->series();
    return series.size() == 1 ? qobject_cast<QHorizontalStackedBarSeries*>(series.first()) : nullptr;
}

} // namespace

class TestStatistics : public QObject {
    Q_OBJECT

    ScreenYear session_;

    // Three groups of one year: "5º Primaria - A" with eight students (keys 1
    // to 8), "1º ESO - B" with three (9 to 11), "1º ESO - C" with one (12);
    // two evaluations and four subjects. No marks: each test puts in the
    // marks of its case.
    void frame()
    {
        YearBuilder y;
        const qint32 primaria = y.course(QStringLiteral("5º"), y.level(QStringLiteral("Primaria")));
        const qint32 eso = y.course(QStringLiteral("1º"), y.level(QStringLiteral("ESO")));
        const qint32 a = y.group(QStringLiteral("A"), primaria);
        const qint32 b = y.group(QStringLiteral("B"), eso);
        const qint32 c = y.group(QStringLiteral("C"), eso);
        for (const char* eval : {"1ª Avaliación", "2ª Avaliación"})
            y.evaluation(QString::fromUtf8(eval));
        for (const char* mat : {"Lingua", "Matemáticas", "Inglés", "Música"})
            y.subject(QString::fromUtf8(mat));
        const std::pair<const char*, const char*> grupoA[] = {
            {"Abal", "Ana"},  {"Barros", "Brais"}, {"Castro", "Carme"},   {"Dopico", "Diego"},
            {"Eiras", "Eva"}, {"Fraga", "Fiz"},    {"Outeiro", "Olalla"}, {"Pena", "Pía"}};
        for (const auto& [ape, nom] : grupoA)
            y.student(QString::fromUtf8(ape), QString::fromUtf8(nom), a);
        for (const auto& [ape, nom] : {std::pair{"Gil", "Gael"}, std::pair{"Lema", "Iria"}, std::pair{"Mato", "Noa"}})
            y.student(QString::fromUtf8(ape), QString::fromUtf8(nom), b);
        y.student(QStringLiteral("Novo"), QStringLiteral("Uxía"), c);
    }

    void finalMark(int alu, int mat, const QString& notaO, const QString& notaE = QStringLiteral("Null"))
    {
        YearBuilder().finalMark(alu, mat, nota(notaO), nota(notaE));
    }

    void evalMark(int eval, int alu, int mat, const QString& notaEval, bool recuperar = false,
                  const QString& notaRec = QStringLiteral("Null"))
    {
        YearBuilder y;
        if (recuperar)
            y.recovery(alu, eval, mat, nota(notaEval), nota(notaRec));
        else
            y.evaluationMark(alu, eval, mat, nota(notaEval));
    }

    // The same marks, one per student of group A from the first, in the
    // column that a kind of mark counts: NotaO, NotaE, Nota or NotaRec (the
    // recovery of a mark of 3 that is to be recovered).
    void marksOfKind(const QString& kind, int mat, const QStringList& marks)
    {
        for (int i = 0; i < marks.size(); ++i) {
            const int alu = i + 1;
            if (kind == QLatin1String("NotaO"))
                finalMark(alu, mat, marks[i]);
            else if (kind == QLatin1String("NotaE"))
                finalMark(alu, mat, QStringLiteral("3"), marks[i]);
            else if (kind == QLatin1String("Nota"))
                evalMark(1, alu, mat, marks[i]);
            else
                evalMark(1, alu, mat, QStringLiteral("3"), true, marks[i]);
        }
    }

    void open(frmEstatisticas& f)
    {
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
    }

    // Group, kind and period chosen as the teacher does, then "Calcular".
    void compute(frmEstatisticas& f, const QString& grupo, const QString& notas, const QString& avaliacion)
    {
        gridtext::pick(f.cmbGrupo, grupo);
        gridtext::pick(f.cmbNotas, notas);
        gridtext::pick(f.cmbAvaliacion, avaliacion);
        click(f.cmdCalcular);
    }

private slots:
    void init() { session_.start(TempYear::Fill::Empty); }

    void cleanup() { session_.finish(); }

    // ---- the screen as it opens

    void theScreenOpensOnTheFirstGroupAndOrdinaryFinalsWithNothingComputed()
    {
        frame();
        finalMark(1, 1, QStringLiteral("7"));
        frmEstatisticas f;
        open(f);
        QCOMPARE(f.Caption(), QStringLiteral("Estatísticas"));
        QCOMPARE(gridtext::items(*f.cmbGrupo), (QStringList{kGrupoA, kGrupoB, kGrupoC}));
        QCOMPARE(f.cmbGrupo->currentText(), kGrupoA);
        QCOMPARE(gridtext::items(*f.cmbNotas),
                 (QStringList{QStringLiteral("Finais"), QStringLiteral("Avaliación"), QStringLiteral("Recuperación")}));
        QCOMPARE(f.cmbNotas->currentText(), QStringLiteral("Finais"));
        QCOMPARE(gridtext::items(*f.cmbAvaliacion),
                 (QStringList{QStringLiteral("Ordinaria"), QStringLiteral("Extraordinaria")}));
        QCOMPARE(f.cmbAvaliacion->currentText(), QStringLiteral("Ordinaria"));
        QCOMPARE(f.cmdCalcular->text(), QStringLiteral("&Calcular"));
        QCOMPARE(f.cmdInforme->text(), QStringLiteral("&Informe"));

        // Laid out, and empty until "Calcular", though there is a mark to count.
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.Cols(), 8);
        QCOMPARE(g.Rows(), 2);
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "", "Materia", "IN", "SF", "BE", "NT", "SB"}));
        QCOMPARE(gridtext::row(g, 1), QStringList(8, QString()));
        QVERIFY(!bars(f));
    }

    void theColumnsTakeHalfOfTheGridForTheSubjectAndSixPerCentPerBand()
    {
        frame();
        finalMark(1, 1, QStringLiteral("7"));
        frmEstatisticas f;
        open(f);
        auto expected = [&] {
            const int ancho = f.mshDatos->pixelsToTwips(f.mshDatos->width());
            const int banda = ancho * 6 / 100;
            return QList<int>{500, 0, ancho / 2, banda, banda, banda, banda, banda};
        };
        QCOMPARE(gridtext::widths(*f.mshDatos), expected());
        click(f.cmdCalcular);
        QCOMPARE(gridtext::widths(*f.mshDatos), expected());
        f.resize(f.width() + 200, f.height());
        QApplication::processEvents();
        QCOMPARE(gridtext::widths(*f.mshDatos), expected());
    }

    void aClickInNotasRefillsThePeriodsAndSelectsTheFirst()
    {
        frame();
        frmEstatisticas f;
        open(f);
        gridtext::pick(f.cmbNotas, QStringLiteral("Avaliación"));
        QCOMPARE(gridtext::items(*f.cmbAvaliacion),
                 (QStringList{QStringLiteral("1ª Avaliación"), QStringLiteral("2ª Avaliación")}));
        QCOMPARE(f.cmbAvaliacion->currentText(), QStringLiteral("1ª Avaliación"));
        gridtext::pick(f.cmbAvaliacion, QStringLiteral("2ª Avaliación"));
        gridtext::pick(f.cmbNotas, QStringLiteral("Recuperación"));
        QCOMPARE(f.cmbAvaliacion->count(), 2);
        QCOMPARE(f.cmbAvaliacion->currentText(), QStringLiteral("1ª Avaliación"));
        gridtext::pick(f.cmbNotas, QStringLiteral("Finais"));
        QCOMPARE(gridtext::items(*f.cmbAvaliacion),
                 (QStringList{QStringLiteral("Ordinaria"), QStringLiteral("Extraordinaria")}));
        QCOMPARE(f.cmbAvaliacion->currentText(), QStringLiteral("Ordinaria"));
    }

    void withNoEvaluationsThePeriodListStaysAsItWas()
    {
        frame();
        gConexion->Execute(QStringLiteral("DELETE * FROM tblEvaluaciones"));
        frmEstatisticas f;
        open(f);
        gridtext::pick(f.cmbNotas, QStringLiteral("Avaliación"));
        QCOMPARE(gridtext::items(*f.cmbAvaliacion),
                 (QStringList{QStringLiteral("Ordinaria"), QStringLiteral("Extraordinaria")}));
        QCOMPARE(f.cmbAvaliacion->currentText(), QStringLiteral("Ordinaria"));
    }

    void withNoGroupsTheGroupListStaysEmptyAndTheTableToo()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblMaterias (Id, Des) VALUES (1, 'Lingua')"));
        finalMark(1, 1, QStringLiteral("7"));
        frmEstatisticas f;
        open(f);
        QCOMPARE(f.cmbGrupo->count(), 0);
        QCOMPARE(f.cmbGrupo->currentText(), QString());
        click(f.cmdCalcular);
        QCOMPARE(f.mshDatos->Rows(), 2);
        QCOMPARE(gridtext::row(*f.mshDatos, 1), QStringList(8, QString()));
        QVERIFY(session_.harness.errors.isEmpty());
    }

    // ---- the counts

    void aGroupWithoutFinalMarksYieldsAnEmptyTable()
    {
        frame();
        finalMark(1, 1, QStringLiteral("7"));
        evalMark(1, 12, 1, QStringLiteral("6")); // group C: an evaluation mark, no final one
        frmEstatisticas f;
        open(f);
        click(f.cmdCalcular);
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lingua: 0 0 0 1 0")});
        compute(f, kGrupoC, QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.Rows(), 2);
        for (int r = 0; r < g.Rows(); ++r)
            QCOMPARE(gridtext::row(g, r), QStringList(8, QString()));
        QVERIFY(!bars(f));
        QCOMPARE(f.IdGrupo(), 3);
    }

    void marksOf4_995_5_995_6_995And8_995CountInNoBand_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("notas");
        QTest::addColumn<QString>("avaliacion");
        QTest::newRow("ordinary final") << "NotaO"
                                        << "Finais"
                                        << "Ordinaria";
        QTest::newRow("extraordinary final") << "NotaE"
                                             << "Finais"
                                             << "Extraordinaria";
        QTest::newRow("evaluation") << "Nota"
                                    << "Avaliación"
                                    << "1ª Avaliación";
        QTest::newRow("recovery") << "NotaRec"
                                  << "Recuperación"
                                  << "1ª Avaliación";
    }
    void marksOf4_995_5_995_6_995And8_995CountInNoBand()
    {
        QFETCH(QString, column);
        QFETCH(QString, notas);
        QFETCH(QString, avaliacion);
        frame();
        // Each hundredth below a band's start lies in the gap; the mark a
        // hundredth lower still counts in the band below.
        marksOfKind(column, 2, {"4.995", "5.995", "6.995", "8.995"});
        marksOfKind(column, 1, {"4.99", "5.99", "6.99", "8.99", "9", "5", "7", "4.999"});
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, notas, avaliacion);
        QCOMPARE(counts(f),
                 (QStringList{QStringLiteral("Lingua: 1 3 1 2 1"), QStringLiteral("Matemáticas: 0 0 0 0 0")}));
    }

    void aMarkOfZeroCountsAsInHereAndInNoBandOnATasksStatistics()
    {
        frame();
        // Ana's 0 in Lingua, as the mark of a task and as her evaluation mark.
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES (1, 'Exame', 0, "
                                          "10, 1)"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) "
                                          "VALUES (1, 'Exame tema 1', 1, 1, 1, 1, True, True)"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (1, 1, 1, 0)"));
        evalMark(1, 1, 1, QStringLiteral("0"));
        finalMark(1, 1, QStringLiteral("0"));

        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("1ª Avaliación"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lingua: 1 0 0 0 0")});
        compute(f, kGrupoA, QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lingua: 1 0 0 0 0")});

        frmEvaluar tarefa;
        tarefa.setIdTarea(1);
        tarefa.setIdGrupo(1);
        tarefa.setValorMaximo(10);
        tarefa.show();
        QCOMPARE(tarefa.mshDatos->TextMatrix(1, 3), QStringLiteral("0"));
        QCOMPARE(gridtext::row(*tarefa.mshEstatistica, 1), (QStringList{"-", "-", "-", "-", "-", "1/8"}));
    }

    void extraordinariaWithOnlyOrdinaryMarksListsTheSubjectWithFiveZeros()
    {
        frame();
        finalMark(1, 4, QStringLiteral("6"));
        finalMark(2, 4, QStringLiteral("3"));
        finalMark(1, 1, QStringLiteral("4"), QStringLiteral("5.5"));
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Finais"), QStringLiteral("Extraordinaria"));
        QCOMPARE(counts(f), (QStringList{QStringLiteral("Lingua: 0 1 0 0 0"), QStringLiteral("Música: 0 0 0 0 0")}));
        compute(f, kGrupoA, QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        QCOMPARE(counts(f), (QStringList{QStringLiteral("Lingua: 1 0 0 0 0"), QStringLiteral("Música: 1 0 1 0 0")}));
    }

    void aRecoveryTableListsEverySubjectOfTheEvaluationAlsoThoseWithoutRecoveries()
    {
        frame();
        evalMark(1, 1, 1, QStringLiteral("3"), true, QStringLiteral("6"));
        evalMark(1, 2, 1, QStringLiteral("4"), true);                       // no recovery mark yet
        evalMark(1, 3, 1, QStringLiteral("2"), false, QStringLiteral("9")); // not to recover: not counted
        evalMark(1, 4, 1, QStringLiteral("8"));
        evalMark(1, 1, 2, QStringLiteral("7"));
        evalMark(1, 2, 2, QStringLiteral("9.5"));
        evalMark(2, 1, 3, QStringLiteral("2"), true, QStringLiteral("4")); // another evaluation
        evalMark(1, 9, 3, QStringLiteral("2"), true, QStringLiteral("4")); // another group
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Recuperación"), QStringLiteral("1ª Avaliación"));
        QCOMPARE(counts(f),
                 (QStringList{QStringLiteral("Lingua: 0 0 1 0 0"), QStringLiteral("Matemáticas: 0 0 0 0 0")}));
        // The evaluation table counts every first mark.
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("1ª Avaliación"));
        QCOMPARE(counts(f),
                 (QStringList{QStringLiteral("Lingua: 3 0 0 1 0"), QStringLiteral("Matemáticas: 0 0 0 1 1")}));
        QCOMPARE(f.IdEval(), 1);
    }

    void marksAbove10CountInNoBand()
    {
        frame();
        finalMark(1, 1, QStringLiteral("10"));
        finalMark(2, 1, QStringLiteral("10.01"));
        finalMark(3, 1, QStringLiteral("12"));
        evalMark(2, 1, 1, QStringLiteral("10"));
        evalMark(2, 2, 1, QStringLiteral("11"));
        evalMark(2, 3, 1, QStringLiteral("10.5"));
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lingua: 0 0 0 0 1")});
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("2ª Avaliación"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lingua: 0 0 0 0 1")});
    }

    void countsAreBareNumbersOneRowPerSubjectNumberedAndBanded()
    {
        frame();
        for (int alu = 1; alu <= 6; ++alu)
            evalMark(1, alu, 1 + alu % 3, QString::number(alu + 3));
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("1ª Avaliación"));
        const FlexGrid& g = *f.mshDatos;
        QCOMPARE(g.Rows(), 4); // no totals row
        QCOMPARE(gridtext::column(g, 0), (QStringList{"1", "2", "3"}));
        QCOMPARE(gridtext::column(g, 1), (QStringList{"1", "2", "3"}));
        // Lingua: 6, 9; Matemáticas: 4, 7; Inglés: 5, 8.
        QCOMPARE(counts(f), (QStringList{QStringLiteral("Lingua: 0 0 1 0 1"), QStringLiteral("Matemáticas: 1 0 0 1 0"),
                                         QStringLiteral("Inglés: 0 1 0 1 0")}));
        QCOMPARE(g.CellBackColor(1, 3), ui::white());
        QCOMPARE(g.CellBackColor(2, 3), kStripe);
        QCOMPARE(g.CellBackColor(2, 2), kStripe);
    }

    void theCountStatementIsChosenByThePeriodTextFirstThenByTheKind()
    {
        using F = frmEstatisticas;
        const QString avaliacion = QStringLiteral("Avaliación");
        const QString recuperacion = QStringLiteral("Recuperación");
        QCOMPARE(F::sqlConteo(avaliacion, QStringLiteral("Ordinaria"), bands::IN, 4, 2, 7),
                 QStringLiteral("SELECT tblNotasFinal.NotaO FROM tblNotasFinal INNER JOIN tblAlumnos ON "
                                "tblNotasFinal.IdAlu = tblAlumnos.Id Where tblAlumnos.Grupo = 4 And "
                                "tblNotasFinal.IdMat = 7 AND tblNotasFinal.NotaO BETWEEN 0.000 AND 4.99"));
        QCOMPARE(F::sqlConteo(recuperacion, QStringLiteral("Extraordinaria"), bands::SB, 4, 2, 7),
                 QStringLiteral("SELECT tblNotasFinal.NotaE FROM tblNotasFinal INNER JOIN tblAlumnos ON "
                                "tblNotasFinal.IdAlu = tblAlumnos.Id Where tblAlumnos.Grupo = 4 And "
                                "tblNotasFinal.IdMat = 7 AND tblNotasFinal.NotaE BETWEEN 8.999 AND 10"));
        QCOMPARE(F::sqlConteo(recuperacion, QStringLiteral("1ª Avaliación"), bands::SF, 4, 2, 7),
                 QStringLiteral("SELECT tblNotasEval.NotaRec FROM tblNotasEval INNER JOIN tblAlumnos ON "
                                "tblNotasEval.IdAlu = tblAlumnos.Id WHERE tblNotasEval.NotaRec BETWEEN 4.999 AND 5.99 "
                                "AND tblAlumnos.Grupo= 4 AND tblNotasEval.IdEval= 2 AND tblNotasEval.IdMat=7 AND "
                                "tblNotasEval.Recuperar = True"));
        QCOMPARE(F::sqlConteo(avaliacion, QStringLiteral("1ª Avaliación"), bands::BE, 4, 2, 7),
                 QStringLiteral("SELECT tblNotasEval.Nota FROM tblNotasEval INNER JOIN tblAlumnos ON "
                                "tblNotasEval.IdAlu = tblAlumnos.Id WHERE tblNotasEval.Nota BETWEEN 5.999 AND 6.99 AND "
                                "tblAlumnos.Grupo= 4 AND tblNotasEval.IdEval= 2 AND tblNotasEval.IdMat=7"));
        QVERIFY(F::sqlConteo(avaliacion, QStringLiteral("x"), bands::NT, 4, 2, 7)
                    .contains(QStringLiteral("tblNotasEval.Nota BETWEEN 6.999 AND 8.99 AND")));
    }

    void withNoEvaluationsAnEvaluationTableCountsTheOrdinaryFinalsOfItsSubjects()
    {
        // The period list keeps "Ordinaria", so the final marks are counted
        // for the subjects found among the evaluation marks of the key kept (0).
        frame();
        gConexion->Execute(QStringLiteral("DELETE * FROM tblEvaluaciones"));
        evalMark(0, 1, 2, QStringLiteral("9"));
        finalMark(1, 2, QStringLiteral("5"));
        finalMark(1, 1, QStringLiteral("5"));
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("Ordinaria"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Matemáticas: 0 1 0 0 0")});
    }

    // ---- filters and keys

    void aFilterChangeLeavesTheTableAsItIs()
    {
        frame();
        finalMark(1, 1, QStringLiteral("7"));
        finalMark(9, 2, QStringLiteral("2"));
        frmEstatisticas f;
        open(f);
        click(f.cmdCalcular);
        const QStringList before{QStringLiteral("Lingua: 0 0 0 1 0")};
        QCOMPARE(counts(f), before);
        gridtext::pick(f.cmbGrupo, kGrupoB);
        gridtext::pick(f.cmbNotas, QStringLiteral("Avaliación"));
        gridtext::pick(f.cmbAvaliacion, QStringLiteral("2ª Avaliación"));
        QCOMPARE(counts(f), before);
        QCOMPARE(bars(f)->barSets().first()->at(0), 0.0);
        QCOMPARE(bars(f)->barSets().at(bands::NT)->at(0), 1.0);
        QCOMPARE(f.IdGrupo(), 1);
    }

    void aGroupTextThatIsNotFoundKeepsTheEarlierGroupsKey()
    {
        frame();
        finalMark(1, 1, QStringLiteral("7"));
        finalMark(9, 2, QStringLiteral("2"));
        frmEstatisticas f;
        open(f);
        // Before any computation the key is none: nothing is found.
        f.cmbGrupo->lineEdit()->clear();
        QTest::keyClicks(f.cmbGrupo->lineEdit(), QStringLiteral("6º Primaria - Z"));
        click(f.cmdCalcular);
        QCOMPARE(f.IdGrupo(), 0);
        QCOMPARE(gridtext::row(*f.mshDatos, 1), QStringList(8, QString()));

        compute(f, kGrupoB, QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        QCOMPARE(counts(f), QStringList{QStringLiteral("Matemáticas: 1 0 0 0 0")});
        f.cmbGrupo->lineEdit()->clear();
        QTest::keyClicks(f.cmbGrupo->lineEdit(), QStringLiteral("1º ESO - Z"));
        QCOMPARE(f.cmbGrupo->count(), 3); // a typed text is not added to the list
        click(f.cmdCalcular);
        QCOMPARE(f.IdGrupo(), 2);
        QCOMPARE(counts(f), QStringList{QStringLiteral("Matemáticas: 1 0 0 0 0")});
        QVERIFY(session_.harness.errors.isEmpty());
    }

    // ---- the chart

    void theChartStacksTheFiveBandsOfEachSubjectInTheColoursOfTheGrid()
    {
        frame();
        evalMark(1, 1, 1, QStringLiteral("3"));
        evalMark(1, 2, 1, QStringLiteral("5"));
        evalMark(1, 3, 1, QStringLiteral("5.5"));
        evalMark(1, 4, 1, QStringLiteral("9"));
        evalMark(1, 1, 4, QStringLiteral("7"));
        frmEstatisticas f;
        open(f);
        compute(f, kGrupoA, QStringLiteral("Avaliación"), QStringLiteral("1ª Avaliación"));
        QCOMPARE(counts(f), (QStringList{QStringLiteral("Lingua: 1 2 0 0 1"), QStringLiteral("Música: 0 0 0 1 0")}));
        QHorizontalStackedBarSeries* series = bars(f);
        QVERIFY(series);
        QCOMPARE(series->count(), bands::Count);
        for (int b = 0; b < bands::Count; ++b) {
            QBarSet* set = series->barSets().at(b);
            QCOMPARE(set->label(), bands::name(b));
            QCOMPARE(set->color(), bands::colour(b));
            // From the bottom up: the last row of the table first.
            QCOMPARE(set->count(), 2);
            for (int r = 1; r <= 2; ++r)
                QCOMPARE(set->at(2 - r), f.mshDatos->TextMatrix(r, 3 + b).toDouble());
        }
        const QList<QAbstractAxis*> axes = f.chtBandas->chart()->axes(Qt::Vertical);
        QCOMPARE(axes.size(), 1);
        QCOMPARE(qobject_cast<QBarCategoryAxis*>(axes.first())->categories(),
                 (QStringList{QStringLiteral("Música"), QStringLiteral("Lingua")}));

        // Drawn anew on each computation, from the new table.
        compute(f, kGrupoA, QStringLiteral("Recuperación"), QStringLiteral("1ª Avaliación"));
        QCOMPARE(counts(f), (QStringList{QStringLiteral("Lingua: 0 0 0 0 0"), QStringLiteral("Música: 0 0 0 0 0")}));
        QCOMPARE(f.chtBandas->chart()->series().size(), 1);
        for (QBarSet* set : bars(f)->barSets())
            QCOMPARE(set->sum(), 0.0);
        compute(f, kGrupoB, QStringLiteral("Avaliación"), QStringLiteral("1ª Avaliación"));
        QVERIFY(f.chtBandas->chart()->series().isEmpty());
    }

private:
    // What "Informe" hands to the list viewer, and what the viewer shows.
    struct Handed {
        bool opened = false;
        QString tipo, empresa, titulo, info, filtro, shownTitle, shownInfo, html;
    };
    static Handed informe(frmEstatisticas& f)
    {
        Handed h;
        auto run = onModal<frmInformeListado>([&](frmInformeListado* r) {
            h.tipo = r->Tipo();
            h.empresa = r->Empresa();
            h.titulo = r->Titulo();
            h.info = r->Info();
            h.filtro = r->Filtro();
            if (r->shownReport()) {
                h.shownTitle = r->shownReport()->header().title;
                h.shownInfo = r->shownReport()->header().info;
                h.html = r->shownReport()->html();
            }
            r->close();
        });
        click(f.cmdInforme);
        h.opened = run->opened;
        return h;
    }

private slots:
    // ---- the printed list

    void informeOfAnEvaluationPrintsTheRowsSubjectAsNotasAval()
    {
        ReportFixture fixture; // the sample year, with the report files
        frmEstatisticas f;
        open(f);
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Avaliación"), QStringLiteral("1ª Evaluación"));
        // Ana 7, Brais 4 and Uxía 0 in Lengua.
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lengua: 2 0 0 1 0")});
        const Handed h = informe(f);
        QVERIFY(h.opened);
        QCOMPARE(h.tipo, QStringLiteral("NotasAval"));
        QCOMPARE(h.empresa, QStringLiteral("CADERNIA ## Curso 2024-25"));
        QCOMPARE(h.titulo, QStringLiteral("NOTAS DE Lengua. AVALIACIÓN 1ª Evaluación"));
        QCOMPARE(h.info, QStringLiteral("IN: 2 | SF: 0 | BE: 0 | NT: 1 | SB: 0"));
        QCOMPARE(h.filtro,
                 QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 1"));
        QCOMPARE(h.shownTitle, h.titulo);
        QCOMPARE(h.shownInfo, h.info);
        QVERIFY(h.html.contains(QStringLiteral("García López")));
        QVERIFY(h.html.contains(QStringLiteral("Pérez Castro")));
        QVERIFY(!h.html.contains(QStringLiteral("Rodríguez"))); // another group
        // The screen stays as it was.
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lengua: 2 0 0 1 0")});
    }

    void informeOfARecoveryPrintsTheGroupAndSubjectAsNotasRec()
    {
        ReportFixture fixture;
        frmEstatisticas f;
        open(f);
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Recuperación"), QStringLiteral("1ª Evaluación"));
        // Brais recovers with 6; Uxía is to recover and has no mark yet.
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lengua: 0 0 1 0 0")});
        const Handed h = informe(f);
        QVERIFY(h.opened);
        QCOMPARE(h.tipo, QStringLiteral("NotasRec"));
        QCOMPARE(h.titulo,
                 QStringLiteral("NOTAS DE RECUPERACIÓN. 5º Primaria - A\r\nLengua. AVALIACIÓN 1ª Evaluación"));
        QCOMPARE(h.info, QStringLiteral("IN: 0 | SF: 0 | BE: 1 | NT: 0 | SB: 0"));
        QCOMPARE(h.filtro,
                 QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = "
                                "1 AND {tblNotasEval.Recuperar} = True"));
        QVERIFY(h.html.contains(QStringLiteral("Fernández Núñez")));
        QVERIFY(!h.html.contains(QStringLiteral("García López"))); // nothing to recover
    }

    void informeOfFinalMarksPrintsAsAnEvaluationWithTheLastComputedOne()
    {
        ReportFixture fixture;
        frmEstatisticas f;
        open(f);
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Avaliación"), QStringLiteral("2ª Evaluación"));
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Finais"), QStringLiteral("Ordinaria"));
        // Ana 8, Brais 4, Uxía 3.
        QCOMPARE(counts(f), QStringList{QStringLiteral("Lengua: 2 0 0 1 0")});
        const Handed h = informe(f);
        QVERIFY(h.opened);
        QCOMPARE(h.tipo, QStringLiteral("NotasAval"));
        QCOMPARE(h.titulo, QStringLiteral("NOTAS DE Lengua. AVALIACIÓN Ordinaria"));
        QCOMPARE(h.info, QStringLiteral("IN: 2 | SF: 0 | BE: 0 | NT: 1 | SB: 0"));
        QCOMPARE(h.filtro,
                 QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =2 AND {tblNotasEval.IdMat} = 1"));
    }

    void informeTakesTheCurrentRow()
    {
        ReportFixture fixture;
        evalMark(1, 1, 3, QStringLiteral("9")); // Ana, Ciencias Naturales
        frmEstatisticas f;
        open(f);
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Avaliación"), QStringLiteral("1ª Evaluación"));
        f.mshDatos->setRow(2);
        const Handed h = informe(f);
        QVERIFY(h.opened);
        QCOMPARE(h.titulo, QStringLiteral("NOTAS DE Ciencias Naturales. AVALIACIÓN 1ª Evaluación"));
        QCOMPARE(h.info, QStringLiteral("IN: 0 | SF: 0 | BE: 0 | NT: 0 | SB: 1"));
        QCOMPARE(h.filtro,
                 QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 3"));
    }

    void informeDoesNothingOnAnEmptyTable()
    {
        ReportFixture fixture;
        frmEstatisticas f;
        open(f);
        // A report that did open would be closed and named here.
        QString opened;
        auto arm = [&] {
            ModalDriver::whenModal(
                [&](QWidget* w) {
                    opened = QString::fromLatin1(w->metaObject()->className());
                    w->close();
                },
                300);
        };
        arm();
        click(f.cmdInforme); // nothing computed yet
        QTest::qWait(400);
        QVERIFY(ModalDriver::takeTimedOut());
        compute(f, QStringLiteral("5º Primaria - A"), QStringLiteral("Avaliación"), QStringLiteral("3ª Evaluación"));
        QCOMPARE(gridtext::row(*f.mshDatos, 1), QStringList(8, QString())); // no marks in that evaluation
        arm();
        click(f.cmdInforme);
        QTest::qWait(400);
        QVERIFY(ModalDriver::takeTimedOut());
        QCOMPARE(opened, QString());
        QVERIFY(MsgBox::shown().isEmpty());
    }
};

QTEST_MAIN(TestStatistics)
#include "test_statistics.moc"
