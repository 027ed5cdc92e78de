#pragma once
// The demo class book: a realistic, deterministic school year for a newcomer
// to look at, and for trying screens by hand.
#include "db/Connection.h"

#include <QDate>

namespace setup {

struct DemoSummary {
    int groups = 0;
    int students = 0;
    int subjects = 0;
    int tasks = 0;
    int marks = 0;
};

// Fills an empty year. `startYear` is the calendar year in which the school
// year begins (2026 for 2026-27): evaluations, tasks and marks are dated from
// it. `today` places what happens near the present (the diary of the last two
// weeks, recent incidents, coming appointments); it is moved into the
// teaching months of the year when it lies outside. One transaction: on
// failure nothing is left and RuntimeError is thrown.
DemoSummary fillDemoYear(const db::ConnectionPtr& cn, int startYear, const QDate& today);

} // namespace setup
