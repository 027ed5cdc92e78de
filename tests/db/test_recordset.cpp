// The client-side cursor: counts, positions, moves, Find, and edits written
// back to the base table.
#include "db/Recordset.h"
#include "support/RuntimeErrors.h"
#include "support/TempYear.h"
#include "support/YearQueries.h"
#include "vb/RuntimeError.h"

#include <QDate>
#include <QFile>
#include <QtTest>

using db::Recordset;

class TestRecordset : public QObject {
    Q_OBJECT

private slots:
    void emptyRecordsetIsAtBofAndEof()
    {
        TempYear year;
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblNiveles"), year.connect());
        QCOMPARE(rs.RecordCount(), 0);
        QVERIFY(rs.Bof());
        QVERIFY(rs.Eof());
        QCOMPARE(rs.AbsolutePosition(), int(Recordset::PosUnknown));
        QCOMPARE(errorNumber([&] { rs.MoveFirst(); }), int(RuntimeError::NoCurrentRecord));
        QCOMPARE(errorNumber([&] { rs.Value(0); }), int(RuntimeError::NoCurrentRecord));
    }

    void positionsAreOneBasedAndFollowTheMoves()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Id, Des FROM tblEvaluaciones ORDER BY Id"), year.connect());
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.AbsolutePosition(), 1);
        QVERIFY(!rs.Bof());
        rs.MoveLast();
        QCOMPARE(rs.AbsolutePosition(), 3);
        QCOMPARE(rs.Value("Id").toInt(), 3);
        rs.MoveNext();
        QVERIFY(rs.Eof());
        QCOMPARE(rs.AbsolutePosition(), int(Recordset::PosEOF));
        QCOMPARE(errorNumber([&] { rs.MoveNext(); }), int(RuntimeError::NoCurrentRecord));
        rs.SetAbsolutePosition(2);
        QCOMPARE(rs.Fields("Des").Value().toString(), QStringLiteral("2ª Evaluación"));
        rs.MovePrevious();
        rs.MovePrevious();
        QVERIFY(rs.Bof());
        QCOMPARE(rs.AbsolutePosition(), int(Recordset::PosBOF));
        QCOMPARE(errorNumber([&] { rs.SetAbsolutePosition(4); }), int(RuntimeError::BadArguments));
    }

    void findSearchesForwardFromTheCurrentRow()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Id, Ape, Nom FROM tblAlumnos ORDER BY Id"), year.connect());
        rs.Find(QStringLiteral("Id = 4"));
        QCOMPARE(rs.AbsolutePosition(), 4);
        rs.Find(QStringLiteral("Id = 2")); // behind the current row
        QVERIFY(rs.Eof());
        rs.MoveFirst();
        rs.Find(QStringLiteral("Nom = 'uxía'")); // texts compare without regard to case
        QCOMPARE(rs.Value("Id").toInt(), 3);
        rs.MoveFirst();
        rs.Find(QStringLiteral("Ape LIKE 'vázquez*'"));
        QCOMPARE(rs.Value("Id").toInt(), 6);
        QCOMPARE(errorNumber([&] { rs.Find(QStringLiteral("Nom = 'O'Neill'")); }), int(RuntimeError::BadArguments));
        QCOMPARE(errorNumber([&] { rs.Find(QStringLiteral("Nada = 1")); }), int(RuntimeError::ItemNotFound));
    }

    void typesFollowTheDeclaredColumns()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblAlumnos WHERE Id = 2"), year.connect());
        QCOMPARE(rs.Value("FecNac").typeId(), int(QMetaType::QDate));
        QCOMPARE(rs.Value("FecNac").toDate(), QDate(2014, 7, 1));
        QVERIFY(rs.Value("FecMat").isNull());
        QCOMPARE(rs.Value("Grupo").typeId(), int(QMetaType::Int));
        Recordset marks;
        marks.Open(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 2"), year.connect());
        QCOMPARE(marks.Value(0).typeId(), int(QMetaType::Float));
        QCOMPARE(marks.Value(0).toFloat(), 4.9995f);
        Recordset tasks;
        tasks.Open(QStringLiteral("tblTareas"), year.connect());
        QCOMPARE(tasks.Value("Nota").typeId(), int(QMetaType::Bool));
    }

    void fieldsOfTheSameNameAreToldApartByTable()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT tblCursos.Des, tblNiveles.Des FROM tblCursos INNER JOIN tblNiveles ON "
                               "tblCursos.IdNivel = tblNiveles.Id ORDER BY tblCursos.Id"),
                year.connect());
        QCOMPARE(rs.FieldName(0), QStringLiteral("tblCursos.Des"));
        QCOMPARE(rs.FieldName(1), QStringLiteral("tblNiveles.Des"));
        QCOMPARE(rs.Value("tblNiveles.Des").toString(), QStringLiteral("Primaria"));
    }

    void addNewOnATableInsertsTheRowWithItsDefaults()
    {
        TempYear year;
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("tblTareas"), cn);
        rs.AddNew();
        rs.Fields("Id") = 1;
        rs.Fields("Des") = QStringLiteral("Exame");
        rs.Fields("FecIni") = QDate(2024, 10, 1);
        rs.Update();
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.Value("Nota").toBool(), false); // Booleans default to False
        QCOMPARE(yearq::value(QStringLiteral("SELECT FecIni FROM tblTareas WHERE Id = 1"), cn).toDate(),
                 QDate(2024, 10, 1));
        QCOMPARE(yearq::value(QStringLiteral("SELECT Fin FROM tblTareas WHERE Id = 1"), cn).toBool(), false);
    }

    void editingTheRowOfAStatementWritesItBack()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblTareas WHERE Id = 4"), cn);
        rs.Fields("Des") = QStringLiteral("Dictado 2");
        rs.Fields("Nota") = true;
        rs.Fields("FecFin") = QVariant();
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Des FROM tblTareas WHERE Id = 4"), cn).toString(),
                 QStringLiteral("Dictado 2"));
        QCOMPARE(yearq::value(QStringLiteral("SELECT Nota FROM tblTareas WHERE Id = 4"), cn).toBool(), true);
        QVERIFY(yearq::value(QStringLiteral("SELECT FecFin FROM tblTareas WHERE Id = 4"), cn).isNull());
    }

    void movingOffAnEditedRowSavesIt()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Orden FROM tblHorarioHoras ORDER BY Orden"), cn);
        rs.Fields("Orden") = 10;
        rs.MoveNext();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Orden FROM tblHorarioHoras WHERE Id = 1"), cn).toInt(), 10);
    }

    void aTextWithAnApostropheIsStoredThroughARecordset()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblNotas WHERE Id = 1"), cn);
        rs.Fields("Obs") = QStringLiteral("Traballo d'equipo");
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Obs FROM tblNotas WHERE Id = 1"), cn).toString(),
                 QStringLiteral("Traballo d'equipo"));
    }

    void singleColumnsTakeTextByTheLocale()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblNotas WHERE Id = 1"), cn);
        rs.Fields("Nota") = QStringLiteral("6,5");
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 1"), cn).toDouble(), 6.5);
        QCOMPARE(errorNumber([&] { rs.Fields("Nota") = QStringLiteral("seis"); }), int(RuntimeError::TypeMismatch));
    }

    void deleteRemovesTheRowAndMoveNextGoesToTheFollowingOne()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblEvaluaciones ORDER BY Id"), cn);
        rs.Delete();
        QCOMPARE(rs.RecordCount(), 2);
        QVERIFY(!rs.Eof());
        QCOMPARE(errorNumber([&] { rs.Value("Id"); }), int(RuntimeError::NoCurrentRecord));
        rs.MoveNext();
        QCOMPARE(rs.Value("Id").toInt(), 2);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblEvaluaciones"), cn).toInt(), 2);
    }

    // The student list reads groups, courses and levels through LEFT JOINs;
    // deleting a row of it removes the student and nothing it looks up.
    void deleteOnAJoinRemovesTheRowOfTheFirstTableOnly()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral(
                    "SELECT tblAlumnos.Ape, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] AS Curso, tblAlumnos.Id "
                    "FROM ((tblAlumnos LEFT JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id) LEFT JOIN "
                    "tblCursos ON tblGrupos.IdCurso = tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel "
                    "= tblNiveles.Id ORDER BY tblAlumnos.Id"),
                cn);
        rs.Delete();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblAlumnos"), cn).toInt(), 7);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblAlumnos WHERE Id = 1"), cn).toInt(), 0);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNiveles"), cn).toInt(), 2);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblGrupos"), cn).toInt(), 3);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblCursos"), cn).toInt(), 3);
    }

    void aColumnOfATableNestedOnTheRightOfAJoinIsReadOnly()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(
            QStringLiteral("SELECT tblAlumnos.Nom, tblCursos.Des FROM tblAlumnos INNER JOIN (tblGrupos INNER JOIN "
                           "tblCursos ON tblGrupos.IdCurso = tblCursos.Id) ON tblAlumnos.Grupo = tblGrupos.Id ORDER BY "
                           "tblAlumnos.Id"),
            cn);
        QVERIFY(errorNumber([&] { rs.Fields("Des") = QStringLiteral("x"); }) != 0);
        rs.Fields("Nom") = QStringLiteral("Ana María");
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Nom FROM tblAlumnos WHERE Id = 1"), cn).toString(),
                 QStringLiteral("Ana María"));
        QCOMPARE(yearq::value(QStringLiteral("SELECT Des FROM tblCursos WHERE Id = 1"), cn).toString(),
                 QStringLiteral("5º"));
    }

    void computedColumnsAreReadOnly()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Ape & ', ' & Nom AS Alumno, Id FROM tblAlumnos"), year.connect());
        QVERIFY(errorNumber([&] { rs.Fields("Alumno") = QStringLiteral("x"); }) != 0);
    }

    void aCommandCannotBeOpenedAsARecordset()
    {
        TempYear year;
        Recordset rs;
        QVERIFY(errorNumber([&] { rs.Open(QStringLiteral("DELETE * FROM tblNotas"), year.connect()); }) != 0);
    }

    void aClosedRecordsetRefusesWork()
    {
        Recordset rs;
        QCOMPARE(errorNumber([&] { rs.RecordCount(); }), int(RuntimeError::ObjectClosed));
    }

    void aFileOpenedReadOnlyIsReadAndRefusesWrites()
    {
        TempYear year(TempYear::Fill::Seeded);
        const auto cn = db::Connection::OpenReadOnly(year.path());
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Des FROM tblTareasRubrica WHERE IdTarea = 3 ORDER BY Num"), cn);
        QCOMPARE(rs.RecordCount(), 3);
        QVERIFY(errorNumber([&] { cn->Execute(QStringLiteral("DELETE * FROM tblTareasRubrica")); }) != 0);
        QCOMPARE(yearq::count(QStringLiteral("tblTareasRubrica"), year.connect()), 4);
        QVERIFY(errorNumber([&] { db::Connection::OpenReadOnly(year.folder() + QStringLiteral("/nada.mdb")); }) != 0);
    }

    void anOldJetFileIsRefusedWithAClearMessage()
    {
        QTemporaryDir dir;
        const QString path = dir.path() + QStringLiteral("/Xestion.mdb");
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        QByteArray head(2048, '\0');
        head.replace(4, 15, "Standard Jet DB");
        f.write(head);
        f.close();
        try {
            db::Connection::Open(path);
            QFAIL("opened");
        } catch (const RuntimeError& e) {
            QVERIFY(e.Description().contains(path));
            QVERIFY(e.Description().contains(QStringLiteral("Jet")));
        }
    }

    // Texts are shared between rows that repeat them; every value must still
    // come back exactly: repeated, distinct beyond what is shared, long, empty.
    void everyTextComesBackAsStoredWhetherRepeatedOrNot()
    {
        TempYear year;
        auto cn = year.connect();
        QStringList expected;
        QString inserts = QStringLiteral("BEGIN;");
        for (int i = 1; i <= 1500; ++i) {
            QString text;
            if (i % 3 == 0)
                text = QStringLiteral("Exame"); // repeated
            else if (i % 3 == 1)
                text = QStringLiteral("Tarefa número %1").arg(i); // distinct
            else
                text = QStringLiteral("Traballo longo ").repeated(6) + QString::number(i); // beyond the short ones
            if (i == 7)
                text = QString(); // empty
            expected << text;
            inserts += QStringLiteral("INSERT INTO tblMaterias (Id, Des) VALUES (%1, '%2');").arg(i).arg(text);
        }
        cn->ExecuteNative(inserts + QStringLiteral("COMMIT;"));
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Des FROM tblMaterias ORDER BY Id"), cn);
        QCOMPARE(rs.RecordCount(), 1500);
        for (int i = 1; i <= 1500; ++i) {
            const QVariant v = rs.ValueAt(i, 0);
            QCOMPARE(v.toString(), expected[i - 1]);
        }
        rs.SetAbsolutePosition(7);
        QCOMPARE(rs.Value(0).typeId(), int(QMetaType::QString));
        QVERIFY(!rs.Value(0).toString().isNull()); // empty, not missing
    }

    void valueAtReadsAnyRowWithoutMoving()
    {
        TempYear year(TempYear::Fill::Seeded);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Id, Des FROM tblEvaluaciones ORDER BY Id"), year.connect());
        rs.SetAbsolutePosition(2);
        QCOMPARE(rs.ValueAt(3, 0).toInt(), 3);
        QCOMPARE(rs.ValueAt(1, 1).toString(), QStringLiteral("1ª Evaluación"));
        QCOMPARE(rs.AbsolutePosition(), 2);
        QCOMPARE(errorNumber([&] { rs.ValueAt(4, 0); }), int(RuntimeError::BadArguments));
        QCOMPARE(errorNumber([&] { rs.ValueAt(1, 2); }), int(RuntimeError::BadArguments));
    }

    // Rows are kept one after another: adding, cancelling and deleting in the
    // middle must leave the others as they were.
    void rowsAroundAnAddedCancelledOrDeletedRowStayWhole()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT Id, Des FROM tblEvaluaciones ORDER BY Id"), cn);
        rs.AddNew();
        rs.Fields("Id") = 9;
        rs.Fields("Des") = QStringLiteral("Extraordinaria");
        rs.Update();
        rs.AddNew();
        rs.CancelUpdate();
        QCOMPARE(rs.RecordCount(), 4);
        rs.SetAbsolutePosition(2);
        rs.Delete();
        QCOMPARE(rs.RecordCount(), 3);
        QStringList texts;
        for (int i = 1; i <= 3; ++i)
            texts << rs.ValueAt(i, 0).toString() + u' ' + rs.ValueAt(i, 1).toString();
        QCOMPARE(texts, (QStringList{QStringLiteral("1 1ª Evaluación"), QStringLiteral("3 3ª Evaluación"),
                                     QStringLiteral("9 Extraordinaria")}));
        rs.MoveLast();
        rs.Fields("Des") = QStringLiteral("Extra");
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Des FROM tblEvaluaciones WHERE Id = 9"), cn).toString(),
                 QStringLiteral("Extra"));
    }

    // Newest first; tasks of the same day in the order they were added.
    void tasksByDateDescendingKeepTheirOrderWithinADay()
    {
        TempYear year;
        auto cn = year.connect();
        cn->ExecuteNative(
            QStringLiteral("INSERT INTO tblTareas (Id, Des, FecIni) VALUES (5,'e','2024-10-02'),(2,'b','2024-10-03'),"
                           "(7,'g','2024-10-02'),(1,'a',NULL),(3,'c','2024-10-02 12:00:00'),(4,'d','2024-10-03');"));
        Recordset rs;
        rs.Open(QStringLiteral("SELECT tblTareas.Id FROM tblTareas ORDER BY tblTareas.FecIni DESC"), cn);
        QStringList ids;
        for (int i = 1; i <= rs.RecordCount(); ++i)
            ids << rs.ValueAt(i, 0).toString();
        QCOMPARE(ids, (QStringList{"2", "4", "3", "5", "7", "1"}));
    }

    void anEmptyOrMissingFileIsNoYear()
    {
        QTemporaryDir dir;
        const QString path = dir.path() + QStringLiteral("/Xestion.mdb");
        QVERIFY_THROWS_EXCEPTION(RuntimeError, db::Connection::Open(path));
        QVERIFY(!QFile::exists(path)); // nothing created
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.close();
        try {
            db::Connection::Open(path);
            QFAIL("opened");
        } catch (const RuntimeError& e) {
            QVERIFY(e.Description().contains(QStringLiteral("no es una base de datos SQLite")));
        }
    }

    // ---------------------------------------------------------- what a field can hold

    void singleColumnStoresNearestSingleThroughARecordset()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rs;
        rs.Open(QStringLiteral("tblNotas"), cn);
        rs.AddNew();
        rs.Fields("Id") = 100;
        rs.Fields("IdTarea") = 1;
        rs.Fields("IdAlu") = 1;
        rs.Fields("Nota") = 8.999;
        rs.Update();
        const QString raw = QStringLiteral("SELECT Nota * 1.0 AS N FROM tblNotas WHERE Id = %1");
        QVERIFY(yearq::value(raw.arg(100), cn).toDouble() == double(8.999f));
        Recordset edit;
        edit.Open(QStringLiteral("SELECT * FROM tblNotasEval WHERE Id = 3"), cn);
        edit.Fields("NotaRec") = 4.999;
        edit.Update();
        QVERIFY(
            yearq::value(QStringLiteral("SELECT NotaRec * 1.0 AS N FROM tblNotasEval WHERE Id = 3"), cn).toDouble() ==
            double(4.999f));
    }

    void tooLongTextIsRefusedByARecordset()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        const QString ape = yearq::value(QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1"), cn).toString();
        const QString huge(10'000'000, u'x');
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblAlumnos WHERE Id = 1"), cn);
        QCOMPARE(errorNumber([&] { rs.Fields("Ape") = huge; }), -2147217887);
        QCOMPARE(rs.Value("Ape").toString(), ape);
        rs.Fields("Nom") = QStringLiteral("Outro");
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1"), cn).toString(), ape);
        // A new row with a text too long is not written at all.
        const int before = yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblAlumnos"), cn).toInt();
        Recordset add;
        add.Open(QStringLiteral("tblAlumnos"), cn);
        add.AddNew();
        add.Fields("Id") = 500;
        QCOMPARE(errorNumber([&] { add.Fields("Ape") = huge; }), -2147217887);
        add.CancelUpdate();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblAlumnos"), cn).toInt(), before);
        // The declared size itself fits.
        rs.Fields("Ape") = QString(100, u'ñ');
        rs.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1"), cn).toString(),
                 QString(100, u'ñ'));
    }

    void numbersOutsideTheColumnRangeAreAnOverflowInARecordset()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        Recordset rubric;
        rubric.Open(QStringLiteral("SELECT * FROM tblTareasRubrica WHERE Id = 1"), cn);
        QCOMPARE(errorNumber([&] { rubric.Fields("Max") = 300; }), int(RuntimeError::Overflow));
        QCOMPARE(errorNumber([&] { rubric.Fields("Max") = -1; }), int(RuntimeError::Overflow));
        QCOMPARE(rubric.Value("Max").toInt(), 4);
        rubric.Fields("Max") = 255;
        rubric.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Max FROM tblTareasRubrica WHERE Id = 1"), cn).toInt(), 255);

        Recordset types;
        types.Open(QStringLiteral("SELECT * FROM tblTareasTipos WHERE Id = 1"), cn);
        QCOMPARE(errorNumber([&] { types.Fields("Max") = 40000; }), int(RuntimeError::Overflow));
        QCOMPARE(errorNumber([&] { types.Fields("Min") = -32769; }), int(RuntimeError::Overflow));
        types.Fields("Max") = 32767;
        types.Fields("Min") = -32768;
        types.Update();
        QCOMPARE(yearq::value(QStringLiteral("SELECT Max FROM tblTareasTipos WHERE Id = 1"), cn).toInt(), 32767);
        QCOMPARE(yearq::value(QStringLiteral("SELECT Min FROM tblTareasTipos WHERE Id = 1"), cn).toInt(), -32768);

        Recordset weights;
        weights.Open(QStringLiteral("SELECT * FROM tblTareasTiposValor WHERE Id = 1"), cn);
        QCOMPARE(errorNumber([&] { weights.Fields("Valor") = qint64(2147483648LL); }), int(RuntimeError::Overflow));
    }
};

QTEST_GUILESS_MAIN(TestRecordset)
#include "test_recordset.moc"
