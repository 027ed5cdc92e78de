// The grid: shape and indices, fixed cells, sizes in twips,
// colours, sorting, the wheel, binding and the list fill of the list screens.
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "support/SessionYear.h"
#include "support/Wheel.h"
#include "ui/Colors.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/GridShape.h"
#include "vb/RuntimeError.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

namespace {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "

void openRs(db::Recordset& rs, const QString& sql)
{
    rs.Open(sql, gConexion);
}

// A grid of n data rows whose column 1 holds "r<n>" and column 2 the number n.
void fillNumbered(FlexGrid& grid, int rows)
{
    grid.setCols(3);
    grid.setRows(rows + 1);
    for (int r = 1; r <= rows; ++r) {
        grid.setTextMatrix(r, 0, QString::number(r));
        grid.setTextMatrix(r, 1, QStringLiteral("r%1").arg(r));
        grid.setTextMatrix(r, 2, QString::number(r));
    }
}

} // namespace

class TestFlexGrid : public QObject {
    Q_OBJECT

    SessionYear session_;

private slots:
    void init() { session_.start(); }
    void cleanup() { session_.finish(); }

    void aClippedCellEndsInAnEllipsisAndTellsItsTextInATooltip()
    {
        FlexGrid g;
        g.setRows(3);
        g.setCols(3);
        g.setColWidth(1, 900);
        g.setColWidth(2, 4000);
        const QString longText = QStringLiteral("2º Bacharelato Ciencias e Tecnoloxía B");
        g.setTextMatrix(1, 1, longText);
        g.setTextMatrix(1, 2, longText);
        g.setTextMatrix(2, 1, QStringLiteral("1º A"));
        g.resize(600, 200);
        g.show();
        QVERIFY(QTest::qWaitForWindowExposed(&g));
        QCOMPARE(g.textElideMode(), Qt::ElideRight);
        const auto centre = [&](int row, int col) {
            return g.visualRect(g.model()->index(row - g.FixedRows(), col - g.FixedCols())).center();
        };
        QCOMPARE(g.clippedTextAt(centre(1, 1)), longText);  // cut short: the whole text
        QCOMPARE(g.clippedTextAt(centre(1, 2)), QString()); // fits: no tooltip
        QCOMPARE(g.clippedTextAt(centre(2, 1)), QString());
        QCOMPARE(g.TextMatrix(1, 1), longText); // the cell keeps its text
    }

    void newGridHasTwoRowsAndTwoColsOneOfEachFixed()
    {
        FlexGrid grid;
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(grid.Cols(), 2);
        QCOMPARE(grid.FixedRows(), 1);
        QCOMPARE(grid.FixedCols(), 1);
        QCOMPARE(grid.TextMatrix(0, 0), QString());
        QCOMPARE(grid.TextMatrix(1, 1), QString());
    }

    void titleRowAndFixedColumnLiveInTheHeaders()
    {
        FlexGrid grid;
        grid.setCols(3);
        grid.setRows(3);
        grid.setTextMatrix(0, 1, QStringLiteral("APELLIDOS"));
        grid.setTextMatrix(2, 0, QStringLiteral("2"));
        grid.setTextMatrix(2, 2, QStringLiteral("Ana"));
        QCOMPARE(grid.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("APELLIDOS"));
        QCOMPARE(grid.model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
        QCOMPARE(grid.model()->index(1, 1).data().toString(), QStringLiteral("Ana"));
        QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("APELLIDOS"));
        QCOMPARE(grid.TextMatrix(2, 0), QStringLiteral("2"));
        QCOMPARE(grid.TextMatrix(2, 2), QStringLiteral("Ana"));
        // An empty fixed cell shows nothing, not a section number.
        QCOMPARE(grid.model()->headerData(0, Qt::Vertical).toString(), QString());
    }

