#include "students/frmComunicacionRecibir.h"

#include "students/ImportText.h"

#include "core/Modulo.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "ui/MsgBox.h"

#include <QComboBox>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString kSinDatos = QStringLiteral("Sin Datos");
const QString kArchivo = QStringLiteral("Archivo a importar");

// Clears the box and lists "Sin Datos", chosen, then the Des of each row of
// the statement; with no statement "Sin Datos" alone.
void fillCombo(QComboBox* combo, db::Recordset& rs, const QString& sql)
{
    rs.Close();
    combo->clear();
    combo->addItem(kSinDatos);
    if (!sql.isEmpty()) {
        rs.Open(sql, gConexion);
        for (; !rs.Eof(); rs.MoveNext())
            combo->addItem(ui::displayText(rs.Value(QStringLiteral("Des"))));
    }
    combo->setCurrentIndex(0);
}

// Moves the recordset to the first row whose Des is the text; false at EOF.
bool findDescription(db::Recordset& rs, const QString& des)
{
    if (!rs.IsOpen() || rs.RecordCount() == 0)
        return false;
    rs.MoveFirst();
    rs.Find(QStringLiteral("Des = '") + des + u'\'');
    return !rs.Eof();
}

// The file's lines, each as UTF-8 or Windows-1252 (see importLines).
QStringList readImportFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(RuntimeError::FileNotFound, QStringLiteral("No se encontró el archivo"));
    return students::importLines(file.readAll());
}

} // namespace

frmComunicacionRecibir::frmComunicacionRecibir(QWidget* parent)
    : Form(parent),
      lblAxuda(new QLabel(
          QStringLiteral("Seleccione el Nivel, Curso y Grupo que quiere importar y luego busque el archivo."), this)),
      cmbNiveis(new QComboBox(this)), cmbCursos(new QComboBox(this)), cmbGrupos(new QComboBox(this)),
      lblArchivo(new QLabel(kArchivo, this)),
      cmdBuscar(ui::commandButton(this, "cmdBuscar", QStringLiteral("&Buscar Archivo"))),
      cmdImportar(ui::commandButton(this, "cmdImportar", QStringLiteral("&Importar")))
{
    setCaption(QStringLiteral("Importar datos de Alumnos"));
    lblAxuda->setObjectName(QStringLiteral("lblAxuda"));
    lblAxuda->setWordWrap(true);
    cmbNiveis->setObjectName(QStringLiteral("cmbNiveis"));
    cmbCursos->setObjectName(QStringLiteral("cmbCursos"));
    cmbGrupos->setObjectName(QStringLiteral("cmbGrupos"));
    lblArchivo->setObjectName(QStringLiteral("lblArchivo"));
    lblArchivo->setFrameShape(QFrame::StyledPanel);
    lblArchivo->setFrameShadow(QFrame::Sunken);
    lblArchivo->setMinimumWidth(420);
    lblArchivo->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* combos = new QGridLayout;
    const QString titulos[] = {QStringLiteral("Nivel"), QStringLiteral("Curso"), QStringLiteral("Grupo")};
    QComboBox* boxes[] = {cmbNiveis, cmbCursos, cmbGrupos};
    for (int i = 0; i < 3; ++i) {
        auto* label = new QLabel(titulos[i], this);
        label->setBuddy(boxes[i]);
        boxes[i]->setMinimumWidth(150);
        combos->addWidget(label, 0, i);
        combos->addWidget(boxes[i], 1, i);
    }
    auto* archivo = new QHBoxLayout;
    archivo->addWidget(lblArchivo, 1);
    archivo->addWidget(cmdBuscar);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdImportar);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(lblAxuda);
    layout->addLayout(combos);
    layout->addLayout(archivo);
    layout->addStretch(1);
    layout->addLayout(buttons);

    onSignal(cmbNiveis, &QComboBox::activated, &frmComunicacionRecibir::cmbNiveis_Click);
    onSignal(cmbCursos, &QComboBox::activated, &frmComunicacionRecibir::cmbCursos_Click);
    onSignal(cmbGrupos, &QComboBox::activated, &frmComunicacionRecibir::cmbGrupos_Click);
    onSignal(cmdBuscar, &QPushButton::clicked, &frmComunicacionRecibir::cmdBuscar_Click);
    onSignal(cmdImportar, &QPushButton::clicked, &frmComunicacionRecibir::cmdImportar_Click);
}

