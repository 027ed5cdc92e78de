#include "LargeYear.h"

#include "setup/DemoRandom.h"

#include "db/Schema.h"
#include "vb/RuntimeError.h"

#include "db/BoundStatement.h"
#include "db/Connection.h"
#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#ifndef CADERNIA_BENCH_DATA_DIR
#error "CADERNIA_BENCH_DATA_DIR must name the folder of the cached benchmark years"
#endif

namespace bench {
namespace {

using Shape = LargeYearShape;

// Bump when the content changes, so that a cached year of an older generator
// is not reused.
constexpr int kGeneratorVersion = 5;
constexpr quint64 kSeed = 0x43414445524e4941ull;

using Random = setup::demo::Random;

template <typename T, size_t N>
const T& pick(Random& r, const std::array<T, N>& a)
{
    return a[size_t(r.below(int(N)))];
}

// One INSERT, its values given column by column and written once per row.
class Insert {
public:
    Insert(db::Connection& cn, const char* sql) : statement_(cn, QString::fromUtf8(sql)) {}

    Insert& integer(qint64 v) { return add(v); }
    Insert& real(double v) { return add(v); }
    Insert& text(const QString& v) { return add(v); }
    Insert& text(const char* utf8) { return add(QString::fromUtf8(utf8)); }
    Insert& date(const QDate& d) { return text(d.toString(Qt::ISODate)); }
    Insert& null() { return add(QVariant()); }
    // Text, or Null when empty.
    Insert& optional(const QString& v) { return v.isEmpty() ? null() : text(v); }
    void row()
    {
        statement_.execute(values_);
        values_.clear();
    }

private:
    Insert& add(const QVariant& v)
    {
        values_.append(v);
        return *this;
    }

