// An .alu class list read into tblAlumnos of a year with one group.
//
// The import screen (frmComunicacionRecibir) keeps its reading inside the
// form: the decoding of the file and the splitting of each line are private
// to it. Until they are a free function of their own, this target repeats
// those few lines as they stand there and fuzzes what they feed: a recordset
// of tblAlumnos taking any key, surnames and name, row by row, the first row
// the database refuses ending the import. A RuntimeError is a normal answer.
// Every input runs in a transaction that is rolled back.
#include "FuzzYear.h"
#include "db/Recordset.h"
#include "vb/RuntimeError.h"

#include <QStringDecoder>
#include <QTextStream>

#include <sqlite3.h>

namespace {

// As frmComunicacionRecibir: UTF-8, or Latin-1 when the bytes are not UTF-8.
QString decode(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes);
    return text;
}

// The 1-based position of `mark` from `start` on; 0 when there is none.
qsizetype position(qsizetype start, const QString& text, QChar mark)
{
    return text.indexOf(mark, start - 1) + 1;
}

// As frmComunicacionRecibir::Actualizar.
void import(const db::ConnectionPtr& cn, QString text, const QVariant& group)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM tblAlumnos"), cn);
    QTextStream lines(&text, QIODevice::ReadOnly);
    while (!lines.atEnd()) {
        const QString line = lines.readLine();
        const qsizetype p1 = position(1, line, u'#');
        rs.AddNew();
        if (p1 > 1)
            rs.Fields(QStringLiteral("Id")) = line.left(p1 - 1);
        const qsizetype p2 = position(p1 + 1, line, u'#');
        if (p2 - p1 - 1 > 0)
            rs.Fields(QStringLiteral("Ape")) = line.mid(p1, p2 - p1 - 1);
        const qsizetype p3 = position(p2 + 1, line, u'#');
        if (p3 - p2 - 1 > 0)
            rs.Fields(QStringLiteral("Nom")) = line.mid(p2, p3 - p2 - 1);
        rs.Fields(QStringLiteral("Grupo")) = group;
        if (p1 <= 1) {
            rs.CancelUpdate();
            throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("clave Null"));
        }
        rs.Update();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static db::ConnectionPtr cn = [] {
        auto c = fuzz::openYear(false);
        c->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (1, 'ESO')"));
        c->Execute(QStringLiteral("INSERT INTO tblCursos (Id, IdNivel, Des) VALUES (1, 1, '1º')"));
        c->Execute(QStringLiteral("INSERT INTO tblGrupos (Id, IdCurso, Des) VALUES (1, 1, 'A')"));
        return c;
    }();
    cn->ExecuteNative(QStringLiteral("BEGIN"));
    try {
        import(cn, decode(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size))), 1);
    } catch (const RuntimeError&) {
    }
    cn->ExecuteNative(QStringLiteral("ROLLBACK"));
    return 0;
}
