// The school years on a temporary installation (program folder and base
// folder apart, as installed): the list of year folders, the switch by double
// click, and the creation of a new year with everything it keeps and empties.
#include "masterdata/frmAno.h"
#include "support/OpenInstall.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"

#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using yearq::count;

namespace {

QStringList listed(const frmAno& form)
{
    QStringList names;
    for (int i = 0; i < form.lstInforma->count(); ++i)
        names << form.lstInforma->item(i)->text();
    return names;
}

void doubleClick(frmAno& form, const QString& name)
{
    const QList<QListWidgetItem*> items = form.lstInforma->findItems(name, Qt::MatchExactly);
    QVERIFY(!items.isEmpty());
    QListWidget* list = form.lstInforma;
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    list->setCurrentItem(items.first());
    const QPoint at = list->visualItemRect(items.first()).center();
    // A double click is a click and then the second press.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

// The eleven tables a new year empties.
const QStringList kEmptied{"tblAlumnos",
                           "tblIncidencias",
                           "tblNotas",
                           "tblNotasEval",
                           "tblNotasFinal",
                           "tblTareas",
                           "tblDiarioClase",
                           "tblHorarioSesiones",
                           "tblNotasRubrica",
                           "tblTareasRubrica",
                           "tblTareasRubricaValoracion"};

} // namespace

class TestYears : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenInstall> install_;
    std::unique_ptr<QWidget> principal_;
    ScreenHarness harness_;
    QString startDir_;

    // A second year beside the installed one.
    void addYear(const QString& name)
    {
        QDir().mkpath(install_->base() + u'/' + name);
        QVERIFY(QFile::copy(install_->database(), install_->base() + u'/' + name + QStringLiteral("/Xestion.mdb")));
    }

    // Creates a year by the screen; true when the screen closed.
    bool create(const QString& name)
    {
        frmAno form;
        form.show();
        form.txtAno->setText(name);
        click(form.cmdCrear);
        return !form.isVisible();
    }

private slots:
    void initTestCase() { startDir_ = QDir::currentPath(); }

    void init()
    {
        install_ = std::make_unique<OpenInstall>();
        // The main window, as frmAno finds it to retitle it.
        principal_ = std::make_unique<QWidget>();
        principal_->setObjectName(QStringLiteral("frmPrincipal"));
        principal_->setWindowTitle(QStringLiteral("CADERNIA ## Curso 2025-26"));
        harness_.start();
    }

    void cleanup()
    {
        const QList<RuntimeError> errors = harness_.errors;
        harness_.finish();
        QDir::setCurrent(startDir_);
        principal_.reset();
        install_.reset();
        QVERIFY2(errors.isEmpty(), errors.isEmpty() ? "" : qPrintable(errors.first().Description()));
    }

    // ---- the list

    void listShowsTheFoldersThatHoldADatabase()
    {
        addYear(QStringLiteral("2023-24"));
        QDir().mkpath(install_->base() + QStringLiteral("/Informes"));
        QDir().mkpath(install_->base() + QStringLiteral("/2024-25")); // no database
        frmAno form;
        form.show();
        QCOMPARE(form.Caption(), QStringLiteral("Cursos académicos"));
        QCOMPARE(form.fraCrear->title(), QStringLiteral("Crear Curso"));
        QCOMPARE(form.txtAno->maxLength(), 10);
        QCOMPARE(listed(form), (QStringList{"2023-24", "2025-26"}));
        QCOMPARE(QApplication::focusWidget() == form.lstInforma || form.focusWidget() == form.lstInforma, true);
    }

    void theOpenYearStandsOutInBoldAndIsTheCurrentRow()
    {
        addYear(QStringLiteral("2023-24"));
        frmAno form;
        form.show();
        QCOMPARE(gAno, QStringLiteral("2025-26"));
        QCOMPARE(listed(form), (QStringList{"2023-24", "2025-26"}));
        QVERIFY(!form.lstInforma->item(0)->font().bold());
        QVERIFY(form.lstInforma->item(1)->font().bold());
        QCOMPARE(form.lstInforma->currentRow(), 1);
    }

    void aSecondActivationAddsTheNamesAgain()
    {
        frmAno form;
        form.show();
        form.activate();
        QCOMPARE(listed(form), (QStringList{"2025-26", "2025-26"}));
    }

    // ---- switching

