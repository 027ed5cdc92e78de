#pragma once
// The rows of a year for a test, made one way: each helper adds one row
// with its key given automatically (the next free Id of its table) and
// returns that key, so that a suite states only what its case is about.
//
//     YearBuilder y;
//     const auto f = y.frame();                              // level, course, group, evaluation, subject
//     const qint32 ana = y.student(QStringLiteral("Abal"), QStringLiteral("Ana"), f.group);
//     const qint32 tipo = y.taskType(QStringLiteral("Exame"), 0, 10);
//     y.weight(tipo, f.evaluation, f.subject, f.group, 100);
//     const qint32 tarea = y.task(QStringLiteral("Tema 1"), tipo, f.evaluation, f.subject, f.group);
//     y.mark(tarea, ana, 7.5);
//
// Rows are written through the session's statements, as the screens write
// them (Single columns rounded, Booleans as the engine keeps them). Any
// other row goes through row().
#include "db/Connection.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QTime>
#include <QVariant>

#include <utility>

class YearBuilder {
public:
    // On the session's year unless another connection is given.
    explicit YearBuilder(db::ConnectionPtr connection = {});

    using Columns = QList<std::pair<QString, QVariant>>;
    // A row of any table; its Id is the next free one unless the columns
    // give it. Returns the Id.
    qint32 row(const QString& table, Columns columns);

    // The frame of a year.
    qint32 level(const QString& des);
    qint32 course(const QString& des, qint32 level);
    qint32 group(const QString& des, qint32 course, bool tutor = false);
    qint32 evaluation(const QString& des);
    qint32 subject(const QString& des);
    struct Frame {
        qint32 level, course, group, evaluation, subject;
    };
    // One of each: "1º ESO A", "1ª Evaluación", "Lengua" unless named.
    Frame frame(const QString& level = QStringLiteral("ESO"), const QString& course = QStringLiteral("1º"),
                const QString& group = QStringLiteral("A"), const QString& evaluation = QStringLiteral("1ª Evaluación"),
                const QString& subject = QStringLiteral("Lengua"));

    qint32 student(const QString& surnames, const QString& name, qint32 group, bool warned = false);

    // Marks.
    qint32 taskType(const QString& des, int min, int max, double val = 1);
    qint32 weight(qint32 type, qint32 evaluation, qint32 subject, qint32 group, double value);
    qint32 task(const QString& des, qint32 type, qint32 evaluation, qint32 subject, qint32 group, bool counts = true,
                const QDate& start = {});
    qint32 mark(qint32 task, qint32 student, const QVariant& nota, const QString& obs = {});
    qint32 evaluationMark(qint32 student, qint32 evaluation, qint32 subject, const QVariant& nota);
    // An evaluation mark to make up: the make-up mark, and whether it was.
    qint32 recovery(qint32 student, qint32 evaluation, qint32 subject, const QVariant& nota, const QVariant& notaRec,
                    bool recovered = false);
    qint32 finalMark(qint32 student, qint32 subject, const QVariant& ordinary, const QVariant& extraordinary = {});

    // Rubrics.
    qint32 rubricActivity(qint32 task, const QString& num, const QString& des, double weight, int max,
                          const QString& criterion = {});
    qint32 rubricValue(qint32 mark, qint32 activity, int value, int max);

    // Timetable and class diary.
    qint32 timetableDay(const QString& des, int order);
    qint32 timetableHour(const QTime& start, const QTime& end, int order);
    qint32 session(int dayOrder, int hourOrder, qint32 subject, qint32 group, const QString& des = {});
    qint32 diaryNote(const QDate& day, qint32 group, qint32 subject, const QString& des);

    // Incidents and tutoring.
    qint32 incident(qint32 student, const QDate& date, const QString& subject, const QString& facts = {});
    qint32 appointment(qint32 student, const QDateTime& when, const QString& des);
    qint32 tutoringSubject(const QString& code, const QString& des, const QString& teacher = {});
    qint32 tutoringMark(qint32 student, qint32 evaluation, qint32 subject, double nota);

private:
    db::ConnectionPtr connection() const;

    db::ConnectionPtr connection_;
};
