#pragma once
// A large school year for the benchmarks: 30 groups of 30 students, 10
// subjects, 40 tasks per group and subject (12,000 tasks) and a mark for
// every student in every task of the group (360,000 marks), with weights,
// evaluation marks, final marks and tutoring marks, and a rubric of eight
// activities on every project (1,500 tasks) with a value per activity in
// each of their given marks. The content depends only on a fixed seed, so
// every run measures the same year.
#include <QString>

namespace bench {

// Shape of the generated year, for checks and for choosing keys in benchmarks.
struct LargeYearShape {
    static constexpr int Levels = 2;
    static constexpr int Courses = 6;
    static constexpr int GroupsPerCourse = 5;
    static constexpr int Groups = Courses * GroupsPerCourse; // 30
    static constexpr int StudentsPerGroup = 30;
    static constexpr int Students = Groups * StudentsPerGroup; // 900
    static constexpr int Subjects = 10;
    static constexpr int Evaluations = 3;
    static constexpr int TaskTypes = 4;
    static constexpr int TasksPerGroupSubject = 40;
    static constexpr int Tasks = Groups * Subjects * TasksPerGroupSubject; // 12,000
    static constexpr int Marks = Tasks * StudentsPerGroup;                 // 360,000
    static constexpr int TutoredGroup = 11;                                // the only group with Tit = 1
    static constexpr int TutoringSubjects = 6;
    static constexpr int ProjectType = 4;      // its tasks carry a rubric
    static constexpr int RubricActivities = 8; // per project
};

// Creates the year at `path` (the file must not exist) and fills it in one
// transaction. Throws RuntimeError when the file exists or SQLite fails.
void createLargeYear(const QString& path);

// The large year cached under the build tree, created on first use. A
// generation that is interrupted leaves no file under the final name.
QString largeYearPath();

} // namespace bench
