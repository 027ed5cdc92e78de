#include "reports/engine/ReportFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace reports {

namespace {

const char* const kYearReports[] = {
    "Alumnos.rpt",   "AlumnosGrupo.rpt", "FichaAlumnos.rpt",  "NotasFinais.rpt",    "NotasTarea.rpt",
    "NotasAval.rpt", "NotasRec.rpt",     "TutoriaCuadro.rpt", "TutoriaBoletin.rpt",
};
const char* const kStudentRecord = "FichaAlumno.rpt";

bool fail(QString* error, const QString& text)
{
    if (error)
        *error = text;
    return false;
}

QByteArray shipped(const QString& fileName)
{
    QFile f(QStringLiteral(":/reports/") + fileName);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool install(const QString& folder, const QString& fileName, QString* error, bool overwrite)
{
    if (!QFileInfo(folder).isDir() && !QDir().mkpath(folder))
        return fail(error, QStringLiteral("No se pudo crear la carpeta %1.").arg(folder));
    const QString target = folder + u'/' + fileName;
    if (!overwrite && QFileInfo::exists(target))
        return true;
    const QByteArray text = shipped(fileName);
    if (text.isEmpty())
        return fail(error, QStringLiteral("Falta el reporte %1 en el programa.").arg(fileName));
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) < 0 || !out.commit())
        return fail(error, QStringLiteral("No se pudo escribir %1: %2").arg(target, out.errorString()));
    return true;
}

} // namespace

QStringList reportFileNames()
{
    QStringList names;
    for (const char* name : kYearReports)
        names.append(QLatin1String(name));
    names.append(QLatin1String(kStudentRecord));
    return names;
}

QString shippedReportText(const QString& fileName)
{
    return QString::fromUtf8(shipped(fileName));
}

bool installReportFiles(const QString& baseFolder, const QString& programDir, QString* error, bool overwrite)
{
    const QString informes = QDir::cleanPath(baseFolder) + QStringLiteral("/Informes");
    for (const char* name : kYearReports) {
        if (!install(informes, QLatin1String(name), error, overwrite))
            return false;
    }
    return install(QDir::cleanPath(programDir) + QStringLiteral("/Impresion"), QLatin1String(kStudentRecord), error,
                   overwrite);
}

} // namespace reports
