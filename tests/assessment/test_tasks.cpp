// The task list on a temporary year: the grid and its count, the sixteen
// filters with their rows, "Pendientes" that waits for the next filter, the
// delete with its warning, and the screens opened from a row.
#include "assessment/frmEvaluar.h"
#include "assessment/frmTareas.h"
#include "assessment/frmTareasFicha.h"
#include "core/Modulo.h"
#include "rubrics/frmTareasRubrica.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/MaskEdit.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using gridtext::choose;
using yearq::count;
using yearq::value;

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "
constexpr int kColId = 10;           // tblTareas.Id, hidden

// A task of 5º Primaria A in Matemáticas, not finished and not matching
// "Examen", so that the group and the subject filters part ways.
const QString kRepaso =
    QStringLiteral("INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) "
                   "VALUES (9, 'Repaso', 2, 2, 2, 1, #2024/12/01#, #2024/12/05#, NULL, True, False)");

QStringList ids(const frmTareas& form)
{
    return form.mshDatos->Rows() == 2 && form.mshDatos->TextMatrix(1, 1).isEmpty()
               ? QStringList()
               : gridtext::column(*form.mshDatos, kColId);
}

// The filters as the teacher sets them, then "&Filtrar".
void filtrar(frmTareas& form, bool p, bool g, bool m, bool f)
{
    form.chpPendientes->setChecked(p);
    choose(form.cmbGrupo, g ? QStringLiteral("5º Primaria A") : QStringLiteral("TODOS"));
    choose(form.cmbMateria, m ? QStringLiteral("Lengua") : QStringLiteral("TODAS"));
    form.txtFiltro->setText(f ? QStringLiteral("Examen") : QString());
    click(form.cmdFiltrar);
}

} // namespace

