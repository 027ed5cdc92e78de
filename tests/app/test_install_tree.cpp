// The installed tree: `cmake --install` into a temporary prefix, then the
// files a desktop and a packager look for, and the tools run from there
// (the installer putting the program's files in the user's data folder).
#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run run(const QString& program, const QStringList& args, const QProcessEnvironment& env = {},
        const QString& workingDir = {})
{
    QProcess p;
    if (!env.isEmpty())
        p.setProcessEnvironment(env);
    if (!workingDir.isEmpty())
        p.setWorkingDirectory(workingDir);
    p.start(program, args);
    Run r;
    if (!p.waitForStarted(10000)) {
        r.err = p.errorString();
        return r;
    }
    p.waitForFinished(300000);
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

QString text(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

class TestInstallTree : public QObject {
    Q_OBJECT

    QTemporaryDir tmp_;
    QString prefix_;

    QString installed(const QString& relative) const { return prefix_ + u'/' + relative; }

    // A user of the computer whose home and data folder are under the test's folder.
    QProcessEnvironment user() const
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HOME"), tmp_.filePath(QStringLiteral("home")));
        env.insert(QStringLiteral("XDG_DATA_HOME"), tmp_.filePath(QStringLiteral("home/.local/share")));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        return env;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(tmp_.isValid());
        prefix_ = tmp_.filePath(QStringLiteral("usr"));
        const Run r =
            run(QStringLiteral(CADERNIA_CMAKE_COMMAND),
                {QStringLiteral("--install"), QStringLiteral(CADERNIA_BUILD_DIR), QStringLiteral("--prefix"), prefix_});
        QVERIFY2(r.exitCode == 0, qPrintable(r.out + r.err));
    }

    void theProgramAndTheToolsAreInBin()
    {
        for (const char* name : {"cadernia", "cadernia-start", "cadernia-setup", "cadernia-sql", "cadernia-report"}) {
            const QFileInfo fi(installed(QStringLiteral("bin/") + QLatin1String(name)));
            QVERIFY2(fi.isFile() && fi.isExecutable(), name);
        }
        // The build's own tools stay out.
        QVERIFY(!QFileInfo::exists(installed(QStringLiteral("bin/cadernia-screenshots"))));
        QVERIFY(!QFileInfo::exists(installed(QStringLiteral("bin/cadernia-bench"))));
    }

    void theReportFilesTemplatesAndPicturesAreUnderShareCadernia()
    {
        const QDir informes(installed(QStringLiteral("share/cadernia/Informes")));
        QStringList expected{QStringLiteral("Alumnos.rpt"),      QStringLiteral("AlumnosGrupo.rpt"),
                             QStringLiteral("FichaAlumnos.rpt"), QStringLiteral("NotasAval.rpt"),
                             QStringLiteral("NotasFinais.rpt"),  QStringLiteral("NotasRec.rpt"),
                             QStringLiteral("NotasTarea.rpt"),   QStringLiteral("TutoriaBoletin.rpt"),
                             QStringLiteral("TutoriaCuadro.rpt")};
        QStringList found = informes.entryList(QDir::Files, QDir::Name);
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
        QCOMPARE(text(installed(QStringLiteral("share/cadernia/Impresion/FichaAlumno.rpt"))),
                 text(QStringLiteral(CADERNIA_SOURCE_DIR "/data/reports/FichaAlumno.rpt")));
        for (const char* picture : {"Incidencias.gif", "Alerta.gif"}) {
            QImage image(installed(QStringLiteral("share/cadernia/Ico/") + QLatin1String(picture)));
            QVERIFY2(!image.isNull(), picture);
        }
    }

    void theDesktopEntryIsSpanishAndInEducation()
    {
        const QString path = installed(QStringLiteral("share/applications/org.cadernia.Cadernia.desktop"));
        const QStringList lines = text(path).split(u'\n');
        QVERIFY(lines.contains(QStringLiteral("Name=Cadernia")));
        QVERIFY(lines.contains(QStringLiteral("GenericName=Cuaderno del profesor")));
        QVERIFY(lines.contains(QStringLiteral("Exec=cadernia-start")));
        QVERIFY(lines.contains(QStringLiteral("Icon=cadernia")));
        const QStringList categories = lines.filter(QRegularExpression(QStringLiteral("^Categories=")));
        QCOMPARE(categories.size(), 1);
        QVERIFY(categories.first().mid(11).split(u';').contains(QStringLiteral("Education")));
        const Run r = run(QStringLiteral("desktop-file-validate"), {path});
        QVERIFY2(r.exitCode == 0, qPrintable(r.out + r.err));
    }

    void theMetainfoPassesAppstreamValidation()
    {
        const QString path = installed(QStringLiteral("share/metainfo/org.cadernia.Cadernia.metainfo.xml"));
        QVERIFY(text(path).contains(QStringLiteral("<launchable type=\"desktop-id\">org.cadernia.Cadernia.desktop")));
        const Run r =
            run(QStringLiteral("appstreamcli"), {QStringLiteral("validate"), QStringLiteral("--no-net"), path});
        QVERIFY2(r.exitCode == 0, qPrintable(r.out + r.err));
    }

    void theIconIsAScalablePictureOfTheLogo()
    {
        QImageReader reader(installed(QStringLiteral("share/icons/hicolor/scalable/apps/cadernia.svg")));
        reader.setScaledSize(QSize(256, 256));
        const QImage icon = reader.read();
        QVERIFY2(!icon.isNull(), qPrintable(reader.errorString()));
        // The blue tile at the edge, the paper of a page, the green tick.
        const QColor tile = icon.pixelColor(128, 12);
        QVERIFY(tile.blue() > 120 && tile.red() < 80);
        const QColor paper = icon.pixelColor(80, 70);
        QVERIFY(paper.red() > 230 && paper.green() > 230 && paper.blue() > 220);
        QCOMPARE(icon.pixelColor(2, 2).alpha(), 0); // the rounded corner
    }

    void eachCommandHasAManualPage()
    {
        for (const char* page : {"cadernia", "cadernia-start", "cadernia-setup", "cadernia-sql", "cadernia-report"}) {
            const QString path = installed(QStringLiteral("share/man/man1/") + QLatin1String(page) + ".1.gz");
            const Run r = run(QStringLiteral("gzip"), {QStringLiteral("-dc"), path});
            QVERIFY2(r.exitCode == 0, page);
            QVERIFY2(r.out.startsWith(QStringLiteral(".TH ")) || r.out.startsWith(QStringLiteral(".so ")), page);
        }
        const Run setup = run(QStringLiteral("gzip"),
                              {QStringLiteral("-dc"), installed(QStringLiteral("share/man/man1/cadernia-setup.1.gz"))});
        QVERIFY(setup.out.contains(QStringLiteral("\\-\\-program\\-dir")));
    }

    void cadernaSqlCreatesAYearFromTheInstalledTree()
    {
        const QString year = tmp_.filePath(QStringLiteral("suelto/Xestion.mdb"));
        QVERIFY(QDir().mkpath(QFileInfo(year).path()));
        Run r = run(installed(QStringLiteral("bin/cadernia-sql")), {QStringLiteral("--create"), year}, user());
        QVERIFY2(r.exitCode == 0, qPrintable(r.err));
        r = run(installed(QStringLiteral("bin/cadernia-sql")),
                {year, QStringLiteral("SELECT Count(*) AS n FROM tblAlumnos")}, user());
        QVERIFY2(r.exitCode == 0, qPrintable(r.err));
        QCOMPARE(r.out.split(u'\n').value(1), QStringLiteral("0"));
    }

    void theInstalledSetupWritesIntoTheUsersFolderAndTheReportRuns()
    {
        const QString base = tmp_.filePath(QStringLiteral("home/Cadernia"));
        Run r = run(installed(QStringLiteral("bin/cadernia-setup")),
                    {base, QStringLiteral("--demo"), QStringLiteral("--year"), QStringLiteral("2030-31")}, user());
        QVERIFY2(r.exitCode == 0, qPrintable(r.err));
        const QString folder = tmp_.filePath(QStringLiteral("home/.local/share/cadernia"));
        QCOMPARE(text(folder + QStringLiteral("/ruta.ini")), base + QStringLiteral("\r\n"));
        QCOMPARE(text(folder + QStringLiteral("/ano.ini")), QStringLiteral("2030-31\r\n"));
        QVERIFY(QFileInfo::exists(folder + QStringLiteral("/Impresion/Impresion.mdb")));
        QVERIFY(!QFileInfo::exists(installed(QStringLiteral("bin/ruta.ini"))));

        const QString pdf = tmp_.filePath(QStringLiteral("alumnos.pdf"));
        r = run(installed(QStringLiteral("bin/cadernia-report")),
                {base, QStringLiteral("2030-31"), QStringLiteral("Alumnos"), QStringLiteral("--entry"),
                 QStringLiteral("Global"), pdf},
                user(), folder);
        QVERIFY2(r.exitCode == 0, qPrintable(r.err));
        QFile f(pdf);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.read(5), QByteArray("%PDF-"));
        QVERIFY(f.size() > 5000);
    }
};

QTEST_MAIN(TestInstallTree)
#include "test_install_tree.moc"
