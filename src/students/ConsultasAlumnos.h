#pragma once
// The pieces of statement that the student screens share: the group of a
// student as one text, and the joins that bring it. The joins are LEFT
// JOINs, so a student whose group is gone still shows, with a blank group.
#include <QString>

namespace studentlist {

// "<course> <level> <group>", as every screen that shows a group shows it.
inline const QString kGroupText =
    QStringLiteral("[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des]");

inline const QString kFromStudents =
    QStringLiteral(" FROM ((tblAlumnos LEFT JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id) LEFT JOIN tblCursos "
                   "ON tblGrupos.IdCurso = tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id");

inline const QString kOrderByName = QStringLiteral(" ORDER BY tblAlumnos.Ape, tblAlumnos.Nom;");

// "<expression> LIKE '%<text>%'". The text goes in as typed: an apostrophe
// breaks the statement.
inline QString contains(const QString& expression, const QString& text)
{
    return expression + QStringLiteral(" LIKE '%") + text + QStringLiteral("%'");
}

} // namespace studentlist