class TestTasks : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    // ---- the grid

    void listShowsTheTitlesTheRowsAndTheCount()
    {
        frmTareas form;
        form.show();
        const FlexGrid& g = *form.mshDatos;
        QCOMPARE(form.Caption(), QStringLiteral("Programar Tareas"));
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado 8 tareas"));
        QCOMPARE(g.Rows(), 9);
        QCOMPARE(g.Cols(), 15);
        QCOMPARE(gridtext::row(g, 0).mid(0, 11), (QStringList{"", "TIPO", "EVAL.", "GRUPO", "MATERIA", "TAREA",
                                                              "INICIO", "FIN", "NOTA", "FIN", "MAX"}));
        QCOMPARE(gridtext::row(g, 1),
                 (QStringList{"1", "Examen", "2ª Evaluación", "5º Primaria A", "Lengua", "Examen tema 3", "20/01/2025",
                              "20/01/2025", "SÍ", "NO", "6", "1", "2", "1", "10"}));
        // Columns 10 to 14 are hidden: "MAX" stands over the hidden key.
        for (int c = 10; c < 15; ++c)
            QCOMPARE(g.ColWidth(c), 0);
        for (int c = 1; c < 10; ++c)
            QVERIFY(g.ColWidth(c) > 0);
        QCOMPARE(g.CellAlignment(1, 5) & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
        QCOMPARE(g.CellAlignment(1, 8) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        QCOMPARE(g.CellAlignment(1, 9) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(2, 5), kStripe);
        QCOMPARE(gridtext::column(g, 0), (QStringList{"1", "2", "3", "4", "5", "6", "7", "8"}));
        QCOMPARE(form.focusWidget(), form.txtFiltro);
    }

    void theFiltersOpenOnTodosAndTodas()
    {
        frmTareas form;
        form.show();
        QCOMPARE(gridtext::items(*form.cmbGrupo), (QStringList{"TODOS", "5º Primaria A", "1º ESO B", "2º ESO C"}));
        QCOMPARE(gridtext::items(*form.cmbMateria),
                 (QStringList{"TODAS", "Lengua", "Matemáticas", "Ciencias Naturales"}));
        QCOMPARE(form.cmbGrupo->currentText(), QStringLiteral("TODOS"));
        QCOMPARE(form.cmbMateria->currentText(), QStringLiteral("TODAS"));
        QVERIFY(!form.chpPendientes->isChecked());
        QCOMPARE(form.chpPendientes->text(), QStringLiteral("Pendientes"));
    }

    void anEmptyTaskTableGivesTwoBlankRowsAndACountOfZero()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblTareas"));
        frmTareas form;
        form.show();
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado 0 tareas"));
        QCOMPARE(form.mshDatos->Rows(), 2);
        QCOMPARE(form.mshDatos->TextMatrix(0, 1), QString());
        QCOMPARE(form.mshDatos->TextMatrix(1, 1), QString());
    }

    void aTaskWithoutDatesShowsThemEmptyAndComesLast()
    {
        frmTareas form;
        form.show();
        const FlexGrid& g = *form.mshDatos;
        QCOMPARE(g.TextMatrix(8, 5), QStringLiteral("Lectura"));
        QCOMPARE(g.TextMatrix(8, 6), QString());
        QCOMPARE(g.TextMatrix(8, 7), QString());
    }

    // ---- the sixteen filters, each on the seeded year and the task Repaso

    void eachFilterGivesItsRows_data()
    {
        QTest::addColumn<bool>("p");
        QTest::addColumn<bool>("g");
        QTest::addColumn<bool>("m");
        QTest::addColumn<bool>("f");
        QTest::addColumn<QStringList>("expected");
        auto row = [](const char* name, bool p, bool g, bool m, bool f, QStringList expected) {
            QTest::newRow(name) << p << g << m << f << expected;
        };
        // Group 5º Primaria A, subject Lengua, text "Examen".
        row("01 nothing", false, false, false, false, {"6", "9", "7", "5", "4", "3", "2", "1", "8"});
        row("02 text", false, false, false, true, {"6", "7", "5", "4", "1", "8"});
        row("03 subject", false, false, true, false, {"6", "4", "3", "2", "1"});
        row("04 subject text", false, false, true, true, {"6", "4", "1"});
        row("05 group", false, true, false, false, {"6", "9", "4", "3", "2", "1"});
        row("06 group text", false, true, false, true, {"6", "4", "1"});
        row("07 group subject", false, true, true, false, {"6", "4", "3", "2", "1"});
        row("08 group subject text", false, true, true, true, {"6", "4", "1"});
        row("09 pending", true, false, false, false, {"6", "9", "7", "4", "3", "8"});
        row("10 pending text", true, false, false, true, {"6", "7", "4", "8"});
        row("11 pending subject", true, false, true, false, {"6", "4", "3"});
        // Task 7 is of Matemáticas and shows by its description; task 8 is an
        // Examen of Ciencias Naturales and does not.
        row("12 pending subject text", true, false, true, true, {"6", "7", "4"});
        row("13 pending group", true, true, false, false, {"6", "9", "4", "3"});
        row("14 pending group text", true, true, false, true, {"6", "4"});
        row("15 pending group subject", true, true, true, false, {"6", "4", "3"});
        row("16 pending group subject text", true, true, true, true, {"6", "4"});
    }

    void eachFilterGivesItsRows()
    {
        QFETCH(bool, p);
        QFETCH(bool, g);
        QFETCH(bool, m);
        QFETCH(bool, f);
        QFETCH(QStringList, expected);
        gConexion->Execute(kRepaso);
        frmTareas form;
        form.show();
        filtrar(form, p, g, m, f);
        QCOMPARE(ids(form), expected);
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado %1 tareas").arg(expected.size()));
    }

    void theTwelfthFilterBindsTheSubjectToTheTypeAlone()
    {
        const QString sql =
            frmTareas::sqlFiltro(true, false, true, true, 0, QStringLiteral("Lengua"), QStringLiteral("Examen"));
        QVERIFY(sql.contains(QStringLiteral(
            " WHERE (tblTareasTipos.Des LIKE '%Examen%' AND tblMaterias.Des = 'Lengua' OR tblEvaluaciones.Des "
            "LIKE '%Examen%' OR [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] LIKE "
            "'%Examen%' OR tblTareas.Des LIKE '%Examen%') AND tblTareas.Fin = False ORDER BY tblTareas.FecIni DESC;")));
        frmTareas form;
        form.show();
        filtrar(form, true, false, true, true);
        const QStringList shown = gridtext::column(*form.mshDatos, 4);
        QVERIFY(shown.contains(QStringLiteral("Matemáticas")));         // task 7, by its description
        QVERIFY(!shown.contains(QStringLiteral("Ciencias Naturales"))); // task 8, by its type alone
    }

    void pendientesCountsOnlyAtTheNextFilter()
    {
        frmTareas form;
        form.show();
        click(form.chpPendientes);
        QVERIFY(form.chpPendientes->isChecked());
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado 8 tareas"));
        QCOMPARE(form.mshDatos->Rows(), 9);
        click(form.cmdFiltrar);
        QCOMPARE(ids(form), (QStringList{"6", "7", "4", "3", "8"}));
    }

    void enterInTheSearchBoxAndAChosenGroupFilter()
    {
        frmTareas form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.txtFiltro->setFocus();
        QTest::keyClicks(form.txtFiltro, QStringLiteral("huerto"));
        QCOMPARE(form.mshDatos->Rows(), 9); // typing alone does not filter
        QTest::keyClick(form.txtFiltro, Qt::Key_Return);
        QCOMPARE(ids(form), (QStringList{"3"}));
        QVERIFY(form.isVisible()); // Enter pressed no button
        form.txtFiltro->clear();
        form.cmbGrupo->setFocus();
        QTest::keyClick(form.cmbGrupo, Qt::Key_Down); // from TODOS to the first group
        QCOMPARE(form.cmbGrupo->currentText(), QStringLiteral("5º Primaria A"));
        QCOMPARE(ids(form), (QStringList{"6", "4", "3", "2", "1"}));
        form.cmbMateria->setFocus();
        QTest::keyClick(form.cmbMateria, Qt::Key_Down);
        QTest::keyClick(form.cmbMateria, Qt::Key_Down);
        QCOMPARE(form.cmbMateria->currentText(), QStringLiteral("Matemáticas"));
        QCOMPARE(ids(form), QStringList());
    }

    void aQuoteInTheSubjectBreaksTheStatement()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblMaterias (Id, Des) VALUES (4, 'Lingua d''Oc')"));
        frmTareas form;
        form.show();
        choose(form.cmbMateria, QStringLiteral("Lingua d'Oc"));
        click(form.cmdFiltrar);
        QCOMPARE(seeded_.harness.errors.size(), 1);
    }

    // ---- the delete

    void deleteWarnsAndDeletesTheMarksThenTheTask()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(5); // Proyecto huerto, task 3
        QCOMPARE(form.mshDatos->TextMatrix(5, kColId), QStringLiteral("3"));
        MsgBox::script({vbYes, vbOK});
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Está seguro de elimiar la tarea\r\nProyecto huerto?"));
        QCOMPARE(MsgBox::shown()[0].flags, vbYesNo + vbInformation);
        QCOMPARE(MsgBox::shown()[1].text, QStringLiteral("¡IMPORTANTE!\r\nREVISE LAS NOTAS DE EVALUACIÓN\r\npues los "
                                                         "cálculos sufrirán cambios"));
        QCOMPARE(MsgBox::shown()[1].flags, vbInformation);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblTareas WHERE Id = 3")).toInt(), 0);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotas WHERE IdTarea = 3")).toInt(), 0);
        QCOMPARE(count(QStringLiteral("tblNotas")), 15);
        // The rubric of the task and the rubric values of its marks stay.
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblTareasRubrica WHERE IdTarea = 3")).toInt(), 3);
        QCOMPARE(count(QStringLiteral("tblNotasRubrica")), 4);
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado 7 tareas"));
        QVERIFY(!ids(form).contains(QStringLiteral("3")));
    }

    void deleteAnsweredNoKeepsEverything()
    {
        frmTareas form;
        form.show();
        MsgBox::setNextAnswer(vbNo);
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(count(QStringLiteral("tblTareas")), 8);
        QCOMPARE(count(QStringLiteral("tblNotas")), 17);
    }

    void deleteRefiltersWithTheFiltersAsTheyStand()
    {
        frmTareas form;
        form.show();
        choose(form.cmbMateria, QStringLiteral("Matemáticas"));
        click(form.cmdFiltrar);
        click(form.chpPendientes); // counts at the refilter after the delete
        MsgBox::script({vbYes, vbOK});
        click(form.cmdBorrar); // task 7, Examen de problemas
        QCOMPARE(ids(form), QStringList());
        QCOMPARE(form.lblInfo->text(), QStringLiteral("Se han encontrado 0 tareas"));
    }

    // ---- the screens of a row

    void nuevoResetsTheFiltersAndEditarKeepsThem()
    {
        frmTareas form;
        form.show();
        choose(form.cmbGrupo, QStringLiteral("1º ESO B"));
        click(form.cmdFiltrar);
        auto edit = onModal<frmTareasFicha>([](frmTareasFicha* f) { click(f->cmdCancelar); });
        click(form.cmdEditar);
        QCOMPARE(edit->caption, QStringLiteral("Modificando EXAMEN DE PROBLEMAS"));
        QCOMPARE(form.cmbGrupo->currentText(), QStringLiteral("1º ESO B"));
        QCOMPARE(ids(form), (QStringList{"7", "5"}));

        auto nuevo = onModal<frmTareasFicha>([](frmTareasFicha* f) { click(f->cmdCancelar); });
        click(form.cmdNovo);
        QCOMPARE(nuevo->caption, QStringLiteral("Nueva Tarea"));
        QCOMPARE(form.cmbGrupo->currentText(), QStringLiteral("TODOS"));
        QCOMPARE(form.cmbMateria->currentText(), QStringLiteral("TODAS"));
        QCOMPARE(form.mshDatos->Rows(), 9);
    }

    void anEditedTaskIsFoundAgainAfterTheRefilter()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(8); // Lectura, no dates
        auto edit = onModal<frmTareasFicha>([](frmTareasFicha* f) {
            f->mskFecIni->setText(QStringLiteral("01/03/2025"));
            click(f->cmdAceptar);
        });
        click(form.cmdEditar);
        QVERIFY(edit->closedByItself());
        QCOMPARE(form.mshDatos->Row(), 1); // now the newest
        QCOMPARE(form.mshDatos->TextMatrix(1, 5), QStringLiteral("Lectura"));
        QCOMPARE(CodigoAtopado, QVariant());
    }

    void evaluacionOpensTheMarkingGridOfTheRow()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(6); // Deberes tema 1, task 2, type Max 5
        qint32 tarea = 0, grupo = 0;
        qint16 maximo = 0;
        QString cabecera;
        auto run = onModal<frmEvaluar>([&](frmEvaluar* f) {
            tarea = f->IdTarea();
            grupo = f->IdGrupo();
            maximo = f->ValorMaximo();
            cabecera = f->lblCabecera->text();
            click(f->cmdSalir);
        });
        click(form.cmdEvaluacion);
        QVERIFY(run->closedByItself());
        QCOMPARE(tarea, 2);
        QCOMPARE(grupo, 1);
        QCOMPARE(maximo, qint16(5));
        QCOMPARE(cabecera,
                 QStringLiteral(" Deberes | Evaluación: 1ª Evaluación | Materia: Lengua | Grupo: 5º Primaria A"));
        QCOMPARE(form.mshDatos->Row(), 6);
        QCOMPARE(form.Tag, QString());
    }

    void aDoubleClickOpensTheMarkingGridToo()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(2);
        qint32 tarea = 0;
        auto run = onModal<frmEvaluar>([&](frmEvaluar* f) {
            tarea = f->IdTarea();
            f->close();
        });
        emit form.mshDatos->DblClick();
        QVERIFY(run->opened);
        QCOMPARE(tarea, 7); // Examen de problemas
    }

    void rubricaOpensTheRubricOfTheRowAndComesBackToIt()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(5); // Proyecto huerto, task 3
        qint32 tarea = 0;
        QString tipo, cabecera, filas;
        auto run = onModal<frmTareasRubrica>([&](frmTareasRubrica* f) {
            tarea = f->IdTarea();
            tipo = f->TipoTarea();
            cabecera = f->lblCabecera->text();
            filas = gridtext::column(*f->mshDatos, 2).join(u' ');
            // A new task meanwhile: the list is filtered again on return.
            gConexion->Execute(kRepaso);
            click(f->cmdSalir);
        });
        click(form.cmdRubrica);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Rúbrica de tarea"));
        QCOMPARE(tarea, 3);
        QCOMPARE(tipo, QStringLiteral("Proyecto"));
        QCOMPARE(cabecera,
                 QStringLiteral(" Proyecto | Evaluación: 1ª Evaluación | Materia: Lengua | Grupo: 5º Primaria A"));
        QCOMPARE(filas, QStringLiteral("1 10 2"));
        QCOMPARE(form.mshDatos->Rows(), 10);
        QCOMPARE(form.mshDatos->TextMatrix(form.mshDatos->Row(), kColId), QStringLiteral("3"));
        QCOMPARE(form.Tag, QString());
    }

    void informesDoesNothing()
    {
        frmTareas form;
        form.show();
        form.mshDatos->setRow(3);
        const int activations = form.activations();
        click(form.cmdInformes);
        QCOMPARE(form.cmdInformes->text(), QStringLiteral("&Informes"));
        QCOMPARE(form.cmdRubrica->text(), QStringLiteral("&Rúbrica"));
        QCOMPARE(form.activations(), activations);
        QCOMPARE(form.mshDatos->Row(), 3);
        QCOMPARE(form.Tag, QString());
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void theButtonsOfARowDoNothingOnAnEmptyList()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblTareas"));
        frmTareas form;
        form.show();
        click(form.cmdEditar);
        click(form.cmdEvaluacion);
        click(form.cmdRubrica);
        click(form.cmdBorrar);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(seeded_.harness.errors.isEmpty());
    }
};

QTEST_MAIN(TestTasks)
#include "test_tasks.moc"
