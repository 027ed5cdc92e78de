// An .alu class list read into tblAlumnos of a year with one group.
//
// The file is read into lines by the import's own reader (students/
// ImportText: UTF-8 or Windows-1252 line by line); the splitting of each
// line into fields is the form's, repeated here as it stands there, and
// fuzzed with what it feeds: a recordset
// of tblAlumnos taking any key, surnames and name, row by row, the first row
// the database refuses ending the import. A RuntimeError is a normal answer.
// Every input runs in a transaction that is rolled back.
#include "FuzzYear.h"
#include "db/Recordset.h"
#include "students/ImportText.h"
#include "vb/RuntimeError.h"

namespace {

// A field's text ends at a NUL character, as in frmComunicacionRecibir.
QString untilNul(const QString& field)
{
    const qsizetype nul = field.indexOf(QChar(0));
    return nul < 0 ? field : field.left(nul);
}

// The 1-based position of `mark` from `start` on; 0 when there is none.
qsizetype position(qsizetype start, const QString& text, QChar mark)
{
    return text.indexOf(mark, start - 1) + 1;
}

// As frmComunicacionRecibir::Actualizar.
void import(const db::ConnectionPtr& cn, const QByteArray& bytes, const QVariant& group)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM tblAlumnos"), cn);
    for (const QString& line : students::importLines(bytes)) {
        const qsizetype p1 = position(1, line, u'#');
        rs.AddNew();
        if (p1 > 1)
            rs.Fields(QStringLiteral("Id")) = untilNul(line.left(p1 - 1));
        const qsizetype p2 = position(p1 + 1, line, u'#');
        if (p2 - p1 - 1 > 0)
            rs.Fields(QStringLiteral("Ape")) = untilNul(line.mid(p1, p2 - p1 - 1));
        const qsizetype p3 = position(p2 + 1, line, u'#');
        if (p3 - p2 - 1 > 0)
            rs.Fields(QStringLiteral("Nom")) = untilNul(line.mid(p2, p3 - p2 - 1));
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
        import(cn, QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)), 1);
    } catch (const RuntimeError&) {
    }
    cn->ExecuteNative(QStringLiteral("ROLLBACK"));
    return 0;
}