    db::BoundStatement statement_;
    QVariantList values_;
};

// ---------------------------------------------------------------- name lists

const std::array<const char*, 40> kSurnames = {
    "García",  "Fernández", "González",  "Rodríguez", "López",     "Martínez", "Sánchez",  "Pérez",
    "Gómez",   "Díaz",      "Vázquez",   "Castro",    "Otero",     "Núñez",    "Iglesias", "Rey",
    "Varela",  "Fariña",    "Muñiz",     "Castaño",   "Ordóñez",   "Seoane",   "Souto",    "Ferreiro",
    "Piñeiro", "Carballo",  "Domínguez", "Álvarez",   "Méndez",    "Peña",     "Bouzas",   "Lorenzo",
    "Romero",  "Alonso",    "Blanco",    "Cabanas",   "Outeiriño", "Mariño",   "Ibáñez",   "Pazos"};

const std::array<const char*, 30> kGirls = {
    "Ana",    "Uxía",   "Sabela",  "Antía",  "Noa",     "Lucía",  "Nerea",  "Begoña", "Inés",    "Sofía",
    "María",  "Lúa",    "Xiana",   "Aldara", "Candela", "Iria",   "Noelia", "Carme",  "Rosalía", "Maruxa",
    "Ainhoa", "Aitana", "Martina", "Olalla", "Leire",   "Mónica", "Tamara", "Nuria",  "Ángela",  "Érica"};

const std::array<const char*, 30> kBoys = {
    "Brais",  "Íñigo", "Xoán",   "Iago",  "Martín", "Mateo",  "Álvaro",  "Íker",   "Óscar",   "Andrés",
    "Rubén",  "Ramón", "Adrián", "Jesús", "Hugo",   "Breixo", "Anxo",    "Roi",    "Xián",    "Antón",
    "Manuel", "Xosé",  "Pablo",  "Iñaki", "Tomás",  "Sergio", "Nicolás", "Fermín", "Martiño", "Joaquín"};

struct Town {
    const char* name;
    const char* cp;
    const char* province;
};
const std::array<Town, 10> kTowns = {{{"Santiago de Compostela", "15702", "A Coruña"},
                                      {"A Coruña", "15001", "A Coruña"},
                                      {"Ferrol", "15401", "A Coruña"},
                                      {"Betanzos", "15300", "A Coruña"},
                                      {"Lugo", "27001", "Lugo"},
                                      {"Monforte de Lemos", "27400", "Lugo"},
                                      {"Ourense", "32001", "Ourense"},
                                      {"O Barco de Valdeorras", "32300", "Ourense"},
                                      {"Pontevedra", "36001", "Pontevedra"},
                                      {"Vigo", "36201", "Pontevedra"}}};

const std::array<const char*, 12> kStreets = {"Rúa do Franco",     "Avenida de Lugo", "Praza de Galicia",
                                              "Calle Mayor",       "Rúa Nova",        "Rúa da Raíña",
                                              "Avenida Castelao",  "Calle Colón",     "Travesía de Vigo",
                                              "Rúa Ramón Piñeiro", "Camiño do Souto", "Praza de España"};

const std::array<const char*, 6> kStudentNotes = {
    "Alergia al polen",          "Necesita apoyo en lectura", "Repite curso",
    "Intolerancia a la lactosa", "Usa gafas: sentar delante", "Hermano en 2º ESO"};

const std::array<const char*, 10> kSubjects = {"Lengua Castellana",  "Lingua Galega",     "Matemáticas",      "Inglés",
                                               "Ciencias Naturales", "Ciencias Sociales", "Educación Física", "Música",
                                               "Educación Plástica", "Tecnología"};

struct TaskType {
    const char* name;
    int max;
    int weight; // of the evaluation mark, the same in every group
    int days;   // from start to delivery
};
const std::array<TaskType, Shape::TaskTypes> kTypes = {
    {{"Examen", 10, 50, 0}, {"Exposición oral", 10, 15, 0}, {"Deberes", 5, 15, 7}, {"Proyecto", 100, 20, 21}}};
// Order in which task types come up along the year, shifted by subject.
const std::array<int, 8> kTypeRota = {3, 3, 1, 2, 3, 4, 3, 1};

const std::array<const char*, 10> kTalks = {
    "Rosalía de Castro", "El ciclo del agua", "Castelao",      "Los volcanes",      "A miña vila",
    "Año Nuevo chino",   "La energía solar",  "Os dinosauros", "Mi libro favorito", "El Camiño de Santiago"};
const std::array<const char*, 6> kProjects = {"huerto escolar",  "periódico del aula", "maqueta del sistema solar",
                                              "cómic en galego", "feria de ciencias",  "radio escolar"};

struct Evaluation {
    const char* name;
    QDate first; // first teaching day
    QDate last;  // day of the evaluation session
    const char* obs;
};

struct TutoringSubject {
    const char* code;
    const char* name;
    const char* teacher;
};
const std::array<TutoringSubject, Shape::TutoringSubjects> kTutoring = {{
    {"LCL", "Lengua Castellana y Literatura", "Begoña Ordóñez Rey"},
    {"LGL", "Lingua Galega e Literatura", "Xosé Manuel Fariña Souto"},
    {"MAT", "Matemáticas", "Ángela Muñiz Peña"},
    {"ING", "Inglés", "Martiño Castaño Ibáñez"},
    {"EF", "Educación Física", "Íñigo Seoane Bouzas"},
    {"MUS", "Música", "Olalla Piñeiro Varela"},
}};

// "Íñigo Castaño" -> "inigocastano": for the e-mail addresses.
QString ascii(const QString& s)
{
    QString out;
    for (QChar c : s.normalized(QString::NormalizationForm_D))
        if (c.unicode() < 128 && c.isLetterOrNumber())
            out += c.toLower();
    return out;
}

// "Xosé Núñez" -> "xose.nunez@example.com".
QString mail(const QString& fullName)
{
    return ascii(fullName.section(u' ', 0, 0)) + u'.' + ascii(fullName.section(u' ', 1)) +
           QStringLiteral("@example.com");
}

QString phone(Random& r)
{
    return QString::number(600000000 + r.below(99999999));
}

QDate weekday(QDate d)
{
    if (d.dayOfWeek() == 6)
        return d.addDays(2);
    if (d.dayOfWeek() == 7)
        return d.addDays(1);
    return d;
}

double clamp01(double x)
{
    return std::clamp(x, 0.0, 1.0);
}

// A mark on the type's scale from a fraction of it: tenths on 0-10, halves on
// 0-5, units on 0-100, as teachers write them.
double onScale(double fraction, int max)
{
    switch (max) {
    case 10:
        return std::round(fraction * 100.0) / 10.0;
    case 5:
        return std::round(fraction * 10.0) / 2.0;
    default:
        return std::round(fraction * max);
    }
}

// The activities of a project's rubric: number, description, weight, Max.
struct Activity {
    const char* num;
    const char* des;
    int por;
    int max;
};
const std::array<Activity, Shape::RubricActivities> kActivities = {{{"1", "Planificación", 10, 4},
                                                                    {"2", "Búsqueda de información", 15, 10},
                                                                    {"3", "Trabajo en equipo", 10, 4},
                                                                    {"4", "Contenido", 20, 10},
                                                                    {"5", "Originalidad", 10, 5},
                                                                    {"6", "Presentación escrita", 10, 10},
                                                                    {"7", "Exposición oral", 15, 10},
                                                                    {"8", "Entrega a tiempo", 10, 2}}};

// A rubric on every project, and a value per activity in each given mark.
// Its own random stream, so that the rest of the year is as it was without.
void rubrics(db::Connection& db, const std::vector<std::pair<qint64, bool>>& projects,
             const std::vector<double>& ability)
{
    Random r(kSeed ^ 0x52554252ull);
    Insert activity(db, "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (?,?,?,?,?,?,?)");
    Insert value(db, "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (?,?,?,?,?)");
    qint64 activityId = 0, valueId = 0;
    for (const auto& [task, finished] : projects) {
        const qint64 first = activityId + 1;
        for (const Activity& a : kActivities)
            activity.integer(++activityId)
                .integer(task)
                .text(a.num)
                .text(a.des)
                .text(QStringLiteral("Se valora de 0 a %1").arg(a.max))
                .real(a.por)
                .integer(a.max)
                .row();
        if (!finished)
            continue;
        // Every task has one mark per student of its group, keyed in order.
        const qint64 firstMark = (task - 1) * Shape::StudentsPerGroup + 1;
        const int group = int((task - 1) / (Shape::Subjects * Shape::TasksPerGroupSubject));
        for (int s = 0; s < Shape::StudentsPerGroup; ++s) {
            const qint64 mark = firstMark + s;
            const double able = ability[size_t(group * Shape::StudentsPerGroup + s + 1)];
            for (int k = 0; k < Shape::RubricActivities; ++k) {
                const int max = kActivities[size_t(k)].max;
                const double share = clamp01(able + (r.unit() - 0.5) * 0.4);
                value.integer(++valueId)
                    .integer(mark)
                    .integer(first + k)
                    .integer(std::lround(share * max))
                    .integer(max)
                    .row();
            }
        }
    }
}

// ---------------------------------------------------------------- filling

void fill(db::Connection& db)
{
    Random r(kSeed);

    Insert level(db, "INSERT INTO tblNiveles (Id, Des) VALUES (?,?)");
    level.integer(1).text("Primaria").row();
    level.integer(2).text("ESO").row();

    // 5º and 6º of primary, 1º to 4º of secondary.
    static const std::array<std::pair<const char*, int>, Shape::Courses> courses = {
        {{"5º", 1}, {"6º", 1}, {"1º", 2}, {"2º", 2}, {"3º", 2}, {"4º", 2}}};
    Insert course(db, "INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (?,?,?)");
    for (int c = 0; c < Shape::Courses; ++c)
        course.integer(c + 1).text(courses[size_t(c)].first).integer(courses[size_t(c)].second).row();

    Insert group(db, "INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (?,?,?,?)");
    for (int g = 1; g <= Shape::Groups; ++g) {
        const int c = (g - 1) / Shape::GroupsPerCourse;
        const char letter[2] = {char('A' + (g - 1) % Shape::GroupsPerCourse), 0};
        group.integer(g).text(letter).integer(c + 1).integer(g == Shape::TutoredGroup ? 1 : 0).row();
    }

    const std::array<Evaluation, Shape::Evaluations> evals = {{
        {"1ª Evaluación", QDate(2024, 9, 16), QDate(2024, 12, 20), "Primer trimestre"},
        {"2ª Evaluación", QDate(2025, 1, 8), QDate(2025, 3, 28), "Segundo trimestre"},
        {"3ª Evaluación", QDate(2025, 3, 31), QDate(2025, 6, 20), nullptr},
    }};
    Insert eval(db, "INSERT INTO tblEvaluaciones (Id, Des, Fec, Obs) VALUES (?,?,?,?)");
    for (int e = 0; e < Shape::Evaluations; ++e) {
        const Evaluation& ev = evals[size_t(e)];
        eval.integer(e + 1).text(ev.name).date(ev.last);
        ev.obs ? eval.text(ev.obs).row() : eval.null().row();
    }

    Insert subject(db, "INSERT INTO tblMaterias (Id, Des, Obs) VALUES (?,?,?)");
    for (int m = 0; m < Shape::Subjects; ++m) {
        subject.integer(m + 1).text(kSubjects[size_t(m)]);
        m % 3 == 0 ? subject.text("Libro de texto y cuaderno").row() : subject.null().row();
    }

    Insert type(db, "INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val, Obs) VALUES (?,?,?,?,?,?)");
    for (int t = 0; t < Shape::TaskTypes; ++t) {
        const TaskType& tt = kTypes[size_t(t)];
        type.integer(t + 1).text(tt.name).integer(0).integer(tt.max).real(1.0);
        t == 0 ? type.text("Pruebas escritas").row() : type.null().row();
    }

    // Weights of every type, evaluation, subject and group.
    Insert weight(db, "INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) "
                      "VALUES (?,?,?,?,?,?)");
    qint64 id = 0;
    for (int g = 1; g <= Shape::Groups; ++g)
        for (int m = 1; m <= Shape::Subjects; ++m)
            for (int e = 1; e <= Shape::Evaluations; ++e)
                for (int t = 1; t <= Shape::TaskTypes; ++t)
                    weight.integer(++id)
                        .integer(t)
                        .integer(e)
                        .integer(m)
                        .integer(g)
                        .integer(kTypes[size_t(t - 1)].weight)
                        .row();

    // Students, with an ability that shapes their marks.
    std::vector<double> ability(Shape::Students + 1);
    Insert student(db, "INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, "
                       "MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) "
                       "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    for (int g = 1; g <= Shape::Groups; ++g) {
        const int c = (g - 1) / Shape::GroupsPerCourse; // 0: 5º of primary
        for (int s = 0; s < Shape::StudentsPerGroup; ++s) {
            const int a = (g - 1) * Shape::StudentsPerGroup + s + 1;
            ability[size_t(a)] = 0.35 + 0.6 * r.unit();
            const QString sur1 = QString::fromUtf8(pick(r, kSurnames));
            const QString sur2 = QString::fromUtf8(pick(r, kSurnames));
            const QString name = QString::fromUtf8(r.chance(0.5) ? pick(r, kGirls) : pick(r, kBoys));
            const QString father = QString::fromUtf8(pick(r, kBoys)) + u' ' + sur1;
            const QString mother = QString::fromUtf8(pick(r, kGirls)) + u' ' + sur2;
            const Town& town = pick(r, kTowns);
            const QDate born = QDate(2014 - c, 1, 1).addDays(r.below(365));
            const QDate enrolled = QDate(2018 + r.below(7), 9, 9 + r.below(5));
            const QString note = r.chance(0.08) ? QString::fromUtf8(pick(r, kStudentNotes)) : QString();
            const QString street = QString::fromUtf8(pick(r, kStreets)) + u' ' + QString::number(1 + r.below(60));
            const QString fatherPhone = phone(r);
            const QString fatherMail = r.chance(0.8) ? mail(father) : QString();
            const QString motherPhone = phone(r);
            const QString motherMail = r.chance(0.8) ? mail(mother) : QString();
            const bool av = r.chance(0.1);
            student.integer(a)
                .text(sur1 + u' ' + sur2)
                .text(name)
                .date(born)
                .date(enrolled)
                .text(street)
                .text(town.cp)
                .text(town.name)
                .text(town.province)
                .text("España")
                .text(father)
                .text(fatherPhone)
                .optional(fatherMail)
                .text(mother)
                .text(motherPhone)
                .optional(motherMail)
                .text(ascii(name) + u'.' + ascii(sur1) + QString::number(a) + QStringLiteral("@example.com"))
                .optional(note)
                .integer(g)
                .null()
                .integer(av ? 1 : 0)
                .row();
        }
    }

    // Tasks: 40 per group and subject, 14 + 13 + 13 over the evaluations, and
    // a mark for every student of the group in each.
    Insert task(db, "INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) "
                    "VALUES (?,?,?,?,?,?,?,?,?,?,?)");
    Insert mark(db, "INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (?,?,?,?,?)");
    static const std::array<int, Shape::Evaluations> firstOf = {0, 14, 27};
    static const std::array<int, Shape::Evaluations> countOf = {14, 13, 13};
    qint64 taskId = 0, markId = 0;
    std::vector<std::pair<qint64, bool>> withRubric; // the projects: task, finished
    for (int g = 1; g <= Shape::Groups; ++g) {
        for (int m = 1; m <= Shape::Subjects; ++m) {
            int exams = 0, homework = 0, talks = 0, projects = 0;
            for (int k = 0; k < Shape::TasksPerGroupSubject; ++k) {
                const int e = k < firstOf[1] ? 0 : k < firstOf[2] ? 1 : 2;
                const int i = k - firstOf[size_t(e)];
                const Evaluation& ev = evals[size_t(e)];
                const int t = kTypeRota[size_t((k + m) % int(kTypeRota.size()))];
                const TaskType& tt = kTypes[size_t(t - 1)];
                const bool counts = k % 10 != 9; // a review now and then that does not count
                const bool finished = k < Shape::TasksPerGroupSubject - 3;
                const int span = int(ev.first.daysTo(ev.last)) - 10;
                const QDate start = weekday(ev.first.addDays(i * span / countOf[size_t(e)] + (g + m) % 4));
                QString des;
                if (!counts)
                    des = QStringLiteral("Actividad de repaso %1").arg(k / 10 + 1);
                else if (t == 1)
                    des = QStringLiteral("Examen tema %1").arg(++exams);
                else if (t == 2)
                    des = QStringLiteral("Exposición oral: ") + QString::fromUtf8(kTalks[size_t((talks++ + g) % 10)]);
                else if (t == 3)
                    des = QStringLiteral("Deberes pág. %1").arg(12 + 7 * ++homework);
                else
                    des = QStringLiteral("Proyecto ") + QString::fromUtf8(kProjects[size_t((projects++ + m) % 6)]);
                task.integer(++taskId)
                    .text(des)
                    .integer(t)
                    .integer(e + 1)
                    .integer(m)
                    .integer(g)
                    .date(start)
                    .date(start.addDays(tt.days))
                    .optional(k % 7 == 3 ? QStringLiteral("Entregar en papel") : QString())
                    .integer(counts ? 1 : 0)
                    .integer(finished ? 1 : 0)
                    .row();
                if (t == Shape::ProjectType)
                    withRubric.emplace_back(taskId, finished);

                const double difficulty = (r.unit() - 0.5) * 0.2;
                for (int s = 0; s < Shape::StudentsPerGroup; ++s) {
                    const int a = (g - 1) * Shape::StudentsPerGroup + s + 1;
                    mark.integer(++markId).integer(taskId).integer(a);
                    const double noise = (r.unit() - 0.5) * 0.5;
                    if (!finished) {
                        mark.null().null(); // not marked yet
                    } else if (t == 3 && r.chance(0.02)) {
                        mark.real(0.0).text("No entregado");
                    } else {
                        mark.real(onScale(clamp01(ability[size_t(a)] + difficulty + noise), tt.max)).null();
                    }
                    mark.row();
                }
            }
        }
    }

    // Evaluation marks (whole numbers, recovery of the failed ones) and the
    // final marks of every student and subject.
    Insert evalMark(db, "INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, "
                        "Recuperado, ObsRec) VALUES (?,?,?,?,?,?,?,?,?,?)");
    Insert finalMark(db, "INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (?,?,?,?,?,?)");
    qint64 evalId = 0, finalId = 0;
    for (int a = 1; a <= Shape::Students; ++a) {
        for (int m = 1; m <= Shape::Subjects; ++m) {
            double sum = 0;
            for (int e = 1; e <= Shape::Evaluations; ++e) {
                const double nota =
                    std::clamp(std::round(ability[size_t(a)] * 10.0 + (r.unit() - 0.5) * 3.0), 1.0, 10.0);
                sum += nota;
                const bool recover = nota < 5;
                evalMark.integer(++evalId).integer(e).integer(m).integer(a).real(nota);
                nota >= 9 ? evalMark.text("Sobresaliente") : evalMark.null();
                evalMark.integer(recover ? 1 : 0);
                if (recover && e < Shape::Evaluations) {
                    const double again = 3.0 + r.below(6);
                    evalMark.real(again).integer(again >= 5 ? 1 : 0);
                    again >= 5 ? evalMark.text("Aprobada en la recuperación") : evalMark.null();
                } else {
                    evalMark.null().integer(0).null();
                }
                evalMark.row();
            }
            const double ordinary = std::round(sum / Shape::Evaluations);
            finalMark.integer(++finalId).integer(m).integer(a).real(ordinary);
            ordinary < 5 ? finalMark.real(3.0 + r.below(5)) : finalMark.null();
            ordinary >= 9 ? finalMark.text("Matrícula") : finalMark.null();
            finalMark.row();
        }
    }

    // The tutored group's marks in the subjects of other teachers.
    Insert tutoring(db, "INSERT INTO tblTutoriaMaterias (Id, Cod, Des, Prof, Obs) VALUES (?,?,?,?,?)");
    for (int m = 0; m < Shape::TutoringSubjects; ++m) {
        const TutoringSubject& ts = kTutoring[size_t(m)];
        tutoring.integer(m + 1).text(ts.code).text(ts.name).text(ts.teacher);
        m == 4 ? tutoring.text("Pabellón los martes").row() : tutoring.null().row();
    }
    Insert tutoringMark(db, "INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (?,?,?,?,?)");
    qint64 tutoringId = 0;
    const int firstTutored = (Shape::TutoredGroup - 1) * Shape::StudentsPerGroup + 1;
    for (int a = firstTutored; a < firstTutored + Shape::StudentsPerGroup; ++a)
        for (int e = 1; e <= Shape::Evaluations; ++e)
            for (int m = 1; m <= Shape::TutoringSubjects; ++m)
                tutoringMark.integer(++tutoringId)
                    .integer(a)
                    .integer(e)
                    .integer(m)
                    .real(std::clamp(std::round(ability[size_t(a)] * 10.0 + (r.unit() - 0.5) * 3.0), 1.0, 10.0))
                    .row();

    rubrics(db, withRubric, ability);
}

} // namespace

void createLargeYear(const QString& path)
{
    db::Schema::CreateYear(path);
    const db::ConnectionPtr cn = db::Connection::Open(path);
    // A new file that nobody else has open: no need for the journal while filling.
    cn->ExecuteNative(QStringLiteral("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY;"));
    cn->ExecuteNative(QStringLiteral("BEGIN"));
    fill(*cn);
    cn->ExecuteNative(QStringLiteral("COMMIT"));
    cn->ExecuteNative(QStringLiteral("PRAGMA journal_mode=DELETE"));
}

QString largeYearPath()
{
    const QString folder = QStringLiteral(CADERNIA_BENCH_DATA_DIR "/large-v%1").arg(kGeneratorVersion);
    const QString path = folder + QStringLiteral("/Xestion.mdb");
    if (QFileInfo::exists(path))
        return path;
    if (!QDir().mkpath(folder))
        throw RuntimeError(RuntimeError::PathNotFound, QStringLiteral("No se pudo crear la carpeta '%1'.").arg(folder));
    // Built under a name of this process, then renamed: a run that stops
    // half-way, or two runs at once, never leave a partial year behind.
    const QString partial = path + QStringLiteral(".%1.tmp").arg(QCoreApplication::applicationPid());
    QFile::remove(partial);
    try {
        createLargeYear(partial);
    } catch (...) {
        QFile::remove(partial);
        throw;
    }
    if (!QFile::rename(partial, path)) {
        QFile::remove(partial);
        if (!QFileInfo::exists(path))
            throw RuntimeError(RuntimeError::DatabaseError,
                               QStringLiteral("No se pudo guardar el año de pruebas en '%1'.").arg(path));
    }
    return path;
}

} // namespace bench
