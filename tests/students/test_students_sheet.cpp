// The student sheet on a seeded year: its tabs and strip, the data tab
// loaded and saved in both modes, the two validations with their order of
// verdicts, and the photo.
#include "FichaTest.h"
#include "ui/Colors.h"
#include "ui/Dialogs.h"

#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace alumnos_test;
using yearq::count;
using yearq::value;

class TestStudentsSheet : public QObject, protected SheetFixture {
    Q_OBJECT

private slots:
    void init() { openYear(); }
    void cleanup() { closeYear(); }

    // ---- the form

    void sheetHasFourTabsTheButtonStripAndTheDataLabels()
    {
        auto f = nova();
        QCOMPARE(f->sstDatos->count(), 4);
        QCOMPARE(f->sstDatos->tabText(0), QStringLiteral("DATOS PERSONALES"));
        QCOMPARE(f->sstDatos->tabText(1), QStringLiteral("NOTAS"));
        QCOMPARE(f->sstDatos->tabText(2), QStringLiteral("RECUPERACIONES"));
        QCOMPARE(f->sstDatos->tabText(3), QStringLiteral("GRÁFICO"));
        QCOMPARE(f->sstDatos->currentIndex(), 0);
        QCOMPARE(f->cmdAceptar->text(), QStringLiteral("&Guardar cambios"));
        QCOMPARE(f->cmdCancelar->text(), QStringLiteral("&Cancelar"));
        QCOMPARE(f->cmdAnterior->text(), QStringLiteral("&Anterior"));
        QCOMPARE(f->cmdSeguinte->text(), QStringLiteral("&Siguiente"));
        QCOMPARE(f->cmdBuscar->text(), QStringLiteral("&Buscar"));
        QCOMPARE(f->cmdBorrarEval->text(), QStringLiteral("Borrar &Eval."));
        QCOMPARE(f->cmdInforme->text(), QStringLiteral("&Imprimir"));
        QVERIFY(f->fraBotones->isVisible());
        QStringList labels;
        for (QLabel* label : f->tabDatos->findChildren<QLabel*>())
            if (label != f->imgFoto)
                labels << label->text();
        QCOMPARE(labels, (QStringList{"Apellidos", "Nombre", "Fecha Nacimiento", "Fecha Matrícula", "Grupo",
                                      "Correo electrónico", "Dirección", "Código Postal", "Población", "Provincia",
                                      "País", "Padre", "Teléfono", "Correo electrónico", "Madre", "Teléfono",
                                      "Correo electrónico", "Observaciones"}));
        QCOMPARE(f->imgFoto->toolTip(), QStringLiteral("Doble click para insertar foto"));
    }

