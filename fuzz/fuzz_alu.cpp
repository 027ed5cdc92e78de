// An .alu class list read into tblAlumnos of a year with one group.
//
// Through the import's own code (students/ImportText): the file read line by
// line as UTF-8 or Windows-1252, each line split into key, surnames and name
// and written through a recordset of tblAlumnos, the first row the database
// refuses ending the import. A RuntimeError is a normal answer.
// Every input runs in a transaction that is rolled back.
#include "FuzzYear.h"
#include "db/Recordset.h"
#include "students/ImportText.h"
#include "vb/RuntimeError.h"

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
        db::Recordset alumnos;
        alumnos.Open(QStringLiteral("SELECT * FROM tblAlumnos"), cn);
        students::importStudents(
            alumnos, students::importLines(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size))), 1);
    } catch (const RuntimeError&) {
    }
    cn->ExecuteNative(QStringLiteral("ROLLBACK"));
    return 0;
}