    void doubleClickSwitchesTheYear()
    {
        addYear(QStringLiteral("2023-24"));
        gConexion->Execute(QStringLiteral("DELETE * FROM tblAlumnos"));
        const db::ConnectionPtr old = gConexion;
        QDir::setCurrent(QDir::tempPath());
        frmAno form;
        form.show();
        doubleClick(form, QStringLiteral("2023-24"));
        QVERIFY(!form.isVisible());
        QCOMPARE(gAno, QStringLiteral("2023-24"));
        QCOMPARE(TempInstall::read(install_->program() + QStringLiteral("/ano.ini")), QByteArray("2023-24\r\n"));
        QVERIFY(!QFile::exists(install_->base() + QStringLiteral("/ano.ini")));
        QCOMPARE(QDir::currentPath(), QDir(install_->program()).canonicalPath());
        QVERIFY(!old->IsOpen());
        QCOMPARE(gRutaBD, install_->base() + QStringLiteral("/2023-24/Xestion.mdb"));
        QCOMPARE(gConexion->Path(), gRutaBD);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QCOMPARE(principal_->windowTitle(), QStringLiteral("CADERNIA ## Curso 2023-24"));
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void aListedYearWhoseFolderWentAwayIsRefused()
    {
        addYear(QStringLiteral("2023-24"));
        frmAno form;
        form.show();
        QVERIFY(QDir(install_->base() + QStringLiteral("/2023-24")).removeRecursively());
        MsgBox::setNextAnswer(vbOK);
        doubleClick(form, QStringLiteral("2023-24"));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("El curso 2023-24 no existe"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbCritical));
        QCOMPARE(MsgBox::shown().last().title, QStringLiteral("Atención!!"));
        QCOMPARE(form.focusWidget(), form.txtAno);
        QVERIFY(form.isVisible());
        QCOMPARE(gAno, QStringLiteral("2025-26"));
        QCOMPARE(TempInstall::read(install_->program() + QStringLiteral("/ano.ini")), QByteArray("2025-26\r\n"));
        QVERIFY(gConexion->IsOpen());
    }

    // ---- creating

