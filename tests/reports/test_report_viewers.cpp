// The three report viewers: the list of frmInforme and its filter, the
// guarded opening, the printing on the printers of imp.ini and the PDF
// entry, the release after printing, and the year switch.
#include "core/Modulo.h"
#include "reports/engine/ReportDocument.h"
#include "reports/engine/ReportErrors.h"
#include "reports/engine/ReportSeams.h"
#include "reports/viewers/PrinterOutput.h"
#include "reports/viewers/frmInforme.h"
#include "reports/viewers/frmInformeHojaDoc.h"
#include "reports/viewers/frmInformeListado.h"
#include "support/ReportFixture.h"
#include "support/YearQueries.h"
#include "ui/MsgBox.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QtTest>

namespace {

const QString kListFilter = QStringLiteral(
    "{tblAlumnos.Ape} LIKE '*castro*' OR {tblAlumnos.Nom} LIKE '*castro*' OR {tblAlumnos.MailAlu} LIKE '*castro*' "
    "OR {tblCursos.Des} + ' ' + {tblNiveles.Des} + ' ' + {tblGrupos.Des} LIKE '*castro*'");

void writeImpIni(const QString& lines)
{
    QFile f(RutaPrograma() + QStringLiteral("/imp.ini"));
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(lines.toUtf8());
}

QListWidgetItem* entry(frmInforme& form, const QString& text)
{
    const auto items = form.lstInforme->findItems(text, Qt::MatchExactly);
    return items.isEmpty() ? nullptr : items.first();
}

void clickEntry(frmInforme& form, const QString& text)
{
    QListWidgetItem* item = entry(form, text);
    QVERIFY2(item, qPrintable(text));
    QTest::mouseClick(form.lstInforme->viewport(), Qt::LeftButton, {}, form.lstInforme->visualItemRect(item).center());
}

// The viewer of the student list reports with a filter, shown.
void showAlumnos(frmInforme& form, const QString& filtro)
{
    form.setTipo(QStringLiteral("Alumnos"));
    form.setFiltro(filtro);
    form.show();
}

QString shownHtml(const ReportViewer& form)
{
    return form.shownReport() ? form.shownReport()->html() : QString();
}

} // namespace

class TestReportViewers : public QObject {
    Q_OBJECT

    QList<int> errors_;
    QStringList opened_;
    QStringList printed_;
    std::unique_ptr<ReportFixture> fixture_;

private slots:
    void initTestCase() { MsgBox::setUnscriptedFatal(true); }

