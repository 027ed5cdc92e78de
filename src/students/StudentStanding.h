#pragma once
// How one student stands, cell by cell, as the student sheet shows it and
// its printed record stages it: the points computed from the task marks and
// the weights of the student's group, beside the marks the teacher typed.
// Points are computed each time they are shown and never stored; nothing
// here writes a mark or proposes one. Every function runs its statements on
// gConexion, one query per row, and keeps nothing between calls.
//
// No widgets: the sheet fills its grids from these rows, and cadernia-report
// prints a record without the sheet.
#include <QString>
#include <QStringList>

#include <vector>

namespace db {
class Recordset;
}

namespace standing {

// The pairs of evaluation and subject in which the student has a mark of a
// task that counts, newest evaluation first: Eval, Mat, IdEva, IdMat.
QString evaluationsStatement(qint32 idAlu);

// The points of one evaluation and subject: for each task type with marks,
// the mean of the marks to a scale of ten by the type's Max, times its weight
// in percent; each step in double precision, the total kept in single
// precision. Max 0 raises the division error, a type whose marks are all
// Null "Uso no válido de Null".
float CalculaPuntos(qint32 idAlu, qint32 grupo, qint32 idEva, qint32 idMat);
// The typed evaluation mark as "##0.00"; "" unless exactly one row stands.
QString LeeNotaEval(qint32 idAlu, qint32 idEva, qint32 idMat);
// The points of one type from the texts of its row: the mean as shown
// (rounded to two decimals), Max and the weight; single precision.
float PuntosTipo(const QString& media, const QString& max, const QString& valor);

// A row of the evaluations grid.
struct Eval {
    QString eval, mat;
    qint32 idEva = 0;
    qint32 idMat = 0;
    QString ptos; // "##0.00"
    float puntos = 0;
    QString nota; // the typed mark, "##0.00" or ""
};
// A row of the task types grid: "Tarea", "Media", "%Valor", "Ptos".
struct Tipo {
    QString tarea, media, valor, ptos;
    qint32 idTip = 0;
};
// A row of the tasks grid: "Tarea", "Nota", "Observaciones".
struct Tarea {
    QString tarea, nota, obs;
    qint32 idTarea = 0;
    QString idNota;
};
// A row of the final marks grid: "Materia", "Ptos", "Nota", "NFO", "NFE".
struct Final {
    qint32 idMat = 0;
    QString mat, ptos, nota, nfo, nfe;
};

// The row of the current record of the pairs' recordset.
Eval readEvaluation(const db::Recordset& pares, qint32 idAlu, qint32 grupo);
std::vector<Tipo> AbreTipos(qint32 idAlu, qint32 grupo, qint32 idEva, qint32 idMat);
std::vector<Tarea> AbreTareas(qint32 idAlu, qint32 idEva, qint32 idTip, qint32 idMat);

// The subjects that have a stored evaluation mark, with their final marks
// NFO and NFE; the means are MediaFinales'.
std::vector<Final> CargaFinales(qint32 idAlu);
// The cells of an evaluation row that the means read: IdMat, "Ptos.", "NOTA".
struct EvalCells {
    QString idMat, ptos, nota;
};
// "Ptos" and "Nota" of each subject: the mean over every evaluation row of
// the subject, marked or not, rounded half to even to two decimals. A
// subject without any row divides 0 by 0.
void MediaFinales(std::vector<Final>& finales, const std::vector<EvalCells>& evals);

// Everything the printed record holds of a student, as the grids show it.
struct Record {
    qint32 id = 0;
    QString nom, grupo, mail;
    struct TipoTareas {
        Tipo tipo;
        std::vector<Tarea> tareas;
    };
    struct Aval {
        Eval eval;
        std::vector<TipoTareas> tipos;
    };
    std::vector<Aval> avals;
    std::vector<Final> finales;
};
// The record of a student computed as the sheet shows it after loading
// (final marks included). Nom is "Ape, Nom", Grupo the group's label.
Record computeRecord(qint32 idAlu);

} // namespace standing
