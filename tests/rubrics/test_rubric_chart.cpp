// The chart of a rubric on the sample year: the mean of the stored values
// of each activity on a scale of ten, best first, with its label.
#include "core/Modulo.h"
#include "rubrics/frmGraficoRubrica.h"
#include "rubrics/frmTareasRubrica.h"
#include "support/ScreenHarness.h"
#include "ui/Colors.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QGraphicsSimpleTextItem>
#include <QValueAxis>
#include <QtTest>

namespace {

QBarSet* barras(frmGraficoRubrica& g)
{
    auto* series = qobject_cast<QBarSeries*>(g.mscGrafico->chart()->series().value(0));
    return series ? series->barSets().value(0) : nullptr;
}

QList<double> alturas(frmGraficoRubrica& g)
{
    QList<double> values;
    QBarSet* set = barras(g);
    for (int i = 0; set && i < set->count(); ++i)
        values << set->at(i);
    return values;
}

QStringList categorias(frmGraficoRubrica& g)
{
    auto* eje = qobject_cast<QBarCategoryAxis*>(g.mscGrafico->chart()->axes(Qt::Horizontal).value(0));
    return eje ? eje->categories() : QStringList();
}

} // namespace

class TestRubricChart : public QObject {
    Q_OBJECT

    ScreenYear seeded_;

private slots:
    void init() { seeded_.start(); }
    void cleanup() { seeded_.finish(); }

    void valuesOf5Of10And10Of10Give7Comma5()
    {
        // Activity 1 of task 3 holds 4 of 4 and 2 of 4 (10 and 5 of ten);
        // activity 2 holds 8 of 10 and 4 of 10.
        frmTareasRubrica r;
        r.setIdTarea(3);
        frmGraficoRubrica g(r.Tarea(), &r);
        g.show();
        QCOMPARE(g.Caption(), QStringLiteral("Grafico de Rúbrica"));
        QCOMPARE(g.Etiquetas(), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(g.Valores(), (QList<double>{7.5, 6.0}));
        QCOMPARE(alturas(g), (QList<double>{7.5, 6.0}));
        QCOMPARE(categorias(g), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
        // Each label tells the bar's share of the sum: 7,5 of 13,5 and 6 of 13,5.
        QCOMPARE(g.Rotulos(), (QStringList{QStringLiteral("56%"), QStringLiteral("44%")}));
        QStringList textos;
        for (QGraphicsItem* item : g.mscGrafico->chart()->childItems())
            if (auto* texto = dynamic_cast<QGraphicsSimpleTextItem*>(item))
                textos << texto->text();
        QCOMPARE(textos, g.Rotulos());
        auto* eje = qobject_cast<QValueAxis*>(g.mscGrafico->chart()->axes(Qt::Vertical).value(0));
        QVERIFY(eje);
        QCOMPARE(eje->min(), 0.0);
        QCOMPARE(eje->max(), 10.0);
        QCOMPARE(barras(g)->brush().color(), ui::colorFromVariant(gColor2));
        QCOMPARE(barras(g)->brush().style(), Qt::SolidPattern);
    }

    void aRubricWithoutValuesShowsTheEmptyChart()
    {
        frmTareasRubrica r;
        r.setIdTarea(1); // one activity, no value stored
        frmGraficoRubrica g(r.Tarea(), &r);
        g.show();
        QVERIFY(g.Etiquetas().isEmpty());
        QVERIFY(alturas(g).isEmpty());
        QVERIFY(categorias(g).isEmpty());
        auto* eje = qobject_cast<QValueAxis*>(g.mscGrafico->chart()->axes(Qt::Vertical).value(0));
        QCOMPARE(eje->max(), 10.0);
    }

    void twoActivitiesWithAnEqualMeanKeepTheDatabasesOrder()
    {
        // Four activities of task 6 valued 7, 9, 7 and 7 of ten in Ana's mark
        // 12. The database groups them by key (c, b, a, d): the sevens keep
        // that order behind the nine, not the order of their numbers.
        const char* const filas[] = {
            "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max) VALUES (21, 6, 'c', 'Terceira', 25, 10)",
            "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max) VALUES (22, 6, 'b', 'Segunda', 25, 10)",
            "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max) VALUES (23, 6, 'a', 'Primeira', 25, 10)",
            "INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Por, Max) VALUES (24, 6, 'd', 'Cuarta', 25, 10)",
            "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (21, 12, 21, 7, 10)",
            "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (22, 12, 22, 9, 10)",
            "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (23, 12, 23, 7, 10)",
            "INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (24, 12, 24, 7, 10)",
        };
        for (const char* sql : filas)
            gConexion->Execute(QString::fromUtf8(sql));
        frmTareasRubrica r;
        r.setIdTarea(6);
        frmGraficoRubrica g(r.Tarea(), &r);
        g.show();
        QCOMPARE(g.Etiquetas(),
                 (QStringList{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("d")}));
        QCOMPARE(g.Valores(), (QList<double>{9.0, 7.0, 7.0, 7.0}));
    }

    void theMeanUsesTheMaxStoredWithEachValue()
    {
        // The activity's Max changed since: 4 of 4 and 2 of 4 still read 10 and 5.
        gConexion->Execute(QStringLiteral("UPDATE tblTareasRubrica SET Max = 8 WHERE Id = 1"));
        frmTareasRubrica r;
        r.setIdTarea(3);
        frmGraficoRubrica g(r.Tarea(), &r);
        g.show();
        QCOMPARE(g.Valores().value(0), 7.5);
    }
};

QTEST_MAIN(TestRubricChart)
#include "test_rubric_chart.moc"
