// cadernia-report BASE YEAR KEY [options] OUT.pdf
//
// Renders a report of the catalogue to a PDF file, as the viewers would show
// it, without opening any window. BASE is the base folder (what ruta.ini
// holds), YEAR the year's folder under it; the student record (KEY
// FichaAlumno) reads Impresion/Impresion.mdb under the current directory.
// With --student ID, or --group ID for every student of a group, the record
// of each student is staged there in turn, as the student sheet computes
// it, and all of them go into the one PDF file.
#include "core/Modulo.h"
#include "core/RuntimeFolder.h"
#include "db/Recordset.h"
#include "reports/engine/Catalogue.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportErrors.h"
#include "reports/engine/ReportSeams.h"
#include "students/PrintStaging.h"
#include "vb/Clock.h"
#include "vb/RuntimeError.h"

#include <QCommandLineParser>
#include <QDate>
#include <QDir>
#include <QGuiApplication>

#include <cstdio>

namespace {

int usage(const QString& why)
{
    std::fprintf(stderr, "cadernia-report: %s\n", qPrintable(why));
    std::fprintf(stderr,
                 "uso: cadernia-report BASE CURSO CLAVE [--entry ENTRADA] [--title TITULO] [--info INFO]\n"
                 "                     [--filter FORMULA] [--param nombre=valor ...] [--date dd/MM/aaaa] SALIDA.pdf\n"
                 "       cadernia-report BASE CURSO FichaAlumno (--student ID | --group ID) SALIDA.pdf\n"
                 "claves: Alumnos (entradas \"Global\", \"Por Grupos\", \"Ficha\", \"Notas Finais\"),\n"
                 "        NotasTarea, NotasAval, NotasRec, TutoriaCuadro, TutoriaBoletin, FichaAlumno\n");
    return 1;
}

// The students whose records print: one, or every student of a group in
// the order of the student list.
QList<qint32> alumnos(const QString& student, const QString& group)
{
    if (!student.isEmpty())
        return {student.toInt()};
    QList<qint32> ids;
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Id FROM tblAlumnos WHERE Grupo = %1 ORDER BY Ape, Nom").arg(group.toInt()),
            gConexion);
    for (; !rs.Eof(); rs.MoveNext())
        ids << rs.Value(QStringLiteral("Id")).toInt();
    return ids;
}

