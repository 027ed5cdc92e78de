// Timings of the data engine on the large year: translation of the dialect,
// opening recordsets, and the statements behind the task list and the
// student sheet. Run by hand (`make bench`); the figures go in the README.
#include "LargeYear.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Connection.h"
#include "db/JetSql.h"
#include "db/Recordset.h"
#include "vb/RuntimeError.h"

#include <QElapsedTimer>
#include <QString>
#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

using Shape = bench::LargeYearShape;

// ---------------------------------------------------------------- statements

// The task list: every task with its type, evaluation, group and subject.
const QString kTaskBase = QStringLiteral(
    "SELECT tblTareasTipos.Des AS TipoTarea, tblEvaluaciones.Des AS Evaluacion, "
    "[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] AS Grupo, tblMaterias.Des AS Materia, "
    "tblTareas.Des, FORMAT(tblTareas.FecIni,'dd/MM/yyyy') AS FecIni, FORMAT(tblTareas.FecFin,'dd/MM/yyyy') AS FecFin, "
    "IIF(tblTareas.Nota = True, 'SÍ','NO') AS Nota, IIF(tblTareas.Fin= True, 'SÍ','NO') AS Fin, tblTareas.Id, "
    "tblTareas.IdTip, tblTareas.IdEva, tblTareas.IdGru, tblTareasTipos.Max "
    "FROM (((((tblTareas INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id) "
    "INNER JOIN tblEvaluaciones ON tblTareas.IdEva = tblEvaluaciones.Id) "
    "INNER JOIN tblMaterias ON tblTareas.IdMat = tblMaterias.Id) "
    "INNER JOIN tblGrupos ON tblTareas.IdGru = tblGrupos.Id) "
    "INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) "
    "INNER JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id");
const QString kTaskOrder = QStringLiteral(" ORDER BY tblTareas.FecIni DESC;");

// The task list filtered by a text typed in the search box.
QString taskTextFilter(const QString& text)
{
    return kTaskBase +
           QStringLiteral(" WHERE tblTareasTipos.Des LIKE '%%1%' OR tblEvaluaciones.Des LIKE '%%1%' OR "
                          "[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] LIKE '%%1%' OR "
                          "tblTareas.Des LIKE '%%1%'")
               .arg(text) +
           kTaskOrder;
}

// The student sheet: mean mark per task type of one student in one
// evaluation and subject.
QString pointsQuery(int student, int evaluation, int subject)
{
    return QStringLiteral(
               "SELECT tblTareasTipos.Des AS TareaTipo, Avg(tblNotas.Nota) AS Media, tblTareasTipos.Max, "
               "tblTareasTipos.Id AS IdTip, tblTareas.IdEva, tblTareas.IdMat FROM (tblNotas INNER JOIN tblTareas ON "
               "tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id "
               "Where tblTareas.Nota=True AND tblTareas.IdEva =%2 And tblTareas.IdMat =%3 And tblNotas.IdAlu =%1 "
               "GROUP BY tblTareasTipos.Des, tblTareasTipos.Max, tblTareasTipos.Id, tblTareas.IdEva, tblTareas.IdMat "
               "ORDER BY tblTareasTipos.Des;")
        .arg(student)
        .arg(evaluation)
        .arg(subject);
}

// A student in the middle of the year, in a group other than the first.
constexpr int kStudent = 437;
constexpr int kEvaluation = 2;
constexpr int kSubject = 3;

// ---------------------------------------------------------------- fixtures

const QString& year()
{
    static const QString path = bench::largeYearPath();
    return path;
}

// One session for every benchmark, as the program keeps one: its caches of
// translations and prepared statements are warm after the first iteration.
const db::ConnectionPtr& connection()
{
    static const db::ConnectionPtr cn = db::Connection::Open(year());
    return cn;
}

// Runs `body` once per iteration; a RuntimeError ends the benchmark with
// its message instead of the process.
template <typename Body>
void run(benchmark::State& state, Body body)
{
    try {
        for (auto _ : state)
            body();
    } catch (const RuntimeError& e) {
        state.SkipWithError(e.what());
    }
}

// Opens the statement, reads RecordCount, closes.
void openCount(benchmark::State& state, const QString& statement)
{
    const db::ConnectionPtr& cn = connection();
    int rows = 0;
    run(state, [&] {
        db::Recordset rs;
        rs.Open(statement, cn);
        rows = rs.RecordCount();
        benchmark::DoNotOptimize(rows);
        rs.Close();
    });
    state.counters["rows"] = rows;
}

// Every benchmark: wall-clock time, 5 repetitions, reported as their mean,
// median, deviation and variation.
void common(benchmark::internal::Benchmark* b)
{
    b->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true);
}
void micro(benchmark::internal::Benchmark* b)
{
    common(b);
    b->Unit(benchmark::kMicrosecond);
}
void milli(benchmark::internal::Benchmark* b)
{
    common(b);
    b->Unit(benchmark::kMillisecond);
}

// ---------------------------------------------------------------- benchmarks