    void indexOutsideTheGridRaisesInvalidRowOrCol()
    {
        FlexGrid grid;
        try {
            grid.TextMatrix(2, 0);
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.Number(), 30009);
        }
        try {
            grid.setTextMatrix(1, 5, QStringLiteral("x"));
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.Number(), 30010);
        }
    }

    void withoutFixedRowsRowZeroIsABodyRow()
    {
        FlexGrid grid;
        grid.setTextMatrix(0, 1, QStringLiteral("título"));
        grid.setFixedRows(0);
        QVERIFY(grid.horizontalHeader()->isHidden());
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("título"));
        QCOMPARE(grid.model()->index(0, 0).data().toString(), QStringLiteral("título"));
        grid.setFixedRows(1);
        QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("título"));
        QCOMPARE(grid.Rows(), 2);
    }

    void withoutFixedColumnsColumnZeroIsABodyColumn()
    {
        FlexGrid grid;
        grid.setCols(3);
        grid.setTextMatrix(1, 0, QStringLiteral("1"));
        grid.setTextMatrix(1, 2, QStringLiteral("Ana"));
        grid.setFixedCols(0);
        QVERIFY(grid.verticalHeader()->isHidden());
        QCOMPARE(grid.Cols(), 3);
        QCOMPARE(grid.model()->columnCount(), 3);
        QCOMPARE(grid.model()->index(0, 0).data().toString(), QStringLiteral("1"));
        QVERIFY(grid.model()->index(0, 0).flags() & Qt::ItemIsSelectable);
        grid.setFixedCols(1);
        QCOMPARE(grid.model()->columnCount(), 2);
        QCOMPARE(grid.model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("1"));
        QCOMPARE(grid.TextMatrix(1, 2), QStringLiteral("Ana"));
    }

    void rowsZeroTakesTheFixedRowWith()
    {
        FlexGrid grid;
        grid.setRows(0);
        QCOMPARE(grid.Rows(), 0);
        QCOMPARE(grid.FixedRows(), 0);
    }

    void secondFixedColumnIsGreyAndNotSelectable()
    {
        FlexGrid grid;
        grid.setCols(4);
        grid.setRows(3);
        grid.setFixedCols(2);
        grid.setTextMatrix(1, 2, QStringLiteral("x"));
        QCOMPARE(grid.Cols(), 4);
        QCOMPARE(grid.CellBackColor(1, 1), ui::buttonFace());
        QVERIFY(!(grid.model()->index(0, 0).flags() & Qt::ItemIsSelectable));
        QVERIFY(grid.model()->index(0, 1).flags() & Qt::ItemIsSelectable);
    }

    void colWidthTwipsRoundTrip()
    {
        FlexGrid grid;
        grid.setCols(4);
        for (int twips : {500, 1100, 4000, 333}) {
            grid.setColWidth(1, twips);
            QCOMPARE(grid.ColWidth(1), twips);
        }
        grid.setColWidth(0, 500);
        QCOMPARE(grid.ColWidth(0), 500);
        grid.setColWidth(2, 1500);
        QCOMPARE(grid.columnWidth(1), grid.twipsToPixels(1500));
        QCOMPARE(grid.twipsToPixels(1500), 1500 * grid.logicalDpiX() / 1440);
    }

    void widthZeroHidesTheColumn()
    {
        FlexGrid grid;
        grid.setCols(4);
        grid.setColWidth(3, 0);
        QVERIFY(grid.isColumnHidden(2));
        QCOMPARE(grid.ColWidth(3), 0);
        grid.setColWidth(3, 900);
        QVERIFY(!grid.isColumnHidden(2));
        grid.setColWidth(0, 0);
        QCOMPARE(grid.ColWidth(0), 0);
    }

    void gridWithOneRecordHasRowsZeroAndOneAndTheRowIsWhite()
    {
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Des FROM tblMaterias WHERE Id = 1"));
        ui::fillList(grid, rs,
                     ui::GridColumns::fromLists({500, 1100, 4000},
                                                {QString(), QStringLiteral("Código"), QStringLiteral("Descripción")}));
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("1"));
        QCOMPARE(grid.TextMatrix(1, 2), QStringLiteral("Lengua"));
        QCOMPARE(grid.CellBackColor(1, 1), QColor(Qt::white));
        QCOMPARE(grid.CellBackColor(1, 2), QColor(Qt::white));
    }

    void gridWithNoRecordsKeepsTwoRows()
    {
        FlexGrid grid;
        db::Recordset full;
        openRs(full, QStringLiteral("SELECT Id, Des FROM tblMaterias"));
        ui::fillList(grid, full,
                     ui::GridColumns::fromLists({500, 1100, 4000},
                                                {QString(), QStringLiteral("Código"), QStringLiteral("Descripción")}));
        QCOMPARE(grid.Rows(), 4);
        db::Recordset empty;
        openRs(empty, QStringLiteral("SELECT Id, Des FROM tblMaterias WHERE Id = 0"));
        ui::fillList(grid, empty,
                     ui::GridColumns::fromLists({500, 1100, 4000},
                                                {QString(), QStringLiteral("Código"), QStringLiteral("Descripción")}));
        QCOMPARE(grid.Rows(), 2);
        QCOMPARE(grid.TextMatrix(1, 1), QString());
        QCOMPARE(grid.TextMatrix(0, 1), QString()); // cleared, and the fill stopped there
    }

    void rowsAreStripedGColorOnEvenAndWhiteOnOdd()
    {
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Ape, Nom FROM tblAlumnos ORDER BY Id"));
        ui::fillList(grid, rs, ui::GridColumns::fromLists({500, 600, 3000, 2000}, {QString(), QStringLiteral("Id")}),
                     true);
        QCOMPARE(grid.Rows(), rs.RecordCount() + 1);
        for (int r = 1; r < grid.Rows(); ++r)
            for (int c = 1; c < grid.Cols(); ++c)
                QCOMPARE(grid.CellBackColor(r, c), r % 2 == 0 ? kStripe : QColor(Qt::white));
        // The fixed column keeps its own colour and shows the row number.
        QCOMPARE(grid.CellBackColor(2, 0), ui::buttonFace());
        QCOMPARE(grid.TextMatrix(3, 0), QStringLiteral("3"));
        // Titles given replace the field names; the others stay.
        QCOMPARE(grid.TextMatrix(0, 1), QStringLiteral("Id"));
        QCOMPARE(grid.TextMatrix(0, 2), QStringLiteral("Ape"));
    }

    void fillGoesToRowOneColumnOne()
    {
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Des FROM tblMaterias ORDER BY Id"));
        ui::fillList(grid, rs, ui::GridColumns::fromLists({}, {}));
        QCOMPARE(grid.Row(), 1);
        QCOMPARE(grid.Col(), 1);
        QCOMPARE(grid.RowSel(), 1);
        QVERIFY(grid.Redraw());
        QCOMPARE(grid.CellAlignment(1, 1) & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    }

    void recordsetFollowsTheGridRow()
    {
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Des FROM tblMaterias ORDER BY Id"));
        ui::fillList(grid, rs, ui::GridColumns::fromLists({}, {}));
        grid.setRow(3);
        QCOMPARE(grid.RowSel(), 3);
        ui::moveRecordsetToGridRow(grid, rs);
        QCOMPARE(rs.AbsolutePosition(), 3);
        QCOMPARE(rs.Value(QStringLiteral("Des")).toString(), grid.TextMatrix(3, 2));
    }

    void bindingKeepsTheRecordsetWhereItWas()
    {
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Des, Obs FROM tblMaterias ORDER BY Id"));
        rs.SetAbsolutePosition(2);
        grid.bindRecordset(rs);
        QCOMPARE(rs.AbsolutePosition(), 2);
        QCOMPARE(grid.Cols(), 4);
        QCOMPARE(grid.TextMatrix(0, 3), QStringLiteral("Obs"));
        QCOMPARE(grid.TextMatrix(2, 3), QString()); // Null shows empty
        QCOMPARE(grid.TextMatrix(1, 0), QString());
    }

    // The fill writes whole numbers and texts its own short way; every value
    // must read as the general conversion writes it.
    void boundValuesReadAsTheirTextWhateverTheirType()
    {
        gConexion->ExecuteNative(QStringLiteral(
            "INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES "
            "(901, 'Negativo', -5, -2147483647, 0.1), (902, '', 0, 2147483647, -7.25), (903, NULL, 10, 10, NULL);"
            "INSERT INTO tblTareas (Id, Des, FecIni, Nota) VALUES (9001, 'x', '2024-10-02', 1);"));
        FlexGrid grid;
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Id, Des, Min, Max, Val FROM tblTareasTipos WHERE Id > 900 ORDER BY Id"));
        grid.bindRecordset(rs);
        const QStringList expected[] = {
            {"901", "Negativo", "-5", "-2147483647", "0,1"},
            {"902", "", "0", "2147483647", QStringLiteral("-7,25")},
            {"903", "", "10", "10", ""},
        };
        for (int r = 1; r <= 3; ++r)
            for (int c = 1; c <= 5; ++c)
                QCOMPARE(grid.TextMatrix(r, c), expected[r - 1][c - 1]);
        db::Recordset dates;
        openRs(dates, QStringLiteral("SELECT FecIni, Nota FROM tblTareas WHERE Id = 9001"));
        grid.bindRecordset(dates);
        QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("02/10/2024"));
        QCOMPARE(grid.TextMatrix(1, 2), QStringLiteral("Verdadero"));
    }

    void aColourGivenIsToldFromTheDefaultOne()
    {
        FlexGrid grid;
        fillNumbered(grid, 2);
        QVERIFY(!grid.hasCellBackColor(1, 0));
        grid.setCellBackColor(1, 0, ui::buttonFace()); // the same colour the fixed column shows
        QVERIFY(grid.hasCellBackColor(1, 0));
        QVERIFY(!grid.hasCellBackColor(2, 0));
        QCOMPARE(grid.CellBackColor(2, 0), ui::buttonFace());
    }

    void clearEmptiesTextsAndColoursButKeepsTheShape()
    {
        FlexGrid grid;
        fillNumbered(grid, 3);
        grid.setCellBackColor(2, 1, Qt::red);
        grid.Clear();
        QCOMPARE(grid.Rows(), 4);
        QCOMPARE(grid.TextMatrix(2, 1), QString());
        QCOMPARE(grid.TextMatrix(2, 0), QString());
        QCOMPARE(grid.CellBackColor(2, 1), grid.palette().color(QPalette::Base));
    }

    void sortMovesWholeRowsNumbersAsNumbers()
    {
        FlexGrid grid;
        grid.setCols(3);
        grid.setRows(4);
        const QStringList names{QStringLiteral("Ana"), QStringLiteral("Bea"), QStringLiteral("Carla")};
        const QStringList marks{QStringLiteral("10"), QStringLiteral("9,5"), QStringLiteral("2")};
        for (int r = 1; r <= 3; ++r) {
            grid.setTextMatrix(r, 1, names[r - 1]);
            grid.setTextMatrix(r, 2, marks[r - 1]);
            grid.setCellBackColor(r, 0, QColor(r * 10, 0, 0));
        }
        grid.Sort(2, true);
        QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("Carla"));
        QCOMPARE(grid.TextMatrix(2, 1), QStringLiteral("Bea"));
        QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("Ana"));
        QCOMPARE(grid.TextMatrix(1, 2), QStringLiteral("2"));
        QCOMPARE(grid.CellBackColor(1, 0), QColor(30, 0, 0)); // the fixed cell went with its row
        grid.Sort(2, false);
        QCOMPARE(grid.TextMatrix(1, 1), QStringLiteral("Ana"));
        QCOMPARE(grid.TextMatrix(3, 1), QStringLiteral("Carla"));
        QCOMPARE(grid.TextMatrix(0, 1), QString()); // the title row never moves
    }

    void sortOrdersTextTheSpanishWayWithoutCase()
    {
        FlexGrid grid;
        grid.setRows(5);
        const QStringList names{QStringLiteral("ñu"), QStringLiteral("Nube"), QStringLiteral("álamo"),
                                QStringLiteral("Oso")};
        for (int r = 1; r <= 4; ++r)
            grid.setTextMatrix(r, 1, names[r - 1]);
        grid.Sort(1, true);
        QStringList sorted;
        for (int r = 1; r <= 4; ++r)
            sorted << grid.TextMatrix(r, 1);
        QCOMPARE(sorted, (QStringList{QStringLiteral("álamo"), QStringLiteral("Nube"), QStringLiteral("ñu"),
                                      QStringLiteral("Oso")}));
    }

    void oneWheelNotchScrollsOneLineEachWay()
    {
        Form form;
        auto* grid = new FlexGrid(&form);
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(grid);
        fillNumbered(*grid, 60);
        form.resize(300, 200);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QCOMPARE(grid->TopRow(), 1);
        wheel(grid->viewport(), -120);
        QCOMPARE(grid->TopRow(), 2);
        wheel(grid->viewport(), -120);
        QCOMPARE(grid->TopRow(), 3);
        wheel(grid->viewport(), 120);
        QCOMPARE(grid->TopRow(), 2);
        // A big turn in one message is still one line.
        wheel(grid->viewport(), -360);
        QCOMPARE(grid->TopRow(), 3);
        wheel(grid->viewport(), 360);
        wheel(grid->viewport(), 120);
        QCOMPARE(grid->TopRow(), 1);
        grid->setTopRow(10);
        QCOMPARE(grid->TopRow(), 10);
    }

    void titleClickReportsTheGridColumn()
    {
        FlexGrid grid;
        grid.setCols(4);
        grid.resize(400, 200);
        grid.show();
        QVERIFY(QTest::qWaitForWindowExposed(&grid));
        QSignalSpy spy(&grid, &FlexGrid::titleClicked);
        QHeaderView* header = grid.horizontalHeader();
        const int x = header->sectionViewportPosition(1) + 5;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0][0].toInt(), 2);
    }

    void enterAndDoubleClickAreSignalled()
    {
        FlexGrid grid;
        fillNumbered(grid, 3);
        grid.show();
        QVERIFY(QTest::qWaitForWindowExposed(&grid));
        QSignalSpy enter(&grid, &FlexGrid::EnterPressed);
        QSignalSpy dbl(&grid, &FlexGrid::DblClick);
        QTest::keyClick(&grid, Qt::Key_Return);
        const QRect cell = grid.visualRect(grid.model()->index(1, 0));
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
        QCOMPARE(enter.size(), 1);
        QCOMPARE(dbl.size(), 1);
        QCOMPARE(grid.Row(), 2);
    }

    void mergeJoinsEqualNeighbours()
    {
        FlexGrid grid;
        grid.setRows(5);
        for (const auto& [r, text] : {std::pair{1, "lunes"}, {2, "lunes"}, {3, "martes"}, {4, "martes"}})
            grid.setTextMatrix(r, 1, QString::fromUtf8(text));
        grid.mergeEqualCells(1);
        QCOMPARE(grid.rowSpan(0, 0), 2);
        QCOMPARE(grid.rowSpan(2, 0), 2);
    }

    void renderedSampleShowsTitlesNarrowFixedColumnAndStripes()
    {
        Form form;
        form.setCaption(QStringLiteral("Alumnos"));
        auto* grid = new FlexGrid(&form);
        grid->setObjectName(QStringLiteral("mshDatos"));
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(grid);
        db::Recordset rs;
        openRs(rs, QStringLiteral("SELECT Ape, Nom, MailAlu, Grupo FROM tblAlumnos ORDER BY Ape"));
        ui::fillList(*grid, rs,
                     ui::GridColumns::fromLists({500, 3000, 1800, 3000, 900},
                                                {QString(), QStringLiteral("APELLIDOS"), QStringLiteral("NOMBRE"),
                                                 QStringLiteral("CORREO ELECTRÓNICO"), QStringLiteral("GRUPO")}),
                     true);
        form.resize(720, 260);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        const QImage image = form.grab().toImage();
        image.save(QStringLiteral(CADERNIA_BIN_DIR "/flexgrid.png"));
        const QImage body = grid->viewport()->grab().toImage();
        auto pixelOf = [&](int row) {
            const QRect rect = grid->visualRect(grid->model()->index(row - 1, 1));
            return body.pixelColor(rect.right() - 3, rect.center().y());
        };
        QCOMPARE(pixelOf(2), kStripe);
        QCOMPARE(pixelOf(3), QColor(Qt::white));
        QCOMPARE(grid->verticalHeader()->width(), grid->twipsToPixels(500));
    }
};

QTEST_MAIN(TestFlexGrid)
#include "test_flexgrid.moc"
