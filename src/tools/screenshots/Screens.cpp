#include "tools/screenshots/Screens.h"

#include "core/frmAcercaDe.h"
#include "core/frmConfiguracion.h"
#include "core/frmPrincipal.h"
#include "core/ui/ListForm.h"
#include "masterdata/frmCursos.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmGrupos.h"
#include "masterdata/frmMaterias.h"
#include "assessment/frmTareas.h"
#include "masterdata/frmAno.h"
#include "masterdata/frmNiveles.h"
#include "masterdata/frmTareasTipos.h"
#include "students/frmAlumnos.h"
#include "students/frmAtopar.h"
#include "students/frmComunicacionRecibir.h"
#include "utilities/frmColor.h"
#include "utilities/frmCopiaPen.h"

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
Screen editar(const char* name)
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

} // namespace

QList<Screen> screens()
{
    return {
        screen<frmPrincipal>("frmPrincipal"),
        screen<frmConfiguracion>("frmConfiguracion"),
        screen<frmAcercaDe>("frmAcercaDe"),

        screen<frmNiveles>("frmNiveles"),
        nuevo<frmNiveles>("frmNivelesFicha-nuevo"),
        editar<frmNiveles>("frmNivelesFicha-editar"),
        screen<frmCursos>("frmCursos"),
        nuevo<frmCursos>("frmCursosFicha-nuevo"),
        editar<frmCursos>("frmCursosFicha-editar"),
        screen<frmGrupos>("frmGrupos"),
        nuevo<frmGrupos>("frmGruposFicha-nuevo"),
        editar<frmGrupos>("frmGruposFicha-editar"),
        screen<frmEvaluaciones>("frmEvaluaciones"),
        nuevo<frmEvaluaciones>("frmEvaluacionesFicha-nuevo"),
        editar<frmEvaluaciones>("frmEvaluacionesFicha-editar"),
        screen<frmMaterias>("frmMaterias"),
        nuevo<frmMaterias>("frmMateriasFicha-nuevo"),
        editar<frmMaterias>("frmMateriasFicha-editar"),
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
        editar<frmTareas>("frmTareasFicha-editar"),
        child<frmTareas>("frmEvaluar", &frmTareas::cmdEvaluacion_Click),
    };
}

} // namespace screenshots
