#include "db/Schema.h"

#include "db/Connection.h"
#include "vb/RuntimeError.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace db::Schema {

// The indexes serve the lookups of the screens (the marks of a student, of a
// task, the students of a group); the engine needs none of them.
// Declared types carry what the program reads back: BOOLEAN as bool, FLOAT
// (single precision) as float, DOUBLE as double, DATE and DATETIME as dates,
// VARCHAR(n) with the length of the entry field.
QString YearDdl()
{
    return QStringLiteral(R"SQL(
CREATE TABLE tblNiveles (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50));
CREATE TABLE tblCursos (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50),
  IdNivel INTEGER);
CREATE TABLE tblGrupos (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50),
  IdCurso INTEGER,
  Tit BOOLEAN DEFAULT 0);
CREATE TABLE tblEvaluaciones (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50),
  Fec DATE,
  Obs VARCHAR(250));
CREATE TABLE tblMaterias (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(80),
  Obs VARCHAR(250));
CREATE TABLE tblTareasTipos (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50),
  Min SMALLINT,
  Max SMALLINT,
  Val DOUBLE,
  Obs VARCHAR(250));
CREATE TABLE tblTareasTiposValor (
  Id INTEGER PRIMARY KEY,
  IdTareaTip INTEGER,
  IdEval INTEGER,
  IdMat INTEGER,
  IdGrupo INTEGER,
  Valor INTEGER);
CREATE TABLE tblAlumnos (
  Id INTEGER PRIMARY KEY,
  Ape VARCHAR(100),
  Nom VARCHAR(80),
  FecNac DATE,
  FecMat DATE,
  Dir VARCHAR(100),
  CP VARCHAR(6),
  Pob VARCHAR(80),
  Pro VARCHAR(80),
  Pais VARCHAR(80),
  Pai VARCHAR(100),
  TelPai VARCHAR(20),
  MailPai VARCHAR(100),
  Nai VARCHAR(100),
  TelNai VARCHAR(20),
  MailNai VARCHAR(100),
  MailAlu VARCHAR(100),
  Obs VARCHAR(250),
  Grupo INTEGER,
  Foto TEXT,
  AV SMALLINT DEFAULT 0);
CREATE TABLE tblTareas (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(50),
  IdTip INTEGER,
  IdEva INTEGER,
  IdMat INTEGER,
  IdGru INTEGER,
  FecIni DATE,
  FecFin DATE,
  Obs VARCHAR(250),
  Nota BOOLEAN DEFAULT 0,
  Fin BOOLEAN DEFAULT 0);
CREATE TABLE tblNotas (
  Id INTEGER PRIMARY KEY,
  IdTarea INTEGER,
  IdAlu INTEGER,
  Nota FLOAT,
  Obs VARCHAR(250));
CREATE TABLE tblNotasEval (
  Id INTEGER PRIMARY KEY,
  IdEval INTEGER,
  IdMat INTEGER,
  IdAlu INTEGER,
  Nota FLOAT,
  Obs VARCHAR(250),
  Recuperar BOOLEAN DEFAULT 0,
  NotaRec FLOAT,
  Recuperado BOOLEAN DEFAULT 0,
  ObsRec VARCHAR(250));
CREATE TABLE tblNotasFinal (
  Id INTEGER PRIMARY KEY,
  IdMat INTEGER,
  IdAlu INTEGER,
  NotaO FLOAT,
  NotaE FLOAT,
  Obs VARCHAR(250));
CREATE TABLE tblTareasRubrica (
  Id INTEGER PRIMARY KEY,
  IdTarea INTEGER,
  Num VARCHAR(5),
  Des VARCHAR(255),
  Cri VARCHAR(255),
  Por FLOAT,
  Max TINYINT);
CREATE TABLE tblNotasRubrica (
  Id INTEGER PRIMARY KEY,
  IdNota INTEGER,
  IdActividad INTEGER,
  Valor TINYINT,
  Max TINYINT);
CREATE TABLE tblTareasRubricaValoracion (
  Id INTEGER PRIMARY KEY,
  IdTarea INTEGER,
  IdAlu INTEGER,
  Valor DOUBLE,
  Obs VARCHAR(250));
CREATE TABLE tblIncidencias (
  Id INTEGER PRIMARY KEY,
  IdAlu INTEGER,
  Asunto VARCHAR(100),
  Fec DATE,
  Hechos TEXT,
  Resolucion TEXT,
  Listo BOOLEAN DEFAULT 0);
CREATE TABLE tblDiarioClase (
  Id INTEGER PRIMARY KEY,
  Dia DATE,
  IdGrupo INTEGER,
  IdMat INTEGER,
  Des VARCHAR(255),
  Listo INTEGER DEFAULT 0);
CREATE TABLE tblHorarioDias (
  Id INTEGER PRIMARY KEY,
  Des VARCHAR(30),
  Orden INTEGER);
CREATE TABLE tblHorarioHoras (
  Id INTEGER PRIMARY KEY,
  Ini DATETIME,
  Fin DATETIME,
  Orden INTEGER);
CREATE TABLE tblHorarioSesiones (
  Id INTEGER PRIMARY KEY,
  OrdenDia INTEGER,
  OrdenHora INTEGER,
  IdMat INTEGER,
  IdGru INTEGER,
  Des VARCHAR(30),
  Color INTEGER);
