// The about box: title, contact lines, the picture that opens the web page
// and the two click targets that close it.
#include "app/frmAcercaDe.h"

#include <QLabel>
#include <QtTest>

class TestAcercaDe : public QObject {
    Q_OBJECT

    QList<QUrl> opened_;

private slots:
    void initTestCase()
    {
        frmAcercaDe::setUrlOpener([this](const QUrl& url) { opened_.append(url); });
    }
    void init() { opened_.clear(); }

    void captionTitleAndContactLines()
    {
        frmAcercaDe f;
        QCOMPARE(f.Caption(), QStringLiteral("Acerca de ..."));
        QCOMPARE(f.findChild<QLabel*>(QStringLiteral("lblTitulo"))->text(), QStringLiteral("Cadernia"));
        QStringList lines;
        for (QLabel* l : f.findChildren<QLabel*>(QStringLiteral("lblContacto")))
            lines.append(l->text());
        QCOMPARE(lines, (QStringList{QStringLiteral("Cadernia — caderno de aula para o profesorado"),
                                     QStringLiteral("contacto@cadernia.example"),
                                     QStringLiteral("https://cadernia.example")}));
        QVERIFY(!f.findChild<QLabel*>(QStringLiteral("imgLogo"))->pixmap().isNull());
    }

    void clickingThePictureOpensTheWebPage()
    {
        frmAcercaDe f;
        f.show();
        QTest::mouseClick(f.findChild<QLabel*>(QStringLiteral("imgLogo")), Qt::LeftButton);
        QCOMPARE(opened_, QList<QUrl>{QUrl(QStringLiteral("https://cadernia.example"))});
        QVERIFY(f.isVisible());
    }

    void clickingTheTextCloses()
    {
        frmAcercaDe f;
        f.show();
        QTest::mouseClick(f.findChild<QWidget*>(QStringLiteral("fraTexto")), Qt::LeftButton);
        QVERIFY(!f.isVisible());
        QVERIFY(opened_.isEmpty());
    }

    void clickingALineOfTheTextCloses()
    {
        frmAcercaDe f;
        f.show();
        QTest::mouseClick(f.findChild<QLabel*>(QStringLiteral("lblTitulo")), Qt::LeftButton);
        QVERIFY(!f.isVisible());
    }

    void clickingTheFormCloses()
    {
        frmAcercaDe f;
        f.show();
        QTest::mouseClick(&f, Qt::LeftButton, {}, QPoint(4, 4));
        QVERIFY(!f.isVisible());
        QVERIFY(opened_.isEmpty());
    }

    void aRightClickLeavesItOpen()
    {
        frmAcercaDe f;
        f.show();
        QTest::mouseClick(&f, Qt::RightButton, {}, QPoint(4, 4));
        QVERIFY(f.isVisible());
    }
};

QTEST_MAIN(TestAcercaDe)
#include "test_acercade.moc"
