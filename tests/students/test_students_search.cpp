// The search dialog on a seeded year: its two modes, what the search text
// matches, and how a student is chosen or nobody is.
#include "AlumnosTest.h"
#include "students/frmAtopar.h"

#include <QLineEdit>
#include <QPushButton>

using namespace alumnos_test;
using yearq::count;

class TestStudentsSearch : public QObject {
    Q_OBJECT

    Year year_;

private slots:
    void init() { year_.start(); }
    void cleanup() { year_.finish(); }

    void searchAlumnosListsEveryStudentWithItsColumns()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        const FlexGrid& g = *atopar.mshDatos;
        QCOMPARE(atopar.Caption(), QStringLiteral("Buscar Alumno"));
        QCOMPARE(atopar.cmdNuevo->text(), QStringLiteral("&NUEVO ALUMNO"));
        QCOMPARE(g.Rows(), 9);
        QCOMPARE(g.Cols(), 5);
        QCOMPARE(cells(g, 0, 1, 3), QStringLiteral("ALUMNO | CORREO ELECTRÓNICO | GRUPO"));
        QCOMPARE(cells(g, 1, 1), QStringLiteral("Castro Ferreño, María | maria.castro@example.com | 2º ESO C | 7"));
        QCOMPARE(g.ColWidth(0), 500);
        QCOMPARE(g.ColWidth(1), 5000);
        QCOMPARE(g.ColWidth(2), 3000);
        QCOMPARE(g.ColWidth(3), 3000);
        QCOMPARE(g.ColWidth(4), 0);
        QVERIFY(g.CellAlignment(0, 1) & Qt::AlignHCenter);
        QVERIFY(g.CellAlignment(1, 1) & Qt::AlignLeft);
        QCOMPARE(g.CellBackColor(2, 1), kStripe);
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.ColSel(), 4);
        // The student of a group that is gone, with a blank group.
        QCOMPARE(g.TextMatrix(7, 1), QStringLiteral("Souto Peña, Antía"));
        QCOMPARE(g.TextMatrix(7, 3).trimmed(), QString());
    }

    void searchTutoriaListsOnlyTutoredGroupsAndNeverAStudentWithoutGroup()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("AlumnoTutoria"));
        atopar.show();
        const FlexGrid& g = *atopar.mshDatos;
        QCOMPARE(atopar.cmdNuevo->text(), QStringLiteral("&NUEVO ALUMNO"));
        QCOMPARE(g.Cols(), 3);
        QCOMPARE(g.TextMatrix(0, 1), QStringLiteral("ALUMNO"));
        QCOMPARE(cells(g, 1, 1), QStringLiteral("Fernández Núñez, Brais | 2"));
        QCOMPARE(cells(g, 2, 1), QStringLiteral("García López, Ana | 1"));
        QCOMPARE(cells(g, 3, 1), QStringLiteral("Pérez Castro, Uxía | 3"));
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(g.ColWidth(1), 8000);
        QCOMPARE(g.ColWidth(2), 0);
        QCOMPARE(g.ColSel(), 2);
        atopar.txtBuscar->setText(QStringLiteral("Souto"));
        pressEnter(atopar.txtBuscar);
        QCOMPARE(g.Rows(), 2);
        QCOMPARE(g.TextMatrix(1, 1), QString());
    }

    void searchMatchesNameAcrossTheCommaMailAndGroup()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        auto busca = [&](const QString& text) {
            atopar.txtBuscar->setText(text);
            pressEnter(atopar.txtBuscar);
            QStringList found;
            for (int r = 1; r < atopar.mshDatos->Rows(); ++r)
                found << atopar.mshDatos->TextMatrix(r, 1);
            return found;
        };
        QCOMPARE(busca(QStringLiteral("López, A")), QStringList{"García López, Ana"});
        QCOMPARE(busca(QStringLiteral("lopez, a")), QStringList{"García López, Ana"});
        QCOMPARE(busca(QStringLiteral("sabela.martinez")), QStringList{"Martínez Otero, Sabela"});
        QCOMPARE(busca(QStringLiteral("2º ESO C")), (QStringList{"Castro Ferreño, María", "Vázquez Muñoz, Xoán"}));
        QCOMPARE(busca(QStringLiteral("zzz")), QStringList{QString()});
        // The tutoring mode reads the name only.
        atopar.setEstado(QStringLiteral("AlumnoTutoria"));
        QCOMPARE(busca(QStringLiteral("5º Primaria")), QStringList{QString()});
        QCOMPARE(busca(QStringLiteral("o, U")), QStringList{"Pérez Castro, Uxía"});
    }

    void enterOrDoubleClickChoosesTheStudentAndCloses()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        atopar.mshDatos->setRow(2);
        pressEnter(atopar.mshDatos);
        QVERIFY(!atopar.isVisible());
        QCOMPARE(CodigoAtopado.toInt(), 2);
        QCOMPARE(gAtopar, QString());

        CodigoAtopado = QVariant();
        frmAtopar otro;
        otro.setEstado(QStringLiteral("AlumnoTutoria"));
        otro.resize(900, 500);
        otro.show();
        doubleClickCell(otro.mshDatos, 3, 1);
        QVERIFY(!otro.isVisible());
        QCOMPARE(CodigoAtopado.toInt(), 3);
    }

    void closingTheSearchChoosesNobodyAndSetsGAtopar()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        atopar.close();
        QVERIFY(!CodigoAtopado.isValid());
        QCOMPARE(gAtopar, QStringLiteral("0"));
    }

    void enterOnAnEmptySearchChoosesNobody()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        atopar.txtBuscar->setText(QStringLiteral("zzz"));
        pressEnter(atopar.txtBuscar);
        pressEnter(atopar.mshDatos);
        QVERIFY(atopar.isVisible());
        QVERIFY(!CodigoAtopado.isValid());
    }

    void nuevoAlumnoDoesNothing()
    {
        frmAtopar atopar;
        atopar.setEstado(QStringLiteral("Alumnos"));
        atopar.show();
        QVERIFY(!opensAModal([&] { click(atopar.cmdNuevo); }));
        QVERIFY(atopar.isVisible());
        QCOMPARE(atopar.mshDatos->Rows(), 9);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QVERIFY(!CodigoAtopado.isValid());
        QVERIFY(atopar.cursor().shape() != Qt::WaitCursor);
    }
};

QTEST_MAIN(TestStudentsSearch)
#include "test_students_search.moc"
