// What happens near the reference day of the demo year: the class diary of
// the last two weeks, incidents, and the tutor's appointments, subjects and
// marks.
#include "setup/DemoBuilder.h"

#include <QDateTime>
#include <QTime>

#include <algorithm>

namespace setup::demo {

void Builder::diary()
{
    Table table(*cn_, "tblDiarioClase", "Id, Dia, IdGrupo, IdMat, Des, Listo");
    const QDate thisMonday = today_.addDays(1 - today_.dayOfWeek());
    const QDate first = thisMonday.addDays(-7);
    for (int i = 0; i < 12; ++i) {
        const QDate day = first.addDays(i);
        if (day.dayOfWeek() > 5)
            continue;
        const int e = evaluationOf(day);
        const Evaluation& ev = evals_[e];
        const int span = std::max<int>(1, int(ev.from.daysTo(ev.to)));
        const int part = std::clamp(int(3 * ev.from.daysTo(day) / span), 0, 2);
        for (const Session& s : std::as_const(sessions_)) {
            if (s.day != day.dayOfWeek() || s.subject < 0)
                continue;
            // Entries of days gone by are written and mostly done; the rest
            // are the empty rows that week creation leaves for the teacher.
            QVariant des;
            int done = 0;
            if (day < today_) {
                const QString topic = QString::fromUtf8(subjects()[size_t(s.subject)].topics[e * 3 + part]);
                des = pick(diaryActivities()).arg(topic);
                done = day < thisMonday ? (rnd_.chance(0.75) ? 4 : rnd_.between(2, 3)) : rnd_.between(0, 4);
            }
            table.add({table.next(), day, groups_[s.group].id, s.subject + 1, des, done});
        }
    }
}

void Builder::incidents()
{
    struct Planned {
        QDate day;
        int student;
        int kind;
    };
    QVector<Planned> planned;
    const QDate earliest = schoolDay(evals_[0].from.addDays(7), 1);
    // Every kind once before any comes again.
    const int kinds = int(demo::incidents().size());
    QVector<int> order(kinds);
    for (int k = 0; k < kinds; ++k)
        order[k] = k;
    for (int k = kinds - 1; k > 0; --k)
        std::swap(order[k], order[rnd_.below(k + 1)]);
    for (int i = 0; i < 12; ++i) {
        Planned p;
        p.student = rnd_.below(students_.size());
        p.kind = order[i % kinds];
        QDate day = today_.addDays(-rnd_.between(1, 75));
        if (day < earliest)
            day = earliest.addDays(rnd_.between(0, 10));
        p.day = schoolDay(std::min(day, today_), -1);
        planned << p;
    }
    std::stable_sort(planned.begin(), planned.end(), [](const Planned& a, const Planned& b) { return a.day < b.day; });

    Table table(*cn_, "tblIncidencias", "Id, IdAlu, Asunto, Fec, Hechos, Resolucion, Listo");
    for (const Planned& p : std::as_const(planned)) {
        const Incident& kind = demo::incidents()[size_t(p.kind)];
        // What happened in the last fortnight is still open.
        const bool settled = p.day < today_.addDays(-14);
        table.add({table.next(), students_[p.student].id, text(kind.subject), p.day, text(kind.facts),
                   settled ? text(kind.resolution) : QVariant(), settled});
    }
}

void Builder::tutoring()
{
    const Group& tutored = groups_[0];
    db::Connection& cn = *cn_;

    // Appointments: most behind the reference day, two under way, two to come.
    const int offsets[] = {-56, -45, -38, -30, -23, -16, -9, -3, 4, 11};
    const char* const hours[] = {"16:00", "16:30", "17:00", "17:30"}; // afternoons, when families can come
    QVector<int> pupils = tutored.students;
    for (int i = pupils.size() - 1; i > 0; --i)
        std::swap(pupils[i], pupils[rnd_.below(i + 1)]);
    Table citas(cn, "tblTutoriaCitas", "Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso");
    const QDate earliest = schoolDay(evals_[0].from.addDays(3), 1);
    for (int i = 0; i < int(std::size(offsets)); ++i) {
        QDate day = schoolDay(today_.addDays(offsets[i]), offsets[i] < 0 ? -1 : 1);
        if (day < earliest)
            day = schoolDay(earliest.addDays(2 * i), 1);
        const QTime time =
            QTime::fromString(QLatin1String(hours[rnd_.below(int(std::size(hours)))]), QStringLiteral("HH:mm"));
        const Student& st = students_[pupils[i]];
        const Appointment& a = appointments()[size_t(i) % appointments().size()];
        const bool past = offsets[i] < 0;
        const bool underWay = past && offsets[i] > -10;
        citas.add({citas.next(), st.id, QDateTime(day, time), QString::fromUtf8(a.title).arg(st.nom + u' ' + st.ape),
                   text(a.matter), past && !underWay ? text(a.result) : QVariant(), past && !underWay, underWay});
    }

    // The tutor's own list of the group's subjects, with the colleagues who teach them.
    Table tutoringSubjects(cn, "tblTutoriaMaterias", "Id, Cod, Des, Prof, Obs");
    const auto list = demo::tutoringSubjects();
    for (size_t i = 0; i < list.size(); ++i)
        tutoringSubjects.add({tutoringSubjects.next(), text(list[i].code), text(list[i].name),
                              text(teacherNames()[i % teacherNames().size()]), text(list[i].remarks)});

    // Marks gathered at the first two evaluation sessions; those of our own
    // subjects are the ones typed in the class book.
    Table marks(cn, "tblTutoriaNotas", "Id, IdAlu, IdEval, IdMat, Nota");
    for (int e = 0; e < 2; ++e) {
        for (const int s : tutored.students) {
            const Student& st = students_[s];
            for (size_t i = 0; i < list.size(); ++i) {
                double mark = 0;
                if (list[i].subject >= 0)
                    mark = evalMarks_[markAt(s, list[i].subject, e)];
                if (mark <= 0)
                    mark = std::clamp(std::lround(rnd_.normal(7.0, 1.3) + (st.ability - 6.5) * 0.4), 3L, 10L);
                marks.add({marks.next(), st.id, e + 1, int(i) + 1, mark});
            }
        }
    }
}

} // namespace setup::demo
