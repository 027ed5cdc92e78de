#include "students/StudentStanding.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "vb/Vb.h"

namespace standing {

namespace {

const QString kMarca = QStringLiteral("##0.00");

QString texto(const QVariant& v)
{
    return vb::IsNull(v) ? QString() : vb::CStr(v);
}

// A mean that is Null cannot become a cell's text.
QVariant media(const db::Recordset& rs)
{
    const QVariant m = rs.Value(QStringLiteral("Media"));
    if (vb::IsNull(m))
        vb::Raise(RuntimeError::InvalidUseOfNull);
    return m;
}

} // namespace

QString evaluationsStatement(qint32 idAlu)
{
    return QStringLiteral(
               "SELECT tblEvaluaciones.Des AS Eval, tblMaterias.Des AS Mat, tblTareas.IdEva, tblTareas.IdMat FROM "
               "((tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblMaterias ON "
               "tblTareas.IdMat = tblMaterias.Id) INNER JOIN tblEvaluaciones ON tblTareas.IdEva = tblEvaluaciones.Id "
               "Where tblTareas.Nota=True AND tblNotas.IdAlu = %1 GROUP BY tblEvaluaciones.Des, tblMaterias.Des, "
               "tblTareas.IdEva, tblTareas.IdMat ORDER BY tblTareas.IdEva DESC;")
        .arg(idAlu);
}

float CalculaPuntos(qint32 idAlu, qint32 grupo, qint32 idEva, qint32 idMat)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareas.IdEva, tblTareas.IdMat, tblTareas.IdTip, Avg(tblNotas.Nota) AS Media, "
                           "tblTareasTipos.Val, tblTareasTipos.Max FROM (tblNotas INNER JOIN tblTareas ON "
                           "tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = "
                           "tblTareasTipos.Id Where tblNotas.IdAlu = %1 GROUP BY tblTareas.IdEva, tblTareas.IdMat, "
                           "tblTareas.IdTip, tblTareasTipos.Val, tblTareasTipos.Max, tblTareas.Nota HAVING "
                           "tblTareas.IdEva=%2  AND tblTareas.IdMat=%3 AND tblTareas.Nota=Yes")
                .arg(idAlu)
                .arg(idEva)
                .arg(idMat),
            gConexion);
    float total = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const double peso = PesoTipoTarea(vb::CLng(rs.Value(QStringLiteral("IdTip"))), idEva, idMat, grupo);
        const double m = vb::CDbl(media(rs));
        const double max = vb::CDbl(rs.Value(QStringLiteral("Max")));
        // In this order, each step in double precision; the total stays a Single.
        total = float(double(total) + vb::Divide(m * 10, max) * peso / 100);
    }
    return total;
}

QString LeeNotaEval(qint32 idAlu, qint32 idEva, qint32 idMat)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblNotasEval.Nota From tblNotasEval WHERE tblNotasEval.IdAlu=%1 AND "
                           "tblNotasEval.IdEval=%2 AND tblNotasEval.IdMat=%3")
                .arg(idAlu)
                .arg(idEva)
                .arg(idMat),
            gConexion);
    // Two rows of one evaluation and subject show no mark at all.
    if (rs.RecordCount() != 1)
        return QString();
    return vb::Format(rs.Value(QStringLiteral("Nota")), kMarca);
}

float PuntosTipo(const QString& media, const QString& max, const QString& valor)
{
    return vb::CSng(media) * 10.0f / vb::CSng(max) * (vb::CSng(valor) / 100.0f);
}

Eval readEvaluation(const db::Recordset& pares, qint32 idAlu, qint32 grupo)
{
    Eval e;
    e.eval = texto(pares.Value(QStringLiteral("Eval")));
    e.mat = texto(pares.Value(QStringLiteral("Mat")));
    e.idEva = vb::CLng(pares.Value(QStringLiteral("IdEva")));
    e.idMat = vb::CLng(pares.Value(QStringLiteral("IdMat")));
    e.puntos = CalculaPuntos(idAlu, grupo, e.idEva, e.idMat);
    e.ptos = vb::Format(QVariant::fromValue(e.puntos), kMarca);
    e.nota = LeeNotaEval(idAlu, e.idEva, e.idMat);
    return e;
}

