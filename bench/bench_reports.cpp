// Timings of the report engine on the large year: the class list of all its
// students (Alumnos.rpt, 900 rows) read, laid out and written as PDF, as the
// PDF entry of a viewer does it. Run by hand (`make bench`).
#include "LargeYear.h"

#include "reports/engine/Report.h"
#include "reports/engine/ReportFiles.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// The layout needs fonts, so a GUI application without a screen.
void ensureGuiApplication()
{
    static int argc = 1;
    static char name[] = "cadernia-bench";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(argc, argv);
}

std::unique_ptr<reports::Report> studentList()
{
    auto report = reports::Report::fromText(reports::shippedReportText(QStringLiteral("Alumnos.rpt")),
                                            QStringLiteral("Alumnos.rpt"));
    report->setParameter(QStringLiteral("pEmpresa"), QStringLiteral("CADERNIA ## Curso bench"));
    report->setLocation(bench::largeYearPath());
    return report;
}

void options(benchmark::internal::Benchmark* b)
{
    b->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true)->Unit(benchmark::kMillisecond);
}

// Query, template and layout: what the preview waits for.
void BM_ReportAlumnosLayout(benchmark::State& state)
{
    ensureGuiApplication();
    const auto report = studentList();
    int pages = 0;
    for (auto _ : state) {
        const auto document = report->render();
        pages = document->pageCount();
        benchmark::DoNotOptimize(pages);
    }
    state.counters["pages"] = pages;
}
BENCHMARK(BM_ReportAlumnosLayout)->Apply(options);

// The same and the PDF file.
void BM_ReportAlumnosToPdf(benchmark::State& state)
{
    ensureGuiApplication();
    const auto report = studentList();
    QTemporaryDir dir;
    const QString file = dir.path() + QStringLiteral("/Alumnos.pdf");
    int pages = 0;
    for (auto _ : state) {
        const auto document = report->render();
        document->writePdf(file);
        pages = document->pageCount();
    }
    state.counters["pages"] = pages;
}
BENCHMARK(BM_ReportAlumnosToPdf)->Apply(options);

} // namespace
