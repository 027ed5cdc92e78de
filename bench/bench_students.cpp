// Timings of the student list on the large year (900 students): the fill of
// frmAlumnos, as the screen runs it on opening, and a refill under a typed
// filter, as Enter in its search box runs it. The form lives offscreen and
// is never shown; each iteration is the form's own RellenaLista. Run by hand
// (`make bench`).
//
// The widgets need a QApplication: these benchmarks come first in the
// program, before any other one makes a plain QGuiApplication.
#include "LargeYear.h"
#include "ScreenBench.h"

#include "core/Modulo.h"
#include "students/frmAlumnos.h"
#include "ui/FlexGrid.h"

#include <QLineEdit>
#include <benchmark/benchmark.h>

namespace {

// The session on the large year, with the widgets' application.
bool ensureSession(benchmark::State& state)
{
    if (!bench::ensureWidgets(state, "Alumnos"))
        return false;
    if (!gConexion) {
        gConexion = db::Connection::Open(bench::largeYearPath());
        gColor = QStringLiteral(" 16445670 ");
    }
    return true;
}

void options(benchmark::internal::Benchmark* b)
{
    b->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true)->Unit(benchmark::kMillisecond);
}

// Query, grid, stripes, fonts and widths of every student.
void BM_AlumnosFill(benchmark::State& state)
{
    if (!ensureSession(state))
        return;
    frmAlumnos list;
    list.resize(1100, 640);
    for (auto _ : state)
        list.RellenaLista();
    state.counters["rows"] = list.mshDatos->Rows() - 1;
}
BENCHMARK(BM_AlumnosFill)->Apply(options);

// The same under a filter that the LIKE of every row has to test: a
// surname, without its accent, as a teacher types it.
void BM_AlumnosRefilter(benchmark::State& state)
{
    if (!ensureSession(state))
        return;
    frmAlumnos list;
    list.resize(1100, 640);
    list.txtFiltro->setText(QStringLiteral("fernandez"));
    for (auto _ : state)
        list.RellenaLista();
    state.counters["rows"] = list.mshDatos->Rows() - 1;
}
BENCHMARK(BM_AlumnosRefilter)->Apply(options);

} // namespace
