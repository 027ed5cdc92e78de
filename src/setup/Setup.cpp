#include "setup/Setup.h"
#include "vb/Clock.h"

#include "core/ProgramFolder.h"
#include "reports/engine/ReportFiles.h"

#include "db/Connection.h"
#include "db/Schema.h"
#include "vb/RuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <functional>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace setup {
namespace {

const char* const kIcons[] = {"Incidencias.gif", "Alerta.gif"};
// A pale blue and a light grey, as Windows colour values (0x00BBGGRR).
constexpr qint64 kDefaultColor = 16445670;
constexpr qint64 kDefaultColor2 = 15790320;

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

QString absoluteClean(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

// Flushes a file or a folder entry to the disk, so that a rename that follows
// cannot outlive the data it names.
void syncToDisk(const QString& path, bool folder)
{
#ifdef Q_OS_UNIX
    const int fd = ::open(QFile::encodeName(path).constData(), folder ? (O_RDONLY | O_DIRECTORY) : O_RDONLY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
#else
    Q_UNUSED(path);
    Q_UNUSED(folder);
#endif
}

void removeScratch(const QString& scratch)
{
    QFile::remove(scratch);
    QFile::remove(scratch + QStringLiteral("-journal"));
}

// Builds a database under a scratch name beside `target` and renames it into
// place only when it is complete: a failure never leaves a partial file under
// the name the program opens.
bool buildDatabase(const QString& target, const std::function<void(const QString&)>& build, QString* error)
{
    const QString scratch = target + QStringLiteral(".nuevo");
    removeScratch(scratch);
    try {
        build(scratch);
    } catch (const RuntimeError& e) {
        removeScratch(scratch);
        return fail(error, QStringLiteral("No se pudo crear %1: %2").arg(target, e.Description()));
    }
    syncToDisk(scratch, false);
    if (!QFile::rename(scratch, target)) {
        removeScratch(scratch);
        return fail(error, QStringLiteral("No se pudo crear %1.").arg(target));
    }
    syncToDisk(QFileInfo(target).absolutePath(), true);
    return true;
}

bool makeFolder(const QString& path, QString* error)
{
    if (QFileInfo(path).isDir() || QDir().mkpath(path))
        return true;
    return fail(error, QStringLiteral("No se pudo crear la carpeta %1.").arg(path));
}

// The icons of the incidents screen, from the program's resources; an icon
// already in place is the user's and stays.
bool installIcons(const QString& folder, QString* error)
{
    for (const char* name : kIcons) {
        const QString target = folder + u'/' + QLatin1String(name);
        if (QFileInfo::exists(target))
            continue;
        QFile source(QStringLiteral(":/setup/ico/") + QLatin1String(name));
        if (!source.open(QIODevice::ReadOnly))
            return fail(error, QStringLiteral("Falta el icono %1 en el programa.").arg(QLatin1String(name)));
        QSaveFile out(target);
        if (!out.open(QIODevice::WriteOnly) || out.write(source.readAll()) < 0 || !out.commit())
            return fail(error, QStringLiteral("No se pudo escribir %1: %2").arg(target, out.errorString()));
    }
    return true;
}

} // namespace

QString schoolYearName(const QDate& date)
{
    const int start = date.month() >= 9 ? date.year() : date.year() - 1;
    return QStringLiteral("%1-%2").arg(start).arg((start + 1) % 100, 2, 10, QLatin1Char('0'));
}

int schoolYearStart(const QString& yearName, const QDate& fallback)
{
    static const QRegularExpression digits(QStringLiteral("(?<!\\d)(\\d{4})(?!\\d)"));
    const QRegularExpressionMatch m = digits.match(yearName);
    if (m.hasMatch())
        return m.captured(1).toInt();
    return fallback.month() >= 9 ? fallback.year() : fallback.year() - 1;
}

QString checkYearName(const QString& name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("El nombre del curso está vacío.");
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return QStringLiteral("\"%1\" no vale como nombre de curso.").arg(name);
    static const QString forbidden = QStringLiteral("\\/:*?\"<>|");
    for (const QChar c : name) {
        if (forbidden.contains(c) || c.unicode() < 32)
            return QStringLiteral("El nombre del curso \"%1\" tiene caracteres no válidos en una carpeta.").arg(name);
    }
    return QString();
}

bool writeConfigLine(const QString& path, const QString& line, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(error, QStringLiteral("No se pudo escribir %1: %2").arg(path, file.errorString()));
    file.write(line.toUtf8() + QByteArrayLiteral("\r\n"));
    if (!file.commit())
        return fail(error, QStringLiteral("No se pudo escribir %1: %2").arg(path, file.errorString()));
    return true;
}

bool setupBase(const SetupOptions& options, QString* error, SetupResult* result)
{
    if (options.baseFolder.trimmed().isEmpty())
        return fail(error, QStringLiteral("Falta la carpeta base."));
    const QDate today = options.today.isValid() ? options.today : vb::Clock::today();
    const QString year = options.yearName.isEmpty() ? schoolYearName(today) : options.yearName;
    if (const QString why = checkYearName(year); !why.isEmpty())
        return fail(error, why);

    SetupResult r;
    r.basePath = absoluteClean(options.baseFolder);
    r.yearName = year;
    const QString programDir =
        absoluteClean(options.programDir.isEmpty() ? core::programFolderFor(QCoreApplication::applicationDirPath())
                                                   : options.programDir);
    const QString yearFolder = r.basePath + u'/' + year;
    r.databasePath = yearFolder + QStringLiteral("/Xestion.mdb");
    r.printPath = programDir + QStringLiteral("/Impresion/Impresion.mdb");
    r.rutaIni = programDir + QStringLiteral("/ruta.ini");
    r.anoIni = programDir + QStringLiteral("/ano.ini");

    // Everything that can refuse is checked before the first write.
    const bool yearExists = QFileInfo::exists(r.databasePath);
    if (yearExists && !options.keepExistingYear)
        return fail(error,
                    QStringLiteral("El curso \"%1\" ya existe: %2\nNo se ha cambiado nada.").arg(year, r.databasePath));
    for (const QString& folder : {r.basePath, yearFolder, programDir}) {
        const QFileInfo fi(folder);
        if (fi.exists() && !fi.isDir())
            return fail(error, QStringLiteral("%1 existe y no es una carpeta.").arg(folder));
    }

    const auto step = [&](int percent, const QString& what) {
        if (options.progress)
            options.progress(percent, what);
    };
    step(0, QStringLiteral("Creando las carpetas"));
    const QString icoFolder = r.basePath + QStringLiteral("/Ico");
    for (const QString& folder : {r.basePath, r.basePath + QStringLiteral("/Informes"), icoFolder, yearFolder,
                                  programDir, programDir + QStringLiteral("/Impresion")}) {
        if (!makeFolder(folder, error))
            return false;
    }
    if (!installIcons(icoFolder, error))
        return false;
    step(10, QStringLiteral("Copiando los informes"));
    if (!reports::installReportFiles(r.basePath, programDir, error))
        return false;

    const int startYear = schoolYearStart(year, today);
    const bool built = yearExists || buildDatabase(
                                         r.databasePath,
                                         [&](const QString& path) {
                                             step(20, QStringLiteral("Creando el curso %1").arg(year));
                                             db::Schema::CreateYear(path);
                                             if (options.demo) {
                                                 step(40, QStringLiteral("Llenando el cuaderno de ejemplo"));
                                                 auto cn = db::Connection::Open(path);
                                                 r.demo = fillDemoYear(cn, startYear, today);
                                                 cn->Close();
                                             }
                                         },
                                         error);
    if (!built)
        return false;

    step(90, QStringLiteral("Preparando la impresión"));
    if (!QFileInfo::exists(r.printPath)) {
        if (!buildDatabase(
                r.printPath, [](const QString& path) { db::Schema::CreatePrint(path); }, error))
            return false;
        r.printCreated = true;
    }

    // Colours of alternate grid rows and focused fields, in the numeric print
    // form the colour screen writes; a teacher's own choice is kept.
    for (const auto& [file, colour] :
         {std::pair{"color.ini", kDefaultColor}, std::pair{"color2.ini", kDefaultColor2}}) {
        const QString path = programDir + u'/' + QLatin1String(file);
        if (!QFileInfo::exists(path) && !writeConfigLine(path, QStringLiteral(" %1 ").arg(colour), error))
            return false;
    }
    // Last, so that the program never points at a year that is not complete.
    if (!writeConfigLine(r.rutaIni, r.basePath, error) || !writeConfigLine(r.anoIni, year, error))
        return false;
    step(100, QStringLiteral("Terminado"));
    if (result)
        *result = r;
    return true;
}

} // namespace setup