std::vector<Tipo> AbreTipos(qint32 idAlu, qint32 grupo, qint32 idEva, qint32 idMat)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareasTipos.Des AS TareaTipo, Avg(tblNotas.Nota) AS Media, tblTareasTipos.Max, "
                           "tblTareasTipos.Id AS IdTip, tblTareas.IdEva, tblTareas.IdMat FROM (tblNotas INNER JOIN "
                           "tblTareas ON tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip "
                           "= tblTareasTipos.Id Where tblTareas.Nota=True AND tblTareas.IdEva =%1 And tblTareas.IdMat "
                           "=%2 And tblNotas.IdAlu =%3 GROUP BY tblTareasTipos.Des, tblTareasTipos.Max, "
                           "tblTareasTipos.Id, tblTareas.IdEva, tblTareas.IdMat ORDER BY tblTareasTipos.Des;")
                .arg(idEva)
                .arg(idMat)
                .arg(idAlu),
            gConexion);
    std::vector<Tipo> tipos;
    tipos.reserve(rs.RecordCount());
    for (; !rs.Eof(); rs.MoveNext()) {
        Tipo t;
        t.idTip = vb::CLng(rs.Value(QStringLiteral("IdTip")));
        t.tarea = texto(rs.Value(QStringLiteral("TareaTipo")));
        t.media = vb::Format(media(rs), kMarca);
        t.valor = vb::CStr(QVariant::fromValue(PesoTipoTarea(t.idTip, idEva, idMat, grupo)));
        // The type's points from the mean as shown, not from the exact mean:
        // they may differ in the last decimal from the evaluation's points.
        t.ptos = vb::Format(QVariant::fromValue(PuntosTipo(t.media, texto(rs.Value(QStringLiteral("Max"))), t.valor)),
                            kMarca);
        tipos.push_back(std::move(t));
    }
    return tipos;
}

std::vector<Tarea> AbreTareas(qint32 idAlu, qint32 idEva, qint32 idTip, qint32 idMat)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareas.Des AS Tarea, tblNotas.Id AS IdNota, tblNotas.Nota, tblNotas.Obs, "
                           "tblTareas.Id AS IdTarea FROM tblNotas INNER JOIN (tblTareas INNER JOIN tblTareasTipos ON "
                           "tblTareas.IdTip = tblTareasTipos.Id) ON tblNotas.IdTarea = tblTareas.Id WHERE "
                           "tblNotas.IdAlu=%1 AND tblTareas.IdEva=%2 AND tblTareas.IdTip=%3 AND tblTareas.IdMat=%4 AND "
                           "tblTareas.Nota=True")
                .arg(idAlu)
                .arg(idEva)
                .arg(idTip)
                .arg(idMat),
            gConexion);
    std::vector<Tarea> tareas;
    tareas.reserve(rs.RecordCount());
    for (; !rs.Eof(); rs.MoveNext()) {
        Tarea t;
        t.tarea = texto(rs.Value(QStringLiteral("Tarea")));
        const QVariant nota = rs.Value(QStringLiteral("Nota"));
        t.nota = vb::IsNull(nota) ? QString() : vb::Format(nota, kMarca);
        t.obs = texto(rs.Value(QStringLiteral("Obs")));
        t.idTarea = vb::CLng(rs.Value(QStringLiteral("IdTarea")));
        t.idNota = texto(rs.Value(QStringLiteral("IdNota")));
        tareas.push_back(std::move(t));
    }
    return tareas;
}

