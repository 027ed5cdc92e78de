#include "reports/engine/Report.h"
#include "vb/Clock.h"

#include "db/Connection.h"
#include "reports/engine/ReportData.h"
#include "reports/engine/ReportSeams.h"
#include "reports/engine/SelectionFormula.h"
#include "vb/RuntimeError.h"

#include <QFile>
#include <QFileInfo>

namespace reports {

namespace {

// Declared type of a column holds text: decides whether a + between two
// fields of a formula joins texts.
bool isTextColumn(const db::ConnectionPtr& cn, const QString& table, const QString& column)
{
    const db::TableDecl* decl = cn->tableDecl(table);
    const db::ColumnDecl* col = decl ? decl->column(column) : nullptr;
    return col && col->type == db::ColumnType::Text;
}

} // namespace

std::unique_ptr<Report> Report::open(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw RuntimeError(FileNotFound, QStringLiteral("No se encuentra el archivo de reporte %1").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(
            FileNotFound,
            QStringLiteral("No se puede abrir el archivo de reporte %1: %2").arg(path, file.errorString()));
    return fromText(QString::fromUtf8(file.readAll()), path);
}

std::unique_ptr<Report> Report::fromText(const QString& text, const QString& path)
{
    std::unique_ptr<Report> report(new Report);
    report->path_ = path;
    report->def_ = ReportDefinition::parse(text, QFileInfo(path).completeBaseName());
    return report;
}

void Report::setParameter(const QString& name, const QString& value)
{
    for (const QString& p : def_.parameters) {
        if (p.compare(name, Qt::CaseInsensitive) == 0) {
            parameters_.insert(p, value);
            return;
        }
    }
}

QString Report::dataPath() const
{
    if (readsYear())
        return location_;
    return def_.data;
}

std::shared_ptr<ReportDocument> Report::render() const
{
    const QString data = dataPath();
    if (data.isEmpty())
        throw RuntimeError(NoDataLocation,
                           QStringLiteral("No se ha indicado la base de datos del reporte %1").arg(def_.name));
    const db::ConnectionPtr cn = db::Connection::Open(data);

    QString condition;
    if (!formula_.trimmed().isEmpty()) {
        condition = translateSelectionFormula(
            formula_, [&cn](const QString& t, const QString& c) { return isTextColumn(cn, t, c); });
    }
    const QString title = parameters_.value(QStringLiteral("pTitulo")).trimmed().isEmpty()
                              ? def_.title
                              : parameters_.value(QStringLiteral("pTitulo"));
    const QDateTime now = vb::Clock::now();
    const ReportData reportData(def_, cn, condition, parameters_, title, now.date());

    PageHeader header;
    header.empresa = parameters_.value(QStringLiteral("pEmpresa"));
    header.title = title;
    header.subtitle = reportData.render(def_.subtitle).trimmed();
    header.info = reportData.render(def_.info).trimmed();
    header.date = now.date().toString(QStringLiteral("dd/MM/yyyy"));
    const QString body = reportData.render(def_.templateText);
    cn->Close();
    return std::make_shared<ReportDocument>(def_.name, body, header, def_.landscape);
}

} // namespace reports
