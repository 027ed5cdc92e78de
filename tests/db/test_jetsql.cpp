// The dialect layer: what each Jet idiom becomes, and that what it becomes
// runs with the engine's meaning.
#include "db/Connection.h"
#include "db/JetSql.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "vb/RuntimeError.h"

#include <QTemporaryDir>
#include <sqlite3.h>
#include <QtTest>

using db::JetSql;

class TestJetSql : public QObject {
    Q_OBJECT

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

private slots:
    void initTestCase()
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

    // ---------------------------------------------------------- text of the translation

    void bracketReferencesBecomeQuotedColumns()
    {
        QCOMPARE(sql("SELECT [tblCursos]![Des] FROM tblCursos"), QStringLiteral("SELECT \"tblCursos\".\"Des\" FROM \"tblCursos\""));
    }

    void ampersandBecomesJetConcat()
    {
        QCOMPARE(sql("SELECT a & ' ' & b AS x FROM t"),
                 QStringLiteral("SELECT jet_concat(\"a\", ' ', \"b\") AS \"x\" FROM \"t\""));
    }

    void ampersandBindsBelowArithmeticAndAboveComparison()
    {
        QCOMPARE(sql("SELECT 1 FROM t WHERE a & b + 1 = 'x'"),
                 QStringLiteral("SELECT 1 AS \"Expr1000\" FROM \"t\" WHERE jet_concat(\"a\", \"b\" + 1) = 'x' COLLATE jet_es"));
    }

    void slashBecomesFloatingDivisionLeftToRight()
    {
        QCOMPARE(sql("SELECT (n.Nota/[t]![Max]*10) AS N FROM n"),
                 QStringLiteral("SELECT (jet_div(\"n\".\"Nota\", \"t\".\"Max\") * 10) AS \"N\" FROM \"n\""));
    }

    void booleanWordsBecomeOneAndZero()
    {
        QCOMPARE(sql("SELECT 1 AS x FROM t WHERE a=True AND b = False AND c=Yes AND d = No"),
                 QStringLiteral("SELECT 1 AS \"x\" FROM \"t\" WHERE \"a\" = 1 AND \"b\" = 0 AND \"c\" = 1 AND \"d\" = 0"));
    }

    void dateLiteralsBecomeIsoText()
    {
        QCOMPARE(sql("INSERT INTO t (Id, Dia) VALUES (1, #2024/03/05#)"),
                 QStringLiteral("INSERT INTO \"t\" (\"Id\", \"Dia\") VALUES (1, '2024-03-05')"));
        QCOMPARE(sql("SELECT 1 AS x FROM t WHERE Dia >= #3/5/2024#"),
                 QStringLiteral("SELECT 1 AS \"x\" FROM \"t\" WHERE \"Dia\" >= '2024-03-05'"));
    }

    void deleteStarAndDeleteWithColumnsBecomePlainDelete()
    {
        QCOMPARE(sql("DELETE * FROM tblNotas"), QStringLiteral("DELETE FROM \"tblNotas\""));
        QCOMPARE(sql("DELETE tblNotas.*, tblNotas.Id From tblNotas WHERE tblNotas.Id=4"),
                 QStringLiteral("DELETE FROM \"tblNotas\" WHERE \"tblNotas\".\"Id\" = 4"));
    }

    void updateTargetsLoseTheirTableName()
    {
        QCOMPARE(sql("UPDATE tblNotas SET tblNotas.Nota = 5, [tblNotas]![Obs] = 'x' WHERE tblNotas.Id=1"),
                 QStringLiteral("UPDATE \"tblNotas\" SET \"Nota\" = 5, \"Obs\" = 'x' WHERE \"tblNotas\".\"Id\" = 1"));
    }

    void parenthesesOfAJoinOnTheLeftAreDroppedOnTheRightKept()
    {
        QCOMPARE(sql("SELECT a.x FROM ((a LEFT JOIN b ON a.i = b.i) LEFT JOIN c ON b.j = c.j)"),
                 QStringLiteral("SELECT \"a\".\"x\" FROM \"a\" LEFT JOIN \"b\" ON \"a\".\"i\" = \"b\".\"i\" LEFT JOIN \"c\" ON "
                                "\"b\".\"j\" = \"c\".\"j\""));
        QCOMPARE(sql("SELECT a.x FROM a INNER JOIN (b INNER JOIN c ON b.j = c.j) ON a.i = b.i"),
                 QStringLiteral("SELECT \"a\".\"x\" FROM \"a\" INNER JOIN (\"b\" INNER JOIN \"c\" ON \"b\".\"j\" = \"c\".\"j\") ON "
                                "\"a\".\"i\" = \"b\".\"i\""));
    }