// Stages and renders the record of each student, then writes them all.
int printRecords(const QString& path, const QList<qint32>& ids, bool several, const QString& out)
{
    std::vector<std::shared_ptr<reports::ReportDocument>> documents;
    for (qint32 id : ids) {
        const standing::Record record = standing::computeRecord(id);
        if (record.avals.empty()) {
            // As the sheet refuses it.
            std::fprintf(stderr, "cadernia-report: %s (%s)\n", "Non hai datos de avaliacións", qPrintable(record.nom));
            if (!several)
                return 2;
            continue;
        }
        staging::stage(record);
        auto report = reports::Report::open(path);
        report->setParameter(QStringLiteral("pEmpresa"), mainWindowCaption());
        documents.push_back(report->render());
    }
    if (documents.empty()) {
        std::fprintf(stderr, "cadernia-report: ningún alumno con notas\n");
        return 2;
    }
    QVector<const reports::ReportDocument*> pages;
    int count = 0;
    for (const auto& d : documents) {
        pages << d.get();
        count += d->pageCount();
    }
    reports::ReportDocument::writePdf(pages, out);
    std::printf("%s: %d %s, %d %s\n", qPrintable(out), int(documents.size()),
                documents.size() == 1 ? "alumno" : "alumnos", count, count == 1 ? "página" : "páginas");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // No window is ever shown: the layout needs fonts, not a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ensureRuntimeFolder();
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("cadernia-report"));

    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("BASE"), QStringLiteral("carpeta base"));
    parser.addPositionalArgument(QStringLiteral("CURSO"), QStringLiteral("carpeta del curso"));
    parser.addPositionalArgument(QStringLiteral("CLAVE"), QStringLiteral("informe del catálogo"));
    parser.addPositionalArgument(QStringLiteral("SALIDA"), QStringLiteral("archivo PDF"));
    const QCommandLineOption entryOpt(QStringLiteral("entry"), QStringLiteral("entrada de la lista"),
                                      QStringLiteral("ENTRADA"));
    const QCommandLineOption titleOpt(QStringLiteral("title"), QStringLiteral("título (pTitulo)"),
                                      QStringLiteral("TITULO"));
    const QCommandLineOption infoOpt(QStringLiteral("info"), QStringLiteral("línea de información (pInfo)"),
                                     QStringLiteral("INFO"));
    const QCommandLineOption filterOpt(QStringLiteral("filter"), QStringLiteral("fórmula de selección"),
                                       QStringLiteral("FORMULA"));
    const QCommandLineOption paramOpt(QStringLiteral("param"), QStringLiteral("parámetro nombre=valor"),
                                      QStringLiteral("P"));
    const QCommandLineOption dateOpt(QStringLiteral("date"), QStringLiteral("fecha impresa"), QStringLiteral("FECHA"));
    const QCommandLineOption studentOpt(QStringLiteral("student"), QStringLiteral("ficha de un alumno"),
                                        QStringLiteral("ID"));
    const QCommandLineOption groupOpt(QStringLiteral("group"), QStringLiteral("fichas de un grupo"),
                                      QStringLiteral("ID"));
    parser.addOptions({entryOpt, titleOpt, infoOpt, filterOpt, paramOpt, dateOpt, studentOpt, groupOpt});
    parser.addHelpOption();
    parser.process(app);

    const QStringList args = parser.positionalArguments();
    if (args.size() != 4)
        return usage(QStringLiteral("se esperan BASE, CURSO, CLAVE y SALIDA.pdf"));
    const QString key = args[2];
    const QString out = args[3];

    gRutaBase = QDir::cleanPath(args[0]);
    gAno = args[1];
    gRutaBD = gRutaBase + u'/' + gAno + QStringLiteral("/Xestion.mdb");
    gRutaInformes = gRutaBase + QStringLiteral("/Informes");

    const QStringList entries = reports::catalogue::entries(key);
    const QString entry = parser.isSet(entryOpt) ? parser.value(entryOpt) : entries.value(0);
    if (reports::catalogue::fileName(key, entry).isEmpty())
        return usage(QStringLiteral("no hay informe \"%1\"%2 en el catálogo")
                         .arg(key, entry.isEmpty() ? QString() : QStringLiteral(" / \"%1\"").arg(entry)));

    if (parser.isSet(dateOpt)) {
        QDate date = QDate::fromString(parser.value(dateOpt), QStringLiteral("dd/MM/yyyy"));
        if (!date.isValid())
            date = QDate::fromString(parser.value(dateOpt), Qt::ISODate);
        if (!date.isValid())
            return usage(QStringLiteral("fecha no válida: %1").arg(parser.value(dateOpt)));
        vb::Clock::setFixed(QDateTime(date, QTime(12, 0)));
    }

    const bool records = parser.isSet(studentOpt) || parser.isSet(groupOpt);
    if (records && key != QLatin1String("FichaAlumno"))
        return usage(QStringLiteral("--student y --group son del informe FichaAlumno"));
    if (parser.isSet(studentOpt) && parser.isSet(groupOpt))
        return usage(QStringLiteral("--student o --group, no los dos"));

    try {
        if (records) {
            gConexion = db::Connection::Open(gRutaBD);
            const QList<qint32> ids = alumnos(parser.value(studentOpt), parser.value(groupOpt));
            const int rc =
                printRecords(reports::catalogue::filePath(gRutaBase, key, entry), ids, parser.isSet(groupOpt), out);
            gConexion.reset();
            return rc;
        }
        auto report = reports::Report::open(reports::catalogue::filePath(gRutaBase, key, entry));
        report->setParameter(QStringLiteral("pEmpresa"), mainWindowCaption());
        if (entry == QLatin1String("Notas Finais"))
            report->setParameter(QStringLiteral("pTitulo"), reports::catalogue::finalMarksTitle());
        if (parser.isSet(titleOpt))
            report->setParameter(QStringLiteral("pTitulo"), parser.value(titleOpt));
        if (parser.isSet(infoOpt))
            report->setParameter(QStringLiteral("pInfo"), parser.value(infoOpt));
        for (const QString& p : parser.values(paramOpt)) {
            const int eq = p.indexOf(u'=');
            if (eq <= 0)
                return usage(QStringLiteral("parámetro sin \"=\": %1").arg(p));
            report->setParameter(p.left(eq).trimmed(), p.mid(eq + 1));
        }
        if (report->readsYear())
            report->setLocation(gRutaBD);
        const QString filter = parser.value(filterOpt);
        if (!filter.isEmpty() && filter != QLatin1String("Sin Filtro") && reports::catalogue::takesFilter(entry))
            report->setSelectionFormula(filter);
        const auto document = report->render();
        document->writePdf(out);
        std::printf("%s: %d %s\n", qPrintable(out), document->pageCount(),
                    document->pageCount() == 1 ? "página" : "páginas");
    } catch (const RuntimeError& e) {
        const QString text = e.Number() == reports::FileNotFound
                                 ? reports::missingFileText() + QStringLiteral(" (") + e.Description() + u')'
                                 : e.Description();
        std::fprintf(stderr, "cadernia-report: %s\n", qPrintable(text));
        return 2;
    }
    return 0;
}
