// The import of class lists on a seeded year: the three chained combos, the
// file dialog, the checks before importing, and the reading of ".alu" lines
// from the sample files of tests/students/data.
#include "AlumnosTest.h"
#include "students/ImportText.h"
#include "students/frmComunicacionRecibir.h"
#include "support/GridText.h"
#include "ui/Dialogs.h"
#include "ui/MsgBox.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

using namespace alumnos_test;
using yearq::count;
using yearq::value;

namespace {

QString sample(const char* name)
{
    return QStringLiteral(CADERNIA_STUDENTS_DATA "/") + QLatin1String(name);
}

// Id, Ape, Nom and Grupo of a student, Null for a Null column.
QString alumno(int id)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Id, Ape, Nom, Grupo FROM tblAlumnos WHERE Id = %1").arg(id), gConexion);
    if (rs.Eof())
        return QStringLiteral("none");
    QStringList cells;
    for (int i = 0; i < rs.FieldCount(); ++i)
        cells << (rs.Value(i).isNull() ? QStringLiteral("Null") : rs.Value(i).toString());
    return cells.join(u'|');
}

} // namespace

class TestStudentsImport : public QObject {
    Q_OBJECT

    Year year_;

    // The screen with 1º ESO B chosen and a sample file.
    std::unique_ptr<frmComunicacionRecibir> ready(const char* file)
    {
        auto f = std::make_unique<frmComunicacionRecibir>();
        f->show();
        gridtext::pick(f->cmbNiveis, QStringLiteral("ESO"));
        gridtext::pick(f->cmbCursos, QStringLiteral("1º"));
        gridtext::pick(f->cmbGrupos, QStringLiteral("B"));
        FileDialog::setNextFileName(sample(file));
        click(f->cmdBuscar);
        return f;
    }

    // Imports and answers "Proceso Finalizado" when it comes.
    void importa(frmComunicacionRecibir& f)
    {
        MsgBox::setNextAnswer(vbOK);
        click(f.cmdImportar);
    }

    // Imports a file that the database stops: the numbers of the errors it
    // raised, which are then forgotten.
    QList<int> importaFallando(frmComunicacionRecibir& f)
    {
        click(f.cmdImportar);
        QList<int> numbers;
        for (const RuntimeError& e : year_.harness.errors)
            numbers << e.Number();
        year_.harness.errors.clear();
        return numbers;
    }

private slots:
    void init() { year_.start(); }
    void cleanup()
    {
        FileDialog::reset();
        year_.finish();
    }

    void screenOpensWithTheThreeCombosOnSinDatos()
    {
        frmComunicacionRecibir f;
        f.show();
        QCOMPARE(f.Caption(), QStringLiteral("Importar datos de Alumnos"));
        QCOMPARE(f.lblAxuda->text(),
                 QStringLiteral("Seleccione el Nivel, Curso y Grupo que quiere importar y luego busque el archivo."));
        QCOMPARE(gridtext::items(*f.cmbNiveis), (QStringList{"Sin Datos", "Primaria", "ESO"}));
        QCOMPARE(gridtext::items(*f.cmbCursos), QStringList{"Sin Datos"});
        QCOMPARE(gridtext::items(*f.cmbGrupos), QStringList{"Sin Datos"});
        QCOMPARE(f.cmbNiveis->currentText(), QStringLiteral("Sin Datos"));
        QCOMPARE(f.lblArchivo->text(), QStringLiteral("Archivo a importar"));
        QCOMPARE(f.cmdBuscar->text(), QStringLiteral("&Buscar Archivo"));
        QCOMPARE(f.cmdImportar->text(), QStringLiteral("&Importar"));
    }

    void eachComboLoadsTheOneBelowIt()
    {
        frmComunicacionRecibir f;
        f.show();
        gridtext::pick(f.cmbNiveis, QStringLiteral("ESO"));
        QCOMPARE(gridtext::items(*f.cmbCursos), (QStringList{"Sin Datos", "1º", "2º"}));
        QCOMPARE(f.cmbCursos->currentIndex(), 0);
        QCOMPARE(gridtext::items(*f.cmbGrupos), QStringList{"Sin Datos"});
        gridtext::pick(f.cmbCursos, QStringLiteral("2º"));
        QCOMPARE(gridtext::items(*f.cmbGrupos), (QStringList{"Sin Datos", "C"}));
        QCOMPARE(f.cmbGrupos->currentIndex(), 0);
        gridtext::pick(f.cmbNiveis, QStringLiteral("Primaria"));
        QCOMPARE(gridtext::items(*f.cmbCursos), (QStringList{"Sin Datos", "5º"}));
        // The groups of the former course stay until a course is chosen.
        QCOMPARE(gridtext::items(*f.cmbGrupos), (QStringList{"Sin Datos", "C"}));
    }