CREATE TABLE tblTutoriaCitas (
  Id INTEGER PRIMARY KEY,
  IdAlu INTEGER,
  Fec DATETIME,
  Des VARCHAR(200),
  Asu TEXT,
  Res TEXT,
  Listo BOOLEAN DEFAULT 0,
  Proceso BOOLEAN DEFAULT 0);
CREATE TABLE tblTutoriaMaterias (
  Id INTEGER PRIMARY KEY,
  Cod VARCHAR(10),
  Des VARCHAR(100),
  Prof VARCHAR(100),
  Obs VARCHAR(255));
CREATE TABLE tblTutoriaNotas (
  Id INTEGER PRIMARY KEY,
  IdAlu INTEGER,
  IdEval INTEGER,
  IdMat INTEGER,
  Nota DOUBLE);
CREATE INDEX ixNotasTarea ON tblNotas (IdTarea);
CREATE INDEX ixNotasAlumno ON tblNotas (IdAlu);
CREATE INDEX ixNotasEvalAlumno ON tblNotasEval (IdAlu);
CREATE INDEX ixNotasFinalAlumno ON tblNotasFinal (IdAlu);
CREATE INDEX ixTareasGrupo ON tblTareas (IdGru);
-- The task list, newest first, walks this backwards instead of sorting;
-- tasks of the same day come in the order they were added.
CREATE INDEX ixTareasFecIni ON tblTareas (FecIni, Id DESC);
CREATE INDEX ixAlumnosGrupo ON tblAlumnos (Grupo);
CREATE INDEX ixNotasRubricaNota ON tblNotasRubrica (IdNota);
CREATE INDEX ixTareasRubricaTarea ON tblTareasRubrica (IdTarea);
CREATE INDEX ixTutoriaNotasAlumno ON tblTutoriaNotas (IdAlu);
)SQL");
}

// The staging tables hold the student sheet's cells as it shows them: the
// marks and points are texts ("7.40", or "" for an empty cell). A task type
// row names its evaluation row (IdFila, the Id of tblFichaAval), so that the
// record prints each subject's types under it.
QString PrintDdl()
{
    return QStringLiteral(R"SQL(
CREATE TABLE tblFichaAlumno (
  Id INTEGER PRIMARY KEY,
  Nom TEXT,
  Grupo TEXT,
  Mail TEXT);
CREATE TABLE tblFichaAval (
  Id INTEGER PRIMARY KEY,
  IdAval INTEGER,
  DesAval TEXT,
  IdMat INTEGER,
  DesMat TEXT,
  Ptos TEXT,
  Nota TEXT);
CREATE TABLE tblFichaTareas (
  Id INTEGER PRIMARY KEY,
  IdAval INTEGER,
  IdFila INTEGER,
  IdTipo INTEGER,
  DesTipo TEXT,
  NM TEXT,
  Valor TEXT,
  Ptos TEXT);
CREATE TABLE tblFichaTareasDetalle (
  IdTarea INTEGER,
  DesTarea TEXT,
  Nota TEXT,
  Obs TEXT);
CREATE TABLE tblFichaNF (
  IdAlu INTEGER,
  Mat TEXT,
  Ptos TEXT,
  NM TEXT,
  NFO TEXT,
  NFE TEXT);
)SQL");
}

QStringList YearTables()
{
    static const QRegularExpression re(QStringLiteral("CREATE TABLE (\\w+)"));
    QStringList names;
    auto it = re.globalMatch(YearDdl());
    while (it.hasNext())
        names << it.next().captured(1);
    return names;
}

static void create(const QString& path, const QString& ddl)
{
    if (QFileInfo::exists(path))
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("El archivo '%1' ya existe.").arg(path));
    auto cn = Connection::Create(path);
    cn->ExecuteNative(QStringLiteral("BEGIN;") + ddl + QStringLiteral("COMMIT;"));
    cn->Close();
}

void CreateYear(const QString& path)
{
    create(path, YearDdl());
}
void CreatePrint(const QString& path)
{
    create(path, PrintDdl());
}

bool UpdatePrint(Connection& cn)
{
    const TableDecl* aval = cn.tableDecl(u"tblFichaAval");
    const TableDecl* tareas = cn.tableDecl(u"tblFichaTareas");
    const ColumnDecl* ptos = aval ? aval->column(u"Ptos") : nullptr;
    if (ptos && ptos->type == ColumnType::Text && tareas && tareas->column(u"IdFila"))
        return false;
    // An earlier file kept the marks as numbers and its types without their
    // row; what it holds is the last print only, so the tables are made anew.
    QString drop;
    for (const char* table :
         {"tblFichaAlumno", "tblFichaAval", "tblFichaTareas", "tblFichaTareasDetalle", "tblFichaNF"})
        drop += QStringLiteral("DROP TABLE IF EXISTS %1;").arg(QLatin1String(table));
    cn.ExecuteNative(QStringLiteral("BEGIN IMMEDIATE;") + drop + PrintDdl() + QStringLiteral("COMMIT;"));
    return true;
}

} // namespace db::Schema
