#include "tools/screenshots/Screens.h"

#include "app/frmAcercaDe.h"
#include "app/frmConfiguracion.h"
#include "app/frmPrincipal.h"
#include "assessment/frmEstatisticas.h"
#include "assessment/frmEvaluar.h"
#include "assessment/frmTareas.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "marks/frmNotaFinal.h"
#include "masterdata/frmAno.h"
#include "masterdata/frmCursos.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmGrupos.h"
#include "masterdata/frmMaterias.h"
#include "masterdata/frmNiveles.h"
#include "masterdata/frmTareasTipos.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportDocument.h"
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "rubrics/frmTareasRubrica.h"
#include "setup/FirstStart.h"
#include "students/PrintStaging.h"
#include "students/frmAlumnos.h"
#include "students/frmAlumnosFicha.h"
#include "students/frmAtopar.h"
#include "students/frmComunicacionRecibir.h"
#include "ui/ListForm.h"
#include "utilities/frmColor.h"
#include "utilities/frmCopiaPen.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QTabWidget>

namespace screenshots {

namespace {

template <class F>
Screen screen(const char* name)
{
    return {QLatin1String(name), [] { return static_cast<QWidget*>(new F); }, {}};
}

// The entry form of a list: a new row, and the list's first row edited.
template <class L>
Screen nuevo(const char* name)
{
    return {QLatin1String(name), [] { return static_cast<QWidget*>(new L); },
            [](QWidget* list) { static_cast<ListForm*>(list)->cmdNovo_Click(); }};
}

template <class L>
Screen editing(const char* name)
{
    return {QLatin1String(name), [] { return static_cast<QWidget*>(new L); },
            [](QWidget* list) { static_cast<ListForm*>(list)->cmdEditar_Click(); }};
}

// A child of any screen, opened by one of its handlers.
template <class F>
Screen child(const char* name, void (F::*handler)())
{
    return {QLatin1String(name), [] { return static_cast<QWidget*>(new F); },
            [handler](QWidget* w) { (static_cast<F*>(w)->*handler)(); }};
}

// The search dialog in one of its two modes.
Screen atopar(const char* name, const char* estado)
{
    return {QLatin1String(name),
            [estado] {
                auto* f = new frmAtopar;
                f->setEstado(QLatin1String(estado));
                return static_cast<QWidget*>(f);
            },
            {}};
}

// The marking grid of the newest task, as the task list opens it.
frmEvaluar* newestTaskMarking()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareas.Id, tblTareas.IdGru, tblTareasTipos.Max FROM tblTareas INNER JOIN "
                           "tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id ORDER BY tblTareas.FecIni DESC"),
            gConexion);
    auto* f = new frmEvaluar;
    if (!rs.Eof()) {
        f->setIdTarea(rs.Value(0).toInt());
        f->setIdGrupo(rs.Value(1).toInt());
        f->setValorMaximo(qint16(rs.Value(2).toInt()));
    }
    return f;
}

// The dialog of an evaluation or final mark of the first student, first
// subject and first evaluation, with the mark it has, if any.
Screen finalMarkDialog(const char* name, const char* tipo)
{
    return {QLatin1String(name),
            [tipo] {
                const bool eval = QLatin1String(tipo) == QLatin1String("Eval");
                db::Recordset rs;
                const QString sql =
                    eval ? QStringLiteral("SELECT Nota FROM tblNotasEval WHERE IdAlu = 1 AND IdMat = 1 AND IdEval = 1")
                         : QStringLiteral("SELECT NotaO FROM tblNotasFinal WHERE IdAlu = 1 AND IdMat = 1");
                rs.Open(sql, gConexion);
                db::Recordset alumno;
                alumno.Open(QStringLiteral("SELECT Ape & ' ' & Nom AS Nome FROM tblAlumnos WHERE Id = 1"), gConexion);
                auto* f = new frmNotaFinal;
                // As the student sheet opens it: its own caption after "NOTA FINAL DE ".
                if (!alumno.Eof())
                    f->setCaption(QStringLiteral("NOTA FINAL DE ") + vb::UCase(alumno.Value(0).toString()));
                f->setTipo(QLatin1String(tipo));
                f->setIdEval(1);
                f->setIdMat(1);
                f->setIdAlu(1);
                if (!rs.Eof() && !rs.Value(0).isNull())
                    f->setNota(rs.Value(0).toFloat());
                return static_cast<QWidget*>(f);
            },
            {}};
}

