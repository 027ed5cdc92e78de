// RellenarCombo, OrdenarGrid and PulsarTecla on a seeded year.
#include "core/Modulo.h"
#include "support/GridText.h"
#include "support/SessionYear.h"
#include "ui/FlexGrid.h"
#include "ui/UiFunciones.h"

#include <QComboBox>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

namespace {

// Marks of three students, unsorted, in columns 1 (name) and 2 (mark).
void fillMarks(FlexGrid& grid)
{
    grid.setCols(3);
    grid.setRows(4);
    const QStringList names{QStringLiteral("Bea"), QStringLiteral("Carla"), QStringLiteral("Ana")};
    const QStringList marks{QStringLiteral("5"), QStringLiteral("10"), QStringLiteral("7,5")};
    for (int r = 1; r <= 3; ++r) {
        grid.setTextMatrix(r, 1, names[r - 1]);
        grid.setTextMatrix(r, 2, marks[r - 1]);
    }
}

} // namespace

class TestUiFunciones : public QObject {
    Q_OBJECT

    SessionYear session_;

private slots:
    void init()
    {
        session_.start();
        resetOrdenarGrid();
    }
    void cleanup() { session_.finish(); }

    void rellenarComboAddsTextsInKeyOrder()
    {
        QComboBox combo;
        RellenarCombo(QStringLiteral("tblMaterias"), QStringLiteral("Id"), QStringLiteral("Des"), &combo, QString());
        QCOMPARE(gridtext::items(combo), (QStringList{QStringLiteral("Lengua"), QStringLiteral("Matemáticas"),
                                                      QStringLiteral("Ciencias Naturales")}));
    }

    void rellenarComboAppendsWithoutClearingAndLeavesItemData()
    {
        QComboBox combo;
        combo.addItem(QStringLiteral("(ninguna)"), 99);
        RellenarCombo(QStringLiteral("tblMaterias"), QStringLiteral("Id"), QStringLiteral("Des"), &combo,
                      QStringLiteral("tblMaterias.Id > 1"));
        QCOMPARE(gridtext::items(combo), (QStringList{QStringLiteral("(ninguna)"), QStringLiteral("Matemáticas"),
                                                      QStringLiteral("Ciencias Naturales")}));
        QCOMPARE(combo.itemData(0).toInt(), 99);
        QVERIFY(!combo.itemData(1).isValid());
        QVERIFY(!combo.itemData(2).isValid());
    }

    void rellenarComboWithAFilterThatMatchesNothingAddsNothing()
    {
        QComboBox combo;
        RellenarCombo(QStringLiteral("tblMaterias"), QStringLiteral("Id"), QStringLiteral("Des"), &combo,
                      QStringLiteral("tblMaterias.Id = 0"));
        QCOMPARE(combo.count(), 0);
    }

    void ordenarGridTwiceOnAColumnIsAscendingThenDescendingThenAscending()
    {
        FlexGrid grid;
        fillMarks(grid);
        OrdenarGrid(&grid, 2);
        QCOMPARE(gridtext::column(grid, 2),
                 (QStringList{QStringLiteral("5"), QStringLiteral("7,5"), QStringLiteral("10")}));
        QCOMPARE(gridtext::column(grid, 1),
                 (QStringList{QStringLiteral("Bea"), QStringLiteral("Ana"), QStringLiteral("Carla")}));
        OrdenarGrid(&grid, 2);
        QCOMPARE(gridtext::column(grid, 2),
                 (QStringList{QStringLiteral("10"), QStringLiteral("7,5"), QStringLiteral("5")}));
        OrdenarGrid(&grid, 2);
        QCOMPARE(gridtext::column(grid, 2),
                 (QStringList{QStringLiteral("5"), QStringLiteral("7,5"), QStringLiteral("10")}));
        QVERIFY(grid.Redraw());
    }

    void ordenarGridOnAnotherColumnStartsAscending()
    {
        FlexGrid grid;
        fillMarks(grid);
        OrdenarGrid(&grid, 2); // ascending by mark
        OrdenarGrid(&grid, 1); // another column: ascending again
        QCOMPARE(gridtext::column(grid, 1),
                 (QStringList{QStringLiteral("Ana"), QStringLiteral("Bea"), QStringLiteral("Carla")}));
        OrdenarGrid(&grid, 1);
        QCOMPARE(gridtext::column(grid, 1),
                 (QStringList{QStringLiteral("Carla"), QStringLiteral("Bea"), QStringLiteral("Ana")}));
    }

    void rememberedSortIsSharedByEveryGridAndCanBeReset()
    {
        FlexGrid first;
        FlexGrid second;
        fillMarks(first);
        fillMarks(second);
        OrdenarGrid(&first, 1);
        OrdenarGrid(&second, 1); // same column, ascending just before: descending
        QCOMPARE(gridtext::column(second, 1),
                 (QStringList{QStringLiteral("Carla"), QStringLiteral("Bea"), QStringLiteral("Ana")}));
        OrdenarGrid(&first, 1);
        resetOrdenarGrid();
        OrdenarGrid(&second, 1);
        QCOMPARE(gridtext::column(second, 1),
                 (QStringList{QStringLiteral("Ana"), QStringLiteral("Bea"), QStringLiteral("Carla")}));
    }

    void ordenarGridIgnoresAColumnOutsideTheGrid()
    {
        FlexGrid grid;
        fillMarks(grid);
        OrdenarGrid(&grid, 9);
        QCOMPARE(gridtext::column(grid, 1),
                 (QStringList{QStringLiteral("Bea"), QStringLiteral("Carla"), QStringLiteral("Ana")}));
        QVERIFY(grid.Redraw());
    }

    void pulsarTeclaTabMovesToTheNextField()
    {
        QWidget form;
        auto* first = new QLineEdit(&form);
        auto* second = new QLineEdit(&form);
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(first);
        layout->addWidget(second);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        first->setFocus();
        PulsarTecla(9);
        QTRY_VERIFY(second->hasFocus());
    }

    void pulsarTeclaTypesALetter()
    {
        QLineEdit field;
        field.show();
        field.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&field));
        field.setFocus();
        PulsarTecla('A');
        QTRY_COMPARE(field.text(), QStringLiteral("a"));
    }
};

QTEST_MAIN(TestUiFunciones)
#include "test_ui_funciones.moc"
