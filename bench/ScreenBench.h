#pragma once
// What the benchmarks of screens share: the QApplication their widgets need,
// on the offscreen display unless another is asked for. The report
// benchmarks make a bare GUI application when they run first; screens then
// cannot run in the same process and the benchmark says so.
#include <QApplication>
#include <QString>
#include <benchmark/benchmark.h>

namespace bench {

// True when widgets can be made; otherwise the benchmark is skipped with a
// hint to run it alone under `filter` (--benchmark_filter=<filter>).
inline bool ensureWidgets(benchmark::State& state, const char* filter)
{
    static int argc = 1;
    static char name[] = "cadernia-bench";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        new QApplication(argc, argv);
    }
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        const QString hint = QStringLiteral("needs a QApplication: run with --benchmark_filter=%1").arg(filter);
        state.SkipWithError(hint.toUtf8().constData());
        return false;
    }
    return true;
}

} // namespace bench
