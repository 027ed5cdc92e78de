#include "rubrics/frmRubricas.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using vb::CLng;
using vb::IsNumeric;

namespace {

enum Col : int { ColIdTarea, ColNumero, ColTarea, ColMateria, ColGrupo, ColAvaliacion, NCols };

} // namespace

frmRubricas::frmRubricas(const RubricTask& tarea, QWidget* parent)
    : Form(parent), lblInfo(new QLabel(this)), txtCurso(new QLineEdit(this)), mshDatos(new FlexGrid(this)),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir"))), tarea_(tarea)
{
    setObjectName(QStringLiteral("frmRubricas"));
    setCaption(QStringLiteral("RÚBRICAS"));
    lblInfo->setObjectName(QStringLiteral("lblInfo"));
    txtCurso->setObjectName(QStringLiteral("txtCurso"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    QFont bold = lblInfo->font();
    bold.setBold(true);
    lblInfo->setFont(bold);
    lblInfo->setWordWrap(true);
    txtCurso->setMaximumWidth(txtCurso->fontMetrics().horizontalAdvance(QStringLiteral("0000-000000")) + 14);
    mshDatos->setMinimumSize(760, 300);

    auto* curso = new QLabel(QStringLiteral("Curso"), this);
    curso->setBuddy(txtCurso);
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(curso);
    arriba->addWidget(txtCurso);
    arriba->addSpacing(12);
    arriba->addWidget(lblInfo, 1);
    auto* abaixo = new QHBoxLayout;
    abaixo->addStretch(1);
    abaixo->addWidget(cmdSalir);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(arriba);
    layout->addWidget(mshDatos, 1);
    layout->addLayout(abaixo);
    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);
    resize(900, 460);

    ui::installSearchField(txtCurso, [this] { txtCurso_Enter(); });
    using F = frmRubricas;
    onSignal(mshDatos, &FlexGrid::DblClick, &F::mshDatos_Elegir);
    onSignal(mshDatos, &FlexGrid::EnterPressed, &F::mshDatos_Elegir);
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

void frmRubricas::Form_Activate()
{
    if (cargado_)
        return;
    cargado_ = true;
    lblInfo->setText(tarea_.header);
    txtCurso->setText(gAno);
    RellenarLista();
}

QString frmRubricas::RutaCurso() const
{
    return gRutaBase + u'/' + txtCurso->text() + QStringLiteral("/Xestion.mdb");
}

void frmRubricas::CargarMDBAnterior()
{
    // Kept while the screen lives; asking for another year replaces it.
    if (!cnAnterior_ || cursoAnterior_ != txtCurso->text()) {
        cnAnterior_ = db::Connection::OpenReadOnly(RutaCurso());
        cursoAnterior_ = txtCurso->text();
    }
}

void frmRubricas::RellenarLista()
{
    if (txtCurso->text() == gAno) {
        cnLista_ = gConexion;
    } else {
        CargarMDBAnterior();
        cnLista_ = cnAnterior_;
    }

    // The type by its description: its key in that year.
    idTip_ = 0;
    db::Recordset tipo;
    tipo.Open(QStringLiteral(
                  "SELECT tblTareas.IdTip, tblTareas.IdMat, tblTareas.IdGru, tblTareas.Id, tblTareasTipos.Des AS "
                  "TipoTarea, tblMaterias.Des AS Materia, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] AS Grupo FROM "
                  "((((tblTareas INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id) INNER JOIN "
                  "tblMaterias ON tblTareas.IdMat = tblMaterias.Id) INNER JOIN tblGrupos ON tblTareas.IdGru = "
                  "tblGrupos.Id) INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER JOIN tblNiveles ON "
                  "tblCursos.IdNivel = tblNiveles.Id WHERE tblTareasTipos.Des = '") +
                  tarea_.type + u'\'',
              cnLista_);
    if (!tipo.Eof()) {
        idTip_ = CLng(tipo.Value(QStringLiteral("IdTip")));
        lblInfo->setText(QStringLiteral("RÚBRICAS DE ") + ui::displayText(tipo.Value(QStringLiteral("TipoTarea"))));
    }
    tipo.Close();

    rsLista_.Close();
    rsLista_.Open(
        QStringLiteral(
            "SELECT tblTareas.Id AS IdTarea, tblTareas.Des AS Tarea, tblEvaluaciones.Des AS Avaliacion, "
            "tblMaterias.Des AS Materia, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' - ' & [tblGrupos]![Des] AS "
            "Grupo FROM (((((tblTareas INNER JOIN tblEvaluaciones ON tblTareas.IdEva = tblEvaluaciones.Id) INNER JOIN "
            "tblMaterias ON tblTareas.IdMat = tblMaterias.Id) INNER JOIN tblGrupos ON tblTareas.IdGru = tblGrupos.Id) "
            "INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER JOIN tblNiveles ON tblCursos.IdNivel = "
            "tblNiveles.Id) INNER JOIN tblTareasRubrica ON tblTareas.Id = tblTareasRubrica.IdTarea GROUP BY "
            "tblTareas.Id, tblTareas.Des, tblEvaluaciones.Des, tblMaterias.Des, tblTareas.IdTip, [tblCursos]![Des] & "
            "' ' & [tblNiveles]![Des] & ' - ' & [tblGrupos]![Des] HAVING tblTareas.IdTip=%1")
            .arg(idTip_),
        cnLista_);

    FlexGrid& g = *mshDatos;
    // The texts take shares of the grid's width as it is at the fill.
    const auto columnas = ui::GridColumns{{QString(), 0},
                                          {QString(), 500},
                                          {QStringLiteral("Tarea"), -1, {}, {}, 25},
                                          {QStringLiteral("Materia"), -1, {}, {}, 30},
                                          {QStringLiteral("Grupo"), -1, {}, {}, 15},
                                          {QStringLiteral("Avaliación"), -1, {}, {}, 20}}
                              .alignAll(Qt::AlignLeft | Qt::AlignVCenter)
                              .fitTitles();
    g.setRedraw(false);
    columnas.shape(g, rsLista_.RecordCount());
    int r = 1;
    for (; !rsLista_.Eof(); rsLista_.MoveNext(), ++r) {
        g.setTextMatrix(r, ColIdTarea, ui::displayText(rsLista_.Value(QStringLiteral("IdTarea"))));
        g.setTextMatrix(r, ColNumero, QString::number(r));
        g.setTextMatrix(r, ColTarea, ui::displayText(rsLista_.Value(QStringLiteral("Tarea"))));
        g.setTextMatrix(r, ColMateria, ui::displayText(rsLista_.Value(QStringLiteral("Materia"))));
        g.setTextMatrix(r, ColGrupo, ui::displayText(rsLista_.Value(QStringLiteral("Grupo"))));
        g.setTextMatrix(r, ColAvaliacion, ui::displayText(rsLista_.Value(QStringLiteral("Avaliacion"))));
    }
    ui::finishGrid(g);
}

void frmRubricas::txtCurso_Enter()
{
    if (!QFileInfo::exists(RutaCurso())) {
        MsgBox(QStringLiteral("Esta curso non existe"), vbInformation);
        txtCurso->setFocus();
        return;
    }
    RellenarLista();
}

void frmRubricas::mshDatos_Elegir()
{
    const int r = mshDatos->Row();
    // An empty list has no row to copy from.
    if (mshDatos->Rows() < 2 || r < 1 || !IsNumeric(mshDatos->TextMatrix(r, ColIdTarea)))
        return;
    if (MsgBox(QStringLiteral("Crear nova rúbrica?"), vbYesNo + vbInformation) != vbYes)
        return;
    CrearRubrica(CLng(mshDatos->TextMatrix(r, ColIdTarea)));
    MsgBox(QStringLiteral("Proceso finalizado"), vbInformation);
}

void frmRubricas::CrearRubrica(qint32 idOrigen)
{
    db::Recordset destino;
    destino.Open(QStringLiteral("SELECT * FROM tblTareasRubrica"), gConexion);
    db::Recordset origen;
    origen.Open(QStringLiteral("SELECT * FROM tblTareasRubrica WHERE tblTareasRubrica.IdTarea = %1").arg(idOrigen),
                cnLista_);
    // Added after the activities the task has: nothing is removed.
    for (; !origen.Eof(); origen.MoveNext()) {
        destino.AddNew();
        destino.Fields(QStringLiteral("Id")) = SiguienteId(QStringLiteral("tblTareasRubrica"), QStringLiteral("Id"));
        destino.Fields(QStringLiteral("IdTarea")) = tarea_.id;
        for (const char* campo : {"Num", "Des", "Por", "Max", "Cri"})
            destino.Fields(QLatin1String(campo)) = origen.Value(QLatin1String(campo));
        destino.Update();
    }
}

void frmRubricas::done(int result)
{
    rsLista_.Close();
    Form::done(result);
}
