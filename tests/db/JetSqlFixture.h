#pragma once
// What the suites of the dialect layer share: a year with a few rows of
// each kind, and readers of what a statement gives or raises.
#include "db/BoundStatement.h"
#include "db/Connection.h"
#include "db/JetSql.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "vb/RuntimeError.h"

#include <QObject>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using db::JetSql;

// The tutor's summary grid of the first evaluation: a crosstab of the marks.
inline const QString kSummaryGrid = QStringLiteral(
    "TRANSFORM First(tblTutoriaNotas.Nota) AS PrimeroDeNota SELECT [tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] AS "
    "Alumno FROM (tblTutoriaNotas INNER JOIN tblAlumnos ON tblTutoriaNotas.IdAlu = tblAlumnos.Id) INNER JOIN "
    "tblTutoriaMaterias ON tblTutoriaNotas.IdMat = tblTutoriaMaterias.Id Where tblTutoriaNotas.IdEval = 1 GROUP BY "
    "[tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] ORDER BY tblTutoriaMaterias.Cod PIVOT tblTutoriaMaterias.Cod;");

class JetSqlFixture : public QObject {
protected:
    QTemporaryDir dir_;
    db::ConnectionPtr cn_;

    QString sql(const QString& jet) { return JetSql::translate(jet).sql; }

    // The single value of a one-row, one-column query.
    QVariant scalar(const QString& jet)
    {
        db::Recordset rs;
        rs.Open(jet, cn_);
        if (rs.Eof())
            return QVariant(QStringLiteral("<no rows>"));
        return rs.Value(0);
    }

    int count(const QString& jet)
    {
        db::Recordset rs;
        rs.Open(jet, cn_);
        return rs.RecordCount();
    }

    // A year of its own, empty, for a test that writes.
    db::ConnectionPtr freshYear(const QString& name)
    {
        const QString path = dir_.path() + u'/' + name + QStringLiteral(".mdb");
        db::Schema::CreateYear(path);
        return db::Connection::Open(path);
    }

    // The value as SQLite holds it, untouched by the recordset's typing.
    static QVariant stored(const db::ConnectionPtr& cn, const QString& sqlite)
    {
        const QList<QVariantList> rows = db::BoundStatement(*cn, sqlite).rows();
        return rows.isEmpty() ? QVariant() : rows.first().value(0);
    }

    static int rows(const db::ConnectionPtr& cn, const QString& jet)
    {
        db::Recordset rs;
        rs.Open(jet, cn);
        return rs.RecordCount();
    }

    static QVariant first(const db::ConnectionPtr& cn, const QString& jet)
    {
        db::Recordset rs;
        rs.Open(jet, cn);
        return rs.Eof() ? QVariant(QStringLiteral("<no rows>")) : rs.Value(0);
    }

    // The number of the error a statement raises, 0 when it runs.
    static int errorOf(const std::function<void()>& f, QString* description = nullptr)
    {
        try {
            f();
        } catch (const RuntimeError& e) {
            if (description)
                *description = e.Description();
            return e.Number();
        }
        return 0;
    }

    static int syntaxErrorNumber()
    {
        return errorOf([] { JetSql::translate(QStringLiteral("SELEC x FROM t")); });
    }

    // The shared year, made once per suite.
    void openYear()
    {
        QVERIFY(dir_.isValid());
        const QString path = dir_.path() + QStringLiteral("/Xestion.mdb");
        db::Schema::CreateYear(path);
        cn_ = db::Connection::Open(path);
        cn_->ExecuteNative(QStringLiteral(
            "INSERT INTO tblNiveles VALUES (1,'ESO'),(2,'Bacharelato');"
            "INSERT INTO tblCursos VALUES (1,'1º',1),(2,'2º',1);"
            "INSERT INTO tblGrupos VALUES (1,'A',1,1),(2,'B',2,0);"
            "INSERT INTO tblAlumnos (Id,Ape,Nom,Grupo,MailAlu) VALUES "
            "(1,'Álvarez Núñez','Íria',1,NULL),(2,'Zapata','ana',1,'a@b.es'),(3,'avendaño','Luis',2,NULL),"
            "(4,'Nuñez','Xoán',99,NULL),(5,'Ocampo','Eva',2,NULL);"
            "INSERT INTO tblTareasTipos (Id,Des,Min,Max) VALUES (1,'Exame',0,10),(2,'Caderno',0,0);"
            "INSERT INTO tblTareas (Id,Des,IdTip,IdEva,IdMat,IdGru,FecIni,Nota,Fin) VALUES "
            "(1,'Proba 1',1,1,1,1,'2024-10-15',1,0),(2,'Caderno',2,1,1,1,NULL,0,1);"
            "INSERT INTO tblNotas VALUES (1,1,1,4.9995,NULL),(2,1,2,7.5,'ben'),(3,2,1,3,NULL);"
            "INSERT INTO tblEvaluaciones VALUES (1,'1ª Avaliación','2024-12-20',NULL);"
            "INSERT INTO tblTutoriaMaterias (Id,Cod,Des) VALUES (1,'MAT','Matemáticas'),(2,'LCG','Lingua');"
            "INSERT INTO tblTutoriaNotas VALUES (1,1,1,1,7),(2,1,1,2,5),(3,2,1,1,4),(4,1,2,1,9);"
            "INSERT INTO tblTutoriaCitas (Id,IdAlu,Fec,Des) VALUES (1,1,'2024-11-05 16:30:00','Cita');"
            "INSERT INTO tblHorarioHoras VALUES (1,'08:30','09:20',1);"));
    }
};