    void orderByTermsGetTheSpanishCollation()
    {
        QCOMPARE(sql("SELECT Ape FROM tblAlumnos ORDER BY Ape DESC, 2"),
                 QStringLiteral("SELECT \"Ape\" FROM \"tblAlumnos\" ORDER BY \"Ape\" COLLATE jet_es DESC, 2"));
    }

    // Dates are kept as ISO text: their plain order is the order of the dates,
    // so a column declared a date sorts without the collation (and can walk
    // an index). Texts, and columns the connection cannot place, keep it.
    void orderByADateColumnGoesWithoutTheCollation()
    {
        JetSql::Options options;
        options.isDateColumn = [](const QString& table, const QString& column) {
            return table == QLatin1String("tblTareas") && column == QLatin1String("FecIni");
        };
        QCOMPARE(JetSql::translate(QStringLiteral("SELECT Des FROM tblTareas ORDER BY tblTareas.FecIni DESC, "
                                                  "tblTareas.Des, FecIni"),
                                   options)
                     .sql,
                 QStringLiteral("SELECT \"Des\" FROM \"tblTareas\" ORDER BY \"tblTareas\".\"FecIni\" DESC, "
                                "\"tblTareas\".\"Des\" COLLATE jet_es, \"FecIni\" COLLATE jet_es"));
    }

