// The task sheet on a temporary year: a new task and an edited one, the
// seven checks in their order, the optional dates, and the combos resolved
// by their texts.
#include "assessment/frmTareasFicha.h"
#include "core/Modulo.h"
#include "support/GridText.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/MaskEdit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using gridtext::choose;
using yearq::count;
using yearq::value;

class TestTaskSheet : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

    // The stored text of one column of a task, as SQLite holds it.
    QStringList stored(const QString& columns, int id)
    {
        QStringList row;
        for (const QString& c : columns.split(u','))
            row << yearq::native(seeded_.path(),
                                 QStringLiteral("SELECT IFNULL(%1, 'Null') FROM tblTareas WHERE Id = %2")
                                     .arg(c.trimmed())
                                     .arg(id))
                       .value(0);
        return row;
    }

    // Aceptar must refuse with this text and put the focus on the field.
    void refused(frmTareasFicha& f, const QString& text, QWidget* field)
    {
        MsgBox::reset();
        MsgBox::setNextAnswer(vbOK);
        click(f.cmdAceptar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, text);
        QCOMPARE(MsgBox::shown().last().flags, vbInformation);
        QCOMPARE(f.focusWidget(), field);
        QVERIFY(f.isVisible());
    }

    // A type and a subject, in the 1ª Evaluación of 1º ESO B.
    static void chooseAll(frmTareasFicha& f, const QString& tipo, const QString& materia)
    {
        choose(f.cmbTipoTarea, tipo);
        choose(f.cmbEvaluacion, QStringLiteral("1ª Evaluación"));
        choose(f.cmbGrupo, QStringLiteral("1º ESO B"));
        choose(f.cmbMateria, materia);
    }

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void aNewTaskOpensWithTheNextKeyAndNothingChosen()
    {
        frmTareasFicha f;
        f.setEstado(0);
        f.show();
        QCOMPARE(f.txtId->text(), QStringLiteral("9"));
        QCOMPARE(gridtext::items(*f.cmbTipoTarea), (QStringList{"Examen", "Deberes", "Proyecto"}));
        QCOMPARE(gridtext::items(*f.cmbEvaluacion), (QStringList{"1ª Evaluación", "2ª Evaluación", "3ª Evaluación"}));
        QCOMPARE(gridtext::items(*f.cmbGrupo), (QStringList{"5º Primaria A", "1º ESO B", "2º ESO C"}));
        QCOMPARE(gridtext::items(*f.cmbMateria), (QStringList{"Ciencias Naturales", "Lengua", "Matemáticas"}));
        for (QComboBox* box : {f.cmbTipoTarea, f.cmbEvaluacion, f.cmbGrupo, f.cmbMateria})
            QCOMPARE(box->currentText(), QString());
        QVERIFY(!f.chkNota->isChecked());
        QVERIFY(!f.chkFin->isChecked());
        QCOMPARE(f.chkNota->text(), QStringLiteral("Computa para Nota"));
        QCOMPARE(f.chkFin->text(), QStringLiteral("FINALIZADA"));
        QCOMPARE(f.focusWidget(), f.cmbTipoTarea);
    }

    void theSevenChecksComeInOrderAndAnEndBeforeTheStartIsAccepted()
    {
        frmTareasFicha f;
        f.setEstado(0);
        f.show();
        refused(f, QStringLiteral("Ponga una descripción a la tarea"), f.txtDes);
        f.txtDes->setText(QStringLiteral("Exposición oral"));
        refused(f, QStringLiteral("Seleccione una evaluación"), f.cmbEvaluacion);
        choose(f.cmbEvaluacion, QStringLiteral("2ª Evaluación"));
        refused(f, QStringLiteral("Seleccione un grupo"), f.cmbGrupo);
        choose(f.cmbGrupo, QStringLiteral("2º ESO C"));
        refused(f, QStringLiteral("Seleccione una materia"), f.cmbMateria);
        choose(f.cmbMateria, QStringLiteral("Ciencias Naturales"));
        refused(f, QStringLiteral("Seleccione un tipo de tarea"), f.cmbTipoTarea);
        choose(f.cmbTipoTarea, QStringLiteral("Proyecto"));
        f.mskFecIni->setText(QStringLiteral("31/02/2025"));
        refused(f, QStringLiteral("Ponga una fecha de inicio correcta"), f.mskFecIni);
        f.mskFecIni->setText(QStringLiteral("10/02/2025"));
        f.mskFecFin->setText(QStringLiteral("99/99/2025"));
        refused(f, QStringLiteral("Ponga una fecha de finalización correcta"), f.mskFecFin);
        f.mskFecFin->setText(QStringLiteral("03/02/2025"));
        MsgBox::reset();
        click(f.cmdAceptar);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(!f.isVisible());
        QCOMPARE(stored(QStringLiteral("Des, IdTip, IdEva, IdGru, IdMat, FecIni, FecFin, Obs, Nota, Fin"), 9),
                 (QStringList{"Exposición oral", "3", "2", "3", "3", "2025-02-10", "2025-02-03", "", "0", "0"}));
    }

    void bothDatesMayStayEmptyEvenWithTheMaskShowing()
    {
        frmTareasFicha f;
        f.setEstado(0);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.txtDes->setText(QStringLiteral("Cuaderno"));
        chooseAll(f, QStringLiteral("Deberes"), QStringLiteral("Matemáticas"));
        f.txtObs->setText(QStringLiteral("Cada viernes"));
        f.chkNota->setChecked(true);
        f.chkFin->setChecked(true);
        f.mskFecIni->setFocus();
        QCOMPARE(f.mskFecIni->Text(), QStringLiteral("__/__/____"));
        f.cmdAceptar->click(); // the focus stays in the date box
        QVERIFY(!f.isVisible());
        QCOMPARE(stored(QStringLiteral("Des, IdTip, IdEva, IdGru, IdMat, FecIni, FecFin, Obs, Nota, Fin"), 9),
                 (QStringList{"Cuaderno", "2", "1", "2", "2", "Null", "Null", "Cada viernes", "1", "1"}));
    }

    void anEditedTaskShowsItsRowAndSavesTheChosenTexts()
    {
        frmTareasFicha f;
        f.setEstado(1);
        f.setId(1);
        f.show();
        QCOMPARE(f.txtId->text(), QStringLiteral("1"));
        QCOMPARE(f.txtDes->text(), QStringLiteral("Examen tema 1"));
        QCOMPARE(f.cmbTipoTarea->currentText(), QStringLiteral("Examen"));
        QCOMPARE(f.cmbEvaluacion->currentText(), QStringLiteral("1ª Evaluación"));
        QCOMPARE(f.cmbGrupo->currentText(), QStringLiteral("5º Primaria A"));
        QCOMPARE(f.cmbMateria->currentText(), QStringLiteral("Lengua"));
        QCOMPARE(f.mskFecIni->text(), QStringLiteral("01/10/2024"));
        QCOMPARE(f.mskFecFin->text(), QStringLiteral("01/10/2024"));
        QCOMPARE(f.txtObs->text(), QStringLiteral("Temas 1 y 2"));
        QVERIFY(f.chkNota->isChecked());
        QVERIFY(f.chkFin->isChecked());
        QCOMPARE(f.focusWidget(), f.cmbTipoTarea);

        choose(f.cmbGrupo, QStringLiteral("1º ESO B"));
        choose(f.cmbMateria, QStringLiteral("Matemáticas"));
        f.mskFecFin->clear();
        f.chkFin->setChecked(false);
        click(f.cmdAceptar);
        QVERIFY(!f.isVisible());
        QCOMPARE(stored(QStringLiteral("Id, Des, IdTip, IdEva, IdGru, IdMat, FecIni, FecFin, Nota, Fin"), 1),
                 (QStringList{"1", "Examen tema 1", "1", "1", "2", "2", "2024-10-01", "Null", "1", "0"}));
        QCOMPARE(count(QStringLiteral("tblTareas")), 8);
    }

    void aTaskWithoutDatesOpensWithEmptyDates()
    {
        frmTareasFicha f;
        f.setEstado(1);
        f.setId(8);
        f.show();
        QCOMPARE(f.mskFecIni->text(), QString());
        QCOMPARE(f.mskFecFin->text(), QString());
        QCOMPARE(f.txtObs->text(), QString());
        QVERIFY(f.chkNota->isChecked());
        QVERIFY(!f.chkFin->isChecked());
        QCOMPARE(f.cmbMateria->currentText(), QStringLiteral("Ciencias Naturales"));
    }

    void cancelWritesNothing()
    {
        frmTareasFicha f;
        f.setEstado(1);
        f.setId(2);
        f.show();
        f.txtDes->setText(QStringLiteral("Otra cosa"));
        click(f.cmdCancelar);
        QVERIFY(!f.isVisible());
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblTareas WHERE Id = 2")).toString(),
                 QStringLiteral("Deberes tema 1"));
    }

    void aQuoteInAChosenTextBreaksItsSearch()
    {
        gConexion->Execute(
            QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (4, 'Lectura d''aula', "
                           "0, 10)"));
        frmTareasFicha f;
        f.setEstado(0);
        f.show();
        f.txtDes->setText(QStringLiteral("Libro"));
        chooseAll(f, QStringLiteral("Lectura d'aula"), QStringLiteral("Lengua"));
        click(f.cmdAceptar);
        QCOMPARE(seeded_.harness.errors.size(), 1);
        QCOMPARE(count(QStringLiteral("tblTareas")), 8);
    }
};

QTEST_MAIN(TestTaskSheet)
#include "test_task_sheet.moc"
