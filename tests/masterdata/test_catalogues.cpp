// The catalogue screens on a temporary year: lists, entry forms, deleting,
// and the edge cases of each catalogue, checked in the grid and in the rows.
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "masterdata/frmCursos.h"
#include "masterdata/frmCursosFicha.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmEvaluacionesFicha.h"
#include "masterdata/frmGrupos.h"
#include "masterdata/frmGruposFicha.h"
#include "masterdata/frmMaterias.h"
#include "masterdata/frmMateriasFicha.h"
#include "masterdata/frmNiveles.h"
#include "masterdata/frmNivelesFicha.h"
#include "support/GridText.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"
#include "ui/MaskEdit.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <functional>

using gridtext::rowWith;
using yearq::count;
using yearq::value;

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "

} // namespace

class TestCatalogues : public QObject {
    Q_OBJECT

    ScreenYear year_;
    QList<RuntimeError>& errors_ = year_.harness.errors;
    bool fichaLeftOpen_ = false;
    QString fichaCaption_;

    // Runs action on the entry form that the next click opens, as it stands
    // once shown. A form that the action leaves open is cancelled afterwards
    // (and noted), so that a failing check never leaves a test waiting.
    template <typename T>
    void onFicha(std::function<void(T*)> action)
    {
        fichaLeftOpen_ = false;
        fichaCaption_.clear();
        ModalDriver::whenModal([this, action](QWidget* w) {
            auto* ficha = qobject_cast<T*>(w);
            if (!ficha) {
                qWarning("not the expected entry form: %s", w->metaObject()->className());
                fichaLeftOpen_ = true;
                w->close();
                return;
            }
            fichaCaption_ = ficha->Caption();
            action(ficha);
            if (ficha->isVisible()) {
                fichaLeftOpen_ = true;
                ficha->cmdCancelar->click();
            }
        });
    }

    // Opens the entry form by the button and runs action on it (see onFicha).
    template <typename T>
    void withFicha(QPushButton* button, std::function<void(T*)> action)
    {
        onFicha<T>(std::move(action));
        click(button);
    }

private slots:
    void init() { year_.start(); }
    void cleanup() { year_.finish(); }

    // ---- the level list: the pattern every catalogue follows

