// The file and colour dialogs answered in advance.
#include "support/ModalDriver.h"
#include "ui/Dialogs.h"

#include <QColorDialog>
#include <QtTest>

class TestDialogs : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        FileDialog::reset();
        ColorDialog::reset();
    }

    void scriptedFileNamesAreTakenInOrder()
    {
        FileDialog::setNextFileName(QStringLiteral("/tmp/a.alu"));
        FileDialog::setNextFileName(QString()); // cancelled
        QCOMPARE(FileDialog::getOpenFileName(nullptr, QStringLiteral("Importar")), QStringLiteral("/tmp/a.alu"));
        QCOMPARE(FileDialog::getOpenFileName(nullptr, QStringLiteral("Foto")), QString());
        QCOMPARE(FileDialog::asked(), (QStringList{QStringLiteral("Importar"), QStringLiteral("Foto")}));
    }

    void commonDialogFilterListsItsDescriptionsAndIsLoggedAsWritten()
    {
        QCOMPARE(FileDialog::qtFilter(QStringLiteral("Ficheiros alumnos|*.alu|Todos/*.*")),
                 QStringLiteral("Ficheiros alumnos (*.alu);;Todos/*.* (*)"));
        QCOMPARE(FileDialog::qtFilter(QStringLiteral("Imaxes|*.jpg;*.png")), QStringLiteral("Imaxes (*.jpg *.png)"));
        FileDialog::setNextFileName(QStringLiteral("/tmp/b.alu"));
        QCOMPARE(FileDialog::getOpenFileNameCommon(nullptr, QStringLiteral("Archivo a importar"),
                                                   QStringLiteral("*.alu"), QStringLiteral("A|*.alu")),
                 QStringLiteral("/tmp/b.alu"));
        QCOMPARE(FileDialog::askedFilters(), QStringList{QStringLiteral("A|*.alu")});
    }

    void scriptedColoursAreTakenAndTheStartColourIsLogged()
    {
        ColorDialog::setNextColor(QColor(255, 0, 0));
        ColorDialog::setNextColor(QColor()); // cancelled
        QCOMPARE(ColorDialog::getColor(QColor(192, 192, 192)), QColor(255, 0, 0));
        QVERIFY(!ColorDialog::getColor(QColor(1, 2, 3)).isValid());
        QCOMPARE(ColorDialog::asked(), (QList<QColor>{QColor(192, 192, 192), QColor(1, 2, 3)}));
    }

    void unscriptedColourDialogIsTheRealOne()
    {
        ModalDriver::whenModal([](QWidget* w) {
            auto* dialog = qobject_cast<QColorDialog*>(w);
            QVERIFY(dialog);
            dialog->setCurrentColor(QColor(0, 128, 255));
            dialog->accept();
        });
        QCOMPARE(ColorDialog::getColor(QColor(Qt::white)), QColor(0, 128, 255));
        QVERIFY(!ModalDriver::takeTimedOut());
    }
};

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