    void choosingSinDatosLeavesTheCombosBelowAsTheyAre()
    {
        frmComunicacionRecibir f;
        f.show();
        gridtext::pick(f.cmbNiveis, QStringLiteral("ESO"));
        gridtext::pick(f.cmbNiveis, QStringLiteral("Sin Datos"));
        QCOMPARE(gridtext::items(*f.cmbCursos), (QStringList{"Sin Datos", "1º", "2º"}));
    }

    void fileDialogHasItsTitleDefaultAndFilterAndFillsTheLabel()
    {
        frmComunicacionRecibir f;
        f.show();
        FileDialog::setNextFileName(sample("clase.alu"));
        click(f.cmdBuscar);
        QCOMPARE(FileDialog::asked(), QStringList{"Archivo a importar"});
        QCOMPARE(FileDialog::askedFilters(), QStringList{"Ficheiros alumnos|*.alu|Todos/*.*"});
        QCOMPARE(f.lblArchivo->text(), sample("clase.alu"));
        FileDialog::setNextFileName(QString());
        click(f.cmdBuscar);
        QCOMPARE(f.lblArchivo->text(), sample("clase.alu"));
    }

    void importBeforeChoosingAFileAsksForTheFileEvenWithoutAGroup()
    {
        frmComunicacionRecibir f;
        f.show();
        MsgBox::setNextAnswer(vbOK);
        click(f.cmdImportar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Debe de seleccionar un archivo"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void importWithoutAGroupAsksForTheGroup()
    {
        frmComunicacionRecibir f;
        f.show();
        gridtext::pick(f.cmbNiveis, QStringLiteral("ESO"));
        gridtext::pick(f.cmbCursos, QStringLiteral("1º"));
        FileDialog::setNextFileName(sample("clase.alu"));
        click(f.cmdBuscar);
        MsgBox::setNextAnswer(vbOK);
        click(f.cmdImportar);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Debe de seleccionar un grupo"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void fullLinesGiveTheKeyAndBothNamesInTheChosenGroup()
    {
        auto f = ready("clase.alu");
        importa(*f);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Proceso Finalizado"));
        QCOMPARE(alumno(12), QStringLiteral("12|Lema Otero|Iria|2"));
        QCOMPARE(alumno(13), QStringLiteral("13|Rey Castro|Breixo|2"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 10);
        // Every other column keeps its default.
        QCOMPARE(value(QStringLiteral("SELECT AV FROM tblAlumnos WHERE Id = 12")).toInt(), 0);
        QVERIFY(value(QStringLiteral("SELECT MailAlu FROM tblAlumnos WHERE Id = 12")).isNull());
        QVERIFY(f->isVisible());
    }

    void eachLineOfASampleFile_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("row");
        QTest::newRow("a line without its closing mark leaves Nom unset")
            << "sen_peche.alu" << 12 << "12|Lema Otero|Null|2";
        QTest::newRow("two marks together after the key leave Ape unset")
            << "sen_apelidos.alu" << 12 << "12|Null|Iria|2";
        QTest::newRow("text after the third mark is ignored") << "resto_ignorado.alu" << 30 << "30|Outeiro Paz|Lois|2";
        // With no second mark the third search starts again at the line's
        // first character and finds the key's own mark.
        QTest::newRow("a key closed alone gives its own text as the name") << "so_apelidos.alu" << 40 << "40|Null|40|2";
    }

    void eachLineOfASampleFile()
    {
        QFETCH(QString, file);
        QFETCH(int, id);
        QFETCH(QString, row);
        auto f = ready(qPrintable(file));
        importa(*f);
        QCOMPARE(alumno(id), row);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
    }

    void emptyFileShowsProcesoFinalizadoAndAddsNothing()
    {
        auto f = ready("baleiro.alu");
        importa(*f);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("Proceso Finalizado"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void repeatedKeyEndsTheRunKeepingTheRowsBeforeIt()
    {
        auto f = ready("chave_repetida.alu");
        QCOMPARE(importaFallando(*f), QList<int>{RuntimeError::DatabaseError});
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(alumno(20), QStringLiteral("20|Uno Primeiro|Ana|2"));
        QCOMPARE(alumno(21), QStringLiteral("21|Dous Segundo|Bieito|2"));
        QCOMPARE(alumno(22), QStringLiteral("none"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 10);
    }

    void importingTheSameFileTwiceFailsOnItsFirstLine()
    {
        auto f = ready("clase.alu");
        importa(*f);
        QCOMPARE(importaFallando(*f), QList<int>{RuntimeError::DatabaseError});
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 10);
        QCOMPARE(alumno(12), QStringLiteral("12|Lema Otero|Iria|2"));
    }

    void keyOfAStudentOfTheYearFails()
    {
        addStudent(12, QStringLiteral("Xa Estaba"), QStringLiteral("Ana"), 3);
        auto f = ready("clase.alu");
        QCOMPARE(importaFallando(*f), QList<int>{RuntimeError::DatabaseError});
        QCOMPARE(alumno(12), QStringLiteral("12|Xa Estaba|Ana|3"));
        QCOMPARE(alumno(13), QStringLiteral("none"));
    }

    void lineWithoutAKeyIsRefused()
    {
        auto f = ready("sen_chave.alu");
        QCOMPARE(importaFallando(*f), QList<int>{RuntimeError::DatabaseError});
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void filesInUtf8AndInLatin1AreBothRead()
    {
        auto f = ready("utf8.alu");
        importa(*f);
        QCOMPARE(alumno(32), QStringLiteral("32|Piñeiro|Óscar|2"));
        FileDialog::setNextFileName(sample("latin1.alu"));
        click(f->cmdBuscar);
        importa(*f);
        QCOMPARE(alumno(31), QStringLiteral("31|Muñoz Fernández|Íñigo|2"));
    }

    void aLineWithAStrayByteReadsAsWindows1252AndTheOthersStayUtf8()
    {
        auto f = ready("mesturado.alu");
        importa(*f);
        QCOMPARE(alumno(41), QStringLiteral("41|Núñez Castro|Xoán|2"));
        QCOMPARE(alumno(42), QStringLiteral("42|O’Neill Pérez|Inés|2"));
        QCOMPARE(alumno(43), QStringLiteral("43|Álvarez Souto|Uxía|2"));
    }

    void aNulByteEndsItsField()
    {
        auto f = ready("nulo.alu");
        importa(*f);
        QCOMPARE(alumno(51), QStringLiteral("51|Rey|Ana|2"));
        QCOMPARE(alumno(52), QStringLiteral("52|Vidal|Sara|2"));
    }

    // A list exported on an old Mac ends its lines with CR alone.
    void aFileWithCrLineEndsImportsEveryStudent()
    {
        auto f = ready("cr.alu");
        importa(*f);
        QCOMPARE(alumno(61), QStringLiteral("61|Castro Vidal|Antía|2"));
        QCOMPARE(alumno(62), QStringLiteral("62|Dopazo Rial|Brais|2"));
        QCOMPARE(alumno(63), QStringLiteral("63|Eirís Pazos|Carme|2"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 11);
    }

    void lfCrLfAndCrLineEndsInOneFileEachEndALine()
    {
        auto f = ready("finais_mesturados.alu");
        importa(*f);
        QCOMPARE(alumno(81), QStringLiteral("81|Iglesias|Lois|2"));
        QCOMPARE(alumno(82), QStringLiteral("82|Xusto|Mar|2"));
        QCOMPARE(alumno(83), QStringLiteral("83|Louro|Aldara|2"));
        QCOMPARE(alumno(84), QStringLiteral("84|Mosquera|Iago|2"));
        QCOMPARE(students::importLines("a\r\rb\r\n\nc"),
                 (QStringList{QStringLiteral("a"), QString(), QStringLiteral("b"), QString(), QStringLiteral("c")}));
    }

    void aFileInUtf16IsReadAsSuch()
    {
        auto f = ready("utf16.alu");
        importa(*f);
        QVERIFY(year_.harness.errors.isEmpty());
        QCOMPARE(alumno(71), QStringLiteral("71|Fernández Gil|Xiana|2"));
        QCOMPARE(alumno(72), QStringLiteral("72|García Lema|Roi|2"));
        QCOMPARE(alumno(73), QStringLiteral("73|Hermida Sar|Noa|2"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 11);
    }

    void groupChosenInAnotherCourseIsTheOneUsed()
    {
        auto f = ready("clase.alu");
        gridtext::pick(f->cmbCursos, QStringLiteral("2º"));
        gridtext::pick(f->cmbGrupos, QStringLiteral("C"));
        importa(*f);
        QCOMPARE(alumno(12), QStringLiteral("12|Lema Otero|Iria|3"));
    }
};

QTEST_MAIN(TestStudentsImport)
#include "test_students_import.moc"