std::vector<Final> CargaFinales(qint32 idAlu)
{
    std::vector<Final> finales;
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblNotasEval.IdMat, tblMaterias.Des FROM tblNotasEval INNER JOIN tblMaterias ON "
                           "tblNotasEval.IdMat = tblMaterias.Id Where tblNotasEval.IdAlu = %1 GROUP BY "
                           "tblNotasEval.IdMat, tblMaterias.Des;")
                .arg(idAlu),
            gConexion);
    for (; !rs.Eof(); rs.MoveNext()) {
        Final f;
        f.idMat = vb::CLng(rs.Value(QStringLiteral("IdMat")));
        f.mat = texto(rs.Value(QStringLiteral("Des")));
        finales.push_back(std::move(f));
    }
    if (finales.empty())
        return finales;
    rs.Open(QStringLiteral("SELECT tblNotasFinal.IdMat, tblNotasFinal.NotaO, tblNotasFinal.NotaE From tblNotasFinal "
                           "WHERE tblNotasFinal.IdAlu = %1")
                .arg(idAlu),
            gConexion);
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint32 idMat = vb::CLng(rs.Value(QStringLiteral("IdMat")));
        for (Final& f : finales)
            if (f.idMat == idMat) {
                f.nfo = texto(rs.Value(QStringLiteral("NotaO")));
                f.nfe = texto(rs.Value(QStringLiteral("NotaE")));
            }
    }
    return finales;
}

void MediaFinales(std::vector<Final>& finales, const std::vector<EvalCells>& evals)
{
    for (Final& f : finales) {
        const QString idMat = QString::number(f.idMat);
        qint16 count = 0;
        double puntos = 0;
        double notas = 0;
        for (const EvalCells& e : evals) {
            if (e.idMat != idMat)
                continue;
            ++count;
            if (!e.ptos.isEmpty())
                puntos += vb::CDbl(e.ptos);
            if (!e.nota.isEmpty())
                notas += vb::CDbl(e.nota);
        }
        // Every evaluation row of the subject counts, marked or not.
        f.ptos = vb::CStr(vb::Round(vb::Divide(puntos, count), 2));
        f.nota = vb::CStr(vb::Round(vb::Divide(notas, count), 2));
    }
}

Record computeRecord(qint32 idAlu)
{
    Record r;
    r.id = idAlu;
    db::Recordset alumno;
    alumno.Open(QStringLiteral("SELECT tblAlumnos.Ape, tblAlumnos.Nom, tblAlumnos.Grupo, tblAlumnos.MailAlu, "
                               "[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] AS DesGrupo "
                               "FROM ((tblAlumnos LEFT JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id) LEFT JOIN "
                               "tblCursos ON tblGrupos.IdCurso = tblCursos.Id) LEFT JOIN tblNiveles ON "
                               "tblCursos.IdNivel = tblNiveles.Id WHERE tblAlumnos.Id = %1")
                    .arg(idAlu),
                gConexion);
    if (alumno.Eof())
        vb::Raise(RuntimeError::NoCurrentRecord);
    r.nom =
        texto(alumno.Value(QStringLiteral("Ape"))) + QStringLiteral(", ") + texto(alumno.Value(QStringLiteral("Nom")));
    // A group that is gone leaves the box empty, as on the sheet.
    const bool conGrupo = !vb::IsNull(alumno.Value(QStringLiteral("DesGrupo"))) &&
                          !vb::CStr(alumno.Value(QStringLiteral("DesGrupo"))).trimmed().isEmpty();
    r.grupo = conGrupo ? texto(alumno.Value(QStringLiteral("DesGrupo"))) : QString();
    r.mail = texto(alumno.Value(QStringLiteral("MailAlu")));
    const qint32 grupo =
        vb::IsNull(alumno.Value(QStringLiteral("Grupo"))) ? 0 : vb::CLng(alumno.Value(QStringLiteral("Grupo")));

    db::Recordset pares;
    pares.Open(evaluationsStatement(idAlu), gConexion);
    std::vector<EvalCells> cells;
    for (; !pares.Eof(); pares.MoveNext()) {
        Record::Aval a;
        a.eval = readEvaluation(pares, idAlu, grupo);
        for (Tipo& t : AbreTipos(idAlu, grupo, a.eval.idEva, a.eval.idMat)) {
            Record::TipoTareas tt;
            tt.tareas = AbreTareas(idAlu, a.eval.idEva, t.idTip, a.eval.idMat);
            tt.tipo = std::move(t);
            a.tipos.push_back(std::move(tt));
        }
        cells.push_back({QString::number(a.eval.idMat), a.eval.ptos, a.eval.nota});
        r.avals.push_back(std::move(a));
    }
    r.finales = CargaFinales(idAlu);
    MediaFinales(r.finales, cells);
    return r;
}

} // namespace standing
