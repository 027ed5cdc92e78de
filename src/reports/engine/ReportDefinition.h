#pragma once
// A report file as written on disk: settings, field formats, the queries and
// the Mustache template of the page body. The format is told in full in
// data/reports/README.md; in short:
//
//     # comment
//     [report]
//     title = RELACIÓN DE ALUMNOS
//     parameters = pEmpresa, pTitulo
//     [fields]
//     FecNac = date
//     [query]
//     SELECT ... FROM ...
//     [where]
//     ...                      optional fixed condition
//     [tail]
//     ORDER BY ...             optional GROUP BY / HAVING / ORDER BY
//     [query materias]         further data sets, read whole
//     SELECT ...
//     [template]
//     <table> {{#rows}} ... {{/rows}} </table>
//
// Sections hold raw text, except [report] and [fields] (key = value lines).
// Everything after [template] belongs to the template.
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace reports {

// How a field's value becomes text in the template.
enum class FieldFormat {
    Auto,    // by the value: numbers with a decimal comma, dates dd/MM/yyyy
    Text,    // as it stands
    Mark,    // two decimals with a comma; <field>_class is "fail" under 5
    Number,  // up to two decimals with a comma
    Decimal, // always two decimals with a comma
    Integer, // whole number
    Date,    // dd/MM/yyyy
    YesNo    // "Sí" or "No"
};

struct NamedQuery {
    QString name;
    QString sql;
};

// A data set hung under each item of another: each parent item gets the
// child rows whose childField equals its parentField.
struct Nesting {
    QString child;  // data set name
    QString parent; // "rows", "groups" or a data set name
    QString parentField;
    QString childField;
};

// One row per distinct value of `rows`, one cell per column.
struct Pivot {
    QString rows;     // field that identifies a row of the cross table
    QString columns;  // field that picks the column
    QString value;    // field shown in the cell
    QString headings; // optional data set listing every column, in order
    bool isSet() const { return !rows.isEmpty(); }
};

struct ReportDefinition {
    QString name; // the file's base name, "Alumnos"

    // [report]
    QString title;    // the title when pTitulo is empty
    QString subtitle; // Mustache line under the title on every page
    QString info;     // Mustache line under the subtitle
    QStringList parameters;
    QString data; // "year", or a database path relative to the current directory
    bool landscape = false;
    QStringList group; // fields whose equal values form one group
    QList<Nesting> nestings;
    Pivot pivot;

    QHash<QString, FieldFormat> formats; // [fields], by lower-case name

    QString query; // SELECT ... FROM ...
    QString where; // fixed condition, may be empty
    QString tail;  // GROUP BY / HAVING / ORDER BY, may be empty
    QList<NamedQuery> queries;

    QString templateText;

    bool readsYear() const { return data.compare(QLatin1String("year"), Qt::CaseInsensitive) == 0; }
    FieldFormat format(const QString& field) const;

    // The main statement with the fixed condition and a selection condition
    // (either may be empty) joined by AND.
    QString statement(const QString& selection) const;

    // Parses the text of a file. Throws RuntimeError (InvalidFile)
    // naming the line when the text is not a report.
    static ReportDefinition parse(const QString& text, const QString& name);
};

} // namespace reports