// The student the sheet shows: one with marks in every evaluation and a
// recovery to make up, as late in the year as there is one, so that a red
// mark stands near the top.
qint32 sheetStudent()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT IdAlu FROM tblNotasEval WHERE Recuperar = True ORDER BY IdEval DESC, IdAlu"),
            gConexion);
    for (; !rs.Eof(); rs.MoveNext()) {
        db::Recordset evals;
        evals.Open(QStringLiteral("SELECT DISTINCT IdEval FROM tblNotasEval WHERE IdAlu = %1").arg(rs.Value(0).toInt()),
                   gConexion);
        if (evals.RecordCount() >= 3)
            return rs.Value(0).toInt();
    }
    return 1;
}

// The student sheet on one of its tabs, over the whole list of students.
Screen sheetTab(const char* name, int tab)
{
    return {QLatin1String(name),
            [tab] {
                static db::Recordset list;
                list.Close();
                list.Open(QStringLiteral("SELECT Id, Ape, Nom FROM tblAlumnos ORDER BY Ape, Nom"), gConexion);
                const qint32 id = sheetStudent();
                auto* f = new frmAlumnosFicha;
                f->setEstado(1);
                f->setId(id);
                f->setRcAlumnos(&list);
                list.Find(QStringLiteral("Id = %1").arg(id));
                f->setCaption(QStringLiteral("Modificando ") +
                              vb::UCase(list.Value(QStringLiteral("Ape")).toString() + u' ' +
                                        list.Value(QStringLiteral("Nom")).toString()));
                f->sstDatos->setCurrentIndex(tab);
                return static_cast<QWidget*>(f);
            },
            {}};
}

// The statistics of the first evaluation of the group with the most
// evaluation marks, computed as the teacher does with "Calcular".
QWidget* computedStatistics()
{
    db::Recordset grupo;
    grupo.Open(QStringLiteral("SELECT tblAlumnos.Grupo, Count(*) AS Notas FROM tblNotasEval INNER JOIN tblAlumnos ON "
                              "tblNotasEval.IdAlu = tblAlumnos.Id GROUP BY tblAlumnos.Grupo ORDER BY Count(*) DESC"),
               gConexion);
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' - ' & [tblGrupos]![Des] AS Grupo "
                           "FROM (tblGrupos INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER JOIN "
                           "tblNiveles ON tblCursos.IdNivel = tblNiveles.Id WHERE tblGrupos.Id = %1")
                .arg(grupo.Eof() ? 0 : grupo.Value(0).toInt()),
            gConexion);
    auto* f = new frmEstatisticas;
    f->show(); // activation fills the lists
    if (!rs.Eof())
        f->cmbGrupo->setCurrentIndex(f->cmbGrupo->findText(rs.Value(0).toString()));
    f->cmbNotas->setCurrentIndex(1); // "Avaliación"
    f->cmbNotas_Click();
    f->cmdCalcular_Click();
    return f;
}

// The rubric of the first task that has one, as the task list opens it.
frmTareasRubrica* demoRubric()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareas.Id, tblTareasTipos.Des AS Tipo, tblTareas.Des FROM (tblTareas INNER JOIN "
                           "tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id) INNER JOIN tblTareasRubrica ON "
                           "tblTareas.Id = tblTareasRubrica.IdTarea ORDER BY tblTareas.Id"),
            gConexion);
    auto* f = new frmTareasRubrica;
    if (!rs.Eof()) {
        f->setIdTarea(rs.Value(0).toInt());
        f->setTipoTarea(rs.Value(1).toString());
        f->lblCabecera->setText(QStringLiteral(" ") + rs.Value(1).toString() + QStringLiteral(" | ") +
                                rs.Value(2).toString());
    }
    return f;
}

