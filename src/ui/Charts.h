#pragma once
// What the screens with a chart share. Header only: it needs Qt Charts,
// which only those screens' libraries link.
#include <QAbstractAxis>
#include <QChart>

namespace ui {

// Empties a chart of its series and axes. A removed axis is no longer the
// chart's, so it is deleted here; removeAllSeries() deletes the series.
inline void clearChart(QChart* chart)
{
    chart->removeAllSeries();
    for (QAbstractAxis* axis : chart->axes()) {
        chart->removeAxis(axis);
        delete axis;
    }
}

} // namespace ui
