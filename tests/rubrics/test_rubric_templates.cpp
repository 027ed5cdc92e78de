// The templates of a rubric: the tasks of this year or of an earlier one
// whose type has the description of the rubric's task type, and the copy of
// their activities. The earlier year is a real second year made by the
// installer in the base folder of a temporary installation.
#include "core/Modulo.h"
#include "rubrics/frmRubricas.h"
#include "rubrics/frmTareasRubrica.h"
#include "setup/Setup.h"
#include "support/GridText.h"
#include "support/OpenInstall.h"
#include "support/RuntimeErrors.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/FlexGrid.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

using yearq::count;

namespace {

const QString kAnterior = QStringLiteral("2024-25");

// The frame of the earlier year and its tasks. Its keys differ from this
// year's: "Proyecto" is type 7 there. "Exame" is what this year calls
// "Examen", renamed since.
const char* const kAnoAnterior[] = {
    "INSERT INTO tblNiveles (Id, Des) VALUES (1, 'Primaria')",
    "INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (1, '4º', 1)",
    "INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (1, 'B', 1, False)",
    "INSERT INTO tblEvaluaciones (Id, Des) VALUES (1, '3ª Evaluación')",
    "INSERT INTO tblMaterias (Id, Des) VALUES (1, 'Ciencias')",
    "INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES (5, 'Exame', 0, 10, 1)",
    "INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES (7, 'Proyecto', 0, 10, 1)",
    "INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) VALUES (20, 'Horta de outono', 7, 1, 1, 1, "
    "True, True)",
    "INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) VALUES (21, 'Maqueta', 7, 1, 1, 1, True, "
    "True)",
    "INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) VALUES (22, 'Exame de plantas', 5, 1, 1, "
    "1, True, True)",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max, Cri) VALUES (31, 20, '1', 'Sementar', 30, 4, "
    "'Prepara a terra')",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max, Cri) VALUES (32, 20, '2', 'Regar', 30, 4, "
    "'Cada semana')",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max, Cri) VALUES (33, 20, '3', 'Colleita', 40, 10, "
    "'Conta o recollido')",
    "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max, Cri) VALUES (34, 22, '1', 'Partes da planta', "
    "100, 10, 'Nomea as partes')",
};

} // namespace

class TestRubricTemplates : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenInstall> install_;
    ScreenHarness harness_;

    QString anterior() const { return install_->base() + u'/' + kAnterior + QStringLiteral("/Xestion.mdb"); }

    // The rubric screen of a task of this year, unshown, as the templates read it.
    static void rubrica(frmTareasRubrica& r, qint32 tarea, const QString& tipo)
    {
        r.setIdTarea(tarea);
        r.setTipoTarea(tipo);
        r.lblCabecera->setText(QStringLiteral(" ") + tipo + QStringLiteral(" | Evaluación: 1ª Evaluación"));
    }

    static void curso(frmRubricas& f, const QString& ano)
    {
        f.txtCurso->setText(ano);
        QTest::keyClick(f.txtCurso, Qt::Key_Return);
    }

    static void elixir(frmRubricas& f, int fila)
    {
        f.mshDatos->setRow(fila);
        QTest::keyClick(f.mshDatos, Qt::Key_Return);
    }

