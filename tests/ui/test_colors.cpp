// Windows colour values and the colours of the configuration files.
#include "ui/Colors.h"
#include "vb/RuntimeError.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class TestColors : public QObject {
    Q_OBJECT

private slots:
    void bgrIntegersHoldRedInTheLowByte()
    {
        QCOMPARE(ui::colorFromBgr(0x0000FF), QColor(255, 0, 0));
        QCOMPARE(ui::colorFromBgr(0x00FF00), QColor(0, 255, 0));
        QCOMPARE(ui::colorFromBgr(0xFF0000), QColor(0, 0, 255));
        QCOMPARE(ui::bgrFromColor(QColor(0x12, 0x34, 0x56)), 0x563412);
    }

    void bgrRoundTrips()
    {
        for (qint64 v : {qint64(0), qint64(12632256), qint64(8454143), qint64(16777215)})
            QCOMPARE(ui::bgrFromColor(ui::colorFromBgr(v)), v);
    }

    void whiteIs16777215()
    {
        QCOMPARE(ui::kWhite, 16777215);
        QCOMPARE(ui::white(), QColor(255, 255, 255));
    }

    void colourFileTextWithBlanksConverts()
    {
        // color.ini as the numeric print form writes it: a blank each side.
        QCOMPARE(ui::colorFromVariant(QStringLiteral(" 12632256 ")), QColor(192, 192, 192));
        QCOMPARE(ui::colorFromVariant(QStringLiteral(" 8454143 ")), QColor(255, 255, 128));
    }

    void numbersConvertAsTheyAre() { QCOMPARE(ui::colorFromVariant(QVariant(qint32(255))), QColor(255, 0, 0)); }

    void missingColourIsBlack() { QCOMPARE(ui::colorFromVariant(QVariant()), QColor(0, 0, 0)); }

    void emptyLineIsATypeMismatch()
    {
        for (const QString& line : {QString(QLatin1String("")), QStringLiteral(" ")}) {
            try {
                ui::colorFromVariant(line);
                QFAIL("no error raised");
            } catch (const RuntimeError& e) {
                QCOMPARE(e.Number(), int(RuntimeError::TypeMismatch));
            }
        }
    }

    void textThatIsNoNumberIsATypeMismatch()
    {
        try {
            ui::colorFromVariant(QStringLiteral("azul"));
            QFAIL("no error raised");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.Number(), int(RuntimeError::TypeMismatch));
        }
    }

    void systemColoursReadThePalette()
    {
        QCOMPARE(ui::buttonFace(), QApplication::palette().color(QPalette::Button));
        // A system colour written as a signed 32-bit number.
        QCOMPARE(ui::colorFromVariant(QVariant(qint32(-2147483633))), ui::buttonFace());
    }

    void backColorOfFieldsAndButtons()
    {
        QLineEdit field;
        QPushButton button;
        ui::setBackColor(&field, QColor(1, 2, 3));
        ui::setBackColor(&button, QColor(4, 5, 6));
        QCOMPARE(ui::backColor(&field), QColor(1, 2, 3));
        QCOMPARE(field.palette().color(QPalette::Base), QColor(1, 2, 3));
        QCOMPARE(ui::backColor(&button), QColor(4, 5, 6));
    }
};

QTEST_MAIN(TestColors)
#include "test_colors.moc"
