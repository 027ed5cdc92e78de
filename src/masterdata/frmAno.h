#pragma once
// "Cursos académicos": the school years are the folders under the base
// folder that hold an Xestion.mdb. A double click on one makes it the
// current year; "Crear Curso" makes a new year out of the current one: the
// folder copied, the year's work emptied (students, marks, tasks, diary,
// sessions, rubrics), the frame kept, the copy compacted.
#include "ui/Form.h"

class QGroupBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class frmAno : public Form {
    Q_OBJECT

public:
    explicit frmAno(QWidget* parent = nullptr);

    QListWidget* lstInforma;
    QGroupBox* fraCrear;
    QLineEdit* txtAno;
    QPushButton* cmdCrear;
    QPushButton* cmdSalir;

    void cmdCrear_Click();
    void lstInforma_DblClick(const QString& nombre);

    // The statements that empty a new year, in the order they run.
    static QStringList BorradosCursoNuevo();

protected:
    void Form_Activate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
