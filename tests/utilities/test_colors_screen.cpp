// The colour screen: the buttons show the two colours, the dialog starts at
// a button's colour, black and a cancelled dialog change nothing, and the
// accepted colours go to the globals at once and to color.ini and color2.ini
// under the base folder, byte for byte.
#include "masterdata/frmEvaluaciones.h"
#include "support/OpenInstall.h"
#include "support/ScreenHarness.h"
#include "ui/Colors.h"
#include "ui/Dialogs.h"
#include "ui/FlexGrid.h"
#include "utilities/frmColor.h"

#include <QPushButton>
#include <QtTest>

namespace {

const QColor kSilver(192, 192, 192); // " 12632256 "
const QColor kPale(240, 240, 240);   // " 15790320 "

// The button's colour after the dialog it opens answers `answer` (an invalid
// colour: the dialog was cancelled).
QColor choose(QPushButton* button, const QColor& answer)
{
    ColorDialog::setNextColor(answer);
    click(button);
    return ui::backColor(button);
}

} // namespace

class TestColorsScreen : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenInstall> install_;
    ScreenHarness harness_;

    QString baseFile(const char* name) const { return install_->base() + u'/' + QLatin1String(name); }
    QString programFile(const char* name) const { return install_->program() + u'/' + QLatin1String(name); }

private slots:
    void init()
    {
        install_ = std::make_unique<OpenInstall>();
        TempInstall::write(programFile("color.ini"), " 12632256 \r\n");
        TempInstall::write(programFile("color2.ini"), " 15790320 \r\n");
        gColor = LeerColor();
        gColor2 = LeerColor2();
        ColorDialog::reset();
        harness_.start();
    }

    void cleanup()
    {
        QVERIFY(harness_.errors.isEmpty());
        harness_.finish();
        ColorDialog::reset();
        install_.reset();
    }

    void theButtonsShowTheColoursAndTheirTexts()
    {
        frmColor form;
        form.show();
        QCOMPARE(form.Caption(), QStringLiteral("Colores"));
        QCOMPARE(form.cmdColor1->text(), QStringLiteral("Color principal para las fichas y cuadrículas de datos."));
        QCOMPARE(form.cmdColor2->text(), QStringLiteral("Color de fondo para las secciones de datos."));
        QCOMPARE(ui::backColor(form.cmdColor1), kSilver);
        QCOMPARE(ui::backColor(form.cmdColor2), kPale);
    }

    void theDialogStartsAtTheButtonsColourAndTheChoiceShows()
    {
        frmColor form;
        form.show();
        QCOMPARE(choose(form.cmdColor1, QColor(255, 0, 0)), QColor(255, 0, 0));
        QCOMPARE(ColorDialog::asked(), QList<QColor>{kSilver});
        QCOMPARE(ui::backColor(form.cmdColor2), kPale);
        QCOMPARE(choose(form.cmdColor2, QColor(0, 0, 255)), QColor(0, 0, 255));
        QCOMPARE(ColorDialog::asked().last(), kPale);
    }

    void aCancelledDialogOrBlackKeepTheButtonsColour()
    {
        frmColor form;
        form.show();
        QCOMPARE(choose(form.cmdColor1, QColor()), kSilver);
        QCOMPARE(choose(form.cmdColor2, QColor(0, 0, 0)), kPale);
        QCOMPARE(ColorDialog::asked().size(), 2);
    }

    void acceptWritesBothFilesUnderTheBaseFolderInThePrintForm()
    {
        // An older, longer file is replaced whole.
        TempInstall::write(baseFile("color.ini"), " 99999999 \r\nsobra\r\n");
        frmColor form;
        form.show();
        choose(form.cmdColor1, QColor(255, 0, 0));
        click(form.cmdAceptar);
        QVERIFY(!form.isVisible());
        QCOMPARE(TempInstall::read(baseFile("color.ini")), QByteArray(" 255 \r\n"));
        QCOMPARE(TempInstall::read(baseFile("color2.ini")), QByteArray(" 15790320 \r\n"));
        // The globals hold numbers now.
        QCOMPARE(gColor.typeId(), int(QMetaType::Int));
        QCOMPARE(gColor.toInt(), 255);
        QCOMPARE(gColor2.toInt(), 15790320);
        // The program folder's files, read at start, are left as they were.
        QCOMPARE(TempInstall::read(programFile("color.ini")), QByteArray(" 12632256 \r\n"));
        QCOMPARE(LeerColor().toString(), QStringLiteral(" 12632256 "));
    }

    void theAcceptedColourAppliesAtOnce()
    {
        {
            frmColor form;
            form.show();
            choose(form.cmdColor1, QColor(255, 255, 128));
            click(form.cmdAceptar);
        }
        frmEvaluaciones list;
        list.show();
        QCOMPARE(list.mshDatos->CellBackColor(2, 1), QColor(255, 255, 128));
        QCOMPARE(list.mshDatos->CellBackColor(1, 1), ui::white());
    }

    void cancelAfterAChoiceChangesNothing()
    {
        frmColor form;
        form.show();
        choose(form.cmdColor1, QColor(255, 0, 0));
        click(form.cmdCancelar);
        QVERIFY(!form.isVisible());
        QCOMPARE(gColor.toString(), QStringLiteral(" 12632256 "));
        QCOMPARE(gColor2.toString(), QStringLiteral(" 15790320 "));
        QVERIFY(!QFileInfo::exists(baseFile("color.ini")));
        QVERIFY(!QFileInfo::exists(baseFile("color2.ini")));
    }
};

QTEST_MAIN(TestColorsScreen)
#include "test_colors_screen.moc"
