// The student sheet's "&Imprimir": what the grids show staged into the print
// database, and the printed record over it; and cadernia-report printing the
// records of one student or a whole group into one PDF.
#include "MarksTest.h"
#include "db/Schema.h"
#include "reports/engine/ReportDocument.h"
#include "reports/engine/ReportFiles.h"
#include "reports/viewers/frmInformeHojaDoc.h"
#include "students/frmAtopar.h"
#include "support/Files.h"
#include "support/ModalForm.h"
#include "vb/Clock.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

using namespace marks_test;
using yearq::native;

namespace {

// The rows of a staging table, their columns joined by "|", in the order given.
QStringList rows(const QString& path, const QString& columns, const QString& table, const QString& order)
{
    return native(path, QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
                            .arg(QStringList(columns.split(u',')).join(QStringLiteral(" || '|' || ")), table, order));
}

using files::pdfText;

} // namespace

class TestStudentsPrint : public QObject {
    Q_OBJECT

    SheetOnYear year_;
    QTemporaryDir dir_;
    QList<int> pauses_;
    QString previousDir_;

    QString program() const { return dir_.path() + QStringLiteral("/programa"); }
    QString staging() const { return program() + QStringLiteral("/Impresion/Impresion.mdb"); }

    // Student 1: Lengua, Matemáticas and Historia marked in the 1ª and 2ª,
    // Examen (of 10) and Cuaderno (of 5) weighted 60 and 40, evaluation
    // marks in the 1ª, a final mark of Lengua. Student 2: one mark of Lengua.
    void twoEvaluationsThreeSubjects()
    {
        tipo(1, QStringLiteral("Examen"), 10);
        tipo(2, QStringLiteral("Cuaderno"), 5);
        int id = 1;
        for (int eva : {1, 2})
            for (int mat : {1, 2, 3}) {
                peso(1, eva, mat, 60);
                peso(2, eva, mat, 40);
                tarea(id, QStringLiteral("Examen %1").arg(id), 1, eva, mat);
                nota(id, 1, QStringLiteral("%1.5").arg(eva + mat + 3), QStringLiteral("Bien, sigue así"));
                ++id;
                tarea(id, QStringLiteral("Cuaderno %1").arg(id), 2, eva, mat);
                nota(id, 1, QStringLiteral("4"));
                ++id;
            }
        for (int mat : {1, 2, 3})
            notaEval(1, mat, 1, QStringLiteral("%1.25").arg(mat + 4));
        notaFinal(1, 1, QStringLiteral("6.5"));
        nota(1, 2, QStringLiteral("3"));
    }

    // "&Imprimir" on the sheet, the record viewer closed at once; whether it opened.
    bool imprime(frmAlumnosFicha& f, QString* html = nullptr)
    {
        auto run = onModal<frmInformeHojaDoc>([html](frmInformeHojaDoc* h) {
            if (html && h->shownReport())
                *html = h->shownReport()->html();
            h->close();
        });
        click(f.cmdInforme);
        return run->opened;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(dir_.isValid());
        QDir().mkpath(program() + QStringLiteral("/Impresion"));
        QString error;
        QVERIFY2(reports::installReportFiles(dir_.path() + QStringLiteral("/base"), program(), &error),
                 qPrintable(error));
        previousDir_ = QDir::currentPath();
        QDir::setCurrent(program());
    }
    void cleanupTestCase() { QDir::setCurrent(previousDir_); }

    void init()
    {
        QFile::remove(staging());
        db::Schema::CreatePrint(staging());
        year_.start();
        MsgBox::reset();
        // The pause before the record is recorded, not waited.
        pauses_.clear();
        vb::Clock::recordPauses(&pauses_);
    }
    void cleanup()
    {
        vb::Clock::recordPauses(nullptr);
        year_.finish();
    }

