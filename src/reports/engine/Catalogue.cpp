#include "reports/engine/Catalogue.h"

namespace reports::catalogue {

namespace {

struct Entry {
    const char* key;
    const char* entry; // "" for the keys of a single report
    const char* file;
};

const Entry kEntries[] = {
    {"Alumnos", "Global", "Alumnos.rpt"},
    {"Alumnos", "Por Grupos", "AlumnosGrupo.rpt"},
    {"Alumnos", "Ficha", "FichaAlumnos.rpt"},
    {"Alumnos", "Notas Finais", "NotasFinais.rpt"},
    {"NotasTarea", "Notas Alumno", "NotasTarea.rpt"},
    {"NotasAval", "", "NotasAval.rpt"},
    {"NotasRec", "", "NotasRec.rpt"},
    {"TutoriaCuadro", "", "TutoriaCuadro.rpt"},
    {"TutoriaBoletin", "", "TutoriaBoletin.rpt"},
    {"FichaAlumno", "", "FichaAlumno.rpt"},
};

const QString kStudentRecordKey = QStringLiteral("FichaAlumno");

} // namespace

QStringList entries(const QString& key)
{
    QStringList list;
    for (const Entry& e : kEntries) {
        if (key == QLatin1String(e.key) && *e.entry)
            list.append(QString::fromUtf8(e.entry));
    }
    return list;
}

QString fileName(const QString& key, const QString& entry)
{
    for (const Entry& e : kEntries) {
        if (key == QLatin1String(e.key) && (!*e.entry || entry == QString::fromUtf8(e.entry)))
            return QString::fromUtf8(e.file);
    }
    return QString();
}

QString filePath(const QString& base, const QString& key, const QString& entry)
{
    const QString file = fileName(key, entry);
    if (key == kStudentRecordKey)
        return QStringLiteral("Impresion/") + file;
    return base + QStringLiteral("/Informes/") + file;
}

bool takesFilter(const QString& entry)
{
    return entry != QLatin1String("Notas Finais");
}

} // namespace reports::catalogue
