// The first-start dialog of an installed program, driven offscreen: its
// defaults, the installer's work with the progress bar, a year already in
// the base folder, a refused name and cancelling.
#include "setup/FirstStart.h"
#include "ui/AccessibleNames.h"
#include "ui/MsgBox.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString firstLine(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("<missing>");
    return QString::fromUtf8(f.readLine()).chopped(2); // CR LF
}

} // namespace

class TestFirstStart : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> tmp_;
    QString program() const { return tmp_->filePath(QStringLiteral("usuario/.local/share/cadernia")); }
    QString base() const { return tmp_->filePath(QStringLiteral("Cadernia")); }

    // Presses Aceptar and waits for the installer's work to end.
    static void accept(FirstStartDialog& dialog)
    {
        QTest::mouseClick(dialog.cmdAceptar, Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.busy(), 120000);
    }

private slots:
    void initTestCase() { MsgBox::setUnscriptedFatal(true); }

    void init()
    {
        tmp_ = std::make_unique<QTemporaryDir>();
        MsgBox::reset();
    }

    void theDefaultsAreCaderniaInTheHomeAndThisSchoolYear()
    {
        FirstStartDialog dialog(program());
        dialog.setToday(QDate(2027, 2, 3));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Cadernia: primer inicio"));
        QCOMPARE(dialog.txtCarpeta->text(), QDir::homePath() + QStringLiteral("/Cadernia"));
        QCOMPARE(dialog.txtCurso->text(), QStringLiteral("2026-27"));
        QVERIFY(!dialog.chkDemo->isChecked());
        QCOMPARE(dialog.prgProgreso->value(), 0);
        QVERIFY(FirstStartDialog::needsFirstStart(program()));
        dialog.show();
        QVERIFY(ui::unnamedControls(&dialog).isEmpty());
        QCOMPARE(ui::accessibleName(dialog.txtCarpeta), QStringLiteral("Carpeta base:"));
        QCOMPARE(ui::accessibleName(dialog.txtCurso), QStringLiteral("Nombre del primer curso:"));
    }

    void aceptarInstallsTheFirstYearAndTheProgramsFiles()
    {
        FirstStartDialog dialog(program());
        dialog.show();
        dialog.txtCarpeta->setText(base());
        dialog.txtCurso->setText(QStringLiteral("2030-31"));
        dialog.chkDemo->setChecked(true);
        accept(dialog);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(dialog.prgProgreso->value(), 100);
        QCOMPARE(dialog.lblPaso->text(), QStringLiteral("Terminado"));
        QCOMPARE(firstLine(program() + QStringLiteral("/ruta.ini")), base());
        QCOMPARE(firstLine(program() + QStringLiteral("/ano.ini")), QStringLiteral("2030-31"));
        QVERIFY(QFileInfo::exists(program() + QStringLiteral("/Impresion/Impresion.mdb")));
        QVERIFY(QFileInfo::exists(program() + QStringLiteral("/Impresion/FichaAlumno.rpt")));
        QVERIFY(QFileInfo::exists(program() + QStringLiteral("/color.ini")));
        QVERIFY(QFileInfo(base() + QStringLiteral("/2030-31/Xestion.mdb")).size() > 100000); // the demo's marks
        QVERIFY(QFileInfo::exists(base() + QStringLiteral("/Informes/Alumnos.rpt")));
        QVERIFY(QFileInfo::exists(base() + QStringLiteral("/Ico/Alerta.gif")));
        QVERIFY(!FirstStartDialog::needsFirstStart(program()));
    }

    void aYearAlreadyInTheBaseIsUsedWhenTheTeacherSaysSo()
    {
        {
            FirstStartDialog first(tmp_->filePath(QStringLiteral("otro")));
            first.show();
            first.txtCarpeta->setText(base());
            first.txtCurso->setText(QStringLiteral("2030-31"));
            accept(first);
            QCOMPARE(first.result(), int(QDialog::Accepted));
        }
        const QByteArray before = [&] {
            QFile f(base() + QStringLiteral("/2030-31/Xestion.mdb"));
            return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }();

        FirstStartDialog dialog(program());
        dialog.show();
        dialog.txtCarpeta->setText(base());
        dialog.txtCurso->setText(QStringLiteral("2030-31"));
        MsgBox::setNextAnswer(vbNo);
        QTest::mouseClick(dialog.cmdAceptar, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text,
                 QStringLiteral("El curso 2030-31 ya existe en esa carpeta.\n¿Quiere usarlo tal como está?"));
        QVERIFY(dialog.isVisible());
        QVERIFY(!QFileInfo::exists(program() + QStringLiteral("/ruta.ini")));

        MsgBox::setNextAnswer(vbYes);
        accept(dialog);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(firstLine(program() + QStringLiteral("/ruta.ini")), base());
        QVERIFY(QFileInfo::exists(program() + QStringLiteral("/Impresion/Impresion.mdb")));
        QFile f(base() + QStringLiteral("/2030-31/Xestion.mdb"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), before);
    }

    void aNameNoFolderMayHoldIsRefusedBeforeAnythingIsWritten()
    {
        FirstStartDialog dialog(program());
        dialog.show();
        dialog.txtCarpeta->setText(base());
        dialog.txtCurso->setText(QStringLiteral("2030/31"));
        MsgBox::setNextAnswer(vbOK);
        QTest::mouseClick(dialog.cmdAceptar, Qt::LeftButton);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().flags, int(vbExclamation));
        QVERIFY(dialog.isVisible());
        QVERIFY(!QFileInfo::exists(base()));
        QVERIFY(!QFileInfo::exists(program()));
    }

    void cancelarAndEscapeLeaveEverythingAsItWas()
    {
        FirstStartDialog dialog(program());
        dialog.show();
        QTest::mouseClick(dialog.cmdCancelar, Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());

        FirstStartDialog again(program());
        again.show();
        QTest::keyClick(&again, Qt::Key_Escape);
        QVERIFY(!again.isVisible());
        QVERIFY(!QFileInfo::exists(program()));
        QVERIFY(MsgBox::shown().isEmpty());
    }
};

QTEST_MAIN(TestFirstStart)
#include "test_firststart.moc"
