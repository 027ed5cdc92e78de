// The writer that test_reliability kills. It opens a year and writes marks
// into tblNotas one statement at a time through Connection::Execute, and
// prints a line for each statement only after Execute has returned:
//
//   M <key>     the INSERT of the mark with that key was acknowledged
//   G <n>       the UPDATE that moved every mark to generation n was acknowledged
//
// Modes: "marks" inserts only; "generations" also moves every mark, each
// eighth statement, to the next generation (IdAlu), so that a statement cut
// in half would show as marks of two generations.
//
// It runs until it is killed (or for a minute, as a safety net).
#include "db/Connection.h"
#include "db/Recordset.h"
#include "vb/RuntimeError.h"

#include <QElapsedTimer>

#include <cstdio>

namespace {

qint64 largest(const db::ConnectionPtr& cn, const QString& sql)
{
    db::Recordset rs;
    rs.Open(sql, cn);
    const QVariant v = rs.Value(0);
    return v.isNull() ? 0 : v.toLongLong();
}

void acknowledge(char what, qint64 n)
{
    std::printf("%c %lld\n", what, static_cast<long long>(n));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 || (qstrcmp(argv[2], "marks") != 0 && qstrcmp(argv[2], "generations") != 0)) {
        std::fprintf(stderr, "usage: %s YEAR_FILE marks|generations\n", argv[0]);
        return 2;
    }
    const bool generations = qstrcmp(argv[2], "generations") == 0;
    try {
        auto cn = db::Connection::Open(QString::fromLocal8Bit(argv[1]));
        qint64 key = largest(cn, QStringLiteral("SELECT MAX(Id) FROM tblNotas")) + 1;
        qint64 generation = largest(cn, QStringLiteral("SELECT MAX(IdAlu) FROM tblNotas"));
        QElapsedTimer clock;
        clock.start();
        for (int statement = 1; clock.elapsed() < 60000; ++statement) {
            if (generations && statement % 8 == 0) {
                cn->Execute(QStringLiteral("UPDATE tblNotas SET IdAlu = %1").arg(generation + 1));
                acknowledge('G', ++generation);
            } else {
                cn->Execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) "
                                           "VALUES (%1, %2, %3, 7.5, 'Marca %1')")
                                .arg(key)
                                .arg(statement)
                                .arg(generation));
                acknowledge('M', key++);
            }
        }
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "Error %d: %s\n", e.Number(), e.Description().toUtf8().constData());
        return 1;
    }
    return 0;
}
