// The student sheet's chart tab: the points of one subject in each
// evaluation of the year.
#include "MarksTest.h"
#include "vb/Vb.h"

#include <QLineEdit>
#include <QPushButton>

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QLineEdit>
#include <QListWidget>

using namespace marks_test;

namespace {

QStringList items(const QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

// The values of the one series, and the evaluations under them.
QList<qreal> values(QChartView* view)
{
    const auto series = view->chart()->series();
    if (series.isEmpty())
        return {};
    QBarSet* set = qobject_cast<QBarSeries*>(series.first())->barSets().first();
    QList<qreal> v;
    for (int i = 0; i < set->count(); ++i)
        v << set->at(i);
    return v;
}

QStringList categories(QChartView* view)
{
    for (QAbstractAxis* axis : view->chart()->axes(Qt::Horizontal))
        if (auto* c = qobject_cast<QBarCategoryAxis*>(axis))
            return c->categories();
    return {};
}

} // namespace

class TestStudentsChart : public QObject {
    Q_OBJECT

    SheetOnYear year_;

    // Lengua and Matemáticas marked in the 1ª and 2ª, weights of 100.
    void twoEvaluationsTwoSubjects()
    {
        tipo(1, QStringLiteral("Examen"), 10);
        int id = 1;
        for (int eva : {1, 2})
            for (int mat : {1, 2}) {
                peso(1, eva, mat, 100);
                tarea(id, QStringLiteral("Examen %1").arg(id), 1, eva, mat);
                nota(id, 1, QString::number(eva * 2 + mat)); // 3, 4, 5, 6
                ++id;
            }
    }

private slots:
    void init() { year_.start(); }
    void cleanup() { year_.finish(); }

    void aStudentWithoutTaskMarksShowsAnEmptyChartAndTwoEmptyLists()
    {
        auto& f = year_.open(2);
        QCOMPARE(f.lstEval->count(), 0);
        QCOMPARE(f.lstMat->count(), 0);
        QVERIFY(f.mscGrafico->chart()->series().isEmpty());
        QCOMPARE(items(f.lstTipoGrafico), (QStringList{QStringLiteral("BARRAS"), QStringLiteral("LÍNEAS")}));
    }

    void movingFromAStudentWithAChartToOneWithoutEmptiesTheChart()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabGrafico);
        QVERIFY(!f.mscGrafico->chart()->series().isEmpty());
        QVERIFY(!values(f.mscGrafico).isEmpty());
        click(f.cmdSeguinte);
        QCOMPARE(f.txtApe->text(), QStringLiteral("Rey Mato"));
        QCOMPARE(f.lstEval->count(), 0);
        QCOMPARE(f.lstMat->count(), 0);
        QVERIFY(f.mscGrafico->chart()->series().isEmpty());
        QVERIFY(categories(f.mscGrafico).isEmpty());
    }

    void theSeriesHoldsThePointsOfEachEvaluationOfTheYear()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        QCOMPARE(items(f.lstEval), (QStringList{QStringLiteral("2ª Evaluación"), QStringLiteral("1ª Evaluación")}));
        // The first subject drawn: evaluations in the catalogue's order, the
        // third one, not marked, at 0.
        QCOMPARE(f.mscGrafico->chart()->title(), vb::UCase(f.lstMat->item(0)->text()));
        QCOMPARE(categories(f.mscGrafico),
                 (QStringList{QStringLiteral("1ª Evaluación"), QStringLiteral("2ª Evaluación"),
                              QStringLiteral("3ª Evaluación")}));
        const bool lengua = f.lstMat->item(0)->text() == QLatin1String("Lengua");
        QCOMPARE(values(f.mscGrafico), lengua ? (QList<qreal>{3, 5, 0}) : (QList<qreal>{4, 6, 0}));
        // Points, not the typed marks.
        exec(QStringLiteral("INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota) VALUES (1, 1, 1, 1, 10)"));
        click(f.cmdSeguinte);
        click(f.cmdAnterior);
        const int lenguaRow = items(f.lstMat).indexOf(QStringLiteral("Lengua"));
        f.lstMat->setCurrentRow(lenguaRow);
        f.lstMat_Click();
        QCOMPARE(f.mscGrafico->chart()->title(), QStringLiteral("LENGUA"));
        QCOMPARE(values(f.mscGrafico), (QList<qreal>{3, 5, 0}));
    }

    void aRepeatedSubjectDrawsTheSameChartAsItsTwin()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        const QStringList mats = items(f.lstMat);
        QCOMPARE(mats.size(), 4);
        QCOMPARE(mats[0], mats[2]);
        QCOMPARE(mats[1], mats[3]);
        f.lstMat->setCurrentRow(1);
        f.lstMat_Click();
        const QList<qreal> first = values(f.mscGrafico);
        const QString title = f.mscGrafico->chart()->title();
        f.lstMat->setCurrentRow(3);
        f.lstMat_Click();
        QCOMPARE(values(f.mscGrafico), first);
        QCOMPARE(f.mscGrafico->chart()->title(), title);
    }

    void aSubjectChosenWithTheArrowKeysDrawsItsChart()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabGrafico);
        const QString first = f.mscGrafico->chart()->title();
        f.lstMat->setFocus();
        QTest::keyClick(f.lstMat, Qt::Key_Down);
        QCOMPARE(f.lstMat->currentRow(), 1);
        QCOMPARE(f.mscGrafico->chart()->title(), vb::UCase(f.lstMat->item(1)->text()));
        QVERIFY(f.mscGrafico->chart()->title() != first);
        const bool lengua = f.lstMat->item(1)->text() == QLatin1String("Lengua");
        QCOMPARE(values(f.mscGrafico), lengua ? (QList<qreal>{3, 5, 0}) : (QList<qreal>{4, 6, 0}));
    }

    void anEvaluationAddedToTheCatalogueShowsAtZeroAtOnce()
    {
        twoEvaluationsTwoSubjects();
        exec(QStringLiteral("INSERT INTO tblEvaluaciones (Id, Des) VALUES (4, 'Final')"));
        auto& f = year_.open(1);
        QCOMPARE(categories(f.mscGrafico).size(), 4);
        QCOMPARE(categories(f.mscGrafico).last(), QStringLiteral("Final"));
        QCOMPARE(values(f.mscGrafico).last(), 0.0);
    }

    void theEvaluationsAndTheChartTypesChangeNothing()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabGrafico);
        const QList<qreal> before = values(f.mscGrafico);
        QTest::mouseClick(f.lstEval->viewport(), Qt::LeftButton, {},
                          f.lstEval->visualItemRect(f.lstEval->item(1)).center());
        QTest::mouseClick(f.lstTipoGrafico->viewport(), Qt::LeftButton, {},
                          f.lstTipoGrafico->visualItemRect(f.lstTipoGrafico->item(1)).center());
        QCOMPARE(values(f.mscGrafico), before);
        QVERIFY(qobject_cast<QBarSeries*>(f.mscGrafico->chart()->series().first()));
    }

    void theBarsTakeTheUsersColourWithABlackEdge()
    {
        twoEvaluationsTwoSubjects();
        auto& f = year_.open(1);
        QBarSet* set = qobject_cast<QBarSeries*>(f.mscGrafico->chart()->series().first())->barSets().first();
        QCOMPARE(set->brush().color(), QColor(192, 192, 192));
        QCOMPARE(set->pen().color(), QColor(Qt::black));
    }
};

QTEST_MAIN(TestStudentsChart)
#include "test_students_chart.moc"