    void newStudentStartsEmptyWithTheNextKeyAndTheFocusOnNombre()
    {
        auto f = nova();
        QCOMPARE(f->Id(), 9);
        QCOMPARE(f->Estado(), quint8(0));
        QCOMPARE(f->txtApe->text(), QString());
        QCOMPARE(f->mskFecNac->Text(), QString());
        QCOMPARE(f->cmbGrupo->currentText(), QString());
        QCOMPARE(f->cmbGrupo->count(), 3);
        QCOMPARE(f->cmbGrupo->itemText(0), QStringLiteral("5º Primaria A"));
        QCOMPARE(f->focusWidget(), f->txtNom);
        // The key is only taken: nothing is written before the save.
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void typingStopsAtTheDeclaredSizeOfEachColumn()
    {
        auto f = nova();
        QCOMPARE(f->txtApe->maxLength(), 100);
        QCOMPARE(f->txtNom->maxLength(), 80);
        QTest::keyClicks(f->txtApe, QString(120, u'x'));
        QCOMPARE(f->txtApe->text().size(), 100);
    }

    void editLoadsEveryFieldOfTheStudent()
    {
        auto f = ficha(1, 1, lista(QString(), 3));
        QCOMPARE(f->txtApe->text(), QStringLiteral("García López"));
        QCOMPARE(f->txtNom->text(), QStringLiteral("Ana"));
        QCOMPARE(f->mskFecNac->Text(), QStringLiteral("12/03/2014"));
        QCOMPARE(f->mskFecMat->Text(), QStringLiteral("10/09/2020"));
        QCOMPARE(f->txtDir->text(), QStringLiteral("Rúa do Franco 12"));
        QCOMPARE(f->txtCP->text(), QStringLiteral("15702"));
        QCOMPARE(f->txtPob->text(), QStringLiteral("Santiago de Compostela"));
        QCOMPARE(f->txtPro->text(), QStringLiteral("A Coruña"));
        QCOMPARE(f->txtPais->text(), QStringLiteral("España"));
        QCOMPARE(f->txtPai->text(), QStringLiteral("Manuel García"));
        QCOMPARE(f->txtTelPai->text(), QStringLiteral("600111222"));
        QCOMPARE(f->txtMailPai->text(), QStringLiteral("manuel.garcia@example.com"));
        QCOMPARE(f->txtNai->text(), QStringLiteral("Rosa López"));
        QCOMPARE(f->txtTelNai->text(), QStringLiteral("600333444"));
        QCOMPARE(f->txtMailNai->text(), QStringLiteral("rosa.lopez@example.com"));
        QCOMPARE(f->txtMailAlu->text(), QStringLiteral("ana.garcia@example.com"));
        QCOMPARE(f->txtObs->toPlainText(), QStringLiteral("Alergia al polen"));
        QCOMPARE(f->cmbGrupo->currentText(), QStringLiteral("5º Primaria A"));
        QCOMPARE(f->RutaFoto(), QStringLiteral("C:\\Fotos\\ana.jpg"));
        QVERIFY(f->imgFoto->pixmap().isNull());
        QCOMPARE(f->Estado(), quint8(1));
        QCOMPARE(list_->recordset().Value(QStringLiteral("Id")).toInt(), 1);
    }

    void nullColumnsShowAsEmptyText()
    {
        auto f = ficha(1, 2, lista(QString(), 2));
        QCOMPARE(f->mskFecNac->Text(), QStringLiteral("01/07/2014"));
        QCOMPARE(f->mskFecMat->Text(), QString());
        QCOMPARE(f->txtObs->toPlainText(), QString());
        QCOMPARE(f->RutaFoto(), QString());
    }

    // ---- validation

    void emptyNameWithEmptyDatesIsRefused()
    {
        auto f = nova(QString(), QString());
        QCOMPARE(garda(*f, 1), QStringList{"Ponga un nombre de alumno"});
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(f->focusWidget(), f->txtApe);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QVERIFY(f->isVisible());
    }

    void emptyNameWithAValidBirthDateIsSavedAfterItsMessage()
    {
        auto f = nova(QString(), QString(), QStringLiteral("01/02/2013"));
        QCOMPARE(garda(*f, 1), QStringList{"Ponga un nombre de alumno"});
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
        QCOMPARE(columna(QStringLiteral("FecNac"), 9), QStringLiteral("2013-02-01"));
        QCOMPARE(columna(QStringLiteral("Ape"), 9), QString());
    }

    void wrongBirthDateWithAnEmptyEnrolmentIsRefused()
    {
        auto f = nova(QStringLiteral("Lema"), QStringLiteral("Iria"), QStringLiteral("31/02/2013"));
        QCOMPARE(garda(*f, 1), QStringList{"Ponga una fecha de nacimiento correcta"});
        // The focus goes to the enrolment date, not to the field at fault.
        QCOMPARE(f->focusWidget(), f->mskFecMat);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void wrongBirthDateWithAValidEnrolmentSavesANullBirthDate()
    {
        auto f = nova(QStringLiteral("Lema"), QStringLiteral("Iria"), QStringLiteral("31/02/2013"),
                      QStringLiteral("10/09/2024"));
        QCOMPARE(garda(*f, 1), QStringList{"Ponga una fecha de nacimiento correcta"});
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
        QCOMPARE(columna(QStringLiteral("FecNac"), 9), QStringLiteral("Null"));
        QCOMPARE(columna(QStringLiteral("FecMat"), 9), QStringLiteral("2024-09-10"));
    }

    void wrongEnrolmentDateIsRefused()
    {
        auto f = nova(QStringLiteral("Lema"), QStringLiteral("Iria"), QStringLiteral("01/02/2013"),
                      QStringLiteral("10/13/2024"));
        QCOMPARE(garda(*f, 1), QStringList{"Ponga una fecha de matrícula correcta"});
        QCOMPARE(f->focusWidget(), f->mskFecMat);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void nameCheckRunsAfterAFailedDataCheck()
    {
        auto f = nova(QStringLiteral("García López"), QStringLiteral("Ana"), QString(), QStringLiteral("99/99/9999"));
        QCOMPARE(garda(*f, 2), (QStringList{"Ponga una fecha de matrícula correcta", kDuplicado}));
        QCOMPARE(f->focusWidget(), f->txtApe);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void savingANewStudentTwiceGivesTheDuplicateMessage()
    {
        auto f = nova(QStringLiteral("Lema Otero"), QStringLiteral("Iria"), QString(), QString(), 2);
        QCOMPARE(garda(*f), QStringList());
        QVERIFY(f->isVisible());
        QCOMPARE(f->Estado(), quint8(0));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
        QCOMPARE(columna(QStringLiteral("Grupo"), 9), QStringLiteral("3"));
        QCOMPARE(garda(*f, 1), QStringList{kDuplicado});
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(f->focusWidget(), f->txtApe);
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
    }

    void newStudentWithAnExistingNameIsRefusedWhateverTheCase()
    {
        auto f = nova(QStringLiteral("garcía lópez"), QStringLiteral("ANA"));
        QCOMPARE(garda(*f, 1), QStringList{kDuplicado});
        QCOMPARE(f->txtApe->text(), QStringLiteral("garcía lópez"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void surnamesAndNameCollideWithoutASeparator()
    {
        addStudent(20, QStringLiteral("Ana"), QStringLiteral("Mar"));
        auto f = nova(QStringLiteral("An"), QStringLiteral("aMar"));
        QCOMPARE(garda(*f, 1), QStringList{kDuplicado});
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 9);
    }

    void apostropheInANewNameBreaksTheDuplicateQuery()
    {
        auto f = nova(QStringLiteral("O'Neill"), QStringLiteral("Sean"));
        garda(*f);
        QCOMPARE(year_.harness.errors.size(), 1);
        year_.harness.errors.clear();
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void editingOnlyTheAddressNeverQueriesForDuplicates()
    {
        // A twin with the same name: any query for the name would find it.
        addStudent(20, QStringLiteral("García López"), QStringLiteral("Ana"), 2);
        auto f = ficha(1, 1, lista(QString(), 3));
        f->txtDir->setText(QStringLiteral("Rúa Nova 7"));
        click(f->cmdAceptar);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(columna(QStringLiteral("Dir"), 1), QStringLiteral("Rúa Nova 7"));
        QCOMPARE(columna(QStringLiteral("Dir"), 20), QStringLiteral("Null"));
    }

    void renamingToAnExistingNameRestoresTheOldNameIntoNombre()
    {
        auto f = ficha(1, 2, lista(QString(), 2));
        f->txtApe->setText(QStringLiteral("García López"));
        f->txtNom->setText(QStringLiteral("Ana"));
        MsgBox::setNextAnswer(vbOK);
        click(f->cmdAceptar);
        QCOMPARE(mensajes(), QStringList{kDuplicado});
        QCOMPARE(f->txtApe->text(), QString());
        QCOMPARE(f->txtNom->text(), QStringLiteral("Fernández NúñezBrais"));
        QCOMPARE(f->focusWidget(), f->txtApe);
        QCOMPARE(columna(QStringLiteral("Ape"), 2), QStringLiteral("Fernández Núñez"));
        QCOMPARE(columna(QStringLiteral("Nom"), 2), QStringLiteral("Brais"));
    }

    void renamedStudentSavedAgainFindsItsOwnNewName()
    {
        auto f = ficha(1, 2, lista(QString(), 2));
        f->txtNom->setText(QStringLiteral("Brais Manuel"));
        click(f->cmdAceptar);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(columna(QStringLiteral("Nom"), 2), QStringLiteral("Brais Manuel"));
        // The former name is the one loaded, not the one saved.
        MsgBox::setNextAnswer(vbOK);
        click(f->cmdAceptar);
        QCOMPARE(mensajes(), QStringList{kDuplicado});
    }

    void editSavesEveryFieldAndTheSheetStaysOpen()
    {
        auto f = ficha(1, 3, lista(QString(), 5));
        QCOMPARE(f->txtApe->text(), QStringLiteral("Pérez Castro"));
        f->txtApe->setText(QStringLiteral("Pérez Castro Ous"));
        f->txtNom->setText(QStringLiteral("Uxía María"));
        f->mskFecNac->setText(QStringLiteral("05/05/2014"));
        f->mskFecMat->setText(QString());
        f->txtDir->setText(QStringLiteral("Rúa do Vilar 3"));
        f->txtCP->setText(QStringLiteral("15705"));
        f->txtPob->setText(QStringLiteral("Santiago"));
        f->txtPro->setText(QStringLiteral("Coruña"));
        f->txtPais->setText(QStringLiteral("Galicia"));
        f->txtPai->setText(QStringLiteral("Antón"));
        f->txtTelPai->setText(QStringLiteral("611"));
        f->txtMailPai->setText(QStringLiteral("anton@example.com"));
        f->txtNai->setText(QStringLiteral("Carme"));
        f->txtTelNai->setText(QStringLiteral("622"));
        f->txtMailNai->setText(QStringLiteral("carme@example.com"));
        f->txtMailAlu->setText(QStringLiteral("uxia@example.com"));
        f->txtObs->setPlainText(QStringLiteral("Primeira liña\nSegunda"));
        f->cmbGrupo->setCurrentIndex(1);
        click(f->cmdAceptar);
        QVERIFY(MsgBox::shown().isEmpty());
        QVERIFY(f->isVisible());
        QCOMPARE(f->Estado(), quint8(1));
        QStringList saved;
        for (const char* column : {"Ape", "Nom", "FecNac", "FecMat", "Dir", "CP", "Pob", "Pro", "Pais", "Pai", "TelPai",
                                   "MailPai", "Nai", "TelNai", "MailNai", "MailAlu", "Obs", "Grupo"})
            saved << columna(QLatin1String(column), 3);
        QCOMPARE(saved, (QStringList{"Pérez Castro Ous", "Uxía María", "2014-05-05", "Null", "Rúa do Vilar 3", "15705",
                                     "Santiago", "Coruña", "Galicia", "Antón", "611", "anton@example.com", "Carme",
                                     "622", "carme@example.com", "uxia@example.com", "Primeira liña\nSegunda", "2"}));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void emptyGroupIsRefusedByTheDatabase()
    {
        auto f = nova(QStringLiteral("Lema"), QStringLiteral("Iria"), QString(), QString(), -1);
        garda(*f);
        QCOMPARE(year_.harness.errors.size(), 1);
        QCOMPARE(year_.harness.errors.first().Number(), int(RuntimeError::TypeMismatch));
        year_.harness.errors.clear();
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void groupTextThatNamesNoGroupLeavesTheColumn()
    {
        auto f = ficha(1, 1, lista(QString(), 3));
        f->cmbGrupo->setEditText(QStringLiteral("3º ESO Z"));
        click(f->cmdAceptar);
        QCOMPARE(columna(QStringLiteral("Grupo"), 1), QStringLiteral("1"));
        f->cmbGrupo->setCurrentIndex(2);
        click(f->cmdAceptar);
        QCOMPARE(columna(QStringLiteral("Grupo"), 1), QStringLiteral("3"));
    }

    void studentOfADeletedGroupShowsAnEmptyGroup()
    {
        auto f = ficha(1, 8, lista(QString(), 7));
        QCOMPARE(f->txtApe->text(), QStringLiteral("Souto Peña"));
        QCOMPARE(f->cmbGrupo->currentText(), QString());
    }

    void cancelDropsWhatWasTyped()
    {
        auto f = ficha(1, 1, lista(QString(), 3));
        f->txtDir->setText(QStringLiteral("Otra"));
        click(f->cmdCancelar);
        QVERIFY(!f->isVisible());
        QCOMPARE(columna(QStringLiteral("Dir"), 1), QStringLiteral("Rúa do Franco 12"));
        auto g = ficha(1, 1, lista(QString(), 3));
        g->txtDir->setText(QStringLiteral("Outra"));
        QTest::keyClick(g.get(), Qt::Key_Escape);
        QVERIFY(!g->isVisible());
        QCOMPARE(columna(QStringLiteral("Dir"), 1), QStringLiteral("Rúa do Franco 12"));
    }

    // ---- the photo

    void photoIsShownFromItsPath()
    {
        QTemporaryDir dir;
        const QString foto = imaxe(dir, QStringLiteral("ana.png"));
        gConexion->Execute(QStringLiteral("UPDATE tblAlumnos SET Foto = '%1' WHERE Id = 1").arg(foto));
        auto f = ficha(1, 1, lista(QString(), 3));
        QCOMPARE(f->RutaFoto(), foto);
        QVERIFY(!f->imgFoto->pixmap().isNull());
    }

    void photoRemovedFromTheDiskShowsEmptyAndKeepsItsPathUntilTheSave()
    {
        QTemporaryDir dir;
        const QString foto = imaxe(dir, QStringLiteral("ana.png"));
        gConexion->Execute(QStringLiteral("UPDATE tblAlumnos SET Foto = '%1' WHERE Id = 1").arg(foto));
        QFile::remove(foto);
        auto f = ficha(1, 1, lista(QString(), 3));
        QVERIFY(f->imgFoto->pixmap().isNull());
        QCOMPARE(f->RutaFoto(), foto);
        click(f->cmdAceptar);
        QCOMPARE(columna(QStringLiteral("Foto"), 1), foto);
    }

    void photoChosenByDoubleClickIsShownAndSavedOnlyBySave()
    {
        QTemporaryDir dir;
        const QString foto = imaxe(dir, QStringLiteral("brais.png"));
        auto f = ficha(1, 2, lista(QString(), 2));
        FileDialog::setNextFileName(foto);
        QTest::mouseDClick(f->imgFoto, Qt::LeftButton);
        QCOMPARE(FileDialog::asked().size(), 1);
        QCOMPARE(f->RutaFoto(), foto);
        QVERIFY(!f->imgFoto->pixmap().isNull());
        QCOMPARE(columna(QStringLiteral("Foto"), 2), QStringLiteral("Null"));
        click(f->cmdAceptar);
        QCOMPARE(columna(QStringLiteral("Foto"), 2), foto);
    }

    void thePhotoDialogOffersPicturesAndStartsInThePicturesOrTheLastFolderUsed()
    {
        QTemporaryDir home;
        QDir(home.path()).mkpath(QStringLiteral("Pictures"));
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_PICTURES_DIR", (home.path() + QStringLiteral("/Pictures")).toUtf8());
        auto f = ficha(1, 2, lista(QString(), 2)); // Brais: no photo yet
        FileDialog::setNextFileName(QString());
        f->imgFoto_DblClick();
        const QString filter = FileDialog::askedFilters().last();
        QVERIFY2(filter.startsWith(QStringLiteral("Imágenes (")), qPrintable(filter));
        QVERIFY(filter.contains(QStringLiteral("*.png")) && filter.contains(QStringLiteral("*.jpg")));
        QVERIFY(!filter.contains(QStringLiteral("(*)")));
        QCOMPARE(QFileInfo(FileDialog::askedDirs().last()).canonicalFilePath(),
                 QFileInfo(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)).canonicalFilePath());
        QVERIFY(FileDialog::askedDirs().last() != QCoreApplication::applicationDirPath());

        QTemporaryDir other;
        const QString foto = imaxe(other, QStringLiteral("brais.png"));
        FileDialog::setNextFileName(foto);
        f->imgFoto_DblClick();
        f.reset(); // not saved: Brais still has no photo
        auto g = ficha(1, 2, lista(QString(), 2));
        FileDialog::setNextFileName(QString());
        g->imgFoto_DblClick();
        QCOMPARE(FileDialog::askedDirs().last(), other.path());
    }

    void cancelledPhotoDialogKeepsThePath()
    {
        auto f = ficha(1, 1, lista(QString(), 3));
        FileDialog::setNextFileName(QString());
        f->imgFoto_DblClick();
        QCOMPARE(f->RutaFoto(), QStringLiteral("C:\\Fotos\\ana.jpg"));
        QVERIFY(f->imgFoto->pixmap().isNull());
    }
};

QTEST_MAIN(TestStudentsSheet)
#include "test_students_sheet.moc"
