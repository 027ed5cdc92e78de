// Golden files: each report of the catalogue, rendered on the sample year
// with the values its screen passes, to PDF and through `pdftotext -layout`
// to text, must match tests/reports/golden/<report>.txt.
//
// A changed or missing reference is written by
//     build/bin/test_report_golden --update [golden:<report>]
// and then read over before it is committed. `--pdf-dir DIR` also keeps the
// PDF files there, to look at the pages.
#include "core/Modulo.h"
#include "reports/engine/Catalogue.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportErrors.h"
#include "reports/viewers/ReportViewer.h"
#include "support/Files.h"
#include "support/ReportFixture.h"
#include "ui/MsgBox.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

namespace {

bool gUpdate = false;
QString gPdfDir;

struct Case {
    QString report; // file base name and golden name
    QString key;
    QString entry;
    QHash<QString, QString> parameters;
    QString formula;
};

QList<Case> cases()
{
    const QString empresa = QStringLiteral("CADERNIA ## Curso 2024-25");
    const auto params = [&](std::initializer_list<std::pair<const char*, QString>> more) {
        QHash<QString, QString> p{{QStringLiteral("pEmpresa"), empresa}, {QStringLiteral("pTitulo"), QString()}};
        for (const auto& [k, v] : more)
            p.insert(QLatin1String(k), v);
        return p;
    };
    const QString aval =
        QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 1");
    return {
        {QStringLiteral("Alumnos"), QStringLiteral("Alumnos"), QStringLiteral("Global"), params({}), QString()},
        {QStringLiteral("AlumnosGrupo"), QStringLiteral("Alumnos"), QStringLiteral("Por Grupos"), params({}),
         QString()},
        {QStringLiteral("FichaAlumnos"), QStringLiteral("Alumnos"), QStringLiteral("Ficha"), params({}), QString()},
        {QStringLiteral("NotasFinais"), QStringLiteral("Alumnos"), QStringLiteral("Notas Finais"),
         params({{"pTitulo", QStringLiteral("INFORME DE NOTAS FINAIS")}}), QString()},
        {QStringLiteral("NotasTarea"), QStringLiteral("NotasTarea"), QStringLiteral("Notas Alumno"),
         params({{"pTitulo", QStringLiteral("Examen tema 1 - 5º Primaria A - Lengua")},
                 {"pnotaIN", QStringLiteral("1 | 50,0%")},
                 {"pnotaSF", QStringLiteral("1 | 50,0%")},
                 {"pnotaBE", QStringLiteral("-")},
                 {"pnotaNT", QStringLiteral("-")},
                 {"pnotaSB", QStringLiteral("-")}}),
         QStringLiteral("{tblNotas.IdTarea} = 1")},
        {QStringLiteral("NotasAval"), QStringLiteral("NotasAval"), QString(),
         params({{"pTitulo", QStringLiteral("NOTAS DE Lengua. AVALIACIÓN 1ª Evaluación")},
                 {"pInfo", QStringLiteral("IN: 2 | SF: 0 | BE: 0 | NT: 1 | SB: 0")}}),
         aval},
        {QStringLiteral("NotasRec"), QStringLiteral("NotasRec"), QString(),
         params(
             {{"pTitulo", QStringLiteral("NOTAS DE RECUPERACIÓN. 5º Primaria A\r\nLengua. AVALIACIÓN 1ª Evaluación")},
              {"pInfo", QStringLiteral("IN: 0 | SF: 0 | BE: 1 | NT: 0 | SB: 0")}}),
         aval + QStringLiteral(" AND {tblNotasEval.Recuperar} = True")},
        {QStringLiteral("TutoriaCuadro"), QStringLiteral("TutoriaCuadro"), QString(),
         params({{"pTitulo", QStringLiteral("NOTAS DE TITORÍA. 1ª Evaluación AVALIACIÓN")}}),
         QStringLiteral("{tblTutoriaNotas.IdEval} = 1 AND {tblGrupos.Tit} = True")},
        {QStringLiteral("TutoriaBoletin"), QStringLiteral("TutoriaBoletin"), QString(),
         params({{"pTitulo", QStringLiteral("García López, Ana. CADRO DE NOTAS")}}),
         QStringLiteral("{tblTutoriaNotas.IdAlu} = 1 AND {tblGrupos.Tit} = True")},
        {QStringLiteral("FichaAlumno"), QStringLiteral("FichaAlumno"), QString(), {}, QString()},
    };
}

QString goldenPath(const QString& report)
{
    return QStringLiteral(CADERNIA_SOURCE_DIR "/tests/reports/golden/") + report + QStringLiteral(".txt");
}

using files::pdfText;

// The first line that differs, for the failure message.
QString firstDifference(const QString& expected, const QString& actual)
{
    const QStringList e = expected.split(u'\n');
    const QStringList a = actual.split(u'\n');
    for (int i = 0; i < qMax(e.size(), a.size()); ++i) {
        if (e.value(i) != a.value(i))
            return QStringLiteral("línea %1:\n  esperada: %2\n  obtenida: %3").arg(i + 1).arg(e.value(i), a.value(i));
    }
    return QString();
}

} // namespace

