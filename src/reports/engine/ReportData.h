#pragma once
// The data of one run of a report: its data sets read from the database,
// shaped (groups, nested sets, cross table) and formatted as the template
// sees them, and the Mustache rendering over them.
//
// What a template can name is told in data/reports/README.md.
#include "db/Connection.h"
#include "reports/engine/ReportDefinition.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace reports {

class ReportData {
public:
    // Reads every data set of `def` through `cn`; the main one is restricted
    // by `selection`, a condition of the dialect (may be empty). Failing
    // statements throw the data engine's RuntimeError.
    ReportData(const ReportDefinition& def, const db::ConnectionPtr& cn, const QString& selection,
               const QHash<QString, QString>& parameters, const QString& title, const QDate& printed);
    ~ReportData();
    ReportData(const ReportData&) = delete;
    ReportData& operator=(const ReportData&) = delete;

    // Renders a Mustache text over the data. A text that does not parse
    // throws RuntimeError (InvalidFile).
    QString render(const QString& mustache) const;

    // Rows of the main data set (after the cross table, its rows).
    int rowCount() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// A value as the template shows it. Numbers take a decimal comma; texts that
// hold a number written with a point (the staging tables keep the grids' text
// that way) count as that number.
QString formatField(const QVariant& value, FieldFormat format);

// The number of a mark field: a number, or a text holding one; nothing for
// Null, empty or other text.
std::optional<double> markValue(const QVariant& value);

// "fail" for a mark under 5 as shown (two decimals), "pass" from 5 on, ""
// when the value is not a mark.
QString markClass(const QVariant& value);

} // namespace reports
