#pragma once
// The catalogue of report files: which file a viewer opens for a key and a
// list entry. The files of the year's reports live under <base>/Informes; the
// student record lives under the relative folder Impresion, beside its
// staging database.
//
//     key            entry           file
//     Alumnos        Global          Informes/Alumnos.rpt
//     Alumnos        Por Grupos      Informes/AlumnosGrupo.rpt
//     Alumnos        Ficha           Informes/FichaAlumnos.rpt
//     Alumnos        Notas Finais    Informes/NotasFinais.rpt
//     NotasTarea     Notas Alumno    Informes/NotasTarea.rpt
//     NotasAval                      Informes/NotasAval.rpt
//     NotasRec                       Informes/NotasRec.rpt
//     TutoriaCuadro                  Informes/TutoriaCuadro.rpt
//     TutoriaBoletin                 Informes/TutoriaBoletin.rpt
//     FichaAlumno                    Impresion/FichaAlumno.rpt (current directory)
#include <QString>
#include <QStringList>

namespace reports::catalogue {

// The list entries of frmInforme for a key; none for the other keys.
QStringList entries(const QString& key);

// The file name, "AlumnosGrupo.rpt"; "" for an unknown key or entry.
QString fileName(const QString& key, const QString& entry = QString());

// The full path under `base` (gRutaBase), or "Impresion/FichaAlumno.rpt".
QString filePath(const QString& base, const QString& key, const QString& entry = QString());

// "Notas Finais" lists every final mark whatever filter the list screen had.
bool takesFilter(const QString& entry);

// The title the screens give the final marks report.
inline QString finalMarksTitle()
{
    return QStringLiteral("INFORME DE NOTAS FINAIS");
}

} // namespace reports::catalogue
