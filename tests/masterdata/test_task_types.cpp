// The task types and their weights on a temporary year: both grids, the
// combos, the entry forms, the deletes, and the rules that are left out on
// purpose (no sum to 100, duplicates, decimals rounded away, Min above Max).
#include "core/Funciones.h"
#include "core/Modulo.h"
#include "masterdata/frmTareasTipos.h"
#include "masterdata/frmTareasTiposFicha.h"
#include "masterdata/frmTareasTiposValores.h"
#include "support/GridText.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using yearq::count;
using yearq::value;

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "

// A new type from the list's button: the name, the two marks typed key by
// key, and Aceptar.
std::shared_ptr<ModalRun> addType(frmTareasTipos& form, const QString& des, const QString& min, const QString& max,
                                  QStringList* shown = nullptr)
{
    auto run = onModal<frmTareasTiposFicha>([=](frmTareasTiposFicha* f) {
        f->txtDes->setText(des);
        QTest::keyClicks(f->txtMin, min);
        QTest::keyClicks(f->txtMax, max);
        if (shown)
            *shown << f->txtId->text() << f->txtMin->text() << f->txtMax->text();
        click(f->cmdAceptar);
    });
    click(form.cmdNovo);
    return run;
}

} // namespace

class TestTaskTypes : public QObject {
    Q_OBJECT

    SessionYear year_;
    ScreenHarness harness_;

    // The screen with Lengua and 5º Primaria A chosen and filtered, on the
    // row of the given type.
    void showLenguaA(frmTareasTipos& form, int typeRow = 1)
    {
        form.show();
        gridtext::chooseData(form.cmbMateria, 1);
        gridtext::chooseData(form.cmbGrupo, 1);
        form.mshDatos->setRow(typeRow);
        click(form.cmdFiltrarValor);
    }

private slots:
    void init()
    {
        year_.start(TempYear::Fill::Seeded);
        harness_.start();
    }

    void cleanup()
    {
        harness_.finish();
        year_.finish();
    }

    // ---- the types grid and the combos

    void typesGridIsBuiltCellByCell()
    {
        frmTareasTipos form;
        form.show();
        const FlexGrid& g = *form.mshDatos;
        QCOMPARE(form.Caption(), QStringLiteral("Tipos de Tareas"));
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(g.Cols(), 6);
        QCOMPARE(gridtext::row(g, 0), (QStringList{"", "Código", "Descripción", "Min.", "Máx.", "Observacións"}));
        QCOMPARE(gridtext::row(g, 1), (QStringList{"", "1", "Examen", "0", "10", "Pruebas escritas"}));
        QCOMPARE(gridtext::row(g, 2), (QStringList{"", "2", "Deberes", "0", "5", ""})); // Obs is Null
        QCOMPARE(gridtext::row(g, 3), (QStringList{"", "3", "Proyecto", "0", "100", "Trabajo por proyectos"}));
        QCOMPARE(g.CellBackColor(1, 1), ui::white());
        QCOMPARE(g.CellBackColor(2, 1), kStripe);
        QCOMPARE(g.CellBackColor(2, 5), kStripe);
        QCOMPARE(g.CellBackColor(3, 3), ui::white());
        QCOMPARE(g.Row(), 1);
        QCOMPARE(form.cmdFiltrarValor->text(), QStringLiteral("&Filtrar"));
    }

    void combosListSubjectsByNameAndGroupsByKeyWithTheirKeys()
    {
        frmTareasTipos form;
        form.show();
        QCOMPARE(gridtext::itemsWithData(*form.cmbMateria),
                 (QStringList{"Ciencias Naturales=3", "Lengua=1", "Matemáticas=2"}));
        QCOMPARE(gridtext::itemsWithData(*form.cmbGrupo), (QStringList{"5º Primaria A=1", "1º ESO B=2", "2º ESO C=3"}));
        QCOMPARE(form.cmbMateria->currentIndex(), 0);
        QCOMPARE(form.cmbGrupo->currentIndex(), 0);
    }

    void noTypesGivesAnEmptyGridAndTheButtonsDoNothing()
    {
        year_.start(TempYear::Fill::Empty);
        frmTareasTipos form;
        form.show();
        QCOMPARE(form.mshDatos->Rows(), 0);
        QCOMPARE(form.mshValor->Rows(), 0);
        click(form.cmdEditar);
        click(form.cmdBorrar);
        click(form.cmdEditarValor);
        click(form.cmdBorrarValor);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(harness_.errors.isEmpty());
    }

    // ---- the weights grid