    void anEmptyNameIsRefused()
    {
        frmAno form;
        form.show();
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdCrear);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Ponga un curso"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(form.focusWidget(), form.txtAno);
        QCOMPARE(TempInstall::tree(install_->base()).filter(QRegularExpression("^[^/]+$")), (QStringList{"2025-26"}));
    }

    void enterInTheNameOnlyMovesToTheButton()
    {
        frmAno form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.txtAno->setFocus();
        QTest::keyClicks(form.txtAno, QStringLiteral("2015-16"));
        QTest::keyClick(form.txtAno, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), form.cmdCrear);
        QVERIFY(form.isVisible());
        QVERIFY(!QFileInfo::exists(install_->base() + QStringLiteral("/2015-16")));
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void aYearCreatedTwiceIsRefusedTheSecondTime()
    {
        QVERIFY(create(QStringLiteral("2015-16")));
        QVERIFY(MsgBox::shown().isEmpty());
        MsgBox::setNextAnswer(vbOK);
        QVERIFY(!create(QStringLiteral("2015-16")));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Este curso ya está creado"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbCritical));
        QCOMPARE(MsgBox::shown().last().title, QStringLiteral("Atención!!"));
    }

    void aFolderWithoutADatabaseBlocksItsNameButIsNotListed()
    {
        QDir().mkpath(install_->base() + QStringLiteral("/Informes"));
        frmAno form;
        form.show();
        QVERIFY(!listed(form).contains(QStringLiteral("Informes")));
        form.txtAno->setText(QStringLiteral("Informes"));
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdCrear);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Este curso ya está creado"));
        QVERIFY(!QFileInfo::exists(install_->base() + QStringLiteral("/Informes/Xestion.mdb")));
        QCOMPARE(gAno, QStringLiteral("2025-26"));
    }

    void aNewYearEmptiesTheWorkAndKeepsTheFrame()
    {
        // The rest of the year's folder goes along.
        TempInstall::write(install_->yearFolder() + QStringLiteral("/notas.txt"), "apuntes\r\n");
        QDir().mkpath(install_->yearFolder() + QStringLiteral("/Fotos"));
        TempInstall::write(install_->yearFolder() + QStringLiteral("/Fotos/ana.jpg"), "jpg");
        const QMap<QString, int> before = yearq::tableCounts(install_->database());

        QVERIFY(create(QStringLiteral("2015-16")));
        const QString folder = install_->base() + QStringLiteral("/2015-16");
        const QString database = folder + QStringLiteral("/Xestion.mdb");
        QCOMPARE(TempInstall::tree(folder), (QStringList{"Fotos", "Fotos/ana.jpg", "Xestion.mdb", "notas.txt"}));
        QCOMPARE(TempInstall::read(folder + QStringLiteral("/notas.txt")), QByteArray("apuntes\r\n"));
        QCOMPARE(yearq::integrity(database), QStringLiteral("ok"));

        // The session is on the new year.
        QCOMPARE(gAno, QStringLiteral("2015-16"));
        QCOMPARE(gRutaBD, database);
        QCOMPARE(gConexion->Path(), database);
        QVERIFY(gConexion->IsOpen());
        QCOMPARE(principal_->windowTitle(), QStringLiteral("CADERNIA ## Curso 2015-16"));

        // Students, tasks and the rest of the year's work are gone ...
        const QMap<QString, int> after = yearq::tableCounts(database);
        for (const QString& table : kEmptied)
            QCOMPARE(after.value(table, -1), 0);
        // ... the frame, the weights with their keys and the appointments stay.
        for (const QString& table : after.keys())
            if (!kEmptied.contains(table))
                QCOMPARE(after.value(table), before.value(table));
        QCOMPARE(yearq::column(QStringLiteral("SELECT Id FROM tblTareasTiposValor ORDER BY Id")),
                 (QStringList{"1", "2", "3", "4", "5", "6", "7"}));
        QCOMPARE(count(QStringLiteral("tblGrupos")), 3);
        QCOMPARE(count(QStringLiteral("tblMaterias")), 3);
        QCOMPARE(count(QStringLiteral("tblTutoriaCitas")), 5);

        // The year it came from is untouched.
        QCOMPARE(yearq::tableCounts(install_->database()), before);

        // ano.ini under the base folder names the new year; the program's own
        // still names the old one, which the next start opens.
        QCOMPARE(TempInstall::read(install_->base() + QStringLiteral("/ano.ini")), QByteArray("2015-16\r\n"));
        QCOMPARE(TempInstall::read(install_->program() + QStringLiteral("/ano.ini")), QByteArray("2025-26\r\n"));
        // The compaction's scratch copy stays under the program folder.
        QVERIFY(QFileInfo::exists(install_->program() + QStringLiteral("/2015-16/XestionC.mdb")));
    }

    void aNewYearWhereTheProgramFolderIsTheBaseFolder()
    {
        // ruta.ini names the program folder itself, so both ano.ini are one.
        const QString base = install_->base();
        TempInstall::write(install_->program() + QStringLiteral("/ruta.ini"), base.toUtf8() + "\r\n");
        SetRutaPrograma(base);
        TempInstall::write(base + QStringLiteral("/ruta.ini"), base.toUtf8() + "\r\n");
        TempInstall::write(base + QStringLiteral("/ano.ini"), "2025-26\r\n");
        AbrirConexion();

        QVERIFY(create(QStringLiteral("2016-17")));
        QCOMPARE(gAno, QStringLiteral("2016-17"));
        QCOMPARE(gConexion->Path(), base + QStringLiteral("/2016-17/Xestion.mdb"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 0);
        QCOMPARE(TempInstall::read(base + QStringLiteral("/ano.ini")), QByteArray("2016-17\r\n"));
        QVERIFY(QFileInfo::exists(base + QStringLiteral("/2016-17/XestionC.mdb")));
        QCOMPARE(yearq::count(QStringLiteral("tblAlumnos"), db::Connection::Open(install_->database())), 8);
    }

    void aYearNameWithBlanksAndHyphensIsUsedAsItStands()
    {
        QVERIFY(create(QStringLiteral("Curso 2-B")));
        QCOMPARE(gAno, QStringLiteral("Curso 2-B"));
        QVERIFY(QFileInfo::exists(install_->base() + QStringLiteral("/Curso 2-B/Xestion.mdb")));
        QCOMPARE(principal_->windowTitle(), QStringLiteral("CADERNIA ## Curso Curso 2-B"));
        frmAno form;
        form.show();
        QCOMPARE(listed(form), (QStringList{"2025-26", "Curso 2-B"}));
    }
};

QTEST_MAIN(TestYears)
#include "test_years.moc"
