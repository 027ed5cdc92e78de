// cadernia-setup: installs a base folder and its first school year.
//   cadernia-setup BASE_FOLDER [--demo] [--year NAME] [--program-dir DIR] [--date YYYY-MM-DD]
#include "setup/Setup.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

int usage(QTextStream& err)
{
    err << "Uso: cadernia-setup CARPETA_BASE [--demo] [--year NOMBRE] [--program-dir CARPETA] [--date AAAA-MM-DD]\n"
           "  Crea la carpeta base (Informes, Ico), el primer curso con un Xestion.mdb vacío,\n"
           "  Impresion/Impresion.mdb y los archivos ruta.ini y ano.ini junto al programa.\n"
           "  --demo          llena el curso con un cuaderno de ejemplo\n"
           "  --year NOMBRE   nombre del curso (por omisión el curso escolar actual, p. ej. 2026-27)\n"
           "  --program-dir   carpeta del programa (por omisión la de cadernia-setup o, instalado,\n"
           "                  ~/.local/share/cadernia)\n"
           "  --date          fecha de referencia en lugar de la de hoy\n";
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    setup::SetupOptions options;
    const QStringList args = app.arguments().mid(1);
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        const bool hasValue = i + 1 < args.size();
        if (a == QLatin1String("--demo")) {
            options.demo = true;
        } else if (a == QLatin1String("--year") && hasValue) {
            options.yearName = args[++i];
        } else if (a == QLatin1String("--program-dir") && hasValue) {
            options.programDir = args[++i];
        } else if (a == QLatin1String("--date") && hasValue) {
            options.today = QDate::fromString(args[++i], Qt::ISODate);
            if (!options.today.isValid()) {
                err << "Fecha no válida: " << args[i] << '\n';
                return 2;
            }
        } else if (a.startsWith(QLatin1String("-")) || !options.baseFolder.isEmpty()) {
            return usage(err);
        } else {
            options.baseFolder = a;
        }
    }
    if (options.baseFolder.isEmpty())
        return usage(err);

    QString error;
    setup::SetupResult r;
    if (!setup::setupBase(options, &error, &r)) {
        err << error << '\n';
        return 1;
    }
    out << "Carpeta base: " << r.basePath << '\n';
    out << "Curso " << r.yearName << ": " << r.databasePath << '\n';
    if (options.demo)
        out << "Datos de ejemplo: " << r.demo.groups << " grupos, " << r.demo.students << " alumnos, "
            << r.demo.subjects << " materias, " << r.demo.tasks << " tareas, " << r.demo.marks << " notas.\n";
    out << "Impresion: " << r.printPath << (r.printCreated ? "" : " (ya existía)") << '\n';
    out << "Configuración: " << r.rutaIni << ", " << r.anoIni << '\n';
    return 0;
}