class TestReportGolden : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { MsgBox::setUnscriptedFatal(true); }

    void golden_data()
    {
        QTest::addColumn<int>("index");
        const QList<Case> all = cases();
        for (int i = 0; i < all.size(); ++i)
            QTest::newRow(qPrintable(all[i].report)) << i;
    }

    void golden()
    {
        QFETCH(int, index);
        const Case c = cases().at(index);
        ReportFixture fixture;
        QCOMPARE(reports::catalogue::fileName(c.key, c.entry), c.report + QStringLiteral(".rpt"));

        auto report = reports::Report::open(reports::catalogue::filePath(gRutaBase, c.key, c.entry));
        for (auto it = c.parameters.cbegin(); it != c.parameters.cend(); ++it)
            report->setParameter(it.key(), it.value());
        if (report->readsYear())
            report->setLocation(gRutaBD);
        report->setSelectionFormula(c.formula);
        const auto document = report->render();
        QTemporaryDir out;
        const QString pdf = out.path() + u'/' + c.report + QStringLiteral(".pdf");
        document->writePdf(pdf);
        if (!gPdfDir.isEmpty()) {
            QFile::remove(gPdfDir + u'/' + c.report + QStringLiteral(".pdf"));
            QFile::copy(pdf, gPdfDir + u'/' + c.report + QStringLiteral(".pdf"));
        }
        const QString text = pdfText(pdf);
        QVERIFY2(!text.startsWith(u'<'), qPrintable(text));

        QFile golden(goldenPath(c.report));
        if (gUpdate) {
            QVERIFY(golden.open(QIODevice::WriteOnly | QIODevice::Truncate));
            golden.write(text.toUtf8());
            qInfo("escrita %s", qPrintable(golden.fileName()));
            return;
        }
        if (!golden.open(QIODevice::ReadOnly)) {
            QFAIL(qPrintable(QStringLiteral("Falta la referencia %1.\nCréela con:\n  %2/test_report_golden --update "
                                            "golden:%3\ny revísela antes de guardarla.")
                                 .arg(golden.fileName(), QStringLiteral(CADERNIA_BIN_DIR), c.report)));
        }
        const QString expected = QString::fromUtf8(golden.readAll());
        QVERIFY2(text == expected,
                 qPrintable(QStringLiteral("%1 no coincide con su referencia (%2)\n%3\nSi el cambio es el buscado: "
                                           "%4/test_report_golden --update golden:%1")
                                .arg(c.report, golden.fileName(), firstDifference(expected, text),
                                     QStringLiteral(CADERNIA_BIN_DIR))));
    }

    // The command-line tool renders the same pages as the engine does.
    void commandLineMatchesGolden()
    {
        if (gUpdate)
            QSKIP("references are being written");
        ReportFixture fixture;
        QTemporaryDir out;
        const QString pdf = out.path() + QStringLiteral("/Alumnos.pdf");
        QProcess p;
        p.setWorkingDirectory(fixture.program());
        p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"),
                {fixture.base(), ReportFixture::firstYear(), QStringLiteral("Alumnos"), QStringLiteral("--entry"),
                 QStringLiteral("Global"), QStringLiteral("--date"), QStringLiteral("05/03/2025"), pdf});
        QVERIFY(p.waitForFinished(60000));
        QVERIFY2(p.exitCode() == 0, p.readAllStandardError().constData());
        QFile golden(goldenPath(QStringLiteral("Alumnos")));
        QVERIFY(golden.open(QIODevice::ReadOnly));
        QCOMPARE(pdfText(pdf), QString::fromUtf8(golden.readAll()));
    }

    // A PDF is written under another name and renamed over the old one when
    // whole: the tool killed while it writes leaves the old file as it was.
    void commandLineKilledMidWayLeavesTheOldPdfWhole()
    {
        ReportFixture fixture;
        QTemporaryDir out;
        const QString pdf = out.path() + QStringLiteral("/Alumnos.pdf");
        const QStringList args{fixture.base(),
                               ReportFixture::firstYear(),
                               QStringLiteral("Alumnos"),
                               QStringLiteral("--entry"),
                               QStringLiteral("Global"),
                               pdf};
        auto start = [&](QProcess& p) {
            p.setWorkingDirectory(fixture.program());
            p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"), args);
            QVERIFY(p.waitForStarted(10000));
        };
        {
            QProcess p;
            start(p);
            QVERIFY(p.waitForFinished(60000));
            QCOMPARE(p.exitCode(), 0);
        }
        QFile file(pdf);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray old = file.readAll();
        file.close();
        const QString text = pdfText(pdf);
        QVERIFY(!text.isEmpty());
        int killedWhileWriting = 0;
        for (int trial = 0; trial < 6; ++trial) {
            QProcess p;
            start(p);
            // Killed as soon as anything changes in the folder: the moment a
            // file is being written.
            const QDateTime modified = QFileInfo(pdf).lastModified();
            while (p.state() == QProcess::Running) {
                const QFileInfo now(pdf);
                if (now.size() != old.size() || now.lastModified() != modified ||
                    QDir(out.path()).entryList(QDir::Files).size() != 1) {
                    p.kill();
                    ++killedWhileWriting;
                    break;
                }
                QThread::usleep(200);
            }
            p.waitForFinished(10000);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray now = file.readAll();
            file.close();
            // The old file, or a whole new one of the same pages.
            QVERIFY2(now == old || (now.startsWith("%PDF") && now.trimmed().endsWith("%%EOF") && pdfText(pdf) == text),
                     qPrintable(QStringLiteral("trial %1: %2 bytes").arg(trial).arg(now.size())));
        }
        QVERIFY(killedWhileWriting > 0);
    }

    void commandLineRefusesAnUnknownReport()
    {
        ReportFixture fixture;
        QProcess p;
        p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"),
                {fixture.base(), ReportFixture::firstYear(), QStringLiteral("Boletines"), QStringLiteral("x.pdf")});
        QVERIFY(p.waitForFinished(60000));
        QCOMPARE(p.exitCode(), 1);
    }

    void commandLineTellsAMissingFile()
    {
        ReportFixture fixture;
        QVERIFY(QFile::remove(fixture.reportPath(QStringLiteral("NotasAval.rpt"))));
        QProcess p;
        p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"),
                {fixture.base(), ReportFixture::firstYear(), QStringLiteral("NotasAval"), QStringLiteral("x.pdf")});
        QVERIFY(p.waitForFinished(60000));
        QCOMPARE(p.exitCode(), 2);
        QVERIFY(QString::fromUtf8(p.readAllStandardError()).contains(reports::missingFileText()));
    }
};

int main(int argc, char** argv)
{
    // Runs the same with or without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList args;
    for (int i = 0; i < argc; ++i) {
        if (QByteArray(argv[i]) == "--update")
            gUpdate = true;
        else if (QByteArray(argv[i]) == "--pdf-dir" && i + 1 < argc)
            gPdfDir = QString::fromLocal8Bit(argv[++i]);
        else
            args.append(QString::fromLocal8Bit(argv[i]));
    }
    QApplication app(argc, argv);
    TestReportGolden test;
    return QTest::qExec(&test, args);
}

#include "test_report_golden.moc"
