// The shared record functions, on a seeded year opened as the session.
#include "core/Funciones.h"
#include "core/MesALetra.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "support/SessionYear.h"
#include "support/YearQueries.h"
#include "vb/Clock.h"
#include "vb/RuntimeError.h"

#include <QtTest>

using yearq::value;

class TestFunciones : public QObject {
    Q_OBJECT

    SessionYear session_;

private slots:
    void init() { session_.start(); }
    void cleanup() { session_.finish(); }

    void dateAndNowInStatementsFollowTheClock()
    {
        vb::Clock::setFixed(QDateTime(QDate(2031, 2, 28), QTime(9, 15, 30)));
        const QVariant today = value(QStringLiteral("SELECT Date() AS D"));
        const QVariant now = value(QStringLiteral("SELECT Now() AS D"));
        vb::Clock::reset();
        QCOMPARE(today.toString(), QStringLiteral("2031-02-28"));
        QCOMPARE(now.toString(), QStringLiteral("2031-02-28 09:15:30"));
        QCOMPARE(value(QStringLiteral("SELECT Date() AS D")).toString(), QDate::currentDate().toString(Qt::ISODate));
    }

    void siguienteIdOnAnEmptyTableIsOne()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblIncidencias"));
        QCOMPARE(SiguienteId(QStringLiteral("tblIncidencias"), QStringLiteral("Id"), QString()), 1);
    }

    void siguienteIdIsTheLastKeyPlusOne()
    {
        QCOMPARE(SiguienteId(QStringLiteral("tblNotas"), QStringLiteral("Id"), QString()), 18);
    }

    void aDeletedLastRowGivesItsKeyAgain()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblNotas WHERE Id = 17"));
        gConexion->Execute(QStringLiteral("DELETE * FROM tblNotas WHERE Id = 16"));
        QCOMPARE(SiguienteId(QStringLiteral("tblNotas"), QStringLiteral("Id"), QString()), 16);
    }

    void descripcionPorIdFindsTheText()
    {
        QCOMPARE(DescripcionPorId(QStringLiteral("tblAlumnos"), QStringLiteral("Id"), QStringLiteral("Ape"), 3),
                 QStringLiteral("Pérez Castro"));
    }

    void descripcionPorIdOfAKeyThatIsGoneIsNoEncontrado()
    {
        QCOMPARE(DescripcionPorId(QStringLiteral("tblAlumnos"), QStringLiteral("Id"), QStringLiteral("Ape"), 50),
                 QStringLiteral("NO ENCONTRADO"));
    }

    void idPorDescripcionFindsTheKey()
    {
        QCOMPARE(IdPorDescripcion(QStringLiteral("tblTutoriaMaterias"), QStringLiteral("Cod"), QStringLiteral("Id"),
                                  QStringLiteral("MAT")),
                 2);
    }

    void idPorDescripcionOfAnUnknownTextIsZero()
    {
        QCOMPARE(IdPorDescripcion(QStringLiteral("tblTutoriaMaterias"), QStringLiteral("Cod"), QStringLiteral("Id"),
                                  QStringLiteral("XYZ")),
                 0);
    }

    void existeRegistroOnSurnameAndNameJoined()
    {
        QVERIFY(ExisteRegistro(QStringLiteral("tblAlumnos"), QStringLiteral("[Ape] & [Nom]"),
                               QStringLiteral("García LópezAna")));
        QVERIFY(!ExisteRegistro(QStringLiteral("tblAlumnos"), QStringLiteral("[Ape] & [Nom]"),
                                QStringLiteral("García López Ana")));
    }

    void borrarRegistroDeletesTheRows()
    {
        BorrarRegistro(QStringLiteral("tblNotasRubrica"), QStringLiteral("IdNota"), QStringLiteral("7"));
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT * FROM tblNotasRubrica WHERE IdNota = 7")), 0);
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT * FROM tblNotasRubrica")), 2);
    }

    void borrarRegistroWithAnEmptyValueFails()
    {
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 BorrarRegistro(QStringLiteral("tblNotas"), QStringLiteral("Id"), QString()));
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT * FROM tblNotas")), 17);
    }

    void pesoTipoTareaReadsTheWeight()
    {
        QCOMPARE(PesoTipoTarea(1, 1, 1, 1), 60.0f);
        QCOMPARE(PesoTipoTarea(3, 1, 1, 1), 10.0f);
    }

    void pesoTipoTareaWithoutARowIsZero() { QCOMPARE(PesoTipoTarea(3, 2, 1, 1), 0.0f); }

    void pesoTipoTareaTakesTheFirstOfTwoRows()
    {
        gConexion->ExecuteNative(QStringLiteral("INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, "
                                                "IdGrupo, Valor) VALUES (8, 1, 1, 1, 1, 99)"));
        QCOMPARE(PesoTipoTarea(1, 1, 1, 1), 60.0f);
    }

    void renumerarOrdenOnAnEmptyTableDoesNothing()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblHorarioDias"));
        RenumerarOrden(QStringLiteral("tblHorarioDias"));
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT * FROM tblHorarioDias")), 0);
    }

    void renumerarOrdenClosesTheGapOfADeletedPosition()
    {
        gConexion->Execute(QStringLiteral("DELETE * FROM tblHorarioHoras WHERE Id = 1"));
        RenumerarOrden(QStringLiteral("tblHorarioHoras"));
        QCOMPARE(value(QStringLiteral("SELECT Orden FROM tblHorarioHoras WHERE Id = 2")).toInt(), 1);
        QCOMPARE(value(QStringLiteral("SELECT Orden FROM tblHorarioHoras WHERE Id = 3")).toInt(), 2);
    }

    // Sessions point at positions, not keys: without the shift of OrdenDia
    // the sessions of the second day now stand under the next day.
    void sessionsKeepPointingAtPositionsWhenADayGoes()
    {
        gConexion->ExecuteNative(
            QStringLiteral("INSERT INTO tblHorarioDias (Id, Des, Orden) VALUES (3, 'Mércores', 3);"
                           "INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, "
                           "Des, Color) VALUES (7, 3, 1, 2, 2, 'Mates mércores', 0)"));
        gConexion->Execute(QStringLiteral("DELETE * FROM tblHorarioDias WHERE Id = 1"));
        RenumerarOrden(QStringLiteral("tblHorarioDias"));
        const QString dayOfSession =
            QStringLiteral("SELECT tblHorarioDias.Des FROM tblHorarioSesiones INNER JOIN tblHorarioDias ON "
                           "tblHorarioSesiones.OrdenDia = tblHorarioDias.Orden WHERE tblHorarioSesiones.Id = %1");
        QCOMPARE(value(dayOfSession.arg(4)).toString(), QStringLiteral("Mércores")); // was Martes
        QCOMPARE(value(dayOfSession.arg(1)).toString(), QStringLiteral("Martes"));   // was Lunes
    }

    void notaPonderadaWeighsAndScales()
    {
        QCOMPARE(NotaPonderada(50.0f, 4, 3, 10), 3.75f);
        QCOMPARE(NotaPonderada(100.0f, 3, 1, 10), 3.333f);
        // 1/8 * 0.5 * 1 = 0.0625 -> half to even on three decimals
        QCOMPARE(NotaPonderada(50.0f, 8, 1, 1), 0.062f);
    }

    void notaPonderadaWithAMaximumOfZeroIsZero() { QCOMPARE(NotaPonderada(50.0f, 0, 3, 10), 0.0f); }

    void aStudentOfADeletedGroupStaysInTheLeftJoinListOnly()
    {
        const QString label = QStringLiteral("[tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des]");
        QString left = QStringLiteral("SELECT tblAlumnos.Id, %1 AS DesGrupo FROM ((tblAlumnos LEFT JOIN tblGrupos ON "
                                      "tblAlumnos.Grupo = tblGrupos.Id) LEFT JOIN tblCursos ON tblGrupos.IdCurso = "
                                      "tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id WHERE "
                                      "tblAlumnos.Id = 8")
                           .arg(label);
        QCOMPARE(yearq::rowCount(left), 1);
        QCOMPARE(value(left.replace(QStringLiteral("tblAlumnos.Id, "), QString())).toString().trimmed(), QString());
        QCOMPARE(yearq::rowCount(
                     QStringLiteral("SELECT tblAlumnos.Id FROM tblAlumnos INNER JOIN tblGrupos ON tblAlumnos.Grupo = "
                                    "tblGrupos.Id WHERE tblAlumnos.Id = 8")),
                 0);
    }

    void monthListsAreInCalendarOrderWithTheProgramsOwnGalicianNames()
    {
        QCOMPARE(MesALetra::Galego().size(), 12);
        QCOMPARE(MesALetra::Castelan().size(), 12);
        QCOMPARE(MesALetra::MesGalego(6), QStringLiteral("Xuño"));
        QCOMPARE(MesALetra::MesGalego(10), QStringLiteral("Outono"));
        QCOMPARE(MesALetra::MesGalego(12), QStringLiteral("Nadal"));
        QCOMPARE(MesALetra::MesCastelan(9), QStringLiteral("Setiembre"));
        QCOMPARE(MesALetra::MesCastelan(12), QStringLiteral("Diciembre"));
    }

    void anApostropheInAStatementFailsAndLeavesTheRowAsItWas()
    {
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 gConexion->Execute(QStringLiteral(
                                     "UPDATE tblNotas SET tblNotas.Nota = 5, tblNotas.Obs = 'Traballo d'equipo' WHERE "
                                     "tblNotas.IdTarea=1 AND tblNotas.IdAlu=1")));
        QCOMPARE(value(QStringLiteral("SELECT Obs FROM tblNotas WHERE Id = 1")).toString(),
                 QStringLiteral("Buen trabajo"));
        QCOMPARE(value(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = 1")).toDouble(), 7.5);
    }
};

QTEST_GUILESS_MAIN(TestFunciones)
#include "test_funciones.moc"
