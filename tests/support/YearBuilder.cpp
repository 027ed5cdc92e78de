#include "support/YearBuilder.h"

#include "core/Modulo.h"
#include "db/Recordset.h"

#include <QStringList>

namespace {

// A value as a literal of the program's own dialect.
QString literal(const QVariant& v)
{
    if (!v.isValid() || v.isNull())
        return QStringLiteral("Null");
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QString::number(v.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return QString::number(v.toDouble(), 'g', 17);
    case QMetaType::QDate:
        return v.toDate().toString(QStringLiteral("#yyyy/MM/dd#"));
    case QMetaType::QTime:
        return u'\'' + v.toTime().toString(QStringLiteral("HH:mm")) + u'\'';
    case QMetaType::QDateTime:
        return u'\'' + v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + u'\'';
    default:
        return u'\'' + v.toString().replace(u'\'', QStringLiteral("''")) + u'\'';
    }
}

} // namespace

YearBuilder::YearBuilder(db::ConnectionPtr connection) : connection_(std::move(connection)) {}

db::ConnectionPtr YearBuilder::connection() const
{
    return connection_ ? connection_ : gConexion;
}

qint32 YearBuilder::row(const QString& table, Columns columns)
{
    qint32 id = 0;
    auto given = std::find_if(columns.begin(), columns.end(), [](const auto& c) { return c.first == u"Id"; });
    if (given != columns.end()) {
        id = given->second.toInt();
    } else {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT MAX(Id) AS Ultimo FROM ") + table, connection());
        id = rs.Eof() ? 1 : rs.Value(0).toInt() + 1;
        columns.prepend({QStringLiteral("Id"), id});
    }
    QStringList names, values;
    for (const auto& [name, value] : columns) {
        names << name;
        values << literal(value);
    }
    connection()->Execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                              .arg(table, names.join(QStringLiteral(", ")), values.join(QStringLiteral(", "))));
    return id;
}

qint32 YearBuilder::level(const QString& des)
{
    return row(QStringLiteral("tblNiveles"), {{QStringLiteral("Des"), des}});
}

qint32 YearBuilder::course(const QString& des, qint32 level)
{
    return row(QStringLiteral("tblCursos"), {{QStringLiteral("Des"), des}, {QStringLiteral("IdNivel"), level}});
}

qint32 YearBuilder::group(const QString& des, qint32 course, bool tutor)
{
    return row(QStringLiteral("tblGrupos"),
               {{QStringLiteral("Des"), des}, {QStringLiteral("IdCurso"), course}, {QStringLiteral("Tit"), tutor}});
}

qint32 YearBuilder::evaluation(const QString& des)
{
    return row(QStringLiteral("tblEvaluaciones"), {{QStringLiteral("Des"), des}});
}

qint32 YearBuilder::subject(const QString& des)
{
    return row(QStringLiteral("tblMaterias"), {{QStringLiteral("Des"), des}});
}

YearBuilder::Frame YearBuilder::frame(const QString& levelDes, const QString& courseDes, const QString& groupDes,
                                      const QString& evaluationDes, const QString& subjectDes)
{
    Frame f{};
    f.level = level(levelDes);
    f.course = course(courseDes, f.level);
    f.group = group(groupDes, f.course);
    f.evaluation = evaluation(evaluationDes);
    f.subject = subject(subjectDes);
    return f;
}

qint32 YearBuilder::student(const QString& surnames, const QString& name, qint32 group, bool warned)
{
    return row(QStringLiteral("tblAlumnos"), {{QStringLiteral("Ape"), surnames},
                                              {QStringLiteral("Nom"), name},
                                              {QStringLiteral("Grupo"), group},
                                              {QStringLiteral("AV"), warned}});
}

qint32 YearBuilder::taskType(const QString& des, int min, int max, double val)
{
    return row(QStringLiteral("tblTareasTipos"), {{QStringLiteral("Des"), des},
                                                  {QStringLiteral("Min"), min},
                                                  {QStringLiteral("Max"), max},
                                                  {QStringLiteral("Val"), val}});
}

qint32 YearBuilder::weight(qint32 type, qint32 evaluation, qint32 subject, qint32 group, double value)
{
    return row(QStringLiteral("tblTareasTiposValor"), {{QStringLiteral("IdTareaTip"), type},
                                                       {QStringLiteral("IdEval"), evaluation},
                                                       {QStringLiteral("IdMat"), subject},
                                                       {QStringLiteral("IdGrupo"), group},
                                                       {QStringLiteral("Valor"), value}});
}

qint32 YearBuilder::task(const QString& des, qint32 type, qint32 evaluation, qint32 subject, qint32 group, bool counts,
                         const QDate& start)
{
    Columns columns{{QStringLiteral("Des"), des},          {QStringLiteral("IdTip"), type},
                    {QStringLiteral("IdEva"), evaluation}, {QStringLiteral("IdMat"), subject},
                    {QStringLiteral("IdGru"), group},      {QStringLiteral("Nota"), counts},
                    {QStringLiteral("Fin"), false}};
    if (start.isValid())
        columns.append({QStringLiteral("FecIni"), start});
    return row(QStringLiteral("tblTareas"), columns);
}

qint32 YearBuilder::mark(qint32 task, qint32 student, const QVariant& nota, const QString& obs)
{
    Columns columns{
        {QStringLiteral("IdTarea"), task}, {QStringLiteral("IdAlu"), student}, {QStringLiteral("Nota"), nota}};
    if (!obs.isNull())
        columns.append({QStringLiteral("Obs"), obs});
    return row(QStringLiteral("tblNotas"), columns);
}

