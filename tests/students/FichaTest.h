#pragma once
// What the student sheet tests share: the list whose recordset the sheet
// walks, the sheet opened on it or for a new student, the save pressed with
// its message boxes answered, and the rows read back.
#include "AlumnosTest.h"
#include "students/frmAlumnos.h"
#include "students/frmAlumnosFicha.h"
#include "ui/Dialogs.h"
#include "ui/MaskEdit.h"
#include "ui/MsgBox.h"

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

namespace alumnos_test {

// A column of a student as text; "Null" for a Null.
inline QString columna(const QString& column, int id)
{
    return yearq::field(QStringLiteral("tblAlumnos"), column, id);
}

// The texts of every message box shown.
inline QStringList mensajes()
{
    QStringList texts;
    for (const MsgBox::Shown& box : MsgBox::shown())
        texts << box.text;
    return texts;
}

// A small picture file written into the folder.
inline QString imaxe(const QTemporaryDir& dir, const QString& name)
{
    QImage image(60, 80, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 40));
    const QString path = dir.filePath(name);
    image.save(path);
    return path;
}

inline const QString kDuplicado = QStringLiteral("Este nombre de alumno ya existe. Ponga otro");

class SheetFixture {
protected:
    Year year_;
    std::unique_ptr<frmAlumnos> list_;

    // The list of the students under a filter, its recordset on a row, as the
    // list hands it to the sheet.
    db::Recordset* lista(const QString& filtro = QString(), int fila = 1)
    {
        list_ = std::make_unique<frmAlumnos>();
        list_->txtFiltro->setText(filtro);
        list_->RellenaLista();
        if (list_->recordset().RecordCount() > 0)
            list_->recordset().SetAbsolutePosition(fila);
        return &list_->recordset();
    }

    // The sheet of a listed student, shown.
    std::unique_ptr<frmAlumnosFicha> ficha(quint8 estado, qint32 id, db::Recordset* rs)
    {
        auto f = std::make_unique<frmAlumnosFicha>();
        f->setEstado(estado);
        f->setId(id);
        f->setRcAlumnos(rs);
        f->show();
        return f;
    }

    std::unique_ptr<frmAlumnosFicha> nova() { return ficha(0, 0, nullptr); }

    // A new student typed in: surnames, name, the two dates and the group by
    // its place in the box (-1 leaves the box empty).
    std::unique_ptr<frmAlumnosFicha> nova(const QString& ape, const QString& nom, const QString& fecNac = QString(),
                                          const QString& fecMat = QString(), int grupo = 0)
    {
        auto f = nova();
        f->txtApe->setText(ape);
        f->txtNom->setText(nom);
        f->mskFecNac->setText(fecNac);
        f->mskFecMat->setText(fecMat);
        f->cmbGrupo->setCurrentIndex(grupo);
        return f;
    }

    // "Guardar cambios", answering each of the message boxes that it shows;
    // their texts.
    static QStringList garda(frmAlumnosFicha& f, int boxes = 0)
    {
        for (int i = 0; i < boxes; ++i)
            MsgBox::setNextAnswer(vbOK);
        click(f.cmdAceptar);
        return mensajes();
    }

    void openYear() { year_.start(); }
    void closeYear()
    {
        list_.reset();
        FileDialog::reset();
        year_.finish();
    }
};

} // namespace alumnos_test
