// The dialect layer on the columns of a year: Single values, the grouping of
// texts, date arithmetic and the declared sizes of texts on write.
#include "JetSqlFixture.h"

class TestJetSqlColumns : public JetSqlFixture {
    Q_OBJECT

private slots:
    void initTestCase() { openYear(); }

    // ---------------------------------------------------------- Single columns

    // The band counts of a task, as frmEvaluar runs them (task 1, scale 10).
    static QList<int> bandCounts(const db::ConnectionPtr& cn)
    {
        const QString adjusted = QStringLiteral(
            "SELECT (tblNotas.Nota/[tblTareasTipos]![Max]*10) AS NotaAxustada FROM (tblNotas INNER JOIN tblTareas ON "
            "tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE "
            "tblNotas.IdTarea=1");
        const QString plain = QStringLiteral(
            "SELECT tblNotas.Nota, tblTareasTipos.Max FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = "
            "tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.IdTarea=1");
        return {
            rows(cn, adjusted + QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10)<4.999 AND "
                                               "(tblNotas.Nota/[tblTareasTipos]![Max]*10)>0;")),
            rows(cn,
                 adjusted + QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 4.999 AND 5.99)")),
            rows(cn, plain + QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 5.999 AND 6.99)")),
            rows(cn, plain + QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 6.999 AND 8.99)")),
            rows(cn, plain + QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 8.999 AND 10)")),
        };
    }

    static void addExamTask(const db::ConnectionPtr& cn)
    {
        cn->ExecuteNative(QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (1, 'Examen', 0, 10);"
                                         "INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) "
                                         "VALUES (1, 'Examen', 1, 1, 1, 1, 1, 0);"));
    }

    // 8,999 typed on a scale of 10 is stored as the Single 8.99899959564209,
    // which lies between the bands "6.999 to 8.99" and "8.999 to 10".
    void singleColumnStoresNearestSingle()
    {
        auto cn = freshYear(QStringLiteral("single_insert"));
        addExamTask(cn);
        cn->Execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES(1, 1, 1, 8.999, '')"));
        const QVariant v = stored(cn, QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 1"));
        QCOMPARE(v.typeId(), int(QMetaType::Double));
        QVERIFY2(v.toDouble() == static_cast<double>(8.999f), qPrintable(QString::number(v.toDouble(), 'g', 17)));
        QCOMPARE(QString::number(v.toDouble(), 'g', 15), QStringLiteral("8.99899959564209"));
        QCOMPARE(bandCounts(cn), (QList<int>{0, 0, 0, 0, 0}));
    }

    void singleColumnUpdateStoresNearestSingle()
    {
        auto cn = freshYear(QStringLiteral("single_update"));
        addExamTask(cn);
        cn->ExecuteNative(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (1, 1, 1, 5)"));
        cn->Execute(QStringLiteral("UPDATE tblNotas SET tblNotas.Nota = 8.999, tblNotas.Obs = '' WHERE tblNotas.Id=1"));
        QVERIFY(stored(cn, QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 1")).toDouble() == double(8.999f));
        QCOMPARE(bandCounts(cn), (QList<int>{0, 0, 0, 0, 0}));
        // What a statement computes goes through Single precision too.
        cn->Execute(QStringLiteral("UPDATE tblNotas SET Nota = Nota + 0.001 WHERE Id=1"));
        QVERIFY(stored(cn, QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 1")).toDouble() ==
                double(float(double(8.999f) + 0.001)));
    }

    void everySingleColumnStoresNearestSingle_data()
    {
        QTest::addColumn<QString>("insert");
        QTest::addColumn<QString>("update");
        QTest::addColumn<QString>("read");
        QTest::newRow("tblNotasEval.Nota")
            << "INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota) VALUES (1, 1, 1, 1, 0.1)"
            << "UPDATE tblNotasEval SET tblNotasEval.Nota = 0.1 WHERE Id = 1"
            << "SELECT Nota FROM tblNotasEval WHERE Id = 1";
        QTest::newRow("tblNotasEval.NotaRec")
            << "INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, NotaRec) VALUES (1, 1, 1, 1, 0.1)"
            << "UPDATE tblNotasEval SET tblNotasEval.Recuperar = 1, tblNotasEval.NotaRec = 0.1 WHERE "
               "tblNotasEval.Id=1"
            << "SELECT NotaRec FROM tblNotasEval WHERE Id = 1";
        QTest::newRow("tblNotasFinal.NotaO")
            << "INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, Obs) VALUES(1, 1, 1, 0.1, '')"
            << "UPDATE tblNotasFinal SET NotaO = 0.1 WHERE Id = 1"
            << "SELECT NotaO FROM tblNotasFinal WHERE Id = 1";
        QTest::newRow("tblNotasFinal.NotaE") << "INSERT INTO tblNotasFinal VALUES (1, 1, 1, 5, 0.1, '')"
                                             << "UPDATE tblNotasFinal SET tblNotasFinal.NotaE = 0.1 WHERE Id = 1"
                                             << "SELECT NotaE FROM tblNotasFinal WHERE Id = 1";
        QTest::newRow("tblTareasRubrica.Por")
            << "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Por, Max) VALUES (1, 1, '1', 0.1, 4)"
            << "UPDATE tblTareasRubrica SET Por = '0.1' WHERE Id = 1"
            << "SELECT Por FROM tblTareasRubrica WHERE Id = 1";
        QTest::newRow("INSERT ... SELECT")
            << "INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) SELECT 1, 1, Id, 0.1 FROM tblNiveles"
            << "UPDATE tblNotas SET Nota = 0.1 WHERE Id = 1"
            << "SELECT Nota FROM tblNotas WHERE Id = 1";
    }

    void everySingleColumnStoresNearestSingle()
    {
        QFETCH(QString, insert);
        QFETCH(QString, update);
        QFETCH(QString, read);
        auto cn = freshYear(QStringLiteral("single_%1").arg(QTest::currentDataTag()).remove(u'.').remove(u' '));
        cn->ExecuteNative(QStringLiteral("INSERT INTO tblNiveles VALUES (7, 'ESO')"));
        cn->Execute(insert);
        QVERIFY(stored(cn, read).toDouble() == double(0.1f));
        cn->ExecuteNative(
            QStringLiteral("UPDATE tblNotasEval SET Nota = 3, NotaRec = 3; UPDATE tblNotasFinal SET NotaO = 3, "
                           "NotaE = 3; UPDATE tblTareasRubrica SET Por = 3; UPDATE tblNotas SET Nota = 3"));
        cn->Execute(update);
        QVERIFY(stored(cn, read).toDouble() == double(0.1f));
    }

    void doubleColumnsKeepTheirDigits()
    {
        auto cn = freshYear(QStringLiteral("double_column"));
        cn->Execute(
            QStringLiteral("INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (1, 1, 1, 1, 8.999)"));
        QCOMPARE(stored(cn, QStringLiteral("SELECT Nota FROM tblTutoriaNotas WHERE Id = 1")).toDouble(), 8.999);
        QVERIFY(!cn->Translate(QStringLiteral("UPDATE tblTutoriaNotas SET Nota = 1"))
                     .sql.contains(QLatin1String("jet_single")));
    }

    // ---------------------------------------------------------- grouping of texts

    static db::ConnectionPtr namesYear(db::ConnectionPtr cn)
    {
        cn->ExecuteNative(QStringLiteral("INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo) VALUES (1, 'García López', "
                                         "'Ana', 1), (2, 'GARCÍA LÓPEZ', 'ANA', 1),"
                                         "(3, 'Garcia Lopez', 'Ana', 1), (4, 'garcía lópez', 'ana', 2);"));
        return cn;
    }

    void groupByTreatsTextsDifferingOnlyInCaseAsOne()
    {
        auto cn = namesYear(freshYear(QStringLiteral("group_case")));
        db::Recordset rs;
        rs.Open(
            QStringLiteral("SELECT [tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] AS Alumno, Count(*) AS N FROM "
                           "tblAlumnos GROUP BY [tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] ORDER BY Count(*) DESC"),
            cn);
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Value("N").toInt(), 3);
        QCOMPARE(rs.Value("Alumno").toString().toCaseFolded(), QStringLiteral("garcía lópez, ana"));
        rs.MoveNext();
        QCOMPARE(rs.Value("N").toInt(), 1);
        QCOMPARE(rs.Value("Alumno").toString(), QStringLiteral("Garcia Lopez, Ana"));
    }

    void groupByKeepsTextsDifferingInAccentsApart()
    {
        auto cn = namesYear(freshYear(QStringLiteral("group_accents")));
        QCOMPARE(rows(cn, QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id IN (1, 3) GROUP BY Ape")), 2);
        QCOMPARE(rows(cn, QStringLiteral("SELECT tblAlumnos.Ape, tblAlumnos.Grupo FROM tblAlumnos GROUP BY "
                                         "tblAlumnos.Ape, tblAlumnos.Grupo")),
                 3);
    }

    void distinctTreatsTextsDifferingOnlyInCaseAsOne()
    {
        auto cn = namesYear(freshYear(QStringLiteral("distinct_case")));
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT DISTINCT tblAlumnos.Ape, Nom FROM tblAlumnos ORDER BY tblAlumnos.Ape"), cn);
        QCOMPARE(rs.RecordCount(), 2); // García López / Garcia Lopez
        QCOMPARE(rs.FieldName(0), QStringLiteral("Ape"));
        QCOMPARE(rs.FieldName(1), QStringLiteral("Nom"));
        QCOMPARE(rs.Value("Ape").toString(), QStringLiteral("Garcia Lopez"));
        QCOMPARE(rows(cn, QStringLiteral("SELECT DISTINCT Grupo FROM tblAlumnos")), 2);
        QCOMPARE(rows(cn, QStringLiteral("SELECT DISTINCT Ape & '' AS A FROM tblAlumnos WHERE Id <> 3")), 1);
        QCOMPARE(rows(cn, QStringLiteral("SELECT DISTINCT * FROM tblAlumnos")), 4);
    }

    void pivotTreatsHeadingsDifferingOnlyInCaseAsOne()
    {
        auto cn = freshYear(QStringLiteral("pivot_case"));
        cn->ExecuteNative(QStringLiteral(
            "INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo) VALUES (1, 'Abal', 'Iria', 1), (2, 'Brea', 'Xoán', 1);"
            "INSERT INTO tblTutoriaMaterias (Id, Cod, Des) VALUES (1, 'GAL', 'Lingua galega'), (2, 'Gal', 'Galego'),"
            "(3, 'MAT', 'Matemáticas');"
            "INSERT INTO tblTutoriaNotas VALUES (1, 1, 1, 1, 7), (2, 2, 1, 2, 5), (3, 1, 1, 3, 6), (4, 2, 1, 3, 9);"));
        db::Recordset rs;
        rs.Open(kSummaryGrid, cn);
        QCOMPARE(rs.FieldCount(), 3);
        QCOMPARE(rs.FieldName(1).toUpper(), QStringLiteral("GAL"));
        QCOMPARE(rs.FieldName(2), QStringLiteral("MAT"));
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Value(1).toDouble(), 7.0);
        QCOMPARE(rs.Value(2).toDouble(), 6.0);
        rs.MoveNext();
        QCOMPARE(rs.Value(1).toDouble(), 5.0);
        QCOMPARE(rs.Value(2).toDouble(), 9.0);
    }

    // Numbers and dates group as they are (and an index can serve them).
    void groupingCollationGoesOnlyOnTextTerms()
    {
        const QString text =
            cn_->Translate(
                   QStringLiteral("SELECT tblNotasEval.IdMat, tblMaterias.Des, tblTareas.FecIni FROM (tblNotasEval "
                                  "INNER JOIN tblMaterias ON tblNotasEval.IdMat = tblMaterias.Id) INNER JOIN "
                                  "tblTareas ON tblTareas.IdMat = tblMaterias.Id GROUP BY tblNotasEval.IdMat, "
                                  "tblMaterias.Des, tblTareas.FecIni"))
                .sql;
        QVERIFY2(text.endsWith(
                     QStringLiteral("GROUP BY \"tblNotasEval\".\"IdMat\", \"tblMaterias\".\"Des\" COLLATE jet_nocase, "
                                    "\"tblTareas\".\"FecIni\"")),
                 qPrintable(text));
        const QString aliased =
            cn_->Translate(QStringLiteral("SELECT m.Des, Count(*) AS N FROM tblMaterias AS m GROUP BY m.Des, m.Id"))
                .sql;
        QVERIFY2(aliased.endsWith(QStringLiteral("GROUP BY \"m\".\"Des\" COLLATE jet_nocase, \"m\".\"Id\"")),
                 qPrintable(aliased));
    }

    // ---------------------------------------------------------- date arithmetic

    void datePlusDaysIsADate()
    {
        QCOMPARE(scalar("SELECT #2024/12/29# + 1").toString(), QStringLiteral("2024-12-30"));
        QCOMPARE(scalar("SELECT #2024/12/29# + 1").toDate(), QDate(2024, 12, 30));
        QCOMPARE(scalar("SELECT #2024/12/31# + 1 AS D FROM tblNiveles WHERE Id = 1").toString(),
                 QStringLiteral("2025-01-01"));
        QCOMPARE(scalar("SELECT 3 + #2024/02/27#").toString(), QStringLiteral("2024-03-01"));
        QCOMPARE(scalar("SELECT #2024/03/01# - 1").toString(), QStringLiteral("2024-02-29"));
        QCOMPARE(scalar("SELECT #2024/03/01# + 0.5").toString(), QStringLiteral("2024-03-01 12:00:00"));
        QCOMPARE(scalar("SELECT Date() + 1").toDate(), QDate::currentDate().addDays(1));
    }

    void dateColumnPlusDaysIsADate()
    {
        QCOMPARE(scalar("SELECT tblTareas.FecIni + 3 AS F FROM tblTareas WHERE Id = 1").toString(),
                 QStringLiteral("2024-10-18"));
        QCOMPARE(scalar("SELECT FecIni - 15 AS F FROM tblTareas WHERE Id = 1").toString(),
                 QStringLiteral("2024-09-30"));
        QCOMPARE(scalar("SELECT t.FecIni + 1 - 1 AS F FROM tblTareas AS t WHERE t.Id = 1").toString(),
                 QStringLiteral("2024-10-15"));
        QVERIFY(scalar("SELECT FecIni + 1 AS F FROM tblTareas WHERE Id = 2").isNull());
        // A date and time keeps its time.
        QCOMPARE(scalar("SELECT Fec + 1 AS F FROM tblTutoriaCitas WHERE Id = 1").toString(),
                 QStringLiteral("2024-11-06 16:30:00"));
        // Compared with a date column, the result is a date too.
        QCOMPARE(count("SELECT Id FROM tblTareas WHERE FecIni = #2024/10/14# + 1"), 1);
        QCOMPARE(count("SELECT Id FROM tblTareas WHERE FecIni - 1 = #2024/10/14#"), 1);
    }

    void dateMinusDateIsDays()
    {
        QCOMPARE(scalar("SELECT #2024/03/01# - #2024/02/01#").toDouble(), 29.0);
        QCOMPARE(scalar("SELECT tblEvaluaciones.Fec - tblTareas.FecIni AS Dias FROM tblTareas, tblEvaluaciones WHERE "
                        "tblTareas.Id = 1")
                     .toDouble(),
                 66.0);
    }

    void dateAddAddsIntervals()
    {
        QCOMPARE(scalar("SELECT DateAdd('d', 3, FecIni) AS F FROM tblTareas WHERE Id = 1").toString(),
                 QStringLiteral("2024-10-18"));
        QCOMPARE(scalar("SELECT DateAdd('d', -1, #2025/01/01#)").toString(), QStringLiteral("2024-12-31"));
        QCOMPARE(scalar("SELECT DateAdd('ww', 2, #2024/12/29#)").toString(), QStringLiteral("2025-01-12"));
        QCOMPARE(scalar("SELECT DateAdd('m', 1, #2024/01/31#)").toString(), QStringLiteral("2024-02-29"));
        QCOMPARE(scalar("SELECT DateAdd('yyyy', 1, #2024/02/29#)").toString(), QStringLiteral("2025-02-28"));
        QCOMPARE(scalar("SELECT DateAdd('m', -1, Fec) AS F FROM tblTutoriaCitas").toString(),
                 QStringLiteral("2024-10-05 16:30:00"));
        QCOMPARE(scalar("SELECT DateAdd('d', 1, #2024/12/29#) + 1").toString(), QStringLiteral("2024-12-31"));
    }

    void dateDiffCountsTheBoundariesCrossed()
    {
        QCOMPARE(scalar("SELECT DateDiff('d', #2024/12/29#, #2025/01/02#)").toInt(), 4);
        QCOMPARE(scalar("SELECT DateDiff('d', #2025/01/02#, #2024/12/29#)").toInt(), -4);
        QCOMPARE(scalar("SELECT DateDiff('d', FecIni, #2024/10/20#) AS N FROM tblTareas WHERE Id = 1").toInt(), 5);
        QCOMPARE(scalar("SELECT DateDiff('d', #2024/11/04#, Fec) AS N FROM tblTutoriaCitas").toInt(), 1);
        QCOMPARE(scalar("SELECT DateDiff('m', #2024/01/31#, #2024/02/01#)").toInt(), 1);
        QCOMPARE(scalar("SELECT DateDiff('yyyy', #2024/12/31#, #2025/01/01#)").toInt(), 1);
        QCOMPARE(scalar("SELECT DateDiff('ww', #2024/12/28#, #2024/12/29#)").toInt(), 1); // a Sunday crossed
    }

    void dateArithmeticThatCannotBeTranslatedIsASyntaxError_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::newRow("date + date") << "SELECT #2024/12/29# + #2024/01/01#";
        QTest::newRow("number - date") << "SELECT 1 - FecIni AS F FROM tblTareas";
        QTest::newRow("date * n") << "SELECT #2024/12/29# * 2";
        QTest::newRow("date / n") << "SELECT Date() / 2";
        QTest::newRow("-date") << "SELECT -#2024/12/29#";
        QTest::newRow("DateAdd by hours") << "SELECT DateAdd('h', 1, #2024/12/29#)";
        QTest::newRow("DateAdd by a column") << "SELECT DateAdd(Des, 1, FecIni) AS F FROM tblTareas";
        QTest::newRow("DateDiff with a first day") << "SELECT DateDiff('ww', #2024/12/28#, #2024/12/29#, 2)";
    }

    void dateArithmeticThatCannotBeTranslatedIsASyntaxError()
    {
        QFETCH(QString, statement);
        QString description;
        QCOMPARE(errorOf([&] { cn_->Translate(statement); }, &description), syntaxErrorNumber());
        QVERIFY2(description.startsWith(QStringLiteral("Error de sintaxis")), qPrintable(description));
    }

    // ---------------------------------------------------------- declared sizes on write

    void tooLongTextIsRefusedByAStatement()
    {
        auto cn = freshYear(QStringLiteral("long_text"));
        cn->ExecuteNative(QStringLiteral("INSERT INTO tblAlumnos (Id, Ape, Nom) VALUES (1, 'Abal', 'Iria')"));
        const QString huge(10'000'000, u'x');
        QString description;
        const int number = errorOf(
            [&] {
                cn->Execute(QStringLiteral("INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo) VALUES (2, '%1', 'Ana', 1)")
                                .arg(huge));
            },
            &description);
        QCOMPARE(number, int(RuntimeError::DatabaseError));
        QVERIFY2(description.contains(QStringLiteral("demasiado pequeño")), qPrintable(description.left(200)));
        QCOMPARE(rows(cn, QStringLiteral("SELECT Id FROM tblAlumnos")), 1);
        QCOMPARE(
            errorOf([&] { cn->Execute(QStringLiteral("UPDATE tblAlumnos SET Ape = '%1' WHERE Id = 1").arg(huge)); }),
            int(RuntimeError::DatabaseError));
        QCOMPARE(first(cn, QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1")).toString(),
                 QStringLiteral("Abal"));
        // The declared size itself fits; characters count, not bytes.
        const QString hundred = QString(99, u'x') + QStringLiteral("ñ");
        cn->Execute(QStringLiteral("UPDATE tblAlumnos SET Ape = '%1' WHERE Id = 1").arg(hundred));
        QCOMPARE(first(cn, QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1")).toString(), hundred);
        QCOMPARE(errorOf([&] { cn->Execute(QStringLiteral("UPDATE tblAlumnos SET Ape = Ape & 'x' WHERE Id = 1")); }),
                 int(RuntimeError::DatabaseError));
        QCOMPARE(errorOf([&] { cn->Execute(QStringLiteral("UPDATE tblAlumnos SET CP = 1234567 WHERE Id = 1")); }),
                 int(RuntimeError::DatabaseError)); // a number written to a text column counts as its text
        QCOMPARE(cn->columnSize(QStringLiteral("tblAlumnos"), QStringLiteral("Ape")), 100);
        QCOMPARE(cn->columnSize(QStringLiteral("TBLALUMNOS"), QStringLiteral("cp")), 6);
        QCOMPARE(cn->columnSize(QStringLiteral("tblAlumnos"), QStringLiteral("Foto")), 0);
        QCOMPARE(cn->columnSize(QStringLiteral("tblAlumnos"), QStringLiteral("Grupo")), 0);
    }

    void numbersOutsideTheColumnRangeAreAnOverflow_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("error");
        const int overflow = RuntimeError::Overflow;
        QTest::newRow("Byte 300") << "UPDATE tblTareasRubrica SET Max = 300 WHERE Id = 1" << overflow;
        QTest::newRow("Byte -1") << "UPDATE tblTareasRubrica SET Max = -1 WHERE Id = 1" << overflow;
        QTest::newRow("Byte 255") << "UPDATE tblTareasRubrica SET Max = 255 WHERE Id = 1" << 0;
        QTest::newRow("Byte 0")
            << "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (2, 1, 1, 0, 255)" << 0;
        QTest::newRow("Byte 256 inserted")
            << "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (2, 1, 1, 256, 4)" << overflow;
        QTest::newRow("Integer 40000") << "UPDATE tblTareasTipos SET Max = 40000 WHERE Id = 1" << overflow;
        QTest::newRow("Integer 32767") << "UPDATE tblTareasTipos SET Max = 32767 WHERE Id = 1" << 0;
        QTest::newRow("Integer -32768") << "UPDATE tblTareasTipos SET Min = -32768 WHERE Id = 1" << 0;
        QTest::newRow("Integer -32769") << "UPDATE tblTareasTipos SET Min = -32769 WHERE Id = 1" << overflow;
        QTest::newRow("Integer as text") << "UPDATE tblTareasTipos SET Max = '40000' WHERE Id = 1" << overflow;
        QTest::newRow("Long 2147483647") << "UPDATE tblTareasTiposValor SET Valor = 2147483647 WHERE Id = 1" << 0;
        QTest::newRow("Long 2147483648") << "UPDATE tblTareasTiposValor SET Valor = 2147483648 WHERE Id = 1"
                                         << overflow;
        QTest::newRow("key beyond Long") << "INSERT INTO tblNiveles (Id, Des) VALUES (4294967296, 'x')" << overflow;
    }

    void numbersOutsideTheColumnRangeAreAnOverflow()
    {
        QFETCH(QString, statement);
        QFETCH(int, error);
        auto cn = freshYear(QStringLiteral("range_%1").arg(QTest::currentDataTag()).remove(u' '));
        cn->ExecuteNative(
            QStringLiteral("INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Por, Max) VALUES (1, 1, '1', 50, 4);"
                           "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (1, 1, 1, 2, 4);"
                           "INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (1, 'Examen', 0, 10);"
                           "INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (1, "
                           "1, 1, 1, 1, 60);"));
        const QString before = first(cn, QStringLiteral("SELECT Max & Min FROM tblTareasTipos")).toString() +
                               first(cn, QStringLiteral("SELECT Max FROM tblTareasRubrica")).toString() +
                               first(cn, QStringLiteral("SELECT Valor FROM tblTareasTiposValor")).toString();
        QCOMPARE(errorOf([&] { cn->Execute(statement); }), error);
        if (error) {
            const QString after = first(cn, QStringLiteral("SELECT Max & Min FROM tblTareasTipos")).toString() +
                                  first(cn, QStringLiteral("SELECT Max FROM tblTareasRubrica")).toString() +
                                  first(cn, QStringLiteral("SELECT Valor FROM tblTareasTiposValor")).toString();
            QCOMPARE(after, before);
            QCOMPARE(rows(cn, QStringLiteral("SELECT Id FROM tblNotasRubrica")), 1);
            QCOMPARE(rows(cn, QStringLiteral("SELECT Id FROM tblNiveles")), 0);
        }
    }

    // One row that does not fit fails the statement: the rows before it
    // are not left written.
    void aStatementThatOverflowsOnOneRowWritesNoRow()
    {
        auto cn = freshYear(QStringLiteral("overflow_rows"));
        cn->ExecuteNative(
            QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max) VALUES (1, 'a', 0, 5), (2, 'b', 0, 10), "
                           "(3, 'c', 0, 5)"));
        QCOMPARE(errorOf([&] { cn->Execute(QStringLiteral("UPDATE tblTareasTipos SET Max = Max * 4000")); }),
                 int(RuntimeError::Overflow));
        QCOMPARE(first(cn, QStringLiteral("SELECT Sum(Max) AS S FROM tblTareasTipos")).toInt(), 20);
    }
};

QTEST_GUILESS_MAIN(TestJetSqlColumns)
#include "test_jetsql_columns.moc"