// The rubric marking of the first mark with values that is neither high nor
// low, as the mark dialog opens it.
frmEvaluarNotaRubrica* demoRubricMarking()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblNotas.Id, tblNotas.IdTarea, tblTareasTipos.Max, tblTareas.Des, "
                           "[tblAlumnos]![Ape] & ' ' & [tblAlumnos]![Nom] AS Alumno FROM (((tblNotasRubrica INNER JOIN "
                           "tblNotas ON tblNotasRubrica.IdNota = tblNotas.Id) INNER JOIN tblTareas ON tblNotas.IdTarea "
                           "= tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id) INNER "
                           "JOIN tblAlumnos ON tblNotas.IdAlu = tblAlumnos.Id WHERE tblNotas.Nota / tblTareasTipos.Max "
                           "BETWEEN 0.6 AND 0.8 ORDER BY tblNotas.Id"),
            gConexion);
    auto* f = new frmEvaluarNotaRubrica;
    if (!rs.Eof()) {
        f->setIdNota(rs.Value(0).toInt());
        f->setIdTarea(rs.Value(1).toInt());
        f->setNotaMaxTarea(rs.Value(2).toInt());
        f->setDesTarea(QStringLiteral(" ") + rs.Value(3).toString());
        f->setAlumno(vb::UCase(rs.Value(4)));
    }
    return f;
}

} // namespace

QString studentRecordPage(const QString& outDir)
{
    staging::stage(standing::computeRecord(sheetStudent()));
    auto report = reports::Report::open(QStringLiteral("Impresion/FichaAlumno.rpt"));
    report->setParameter(QStringLiteral("pEmpresa"), mainWindowCaption());
    const QString pdf = outDir + QStringLiteral("/FichaAlumno.pdf");
    report->render()->writePdf(pdf);
    // Page 1 as the teacher would see it printed.
    QProcess p;
    p.start(QStringLiteral("pdftoppm"),
            {QStringLiteral("-png"), QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"),
             QStringLiteral("1"), QStringLiteral("-r"), QStringLiteral("90"), QStringLiteral("-singlefile"), pdf,
             outDir + QStringLiteral("/FichaAlumno-pdf")});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return QString();
    QFile::remove(pdf);
    return outDir + QStringLiteral("/FichaAlumno-pdf.png");
}

