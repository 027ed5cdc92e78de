#include "support/ReportFixture.h"
#include "vb/Clock.h"

#include "core/Modulo.h"
#include "db/Connection.h"
#include "db/Schema.h"
#include "reports/engine/ReportFiles.h"
#include "reports/engine/ReportSeams.h"
#include "support/TempYear.h"

#include <QDateTime>

namespace {

// The student record as the student sheet stages it: texts of the grids,
// decimals with a point.
const char* const kStaging = R"SQL(
INSERT INTO tblFichaAlumno (Id, Nom, Grupo, Mail) VALUES (1, 'García López, Ana', '5º Primaria A', 'ana.garcia@example.com');
INSERT INTO tblFichaAval (Id, IdAval, DesAval, IdMat, DesMat, Ptos, Nota) VALUES (1, 1, '1ª Evaluación', 1, 'Lengua', '7.92', '7.00');
INSERT INTO tblFichaAval (Id, IdAval, DesAval, IdMat, DesMat, Ptos, Nota) VALUES (2, 2, '2ª Evaluación', 1, 'Lengua', '8.00', '8.50');
INSERT INTO tblFichaTareas (Id, IdAval, IdFila, IdTipo, DesTipo, NM, Valor, Ptos) VALUES (1, 1, 1, 1, 'Examen', '7.5', '60', '4.5');
INSERT INTO tblFichaTareas (Id, IdAval, IdFila, IdTipo, DesTipo, NM, Valor, Ptos) VALUES (2, 1, 1, 2, 'Deberes', '4.75', '30', '1.43');
INSERT INTO tblFichaTareas (Id, IdAval, IdFila, IdTipo, DesTipo, NM, Valor, Ptos) VALUES (3, 1, 1, 3, 'Proyecto', '8.5', '10', '0.85');
INSERT INTO tblFichaTareas (Id, IdAval, IdFila, IdTipo, DesTipo, NM, Valor, Ptos) VALUES (4, 2, 2, 1, 'Examen', '8', '100', '8');
INSERT INTO tblFichaTareasDetalle (IdTarea, DesTarea, Nota, Obs) VALUES (1, 'Examen tema 1', '7.5', 'Buen trabajo');
INSERT INTO tblFichaTareasDetalle (IdTarea, DesTarea, Nota, Obs) VALUES (2, 'Deberes tema 1', '4.75', '');
INSERT INTO tblFichaTareasDetalle (IdTarea, DesTarea, Nota, Obs) VALUES (3, 'Proyecto huerto', '85', 'Muy completo');
INSERT INTO tblFichaTareasDetalle (IdTarea, DesTarea, Nota, Obs) VALUES (4, 'Examen tema 3', '8', '');
INSERT INTO tblFichaNF (IdAlu, Mat, Ptos, NM, NFO, NFE) VALUES (1, 'Lengua', '7.96', '7.75', '8', '');
)SQL";

// The next year: one group, two students, other marks.
const char* const kSecondYear = R"SQL(
INSERT INTO tblNiveles (Id, Des) VALUES (1, 'ESO');
INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (1, '3º', 1);
INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (1, 'D', 1, 1);
INSERT INTO tblMaterias (Id, Des, Obs) VALUES (1, 'Física', NULL);
INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo, AV) VALUES (1, 'Otero Vidal', 'Martiño', 1, 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo, AV) VALUES (2, 'Lema Pazos', 'Noa', 1, 0);
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (1, 1, 1, 6, NULL, NULL);
)SQL";

void makeYear(const QString& path, const QString& sql)
{
    QDir().mkpath(QFileInfo(path).path());
    db::Schema::CreateYear(path);
    auto cn = db::Connection::Open(path);
    cn->ExecuteNative(QStringLiteral("BEGIN;") + sql + QStringLiteral("\nCOMMIT;"));
    cn->Close();
}

} // namespace

ReportFixture::ReportFixture()
{
    QString error;
    if (!reports::installReportFiles(base(), program(), &error))
        qFatal("installReportFiles: %s", qPrintable(error));
    makeYear(yearPath(firstYear()), TempYear::seedSql());
    makeYear(yearPath(secondYear()), QString::fromUtf8(kSecondYear));

    const QString staging = program() + QStringLiteral("/Impresion/Impresion.mdb");
    db::Schema::CreatePrint(staging);
    auto cn = db::Connection::Open(staging);
    cn->ExecuteNative(QString::fromUtf8(kStaging));
    cn->Close();

    SetRutaPrograma(program());
    gRutaBase = base();
    switchYear(firstYear());
    previousDir_ = QDir::currentPath();
    QDir::setCurrent(program());
    vb::Clock::setFixed(QDateTime(QDate(2025, 3, 5), QTime(10, 30, 15)));
}

ReportFixture::~ReportFixture()
{
    QDir::setCurrent(previousDir_);
    vb::Clock::reset();
    gConexion.reset();
}

void ReportFixture::switchYear(const QString& year)
{
    gAno = year;
    gRutaBD = yearPath(year);
    gRutaInformes = base() + QStringLiteral("/Informes");
    gConexion = db::Connection::Open(gRutaBD);
}
