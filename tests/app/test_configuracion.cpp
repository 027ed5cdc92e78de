// The configuration hub: its six buttons, the printer lists filled on
// activation, and imp.ini written on every way of closing.
#include "app/frmConfiguracion.h"
#include "core/Modulo.h"
#include "support/ModalDriver.h"
#include "support/TempInstall.h"
#include "ui/MsgBox.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <memory>

class TestConfiguracion : public QObject {
    Q_OBJECT

    std::unique_ptr<TempInstall> install_;
    QList<RuntimeError> errors_;

    QString impIni() const { return install_->program() + QStringLiteral("/imp.ini"); }

    static QStringList items(QComboBox* combo)
    {
        QStringList names;
        for (int i = 0; i < combo->count(); ++i)
            names.append(combo->itemText(i));
        return names;
    }

private slots:
    void initTestCase()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        MsgBox::setUnscriptedFatal(true);
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { errors_.append(e); });
    }

    void init()
    {
        install_ = std::make_unique<TempInstall>();
        SetRutaPrograma(install_->program());
        gConexion = db::Connection::Open(install_->database());
        Printers::setForTest({QStringLiteral("Aula 2"), QStringLiteral("Sala de profesores")});
        errors_.clear();
        MsgBox::reset();
    }

    void cleanup()
    {
        gConexion->Close();
        gConexion.reset();
        Printers::reset();
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void captionButtonsAndFrame()
    {
        frmConfiguracion f;
        QCOMPARE(f.Caption(), QStringLiteral("Configuración de Parámetros"));
        const QList<std::pair<const char*, QString>> buttons = {
            {"cmdNiveles", QStringLiteral("&NIVELES")},
            {"cmdCursos", QStringLiteral("&CURSOS")},
            {"cmdGrupos", QStringLiteral("&GRUPOS")},
            {"cmdEvaluaciones", QStringLiteral("&EVALUACIONES")},
            {"cmdTareasTipos", QStringLiteral("&TIPOS DE TAREAS")},
            {"cmdMaterias", QStringLiteral("&MATERIAS")},
        };
        QCOMPARE(f.findChildren<QPushButton*>().size(), buttons.size());
        for (const auto& [name, caption] : buttons)
            QCOMPARE(f.findChild<QPushButton*>(QLatin1String(name))->text(), caption);
        auto* frame = f.findChild<QGroupBox*>(QStringLiteral("fraImpresoras"));
        QCOMPARE(frame->title(), QStringLiteral("Impresoras"));
        QCOMPARE(f.findChildren<QComboBox*>(QStringLiteral("cmbImpresora")).size(), 2);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(f.cmbImpresora(i)->parentWidget(), frame);
            QCOMPARE(f.cmbImpresora(i)->property("Index").toInt(), i);
        }
        // The labels name their lists.
        const QList<QLabel*> labels = frame->findChildren<QLabel*>();
        QCOMPARE(labels.size(), 2);
        for (QLabel* label : labels) {
            const int i = label->property("Index").toInt();
            QCOMPARE(label->buddy(), f.cmbImpresora(i));
            QCOMPARE(label->text(), i == 0 ? QStringLiteral("Informes") : QStringLiteral("PDF"));
        }
    }

    void activationFillsBothListsInTheSystemsOrder()
    {
        frmConfiguracion f;
        f.show();
        const QStringList expected = {QStringLiteral("Aula 2"), QStringLiteral("Sala de profesores"),
                                      QStringLiteral("PDF (archivo)")};
        QCOMPARE(items(f.cmbImpresora(0)), expected);
        QCOMPARE(items(f.cmbImpresora(1)), expected);
    }

    void withNoPrintersTheListsHoldTheVirtualEntry()
    {
        Printers::setForTest({});
        frmConfiguracion f;
        f.show();
        QCOMPARE(items(f.cmbImpresora(0)), QStringList{QStringLiteral("PDF (archivo)")});
        QCOMPARE(items(f.cmbImpresora(1)), QStringList{QStringLiteral("PDF (archivo)")});
    }

    void withoutImpIniTheFirstPrinterIsChosen()
    {
        frmConfiguracion f;
        f.show();
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), 0);
        QCOMPARE(f.cmbImpresora(1)->currentIndex(), 0);
    }

    void storedPositionsAreSelected()
    {
        TempInstall::write(impIni(), "2\r\n1\r\n");
        frmConfiguracion f;
        f.show();
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), 2);
        QCOMPARE(f.cmbImpresora(1)->currentIndex(), 1);
    }

    void aPositionBeyondTheListSelectsNothingSilently()
    {
        TempInstall::write(impIni(), "7\r\n1\r\n");
        frmConfiguracion f;
        f.show();
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), -1);
        QCOMPARE(f.cmbImpresora(1)->currentIndex(), 1); // the second line is still read
        QVERIFY(errors_.isEmpty());
    }

    void unreadableLinesSelectNothingSilently_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::newRow("one line") << QByteArray("1\r\n") << 1 << -1;
        QTest::newRow("empty file") << QByteArray() << -1 << -1;
        QTest::newRow("not a number") << QByteArray("Aula\r\n0\r\n") << -1 << 0;
        QTest::newRow("none stored") << QByteArray("-1\r\n-1\r\n") << -1 << -1;
        QTest::newRow("below none") << QByteArray("-2\r\n2\r\n") << -1 << 2;
    }
    void unreadableLinesSelectNothingSilently()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, first);
        QFETCH(int, second);
        TempInstall::write(impIni(), content);
        frmConfiguracion f;
        f.show();
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), first);
        QCOMPARE(f.cmbImpresora(1)->currentIndex(), second);
        QVERIFY(errors_.isEmpty());
    }

    void closingWritesBothChoicesWithCrLf()
    {
        frmConfiguracion f;
        f.show();
        f.cmbImpresora(0)->setCurrentIndex(2);
        f.cmbImpresora(1)->setCurrentIndex(1);
        f.close();
        QCOMPARE(TempInstall::read(impIni()), QByteArray("2\r\n1\r\n"));
    }

    void closingWithNothingSelectedWritesMinusOne()
    {
        TempInstall::write(impIni(), "9\r\n9\r\n");
        frmConfiguracion f;
        f.show();
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), -1);
        f.close();
        QCOMPARE(TempInstall::read(impIni()), QByteArray("-1\r\n-1\r\n"));
    }

    void withNoPrintersAndNothingSelectedMinusOneIsWritten()
    {
        Printers::setForTest({});
        TempInstall::write(impIni(), "3\r\n0\r\n");
        frmConfiguracion f;
        f.show();
        f.close();
        QCOMPARE(TempInstall::read(impIni()), QByteArray("-1\r\n0\r\n"));
    }

    void everyWayOfClosingSaves_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("close box") << 0;
        QTest::newRow("accept") << 1;
        QTest::newRow("reject") << 2;
        QTest::newRow("Unload") << 3;
    }
    void everyWayOfClosingSaves()
    {
        QFETCH(int, way);
        frmConfiguracion f;
        ModalDriver::whenModal([way](QWidget* modal) {
            auto* form = static_cast<frmConfiguracion*>(modal);
            form->cmbImpresora(0)->setCurrentIndex(1);
            form->cmbImpresora(1)->setCurrentIndex(-1);
            switch (way) {
            case 0:
                form->close();
                break;
            case 1:
                form->accept();
                break;
            case 2:
                form->reject();
                break;
            default:
                form->Unload();
                break;
            }
        });
        f.showModal();
        QVERIFY(!ModalDriver::takeTimedOut());
        QCOMPARE(TempInstall::read(impIni()), QByteArray("1\r\n-1\r\n"));
    }

    void aListOpenedFromHereDoesNotRefillThePrinters_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("form");
        QTest::newRow("cmdNiveles") << "cmdNiveles"
                                    << "frmNiveles";
        QTest::newRow("cmdCursos") << "cmdCursos"
                                   << "frmCursos";
        QTest::newRow("cmdGrupos") << "cmdGrupos"
                                   << "frmGrupos";
        QTest::newRow("cmdEvaluaciones") << "cmdEvaluaciones"
                                         << "frmEvaluaciones";
        QTest::newRow("cmdMaterias") << "cmdMaterias"
                                     << "frmMaterias";
        QTest::newRow("cmdTareasTipos") << "cmdTareasTipos"
                                        << "frmTareasTipos";
    }
    void aListOpenedFromHereDoesNotRefillThePrinters()
    {
        QFETCH(QString, button);
        QFETCH(QString, form);
        frmConfiguracion f;
        f.show();
        const int activations = f.activations();
        // A choice made on screen, unlike the stored 0, shows whether the lists were refilled.
        f.cmbImpresora(0)->setCurrentIndex(1);
        QString opened;
        QString tagWhileOpen;
        Qt::CursorShape cursorWhileOpen = Qt::ArrowCursor;
        ModalDriver::whenModal([&](QWidget* modal) {
            opened = QString::fromLatin1(modal->metaObject()->className());
            tagWhileOpen = f.Tag;
            cursorWhileOpen = f.cursor().shape();
            modal->close();
        });
        QTest::mouseClick(f.findChild<QPushButton*>(button), Qt::LeftButton);
        QVERIFY(!ModalDriver::takeTimedOut());
        QCOMPARE(opened, form);
        QCOMPARE(tagWhileOpen, QStringLiteral("A"));
        QCOMPARE(cursorWhileOpen, Qt::WaitCursor);
        QCOMPARE(f.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(f.activations(), activations + 1); // activated again, and skipped the fill
        QCOMPARE(f.Tag, QString());
        QCOMPARE(f.cmbImpresora(0)->count(), 3);
        QCOMPARE(f.cmbImpresora(1)->count(), 3);
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), 1);
        QVERIFY(errors_.isEmpty());
        // The next activation without Tag "A" fills the lists again.
        f.activate();
        QCOMPARE(f.cmbImpresora(0)->count(), 3);
        QCOMPARE(f.cmbImpresora(0)->currentIndex(), 0);
    }

    void anUnwritableProgramFolderEndsInARunTimeError()
    {
        const QString missing = install_->root() + QStringLiteral("/no-existe");
        frmConfiguracion f;
        f.show();
        SetRutaPrograma(missing);
        f.close();
        SetRutaPrograma(install_->program());
        QCOMPARE(errors_.size(), 1);
        QVERIFY2(errors_[0].Description().contains(missing + QStringLiteral("/imp.ini")),
                 qPrintable(errors_[0].Description()));
        QVERIFY(!QFileInfo::exists(missing));
        errors_.clear();
    }
};

QTEST_MAIN(TestConfiguracion)
#include "test_configuracion.moc"
