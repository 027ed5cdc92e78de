#pragma once
// What the screens of a task's rubric (an activity, the templates, the
// chart) know of the task: handed in by the rubric screen that opens them,
// which they never read back.
#include <QString>

struct RubricTask {
    qint32 id = 0;  // the task's key
    QString header; // the header the rubric screen shows
    QString type;   // the task's type as the task list shows it
};
