// Assistive technology on every screen: each focusable control of every
// screen (those the screenshot tool renders, their modal children included)
// has an accessible name, and a grid tells its cells and their titles.
#include "core/Modulo.h"
#include "setup/Setup.h"
#include "tools/screenshots/Screens.h"
#include "ui/AccessibleNames.h"
#include "ui/FlexGrid.h"
#include "ui/MsgBox.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

QString describe(const QString& screen, QWidget* w)
{
    QString name = w->objectName();
    for (QWidget* p = w->parentWidget(); name.isEmpty() && p; p = p->parentWidget())
        name = p->objectName().isEmpty() ? QString() : p->objectName() + QStringLiteral(" > (part)");
    return screen + QStringLiteral(": ") + QString::fromLatin1(w->metaObject()->className()) + u' ' + name;
}

} // namespace

class TestAccessibleNames : public QObject {
    Q_OBJECT

    QTemporaryDir tmp_;
    QStringList errors_;

private slots:
    void initTestCase()
    {
        MsgBox::setUnscriptedFatal(true);
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { errors_ << ui::runtimeErrorText(e); });
        setup::SetupOptions options;
        options.baseFolder = tmp_.filePath(QStringLiteral("Cadernia"));
        options.programDir = tmp_.filePath(QStringLiteral("programa"));
        options.demo = true;
        options.today = QDate(2025, 11, 12);
        QString error;
        QVERIFY2(setup::setupBase(options, &error), qPrintable(error));
        Printers::setForTest({QStringLiteral("Aula 12")});
        SetRutaPrograma(options.programDir);
        QDir::setCurrent(options.programDir);
        gColor = LeerColor();
        gColor2 = LeerColor2();
        AbrirConexion();
    }

    void cleanupTestCase()
    {
        gConexion->Close();
        SetRutaPrograma(QString());
    }

    void everyFocusableControlOfEveryScreenHasAName()
    {
        QStringList unnamed;
        int screens = 0;
        int controls = 0;
        const auto check = [&](const QString& name, QWidget* w) {
            ++screens;
            for (QWidget* c : w->findChildren<QWidget*>()) {
                if (c->focusPolicy() != Qt::NoFocus && !c->isWindow())
                    ++controls;
            }
            for (QWidget* c : ui::unnamedControls(w))
                unnamed << describe(name, c);
        };
        for (const screenshots::Screen& screen : screenshots::screens()) {
            std::unique_ptr<QWidget> widget(screen.make());
            QVERIFY2(widget, qPrintable(screen.name));
            widget->show();
            QCoreApplication::processEvents();
            if (!screen.open) {
                check(screen.name, widget.get());
            } else {
                bool seen = false;
                QTimer watch;
                watch.setInterval(20);
                connect(&watch, &QTimer::timeout, [&] {
                    QWidget* child = QApplication::activeModalWidget();
                    if (!child || child == widget.get() || !child->isVisible())
                        return;
                    watch.stop();
                    check(screen.name, child);
                    seen = true;
                    child->close();
                });
                watch.start();
                screen.open(widget.get());
                watch.stop();
                QVERIFY2(seen, qPrintable(screen.name + QStringLiteral(": no modal child")));
            }
            widget->hide();
        }
        QVERIFY(screens > 40);
        QVERIFY(controls > 300);
        for (const QString& u : unnamed)
            qWarning("no name: %s", qPrintable(u));
        QVERIFY2(unnamed.isEmpty(), qPrintable(QString::number(unnamed.size()) + QStringLiteral(" controls")));
        QVERIFY2(errors_.isEmpty(), qPrintable(errors_.join(u'\n')));
    }

    void aFieldTakesTheCaptionOfTheLabelBesideIt()
    {
        QWidget form;
        auto* label = new QLabel(QStringLiteral("&Apellidos:"), &form);
        auto* field = new QLineEdit(&form);
        auto* below = new QLabel(QStringLiteral("Observaciones"), &form);
        auto* notes = new QLineEdit(&form);
        label->setGeometry(10, 10, 80, 22);
        field->setGeometry(100, 10, 200, 22);
        below->setGeometry(10, 50, 200, 18);
        notes->setGeometry(10, 70, 290, 22);
        QCOMPARE(ui::unnamedControls(&form).size(), 2);
        ui::nameControls(&form);
        QCOMPARE(ui::accessibleName(field), QStringLiteral("Apellidos:"));
        QCOMPARE(ui::accessibleName(notes), QStringLiteral("Observaciones"));
        QVERIFY(ui::unnamedControls(&form).isEmpty());
        // A name given in code stays.
        field->setAccessibleName(QStringLiteral("Primer apellido"));
        ui::nameControls(&form);
        QCOMPARE(ui::accessibleName(field), QStringLiteral("Primer apellido"));
    }

    void aGridTellsItsCellsAndTheirTitles()
    {
        FlexGrid grid;
        grid.setCols(3);
        grid.setRows(3);
        grid.setFixedRows(1);
        grid.setFixedCols(1);
        grid.setTextMatrix(0, 1, QStringLiteral("Alumno"));
        grid.setTextMatrix(0, 2, QStringLiteral("Nota"));
        grid.setTextMatrix(1, 1, QStringLiteral("Álvarez, Ana"));
        grid.setTextMatrix(1, 2, QStringLiteral("7,5"));
        grid.setTextMatrix(2, 1, QStringLiteral("Bouzas, Brais"));
        grid.setTextMatrix(2, 2, QStringLiteral("4"));
        grid.show();
        QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(&grid);
        QVERIFY(iface);
        QAccessibleTableInterface* table = iface->tableInterface();
        QVERIFY(table);
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->columnCount(), 2);
        QAccessibleInterface* cell = table->cellAt(1, 1);
        QVERIFY(cell);
        QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("4"));
        QAccessibleTableCellInterface* cellInfo = cell->tableCellInterface();
        QVERIFY(cellInfo);
        QCOMPARE(cellInfo->columnIndex(), 1);
        // The column's title as a screen reader asks for it. (A cell's
        // columnHeaderCells() would serve as well, but Qt makes those anew on
        // each call and never frees them.)
        QCOMPARE(table->columnDescription(cellInfo->columnIndex()), QStringLiteral("Nota"));
        QCOMPARE(table->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Álvarez, Ana"));
    }
};

QTEST_MAIN(TestAccessibleNames)
#include "test_accessible_names.moc"