private slots:
    void init()
    {
        install_ = std::make_unique<OpenInstall>();
        harness_.start();
        gColor = QStringLiteral(" 12632256 ");
        // The earlier year, made by the installer in the same base folder.
        setup::SetupOptions options;
        options.baseFolder = install_->base();
        options.programDir = install_->root() + QStringLiteral("/instalador");
        options.yearName = kAnterior;
        QString error;
        QVERIFY2(setup::setupBase(options, &error), qPrintable(error));
        const db::ConnectionPtr cn = db::Connection::Open(anterior());
        for (const char* sql : kAnoAnterior)
            cn->Execute(QString::fromUtf8(sql));
    }

    void cleanup()
    {
        harness_.finish();
        install_.reset();
    }

    void thisYearListsTheTasksOfTheTypeThatHaveActivities()
    {
        frmTareasRubrica r;
        rubrica(r, 3, QStringLiteral("Proyecto"));
        frmRubricas f(r.Tarea(), &r);
        f.show();
        QCOMPARE(f.Caption(), QStringLiteral("RÚBRICAS"));
        QCOMPARE(f.txtCurso->text(), QStringLiteral("2025-26"));
        QCOMPARE(f.lblInfo->text(), QStringLiteral("RÚBRICAS DE Proyecto"));
        QCOMPARE(f.IdTip(), 3);
        QVERIFY(f.ConexionLista() == gConexion);
        // The task of the rubric itself is listed, as it has activities.
        QCOMPARE(f.mshDatos->Rows(), 2);
        QCOMPARE(gridtext::row(*f.mshDatos, 0),
                 (QStringList{QString(), QString(), QStringLiteral("Tarea"), QStringLiteral("Materia"),
                              QStringLiteral("Grupo"), QStringLiteral("Avaliación")}));
        QCOMPARE(gridtext::row(*f.mshDatos, 1),
                 (QStringList{QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("Proyecto huerto"),
                              QStringLiteral("Lengua"), QStringLiteral("5º Primaria - A"),
                              QStringLiteral("1ª Evaluación")}));
        QCOMPARE(f.mshDatos->ColWidth(0), 0);
    }

    void anEarlierYearIsReadByTheTypesDescriptionThroughAConnectionThatOnlyReads()
    {
        frmTareasRubrica r;
        rubrica(r, 3, QStringLiteral("Proyecto"));
        frmRubricas f(r.Tarea(), &r);
        f.show();
        curso(f, kAnterior);
        // Type 7 there, and only the task that has activities.
        QCOMPARE(f.IdTip(), 7);
        QCOMPARE(f.lblInfo->text(), QStringLiteral("RÚBRICAS DE Proyecto"));
        QCOMPARE(gridtext::row(*f.mshDatos, 1),
                 (QStringList{QStringLiteral("20"), QStringLiteral("1"), QStringLiteral("Horta de outono"),
                              QStringLiteral("Ciencias"), QStringLiteral("4º Primaria - B"),
                              QStringLiteral("3ª Evaluación")}));
        QCOMPARE(f.mshDatos->Rows(), 2);
        QVERIFY(f.ConexionLista() != gConexion);
        QCOMPARE(f.ConexionLista()->Path(), anterior());
        QVERIFY(errorNumber([&] { f.ConexionLista()->Execute(QStringLiteral("DELETE * FROM tblTareasRubrica")); }) !=
                0);
        QCOMPARE(count(QStringLiteral("tblTareasRubrica"), db::Connection::Open(anterior())), 4);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void aTemplateFromAnEarlierYearWhoseTypeWasRenamedListsNothing()
    {
        frmTareasRubrica r;
        rubrica(r, 1, QStringLiteral("Examen")); // "Exame" in the earlier year
        frmRubricas f(r.Tarea(), &r);
        f.show();
        QCOMPARE(f.mshDatos->Rows(), 2); // Examen tema 1 in this year
        curso(f, kAnterior);
        QCOMPARE(f.IdTip(), 0);
        QCOMPARE(f.mshDatos->Rows(), 1);
        QCOMPARE(f.lblInfo->text(), QStringLiteral("RÚBRICAS DE Examen"));
        // Enter on the empty list asks nothing.
        QTest::keyClick(f.mshDatos, Qt::Key_Return);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void copyingATemplateOfThreeOntoATaskWithTwoActivitiesLeavesFive()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblTareasRubrica WHERE Id = 4"));
        frmTareasRubrica r;
        rubrica(r, 3, QStringLiteral("Proyecto"));
        frmRubricas f(r.Tarea(), &r);
        f.show();
        curso(f, kAnterior);
        MsgBox::script({vbYes, vbOK});
        elixir(f, 1);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("Crear nova rúbrica?"));
        QCOMPARE(MsgBox::shown()[0].flags, vbYesNo + vbInformation);
        QCOMPARE(MsgBox::shown()[1].text, QStringLiteral("Proceso finalizado"));
        QVERIFY(f.isVisible());
        QCOMPARE(count(QStringLiteral("tblTareasRubrica WHERE IdTarea = 3")), 5);
        QCOMPARE(yearq::column(QStringLiteral("SELECT Id & ' ' & Num & ' ' & Des & ' ' & Por & ' ' & Max & ' "
                                              "' & Cri FROM tblTareasRubrica WHERE IdTarea = 3 AND Id > 3 ORDER BY "
                                              "Id")),
                 (QStringList{QStringLiteral("4 1 Sementar 30 4 Prepara a terra"),
                              QStringLiteral("5 2 Regar 30 4 Cada semana"),
                              QStringLiteral("6 3 Colleita 40 10 Conta o recollido")}));
        // A second copy doubles them.
        MsgBox::script({vbYes, vbOK});
        elixir(f, 1);
        QCOMPARE(count(QStringLiteral("tblTareasRubrica WHERE IdTarea = 3")), 8);
    }

    void aTemplateOfThisYearCopiesOntoAnotherTask()
    {
        frmTareasRubrica r;
        rubrica(r, 6, QStringLiteral("Examen")); // Examen tema 3, no activities
        frmRubricas f(r.Tarea(), &r);
        f.show();
        MsgBox::script({vbYes, vbOK});
        elixir(f, 1); // Examen tema 1
        QCOMPARE(yearq::column(QStringLiteral("SELECT Num & ' ' & Des FROM tblTareasRubrica WHERE IdTarea = 6")),
                 QStringList{QStringLiteral("1 Comprensión")});
        QCOMPARE(count(QStringLiteral("tblTareasRubrica WHERE IdTarea = 1")), 1);
    }

    void answeringNoCopiesNothing()
    {
        frmTareasRubrica r;
        rubrica(r, 3, QStringLiteral("Proyecto"));
        frmRubricas f(r.Tarea(), &r);
        f.show();
        MsgBox::setNextAnswer(vbNo);
        emit f.mshDatos->DblClick();
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(count(QStringLiteral("tblTareasRubrica")), 4);
    }

    void aYearWhoseFileIsMissingIsRefused()
    {
        frmTareasRubrica r;
        rubrica(r, 3, QStringLiteral("Proyecto"));
        frmRubricas f(r.Tarea(), &r);
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.txtCurso->setFocus();
        MsgBox::setNextAnswer(vbOK);
        curso(f, QStringLiteral("2019-20"));
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Esta curso non existe"));
        QCOMPARE(QApplication::focusWidget(), f.txtCurso);
        QCOMPARE(f.mshDatos->TextMatrix(1, 2), QStringLiteral("Proyecto huerto"));
        QVERIFY(f.ConexionLista() == gConexion);
    }
};

QTEST_MAIN(TestRubricTemplates)
#include "test_rubric_templates.moc"
