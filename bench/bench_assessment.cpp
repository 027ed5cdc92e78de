// Timings of the assessment screens on the large year, through the screens'
// own routines on an offscreen display: opening the marking grid of a task
// of a 30-student group (students, marks, colours, the five band counts),
// refiltering the task list over its 12,000 tasks, the band counts of a
// 30-student group in its 10 subjects (50 count statements), and the rubric
// marking of a project (eight activities) for one student and then the next.
// Run by hand (`make bench`); the figures go in the README.
#include "LargeYear.h"
#include "ScreenBench.h"

#include "assessment/frmEstatisticas.h"
#include "assessment/frmEvaluar.h"
#include "assessment/frmTareas.h"
#include "core/Modulo.h"
#include "db/Connection.h"
#include "db/Recordset.h"
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "ui/FlexGrid.h"
#include "vb/RuntimeError.h"

#include <QComboBox>
#include <QLineEdit>
#include <QVector>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

using Shape = bench::LargeYearShape;

// A finished task (every mark given) of group 15, subject 4.
constexpr int kTask = ((15 - 1) * Shape::Subjects + (4 - 1)) * Shape::TasksPerGroupSubject + 6;

// The session of the screens, on the large year, for the whole run.
void openSession()
{
    static const db::ConnectionPtr cn = db::Connection::Open(bench::largeYearPath());
    gConexion = cn;
    gColor = QStringLiteral(" 12632256 ");
}

// Runs body once per iteration; a run-time error ends the benchmark with its
// text instead of the process.
template <typename Body>
void timed(benchmark::State& state, Body body)
{
    for (auto _ : state) {
        try {
            body();
        } catch (const RuntimeError& e) {
            state.SkipWithError(e.what());
            break;
        }
    }
}

void options(benchmark::internal::Benchmark* b)
{
    b->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true)->Unit(benchmark::kMillisecond);
}

// A new marking grid, opened as the task list opens it: made, given the
// task, and activated (the whole start-up). It is not shown.
void BM_AssessmentOpenMarkingGrid(benchmark::State& state)
{
    if (!bench::ensureWidgets(state, "Assessment"))
        return;
    openSession();
    db::Recordset task;
    task.Open(QStringLiteral("SELECT tblTareas.IdGru, tblTareasTipos.Max FROM tblTareas INNER JOIN tblTareasTipos ON "
                             "tblTareas.IdTip = tblTareasTipos.Id WHERE tblTareas.Id = %1")
                  .arg(kTask),
              gConexion);
    const qint32 grupo = task.Value(0).toInt();
    const qint16 maximo = qint16(task.Value(1).toInt());
    int rows = 0;
    timed(state, [&] {
        frmEvaluar f;
        f.setIdTarea(kTask);
        f.setIdGrupo(grupo);
        f.setValorMaximo(maximo);
        f.activate();
        rows = f.mshDatos->Rows();
        benchmark::DoNotOptimize(rows);
    });
    state.counters["rows"] = rows;
}
BENCHMARK(BM_AssessmentOpenMarkingGrid)->Apply(options);

// The task list, started once, then refiltered by "&Filtrar": every task,
// or those of one group.
void BM_AssessmentRefilterTaskList(benchmark::State& state, bool byGroup)
{
    if (!bench::ensureWidgets(state, "Assessment"))
        return;
    openSession();
    frmTareas f;
    f.activate();
    if (byGroup)
        f.cmbGrupo->setCurrentIndex(15);
    int rows = 0;
    timed(state, [&] {
        f.cmdFiltrar_Click();
        rows = f.mshDatos->Rows() - 1;
        benchmark::DoNotOptimize(rows);
    });
    state.counters["rows"] = rows;
}
BENCHMARK_CAPTURE(BM_AssessmentRefilterTaskList, All, false)->Apply(options);
BENCHMARK_CAPTURE(BM_AssessmentRefilterTaskList, Group, true)->Apply(options);