void frmComunicacionRecibir::Form_Activate()
{
    CargarNiveis();
    CargarCursos(QVariant());
    CargarGrupos(QVariant());
}

void frmComunicacionRecibir::CargarNiveis()
{
    fillCombo(cmbNiveis, rsNiveis_, QStringLiteral("SELECT Id, Des FROM tblNiveles ORDER BY Id"));
}

void frmComunicacionRecibir::CargarCursos(const QVariant& idNivel)
{
    fillCombo(cmbCursos, rsCursos_,
              idNivel.isValid()
                  ? QStringLiteral("SELECT Id, Des FROM tblCursos WHERE tblCursos.IdNivel = %1 ORDER BY Id")
                        .arg(idNivel.toString())
                  : QString());
}

void frmComunicacionRecibir::CargarGrupos(const QVariant& idCurso)
{
    fillCombo(cmbGrupos, rsGrupos_,
              idCurso.isValid()
                  ? QStringLiteral("SELECT Id, Des FROM tblGrupos WHERE tblGrupos.IdCurso = %1 ORDER BY Id")
                        .arg(idCurso.toString())
                  : QString());
}

// A choice that names no row ("Sin Datos") leaves the boxes below as they are.
void frmComunicacionRecibir::cmbNiveis_Click()
{
    if (findDescription(rsNiveis_, cmbNiveis->currentText()))
        CargarCursos(rsNiveis_.Value(QStringLiteral("Id")));
}

void frmComunicacionRecibir::cmbCursos_Click()
{
    if (findDescription(rsCursos_, cmbCursos->currentText()))
        CargarGrupos(rsCursos_.Value(QStringLiteral("Id")));
}

void frmComunicacionRecibir::cmbGrupos_Click()
{
    // The group's record stays current: it is the group of every student read.
    findDescription(rsGrupos_, cmbGrupos->currentText());
}

void frmComunicacionRecibir::cmdBuscar_Click()
{
    const QString ruta = FileDialog::getOpenFileNameCommon(this, kArchivo, QStringLiteral("*.alu"), filtroArchivos());
    if (!ruta.isEmpty())
        lblArchivo->setText(ruta);
}

void frmComunicacionRecibir::cmdImportar_Click()
{
    if (lblArchivo->text() == kArchivo) {
        MsgBox(QStringLiteral("Debe de seleccionar un archivo"), vbInformation);
        return;
    }
    if (cmbGrupos->currentIndex() <= 0 || !rsGrupos_.IsOpen() || rsGrupos_.Bof() || rsGrupos_.Eof()) {
        MsgBox(QStringLiteral("Debe de seleccionar un grupo"), vbInformation);
        return;
    }
    CargarAlumnos();
    Actualizar();
    MsgBox(QStringLiteral("Proceso Finalizado"), vbInformation);
}

void frmComunicacionRecibir::CargarAlumnos()
{
    rsAlumnos_.Close();
    rsAlumnos_.Open(QStringLiteral("SELECT * FROM tblAlumnos"), gConexion);
}

void frmComunicacionRecibir::Actualizar()
{
    students::importStudents(rsAlumnos_, readImportFile(lblArchivo->text()), rsGrupos_.Value(QStringLiteral("Id")));
}

void frmComunicacionRecibir::done(int result)
{
    rsNiveis_.Close();
    rsCursos_.Close();
    rsGrupos_.Close();
    rsAlumnos_.Close();
    Form::done(result);
}
