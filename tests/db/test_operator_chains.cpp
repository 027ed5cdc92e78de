// Long chains of the operators the dialect writes as calls (/ \ Mod ^):
// each becomes nested calls, left to right, and runs with its meaning.
#include "db/Connection.h"
#include "db/JetSql.h"
#include "db/Recordset.h"
#include "support/TempYear.h"

#include <QtTest>

using db::JetSql;

namespace {

// "1 op 2 op 3 ..." with n operators.
QString chain(const QString& op, int n)
{
    QString text = QStringLiteral("SELECT 1");
    text.reserve(n * (op.size() + 4));
    for (int i = 0; i < n; ++i)
        text += u' ' + op + u' ' + QString::number(i % 9 + 1);
    return text;
}

// What the chain must become: fn(fn(1, 1), 2) ...
QString expected(const char* fn, int n)
{
    QString text = QStringLiteral("SELECT ");
    for (int i = 0; i < n; ++i)
        text += QLatin1String(fn) + u'(';
    text += u'1';
    for (int i = 0; i < n; ++i)
        text += QStringLiteral(", ") + QString::number(i % 9 + 1) + u')';
    return text + QStringLiteral(" AS \"Expr1000\""); // the name Jet gives an unnamed column
}

} // namespace

class TestOperatorChains : public QObject {
    Q_OBJECT

private slots:
    void aLongChainBecomesNestedCallsLeftToRight_data()
    {
        QTest::addColumn<QString>("op");
        QTest::addColumn<QString>("fn");
        QTest::newRow("/") << QStringLiteral("/") << QStringLiteral("jet_div");
        QTest::newRow("\\") << QStringLiteral("\\") << QStringLiteral("jet_idiv");
        QTest::newRow("Mod") << QStringLiteral("Mod") << QStringLiteral("jet_mod");
        QTest::newRow("^") << QStringLiteral("^") << QStringLiteral("jet_pow");
    }

    // 100,000 operators: the translation is the whole nested text.
    void aLongChainBecomesNestedCallsLeftToRight()
    {
        QFETCH(QString, op);
        QFETCH(QString, fn);
        const int n = 100'000;
        QCOMPARE(JetSql::translate(chain(op, n)).sql, expected(fn.toLatin1().constData(), n));
    }

    void chainsOfMixedOperatorsKeepTheirPrecedence()
    {
        QCOMPARE(JetSql::translate(QStringLiteral("SELECT 8 / 2 * 3 / 4 \\ 2 Mod 5 ^ 2 / 1")).sql,
                 QStringLiteral("SELECT jet_mod(jet_idiv(jet_div(jet_div(8, 2) * 3, 4), 2), jet_div(jet_pow(5, 2), "
                                "1)) AS \"Expr1000\""));
        TempYear year;
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT 8 / 2 * 3 / 4 \\ 2 Mod 5 ^ 2 / 1 AS R, 2 ^ 3 ^ 2 AS P, 100 / 2 / 5 / 2 AS "
                               "D, 100 \\ 3 \\ 2 AS I, 100 Mod 7 Mod 3 AS M"),
                year.connect());
        QCOMPARE(rs.Value(0).toDouble(), 1.0); // (((8/2)*3/4) \ 2) Mod (5^2/1) = 1 Mod 25
        QCOMPARE(rs.Value(1).toDouble(), 64.0);
        QCOMPARE(rs.Value(2).toDouble(), 5.0);
        QCOMPARE(rs.Value(3).toDouble(), 16.0);
        QCOMPARE(rs.Value(4).toDouble(), 2.0);
    }

    // A chain inside parentheses, a call and a comparison closes where it ends.
    void chainsNestedInOtherExpressionsCloseInPlace()
    {
        QCOMPARE(
            JetSql::translate(QStringLiteral("SELECT Abs(6 / 3 / 2) + (9 \\ 2 \\ 2) FROM t WHERE a / b / c > 1")).sql,
            QStringLiteral("SELECT abs(jet_div(jet_div(6, 3), 2)) + (jet_idiv(jet_idiv(9, 2), 2)) AS "
                           "\"Expr1000\" FROM \"t\" WHERE jet_div(jet_div(\"a\", \"b\"), \"c\") > 1"));
    }
};

QTEST_GUILESS_MAIN(TestOperatorChains)
#include "test_operator_chains.moc"
