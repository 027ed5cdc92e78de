// The configuration readers and the opening of the session.
#include "core/Modulo.h"
#include "db/Schema.h"
#include "support/RuntimeErrors.h"
#include "support/TempYear.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace {

void writeFile(const QString& path, const QByteArray& content)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    f.write(content);
}

} // namespace

class TestModulo : public QObject {
    Q_OBJECT

    QTemporaryDir program_; // plays the program's folder
    QString ini(const char* name) const { return program_.path() + u'/' + QLatin1String(name); }

private slots:
    void init()
    {
        SetRutaPrograma(program_.path());
        for (const char* f : {"ruta.ini", "ano.ini", "color.ini", "color2.ini", "imp.ini"})
            QFile::remove(ini(f));
        gConexion.reset();
    }

    void missingFilesReadAsEmpty()
    {
        QCOMPARE(LeerRuta(), QString());
        QCOMPARE(LeerAno(), QString());
        QVERIFY(!LeerColor().isValid());
        QVERIFY(!LeerColor2().isValid());
        int n = 0;
        QVERIFY(!LeerImpresora(n).isValid());
    }

    void onlyTheFirstLineIsReadWithoutItsLineEnd()
    {
        writeFile(ini("ruta.ini"), "/home/profe/Cadernia\r\nignored\r\n");
        writeFile(ini("ano.ini"), "2024-25\r\n");
        QCOMPARE(LeerRuta(), QStringLiteral("/home/profe/Cadernia"));
        QCOMPARE(LeerAno(), QStringLiteral("2024-25"));
    }

    void anEmptyFileIsReadPastItsEnd()
    {
        writeFile(ini("ruta.ini"), "");
        QCOMPARE(errorNumber([] { LeerRuta(); }), int(RuntimeError::InputPastEndOfFile));
        writeFile(ini("color.ini"), "");
        QCOMPARE(errorNumber([] { LeerColor(); }), int(RuntimeError::InputPastEndOfFile));
    }

    void aColourWithThePrintBlanksConvertsToTheRightNumber()
    {
        writeFile(ini("color.ini"), " 12632256 \r\n");
        const QVariant c = LeerColor();
        QCOMPARE(c.toString(), QStringLiteral(" 12632256 ")); // kept as read
        QCOMPARE(vb::CLng(c), 12632256);
    }

    void impIniGivesLineOneForZeroAndLineTwoOtherwise()
    {
        writeFile(ini("imp.ini"), "2\r\n-1\r\n");
        int zero = 0, one = 1, seven = 7;
        QCOMPARE(LeerImpresora(zero).toString(), QStringLiteral("2"));
        QCOMPARE(LeerImpresora(one).toString(), QStringLiteral("-1"));
        QCOMPARE(LeerImpresora(seven).toString(), QStringLiteral("-1"));
        writeFile(ini("imp.ini"), "2\r\n");
        QCOMPARE(errorNumber([&] { LeerImpresora(one); }), int(RuntimeError::InputPastEndOfFile));
    }

    void aYearNameWithABlankAndAHyphenIsUsedUnaltered()
    {
        QTemporaryDir base;
        const QString year = QStringLiteral("Curso 2024-25");
        QVERIFY(QDir(base.path()).mkpath(year));
        db::Schema::CreateYear(base.path() + u'/' + year + QStringLiteral("/Xestion.mdb"));
        writeFile(ini("ruta.ini"), base.path().toUtf8() + "\r\n");
        writeFile(ini("ano.ini"), year.toUtf8() + "\r\n");
        AbrirConexion();
        QCOMPARE(gAno, year);
        QCOMPARE(gRutaBase, base.path());
        QCOMPARE(gRutaBD, base.path() + QStringLiteral("/Curso 2024-25/Xestion.mdb"));
        QCOMPARE(gRutaInformes, base.path() + QStringLiteral("/Informes"));
        QVERIFY(gConexion && gConexion->IsOpen());
        QCOMPARE(gConexion->Path(), gRutaBD);
    }

    void aTrailingSlashInRutaIniGivesADoubleSlashThatIsNotCorrected()
    {
        QTemporaryDir base;
        QVERIFY(QDir(base.path()).mkpath(QStringLiteral("2024-25")));
        db::Schema::CreateYear(base.path() + QStringLiteral("/2024-25/Xestion.mdb"));
        writeFile(ini("ruta.ini"), base.path().toUtf8() + "/\r\n");
        writeFile(ini("ano.ini"), "2024-25\r\n");
        AbrirConexion();
        QCOMPARE(gRutaBD, base.path() + QStringLiteral("//2024-25/Xestion.mdb"));
        QCOMPARE(gRutaInformes, base.path() + QStringLiteral("//Informes"));
    }

    void missingRutaIniFailsToOpenANamedPathAndCreatesNothing()
    {
        writeFile(ini("ano.ini"), "2024-25\r\n");
        try {
            AbrirConexion();
            QFAIL("opened");
        } catch (const RuntimeError& e) {
            QVERIFY2(e.Description().contains(QStringLiteral("/2024-25/Xestion.mdb")), qPrintable(e.Description()));
        }
        QVERIFY(!QFile::exists(QStringLiteral("/2024-25/Xestion.mdb")));
        QVERIFY(!gConexion);
    }

    void missingAnoIniNamesTheBaseFolderWithADoubleSlash()
    {
        writeFile(ini("ruta.ini"), "/nowhere/Cadernia\r\n");
        try {
            AbrirConexion();
            QFAIL("opened");
        } catch (const RuntimeError& e) {
            QVERIFY2(e.Description().contains(QStringLiteral("/nowhere/Cadernia//Xestion.mdb")),
                     qPrintable(e.Description()));
        }
        QVERIFY(!QDir(QStringLiteral("/nowhere")).exists());
    }

    void aYearFolderWithoutItsDatabaseFailsAndStaysEmpty()
    {
        QTemporaryDir base;
        QVERIFY(QDir(base.path()).mkpath(QStringLiteral("2025-26")));
        writeFile(ini("ruta.ini"), base.path().toUtf8() + "\r\n");
        writeFile(ini("ano.ini"), "2025-26\r\n");
        QVERIFY(errorNumber([] { AbrirConexion(); }) != 0);
        QVERIFY(QDir(base.path() + QStringLiteral("/2025-26")).isEmpty());
    }

    void aNewConnectionReplacesTheOldOne()
    {
        TempYear first, second;
        writeFile(ini("ruta.ini"), QFileInfo(first.folder()).path().toUtf8() + "\r\n");
        writeFile(ini("ano.ini"), QFileInfo(first.folder()).fileName().toUtf8() + "\r\n");
        AbrirConexion();
        const db::ConnectionPtr old = gConexion;
        writeFile(ini("ruta.ini"), QFileInfo(second.folder()).path().toUtf8() + "\r\n");
        writeFile(ini("ano.ini"), QFileInfo(second.folder()).fileName().toUtf8() + "\r\n");
        AbrirConexion();
        QVERIFY(gConexion != old);
        QCOMPARE(gConexion->Path(), second.path());
        QVERIFY(old->IsOpen()); // not closed by AbrirConexion itself
    }
};

QTEST_GUILESS_MAIN(TestModulo)
#include "test_modulo.moc"