// "Calcular" on the statistics of group 15 in one kind of mark: the subjects
// found and their five counts each, the table and the chart.
void BM_AssessmentStatisticsCalcular(benchmark::State& state, int notas)
{
    if (!bench::ensureWidgets(state, "Assessment"))
        return;
    openSession();
    frmEstatisticas f;
    f.activate();
    f.cmbGrupo->setCurrentIndex(14);
    f.cmbNotas->setCurrentIndex(notas);
    f.cmbNotas_Click();
    int rows = 0;
    timed(state, [&] {
        f.cmdCalcular_Click();
        rows = f.mshDatos->Rows() - 1;
        benchmark::DoNotOptimize(rows);
    });
    state.counters["subjects"] = rows;
}
BENCHMARK_CAPTURE(BM_AssessmentStatisticsCalcular, Finais, 0)->Apply(options);
BENCHMARK_CAPTURE(BM_AssessmentStatisticsCalcular, Avaliacion, 1)->Apply(options);
BENCHMARK_CAPTURE(BM_AssessmentStatisticsCalcular, Recuperacion, 2)->Apply(options);

// The marks of a finished project of group 15, whose rubric has eight
// activities, in the order of the group's students.
struct ProjectMarks {
    qint32 task = 0;
    qint32 max = 0;
    QVector<qint32> marks;
};

ProjectMarks projectMarks()
{
    ProjectMarks p;
    db::Recordset rs;
    rs.Open(
        QStringLiteral("SELECT tblTareas.Id, tblTareasTipos.Max FROM tblTareas INNER JOIN tblTareasTipos ON "
                       "tblTareas.IdTip = tblTareasTipos.Id WHERE tblTareas.IdGru = 15 AND tblTareas.IdTip = %1 AND "
                       "tblTareas.Fin = True ORDER BY tblTareas.Id")
            .arg(Shape::ProjectType),
        gConexion);
    p.task = rs.Value(0).toInt();
    p.max = rs.Value(1).toInt();
    db::Recordset marks;
    marks.Open(QStringLiteral("SELECT Id FROM tblNotas WHERE IdTarea = %1 ORDER BY IdAlu").arg(p.task), gConexion);
    for (; !marks.Eof(); marks.MoveNext())
        p.marks << marks.Value(0).toInt();
    return p;
}

// The rubric marking of one student's mark, as the mark dialog opens it:
// made, handed the mark and activated (activities, one value each, points,
// total). It is not shown.
void openRubric(frmEvaluarNotaRubrica& f, const ProjectMarks& p, qint32 mark, QLineEdit* field)
{
    f.setNotaMaxTarea(p.max);
    f.setIdTarea(p.task);
    f.setIdNota(mark);
    f.setDesTarea(QStringLiteral(" Proyecto"));
    f.setAlumno(QStringLiteral("ALUMNO"));
    f.setCampoNota(field);
    f.activate();
}

void BM_RubricOpenMarking(benchmark::State& state)
{
    if (!bench::ensureWidgets(state, "Rubric"))
        return;
    openSession();
    const ProjectMarks p = projectMarks();
    QLineEdit field;
    int rows = 0;
    timed(state, [&] {
        frmEvaluarNotaRubrica f;
        openRubric(f, p, p.marks.value(0), &field);
        rows = f.mshDatos->Rows() - 1;
        benchmark::DoNotOptimize(rows);
    });
    state.counters["activities"] = rows;
}
BENCHMARK(BM_RubricOpenMarking)->Apply(options);

// Moving on to the next student: the rubric of one student closes (its
// total taken over into a mark field holding 0, so no question) and the
// next student's opens.
void BM_RubricNextStudent(benchmark::State& state)
{
    if (!bench::ensureWidgets(state, "Rubric"))
        return;
    openSession();
    const ProjectMarks p = projectMarks();
    QLineEdit field;
    int student = 0;
    auto current = std::make_unique<frmEvaluarNotaRubrica>();
    openRubric(*current, p, p.marks.value(0), &field);
    timed(state, [&] {
        field.setText(QStringLiteral("0"));
        static_cast<QDialog*>(current.get())->done(QDialog::Rejected);
        student = (student + 1) % int(p.marks.size());
        current = std::make_unique<frmEvaluarNotaRubrica>();
        openRubric(*current, p, p.marks.value(student), &field);
        benchmark::DoNotOptimize(field.text());
    });
    state.counters["students"] = double(p.marks.size());
}
BENCHMARK(BM_RubricNextStudent)->Apply(options);

} // namespace
