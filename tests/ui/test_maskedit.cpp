// The masked box of dates and times, alone and with the date conventions.
#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/EntryConventions.h"
#include "ui/MaskEdit.h"

#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

// A date box and a field after it, shown and active.
struct DateForm {
    explicit DateForm(bool obsConventions = true) : mskFec(new MaskEdit(&form)), txtObs(new QLineEdit(&form))
    {
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(mskFec);
        layout->addWidget(txtObs);
        ui::installDateConventions(mskFec);
        if (obsConventions)
            ui::installEntryConventions(txtObs);
    }
    bool shown()
    {
        form.show();
        form.activateWindow();
        return QTest::qWaitForWindowActive(&form);
    }
    QWidget form;
    MaskEdit* mskFec;
    QLineEdit* txtObs;
};

class TestMaskEdit : public QObject {
    Q_OBJECT

private slots:
    void init() { gColor = QStringLiteral(" 12632256 "); }

    void emptyDateReadsItsPlaceholdersWhileMasked()
    {
        MaskEdit box;
        box.setMask(QStringLiteral("##/##/####"));
        QCOMPARE(box.Text(), QStringLiteral("__/__/____"));
        QCOMPARE(box.displayText(), QStringLiteral("__/__/____"));
    }

    void typedDigitsFillTheMask()
    {
        MaskEdit box;
        box.setMask(QStringLiteral("##/##/####"));
        box.show();
        box.setFocus();
        box.setCursorPosition(0);
        QTest::keyClicks(&box, QStringLiteral("12032024"));
        QCOMPARE(box.Text(), QStringLiteral("12/03/2024"));
    }

    void partlyTypedDateKeepsTheRestOfThePlaceholders()
    {
        MaskEdit box;
        box.setMask(QStringLiteral("##/##/####"));
        box.setCursorPosition(0);
        QTest::keyClicks(&box, QStringLiteral("123"));
        QCOMPARE(box.Text(), QStringLiteral("12/3_/____"));
    }

    void removingTheMaskKeepsTheText()
    {
        MaskEdit box;
        box.setMask(QStringLiteral("##/##/####"));
        box.setText(QStringLiteral("20/12/2024"));
        box.setMask(QString());
        QCOMPARE(box.Text(), QStringLiteral("20/12/2024"));
        QCOMPARE(box.inputMask(), QString());
        box.setText(QString());
        box.setMask(QStringLiteral("##/##/####"));
        box.setMask(QString());
        QCOMPARE(box.Text(), QStringLiteral("__/__/____"));
    }

    void settingTheMaskKeepsADateThatFits()
    {
        MaskEdit box;
        box.setText(QStringLiteral("08/09/2024"));
        box.setMask(QStringLiteral("##/##/####"));
        QCOMPARE(box.Text(), QStringLiteral("08/09/2024"));
    }

    void timeMaskShowsHoursAndMinutes()
    {
        MaskEdit box;
        box.setMask(QStringLiteral("##:##"));
        QCOMPARE(box.Text(), QStringLiteral("__:__"));
        box.setText(QStringLiteral("08:30"));
        QCOMPARE(box.Text(), QStringLiteral("08:30"));
    }

    void dateFieldMasksOnFocusAndEmptiesOnLeaving()
    {
        DateForm f;
        MaskEdit* mskFec = f.mskFec;
        QLineEdit* txtObs = f.txtObs;
        QVERIFY(f.shown());
        txtObs->setFocus();

        mskFec->setFocus(Qt::TabFocusReason);
        QCOMPARE(mskFec->Mask(), QStringLiteral("##/##/####"));
        QCOMPARE(mskFec->Text(), QStringLiteral("__/__/____"));
        QCOMPARE(ui::backColor(mskFec), QColor(192, 192, 192));
        QCOMPARE(mskFec->selectedText(), QStringLiteral("__/__/____"));

        txtObs->setFocus(Qt::TabFocusReason);
        QCOMPARE(mskFec->Mask(), QString());
        QCOMPARE(mskFec->Text(), QString());
        QCOMPARE(ui::backColor(mskFec), QColor(Qt::white));
    }

    // A click lands anywhere in the box; the date still fills from its
    // first position, whether the box was empty or held a date.
    void aClickIntoADateStartsTypingAtItsFirstPosition_data()
    {
        QTest::addColumn<QString>("before");
        QTest::newRow("empty") << QString();
        QTest::newRow("filled") << QStringLiteral("03/04/2024");
    }
    void aClickIntoADateStartsTypingAtItsFirstPosition()
    {
        QFETCH(QString, before);
        DateForm f;
        MaskEdit* mskFec = f.mskFec;
        QLineEdit* txtObs = f.txtObs;
        mskFec->setText(before);
        QVERIFY(f.shown());
        txtObs->setFocus(Qt::TabFocusReason);
        QTest::mouseClick(mskFec, Qt::LeftButton, {}, QPoint(mskFec->width() - 8, mskFec->height() / 2));
        QCOMPARE(QApplication::focusWidget(), mskFec);
        QTest::keyClicks(mskFec, QStringLiteral("25112026"));
        QCOMPARE(mskFec->Text(), QStringLiteral("25/11/2026"));
        // A second click into the focused box places the cursor as usual.
        QTest::mouseClick(mskFec, Qt::LeftButton, {}, QPoint(4, mskFec->height() / 2));
        QCOMPARE(mskFec->selectedText(), QString());
    }

    void filledDateStaysOnLeaving()
    {
        DateForm f(false);
        MaskEdit* mskFec = f.mskFec;
        QLineEdit* txtObs = f.txtObs;
        QVERIFY(f.shown());
        mskFec->setFocus(Qt::TabFocusReason);
        mskFec->setCursorPosition(0);
        QTest::keyClicks(mskFec, QStringLiteral("01022025"));
        txtObs->setFocus(Qt::TabFocusReason);
        QCOMPARE(mskFec->Text(), QStringLiteral("01/02/2025"));
        QCOMPARE(mskFec->Mask(), QString());
    }

    void formInstallTakesTheMaskAMaskEditHas()
    {
        QWidget form;
        auto* mskIni = new MaskEdit(&form);
        auto* txtDes = new QLineEdit(&form);
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(txtDes);
        layout->addWidget(mskIni);
        mskIni->setMask(ui::kTimeMask);
        ui::installEntryConventions(&form);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        mskIni->setFocus(Qt::TabFocusReason);
        txtDes->setFocus(Qt::TabFocusReason);
        QCOMPARE(mskIni->Text(), QString()); // "__:__" became empty
        mskIni->setFocus(Qt::TabFocusReason);
        QCOMPARE(mskIni->Text(), QStringLiteral("__:__"));
    }
};

QTEST_MAIN(TestMaskEdit)
#include "test_maskedit.moc"