    void thePauseBeforeTheRecordIsThreeSeconds()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QVERIFY(pauses_.isEmpty());
        // One pause of three seconds, asked for before the record opens.
        QList<int> whenOpened;
        auto run = onModal<frmInformeHojaDoc>([&](frmInformeHojaDoc* h) {
            whenOpened = pauses_;
            h->close();
        });
        click(f.cmdInforme);
        QVERIFY(run->opened);
        QCOMPARE(whenOpened, QList<int>{3000});
        QCOMPARE(pauses_, QList<int>{3000});
    }

    void aStudentWithTwoEvaluationsAndThreeSubjectsIsStagedAsTheGridsShowIt()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QString html;
        QVERIFY(imprime(f, &html));
        QCOMPARE(rows(staging(), QStringLiteral("Id,Nom,Grupo,Mail"), QStringLiteral("tblFichaAlumno"),
                      QStringLiteral("Id")),
                 QStringList{QStringLiteral("1|Souto Vidal, Iria|3º ESO B|")});
        // One row per evaluation row, the grid's text with a point.
        const QStringList aval = rows(staging(), QStringLiteral("Id,IdAval,DesAval,IdMat,DesMat,Ptos,Nota"),
                                      QStringLiteral("tblFichaAval"), QStringLiteral("Id"));
        QCOMPARE(aval.size(), 6);
        for (int r = 1; r <= 6; ++r) {
            const QStringList cell = aval[r - 1].split(u'|');
            QCOMPARE(cell[0], QString::number(r));
            QCOMPARE(cell[1], f.mshEval->TextMatrix(r, 5));
            QCOMPARE(cell[2], f.mshEval->TextMatrix(r, 1));
            QCOMPARE(cell[4], f.mshEval->TextMatrix(r, 2));
            QCOMPARE(cell[5], f.mshEval->TextMatrix(r, 3).replace(u',', u'.'));
            QCOMPARE(cell[6], f.mshEval->TextMatrix(r, 4).replace(u',', u'.'));
        }
        // Lengua in the 1ª: Examen 5,5 × 0,6 + Cuaderno 4 × 2 × 0,4 = 6,50.
        QCOMPARE(aval[4], QStringLiteral("5|1|1ª Evaluación|1|Lengua|6.50|5.25"));
        // Historia in the 2ª: 8,5 × 0,6 + 4 × 2 × 0,4, without a typed mark.
        QCOMPARE(aval[0], QStringLiteral("1|2|2ª Evaluación|3|Historia|8.30|"));
        // Two types for each of the six rows, keyed 1 to 12, and a task each.
        const QStringList tareas = rows(staging(), QStringLiteral("Id,IdAval,IdTipo,DesTipo,NM,Valor,Ptos"),
                                        QStringLiteral("tblFichaTareas"), QStringLiteral("Id"));
        QCOMPARE(tareas.size(), 12);
        QCOMPARE(tareas.first().section(u'|', 0, 0), QStringLiteral("1"));
        QCOMPARE(tareas.last().section(u'|', 0, 0), QStringLiteral("12"));
        QCOMPARE(tareas[8], QStringLiteral("9|1|2|Cuaderno|4.00|40|3.20"));
        // Each type names its evaluation row, the record's heading of it.
        QCOMPARE(native(staging(), QStringLiteral("SELECT IdFila FROM tblFichaTareas WHERE Id IN (9, 10)")),
                 (QStringList{QStringLiteral("5"), QStringLiteral("5")}));
        QCOMPARE(tareas[9], QStringLiteral("10|1|1|Examen|5.50|60|3.30"));
        const QStringList detalle = rows(staging(), QStringLiteral("IdTarea,DesTarea,Nota,Obs"),
                                         QStringLiteral("tblFichaTareasDetalle"), QStringLiteral("IdTarea"));
        QCOMPARE(detalle.size(), 12);
        QVERIFY(detalle.contains(QStringLiteral("10|Examen 1|5.50|Bien, sigue así")));
        // The finals as the grid shows them: Lengua 6,5 and 2ª points over two rows.
        const QStringList nf = rows(staging(), QStringLiteral("IdAlu,Mat,Ptos,NM,NFO,NFE"),
                                    QStringLiteral("tblFichaNF"), QStringLiteral("Mat"));
        QCOMPARE(nf.size(), 3);
        QCOMPARE(nf[1], QStringLiteral("1|Lengua|%1|%2|6.5|")
                            .arg(f.mshFinal->TextMatrix(1, 2).replace(u',', u'.'),
                                 f.mshFinal->TextMatrix(1, 3).replace(u',', u'.')));
        // Text columns: the report reads what the grid showed.
        QCOMPARE(native(staging(), QStringLiteral("SELECT DISTINCT typeof(Ptos) FROM tblFichaAval")),
                 QStringList{QStringLiteral("text")});
        QCOMPARE(native(staging(), QStringLiteral("SELECT typeof(NFE) FROM tblFichaNF LIMIT 1")),
                 QStringList{QStringLiteral("text")});
        // The record opened over the staged rows.
        QVERIFY(html.contains(QStringLiteral("Souto Vidal, Iria")));
        QVERIFY(html.contains(QStringLiteral("6,50")));
        QVERIFY(html.contains(QStringLiteral("Bien, sigue así")));
    }

    void marksShownWithACommaAreStagedWithAPoint()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QVERIFY(f.mshEval->TextMatrix(6, 4).contains(u','));
        QVERIFY(imprime(f));
        const QStringList notas = native(staging(), QStringLiteral("SELECT Nota FROM tblFichaAval WHERE Nota <> ''"));
        QCOMPARE(notas.size(), 3);
        for (const QString& n : notas)
            QVERIFY2(n.contains(u'.') && !n.contains(u','), qPrintable(n));
    }

    void aStudentWithoutEvaluationRowsGetsTheMessageAndTheStagingStaysAsItWas()
    {
        twoEvaluationsThreeSubjects();
        alumnos_test::addStudent(3, QStringLiteral("Vila Pena"), QStringLiteral("Uxía"));
        QVERIFY(imprime(year_.open(1)));
        const QStringList before =
            rows(staging(), QStringLiteral("Id,DesMat,Ptos"), QStringLiteral("tblFichaAval"), QStringLiteral("Id"));
        auto& f = year_.open(3);
        MsgBox::setNextAnswer(vbOK);
        QVERIFY(!alumnos_test::opensAModal([&] { click(f.cmdInforme); }));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().first().text, QStringLiteral("Non hai datos de avaliacións"));
        QCOMPARE(MsgBox::shown().first().flags, vbInformation);
        QCOMPARE(
            rows(staging(), QStringLiteral("Id,DesMat,Ptos"), QStringLiteral("tblFichaAval"), QStringLiteral("Id")),
            before);
        QCOMPARE(native(staging(), QStringLiteral("SELECT Nom FROM tblFichaAlumno")),
                 QStringList{QStringLiteral("Souto Vidal, Iria")});
    }

    void aSheetWhoseFinalsAreEmptyAfterASearchStagesNoFinalRow()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(2);
        QVERIFY(imprime(f));
        QCOMPARE(native(staging(), QStringLiteral("SELECT COUNT(*) FROM tblFichaNF")),
                 QStringList{QStringLiteral("0")});
        auto search = onModal<frmAtopar>([](frmAtopar* a) {
            CodigoAtopado = 1;
            a->close();
        });
        click(f.cmdBuscar);
        QVERIFY(search->opened);
        QCOMPARE(f.Id(), 1);
        QCOMPARE(f.mshFinal->Rows(), 1);
        QVERIFY(imprime(f));
        QCOMPARE(native(staging(), QStringLiteral("SELECT COUNT(*) FROM tblFichaNF")),
                 QStringList{QStringLiteral("0")});
        QCOMPARE(native(staging(), QStringLiteral("SELECT COUNT(*) FROM tblFichaAval")),
                 QStringList{QStringLiteral("6")});
    }

    void twoRecordsPrintedOneAfterTheOtherNeverMix()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QVERIFY(imprime(f));
        click(f.cmdSeguinte);
        QCOMPARE(f.Id(), 2);
        QVERIFY(imprime(f));
        QCOMPARE(native(staging(), QStringLiteral("SELECT Nom FROM tblFichaAlumno")),
                 QStringList{QStringLiteral("Rey Mato, Brais")});
        QCOMPARE(rows(staging(), QStringLiteral("Id,DesMat,Ptos,Nota"), QStringLiteral("tblFichaAval"),
                      QStringLiteral("Id")),
                 QStringList{QStringLiteral("1|Lengua|1.80|")});
        QCOMPARE(
            rows(staging(), QStringLiteral("Id,DesTipo,NM"), QStringLiteral("tblFichaTareas"), QStringLiteral("Id")),
            QStringList{QStringLiteral("1|Examen|3.00")});
        QCOMPARE(native(staging(), QStringLiteral("SELECT COUNT(*) FROM tblFichaTareasDetalle")),
                 QStringList{QStringLiteral("1")});
    }

    void aStagingThatFailsLeavesTheLastPrintAsItWas()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QVERIFY(imprime(f));
        const QStringList before = native(staging(), QStringLiteral("SELECT Nom FROM tblFichaAlumno"));
        // A staging file that lost a table fails half-way through.
        {
            auto cn = db::Connection::Open(staging());
            cn->ExecuteNative(QStringLiteral("DROP TABLE tblFichaTareasDetalle"));
        }
        click(f.cmdSeguinte);
        click(f.cmdInforme);
        QCOMPARE(year_.errors().size(), 1);
        year_.errors().clear();
        QCOMPARE(native(staging(), QStringLiteral("SELECT Nom FROM tblFichaAlumno")), before);
        QCOMPARE(native(staging(), QStringLiteral("SELECT COUNT(*) FROM tblFichaAval")),
                 QStringList{QStringLiteral("6")});
    }

    void aStagingFileOfAnEarlierVersionIsMadeAnew()
    {
        QFile::remove(staging());
        {
            auto cn = db::Connection::Create(staging());
            cn->ExecuteNative(QString(db::Schema::PrintDdl())
                                  .replace(QLatin1String("TEXT"), QLatin1String("DOUBLE"))
                                  .replace(QLatin1String("Nom DOUBLE"), QLatin1String("Nom TEXT")));
        }
        twoEvaluationsThreeSubjects();
        QVERIFY(imprime(year_.open(1)));
        QVERIFY(native(staging(), QStringLiteral("SELECT Ptos FROM tblFichaAval")).contains(QStringLiteral("6.50")));
        QCOMPARE(native(staging(), QStringLiteral("SELECT DISTINCT typeof(Nota) FROM tblFichaAval")),
                 QStringList{QStringLiteral("text")});
    }

    void aMissingStagingFileIsARuntimeError()
    {
        twoEvaluationsThreeSubjects();
        QFile::remove(staging());
        auto& f = year_.open(1);
        QVERIFY(!alumnos_test::opensAModal([&] { click(f.cmdInforme); }));
        QCOMPARE(year_.errors().size(), 1);
        year_.errors().clear();
        QVERIFY(!QFile::exists(staging()));
    }

    void afterPrintingTheLastEvaluationAndTypeStaySelected()
    {
        twoEvaluationsThreeSubjects();
        auto& f = year_.open(1);
        QCOMPARE(f.mshEval->Row(), 1);
        QVERIFY(imprime(f));
        QCOMPARE(f.mshEval->Row(), 6);
        QCOMPARE(f.mshNotas->Row(), 2);
        QCOMPARE(f.mshNotas->TextMatrix(2, 1), QStringLiteral("Examen"));
        QCOMPARE(f.mshEval->TextMatrix(6, 2), QStringLiteral("Matemáticas"));
        QCOMPARE(f.mshNotasDetalle->TextMatrix(1, 1), QStringLiteral("Examen 3"));
    }

    // ---- cadernia-report

    void theCommandPrintsTheRecordsOfAGroupIntoOnePdf()
    {
        twoEvaluationsThreeSubjects();
        alumnos_test::addStudent(3, QStringLiteral("Vila Pena"), QStringLiteral("Uxía"));
        const QFileInfo year(year_.sheetlessPath());
        const QString pdf = dir_.path() + QStringLiteral("/grupo.pdf");
        gConexion.reset();
        QProcess p;
        p.setWorkingDirectory(program());
        p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"),
                {year.dir().absolutePath() + QStringLiteral("/.."), year.dir().dirName(), QStringLiteral("FichaAlumno"),
                 QStringLiteral("--group"), QStringLiteral("1"), pdf});
        QVERIFY(p.waitForFinished(60000));
        const QString err = QString::fromUtf8(p.readAllStandardError());
        QVERIFY2(p.exitCode() == 0, qPrintable(err));
        // The student without marks is told and left out.
        QVERIFY(err.contains(QStringLiteral("Non hai datos de avaliacións (Vila Pena, Uxía)")));
        QVERIFY(QString::fromUtf8(p.readAllStandardOutput()).contains(QStringLiteral("2 alumnos")));
        const QString text = pdfText(pdf);
        QVERIFY(text.contains(QStringLiteral("Souto Vidal, Iria")));
        QVERIFY(text.contains(QStringLiteral("Rey Mato, Brais")));
        QVERIFY(text.indexOf(QStringLiteral("Rey Mato, Brais")) < text.indexOf(QStringLiteral("Souto Vidal, Iria")));
        // The last student printed is the one left in the staging file.
        QCOMPARE(native(staging(), QStringLiteral("SELECT Nom FROM tblFichaAlumno")),
                 QStringList{QStringLiteral("Souto Vidal, Iria")});
    }

    void theCommandRefusesOneStudentWithoutMarks()
    {
        alumnos_test::addStudent(3, QStringLiteral("Vila Pena"), QStringLiteral("Uxía"));
        const QFileInfo year(year_.sheetlessPath());
        gConexion.reset();
        QProcess p;
        p.setWorkingDirectory(program());
        p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-report"),
                {year.dir().absolutePath() + QStringLiteral("/.."), year.dir().dirName(), QStringLiteral("FichaAlumno"),
                 QStringLiteral("--student"), QStringLiteral("3"), dir_.path() + QStringLiteral("/uno.pdf")});
        QVERIFY(p.waitForFinished(60000));
        QCOMPARE(p.exitCode(), 2);
        QVERIFY(QString::fromUtf8(p.readAllStandardError()).contains(QStringLiteral("Non hai datos de avaliacións")));
        QVERIFY(!QFile::exists(dir_.path() + QStringLiteral("/uno.pdf")));
    }
};

QTEST_MAIN(TestStudentsPrint)
#include "test_students_print.moc"