qint32 YearBuilder::evaluationMark(qint32 student, qint32 evaluation, qint32 subject, const QVariant& nota)
{
    return row(QStringLiteral("tblNotasEval"), {{QStringLiteral("IdEval"), evaluation},
                                                {QStringLiteral("IdMat"), subject},
                                                {QStringLiteral("IdAlu"), student},
                                                {QStringLiteral("Nota"), nota}});
}

qint32 YearBuilder::recovery(qint32 student, qint32 evaluation, qint32 subject, const QVariant& nota,
                             const QVariant& notaRec, bool recovered)
{
    return row(QStringLiteral("tblNotasEval"), {{QStringLiteral("IdEval"), evaluation},
                                                {QStringLiteral("IdMat"), subject},
                                                {QStringLiteral("IdAlu"), student},
                                                {QStringLiteral("Nota"), nota},
                                                {QStringLiteral("Recuperar"), true},
                                                {QStringLiteral("NotaRec"), notaRec},
                                                {QStringLiteral("Recuperado"), recovered}});
}

qint32 YearBuilder::finalMark(qint32 student, qint32 subject, const QVariant& ordinary, const QVariant& extraordinary)
{
    return row(QStringLiteral("tblNotasFinal"), {{QStringLiteral("IdMat"), subject},
                                                 {QStringLiteral("IdAlu"), student},
                                                 {QStringLiteral("NotaO"), ordinary},
                                                 {QStringLiteral("NotaE"), extraordinary}});
}

qint32 YearBuilder::rubricActivity(qint32 task, const QString& num, const QString& des, double weight, int max,
                                   const QString& criterion)
{
    return row(QStringLiteral("tblTareasRubrica"), {{QStringLiteral("IdTarea"), task},
                                                    {QStringLiteral("Num"), num},
                                                    {QStringLiteral("Des"), des},
                                                    {QStringLiteral("Cri"), criterion},
                                                    {QStringLiteral("Por"), weight},
                                                    {QStringLiteral("Max"), max}});
}

qint32 YearBuilder::rubricValue(qint32 mark, qint32 activity, int value, int max)
{
    return row(QStringLiteral("tblNotasRubrica"), {{QStringLiteral("IdNota"), mark},
                                                   {QStringLiteral("IdActividad"), activity},
                                                   {QStringLiteral("Valor"), value},
                                                   {QStringLiteral("Max"), max}});
}

qint32 YearBuilder::timetableDay(const QString& des, int order)
{
    return row(QStringLiteral("tblHorarioDias"), {{QStringLiteral("Des"), des}, {QStringLiteral("Orden"), order}});
}

qint32 YearBuilder::timetableHour(const QTime& start, const QTime& end, int order)
{
    return row(QStringLiteral("tblHorarioHoras"),
               {{QStringLiteral("Ini"), start}, {QStringLiteral("Fin"), end}, {QStringLiteral("Orden"), order}});
}

qint32 YearBuilder::session(int dayOrder, int hourOrder, qint32 subject, qint32 group, const QString& des)
{
    return row(QStringLiteral("tblHorarioSesiones"), {{QStringLiteral("OrdenDia"), dayOrder},
                                                      {QStringLiteral("OrdenHora"), hourOrder},
                                                      {QStringLiteral("IdMat"), subject},
                                                      {QStringLiteral("IdGru"), group},
                                                      {QStringLiteral("Des"), des}});
}

qint32 YearBuilder::diaryNote(const QDate& day, qint32 group, qint32 subject, const QString& des)
{
    return row(QStringLiteral("tblDiarioClase"), {{QStringLiteral("Dia"), day},
                                                  {QStringLiteral("IdGrupo"), group},
                                                  {QStringLiteral("IdMat"), subject},
                                                  {QStringLiteral("Des"), des}});
}

qint32 YearBuilder::incident(qint32 student, const QDate& date, const QString& subject, const QString& facts)
{
    return row(QStringLiteral("tblIncidencias"), {{QStringLiteral("IdAlu"), student},
                                                  {QStringLiteral("Asunto"), subject},
                                                  {QStringLiteral("Fec"), date},
                                                  {QStringLiteral("Hechos"), facts}});
}

qint32 YearBuilder::appointment(qint32 student, const QDateTime& when, const QString& des)
{
    return row(QStringLiteral("tblTutoriaCitas"),
               {{QStringLiteral("IdAlu"), student}, {QStringLiteral("Fec"), when}, {QStringLiteral("Des"), des}});
}

qint32 YearBuilder::tutoringSubject(const QString& code, const QString& des, const QString& teacher)
{
    return row(QStringLiteral("tblTutoriaMaterias"),
               {{QStringLiteral("Cod"), code}, {QStringLiteral("Des"), des}, {QStringLiteral("Prof"), teacher}});
}

qint32 YearBuilder::tutoringMark(qint32 student, qint32 evaluation, qint32 subject, double nota)
{
    return row(QStringLiteral("tblTutoriaNotas"), {{QStringLiteral("IdAlu"), student},
                                                   {QStringLiteral("IdEval"), evaluation},
                                                   {QStringLiteral("IdMat"), subject},
                                                   {QStringLiteral("Nota"), nota}});
}
