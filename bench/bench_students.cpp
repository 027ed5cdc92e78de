// Timings of the student screens on the large year (900 students): the fill
// of frmAlumnos, as the screen runs it on opening, and a refill under a typed
// filter, as Enter in its search box runs it (the form lives offscreen and is
// never shown; each iteration is the form's own RellenaLista); the student
// sheet opened, moved to the next student, and its record staged. Run by
// hand (`make bench`).
//
// The widgets need a QApplication: these benchmarks come first in the
// program, before any other one makes a plain QGuiApplication.
#include "LargeYear.h"
#include "ScreenBench.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "students/frmAlumnos.h"
#include "students/frmAlumnosFicha.h"
#include "ui/FlexGrid.h"
#include "ui/RuntimeErrorBox.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QTemporaryDir>
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

namespace {

// The large year without its rows of a mark not given (Null): every student
// there has a task type whose marks are all Null, which the sheet cannot show
// (a run-time error, as the sheet has always done), so the sheet is timed on
// a copy where those tasks are simply not marked. Made once, beside it.
QString sheetYearPath()
{
    const QString large = bench::largeYearPath();
    const QString folder = QFileInfo(large).absolutePath() + QStringLiteral("-ficha");
    const QString path = folder + QStringLiteral("/Xestion.mdb");
    if (QFileInfo::exists(path))
        return path;
    QDir().mkpath(folder);
    const QString partial = path + QStringLiteral(".%1.tmp").arg(QCoreApplication::applicationPid());
    QFile::remove(partial);
    QFile::copy(large, partial);
    {
        auto cn = db::Connection::Open(partial);
        cn->ExecuteNative(QStringLiteral("DELETE FROM tblNotas WHERE Nota IS NULL"));
        cn->Close();
    }
    QFile::rename(partial, path);
    return path;
}

// The session on that copy while a sheet benchmark runs.
class SheetYear {
public:
    SheetYear() : saved_(gConexion)
    {
        gConexion = db::Connection::Open(sheetYearPath());
        // A run-time error would wait on its box for ever: stop instead.
        ui::setRuntimeErrorHandler([](const RuntimeError& e) { qFatal("%s", qPrintable(e.Description())); });
    }
    ~SheetYear()
    {
        ui::setRuntimeErrorHandler({});
        list_.Close();
        gConexion = saved_;
    }
    // The list the sheet walks: every student by key.
    db::Recordset& list()
    {
        if (!list_.IsOpen())
            list_.Open(QStringLiteral("SELECT Id FROM tblAlumnos ORDER BY Id"), gConexion);
        list_.MoveFirst();
        return list_;
    }

private:
    db::ConnectionPtr saved_;
    db::Recordset list_;
};

// Opening the sheet of a student with marks in 3 evaluations of 10 subjects
// (40 tasks each): the points of 30 rows, the types and tasks of the first,
// the recoveries, the final means and the chart.
void BM_FichaOpen(benchmark::State& state)
{
    if (!ensureSession(state))
        return;
    SheetYear year;
    db::Recordset& list = year.list();
    int rows = 0;
    for (auto _ : state) {
        frmAlumnosFicha sheet;
        sheet.setEstado(1);
        sheet.setId(1);
        sheet.setRcAlumnos(&list);
        sheet.show();
        rows = sheet.mshEval->Rows() - 1;
        sheet.hide();
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_FichaOpen)->Apply(options);

// "&Siguiente" on an open sheet: the next student loaded and all its grids
// filled anew; at the end of the list it starts again.
void BM_FichaNext(benchmark::State& state)
{
    if (!ensureSession(state))
        return;
    SheetYear year;
    db::Recordset& list = year.list();
    frmAlumnosFicha sheet;
    sheet.setEstado(1);
    sheet.setId(1);
    sheet.setRcAlumnos(&list);
    sheet.show();
    for (auto _ : state) {
        sheet.cmdSeguinte_Click();
        if (list.AbsolutePosition() == list.RecordCount()) {
            state.PauseTiming();
            list.MoveFirst();
            state.ResumeTiming();
        }
    }
    state.counters["rows"] = sheet.mshEval->Rows() - 1;
}
BENCHMARK(BM_FichaNext)->Apply(options);

// "&Imprimir" up to the report: the walk of the grids and the staging of one
// student (30 evaluation rows, their types and tasks) in one transaction.
void BM_FichaStaging(benchmark::State& state)
{
    if (!ensureSession(state))
        return;
    static QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("Impresion"));
    const QString path = dir.path() + QStringLiteral("/Impresion/Impresion.mdb");
    if (!QFile::exists(path))
        db::Schema::CreatePrint(path);
    const QString previous = QDir::currentPath();
    QDir::setCurrent(dir.path());
    SheetYear year;
    frmAlumnosFicha sheet;
    sheet.setEstado(1);
    sheet.setId(1);
    sheet.setRcAlumnos(&year.list());
    sheet.show();
    for (auto _ : state)
        sheet.StageRecord();
    QDir::setCurrent(previous);
}
BENCHMARK(BM_FichaStaging)->Apply(options);

} // namespace
