// Qt's own dialogs in Spanish: the colour and file dialogs, opened through
// their seams with no answer scripted, show Spanish buttons once the
// program's Qt catalogue is installed.
#include "ui/Dialogs.h"
#include "ui/QtTranslations.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QTimer>
#include <QtTest>

namespace {

// The captions of the buttons of the next modal dialog, read once it is up;
// then the dialog is cancelled.
class ButtonReader {
public:
    ButtonReader()
    {
        timer_.setInterval(20);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            timer_.stop();
            dialogClass = QString::fromLatin1(dialog->metaObject()->className());
            for (QAbstractButton* b : dialog->findChildren<QAbstractButton*>()) {
                if (b->isVisible() && !b->text().isEmpty())
                    captions << b->text().remove(u'&');
            }
            dialog->reject();
        });
        timer_.start();
    }

    QString dialogClass;
    QStringList captions;

private:
    QTimer timer_;
};

} // namespace

class TestQtTranslations : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(ui::installQtTranslations(), "qtbase_es.qm is missing (qt6-translations-l10n)"); }

    void theColourDialogSpeaksSpanish()
    {
        ButtonReader reader;
        const QColor chosen = ColorDialog::getColor(Qt::red, nullptr, QStringLiteral("Color"));
        QVERIFY(!chosen.isValid()); // cancelled
        QCOMPARE(reader.dialogClass, QStringLiteral("QColorDialog"));
        QVERIFY2(reader.captions.contains(QStringLiteral("Aceptar")), qPrintable(reader.captions.join(u'|')));
        QVERIFY2(reader.captions.contains(QStringLiteral("Cancelar")), qPrintable(reader.captions.join(u'|')));
        QVERIFY2(reader.captions.contains(QStringLiteral("Añadir a los colores personalizados")),
                 qPrintable(reader.captions.join(u'|')));
        QVERIFY(!reader.captions.contains(QStringLiteral("OK")));
        QVERIFY(!reader.captions.contains(QStringLiteral("Cancel")));
    }

    void theFileDialogSpeaksSpanish()
    {
        ButtonReader reader;
        const QString chosen =
            FileDialog::getOpenFileName(nullptr, QStringLiteral("Importar"), QDir::tempPath(), QStringLiteral("*.alu"));
        QVERIFY(chosen.isEmpty()); // cancelled
        QCOMPARE(reader.dialogClass, QStringLiteral("QFileDialog"));
        QVERIFY2(reader.captions.contains(QStringLiteral("Abrir")), qPrintable(reader.captions.join(u'|')));
        QVERIFY2(reader.captions.contains(QStringLiteral("Cancelar")), qPrintable(reader.captions.join(u'|')));
        QVERIFY(!reader.captions.contains(QStringLiteral("Open")));
        QVERIFY(!reader.captions.contains(QStringLiteral("Cancel")));
    }
};

QTEST_MAIN(TestQtTranslations)
#include "test_qt_translations.moc"