    void levelListShowsTitlesAndEachRow()
    {
        frmNiveles list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(list.Caption(), QStringLiteral("Niveles"));
        QCOMPARE(g.Rows(), 3);
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Descripción"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "1", "Primaria"}));
        QCOMPARE(gridtext::row(g, 2), (QStringList{"", "2", "ESO"}));
        QCOMPARE(gridtext::widths(g), (QList<int>{500, 1100, 4000}));
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.Col(), 1);
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(2, 2), kStripe);
        QCOMPARE(list.cmdNovo->text(), QStringLiteral("&Nuevo"));
        QCOMPARE(list.cmdEditar->text(), QStringLiteral("&Editar"));
        QCOMPARE(list.cmdBorrar->text(), QStringLiteral("&Borrar"));
    }

    void typingADescriptionStopsAtTheColumnSize()
    {
        frmNiveles list;
        list.show();
        int maxLength = 0;
        withFicha<frmNivelesFicha>(list.cmdNovo, [&](frmNivelesFicha* f) {
            QTest::keyClicks(f->txtDes, QString(60, u'n'));
            maxLength = f->txtDes->maxLength();
            QCOMPARE(f->txtDes->text().size(), 50);
            click(f->cmdAceptar);
        });
        QCOMPARE(maxLength, 50);
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 3")).toString(), QString(50, u'n'));
    }

    void newLevelIsSavedWithTheShownKey()
    {
        frmNiveles list;
        list.show();
        QString shownKey;
        withFicha<frmNivelesFicha>(list.cmdNovo, [&](frmNivelesFicha* f) {
            shownKey = f->txtId->text();
            QVERIFY(f->txtId->isReadOnly());
            QCOMPARE(f->focusWidget(), f->txtDes);
            QTest::keyClicks(f->txtDes, QStringLiteral("Bachillerato"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Nuevo nivel"));
        QCOMPARE(shownKey, QStringLiteral("3"));
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 3")).toString(),
                 QStringLiteral("Bachillerato"));
        // Refilled by activation.
        QCOMPARE(list.mshDatos->Rows(), 4);
        QCOMPARE(list.mshDatos->TextMatrix(3, 2), QStringLiteral("Bachillerato"));
    }

    void editLevelKeepsTheEditedRowSelected()
    {
        frmNiveles list;
        list.show();
        list.mshDatos->setRow(2);
        const int activations = list.activations();
        QVariant keyWhileOpen;
        withFicha<frmNivelesFicha>(list.cmdEditar, [&](frmNivelesFicha* f) {
            keyWhileOpen = CodigoAtopado;
            QCOMPARE(f->Estado(), quint8(1));
            QCOMPARE(f->txtId->text(), QStringLiteral("2"));
            QCOMPARE(f->txtDes->text(), QStringLiteral("ESO"));
            f->txtDes->setText(QStringLiteral("Secundaria"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando ESO"));
        QCOMPARE(keyWhileOpen.toInt(), 2);
        QVERIFY(CodigoAtopado.isNull());
        QCOMPARE(list.activations(), activations + 1);
        QCOMPARE(list.Tag, QString());
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 2")).toString(),
                 QStringLiteral("Secundaria"));
        QCOMPARE(list.mshDatos->TextMatrix(2, 2), QStringLiteral("Secundaria"));
        QCOMPARE(list.mshDatos->Row(), 2);
        QCOMPARE(list.mshDatos->RowSel(), 2);
        QCOMPARE(list.mshDatos->ColSel(), 2);
        QCOMPARE(list.recordset().AbsolutePosition(), 2);
    }

    void doubleClickOnTheGridEditsTheRow()
    {
        frmNiveles list;
        list.resize(600, 400);
        list.show();
        onFicha<frmNivelesFicha>([&](frmNivelesFicha* f) {
            QCOMPARE(f->txtDes->text(), QStringLiteral("Primaria"));
            click(f->cmdCancelar);
        });
        FlexGrid* g = list.mshDatos;
        const QPoint cell = g->visualRect(g->model()->index(0, 1)).center();
        QTest::mouseDClick(g->viewport(), Qt::LeftButton, {}, cell);
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando PRIMARIA"));
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
    }

    void emptyDescriptionIsRefusedAndTheFormStays()
    {
        frmNiveles list;
        list.show();
        bool stayed = false;
        QWidget* focus = nullptr;
        QLineEdit* txtDes = nullptr;
        withFicha<frmNivelesFicha>(list.cmdNovo, [&](frmNivelesFicha* f) {
            MsgBox::setNextAnswer(vbOK);
            click(f->cmdAceptar);
            stayed = f->isVisible();
            focus = f->focusWidget();
            txtDes = f->txtDes;
            click(f->cmdCancelar);
        });
        QVERIFY(stayed);
        QCOMPARE(focus, txtDes);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga una descripción"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
        QCOMPARE(list.mshDatos->Rows(), 3);
    }

    void cancelSavesNothing()
    {
        frmNiveles list;
        list.show();
        withFicha<frmNivelesFicha>(list.cmdEditar, [&](frmNivelesFicha* f) {
            f->txtDes->setText(QStringLiteral("Cambiado"));
            click(f->cmdCancelar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 1")).toString(),
                 QStringLiteral("Primaria"));
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
    }

    void deleteLevelAsksAndYesRemovesIt()
    {
        frmNiveles list;
        list.show();
        list.mshDatos->setRow(2);
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Está seguro de elimiar el nivel\r\nESO?"));
        QCOMPARE(MsgBox::shown().last().flags, vbYesNo + vbInformation);
        QCOMPARE(count(QStringLiteral("tblNiveles")), 1);
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblNiveles WHERE Id = 2")).isNull());
        QCOMPARE(list.mshDatos->Rows(), 2);
        QCOMPARE(list.mshDatos->TextMatrix(1, 2), QStringLiteral("Primaria"));
        // Nothing checks the courses of the level.
        QCOMPARE(count(QStringLiteral("tblCursos")), 3);
    }

    void deleteLevelAnsweredNoKeepsIt()
    {
        frmNiveles list;
        list.show();
        MsgBox::setNextAnswer(vbNo);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Está seguro de elimiar el nivel\r\nPrimaria?"));
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
        QCOMPARE(list.mshDatos->Rows(), 3);
    }

    void emptyListNeitherEditsNorDeletes()
    {
        year_.start(TempYear::Fill::Empty);
        frmNiveles list;
        list.show();
        QCOMPARE(list.mshDatos->Rows(), 2);
        QCOMPARE(list.mshDatos->TextMatrix(1, 1), QString());
        click(list.cmdEditar);
        click(list.cmdBorrar);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(errors_.isEmpty());
    }

    void gridWithExactlyOneRecordHasRowsZeroAndOneAndTheRowIsWhite()
    {
        year_.start(TempYear::Fill::Empty);
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (1, 'Infantil')"));
        frmNiveles list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(g.Rows(), 2);
        QCOMPARE(g.TextMatrix(0, 1), QStringLiteral("Código"));
        QCOMPARE(g.TextMatrix(1, 2), QStringLiteral("Infantil"));
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(1, 2), ui::white());
    }

    void escapeClosesTheList()
    {
        frmNiveles list;
        list.show();
        QVERIFY(list.isVisible());
        QTest::keyClick(&list, Qt::Key_Escape);
        QVERIFY(!list.isVisible());
    }

    void entryFieldsFollowTheConventions()
    {
        // txtDes takes gColor with the focus and white when it goes; Enter
        // moves on and presses no button.
        frmNivelesFicha ficha;
        ficha.setEstado(0);
        ficha.show();
        QVERIFY(QTest::qWaitForWindowActive(&ficha));
        QCOMPARE(QApplication::focusWidget(), ficha.txtDes);
        QCOMPARE(ui::backColor(ficha.txtDes), kStripe);
        QTest::keyClick(ficha.txtDes, Qt::Key_Return);
        QVERIFY(QApplication::focusWidget() != ficha.txtDes);
        QCOMPARE(ui::backColor(ficha.txtDes), ui::white());
        QVERIFY(ficha.isVisible());
        ficha.cmdCancelar->click();
        QVERIFY(!ficha.isVisible());
    }

    // ---- courses

    void courseListShowsItsLevelAndHidesTheLevelKey()
    {
        frmCursos list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Descripción", "Nivel", "IdNivel"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "1", "5º", "Primaria", "1"}));
        QCOMPARE(gridtext::widths(g), (QList<int>{500, 1100, 3000, 1500, 0}));
        QVERIFY(g.isColumnHidden(3));
    }

    void newCourseStoresTheLevelChosenByItsText()
    {
        frmCursos list;
        list.show();
        withFicha<frmCursosFicha>(list.cmdNovo, [&](frmCursosFicha* f) {
            QCOMPARE(f->cmbNivel->count(), 2);
            QCOMPARE(f->cmbNivel->currentText(), QStringLiteral("Primaria"));
            f->txtDes->setText(QStringLiteral("4º"));
            f->cmbNivel->setCurrentIndex(1);
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Nuevo curso"));
        QCOMPARE(value(QStringLiteral("SELECT IdNivel FROM tblCursos WHERE Id = 4")).toInt(), 2);
        QCOMPARE(list.mshDatos->TextMatrix(4, 3), QStringLiteral("ESO"));
    }

    void editCourseShowsItsLevel()
    {
        frmCursos list;
        list.show();
        list.mshDatos->setRow(2);
        QString shown;
        withFicha<frmCursosFicha>(list.cmdEditar, [&](frmCursosFicha* f) {
            shown = f->cmbNivel->currentText();
            f->cmbNivel->setCurrentIndex(0);
            click(f->cmdAceptar);
        });
        QCOMPARE(shown, QStringLiteral("ESO"));
        QCOMPARE(value(QStringLiteral("SELECT IdNivel FROM tblCursos WHERE Id = 2")).toInt(), 1);
        QCOMPARE(list.mshDatos->RowSel(), 2);
        QCOMPARE(list.mshDatos->ColSel(), 3);
    }

    void newCourseWithNoLevelsAtAllFailsFatally()
    {
        year_.start(TempYear::Fill::Empty);
        frmCursos list;
        list.show();
        int comboItems = -1;
        int errorsAfterSave = 0;
        withFicha<frmCursosFicha>(list.cmdNovo, [&](frmCursosFicha* f) {
            comboItems = f->cmbNivel->count();
            f->txtDes->setText(QStringLiteral("1º"));
            click(f->cmdAceptar);
            errorsAfterSave = errors_.size();
        });
        QCOMPARE(comboItems, 0);
        QCOMPARE(errorsAfterSave, 1);
        QCOMPARE(errors_.size(), 1);
        QCOMPARE(errors_.first().Number(), int(RuntimeError::ItemNotFound));
        QVERIFY(errors_.first().Description().contains(QStringLiteral("'Nivel'")));
        // In the program the handler ends the process; here the form is still
        // up and nothing was written.
        QVERIFY(fichaLeftOpen_);
        QCOMPARE(count(QStringLiteral("tblCursos")), 0);
    }

    void editedCourseWithNoLevelsStoresLevelZero()
    {
        year_.start(TempYear::Fill::Empty);
        gConexion->Execute(QStringLiteral("INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (1, '1º', 7)"));
        frmCursosFicha ficha;
        ficha.setEstado(1);
        ficha.setId(1);
        ModalDriver::whenModal([&](QWidget*) { click(ficha.cmdAceptar); });
        ficha.showModal();
        QVERIFY(errors_.isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT IdNivel FROM tblCursos WHERE Id = 1")).toInt(), 0);
    }

    void courseWhoseLevelWasRemovedDropsOutOfTheList()
    {
        {
            frmNiveles levels;
            levels.show();
            MsgBox::setNextAnswer(vbYes);
            click(levels.cmdBorrar); // Primaria, the level of course 1
        }
        frmCursos list;
        list.show();
        QCOMPARE(count(QStringLiteral("tblCursos")), 3);
        QCOMPARE(list.mshDatos->Rows(), 3);
        QCOMPARE(rowWith(*list.mshDatos, 1, QStringLiteral("1")), -1);
        QCOMPARE(list.mshDatos->TextMatrix(1, 1), QStringLiteral("2"));
    }

    // ---- groups

    void groupListShowsTheCourseAndTutoringAsSiOrNo()
    {
        frmGrupos list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Descripción", "Curso", "", "Tutoría"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "1", "A", "5º Primaria", "1", "SI"}));
        QCOMPARE(gridtext::row(g, 2), (QStringList{"", "2", "B", "1º ESO", "2", "NO"}));
        QCOMPARE(gridtext::widths(g).mid(0, 5), (QList<int>{500, 1100, 3000, 1500, 0}));
        QVERIFY(g.isColumnHidden(3));
        // 600 twips, or as wide as its title where the font asks for more.
        const int title = g.horizontalHeader()->fontMetrics().horizontalAdvance(QStringLiteral("Tutoría"));
        QVERIFY(g.ColWidth(5) >= 600);
        QVERIFY(g.twipsToPixels(g.ColWidth(5)) >= title);
    }

    void newGroupStoresItsCourseAndTutoring()
    {
        frmGrupos list;
        list.show();
        withFicha<frmGruposFicha>(list.cmdNovo, [&](frmGruposFicha* f) {
            QCOMPARE(f->chkTit->text(), QStringLiteral("TUTORÍA"));
            QCOMPARE(f->cmbCurso->currentText(), QStringLiteral("5º Primaria"));
            f->txtDes->setText(QStringLiteral("D"));
            f->cmbCurso->setCurrentIndex(2);
            f->chkTit->setChecked(true);
            click(f->cmdAceptar);
        });
        QCOMPARE(fichaCaption_, QStringLiteral("Nuevo grupo"));
        QCOMPARE(value(QStringLiteral("SELECT IdCurso FROM tblGrupos WHERE Id = 4")).toInt(), 3);
        QCOMPARE(value(QStringLiteral("SELECT Tit FROM tblGrupos WHERE Id = 4")).toInt(), 1);
        QCOMPARE(list.mshDatos->TextMatrix(4, 3), QStringLiteral("2º ESO"));
        QCOMPARE(list.mshDatos->TextMatrix(4, 5), QStringLiteral("SI"));
    }

    void editGroupShowsItsCourseAndFlag()
    {
        frmGrupos list;
        list.show();
        QString course;
        bool tutored = false;
        withFicha<frmGruposFicha>(list.cmdEditar, [&](frmGruposFicha* f) {
            course = f->cmbCurso->currentText();
            tutored = f->chkTit->isChecked();
            f->chkTit->setChecked(false);
            click(f->cmdAceptar);
        });
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando A"));
        QCOMPARE(course, QStringLiteral("5º Primaria"));
        QVERIFY(tutored);
        QCOMPARE(value(QStringLiteral("SELECT Tit FROM tblGrupos WHERE Id = 1")).toInt(), 0);
        QCOMPARE(list.mshDatos->TextMatrix(1, 5), QStringLiteral("NO"));
        QCOMPARE(list.mshDatos->ColSel(), 5);
    }

    void groupWhoseCourseIsGoneShowsTheFirstCourse()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (4, 'Z', 99, NULL)"));
        frmGruposFicha ficha;
        ficha.setEstado(1);
        ficha.setId(4);
        QString course;
        bool tutored = true;
        ModalDriver::whenModal([&](QWidget*) {
            course = ficha.cmbCurso->currentText();
            tutored = ficha.chkTit->isChecked();
            click(ficha.cmdCancelar);
        });
        ficha.showModal();
        QCOMPARE(course, QStringLiteral("5º Primaria"));
        QVERIFY(!tutored);
        QCOMPARE(value(QStringLiteral("SELECT IdCurso FROM tblGrupos WHERE Id = 4")).toInt(), 99);
    }

    void enterOnTheTutoringBoxMovesOnAndSavesNothing()
    {
        frmGruposFicha ficha;
        ficha.setEstado(0);
        ficha.show();
        QVERIFY(QTest::qWaitForWindowActive(&ficha));
        ficha.chkTit->setFocus();
        QTest::keyClick(ficha.chkTit, Qt::Key_Return);
        QVERIFY(ficha.isVisible());
        QVERIFY(QApplication::focusWidget() != ficha.chkTit);
        QCOMPARE(count(QStringLiteral("tblGrupos")), 3);
        QTest::keyClick(&ficha, Qt::Key_Escape);
        QVERIFY(!ficha.isVisible());
        QCOMPARE(count(QStringLiteral("tblGrupos")), 3);
    }

    void twoGroupsWithTheSameDescriptionAreBothStored()
    {
        frmGrupos list;
        list.show();
        withFicha<frmGruposFicha>(list.cmdNovo, [&](frmGruposFicha* f) {
            f->txtDes->setText(QStringLiteral("A"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblGrupos WHERE Des = 'A' AND IdCurso = 1")).toInt(), 2);
        QCOMPARE(list.mshDatos->Rows(), 5);
    }

    void deletingAGroupLeavesItsStudents()
    {
        frmGrupos list;
        list.show();
        const int students = count(QStringLiteral("tblAlumnos"));
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Está seguro de elimiar el grupo\r\nA?"));
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblGrupos WHERE Id = 1")).isNull());
        QCOMPARE(count(QStringLiteral("tblAlumnos")), students);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblAlumnos WHERE Grupo = 1")).toInt(), 3);
        QCOMPARE(list.mshDatos->Rows(), 3);
    }

    // ---- evaluations

    void evaluationListShowsDatesAndNotes()
    {
        frmEvaluaciones list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Descripción", "Fecha", "Observaciones"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "1", "1ª Evaluación", "20/12/2024", "Primer trimestre"}));
        QCOMPARE(gridtext::row(g, 3), (QStringList{"", "3", "3ª Evaluación", "20/06/2025", ""}));
        QCOMPARE(gridtext::widths(g), (QList<int>{500, 800, 3000, 1500, 4000}));
    }

    void evaluationWithAnEmptyDateIsAccepted()
    {
        frmEvaluaciones list;
        list.show();
        withFicha<frmEvaluacionesFicha>(list.cmdNovo, [&](frmEvaluacionesFicha* f) {
            f->txtDes->setText(QStringLiteral("Final"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Nueva evaluación"));
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblEvaluaciones WHERE Id = 4")).toString(),
                 QStringLiteral("Final"));
        QVERIFY(value(QStringLiteral("SELECT Fec FROM tblEvaluaciones WHERE Id = 4")).isNull());
        QCOMPARE(list.mshDatos->TextMatrix(4, 2), QStringLiteral("Final"));
        QCOMPARE(list.mshDatos->TextMatrix(4, 3), QString());
    }

    void evaluationDateIsTypedThroughTheMaskAndStored()
    {
        frmEvaluaciones list;
        list.show();
        withFicha<frmEvaluacionesFicha>(list.cmdNovo, [&](frmEvaluacionesFicha* f) {
            f->txtDes->setText(QStringLiteral("Final"));
            QVERIFY(QTest::qWaitForWindowActive(f)); // the mask comes with the focus
            f->mskFec->setFocus();
            QCOMPARE(f->mskFec->Mask(), QStringLiteral("##/##/####"));
            QTest::keyClicks(f->mskFec, QStringLiteral("24062025"));
            f->txtObs->setFocus();
            QCOMPARE(f->mskFec->Mask(), QString());
            QCOMPARE(f->mskFec->Text(), QStringLiteral("24/06/2025"));
            f->txtObs->setText(QStringLiteral("Ordinaria"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(value(QStringLiteral("SELECT Fec FROM tblEvaluaciones WHERE Id = 4")).toString(),
                 QStringLiteral("2025-06-24"));
        QCOMPARE(list.mshDatos->TextMatrix(4, 3), QStringLiteral("24/06/2025"));
        QCOMPARE(list.mshDatos->TextMatrix(4, 4), QStringLiteral("Ordinaria"));
    }

    void impossibleEvaluationDateIsRefused()
    {
        frmEvaluaciones list;
        list.show();
        bool stayed = false;
        bool focusOnDate = false;
        withFicha<frmEvaluacionesFicha>(list.cmdNovo, [&](frmEvaluacionesFicha* f) {
            f->txtDes->setText(QStringLiteral("Final"));
            f->mskFec->setText(QStringLiteral("31/02/2024"));
            MsgBox::setNextAnswer(vbOK);
            click(f->cmdAceptar);
            stayed = f->isVisible();
            focusOnDate = f->focusWidget() == f->mskFec;
        });
        QVERIFY(stayed);
        QVERIFY(focusOnDate);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga una fecha correcta"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(count(QStringLiteral("tblEvaluaciones")), 3);
    }

    void evaluationWithoutDescriptionHasItsOwnMessage()
    {
        frmEvaluaciones list;
        list.show();
        withFicha<frmEvaluacionesFicha>(list.cmdNovo, [&](frmEvaluacionesFicha* f) {
            MsgBox::setNextAnswer(vbOK);
            click(f->cmdAceptar);
        });
        QVERIFY(fichaLeftOpen_);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga una descripción de evaluación"));
        QCOMPARE(count(QStringLiteral("tblEvaluaciones")), 3);
    }

    void editEvaluationShowsItsDateAndKeepsIt()
    {
        frmEvaluaciones list;
        list.show();
        QString date, notes;
        withFicha<frmEvaluacionesFicha>(list.cmdEditar, [&](frmEvaluacionesFicha* f) {
            date = f->mskFec->Text();
            notes = f->txtObs->text();
            click(f->cmdAceptar);
        });
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando 1ª EVALUACIÓN"));
        QCOMPARE(date, QStringLiteral("20/12/2024"));
        QCOMPARE(notes, QStringLiteral("Primer trimestre"));
        QCOMPARE(value(QStringLiteral("SELECT Fec FROM tblEvaluaciones WHERE Id = 1")).toString(),
                 QStringLiteral("2024-12-20"));
    }

    void deleteEvaluationAsksItsOwnQuestion()
    {
        frmEvaluaciones list;
        list.show();
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("Está seguro de eliminar la evaluación de\r\n1ª Evaluación?"));
        QCOMPARE(count(QStringLiteral("tblEvaluaciones")), 2);
    }

    // ---- subjects

    void subjectListSortsByNameAndHidesTheKey()
    {
        frmMaterias list;
        list.show();
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Descripción", "Id"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "Ciencias Naturales", "3"}));
        QCOMPARE(gridtext::row(g, 2), (QStringList{"", "Lengua", "1"}));
        QCOMPARE(gridtext::row(g, 3), (QStringList{"", "Matemáticas", "2"}));
        QCOMPARE(gridtext::widths(g), (QList<int>{500, 5000, 0}));
        QVERIFY(g.isColumnHidden(1));
    }

    void editedSubjectThatSortsElsewhereStaysSelected()
    {
        frmMaterias list;
        list.show();
        list.mshDatos->setRow(2); // Lengua
        withFicha<frmMateriasFicha>(list.cmdEditar, [&](frmMateriasFicha* f) {
            QCOMPARE(f->txtId->text(), QStringLiteral("1"));
            f->txtDes->setText(QStringLiteral("Zoología"));
            click(f->cmdAceptar);
        });
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando LENGUA"));
        const FlexGrid& g = *list.mshDatos;
        QCOMPARE(g.TextMatrix(3, 1), QStringLiteral("Zoología"));
        QCOMPARE(g.Row(), 3);
        QCOMPARE(g.RowSel(), 3);
        QCOMPARE(g.ColSel(), 1);
        QCOMPARE(list.recordset().Value(QStringLiteral("Id")).toInt(), 1);
    }

    void nullColumnsShowAsEmptyText()
    {
        gConexion->Execute(QStringLiteral("INSERT INTO tblMaterias (Id, Des, Obs) VALUES (4, NULL, NULL)"));
        frmMaterias list;
        list.show();
        QCOMPARE(list.mshDatos->TextMatrix(1, 1), QString()); // a Null name sorts first
        QString des = QStringLiteral("x"), obs = QStringLiteral("x");
        withFicha<frmMateriasFicha>(list.cmdEditar, [&](frmMateriasFicha* f) {
            des = f->txtDes->text();
            obs = f->txtObs->text();
            QCOMPARE(f->txtId->text(), QStringLiteral("4"));
            click(f->cmdCancelar);
        });
        QCOMPARE(fichaCaption_, QStringLiteral("Modificando "));
        QCOMPARE(des, QString());
        QCOMPARE(obs, QString());
    }

    void apostropheTypedIntoADescriptionIsStored()
    {
        frmMaterias list;
        list.show();
        withFicha<frmMateriasFicha>(list.cmdNovo, [&](frmMateriasFicha* f) {
            QTest::keyClicks(f->txtDes, QStringLiteral("Lingua d'Oc"));
            f->txtObs->setText(QStringLiteral("Optativa d'inverno"));
            click(f->cmdAceptar);
        });
        QVERIFY(!fichaLeftOpen_);
        QCOMPARE(fichaCaption_, QStringLiteral("Nueva materia"));
        QCOMPARE(value(QStringLiteral("SELECT Des FROM tblMaterias WHERE Id = 4")).toString(),
                 QStringLiteral("Lingua d'Oc"));
        QCOMPARE(value(QStringLiteral("SELECT Obs FROM tblMaterias WHERE Id = 4")).toString(),
                 QStringLiteral("Optativa d'inverno"));
        QVERIFY(rowWith(*list.mshDatos, 1, QStringLiteral("Lingua d'Oc")) > 0);
    }

    void deleteSubjectRunsItsStatement()
    {
        frmMaterias list;
        list.show();
        list.mshDatos->setRow(3);
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Está seguro de elimiar la materia\r\nMatemáticas?"));
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblMaterias WHERE Id = 2")).isNull());
        QCOMPARE(list.mshDatos->Rows(), 3);
    }

    void deleteCourseAsksItsOwnQuestion()
    {
        frmCursos list;
        list.show();
        list.mshDatos->setRow(3);
        MsgBox::setNextAnswer(vbYes);
        click(list.cmdBorrar);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Está seguro de elimiar el curso\r\n2º?"));
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblCursos WHERE Id = 3")).isNull());
        QCOMPARE(list.mshDatos->Rows(), 3);
    }
};

QTEST_MAIN(TestCatalogues)
#include "test_catalogues.moc"
