// The frame of the demo year: catalogues, students, weights and timetable.
#include "setup/DemoBuilder.h"

#include <QSet>
#include <QTime>

#include <algorithm>

namespace setup {

DemoSummary fillDemoYear(const db::ConnectionPtr& cn, int startYear, const QDate& today)
{
    return demo::Builder(cn, startYear, today).run();
}

namespace demo {
namespace {

constexpr quint64 kSeed = 0x436164657264656dull;

// A name folded for sorting as the lists do: no case, no accents, ñ after n.
QString sortKey(QString s)
{
    s = s.toLower().replace(QChar(0x00F1), QStringLiteral("n~"));
    const QString d = s.normalized(QString::NormalizationForm_D);
    QString out;
    for (const QChar c : d) {
        if (c.category() != QChar::Mark_NonSpacing)
            out += c;
    }
    return out;
}

// The letters of a name as they can go in an e-mail address.
QString mailWord(const QString& s)
{
    QString out;
    for (const QChar c : s.normalized(QString::NormalizationForm_D)) {
        if (c.unicode() < 128 && c.isLetterOrNumber())
            out += c.toLower();
    }
    return out;
}

QString firstWord(const QString& s)
{
    return s.section(u' ', 0, 0);
}

// Timetable colours are stored the Windows way, 0x00BBGGRR.
int bgr(unsigned rgb)
{
    return int(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}

} // namespace

namespace {

QString insertStatement(const char* name, const char* columns)
{
    const int n = int(QString::fromLatin1(columns).count(u',')) + 1;
    QStringList marks;
    for (int i = 0; i < n; ++i)
        marks << QStringLiteral("?");
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(QLatin1String(name), QLatin1String(columns), marks.join(QStringLiteral(", ")));
}

} // namespace

Table::Table(db::Connection& cn, const char* name, const char* columns) : insert_(cn, insertStatement(name, columns)) {}

void Table::add(std::initializer_list<QVariant> values)
{
    insert_.execute(values);
    ++rows_;
}

Builder::Builder(const db::ConnectionPtr& cn, int startYear, const QDate& today)
    : cn_(cn), rnd_(kSeed), start_(startYear)
{
    const int s = startYear;
    evals_[0] = {schoolDay(QDate(s, 9, 15), 1), schoolDay(QDate(s, 12, 19), -1), schoolDay(QDate(s, 12, 19), -1)};
    evals_[1] = {schoolDay(QDate(s + 1, 1, 8), 1), schoolDay(QDate(s + 1, 3, 27), -1),
                 schoolDay(QDate(s + 1, 3, 27), -1)};
    evals_[2] = {schoolDay(evals_[1].date.addDays(10), 1), schoolDay(QDate(s + 1, 6, 19), -1),
                 schoolDay(QDate(s + 1, 6, 19), -1)};
    // Two weeks of classes must lie behind the reference day; the Christmas
    // holidays have no diary.
    today_ = std::clamp(today.isValid() ? today : evals_[1].date, QDate(s, 9, 29), evals_[2].to);
    if (today_ > evals_[0].to && today_ < evals_[1].from)
        today_ = evals_[0].to;
    weights_.fill(0, kTypes * kEvaluations * kSubjects * kGroups);
    sums_.resize(kGroups * kStudentsPerGroup * kSubjects * kEvaluations * kTypes);
    evalMarks_.fill(0.0, kGroups * kStudentsPerGroup * kSubjects * kEvaluations);
}

QDate Builder::schoolDay(QDate d, int direction)
{
    while (d.dayOfWeek() > 5)
        d = d.addDays(direction);
    return d;
}

int Builder::evaluationOf(const QDate& d) const
{
    for (int e = 0; e < kEvaluations - 1; ++e) {
        if (d <= evals_[e].to)
            return e;
    }
    return kEvaluations - 1;
}

DemoSummary Builder::run()
{
    cn_->ExecuteNative(QStringLiteral("BEGIN;"));
    try {
        catalogues();
        students();
        weights();
        timetable();
        tasks();
        marks();
        evaluationMarks();
        finalMarks();
        diary();
        incidents();
        tutoring();
        cn_->ExecuteNative(QStringLiteral("COMMIT;"));
    } catch (...) {
        try {
            cn_->ExecuteNative(QStringLiteral("ROLLBACK;"));
        } catch (...) {
            // The failure that brought us here is the one to report.
        }
        throw;
    }
    summary_.groups = groups_.size();
    summary_.students = students_.size();
    summary_.subjects = kSubjects;
    return summary_;
}

void Builder::catalogues()
{
    db::Connection& cn = *cn_;
    Table levels(cn, "tblNiveles", "Id, Des");
    levels.add({levels.next(), QStringLiteral("ESO")});
    levels.add({levels.next(), QStringLiteral("Bacharelato")});

    // Course, level, group: 1º ESO A (tutored), 3º ESO B, 1º Bacharelato A, 2º Bacharelato C.
    struct Frame {
        int course;
        bool bach;
        const char* group;
        int age; // turned during the first calendar year of the school year
    };
    const Frame frame[kGroups] = {{1, false, "A", 12}, {3, false, "B", 14}, {1, true, "A", 16}, {2, true, "C", 17}};
    Table courses(cn, "tblCursos", "Id, Des, IdNivel");
    Table groups(cn, "tblGrupos", "Id, Des, IdCurso, Tit");
    for (int g = 0; g < kGroups; ++g) {
        const Frame& f = frame[g];
        const QString course = QStringLiteral("%1º").arg(f.course);
        const int courseId = courses.next();
        courses.add({courseId, course, f.bach ? 2 : 1});
        Group group;
        group.id = groups.next();
        group.label =
            course + (f.bach ? QStringLiteral(" Bacharelato ") : QStringLiteral(" ESO ")) + QLatin1String(f.group);
        group.course = f.course;
        group.bach = f.bach;
        group.birthYear = start_ - f.age;
        group.tutored = g == 0;
        groups.add({group.id, QLatin1String(f.group), courseId, group.tutored});
        groups_ << group;
    }

    Table evaluations(cn, "tblEvaluaciones", "Id, Des, Fec, Obs");
    const char* const trimester[kEvaluations] = {"Primeiro trimestre", "Segundo trimestre", "Terceiro trimestre"};
    for (int e = 0; e < kEvaluations; ++e)
        evaluations.add(
            {evaluations.next(), QStringLiteral("%1ª Avaliación").arg(e + 1), evals_[e].date, text(trimester[e])});

    Table subjects(cn, "tblMaterias", "Id, Des, Obs");
    for (const Subject& m : demo::subjects())
        subjects.add({subjects.next(), text(m.name), text(m.remarks)});

    Table types(cn, "tblTareasTipos", "Id, Des, Min, Max, Val, Obs");
    for (const TypeInfo& t : kTypeInfo)
        types.add({types.next(), text(t.des), t.min, t.max, 1, text(t.remarks)});
}

void Builder::students()
{
    Table table(*cn_, "tblAlumnos",
                "Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, "
                "MailAlu, Obs, Grupo, Foto, AV");
    struct Draft {
        QString nom, first, second; // first and second surnames
        bool girl;
    };
    // Three families every demo has, so that the lists show compound surnames with ñ.
    const Draft known[] = {{QStringLiteral("Uxía"), QStringLiteral("Fernández"), QStringLiteral("Núñez"), true},
                           {QStringLiteral("Brais"), QStringLiteral("Souto"), QStringLiteral("Castiñeira"), false},
                           {QStringLiteral("Iñaki"), QStringLiteral("Iglesias"), QStringLiteral("Ferreño"), false}};
    QSet<QString> names, mails;
    auto uniqueMail = [&](const QString& user, const char* domain) {
        QString mail = user + u'@' + QLatin1String(domain);
        for (int n = 2; mails.contains(mail); ++n)
            mail = user + QString::number(n) + u'@' + QLatin1String(domain);
        mails.insert(mail);
        return mail;
    };
    auto phone = [&] { return QStringLiteral("6%1").arg(rnd_.between(10000000, 99999999)); };

    for (int g = 0; g < kGroups; ++g) {
        Group& group = groups_[g];
        QVector<Draft> drafts;
        while (drafts.size() < kStudentsPerGroup) {
            Draft d;
            if (g == 0 && drafts.size() < int(std::size(known))) {
                d = known[drafts.size()];
            } else {
                d.girl = rnd_.chance(0.5);
                d.nom = pick(d.girl ? girlNames() : boyNames());
                d.first = pick(surnames());
                do
                    d.second = pick(surnames());
                while (d.second == d.first);
            }
            if (names.contains(d.first + u' ' + d.second + u'|' + d.nom))
                continue;
            names.insert(d.first + u' ' + d.second + u'|' + d.nom);
            drafts << d;
        }
        // Keys in the order of the class list, as after an import of names.
        std::sort(drafts.begin(), drafts.end(), [](const Draft& a, const Draft& b) {
            const QString ka = sortKey(a.first + u' ' + a.second), kb = sortKey(b.first + u' ' + b.second);
            return ka != kb ? ka < kb : sortKey(a.nom) < sortKey(b.nom);
        });
        const int delegate = rnd_.below(kStudentsPerGroup);

        for (int i = 0; i < drafts.size(); ++i) {
            const Draft& d = drafts[i];
            Student st;
            st.id = table.next();
            st.group = g;
            st.nom = d.nom;
            st.ape = d.first + u' ' + d.second;
            st.girl = d.girl;
            st.ability = std::clamp(rnd_.normal(6.6, 1.5), 2.0, 9.8);
            for (double& o : st.offset)
                o = rnd_.normal(0.0, 0.8);

            const bool repeats = rnd_.chance(0.06);
            const QDate born = QDate(group.birthYear - (repeats ? 1 : 0), 1, 1).addDays(rnd_.below(365));
            // Enrolled at the start of the level, or new this year.
            const int firstYear = group.bach
                                      ? (rnd_.chance(0.7) ? start_ - group.course - 3 : start_ - group.course + 1)
                                      : start_ - group.course + 1;
            const QVariant enrolled = rnd_.chance(0.08) ? QVariant() : QVariant(QDate(firstYear, 9, 8 + rnd_.below(7)));
            // One draw per statement: the order of operands is not fixed by the language.
            const Town& town = towns()[size_t(rnd_.below(int(towns().size())))];
            QString address = pick(streets());
            address += u' ' + QString::number(rnd_.between(1, 120));
            if (rnd_.chance(0.4))
                address += QStringLiteral(", %1º %2").arg(rnd_.between(1, 6)).arg(QChar(u'A' + rnd_.below(4)));

            QVariant father, fatherPhone, fatherMail;
            if (!rnd_.chance(0.04)) {
                const QString name = pick(fatherNames());
                father = name + u' ' + d.first + u' ' + pick(surnames());
                fatherPhone = phone();
                if (!rnd_.chance(0.1))
                    fatherMail = uniqueMail(mailWord(firstWord(name)) + u'.' + mailWord(d.first), "example.com");
            }
            const QString motherName = pick(motherNames());
            const QString mother = motherName + u' ' + d.second + u' ' + pick(surnames());
            const QVariant motherMail =
                rnd_.chance(0.1)
                    ? QVariant()
                    : QVariant(uniqueMail(mailWord(firstWord(motherName)) + u'.' + mailWord(d.second), "example.com"));
            const QString mail = uniqueMail(mailWord(d.nom) + u'.' + mailWord(d.first), "example.org");

            QVariant remarks;
            if (i == delegate)
                remarks = d.girl ? QStringLiteral("Delegada de clase") : QStringLiteral("Delegado de clase");
            else if (repeats)
                remarks = QStringLiteral("Repite curso");
            else if (rnd_.chance(0.15))
                remarks = pick(studentRemarks());

            table.add({st.id,
                       st.ape,
                       st.nom,
                       born,
                       enrolled,
                       address,
                       text(town.postcode),
                       text(town.name),
                       text(town.province),
                       QStringLiteral("España"),
                       father,
                       fatherPhone,
                       fatherMail,
                       mother,
                       phone(),
                       motherMail,
                       mail,
                       remarks,
                       group.id,
                       QVariant(),
                       rnd_.chance(0.05) ? 1 : 0});
            group.students << students_.size();
            students_ << st;
        }
    }
}

void Builder::weights()
{
    // Exame, Traballo, Caderno, Proxecto per subject; Bacharelato weighs the exams more.
    const int eso[kSubjects][kTypes] = {{60, 15, 10, 15}, {40, 20, 15, 25}, {50, 20, 10, 20},
                                        {50, 20, 20, 10}, {50, 15, 10, 25}, {40, 20, 10, 30}};
    const int shift[kTypes] = {10, -5, -5, 0};
    Table table(*cn_, "tblTareasTiposValor", "Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor");
    for (int g = 0; g < kGroups; ++g) {
        for (int m = 0; m < kSubjects; ++m) {
            for (int e = 0; e < kEvaluations; ++e) {
                for (int t = 0; t < kTypes; ++t) {
                    const int value = eso[m][t] + (groups_[g].bach ? shift[t] : 0);
                    weights_[weightAt(t, e, m, g)] = value;
                    table.add({table.next(), t + 1, e + 1, m + 1, groups_[g].id, value});
                }
            }
        }
    }
}

void Builder::timetable()
{
    db::Connection& cn = *cn_;
    Table days(cn, "tblHorarioDias", "Id, Des, Orden");
    const char* const dayNames[] = {"Luns", "Martes", "Mércores", "Xoves", "Venres"};
    for (int d = 0; d < 5; ++d)
        days.add({days.next(), text(dayNames[d]), d + 1});

    // Fifty-minute classes; the breaks (11:00 and 13:00) are not hours of the grid.
    Table hours(cn, "tblHorarioHoras", "Id, Ini, Fin, Orden");
    const char* const spans[6][2] = {{"08:30", "09:20"}, {"09:20", "10:10"}, {"10:10", "11:00"},
                                     {"11:20", "12:10"}, {"12:10", "13:00"}, {"13:20", "14:10"}};
    for (int h = 0; h < 6; ++h)
        hours.add({hours.next(), QTime::fromString(QLatin1String(spans[h][0]), QStringLiteral("HH:mm")),
                   QTime::fromString(QLatin1String(spans[h][1]), QStringLiteral("HH:mm")), h + 1});

    // Each group meets each subject once a week; three hours without a subject
    // and three free hours fill the rest.
    struct Fixed {
        int day, hour;
        const char* des; // null: a free hour
        int group;
        unsigned rgb;
    };
    const Fixed fixed[] = {
        {2, 5, "Titoría", 0, 0xFFF9C4}, {4, 3, "Garda", -1, 0xE0E0E0}, {3, 6, "Reunión de departamento", -1, 0xE0E0E0},
        {1, 1, nullptr, -1, 0},         {3, 1, nullptr, -1, 0},        {5, 6, nullptr, -1, 0}};
    QVector<QPair<int, int>> pairs; // subject, group
    for (int g = 0; g < kGroups; ++g)
        for (int m = 0; m < kSubjects; ++m)
            pairs.append({m, g});
    for (int i = pairs.size() - 1; i > 0; --i)
        std::swap(pairs[i], pairs[rnd_.below(i + 1)]);

    Table table(cn, "tblHorarioSesiones", "Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color");
    int next = 0;
    for (int day = 1; day <= 5; ++day) {
        for (int hour = 1; hour <= 6; ++hour) {
            const Fixed* f = std::find_if(std::begin(fixed), std::end(fixed),
                                          [&](const Fixed& x) { return x.day == day && x.hour == hour; });
            Session s{day, hour, -1, -1};
            QString des;
            int colour = 0;
            if (f != std::end(fixed)) {
                if (!f->des)
                    continue;
                s.group = f->group;
                des = QString::fromUtf8(f->des);
                if (s.group >= 0)
                    des += u' ' + groups_[s.group].label;
                colour = bgr(f->rgb);
            } else {
                s.subject = pairs[next].first;
                s.group = pairs[next].second;
                ++next;
                const Subject& m = subjects()[size_t(s.subject)];
                des = QLatin1String(m.code) + u' ' + groups_[s.group].label;
                colour = bgr(m.rgb);
            }
            sessions_ << s;
            table.add({table.next(), day, hour, s.subject + 1, s.group >= 0 ? groups_[s.group].id : 0, des, colour});
        }
    }
}

} // namespace demo
} // namespace setup
