// The report engine without its viewers: selection formulas, the report file
// format, value formats, data shaping, parameters, the location of the data
// and the installed files.
#include "core/Modulo.h"
#include "db/Connection.h"
#include "db/Recordset.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportData.h"
#include "reports/engine/ReportFiles.h"
#include "reports/engine/SelectionFormula.h"
#include "support/ReportFixture.h"
#include "support/RuntimeErrors.h"
#include "ui/MsgBox.h"
#include "vb/RuntimeError.h"

#include <QFile>
#include <QtTest>

using namespace reports;

namespace {

// The rows a condition selects, run through the dialect on a year.
int countStudents(const QString& yearPath, const QString& condition)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblAlumnos.Id FROM ((tblAlumnos INNER JOIN tblGrupos ON tblAlumnos.Grupo = "
                           "tblGrupos.Id) INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER JOIN "
                           "tblNiveles ON tblCursos.IdNivel = tblNiveles.Id WHERE ") +
                condition,
            db::Connection::Open(yearPath));
    return rs.RecordCount();
}

const char* const kSmallReport = R"RPT(
# a report of the test
[report]
title = LISTA
parameters = pEmpresa, pTitulo
subtitle = {{#first}}Grupo {{Grupo}}{{/first}}
group = IdGrupo
[fields]
Nota = mark
[query]
SELECT tblAlumnos.Grupo AS IdGrupo, tblGrupos.Des AS Grupo, tblAlumnos.Ape, tblNotasFinal.NotaO AS Nota
FROM (tblAlumnos INNER JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id)
     INNER JOIN tblNotasFinal ON tblNotasFinal.IdAlu = tblAlumnos.Id
[where]
tblNotasFinal.IdMat = 1
[tail]
ORDER BY tblAlumnos.Grupo, tblAlumnos.Ape
[template]
{{pTitulo}}|{{#groups}}[{{Grupo}}:{{count}}:{{Nota_fails}}]{{#rows}}{{_index}}{{Ape}}={{Nota}}/{{Nota_class}};{{/rows}}{{/groups}}|{{Nota_mean}}
)RPT";

} // namespace

class TestReportEngine : public QObject {
    Q_OBJECT

    // A body of headed tables: `rows` rows under each heading.
    static QString headedTables(const QStringList& headings, int rows)
    {
        QString html;
        for (const QString& h : headings) {
            html += QStringLiteral("<h2>%1</h2><table width=\"100%\"><thead><tr><th>Alumno</th></tr></thead>").arg(h);
            for (int r = 0; r < rows; ++r)
                html += QStringLiteral("<tr><td>Alumno %1</td></tr>").arg(r);
            html += QStringLiteral("</table><p class=\"total\">Fin</p>");
        }
        return html;
    }

private slots:
    void aTableRunningOntoANewPageOpensItWithItsHeadingContinued()
    {
        PageHeader header;
        header.title = QStringLiteral("INFORME DE NOTAS FINAIS");
        ReportDocument doc(QStringLiteral("NotasFinais"), headedTables({QStringLiteral("Inglés · 2º ESO A")}, 90),
                           header, false);
        QVERIFY(doc.pageCount() >= 2);
        QCOMPARE(doc.continuationOf(0), QString());
        QCOMPARE(doc.continuationOf(1), QStringLiteral("Inglés · 2º ESO A (continuación)"));
    }

    void aTableThatEndsOnItsPageContinuesNothing()
    {
        PageHeader header;
        header.title = QStringLiteral("ALUMNOS POR GRUPOS");
        QString html = headedTables({QStringLiteral("Grupo 1º ESO A")}, 5);
        html += QStringLiteral("<h2 style=\"margin-top: 0px; page-break-before: always\">Grupo 1º ESO B</h2><p>x</p>");
        ReportDocument doc(QStringLiteral("AlumnosGrupo"), html, header, false);
        QCOMPARE(doc.pageCount(), 2);
        QCOMPARE(doc.continuationOf(1), QString());
        // Without headings no line is kept for it at all.
        ReportDocument plain(QStringLiteral("Alumnos"), QStringLiteral("<table><tr><td>a</td></tr></table>"), header,
                             false);
        QCOMPARE(plain.continuationOf(1), QString());
    }

    void initTestCase() { MsgBox::setUnscriptedFatal(true); }

    // ---------------------------------------------------- selection formulas

    void formulaOfTheStudentList()
    {
        const QString t = QStringLiteral("gar");
        const QString formula = QStringLiteral("{tblAlumnos.Ape} LIKE '*%1*' OR {tblAlumnos.Nom} LIKE '*%1*' OR "
                                               "{tblAlumnos.MailAlu} LIKE '*%1*' OR {tblCursos.Des} + ' ' + "
                                               "{tblNiveles.Des} + ' ' + {tblGrupos.Des} LIKE '*%1*'")
                                    .arg(t);
        QCOMPARE(translateSelectionFormula(formula),
                 QStringLiteral("tblAlumnos.Ape LIKE '%gar%' OR tblAlumnos.Nom LIKE '%gar%' OR tblAlumnos.MailAlu "
                                "LIKE '%gar%' OR tblCursos.Des & ' ' & tblNiveles.Des & ' ' & tblGrupos.Des LIKE "
                                "'%gar%'"));
    }

    void formulaOfTheTaskMarks()
    {
        QCOMPARE(translateSelectionFormula(QStringLiteral("{tblNotas.IdTarea} = 12")),
                 QStringLiteral("tblNotas.IdTarea = 12"));
    }

    void formulaOfTheEvaluationMarks()
    {
        const QString f =
            QStringLiteral("{tblAlumnos.Grupo}= 2 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 3");
        QCOMPARE(translateSelectionFormula(f),
                 QStringLiteral("tblAlumnos.Grupo = 2 AND tblNotasEval.IdEval = 1 AND tblNotasEval.IdMat = 3"));
        QCOMPARE(translateSelectionFormula(f + QStringLiteral(" AND {tblNotasEval.Recuperar} = True")),
                 QStringLiteral("tblAlumnos.Grupo = 2 AND tblNotasEval.IdEval = 1 AND tblNotasEval.IdMat = 3 AND "
                                "tblNotasEval.Recuperar = True"));
    }

    void formulasOfTheTutoring()
    {
        QCOMPARE(translateSelectionFormula(QStringLiteral("{tblTutoriaNotas.IdEval} = 2 AND {tblGrupos.Tit} = True")),
                 QStringLiteral("tblTutoriaNotas.IdEval = 2 AND tblGrupos.Tit = True"));
        QCOMPARE(translateSelectionFormula(QStringLiteral("{tblTutoriaNotas.IdAlu} = 7 AND {tblGrupos.Tit} = True")),
                 QStringLiteral("tblTutoriaNotas.IdAlu = 7 AND tblGrupos.Tit = True"));
    }

    void formulaDetails()
    {
        // ? is one character; quotes of either kind; parentheses, OR and NOT stay.
        QCOMPARE(translateSelectionFormula(QStringLiteral("NOT ({tblAlumnos.Nom} LIKE \"An?\") OR {t.c} <> 'O''Neil'")),
                 QStringLiteral("NOT (tblAlumnos.Nom LIKE 'An_') OR t.c <> 'O''Neil'"));
        // Between two fields, + joins texts only when the columns are texts.
        const TextColumnTest isText = [](const QString&, const QString& c) { return c == QLatin1String("Ape"); };
        QCOMPARE(translateSelectionFormula(QStringLiteral("{tblAlumnos.Ape} + {tblAlumnos.Ape} = 'x'"), isText),
                 QStringLiteral("tblAlumnos.Ape & tblAlumnos.Ape = 'x'"));
        QCOMPARE(translateSelectionFormula(QStringLiteral("{t.A} + {t.B} > 3"), isText),
                 QStringLiteral("t.A + t.B > 3"));
        QCOMPARE(errorNumber([] { translateSelectionFormula(QStringLiteral("{t.c} LIKE '*x")); }), int(FormulaError));
        QCOMPARE(errorNumber([] { translateSelectionFormula(QStringLiteral("{t.c = 1")); }), int(FormulaError));
    }

    void translatedFormulasRunOnAYear()
    {
        ReportFixture fixture;
        const QString path = fixture.yearPath(ReportFixture::firstYear());
        const auto listFilter = [](const QString& t) {
            return QStringLiteral(
                       "{tblAlumnos.Ape} LIKE '*%1*' OR {tblAlumnos.Nom} LIKE '*%1*' OR {tblAlumnos.MailAlu} "
                       "LIKE '*%1*' OR {tblCursos.Des} + ' ' + {tblNiveles.Des} + ' ' + {tblGrupos.Des} "
                       "LIKE '*%1*'")
                .arg(t);
        };
        QCOMPARE(countStudents(path, translateSelectionFormula(listFilter(QStringLiteral("castro")))), 2);
        // Accents and case do not matter, as in the list screen.
        QCOMPARE(countStudents(path, translateSelectionFormula(listFilter(QStringLiteral("IÑIGO")))), 1);
        QCOMPARE(countStudents(path, translateSelectionFormula(listFilter(QStringLiteral("ESO B")))), 2);
        QCOMPARE(countStudents(path, translateSelectionFormula(QStringLiteral("{tblGrupos.Tit} = True"))), 3);
    }

    // ------------------------------------------------------ the file format

    void aReportFileParses()
    {
        const ReportDefinition def = ReportDefinition::parse(QString::fromUtf8(kSmallReport), QStringLiteral("Lista"));
        QCOMPARE(def.title, QStringLiteral("LISTA"));
        QCOMPARE(def.parameters, (QStringList{QStringLiteral("pEmpresa"), QStringLiteral("pTitulo")}));
        QCOMPARE(def.group, QStringList{QStringLiteral("IdGrupo")});
        QCOMPARE(def.format(QStringLiteral("nota")), FieldFormat::Mark);
        QVERIFY(def.readsYear());
        QVERIFY(def.statement(QStringLiteral("tblAlumnos.Grupo = 1"))
                    .contains(QStringLiteral("WHERE (tblNotasFinal.IdMat = 1) AND (tblAlumnos.Grupo = 1) ORDER BY")));
        QVERIFY(def.statement(QString()).contains(QStringLiteral("WHERE (tblNotasFinal.IdMat = 1) ORDER BY")));
    }

    void aBrokenFileIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("no query") << QStringLiteral("[report]\ntitle = x\n[template]\nx");
        QTest::newRow("no template") << QStringLiteral("[query]\nSELECT 1");
        QTest::newRow("unknown key") << QStringLiteral("[report]\ncolour = red\n[query]\nSELECT 1\n[template]\n");
        QTest::newRow("unknown format") << QStringLiteral("[fields]\nNota = money\n[query]\nSELECT 1\n[template]\n");
        QTest::newRow("unknown section") << QStringLiteral("[body]\n[query]\nSELECT 1\n[template]\n");
        QTest::newRow("bad nesting") << QStringLiteral(
            "[report]\nnest.x = rows.Id = Id\n[query]\nSELECT 1\n[template]\n");
    }

    void aBrokenFileIsRefused()
    {
        QFETCH(QString, text);
        QCOMPARE(errorNumber([&] { ReportDefinition::parse(text, QStringLiteral("Roto")); }), int(InvalidFile));
    }

    void aMissingFileHasTheEnginesNumber()
    {
        QCOMPARE(errorNumber([] { Report::open(QStringLiteral("/nonexistent/Alumnos.rpt")); }), -2147206461);
    }

    // -------------------------------------------------------------- formats

    void valuesAsTheReportsShowThem()
    {
        QCOMPARE(formatField(QVariant(7.5), FieldFormat::Mark), QStringLiteral("7,50"));
        QCOMPARE(formatField(QVariant(4.995f), FieldFormat::Mark), QStringLiteral("5,00")); // a Single's own digits
        QCOMPARE(formatField(QVariant(8.125), FieldFormat::Mark), QStringLiteral("8,13"));  // half away from zero
        QCOMPARE(formatField(QVariant(QStringLiteral("7.5")), FieldFormat::Mark), QStringLiteral("7,50"));
        QCOMPARE(formatField(QVariant(QStringLiteral("85")), FieldFormat::Number), QStringLiteral("85"));
        QCOMPARE(formatField(QVariant(2.5), FieldFormat::Number), QStringLiteral("2,5"));
        QCOMPARE(formatField(QVariant(8), FieldFormat::Decimal), QStringLiteral("8,00"));
        QCOMPARE(formatField(QVariant(QStringLiteral("Bien")), FieldFormat::Mark), QStringLiteral("Bien"));
        QCOMPARE(formatField(QVariant(), FieldFormat::Mark), QString());
        QCOMPARE(formatField(QVariant(QDate(2014, 3, 12)), FieldFormat::Auto), QStringLiteral("12/03/2014"));
        QCOMPARE(formatField(QVariant(QStringLiteral("2014-03-12")), FieldFormat::Date), QStringLiteral("12/03/2014"));
        QCOMPARE(formatField(QVariant(1), FieldFormat::YesNo), QStringLiteral("Sí"));
        QCOMPARE(formatField(QVariant(0), FieldFormat::YesNo), QStringLiteral("No"));
        QCOMPARE(formatField(QVariant(true), FieldFormat::Auto), QStringLiteral("Sí"));
    }

    void failingMarksAreThoseUnderFiveAsShown()
    {
        QCOMPARE(markClass(QVariant(4.99)), QStringLiteral("fail"));
        QCOMPARE(markClass(QVariant(0)), QStringLiteral("fail"));
        QCOMPARE(markClass(QVariant(4.9995)), QStringLiteral("pass")); // printed 5,00
        QCOMPARE(markClass(QVariant(5)), QStringLiteral("pass"));
        QCOMPARE(markClass(QVariant(QStringLiteral("3.5"))), QStringLiteral("fail"));
        QCOMPARE(markClass(QVariant()), QString());
        QCOMPARE(markClass(QVariant(QStringLiteral("-"))), QString());
    }

    // -------------------------------------------------- running a report

    void groupsRowsStatisticsAndParameters()
    {
        ReportFixture fixture;
        auto report =
            Report::fromText(QString::fromUtf8(kSmallReport), fixture.reportPath(QStringLiteral("Lista.rpt")));
        report->setParameter(QStringLiteral("pTitulo"), QStringLiteral("Notas"));
        report->setParameter(QStringLiteral("pNoExiste"), QStringLiteral("ignored"));
        QCOMPARE(report->parameter(QStringLiteral("pNoExiste")), QString());
        report->setLocation(gRutaBD);
        const auto doc = report->render();
        // Group 1 holds the three final marks of Lengua: 8 (Ana), 4 and 3.
        QCOMPARE(doc->html().trimmed(),
                 QStringLiteral("Notas|[A:3:2]1Fernández Núñez=4,00/fail;2García López=8,00/pass;3Pérez Castro=3,00/"
                                "fail;|5,00"));
        QCOMPARE(doc->header().title, QStringLiteral("Notas"));
        QCOMPARE(doc->header().subtitle, QStringLiteral("Grupo A"));
        QCOMPARE(doc->header().date, QStringLiteral("05/03/2025"));
        QCOMPARE(doc->pageCount(), 1);
    }

    void theTitleDefaultsToTheFilesOwn()
    {
        ReportFixture fixture;
        auto report = Report::open(fixture.reportPath(QStringLiteral("Alumnos.rpt")));
        report->setLocation(gRutaBD);
        report->setParameter(QStringLiteral("pTitulo"), QString());
        QCOMPARE(report->render()->header().title, QStringLiteral("RELACIÓN DE ALUMNOS"));
    }

    void theLocationDecidesTheYear()
    {
        ReportFixture fixture;
        auto report = Report::open(fixture.reportPath(QStringLiteral("Alumnos.rpt")));
        report->setLocation(fixture.yearPath(ReportFixture::firstYear()));
        QVERIFY(report->render()->html().contains(QStringLiteral("García López")));
        report->setLocation(fixture.yearPath(ReportFixture::secondYear()));
        const QString html = report->render()->html();
        QVERIFY(html.contains(QStringLiteral("Otero Vidal")));
        QVERIFY(!html.contains(QStringLiteral("García López")));
    }

    void aYearReportWithoutLocationFails()
    {
        ReportFixture fixture;
        auto report = Report::open(fixture.reportPath(QStringLiteral("Alumnos.rpt")));
        QCOMPARE(errorNumber([&] { report->render(); }), int(NoDataLocation));
    }

    void theStudentRecordReadsTheStagingDatabase()
    {
        ReportFixture fixture;
        auto report = Report::open(QStringLiteral("Impresion/FichaAlumno.rpt"));
        QVERIFY(!report->readsYear());
        QCOMPARE(report->dataPath(), QStringLiteral("Impresion/Impresion.mdb"));
        const auto doc = report->render();
        QCOMPARE(doc->header().subtitle, QStringLiteral("García López, Ana · 5º Primaria A"));
        // Staged with a point, shown with a comma. A type's mean is on the
        // type's own scale (Deberes: 5), so it is never shown as failed.
        QVERIFY(doc->html().contains(QStringLiteral("<td class=\"num\">4,75</td>")));
        QVERIFY(!doc->html().contains(QStringLiteral("<span class=\"fail\">4,75</span>")));
        QVERIFY(doc->html().contains(QStringLiteral("1ª Evaluación · Lengua: tareas")));
        QVERIFY(doc->html().contains(QStringLiteral("Proyecto huerto")));
    }

    void everyShippedReportOpens()
    {
        for (const QString& name : reportFileNames()) {
            const QString text = shippedReportText(name);
            QVERIFY2(!text.isEmpty(), qPrintable(name));
            ReportDefinition::parse(text, name);
        }
    }

    void theInstallerLaysOutTheFiles()
    {
        QTemporaryDir dir;
        const QString base = dir.path() + QStringLiteral("/base");
        const QString program = dir.path() + QStringLiteral("/programa");
        QString error;
        QVERIFY2(installReportFiles(base, program, &error), qPrintable(error));
        for (const QString& name : reportFileNames()) {
            const QString path = name == QLatin1String("FichaAlumno.rpt")
                                     ? program + QStringLiteral("/Impresion/") + name
                                     : base + QStringLiteral("/Informes/") + name;
            QVERIFY2(QFile::exists(path), qPrintable(path));
        }
        // A file the teacher changed stays, unless told to overwrite.
        const QString alumnos = base + QStringLiteral("/Informes/Alumnos.rpt");
        QFile f(alumnos);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("mine");
        f.close();
        QVERIFY(installReportFiles(base, program, &error));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("mine"));
        f.close();
        QVERIFY(installReportFiles(base, program, &error, true));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(f.readAll()), shippedReportText(QStringLiteral("Alumnos.rpt")));
    }
};

QTEST_MAIN(TestReportEngine)
#include "test_report_engine.moc"
