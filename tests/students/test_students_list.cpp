// The student list on a seeded year: the query and its filter, the grid, the
// AV mark, the sheet opened to edit or add, the delete and the reports.
#include "AlumnosTest.h"
#include "reports/engine/ReportDocument.h"
#include "reports/engine/ReportFiles.h"
#include "reports/viewers/frmInforme.h"
#include "students/frmAlumnos.h"
#include "students/frmAlumnosFicha.h"
#include "ui/Colors.h"
#include "ui/MsgBox.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>

using namespace alumnos_test;
using yearq::count;
using yearq::value;

namespace {

// The list with a filter typed and Enter pressed in the box.
void filtra(frmAlumnos& list, const QString& text)
{
    list.txtFiltro->setText(text);
    pressEnter(list.txtFiltro);
}

QStringList surnames(const FlexGrid& grid)
{
    QStringList names;
    for (int r = 1; r < grid.Rows(); ++r)
        names << grid.TextMatrix(r, 1);
    return names;
}

} // namespace

class TestStudentsList : public QObject {
    Q_OBJECT

    Year year_;

private slots:
    void init() { year_.start(); }
    void cleanup() { year_.finish(); }

    // ---- the list

    void emptyFilterListsEveryStudentWithTheTotal()
    {
        frmAlumnos list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(list.Caption(), QStringLiteral("Alumnos"));
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 8 alumnos"));
        QCOMPARE(g.Rows(), 9);
        QCOMPARE(g.Cols(), 8);
        QCOMPARE(cells(g, 0, 1, 4), QStringLiteral("APELLIDOS | NOMBRE | CORREO ELECTRÓNICO | GRUPO"));
        QCOMPARE(g.TextMatrix(0, 7), QStringLiteral("AV"));
        QCOMPARE(cells(g, 1),
                 QStringLiteral("1 | Castro Ferreño | María | maria.castro@example.com | 2º ESO C | 7 |  | NO"));
        QCOMPARE(cells(g, 2),
                 QStringLiteral("2 | Fernández Núñez | Brais | brais.fernandez@example.com | 5º Primaria A | "
                                "2 |  | SÍ"));
        QCOMPARE(surnames(g), (QStringList{"Castro Ferreño", "Fernández Núñez", "García López", "Martínez Otero",
                                           "Pérez Castro", "Rodríguez Iglesias", "Souto Peña", "Vázquez Muñoz"}));
        QCOMPARE(g.TextMatrix(3, 6), QStringLiteral("C:\\Fotos\\ana.jpg"));
        QCOMPARE(g.TextMatrix(8, 0), QStringLiteral("8"));
        QCOMPARE(list.cmdNovo->text(), QStringLiteral("&Nuevo"));
        QCOMPARE(list.cmdEditar->text(), QStringLiteral("&Editar"));
        QCOMPARE(list.cmdBorrar->text(), QStringLiteral("&Borrar"));
        QCOMPARE(list.cmdInformes->text(), QStringLiteral("&Informes"));
    }

