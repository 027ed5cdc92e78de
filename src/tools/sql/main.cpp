// cadernia-sql: runs one statement of the system's dialect on a year database.
//   cadernia-sql YEAR_DB 'STATEMENT'              rows as tab-separated text, header first
//   cadernia-sql --translate 'STATEMENT'          the SQLite text it runs as
//   cadernia-sql --create YEAR_DB                 a new, empty year of the full schema
//   cadernia-sql --create-print IMPRESION_DB      a new, empty print staging database
#include "db/Connection.h"
#include "db/JetSql.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QTextStream>
#include <QTime>

namespace {

int usage(QTextStream& err)
{
    err << "Uso:\n"
           "  cadernia-sql AÑO.mdb 'INSTRUCCIÓN'\n"
           "  cadernia-sql --translate 'INSTRUCCIÓN'\n"
           "  cadernia-sql --create AÑO.mdb\n"
           "  cadernia-sql --create-print Impresion.mdb\n";
    return 2;
}

// A cell as the screens would show it: numbers with the decimal comma, dates
// as dd/MM/yyyy, Null as nothing. Tabs and line breaks inside become blanks.
QString cell(const QVariant& v)
{
    if (v.isNull())
        return QString();
    QString s;
    switch (v.typeId()) {
    case QMetaType::QDate:
        s = v.toDate().toString(QStringLiteral("dd/MM/yyyy"));
        break;
    case QMetaType::QDateTime:
        s = v.toDateTime().toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
        break;
    case QMetaType::QTime:
        s = v.toTime().toString(QStringLiteral("HH:mm"));
        break;
    default:
        s = vb::CStr(v);
    }
    s.replace(u'\t', u' ').replace(u'\n', u' ').replace(u'\r', u' ');
    return s;
}

bool isQuery(const db::Translation& t)
{
    return t.kind != db::Translation::Kind::Command;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList args = app.arguments().mid(1);
    try {
        if (args.size() == 2 && args[0] == QLatin1String("--translate")) {
            const db::Translation t = db::JetSql::translate(args[1]);
            out << t.sql << '\n';
            return 0;
        }
        if (args.size() == 2 && args[0] == QLatin1String("--create")) {
            db::Schema::CreateYear(args[1]);
            return 0;
        }
        if (args.size() == 2 && args[0] == QLatin1String("--create-print")) {
            db::Schema::CreatePrint(args[1]);
            return 0;
        }
        if (args.size() != 2 || args[0].startsWith(QLatin1String("--")))
            return usage(err);
        auto cn = db::Connection::Open(args[0]);
        if (!isQuery(cn->Translate(args[1]))) {
            const int changed = cn->Execute(args[1]);
            err << changed << " filas afectadas\n";
            return 0;
        }
        db::Recordset rs;
        rs.Open(args[1], cn);
        QStringList header;
        for (int i = 0; i < rs.FieldCount(); ++i)
            header << rs.FieldName(i);
        out << header.join(u'\t') << '\n';
        while (!rs.Eof()) {
            QStringList row;
            for (int i = 0; i < rs.FieldCount(); ++i)
                row << cell(rs.Value(i));
            out << row.join(u'\t') << '\n';
            rs.MoveNext();
        }
        return 0;
    } catch (const RuntimeError& e) {
        out.flush();
        err << "Error " << e.Number() << ": " << e.Description() << '\n';
        return 1;
    }
}
