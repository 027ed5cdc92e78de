// The marks of the demo year: tasks, task marks with a few rubrics, and the
// evaluation and final marks that follow from them.
#include "setup/DemoBuilder.h"

#include <algorithm>
#include <cmath>

namespace setup::demo {
namespace {

// A mark typed on a rubric: which task gets it and how its activities weigh.
struct RubricUse {
    int group, subject, eval, type;
    int rubric;     // index into rubrics()
    int percent[4]; // Por of each activity, 0 past the last
    int max;        // Max of every activity
};
const RubricUse kRubricUses[] = {
    {0, 0, 0, Project, 0, {40, 30, 30, 0}, 4},
    {0, 1, 1, Project, 1, {25, 25, 25, 25}, 10},
    {1, 5, 0, Work, 2, {30, 30, 20, 20}, 4},
    {2, 4, 1, Work, 3, {50, 25, 25, 0}, 10},
};

double round3(double x)
{
    return std::round(x * 1000.0) / 1000.0;
}

struct Plan {
    int type;
    QString des;
    QDate ini, fin;
    bool counts;
};

} // namespace

void Builder::tasks()
{
    Table table(*cn_, "tblTareas", "Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin");
    for (int g = 0; g < kGroups; ++g) {
        for (int m = 0; m < kSubjects; ++m) {
            const Subject& subject = subjects()[size_t(m)];
            for (int e = 0; e < kEvaluations; ++e) {
                const Evaluation& ev = evals_[e];
                const int span = int(ev.from.daysTo(ev.to));
                auto inside = [&](QDate d) {
                    d = std::clamp(d, ev.from, ev.to);
                    d = schoolDay(d, 1);
                    return d > ev.to ? schoolDay(ev.to, -1) : d;
                };
                auto at = [&](double fraction, int jitter) {
                    const int shift = rnd_.between(-jitter, jitter);
                    return inside(ev.from.addDays(int(span * fraction) + shift));
                };
                auto topic = [&](int k) { return QString::fromUtf8(subject.topics[e * 3 + k]); };

                QVector<Plan> plans;
                if (e == 0) {
                    // The initial test tells the teacher where the group stands; it does not count.
                    const QDate day = at(0.02, 0);
                    plans.append({Exam, QStringLiteral("Proba inicial"), day, day, false});
                    const QDate exam = at(0.55, 3);
                    plans.append({Exam, QStringLiteral("Exame: ") + topic(0) + QStringLiteral(", ") + topic(1), exam,
                                  exam, true});
                } else {
                    const QDate first = at(0.4, 3);
                    plans.append({Exam, QStringLiteral("Exame: ") + topic(0), first, first, true});
                    const QDate second = at(0.88, 2);
                    plans.append({Exam, QStringLiteral("Exame: ") + topic(1) + QStringLiteral(", ") + topic(2), second,
                                  second, true});
                }
                const QDate work = at(0.2, 3);
                plans.append({Work, QStringLiteral("Traballo: ") + topic(2), work, inside(work.addDays(10)), true});
                plans.append({Notebook, QStringLiteral("Caderno da %1ª avaliación").arg(e + 1), ev.from,
                              inside(ev.to.addDays(-5)), true});
                const QDate project = at(0.45, 4);
                plans.append({Project, QStringLiteral("Proxecto: ") + QString::fromUtf8(subject.projects[e]), project,
                              inside(project.addDays(21)), true});
                std::stable_sort(plans.begin(), plans.end(),
                                 [](const Plan& a, const Plan& b) { return a.ini < b.ini; });

                for (const Plan& p : plans) {
                    Task task;
                    task.id = table.next();
                    task.group = g;
                    task.subject = m;
                    task.eval = e;
                    task.type = p.type;
                    task.counts = p.counts;
                    // The first term is closed, and the exams of the second are marked.
                    const bool finished = e == 0 || (e == 1 && p.type == Exam);
                    const QVariant remarks = rnd_.chance(0.3) ? QVariant(pick(taskRemarks(p.type))) : QVariant();
                    table.add({task.id, p.des.left(50), p.type + 1, e + 1, m + 1, groups_[g].id, p.ini, p.fin, remarks,
                               p.counts, finished});
                    tasks_ << task;
                }
            }
        }
    }
    summary_.tasks = tasks_.size();
}

void Builder::marks()
{
    db::Connection& cn = *cn_;
    Table marks(cn, "tblNotas", "Id, IdTarea, IdAlu, Nota, Obs");
    Table activities(cn, "tblTareasRubrica", "Id, IdTarea, Num, Des, Cri, Por, Max");
    Table values(cn, "tblNotasRubrica", "Id, IdNota, IdActividad, Valor, Max");

    for (const Task& task : tasks_) {
        const TypeInfo& type = kTypeInfo[task.type];
        const RubricUse* use = std::find_if(std::begin(kRubricUses), std::end(kRubricUses), [&](const RubricUse& u) {
            return u.group == task.group && u.subject == task.subject && u.eval == task.eval && u.type == task.type;
        });
        if (use == std::end(kRubricUses))
            use = nullptr;
        QVector<int> activityIds;
        if (use) {
            const Rubric& r = rubrics()[size_t(use->rubric)];
            for (int k = 0; k < 4 && use->percent[k]; ++k) {
                activityIds << activities.next();
                activities.add({activityIds.last(), task.id, text(r.num[k]), text(r.des[k]), text(r.cri[k]),
                                float(use->percent[k]), use->max});
            }
        }

        const double difficulty = rnd_.normal(0.0, 0.5);
        for (const int s : groups_[task.group].students) {
            if (rnd_.chance(0.03))
                continue; // not marked yet: the student was away
            const Student& st = students_[s];
            const double level = std::clamp(st.ability + st.offset[task.subject] + difficulty + type.bias +
                                                rnd_.normal(0.0, type.spread),
                                            0.0, 10.0);
            const bool absent = rnd_.chance(0.01);
            const int markId = marks.next();
            double value = 0;
            QVariant remarks;
            QVector<int> given;
            if (absent) {
                remarks = task.type == Exam ? QStringLiteral("Non presentado") : QStringLiteral("Non entregado");
            } else if (use) {
                // The mark is the sum of the activities' points, as the rubric screen adds them.
                for (int k = 0; k < activityIds.size(); ++k) {
                    const double share = std::clamp(level / 10.0 + rnd_.normal(0.0, 0.12), 0.0, 1.0);
                    given << int(std::lround(share * use->max));
                    value += round3(double(given[k]) / use->max * (use->percent[k] / 100.0) * type.max);
                }
                value = round3(value);
            } else {
                value = std::round(level * type.max / 10.0 / type.step) * type.step;
                value = std::clamp(value, double(type.min), double(type.max));
            }
            if (!absent && rnd_.chance(0.07))
                remarks = pick(level >= 8.5 ? markRemarksHigh() : level < 5 ? markRemarksLow() : markRemarksMiddle());
            marks.add({markId, task.id, st.id, float(value), remarks});
            for (int k = 0; k < given.size(); ++k)
                values.add({values.next(), markId, activityIds[k], given[k], use->max});
            if (task.counts) {
                Sum& total = sums_[sumAt(s, task.subject, task.eval, task.type)];
                total.total += value / type.max * 10.0;
                ++total.count;
            }
        }
    }
    summary_.marks = marks.rows();
}

double Builder::points(int student, int subject, int eval) const
{
    const int group = students_[student].group;
    double p = 0;
    for (int t = 0; t < kTypes; ++t) {
        const Sum& s = sums_[sumAt(student, subject, eval, t)];
        if (s.count)
            p += s.total / s.count * weights_[weightAt(t, eval, subject, group)] / 100.0;
    }
    return p;
}

void Builder::evaluationMarks()
{
    // The tutored group has had two evaluation sessions; 2º Bacharelato, which
    // ends in May, all three and its recoveries.
    struct Marked {
        int group;
        int evals;
    };
    const Marked marked[] = {{0, 2}, {3, 3}};
    const char* const recoveryExam[] = {"Recupera no exame de xaneiro", "Recupera no exame de abril"};
    Table table(*cn_, "tblNotasEval", "Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec");
    for (const Marked& mk : marked) {
        const bool allHeld = mk.evals == kEvaluations;
        for (int e = 0; e < mk.evals; ++e) {
            for (int m = 0; m < kSubjects; ++m) {
                for (const int s : groups_[mk.group].students) {
                    const int nudge = rnd_.chance(0.15) ? (rnd_.chance(0.5) ? 1 : -1) : 0;
                    const int mark = std::clamp(int(std::lround(points(s, m, e))) + nudge, 1, 10);
                    // The last evaluation is recovered in the final exam, not on its own.
                    const bool recover = mark < 5 && e < kEvaluations - 1;
                    QVariant again, againRemarks;
                    bool recovered = false;
                    if (recover && (e == 0 || allHeld) && rnd_.chance(0.8)) {
                        const int r = std::clamp(int(std::lround(mark + rnd_.normal(2.0, 1.3))), 1, 10);
                        again = float(r);
                        recovered = r >= 5;
                        againRemarks = recovered ? text(recoveryExam[e]) : QVariant(QStringLiteral("Non recupera"));
                    }
                    const QVariant remarks = rnd_.chance(0.12) ? QVariant(pick(evaluationRemarks())) : QVariant();
                    table.add({table.next(), e + 1, m + 1, students_[s].id, float(mark), remarks, recover, again,
                               recovered, againRemarks});
                    evalMarks_[markAt(s, m, e)] = recovered ? again.toDouble() : mark;
                }
            }
        }
    }
}

void Builder::finalMarks()
{
    const int group = 3; // 2º Bacharelato
    Table table(*cn_, "tblNotasFinal", "Id, IdMat, IdAlu, NotaO, NotaE, Obs");
    for (int m = 0; m < kSubjects; ++m) {
        for (const int s : groups_[group].students) {
            double mean = 0;
            for (int e = 0; e < kEvaluations; ++e)
                mean += evalMarks_[markAt(s, m, e)] / kEvaluations;
            const int ordinary = std::clamp(int(std::lround(mean)), 1, 10);
            QVariant extraordinary, remarks;
            if (ordinary < 5 && rnd_.chance(0.8)) {
                const int x = std::clamp(int(std::lround(ordinary + rnd_.normal(1.8, 1.3))), 1, 10);
                extraordinary = float(x);
                remarks = x >= 5 ? QStringLiteral("Aproba na convocatoria extraordinaria")
                                 : QStringLiteral("Non supera a materia");
            } else if (rnd_.chance(0.1)) {
                remarks = pick(evaluationRemarks());
            }
            table.add({table.next(), m + 1, students_[s].id, float(ordinary), extraordinary, remarks});
        }
    }
}

} // namespace setup::demo