    void gridIsStripedWithItsFontsAlignmentAndFirstRowSelected()
    {
        frmAlumnos list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(2, 1), kStripe);
        QCOMPARE(g.CellBackColor(2, 7), kStripe);
        QCOMPARE(g.CellBackColor(3, 4), ui::white());
        QCOMPARE(g.CellFontSize(1, 0), 9.0);
        QCOMPARE(g.CellFontSize(5, 0), 9.0);
        QCOMPARE(g.CellFontSize(1, 1), 12.0);
        QCOMPARE(g.CellFontSize(8, 2), 12.0);
        QVERIFY(g.CellAlignment(1, 1) & Qt::AlignLeft);
        QVERIFY(g.CellAlignment(1, 4) & Qt::AlignLeft);
        QVERIFY(g.CellAlignment(1, 7) & Qt::AlignHCenter);
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.Col(), 1);
        QCOMPARE(g.ColSel(), 5);
    }

    void columnWidthsFollowTheGridOnResize()
    {
        frmAlumnos list;
        list.resize(1000, 600);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        FlexGrid& g = *list.mshDatos;
        auto expected = [&](int percent) { return g.pixelsToTwips(g.width()) * percent / 100; };
        const int first = g.ColWidth(1);
        QCOMPARE(first, expected(30));
        QCOMPARE(g.ColWidth(2), expected(20));
        QCOMPARE(g.ColWidth(3), expected(20));
        QCOMPARE(g.ColWidth(4), expected(10));
        QCOMPARE(g.ColWidth(5), 0);
        QCOMPARE(g.ColWidth(6), 0);
        QCOMPARE(g.ColWidth(7), expected(5));
        list.resize(1400, 600);
        QTRY_VERIFY(g.ColWidth(1) > first);
        QCOMPARE(g.ColWidth(1), expected(30));
        QCOMPARE(g.ColWidth(7), expected(5));
    }

    void filterWithNoMatchLeavesAnEmptyRowAndEditAndDeleteDoNothing()
    {
        frmAlumnos list;
        list.show();
        filtra(list, QStringLiteral("zzz"));
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 0 alumnos"));
        QCOMPARE(list.mshDatos->Rows(), 2);
        QCOMPARE(list.mshDatos->TextMatrix(1, 1), QString());
        QVERIFY(!opensAModal([&] { click(list.cmdEditar); }));
        QVERIFY(!opensAModal([&] { pressEnter(list.mshDatos); }));
        click(list.cmdBorrar);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(year_.harness.errors.isEmpty());
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void enterInTheFilterQueriesAndKeepsTheFocus()
    {
        frmAlumnos list;
        list.show();
        list.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        list.txtFiltro->setFocus();
        QTest::keyClicks(list.txtFiltro, QStringLiteral("Castro"));
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 8 alumnos"));
        pressEnter(list.txtFiltro);
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 2 alumnos"));
        QCOMPARE(list.focusWidget(), list.txtFiltro);
    }

    void filterFocusTakesTheColourAndLeavingItWhite()
    {
        frmAlumnos list;
        list.show();
        list.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        list.mshDatos->setFocus();
        list.txtFiltro->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(list.txtFiltro), kStripe);
        list.mshDatos->setFocus(Qt::TabFocusReason);
        QCOMPARE(ui::backColor(list.txtFiltro), ui::white());
    }

    void filterMatchesSurnamesNameMailAndTheWholeGroupText()
    {
        frmAlumnos list;
        list.show();
        filtra(list, QStringLiteral("Castro"));
        QCOMPARE(surnames(*list.mshDatos), (QStringList{"Castro Ferreño", "Pérez Castro"}));
        filtra(list, QStringLiteral("Sabela"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Martínez Otero"});
        filtra(list, QStringLiteral("inigo.rodriguez@"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Rodríguez Iglesias"});
        filtra(list, QStringLiteral("1º ESO B"));
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 2 alumnos"));
        QCOMPARE(surnames(*list.mshDatos), (QStringList{"Martínez Otero", "Rodríguez Iglesias"}));
        filtra(list, QStringLiteral("Primaria A"));
        QCOMPARE(list.mshDatos->Rows(), 4);
    }

    void filterIgnoresAccentsAndCase()
    {
        addStudent(20, QStringLiteral("Álvarez Rey"), QStringLiteral("Noa"));
        frmAlumnos list;
        list.show();
        filtra(list, QStringLiteral("alvarez"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Álvarez Rey"});
        filtra(list, QStringLiteral("ÁLVAREZ"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Álvarez Rey"});
        filtra(list, QStringLiteral("munoz"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Vázquez Muñoz"});
        filtra(list, QStringLiteral("MUÑOZ"));
        QCOMPARE(surnames(*list.mshDatos), QStringList{"Vázquez Muñoz"});
    }

    void listSortsAccentedSurnamesAmongTheirLetterAndNTildeAfterN()
    {
        addStudent(20, QStringLiteral("Álvarez Rey"), QStringLiteral("Noa"));
        addStudent(21, QStringLiteral("Ñúñez Lago"), QStringLiteral("Iago"));
        addStudent(22, QStringLiteral("Nuevo Lema"), QStringLiteral("Eva"));
        addStudent(23, QStringLiteral("Otero Sal"), QStringLiteral("Rui"));
        addStudent(24, QStringLiteral("castro ferreño"), QStringLiteral("Ana"));
        frmAlumnos list;
        list.show();
        QCOMPARE(surnames(*list.mshDatos),
                 (QStringList{"Álvarez Rey", "castro ferreño", "Castro Ferreño", "Fernández Núñez", "García López",
                              "Martínez Otero", "Nuevo Lema", "Ñúñez Lago", "Otero Sal", "Pérez Castro",
                              "Rodríguez Iglesias", "Souto Peña", "Vázquez Muñoz"}));
    }

    void studentWithoutGroupShowsWithABlankGroup()
    {
        frmAlumnos list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(g.TextMatrix(7, 1), QStringLiteral("Souto Peña"));
        QCOMPARE(g.TextMatrix(7, 4).trimmed(), QString());
    }

    void apostropheInTheFilterBreaksTheQuery()
    {
        frmAlumnos list;
        list.show();
        filtra(list, QStringLiteral("O'Neill"));
        QCOMPARE(year_.harness.errors.size(), 1);
        year_.harness.errors.clear();
    }

    // ---- the AV mark

    void doubleClickOnAvTogglesTheMarkBothWays()
    {
        frmAlumnos list;
        list.resize(1000, 600);
        list.show();
        FlexGrid* g = list.mshDatos;
        QCOMPARE(g->TextMatrix(2, 7), QStringLiteral("SÍ")); // Fernández Núñez, AV 1
        doubleClickCell(g, 2, 7);
        QCOMPARE(value(QStringLiteral("SELECT AV FROM tblAlumnos WHERE Id = 2")).toInt(), 0);
        QCOMPARE(g->TextMatrix(2, 7), QStringLiteral("NO"));
        doubleClickCell(g, 2, 7);
        QCOMPARE(value(QStringLiteral("SELECT AV FROM tblAlumnos WHERE Id = 2")).toInt(), 1);
        QCOMPARE(g->TextMatrix(2, 7), QStringLiteral("SÍ"));
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 8 alumnos"));
        QCOMPARE(gFilaActual, 0);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void togglingSiThenNoBringsTheSameRowBackAtTheTop()
    {
        for (int i = 0; i < 40; ++i)
            addStudent(100 + i, QStringLiteral("Zas %1").arg(i, 2, 10, QLatin1Char('0')), QStringLiteral("Alumno"));
        frmAlumnos list;
        list.resize(1000, 500);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        FlexGrid* g = list.mshDatos;
        const int row = 30;
        QCOMPARE(g->TextMatrix(row, 1), QStringLiteral("Zas 21"));
        QCOMPARE(g->TextMatrix(row, 7), QStringLiteral("NO"));
        doubleClickCell(g, row, 7);
        QCOMPARE(g->TextMatrix(row, 7), QStringLiteral("SÍ"));
        QCOMPARE(g->Row(), row);
        QCOMPARE(g->TopRow(), row);
        g->setTopRow(1);
        doubleClickCell(g, row, 7);
        QCOMPARE(g->TextMatrix(row, 7), QStringLiteral("NO"));
        QCOMPARE(g->Row(), row);
        QCOMPARE(g->TopRow(), row);
        QCOMPARE(value(QStringLiteral("SELECT AV FROM tblAlumnos WHERE Id = 121")).toInt(), 0);
    }

    // ---- the sheet opened from the list

    void editOpensTheSheetOnTheRowWithTheListAndComesBackToTheRow()
    {
        frmAlumnos list;
        list.show();
        list.mshDatos->setRow(3);
        const int activations = list.activations();
        qint32 id = 0;
        quint8 estado = 9;
        db::Recordset* lista = nullptr;
        int filaAberta = 0;
        auto run = onModal<frmAlumnosFicha>([&](frmAlumnosFicha* f) {
            id = f->Id();
            estado = f->Estado();
            lista = f->rcAlumnos();
            filaAberta = gFilaActual;
            f->txtDir->setText(QStringLiteral("Rúa Nova 1"));
            click(f->cmdAceptar);
            click(f->cmdCancelar);
        });
        click(list.cmdEditar);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando GARCÍA LÓPEZ ANA"));
        QCOMPARE(id, 1);
        QCOMPARE(estado, quint8(1));
        QCOMPARE(lista, &list.recordset());
        QCOMPARE(filaAberta, 3);
        QCOMPARE(gFilaActual, 0);
        QCOMPARE(list.Tag, QString());
        QCOMPARE(list.activations(), activations + 1);
        QCOMPARE(list.mshDatos->Row(), 3);
        QCOMPARE(value(QStringLiteral("SELECT Dir FROM tblAlumnos WHERE Id = 1")).toString(),
                 QStringLiteral("Rúa Nova 1"));
    }

    void doubleClickOnAnotherColumnAndEnterOnTheGridEdit()
    {
        frmAlumnos list;
        list.resize(1000, 600);
        list.show();
        auto run = onModal<frmAlumnosFicha>([](frmAlumnosFicha* f) { click(f->cmdCancelar); });
        doubleClickCell(list.mshDatos, 1, 3);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando CASTRO FERREÑO MARÍA"));
        list.mshDatos->setRow(8);
        run = onModal<frmAlumnosFicha>([](frmAlumnosFicha* f) { click(f->cmdCancelar); });
        pressEnter(list.mshDatos);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando VÁZQUEZ MUÑOZ XOÁN"));
        QCOMPARE(value(QStringLiteral("SELECT AV FROM tblAlumnos WHERE Id = 7")).toInt(), 0);
    }

    void newOpensAnEmptySheetAndTheNewStudentShowsAtOnce()
    {
        frmAlumnos list;
        list.show();
        quint8 estado = 9;
        db::Recordset* lista = &list.recordset();
        auto run = onModal<frmAlumnosFicha>([&](frmAlumnosFicha* f) {
            estado = f->Estado();
            lista = f->rcAlumnos();
            f->txtApe->setText(QStringLiteral("Abad Sanmartín"));
            f->txtNom->setText(QStringLiteral("Xián"));
            f->cmbGrupo->setCurrentIndex(1);
            click(f->cmdAceptar);
            click(f->cmdCancelar);
        });
        click(list.cmdNovo);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Nuevo alumno"));
        QCOMPARE(estado, quint8(0));
        QCOMPARE(lista, nullptr);
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 9 alumnos"));
        QCOMPARE(cells(*list.mshDatos, 1, 1, 5), QStringLiteral("Abad Sanmartín | Xián |  | 1º ESO B | 9"));
    }

    // ---- deleting

    void deleteAsksAndNoKeepsTheStudent()
    {
        frmAlumnos list;
        list.show();
        list.mshDatos->setRow(2);
        MsgBox::setNextAnswer(vbNo);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("Está seguro de elimiar el alumno\r\nBrais Fernández Núñez?"));
        QCOMPARE(MsgBox::shown().last().flags, vbYesNo + vbInformation);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void deleteYesRemovesOnlyTheStudentRow()
    {
        frmAlumnos list;
        list.show();
        list.mshDatos->setRow(2);
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 7);
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblAlumnos WHERE Id = 2")).isNull());
        QCOMPARE(list.lblInfo->text(), QStringLiteral("Se han encontrado 7 alumnos"));
        QCOMPARE(list.mshDatos->TextMatrix(2, 1), QStringLiteral("García López"));
        // Marks, evaluation and final marks of the student stay behind.
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotas WHERE IdAlu = 2")).toInt(), 4);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotasEval WHERE IdAlu = 2")).toInt(), 1);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotasFinal WHERE IdAlu = 2")).toInt(), 1);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblTutoriaCitas WHERE IdAlu = 2")).toInt(), 1);
        // Nor does anything of the joined catalogues go with the row.
        QCOMPARE(count(QStringLiteral("tblGrupos")), 3);
        QCOMPARE(count(QStringLiteral("tblCursos")), 3);
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
    }

    // ---- reports

    void reportFilterIsSinFiltroOrTheSameConditionInReportSyntax()
    {
        frmAlumnos list;
        list.show();
        QCOMPARE(list.FiltroInforme(), QStringLiteral("Sin Filtro"));
        list.txtFiltro->setText(QStringLiteral("Castro"));
        QCOMPARE(list.FiltroInforme(),
                 QStringLiteral("{tblAlumnos.Ape} LIKE '*Castro*' OR {tblAlumnos.Nom} LIKE '*Castro*' OR "
                                "{tblAlumnos.MailAlu} LIKE '*Castro*' OR {tblCursos.Des} + ' ' + {tblNiveles.Des} + "
                                "' ' + {tblGrupos.Des} LIKE '*Castro*'"));
    }

    void reportsOpenOnTheStudentKeyAndGlobalTakesTheFilter()
    {
        QTemporaryDir base;
        QString error;
        QVERIFY2(reports::installReportFiles(base.path(), base.filePath(QStringLiteral("programa")), &error),
                 qPrintable(error));
        gRutaBase = base.path();
        gRutaBD = year_.year().path();
        frmAlumnos list;
        list.show();
        filtra(list, QStringLiteral("Castro"));
        QStringList entries;
        QString html;
        auto run = onModal<frmInforme>([&](frmInforme* f) {
            for (int i = 0; i < f->lstInforme->count(); ++i)
                entries << f->lstInforme->item(i)->text();
            f->lstInforme_Click(f->lstInforme->item(0));
            if (f->shownReport())
                html = f->shownReport()->html();
            f->close();
        });
        click(list.cmdInformes);
        QVERIFY(run->opened);
        QCOMPARE(entries, (QStringList{"Global", "Por Grupos", "Ficha", "Notas Finais"}));
        QVERIFY(html.contains(QStringLiteral("Castro Ferreño")));
        QVERIFY(html.contains(QStringLiteral("Pérez Castro")));
        QVERIFY(!html.contains(QStringLiteral("García López")));
        gRutaBase.clear();
        gRutaBD.clear();
    }

    void escapeClosesTheList()
    {
        frmAlumnos list;
        list.show();
        QTest::keyClick(&list, Qt::Key_Escape);
        QVERIFY(!list.isVisible());
        QVERIFY(!list.recordset().IsOpen());
    }
};

QTEST_MAIN(TestStudentsList)
#include "test_students_list.moc"