QList<Screen> screens()
{
    return {
        screen<frmPrincipal>("frmPrincipal"),
        screen<frmConfiguracion>("frmConfiguracion"),
        screen<frmAcercaDe>("frmAcercaDe"),

        screen<frmNiveles>("frmNiveles"),
        nuevo<frmNiveles>("frmNivelesFicha-nuevo"),
        editing<frmNiveles>("frmNivelesFicha-editar"),
        screen<frmCursos>("frmCursos"),
        nuevo<frmCursos>("frmCursosFicha-nuevo"),
        editing<frmCursos>("frmCursosFicha-editar"),
        screen<frmGrupos>("frmGrupos"),
        nuevo<frmGrupos>("frmGruposFicha-nuevo"),
        editing<frmGrupos>("frmGruposFicha-editar"),
        screen<frmEvaluaciones>("frmEvaluaciones"),
        nuevo<frmEvaluaciones>("frmEvaluacionesFicha-nuevo"),
        editing<frmEvaluaciones>("frmEvaluacionesFicha-editar"),
        screen<frmMaterias>("frmMaterias"),
        nuevo<frmMaterias>("frmMateriasFicha-nuevo"),
        editing<frmMaterias>("frmMateriasFicha-editar"),
        screen<frmTareasTipos>("frmTareasTipos"),
        child<frmTareasTipos>("frmTareasTiposFicha-nuevo", &frmTareasTipos::cmdNovo_Click),
        child<frmTareasTipos>("frmTareasTiposFicha-editar", &frmTareasTipos::cmdEditar_Click),
        child<frmTareasTipos>("frmTareasTiposValores-nuevo", &frmTareasTipos::cmdNovoValor_Click),
        child<frmTareasTipos>("frmTareasTiposValores-editar", &frmTareasTipos::cmdEditarValor_Click),
        screen<frmAno>("frmAno"),
        screen<frmCopiaPen>("frmCopiaPen"),
        screen<frmColor>("frmColor"),
        screen<frmAlumnos>("frmAlumnos"),
        child<frmAlumnos>("frmAlumnosFicha-nuevo", &frmAlumnos::cmdNovo_Click),
        child<frmAlumnos>("frmAlumnosFicha-editar", &frmAlumnos::cmdEditar_Click),
        atopar("frmAtopar-Alumnos", "Alumnos"),
        atopar("frmAtopar-AlumnoTutoria", "AlumnoTutoria"),
        screen<frmComunicacionRecibir>("frmComunicacionRecibir"),
        screen<frmTareas>("frmTareas"),
        nuevo<frmTareas>("frmTareasFicha-nuevo"),
        editing<frmTareas>("frmTareasFicha-editar"),
        child<frmTareas>("frmEvaluar", &frmTareas::cmdEvaluacion_Click),
        {QStringLiteral("frmEvaluarNota"), [] { return static_cast<QWidget*>(newestTaskMarking()); },
         [](QWidget* w) { static_cast<frmEvaluar*>(w)->cmdEvaluarNota_Click(); }},
        {QStringLiteral("frmTareasRubrica"), [] { return static_cast<QWidget*>(demoRubric()); }, {}},
        {QStringLiteral("frmTareasRubricaActividad"), [] { return static_cast<QWidget*>(demoRubric()); },
         [](QWidget* w) { static_cast<frmTareasRubrica*>(w)->cmdEditar_Click(); }},
        {QStringLiteral("frmRubricas"), [] { return static_cast<QWidget*>(demoRubric()); },
         [](QWidget* w) { static_cast<frmTareasRubrica*>(w)->cmdPlantilla_Click(); }},
        {QStringLiteral("frmGraficoRubrica"), [] { return static_cast<QWidget*>(demoRubric()); },
         [](QWidget* w) { static_cast<frmTareasRubrica*>(w)->cmdGrafico_Click(); }},
        {QStringLiteral("frmEvaluarNotaRubrica"), [] { return static_cast<QWidget*>(demoRubricMarking()); }, {}},
        {QStringLiteral("frmEvaluarNotaRubricaValor"), [] { return static_cast<QWidget*>(demoRubricMarking()); },
         [](QWidget* w) { static_cast<frmEvaluarNotaRubrica*>(w)->AbrirValor(); }},
        finalMarkDialog("frmNotaFinal-Eval", "Eval"),
        finalMarkDialog("frmNotaFinal-FinalO", "FinalO"),
        sheetTab("frmAlumnosFicha-notas", 1),
        sheetTab("frmAlumnosFicha-recuperaciones", 2),
        sheetTab("frmAlumnosFicha-grafico", 3),
        {QStringLiteral("frmEstatisticas"), computedStatistics, {}},
        {QStringLiteral("frmEstatisticas-NotasAval"), computedStatistics,
         [](QWidget* w) { static_cast<frmEstatisticas*>(w)->cmdInforme_Click(); }},
        // The launcher's dialog before an installed program's first start.
        {QStringLiteral("cadernia-start"),
         [] { return static_cast<QWidget*>(new FirstStartDialog(RutaPrograma() + QStringLiteral("/otro-usuario"))); },
         {}},
    };
}

} // namespace screenshots