    void weightsOfTheTypeSubjectAndGroupWithTwoFixedColumns()
    {
        frmTareasTipos form;
        showLenguaA(form);
        const FlexGrid& v = *form.mshValor;
        QCOMPARE(v.Rows(), 3);
        QCOMPARE(v.Cols(), 4);
        QCOMPARE(v.FixedCols(), 2);
        QCOMPARE(v.TextMatrix(0, 2), QStringLiteral("Avaliación"));
        QCOMPARE(v.TextMatrix(0, 3), QStringLiteral("Valor"));
        QCOMPARE(gridtext::row(v, 1), (QStringList{"1", "", "1ª Evaluación", "60"}));
        QCOMPARE(gridtext::row(v, 2), (QStringList{"4", "", "2ª Evaluación", "100"}));
        QCOMPARE(v.CellAlignment(1, 2) & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
        QCOMPARE(v.CellAlignment(1, 3) & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        // The stripes start at column 2.
        QCOMPARE(v.CellBackColor(2, 2), kStripe);
        QCOMPARE(v.CellBackColor(2, 3), kStripe);
        QVERIFY(v.CellBackColor(2, 1) != kStripe);
        QCOMPARE(v.CellBackColor(1, 2), ui::white());
    }

    void aTypeWithoutWeightsShowsNoneAndWeighsZero()
    {
        frmTareasTipos form;
        showLenguaA(form);
        gridtext::chooseData(form.cmbMateria, 2); // Matemáticas, 5º Primaria A: no weights at all
        click(form.cmdFiltrarValor);
        QCOMPARE(form.mshValor->Rows(), 0);
        QCOMPARE(PesoTipoTarea(1, 1, 2, 1), 0.0f);
    }

    void changingTheSubjectAloneLeavesTheOldWeights()
    {
        frmTareasTipos form;
        showLenguaA(form);
        QCOMPARE(form.mshValor->Rows(), 3);
        gridtext::chooseData(form.cmbMateria, 3);
        gridtext::chooseData(form.cmbGrupo, 3);
        QCOMPARE(form.mshValor->Rows(), 3);
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("60"));
        // Another type row refreshes them for what the combos say now.
        form.mshDatos->setRow(2);
        QCOMPARE(form.mshValor->Rows(), 0);
        form.mshDatos->setRow(1);
        QCOMPARE(form.mshValor->Rows(), 2);
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("100"));
        // And so does Filtrar.
        gridtext::chooseData(form.cmbMateria, 2);
        gridtext::chooseData(form.cmbGrupo, 2);
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("100"));
        click(form.cmdFiltrarValor);
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("70"));
    }

    void emptyCombosLeaveTheWeightsEmptyWithoutAFailure()
    {
        year_.start(TempYear::Fill::Empty);
        gConexion->Execute(
            QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (1, 'Examen', 0, 10)"));
        frmTareasTipos form;
        form.show();
        click(form.cmdFiltrarValor);
        QCOMPARE(form.cmbMateria->count(), 0);
        QCOMPARE(form.mshDatos->Rows(), 2);
        QCOMPARE(form.mshValor->Rows(), 0);
        QVERIFY(harness_.errors.isEmpty());
    }

    void activationWithTagARefillsOnlyTheWeights()
    {
        frmTareasTipos form;
        showLenguaA(form);
        gConexion->Execute(QStringLiteral("UPDATE tblTareasTipos SET Des = 'Cambiado' WHERE Id = 1"));
        gConexion->Execute(QStringLiteral("UPDATE tblTareasTiposValor SET Valor = 55 WHERE Id = 1"));
        form.Tag = QStringLiteral("A");
        form.activate();
        QCOMPARE(form.Tag, QString());
        QCOMPARE(form.mshDatos->TextMatrix(1, 2), QStringLiteral("Examen"));
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("55"));
        QCOMPARE(form.cmbMateria->currentData().toInt(), 1); // the combos were not refilled
    }

    // ---- the type form

    void newTypeIsSavedAndListed()
    {
        frmTareasTipos form;
        form.show();
        QString shownKey;
        auto run = onModal<frmTareasTiposFicha>([&](frmTareasTiposFicha* f) {
            shownKey = f->txtId->text();
            QCOMPARE(f->focusWidget(), f->txtDes);
            f->txtDes->setText(QStringLiteral("Oral"));
            f->txtMin->setText(QStringLiteral("1"));
            f->txtMax->setText(QStringLiteral("20"));
            f->txtObs->setText(QStringLiteral("Exposiciones"));
            click(f->cmdAceptar);
        });
        click(form.cmdNovo);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Nuevo tipo de tarea"));
        QCOMPARE(shownKey, QStringLiteral("4"));
        QCOMPARE(
            value(QStringLiteral("SELECT Des & '|' & Min & '|' & Max & '|' & Obs FROM tblTareasTipos WHERE Id = 4"))
                .toString(),
            QStringLiteral("Oral|1|20|Exposiciones"));
        QCOMPARE(form.mshDatos->Rows(), 5);
        QCOMPARE(gridtext::row(*form.mshDatos, 4), (QStringList{"", "4", "Oral", "1", "20", "Exposiciones"}));
    }

    void typedPointShowsACommaAndTheMarkIsStoredWhole()
    {
        frmTareasTipos form;
        form.show();
        QStringList shown;
        QVERIFY(addType(form, QStringLiteral("Escala"), QStringLiteral("12.5"), QStringLiteral("13.5"), &shown)
                    ->closedByItself());
        QCOMPARE(shown, (QStringList{"4", "12,5", "13,5"}));
        // Half to even: 12,5 gives 12 and 13,5 gives 14.
        QCOMPARE(value(QStringLiteral("SELECT Min FROM tblTareasTipos WHERE Id = 4")).toInt(), 12);
        QCOMPARE(value(QStringLiteral("SELECT Max FROM tblTareasTipos WHERE Id = 4")).toInt(), 14);
    }

    void minAboveMaxIsStoredAsTyped()
    {
        frmTareasTipos form;
        form.show();
        QVERIFY(addType(form, QStringLiteral("Al revés"), QStringLiteral("10"), QStringLiteral("5"))->closedByItself());
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT Min FROM tblTareasTipos WHERE Id = 4")).toInt(), 10);
        QCOMPARE(value(QStringLiteral("SELECT Max FROM tblTareasTipos WHERE Id = 4")).toInt(), 5);
        QCOMPARE(gridtext::row(*form.mshDatos, 4), (QStringList{"", "4", "Al revés", "10", "5", ""}));
    }

    void typeFormRefusesInOrderAndStaysOnTheField()
    {
        frmTareasTipos form;
        form.show();
        QStringList focus;
        auto run = onModal<frmTareasTiposFicha>([&](frmTareasTiposFicha* f) {
            MsgBox::script({vbOK, vbOK, vbOK});
            click(f->cmdAceptar);
            focus << f->focusWidget()->objectName();
            f->txtDes->setText(QStringLiteral("Prueba"));
            f->txtMin->setText(QStringLiteral("abc"));
            click(f->cmdAceptar);
            focus << f->focusWidget()->objectName();
            f->txtMin->setText(QStringLiteral("0"));
            click(f->cmdAceptar);
            focus << f->focusWidget()->objectName();
            click(f->cmdCancelar);
        });
        click(form.cmdNovo);
        QVERIFY(run->closedByItself());
        QCOMPARE(focus, (QStringList{"txtDes", "txtMin", "txtMax"}));
        QCOMPARE(MsgBox::shown().size(), 3);
        QCOMPARE(MsgBox::shown().at(0).text, QStringLiteral("Ponga una descripción"));
        QCOMPARE(MsgBox::shown().at(1).text, QStringLiteral("Ponga un nº correcto"));
        QCOMPARE(MsgBox::shown().at(2).text, QStringLiteral("Ponga un nº correcto"));
        for (const auto& box : MsgBox::shown())
            QCOMPARE(box.flags, int(vbInformation));
        QCOMPARE(count(QStringLiteral("tblTareasTipos")), 3);
    }

    void editTypeShowsItAndKeepsItsRowSelected()
    {
        frmTareasTipos form;
        form.show();
        form.mshDatos->setRow(2);
        QStringList shown;
        auto run = onModal<frmTareasTiposFicha>([&](frmTareasTiposFicha* f) {
            shown << f->txtId->text() << f->txtDes->text() << f->txtMin->text() << f->txtMax->text()
                  << f->txtObs->text();
            f->txtDes->setText(QStringLiteral("Deberes de casa"));
            f->txtMax->setText(QStringLiteral("8"));
            click(f->cmdAceptar);
        });
        click(form.cmdEditar);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando Valor Deberes"));
        QCOMPARE(shown, (QStringList{"2", "Deberes", "0", "5", ""}));
        QCOMPARE(value(QStringLiteral("SELECT Max FROM tblTareasTipos WHERE Id = 2")).toInt(), 8);
        QCOMPARE(form.mshDatos->TextMatrix(2, 2), QStringLiteral("Deberes de casa"));
        QCOMPARE(form.mshDatos->Row(), 2);
        QCOMPARE(form.Tag, QString());
    }

    // ---- deleting a type

    void deletingATypeDeletesItsWeightsInEverySubjectAndGroup()
    {
        frmTareasTipos form;
        showLenguaA(form);
        MsgBox::script({vbYes, vbOK});
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown().at(0).text, QStringLiteral("¿Borrar a Tarea Examen?"));
        QCOMPARE(MsgBox::shown().at(0).flags, int(vbYesNo));
        QCOMPARE(MsgBox::shown().at(1).text, QStringLiteral("PROCESO FINALIZADO"));
        QCOMPARE(MsgBox::shown().at(1).flags, int(vbOKOnly));
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblTareasTipos WHERE Id = 1")).isNull());
        // Weights 1, 4 (Lengua), 5 (Matemáticas) and 7 (Ciencias) went with it.
        QCOMPARE(yearq::column(QStringLiteral("SELECT Id FROM tblTareasTiposValor ORDER BY Id")),
                 (QStringList{"2", "3", "6"}));
        // The tasks of the type stay.
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblTareas WHERE IdTip = 1")).toInt(), 5);
        QCOMPARE(form.mshDatos->Rows(), 3);
        QCOMPARE(form.mshDatos->TextMatrix(1, 2), QStringLiteral("Deberes"));
        // The weights now shown are those of Deberes.
        QCOMPARE(form.mshValor->Rows(), 2);
        QCOMPARE(form.mshValor->TextMatrix(1, 3), QStringLiteral("30"));
    }

    void deletingATypeAnsweredNoKeepsEverything()
    {
        frmTareasTipos form;
        form.show();
        MsgBox::setNextAnswer(vbNo);
        click(form.cmdBorrar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(count(QStringLiteral("tblTareasTipos")), 3);
        QCOMPARE(count(QStringLiteral("tblTareasTiposValor")), 7);
    }

    // ---- the weight form

    void newWeightTakesTheTypeSubjectAndGroupOnScreen()
    {
        frmTareasTipos form;
        showLenguaA(form);
        QStringList evaluations;
        QString shownKey, typed;
        auto run = onModal<frmTareasTiposValores>([&](frmTareasTiposValores* f) {
            shownKey = f->txtId->text();
            QVERIFY(!f->txtDes->isVisible());
            for (int i = 0; i < f->cmbAvaliacion->count(); ++i)
                evaluations << f->cmbAvaliacion->itemText(i);
            QCOMPARE(f->cmbAvaliacion->currentIndex(), 0);
            QCOMPARE(f->focusWidget(), f->cmbAvaliacion);
            f->cmbAvaliacion->setCurrentIndex(2);
            QTest::keyClicks(f->txtValor, QStringLiteral("12.5"));
            typed = f->txtValor->text();
            click(f->cmdAceptar);
        });
        click(form.cmdNovoValor);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Valor Nuevo"));
        QCOMPARE(shownKey, QStringLiteral("8"));
        QCOMPARE(evaluations, (QStringList{"1ª Evaluación", "2ª Evaluación", "3ª Evaluación"}));
        QCOMPARE(typed, QStringLiteral("12,5"));
        QCOMPARE(value(QStringLiteral("SELECT IdTareaTip & '|' & IdEval & '|' & IdMat & '|' & IdGrupo & '|' & Valor "
                                      "FROM tblTareasTiposValor WHERE Id = 8"))
                     .toString(),
                 QStringLiteral("1|3|1|1|12"));
        QCOMPARE(form.Tag, QString());
        QCOMPARE(form.mshValor->Rows(), 4);
        QCOMPARE(gridtext::row(*form.mshValor, 3), (QStringList{"8", "", "3ª Evaluación", "12"}));
    }

    void aSecondWeightForTheSameEvaluationAndAnyValueAreAccepted()
    {
        frmTareasTipos form;
        showLenguaA(form);
        for (const QString& typed : {QStringLiteral("250"), QStringLiteral("0")}) {
            auto run = onModal<frmTareasTiposValores>([&](frmTareasTiposValores* f) {
                f->txtValor->setText(typed); // for 1ª Evaluación, which has 60 already
                click(f->cmdAceptar);
            });
            click(form.cmdNovoValor);
            QVERIFY(run->closedByItself());
        }
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(
            yearq::column(QStringLiteral("SELECT Valor FROM tblTareasTiposValor WHERE IdTareaTip = 1 AND IdEval = 1 "
                                         "AND IdMat = 1 AND IdGrupo = 1 ORDER BY Id")),
            (QStringList{"60", "250", "0"}));
        // The first row counts.
        QCOMPARE(PesoTipoTarea(1, 1, 1, 1), 60.0f);
        QCOMPARE(form.mshValor->Rows(), 5);
    }

    void aWeightThatIsNoNumberIsRefusedWithItsTextSelected()
    {
        frmTareasTipos form;
        showLenguaA(form);
        bool selected = false;
        QString focus;
        auto run = onModal<frmTareasTiposValores>([&](frmTareasTiposValores* f) {
            f->txtValor->setText(QStringLiteral("mucho"));
            MsgBox::setNextAnswer(vbOK);
            click(f->cmdAceptar);
            selected = f->txtValor->selectedText() == QStringLiteral("mucho");
            focus = f->focusWidget()->objectName();
            click(f->cmdCancelar);
        });
        click(form.cmdNovoValor);
        QVERIFY(run->closedByItself());
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un valor correcto"));
        QVERIFY(selected);
        QCOMPARE(focus, QStringLiteral("txtValor"));
        QCOMPARE(count(QStringLiteral("tblTareasTiposValor")), 7);
    }

    void editWeightChangesOnlyEvaluationAndValueAndKeepsTheRow()
    {
        frmTareasTipos form;
        showLenguaA(form);
        form.mshValor->setRow(2);
        QStringList shown;
        auto run = onModal<frmTareasTiposValores>([&](frmTareasTiposValores* f) {
            shown << f->txtId->text() << f->cmbAvaliacion->currentText() << f->txtValor->text();
            f->cmbAvaliacion->setCurrentIndex(2);
            f->txtValor->setText(QStringLiteral("90"));
            click(f->cmdAceptar);
        });
        click(form.cmdEditarValor);
        QVERIFY(run->closedByItself());
        QCOMPARE(run->caption, QStringLiteral("Modificando Valor 2ª Evaluación"));
        QCOMPARE(shown, (QStringList{"4", "2ª Evaluación", "100"}));
        QCOMPARE(value(QStringLiteral("SELECT IdTareaTip & '|' & IdEval & '|' & IdMat & '|' & IdGrupo & '|' & Valor "
                                      "FROM tblTareasTiposValor WHERE Id = 4"))
                     .toString(),
                 QStringLiteral("1|3|1|1|90"));
        QCOMPARE(form.mshValor->Row(), 2);
        QCOMPARE(gridtext::row(*form.mshValor, 2), (QStringList{"4", "", "3ª Evaluación", "90"}));
    }

    void deletingAWeightNamesItsValueInTheQuestion()
    {
        frmTareasTipos form;
        showLenguaA(form);
        form.mshValor->setRow(2);
        MsgBox::script({vbYes, vbOK});
        click(form.cmdBorrarValor);
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown().at(0).text, QStringLiteral("¿Borrar a valoración do 100?"));
        QCOMPARE(MsgBox::shown().at(0).flags, int(vbYesNo));
        QCOMPARE(MsgBox::shown().at(1).text, QStringLiteral("PROCESO FINALIZADO"));
        QVERIFY(value(QStringLiteral("SELECT Id FROM tblTareasTiposValor WHERE Id = 4")).isNull());
        QCOMPARE(count(QStringLiteral("tblTareasTiposValor")), 6);
        QCOMPARE(form.mshValor->Rows(), 2);
    }

    // ---- layout

    void gridsShareTheWidthSeventyAndTwentyEightPercentLessThreeHundredTwips()
    {
        frmTareasTipos form;
        form.show();
        const int less = form.mshDatos->twipsToPixels(300);
        form.resize(1000, 600);
        QCOMPARE(form.mshDatos->width(), 700);
        QCOMPARE(form.mshValor->width(), 280 - less);
        QVERIFY(form.mshValor->x() >= form.mshDatos->geometry().right());
        QVERIFY(form.mshValor->geometry().right() < form.width());
        const int height = form.mshDatos->height();
        const int valueHeight = form.mshValor->height();
        QCOMPARE(form.mshValor->y(), form.mshDatos->y());
        form.resize(1400, 800);
        QCOMPARE(form.mshDatos->width(), 980);
        QCOMPARE(form.mshValor->width(), 392 - less);
        QCOMPARE(form.mshDatos->height(), height + 200);
        QCOMPARE(form.mshValor->height(), valueHeight + 200);
        for (QWidget* w :
             std::initializer_list<QWidget*>{form.cmdNovo, form.cmdSalir, form.cmdBorrarValor, form.cmbGrupo})
            QVERIFY(form.rect().contains(w->geometry()));
    }
};

QTEST_MAIN(TestTaskTypes)
#include "test_task_types.moc"
