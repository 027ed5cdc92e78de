#pragma once
// The report engine: a report file opened, its parameters given by name, the
// location of its data, a selection formula, and the laid out document.
//
//     auto report = reports::Report::open(gRutaBase + "/Informes/Alumnos.rpt");
//     report->setParameter("pEmpresa", caption);       // unknown names are ignored
//     report->setLocation(gRutaBD);                     // every time: the year may have changed
//     report->setSelectionFormula("{tblAlumnos.Grupo} = 1");
//     std::shared_ptr<reports::ReportDocument> doc = report->render();
//     doc->writePdf(path);
//
// Failures are RuntimeErrors: the missing file has the number FileNotFound
// (ReportErrors.h); the data engine's own failures keep theirs.
#include "reports/engine/ReportDefinition.h"
#include "reports/engine/ReportDocument.h"
#include "reports/engine/ReportErrors.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>

namespace reports {

class Report {
public:
    static std::unique_ptr<Report> open(const QString& path);
    // A report from its text, as if read from `path` (for tests and tools).
    static std::unique_ptr<Report> fromText(const QString& text, const QString& path);

    const QString& path() const { return path_; }
    const QString& name() const { return def_.name; }
    const ReportDefinition& definition() const { return def_; }

    // The report's parameter fields, in the file's order.
    const QStringList& parameterNames() const { return def_.parameters; }
    // Sets a parameter field by name; a name the report does not have is ignored.
    void setParameter(const QString& name, const QString& value);
    QString parameter(const QString& name) const { return parameters_.value(name); }

    // Whether the report reads the year's database (set by setLocation) or
    // its own database, named in the file relative to the current directory.
    bool readsYear() const { return def_.readsYear(); }
    void setLocation(const QString& databasePath) { location_ = databasePath; }
    const QString& location() const { return location_; }

    // A record selection formula in the screens' syntax; "" for none.
    void setSelectionFormula(const QString& formula) { formula_ = formula; }
    const QString& selectionFormula() const { return formula_; }

    // The database the report reads now.
    QString dataPath() const;
    // Reads the data and lays the report out.
    std::shared_ptr<ReportDocument> render() const;

private:
    Report() = default;

    QString path_;
    ReportDefinition def_;
    QHash<QString, QString> parameters_;
    QString location_;
    QString formula_;
};

} // namespace reports