    void aYearKnowsItsDateColumnsAndTheTaskListWalksTheDateIndex()
    {
        const QString jet = QStringLiteral("SELECT tblTareas.Id FROM tblTareas INNER JOIN tblTareasTipos ON "
                                           "tblTareas.IdTip = tblTareasTipos.Id ORDER BY tblTareas.FecIni DESC");
        const QString text = cn_->Translate(jet).sql;
        QVERIFY(text.endsWith(QStringLiteral("ORDER BY \"tblTareas\".\"FecIni\" DESC")));
        QCOMPARE(cn_->Translate(QStringLiteral("SELECT Ape FROM tblAlumnos ORDER BY tblAlumnos.Ape")).sql,
                 QStringLiteral("SELECT \"Ape\" FROM \"tblAlumnos\" ORDER BY \"tblAlumnos\".\"Ape\" COLLATE jet_es"));
        sqlite3_stmt* stmt = cn_->Prepare(QStringLiteral("EXPLAIN QUERY PLAN ") + text);
        QString details;
        while (sqlite3_step(stmt) == SQLITE_ROW)
            details += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 3))) + u'\n';
        sqlite3_reset(stmt);
        QVERIFY2(details.contains(QStringLiteral("USING INDEX ixTareasFecIni")), qPrintable(details));
        QVERIFY2(!details.contains(QStringLiteral("TEMP B-TREE")), qPrintable(details));
    }

    void stringsAndDatesSurviveUntouched()
    {
        QCOMPARE(sql("SELECT 'a & b / [c]!d #x#' AS s FROM t"),
                 QStringLiteral("SELECT 'a & b / [c]!d #x#' AS \"s\" FROM \"t\""));
    }

    void iifBecomesCase()
    {
        QCOMPARE(sql("SELECT IIF(a=True, 'SÍ','NO') AS x FROM t"),
                 QStringLiteral("SELECT (CASE WHEN \"a\" = 1 THEN 'SÍ' ELSE 'NO' END) AS \"x\" FROM \"t\""));
    }

    void unnamedExpressionsAreNamedExpr1000()
    {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT Id, Nom & '!' FROM tblAlumnos"), cn_);
        QCOMPARE(rs.FieldName(1), QStringLiteral("Expr1000"));
    }

    void apostropheInsideTextIsASyntaxError()
    {
        QVERIFY_THROWS_EXCEPTION(RuntimeError, JetSql::translate(QStringLiteral("UPDATE tblNotas SET Obs = 'O'Neill' WHERE Id=1")));
    }

    void trailingSemicolonIsAccepted()
    {
        QCOMPARE(sql("SELECT Id FROM t;"), QStringLiteral("SELECT \"Id\" FROM \"t\""));
    }

    void garbageIsASyntaxError()
    {
        QVERIFY_THROWS_EXCEPTION(RuntimeError, JetSql::translate(QStringLiteral("SELEC x FROM t")));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, JetSql::translate(QStringLiteral("SELECT FROM")));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, JetSql::translate(QStringLiteral("SELECT a FROM t WHERE (a = 1")));
    }

    // ---------------------------------------------------------- meaning when run

    void nullInConcatCountsAsEmptyButAllNullIsNull()
    {
        QCOMPARE(scalar("SELECT Ape & ' <' & MailAlu & '>' FROM tblAlumnos WHERE Id=1").toString(),
                 QStringLiteral("Álvarez Núñez <>"));
        QVERIFY(scalar("SELECT MailAlu & Null FROM tblAlumnos WHERE Id=1").isNull());
    }

    void concatOfTextsAloneJoinsThemAsTheyAre()
    {
        QCOMPARE(scalar("SELECT Ape & ', ' & Nom FROM tblAlumnos WHERE Id=3").toString(), QStringLiteral("avendaño, Luis"));
        QCOMPARE(scalar("SELECT '' & '' FROM tblAlumnos WHERE Id=3").toString(), QString());
        QVERIFY(!scalar("SELECT '' & '' FROM tblAlumnos WHERE Id=3").isNull());
        QVERIFY(scalar("SELECT MailAlu & MailAlu FROM tblAlumnos WHERE Id=1").isNull());
        QCOMPARE(scalar("SELECT MailAlu & Nom & MailAlu FROM tblAlumnos WHERE Id=1").toString(), QStringLiteral("Íria"));
    }

    void concatWritesNumbersWithDecimalComma()
    {
        QCOMPARE(scalar("SELECT 'Nota: ' & Nota FROM tblNotas WHERE Id=2").toString(), QStringLiteral("Nota: 7,5"));
        QCOMPARE(scalar("SELECT Id & '' FROM tblNotas WHERE Id=2").toString(), QStringLiteral("2"));
    }

    void divisionIsAlwaysFloatingPoint()
    {
        QCOMPARE(scalar("SELECT 7/2 FROM tblNiveles WHERE Id=1").toDouble(), 3.5);
    }

    void divisionByZeroIsARuntimeError()
    {
        try {
            scalar("SELECT tblNotas.Nota/[tblTareasTipos]![Max]*10 FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea "
                   "= tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.Id=3");
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.Number(), int(RuntimeError::DivisionByZero));
        }
    }

    void modIntegerDivisionAndPowerFollowTheEngine()
    {
        QCOMPARE(scalar("SELECT 7 MOD 3 FROM tblNiveles WHERE Id=1").toInt(), 1);
        QCOMPARE(scalar("SELECT 7 \\ 2 FROM tblNiveles WHERE Id=1").toInt(), 3);
        QCOMPARE(scalar("SELECT 2^3 FROM tblNiveles WHERE Id=1").toDouble(), 8.0);
        QCOMPARE(scalar("SELECT -2^2 FROM tblNiveles WHERE Id=1").toDouble(), -4.0); // the power binds tighter than the sign
    }

    void divisionWithNullIsNull()
    {
        QVERIFY(scalar("SELECT Obs/2 FROM tblNotas WHERE Id=1").isNull());
    }

    void bandConditionsSeeTheAdjustedMark()
    {
        // 4.9995 of 10 falls under "<4.999"? No: it lies in the SF band of the counts.
        QCOMPARE(count("SELECT tblNotas.Nota FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) "
                       "INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.IdTarea=1 AND "
                       "(tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 4.999 AND 5.99)"),
                 1);
        QCOMPARE(count("SELECT tblNotas.Nota FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) "
                       "INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.IdTarea=1 AND "
                       "(tblNotas.Nota/[tblTareasTipos]![Max]*10)<4.999 AND (tblNotas.Nota/[tblTareasTipos]![Max]*10)>0"),
                 0);
    }

    void likeIgnoresCaseAndAccents()
    {
        QCOMPARE(count("SELECT Id FROM tblAlumnos WHERE Ape LIKE '%alvarez%'"), 1);
        QCOMPARE(count("SELECT Id FROM tblAlumnos WHERE Ape LIKE '%NUÑEZ%'"), 2);
        QCOMPARE(count("SELECT Id FROM tblAlumnos WHERE Nom LIKE 'i_ia'"), 1);
        QCOMPARE(count("SELECT Id FROM tblAlumnos WHERE Ape NOT LIKE '%a%'"), 1); // Nuñez
    }

    void likeOnTheGroupLabel()
    {
        QCOMPARE(count("SELECT tblAlumnos.Id FROM tblAlumnos INNER JOIN (tblGrupos INNER JOIN (tblCursos INNER JOIN "
                       "tblNiveles ON tblCursos.IdNivel = tblNiveles.Id) ON tblGrupos.IdCurso = tblCursos.Id) ON "
                       "tblAlumnos.Grupo = tblGrupos.Id WHERE [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & "
                       "[tblGrupos]![Des] LIKE '%1º eso a%'"),
                 2);
    }

    void textOrderIsSpanishAndCaseInsensitive()
    {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT Ape FROM tblAlumnos ORDER BY Ape"), cn_);
        QStringList order;
        for (; !rs.Eof(); rs.MoveNext())
            order << rs.Value(0).toString();
        QCOMPARE(order, (QStringList{QStringLiteral("Álvarez Núñez"), QStringLiteral("avendaño"), QStringLiteral("Nuñez"),
                                     QStringLiteral("Ocampo"), QStringLiteral("Zapata")}));
    }

    void textComparisonWithALiteralIgnoresCase()
    {
        QCOMPARE(count("SELECT Id FROM tblAlumnos WHERE Nom = 'ANA'"), 1);
    }

    void leftJoinKeepsAStudentWithoutGroupInnerJoinHidesIt()
    {
        const QString label = QStringLiteral("[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des]");
        QCOMPARE(count("SELECT tblAlumnos.Id, " + label +
                       " AS DesGrupo FROM tblAlumnos LEFT JOIN (tblGrupos LEFT JOIN (tblCursos LEFT JOIN tblNiveles ON "
                       "tblCursos.IdNivel = tblNiveles.Id) ON tblGrupos.IdCurso = tblCursos.Id) ON tblAlumnos.Grupo = "
                       "tblGrupos.Id"),
                 5);
        QCOMPARE(scalar("SELECT " + label +
                        " AS DesGrupo FROM tblAlumnos LEFT JOIN (tblGrupos LEFT JOIN (tblCursos LEFT JOIN tblNiveles ON "
                        "tblCursos.IdNivel = tblNiveles.Id) ON tblGrupos.IdCurso = tblCursos.Id) ON tblAlumnos.Grupo = "
                        "tblGrupos.Id WHERE tblAlumnos.Id = 4")
                     .toString(),
                 QStringLiteral("  "));
        QCOMPARE(count("SELECT tblAlumnos.Id FROM tblAlumnos INNER JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id"), 4);
    }

    void formatOfDatesTimesAndNumbers()
    {
        QCOMPARE(scalar("SELECT FORMAT(tblEvaluaciones.Fec,'dd/MM/yyyy') FROM tblEvaluaciones").toString(),
                 QStringLiteral("20/12/2024"));
        QCOMPARE(scalar("SELECT FORMAT(Fec,'dddd') FROM tblEvaluaciones").toString(), QStringLiteral("viernes"));
        QCOMPARE(scalar("SELECT FORMAT(Fec,'dd/MM/yyyy') FROM tblTutoriaCitas").toString(), QStringLiteral("05/11/2024"));
        QCOMPARE(scalar("SELECT FORMAT(Fec,'HH:mm') FROM tblTutoriaCitas").toString(), QStringLiteral("16:30"));
        QCOMPARE(scalar("SELECT FORMAT(tblHorarioHoras.Ini,'HH:mm') FROM tblHorarioHoras").toString(), QStringLiteral("08:30"));
        QCOMPARE(scalar("SELECT FORMAT(2.675,'##0.00') FROM tblNiveles WHERE Id=1").toString(), QStringLiteral("2,68"));
        QCOMPARE(scalar("SELECT FORMAT(0.125,'##0.00') FROM tblNiveles WHERE Id=1").toString(), QStringLiteral("0,13"));
        QVERIFY(scalar("SELECT FORMAT(FecIni,'dd/MM/yyyy') FROM tblTareas WHERE Id=2").isNull());
    }

    void strOfADateIsReadable()
    {
        QCOMPARE(scalar("SELECT STR(tblTutoriaCitas.Fec) FROM tblTutoriaCitas").toString(), QStringLiteral("05/11/2024 16:30"));
    }

    void avgSkipsNulls()
    {
        cn_->ExecuteNative(QStringLiteral("INSERT INTO tblNotas VALUES (90,9,1,NULL,NULL),(91,9,2,6,NULL)"));
        QCOMPARE(scalar("SELECT Avg(tblNotas.Nota) AS Media FROM tblNotas WHERE IdTarea=9").toDouble(), 6.0);
        QVERIFY(scalar("SELECT Avg(tblNotas.Nota) AS Media FROM tblNotas WHERE IdTarea=9 AND Nota IS NULL").isNull());
        cn_->ExecuteNative(QStringLiteral("DELETE FROM tblNotas WHERE IdTarea=9"));
    }

    void firstKeepsTheFirstRowIncludingNull()
    {
        QCOMPARE(scalar("SELECT First(Nota) AS F FROM tblNotas WHERE IdTarea=1 GROUP BY IdTarea").toDouble(), 4.9995);
    }

    void groupByWithHaving()
    {
        QCOMPARE(count("SELECT Grupo, Count(*) AS N FROM tblAlumnos GROUP BY Grupo HAVING Count(*) > 1"), 2);
    }

    void transformPivotsByAscendingHeadings()
    {
        db::Recordset rs;
        rs.Open(QStringLiteral(
                    "TRANSFORM First(tblTutoriaNotas.Nota) AS PrimeroDeNota SELECT [tblAlumnos]![Ape] & ', ' & "
                    "[tblAlumnos]![Nom] AS Alumno FROM (tblTutoriaNotas INNER JOIN tblAlumnos ON tblTutoriaNotas.IdAlu = "
                    "tblAlumnos.Id) INNER JOIN tblTutoriaMaterias ON tblTutoriaNotas.IdMat = tblTutoriaMaterias.Id Where "
                    "tblTutoriaNotas.IdEval = 1 GROUP BY [tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] ORDER BY "
                    "tblTutoriaMaterias.Cod PIVOT tblTutoriaMaterias.Cod;"),
                cn_);
        QCOMPARE(rs.FieldCount(), 3);
        QCOMPARE(rs.FieldName(0), QStringLiteral("Alumno"));
        QCOMPARE(rs.FieldName(1), QStringLiteral("LCG"));
        QCOMPARE(rs.FieldName(2), QStringLiteral("MAT"));
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Value(0).toString(), QStringLiteral("Álvarez Núñez, Íria"));
        QCOMPARE(rs.Value(1).toDouble(), 5.0);
        QCOMPARE(rs.Value(2).toDouble(), 7.0);
        rs.MoveNext();
        QCOMPARE(rs.Value(0).toString(), QStringLiteral("Zapata, ana"));
        QVERIFY(rs.Value(1).isNull());
        QCOMPARE(rs.Value(2).toDouble(), 4.0);
    }

    void failedStatementLeavesTheDatabaseAsItWas()
    {
        const int before = count("SELECT Id FROM tblNotas");
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 cn_->Execute(QStringLiteral("UPDATE tblNotas SET Nota = Nota/0 WHERE IdTarea=1")));
        QCOMPARE(scalar("SELECT Nota FROM tblNotas WHERE Id=2").toDouble(), 7.5);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, cn_->Execute(QStringLiteral(
                                                   "INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES(50, 1, 1, "
                                                   "5, 'O'Neill')")));
        QCOMPARE(count("SELECT Id FROM tblNotas"), before);
    }

    void statementCacheReturnsFreshResultsAfterWrites()
    {
        const QString q = QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 1");
        QCOMPARE(scalar(q).toString(), QStringLiteral("ESO"));
        cn_->Execute(QStringLiteral("UPDATE tblNiveles SET tblNiveles.Des = 'E.S.O.' WHERE Id = 1"));
        QCOMPARE(scalar(q).toString(), QStringLiteral("E.S.O."));
        cn_->Execute(QStringLiteral("UPDATE tblNiveles SET tblNiveles.Des = 'ESO' WHERE Id = 1"));
    }
};

QTEST_GUILESS_MAIN(TestJetSql)
#include "test_jetsql.moc"
