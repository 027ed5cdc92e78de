#pragma once
// The demo year is kept in memory while it is written, so that the later
// tables (evaluation marks, final marks, the tutor's marks) follow from the
// task marks, as a teacher would have typed them.
#include "db/BoundStatement.h"
#include "db/Connection.h"
#include "setup/DemoNames.h"
#include "setup/DemoRandom.h"
#include "setup/DemoYear.h"

#include <QDate>
#include <QString>
#include <QVariant>
#include <QVector>

#include <initializer_list>

namespace setup::demo {

constexpr int kGroups = 4;
constexpr int kStudentsPerGroup = 25;
constexpr int kSubjects = 6;
constexpr int kEvaluations = 3;
constexpr int kTypes = 4; // Exame, Traballo, Caderno, Proxecto: keys 1 to 4
enum TaskType { Exam = 0, Work = 1, Notebook = 2, Project = 3 };

struct TypeInfo {
    const char* des;
    int min, max;
    double step;   // marks are typed in steps of this size
    double bias;   // how much kinder than an exam, on a scale of ten
    double spread; // how much a mark strays from the student's level
    const char* remarks;
};
inline constexpr TypeInfo kTypeInfo[kTypes] = {
    {"Exame", 0, 10, 0.25, 0.0, 1.3, "Probas escritas"},
    {"Traballo", 0, 10, 0.5, 0.5, 1.0, "Traballos individuais e en grupo"},
    {"Caderno", 0, 5, 0.5, 0.6, 0.9, "Revisión do caderno de clase"},
    {"Proxecto", 0, 100, 1.0, 0.4, 1.0, "Proxectos en equipo, cualificados de 0 a 100"},
};

// One prepared INSERT and the keys it hands out.
class Table {
public:
    Table(db::Connection& cn, const char* name, const char* columns);
    int next() { return ++lastKey_; } // key of the row about to be added
    void add(std::initializer_list<QVariant> values);
    int rows() const { return rows_; }

private:
    db::BoundStatement insert_;
    int lastKey_ = 0;
    int rows_ = 0;
};

struct Group {
    int id = 0;
    QString label;     // "1º ESO A"
    int course = 0;    // number of the course within its level
    bool bach = false; // Bacharelato, not ESO
    int birthYear = 0; // of a student who has never repeated
    bool tutored = false;
    QVector<int> students; // indices into Builder::students_
};

struct Student {
    int id = 0;
    int group = 0; // index into groups_
    QString nom;
    QString ape;
    bool girl = false;
    double ability = 0;            // on a scale of ten
    double offset[kSubjects] = {}; // how much better or worse in each subject
};

struct Evaluation {
    QDate from, to; // the teaching weeks
    QDate date;     // the evaluation session, tblEvaluaciones.Fec
};

struct Task {
    int id = 0;
    int group = 0, subject = 0, eval = 0, type = 0; // indices
    bool counts = true;
};

struct Session {
    int day = 0, hour = 0; // Orden, from 1
    int subject = -1;      // index, -1 for none
    int group = -1;        // index, -1 for none
};

class Builder {
public:
    Builder(const db::ConnectionPtr& cn, int startYear, const QDate& today);
    DemoSummary run();

private:
    // DemoFrame.cpp
    void catalogues();
    void students();
    void weights();
    void timetable();
    // DemoMarks.cpp
    void tasks();
    void marks();
    void evaluationMarks();
    void finalMarks();
    double points(int student, int subject, int eval) const;
    // DemoLife.cpp
    void diary();
    void incidents();
    void tutoring();

    // Monday to Friday: `d` itself, or the next school day in `direction` (+1 or -1).
    static QDate schoolDay(QDate d, int direction);
    QString pick(Words words) { return QString::fromUtf8(words[size_t(rnd_.below(int(words.size())))]); }
    int evaluationOf(const QDate& d) const;
    // Positions in the flat tables below.
    static int weightAt(int type, int eval, int subject, int group)
    {
        return ((type * kEvaluations + eval) * kSubjects + subject) * kGroups + group;
    }
    static int sumAt(int student, int subject, int eval, int type)
    {
        return ((student * kSubjects + subject) * kEvaluations + eval) * kTypes + type;
    }
    static int markAt(int student, int subject, int eval)
    {
        return (student * kSubjects + subject) * kEvaluations + eval;
    }

    db::ConnectionPtr cn_;
    Random rnd_;
    int start_;   // calendar year the school year begins in
    QDate today_; // within the teaching months
    QVector<Group> groups_;
    QVector<Student> students_;
    Evaluation evals_[kEvaluations];
    QVector<int> weights_; // percentage per type, evaluation, subject and group
    QVector<Task> tasks_;
    // Sums of the adjusted marks (0 to 10) of the counting tasks, per student, subject, evaluation and type.
    struct Sum {
        double total = 0;
        int count = 0;
    };
    QVector<Sum> sums_;
    QVector<double> evalMarks_; // the evaluation mark that stands (after a recovery), 0 when none
    QVector<Session> sessions_;
    DemoSummary summary_;
};

// UTF-8 literal to text; null gives Null.
inline QVariant text(const char* utf8)
{
    return utf8 ? QVariant(QString::fromUtf8(utf8)) : QVariant();
}

} // namespace setup::demo
