#include "tools/screenshots/Screens.h"

#include "app/frmAcercaDe.h"
#include "app/frmConfiguracion.h"
#include "app/frmPrincipal.h"
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
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "rubrics/frmTareasRubrica.h"
#include "students/frmAlumnos.h"
#include "students/frmAtopar.h"
#include "students/frmComunicacionRecibir.h"
#include "ui/ListForm.h"
#include "utilities/frmColor.h"
#include "utilities/frmCopiaPen.h"
#include "vb/Vb.h"

#include <QLabel>

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
    };
}

} // namespace screenshots