    void init()
    {
        fixture_ = std::make_unique<ReportFixture>();
        MsgBox::reset();
        errors_.clear();
        opened_.clear();
        printed_.clear();
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { errors_.append(e.Number()); });
        Printers::setForTest({QStringLiteral("Aula 2")});
        reports::Desktop::setOpenerForTest([this](const QString& f) { opened_.append(f); });
        reports::PrinterOutput::setForTest([this](const QString& printer, const reports::ReportDocument& r) {
            printed_.append(printer + u':' + r.name());
        });
        writeImpIni(QStringLiteral("0\r\n1\r\n"));
    }

    void cleanup()
    {
        ui::setRuntimeErrorHandler({});
        Printers::reset();
        reports::Desktop::reset();
        reports::PrinterOutput::reset();
        fixture_.reset();
    }

    // ---------------------------------------------------------- frmInforme

    void theListHoldsTheEntriesOfTheKey()
    {
        frmInforme alumnos;
        alumnos.setTipo(QStringLiteral("Alumnos"));
        alumnos.setFiltro(QStringLiteral("Sin Filtro"));
        alumnos.show();
        QCOMPARE(alumnos.lstInforme->count(), 4);
        QStringList texts;
        for (int i = 0; i < alumnos.lstInforme->count(); ++i)
            texts << alumnos.lstInforme->item(i)->text();
        QCOMPARE(texts, (QStringList{QStringLiteral("Global"), QStringLiteral("Por Grupos"), QStringLiteral("Ficha"),
                                     QStringLiteral("Notas Finais")}));
        QVERIFY(!alumnos.shownReport());

        frmInforme tarea;
        tarea.setTipo(QStringLiteral("NotasTarea"));
        tarea.show();
        QCOMPARE(tarea.lstInforme->count(), 1);
        QCOMPARE(tarea.lstInforme->item(0)->text(), QStringLiteral("Notas Alumno"));
    }

    void aClickOpensTheEntryWithTheProgramAndYear()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        QVERIFY(form.hasReport());
        QCOMPARE(form.shownReport()->name(), QStringLiteral("Alumnos"));
        QCOMPARE(form.shownReport()->header().empresa, QStringLiteral("CADERNIA ## Curso 2024-25"));
        QCOMPARE(form.preview->pageCount(), 1);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void theFilterAppliesToTheStudentLists_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::newRow("Global") << QStringLiteral("Global");
        QTest::newRow("Por Grupos") << QStringLiteral("Por Grupos");
        QTest::newRow("Ficha") << QStringLiteral("Ficha");
    }

    void theFilterAppliesToTheStudentLists()
    {
        QFETCH(QString, entry);
        frmInforme form;
        showAlumnos(form, kListFilter);
        clickEntry(form, entry);
        const QString html = shownHtml(form);
        QVERIFY(html.contains(QStringLiteral("Castro Ferreño")));
        QVERIFY(html.contains(QStringLiteral("Pérez Castro")));
        QVERIFY(!html.contains(QStringLiteral("García López")));
        QVERIFY(!html.contains(QStringLiteral("Martínez Otero")));
    }

    void theStudentReportsListEveryStudentOfTheList_data() { theFilterAppliesToTheStudentLists_data(); }

    // As the student list shows them: with or without a group, each group
    // labelled as the screens label it.
    void theStudentReportsListEveryStudentOfTheList()
    {
        QFETCH(QString, entry);
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, entry);
        const QString html = shownHtml(form);
        const QStringList surnames = yearq::column(QStringLiteral("SELECT Ape FROM tblAlumnos"));
        QCOMPARE(surnames.size(), 8);
        for (const QString& ape : surnames)
            QVERIFY2(html.contains(ape.toHtmlEscaped()), qPrintable(ape));
        QVERIFY(html.contains(QStringLiteral("Souto Peña"))); // the student whose group was deleted
        QVERIFY(html.contains(QStringLiteral("5º Primaria A")));
        QVERIFY(!html.contains(QStringLiteral("5º Primaria - A")));
        if (entry == QLatin1String("Global"))
            QVERIFY(html.contains(QStringLiteral("Total de alumnos: 8")));
    }

    void theFilterNeverAppliesToTheFinalMarks()
    {
        frmInforme form;
        showAlumnos(form, kListFilter);
        clickEntry(form, QStringLiteral("Notas Finais"));
        const QString html = shownHtml(form);
        QVERIFY(html.contains(QStringLiteral("García López, Ana")));
        QVERIFY(html.contains(QStringLiteral("Martínez Otero, Sabela")));
        QCOMPARE(form.shownReport()->header().title, QStringLiteral("INFORME DE NOTAS FINAIS"));
    }

    void sinFiltroListsEveryone()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        QVERIFY(shownHtml(form).contains(QStringLiteral("García López")));
        QVERIFY(shownHtml(form).contains(QStringLiteral("Castro Ferreño")));
    }

    void theTaskMarksTakeTheBandCounts()
    {
        frmInforme form;
        form.setTipo(QStringLiteral("NotasTarea"));
        form.setTitulo(QStringLiteral("Examen tema 1"));
        form.setFiltro(QStringLiteral("{tblNotas.IdTarea} = 1"));
        form.setNotaIN(QStringLiteral("1 | 50,0%"));
        form.setNotaSB(QStringLiteral("-"));
        form.show();
        clickEntry(form, QStringLiteral("Notas Alumno"));
        QVERIFY(shownHtml(form).contains(QStringLiteral("1 | 50,0%")));
        QCOMPARE(form.shownReport()->header().title, QStringLiteral("Examen tema 1"));
        QVERIFY(!shownHtml(form).contains(QStringLiteral("Rodríguez")));
    }

    void aRemovedReportFileGivesTheFixedMessageAndTheFormStaysUsable()
    {
        QVERIFY(QFile::remove(fixture_->reportPath(QStringLiteral("Alumnos.rpt"))));
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        MsgBox::setNextAnswer(vbOK);
        clickEntry(form, QStringLiteral("Global"));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("El archivo de reporte no se encuentra, restáurelo de los discos de instalación"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbCritical));
        QVERIFY(!form.shownReport());
        QVERIFY(form.isVisible());
        QVERIFY(errors_.isEmpty());

        // Still usable: another entry opens.
        clickEntry(form, QStringLiteral("Por Grupos"));
        QVERIFY(form.hasReport());
        QCOMPARE(MsgBox::shown().size(), 1);
    }

    void anyOtherFailureShowsItsDescription()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("{tblAlumnos.Ape} LIKE '*x"));
        MsgBox::setNextAnswer(vbOK);
        clickEntry(form, QStringLiteral("Global"));
        QCOMPARE(MsgBox::shown().size(), 1);
        QVERIFY(MsgBox::shown().last().text.startsWith(QStringLiteral("Error en la fórmula de selección")));
        QCOMPARE(MsgBox::shown().last().flags, int(vbCritical));
        QVERIFY(!form.shownReport());
    }

    // ------------------------------------------------------------ printing

    void cmdPDFWithNothingPreviewedSaysSelect()
    {
        frmInforme form;
        form.setTipo(QStringLiteral("Alumnos"));
        form.show();
        MsgBox::setNextAnswer(vbOK);
        QTest::mouseClick(form.cmdPDF, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Selecciones un informe"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QVERIFY(errors_.isEmpty());
        QVERIFY(opened_.isEmpty());
    }

    void theOtherViewersSaySeleccione()
    {
        QVERIFY(QFile::remove(fixture_->reportPath(QStringLiteral("NotasAval.rpt"))));
        frmInformeListado listado;
        listado.setTipo(QStringLiteral("NotasAval"));
        MsgBox::script({vbOK, vbOK});
        listado.show(); // the missing file
        QTest::mouseClick(listado.cmdImpresora, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Seleccione un informe"));

        frmInformeHojaDoc hoja;
        MsgBox::setNextAnswer(vbOK);
        QTest::mouseClick(hoja.cmdPDF, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Seleccione un informe"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
    }

    void thePdfEntryWritesTheFileUnderTheBaseAndOpensIt()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        QTest::mouseClick(form.cmdPDF, Qt::LeftButton); // imp.ini line 2: position 1, "PDF (archivo)"
        const QString expected = fixture_->base() + QStringLiteral("/PDF/Alumnos-20250305-103015.pdf");
        QCOMPARE(opened_, QStringList{expected});
        QVERIFY(QFileInfo(expected).size() > 1000);
        QVERIFY(printed_.isEmpty());

        // Released: the preview still shows it, a second press asks for a report.
        QVERIFY(form.shownReport());
        QVERIFY(!form.hasReport());
        MsgBox::setNextAnswer(vbOK);
        QTest::mouseClick(form.cmdPDF, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Selecciones un informe"));
        QCOMPARE(opened_.size(), 1);
        QVERIFY(errors_.isEmpty());
    }

    void withoutAPdfViewerThePdfEntrySaysWhereItWroteTheFile()
    {
        reports::Desktop::setNoViewerForTest();
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        MsgBox::setNextAnswer(vbOK);
        QTest::mouseClick(form.cmdPDF, Qt::LeftButton);
        const QString expected = fixture_->base() + QStringLiteral("/PDF/Alumnos-20250305-103015.pdf");
        QVERIFY(QFileInfo(expected).size() > 1000);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("No hay ningún programa para abrir archivos PDF.\nEl informe se ha guardado en:\n") +
                     expected);
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QVERIFY(errors_.isEmpty());
    }

    void escapeClosesEveryViewer()
    {
        frmInforme informe;
        showAlumnos(informe, QStringLiteral("Sin Filtro"));
        frmInformeListado listado;
        listado.setTipo(QStringLiteral("NotasAval"));
        listado.show();
        frmInformeHojaDoc hoja;
        hoja.setTipo(QStringLiteral("FichaAlumno"));
        hoja.show();
        for (Form* viewer : std::initializer_list<Form*>{&informe, &listado, &hoja}) {
            QVERIFY(viewer->isVisible());
            QTest::keyClick(viewer, Qt::Key_Escape);
            QVERIFY2(!viewer->isVisible(), viewer->metaObject()->className());
        }
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(errors_.isEmpty());
    }

    void cmdImpresoraPrintsOnThePrinterOfLineOne()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Por Grupos"));
        QTest::mouseClick(form.cmdImpresora, Qt::LeftButton);
        QCOMPARE(printed_, QStringList{QStringLiteral("Aula 2:AlumnosGrupo")});
        QCOMPARE(reports::PrinterOutput::jobName(*form.shownReport()), QStringLiteral("Cadernia - ALUMNOS POR GRUPOS"));
        QVERIFY(opened_.isEmpty());
        QVERIFY(!form.hasReport());
    }

    void withoutImpIniTheFirstPrinterIsUsed()
    {
        QVERIFY(QFile::remove(RutaPrograma() + QStringLiteral("/imp.ini")));
        frmInformeHojaDoc hoja;
        hoja.setTipo(QStringLiteral("FichaAlumno"));
        hoja.show();
        QVERIFY(hoja.hasReport());
        QTest::mouseClick(hoja.cmdPDF, Qt::LeftButton);
        QCOMPARE(printed_, QStringList{QStringLiteral("Aula 2:FichaAlumno")});
    }

    void aPositionBeyondTheListIsAnUnhandledFailure()
    {
        writeImpIni(QStringLiteral("5\r\n1\r\n"));
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        QTest::mouseClick(form.cmdImpresora, Qt::LeftButton);
        QCOMPARE(errors_, QList<int>{9});
        QVERIFY(printed_.isEmpty());
        QVERIFY(MsgBox::shown().isEmpty());
    }

    // ---------------------------------------------------- year and others

    void afterAYearSwitchTheSameReportShowsTheOtherYear()
    {
        frmInforme form;
        showAlumnos(form, QStringLiteral("Sin Filtro"));
        clickEntry(form, QStringLiteral("Global"));
        QVERIFY(shownHtml(form).contains(QStringLiteral("García López")));
        fixture_->switchYear(ReportFixture::secondYear());
        clickEntry(form, QStringLiteral("Global"));
        QVERIFY(shownHtml(form).contains(QStringLiteral("Otero Vidal")));
        QVERIFY(!shownHtml(form).contains(QStringLiteral("García López")));
        QCOMPARE(form.shownReport()->header().empresa, QStringLiteral("CADERNIA ## Curso 2025-26"));
    }

    void theListViewerOpensOnActivation()
    {
        frmInformeListado form;
        form.setTipo(QStringLiteral("NotasRec"));
        form.setEmpresa(QStringLiteral("CADERNIA ## Curso 2024-25"));
        form.setTitulo(QStringLiteral("NOTAS DE RECUPERACIÓN. 5º Primaria A\r\nLengua. AVALIACIÓN 1ª Evaluación"));
        form.setInfo(QStringLiteral("IN: 0 | SF: 0 | BE: 1 | NT: 0 | SB: 0"));
        form.setFiltro(QStringLiteral("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 1 "
                                      "AND {tblNotasEval.Recuperar} = True"));
        form.show();
        QVERIFY(form.hasReport());
        QCOMPARE(form.shownReport()->header().info, QStringLiteral("IN: 0 | SF: 0 | BE: 1 | NT: 0 | SB: 0"));
        const QString html = shownHtml(form);
        QVERIFY(html.contains(QStringLiteral("Fernández Núñez")));
        QVERIFY(html.contains(QStringLiteral("Pérez Castro")));
        QVERIFY(!html.contains(QStringLiteral("García López"))); // nothing to recover
    }

    void frmInformeOpensTheStudentRecordAtOnce()
    {
        frmInforme form;
        form.setTipo(QStringLiteral("FichaAlumno"));
        form.show();
        QVERIFY(form.hasReport());
        QCOMPARE(form.shownReport()->name(), QStringLiteral("FichaAlumno"));
        QVERIFY(!form.lstInforme->isVisible());
    }

    void theStudentRecordIsLookedForInTheCurrentDirectory()
    {
        QDir::setCurrent(fixture_->base());
        frmInformeHojaDoc hoja;
        hoja.setTipo(QStringLiteral("FichaAlumno"));
        MsgBox::setNextAnswer(vbOK);
        hoja.show();
        QCOMPARE(MsgBox::shown().last().text, reports::missingFileText());
        QVERIFY(!hoja.shownReport());
    }

    void thePreviewFillsTheForm()
    {
        frmInformeListado form;
        form.setTipo(QStringLiteral("TutoriaCuadro"));
        form.setFiltro(QStringLiteral("{tblTutoriaNotas.IdEval} = 1 AND {tblGrupos.Tit} = True"));
        form.show();
        form.resize(1200, 900);
        QApplication::processEvents();
        QVERIFY(form.preview->isVisible());
        QVERIFY(form.preview->width() > 1150);
        QVERIFY(form.preview->height() > 800);
        form.resize(700, 500);
        QApplication::processEvents();
        QVERIFY(form.preview->width() > 650);
        QVERIFY(form.preview->width() <= 700);
    }
};

QTEST_MAIN(TestReportViewers)
#include "test_report_viewers.moc"