enum class Statement { TaskTextFilter, PointsQuery };

QString statementText(Statement s)
{
    switch (s) {
    case Statement::TaskTextFilter:
        return taskTextFilter(QStringLiteral("Examen"));
    case Statement::PointsQuery:
        return pointsQuery(kStudent, kEvaluation, kSubject);
    }
    return QString();
}

// Translation without the connection's cache, as a recordset asks for it
// (with the hidden key columns): what the first opening of a statement text
// costs on top of SQLite's own preparation.
void BM_TranslateStatement(benchmark::State& state, Statement which)
{
    const QString text = statementText(which);
    db::JetSql::Options options;
    options.rowids = true;
    run(state, [&] {
        db::Translation t = db::JetSql::translate(text, options);
        benchmark::DoNotOptimize(t.sql.constData());
    });
    state.counters["chars"] = text.size();
}
BENCHMARK_CAPTURE(BM_TranslateStatement, TaskTextFilter, Statement::TaskTextFilter)->Apply(micro);
BENCHMARK_CAPTURE(BM_TranslateStatement, PointsQuery, Statement::PointsQuery)->Apply(micro);

// A chain of n operators that the dialect writes as calls ("1 / 2 / 3 ..."):
// the time grows with n, not with its square.
void BM_TranslateOperatorChain(benchmark::State& state, const char* op)
{
    const int n = int(state.range(0));
    QString text = QStringLiteral("SELECT 1");
    for (int i = 0; i < n; ++i)
        text += QLatin1Char(' ') + QLatin1String(op) + QLatin1Char(' ') + QString::number(i % 9 + 1);
    run(state, [&] {
        db::Translation t = db::JetSql::translate(text);
        benchmark::DoNotOptimize(t.sql.constData());
    });
    state.counters["chars"] = text.size();
}
BENCHMARK_CAPTURE(BM_TranslateOperatorChain, Division, "/")->Arg(100'000)->Arg(250'000)->Apply(milli);
BENCHMARK_CAPTURE(BM_TranslateOperatorChain, Mod, "Mod")->Arg(100'000)->Arg(250'000)->Apply(milli);

// About 1,000 rows through a recordset: fetching, conversion to QVariant and
// the hidden key columns of an editable recordset.
void BM_OpenRecordset1000(benchmark::State& state, int which)
{
    static const QString statements[] = {
        // 1,000 marks by their key.
        QStringLiteral("SELECT * FROM tblNotas WHERE Id BETWEEN 180001 AND 181000"),
        // 1,020 marks of 34 tasks: the column has no index, so SQLite reads the whole table.
        QStringLiteral("SELECT * FROM tblNotas WHERE IdTarea BETWEEN 6001 AND 6034"),
        // The first 1,000 tasks with their six joins.
        kTaskBase + QStringLiteral(" WHERE tblTareas.Id <= 1000"),
    };
    openCount(state, statements[which]);
}
BENCHMARK_CAPTURE(BM_OpenRecordset1000, NotasById, 0)->Apply(milli);
BENCHMARK_CAPTURE(BM_OpenRecordset1000, NotasByIdTarea, 1)->Apply(milli);
BENCHMARK_CAPTURE(BM_OpenRecordset1000, TasksJoined, 2)->Apply(milli);

// The points grid of the student sheet for one evaluation and subject.
void BM_PointsQuery(benchmark::State& state)
{
    openCount(state, pointsQuery(kStudent, kEvaluation, kSubject));
}
BENCHMARK(BM_PointsQuery)->Apply(milli);

// The next key of the marks, as every new task asks for it: reads the whole
// key column in order.
void BM_SiguienteIdNotas(benchmark::State& state)
{
    gConexion = connection();
    qint32 next = 0;
    run(state, [&] {
        next = SiguienteId(QStringLiteral("tblNotas"), QStringLiteral("Id"));
        benchmark::DoNotOptimize(next);
    });
    state.counters["next"] = next;
    gConexion.reset();
}
BENCHMARK(BM_SiguienteIdNotas)->Apply(milli);

// The task list over the 12,000 tasks: no filter, and the text filter.
void BM_TaskListFilter(benchmark::State& state, bool byText)
{
    openCount(state, byText ? taskTextFilter(QStringLiteral("Examen")) : kTaskBase + kTaskOrder);
}
BENCHMARK_CAPTURE(BM_TaskListFilter, All, false)->Apply(milli);
BENCHMARK_CAPTURE(BM_TaskListFilter, Text, true)->Apply(milli);

} // namespace

int main(int argc, char** argv)
{
    // The year is made before timing starts; the first run takes some seconds.
    QElapsedTimer timer;
    timer.start();
    try {
        year();
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "cadernia-bench: %s\n", e.what());
        return 1;
    }
    const qint64 ms = timer.elapsed();
    std::fprintf(stderr, "Large year: %s (%d students, %d tasks, %d marks), ready in %.1f s\n", qPrintable(year()),
                 Shape::Students, Shape::Tasks, Shape::Marks, ms / 1000.0);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
