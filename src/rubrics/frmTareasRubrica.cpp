#include "rubrics/frmTareasRubrica.h"

#include "core/Modulo.h"
#include "rubrics/frmGraficoRubrica.h"
#include "rubrics/frmRubricas.h"
#include "rubrics/frmTareasRubricaActividad.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using vb::CLng;
using vb::IsNumeric;

namespace {

enum Col : int { ColNumero, ColId, ColNum, ColDes, ColPor, ColMax, NCols };

// The description takes 70 per cent of the grid, following its width.
const ui::GridColumns kColumnas = ui::GridColumns{{QString(), 500},
                                                  {QString(), 0},
                                                  {QStringLiteral("Nº"), 500},
                                                  {QStringLiteral("Descripción"), -1, {}, {}, 70},
                                                  {QStringLiteral("% Valor"), 600},
                                                  {QStringLiteral("Max. Valor"), 600}}
                                      .alignAll(Qt::AlignLeft | Qt::AlignVCenter)
                                      .fitTitles();

} // namespace

frmTareasRubrica::frmTareasRubrica(QWidget* parent)
    : Form(parent), lblCabecera(new QLabel(this)), mshDatos(new FlexGrid(this)),
      cmdNovo(ui::commandButton(this, "cmdNovo", QStringLiteral("&Nuevo"))),
      cmdEditar(ui::commandButton(this, "cmdEditar", QStringLiteral("&Editar"))),
      cmdBorrar(ui::commandButton(this, "cmdBorrar", QStringLiteral("&Borrar"))),
      cmdPlantilla(ui::commandButton(this, "cmdPlantilla", QStringLiteral("Cargar &Plantilla"))),
      cmdGrafico(ui::commandButton(this, "cmdGrafico", QStringLiteral("&Gráfico"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmTareasRubrica"));
    setCaption(QStringLiteral("Rúbrica de tarea"));
    lblCabecera->setObjectName(QStringLiteral("lblCabecera"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    QFont bold = lblCabecera->font();
    bold.setBold(true);
    lblCabecera->setFont(bold);
    lblCabecera->setWordWrap(true);
    mshDatos->setMinimumSize(640, 300);

    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {cmdNovo, cmdEditar, cmdBorrar, cmdPlantilla, cmdGrafico})
        botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdSalir);
    auto* grid = new QVBoxLayout;
    grid->addWidget(lblCabecera);
    grid->addWidget(mshDatos, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(grid, 1);
    layout->addLayout(botones);
    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);
    resize(860, 460);

    using F = frmTareasRubrica;
    const auto clicked = &QPushButton::clicked;
    onSignal(cmdNovo, clicked, &F::cmdNovo_Click);
    onSignal(cmdEditar, clicked, &F::cmdEditar_Click);
    onSignal(mshDatos, &FlexGrid::DblClick, &F::cmdEditar_Click);
    onSignal(cmdBorrar, clicked, &F::cmdBorrar_Click);
    onSignal(cmdPlantilla, clicked, &F::cmdPlantilla_Click);
    onSignal(cmdGrafico, clicked, &F::cmdGrafico_Click);
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

void frmTareasRubrica::Form_Activate()
{
    if (consumeTagA())
        return;
    Rellenar();
}

void frmTareasRubrica::Rellenar()
{
    strSql_ =
        QStringLiteral("SELECT * FROM tblTareasRubrica WHERE tblTareasRubrica.IdTarea = %1 ORDER BY Num").arg(idTarea_);
    rs_.Close();
    rs_.Open(strSql_, gConexion);

    FlexGrid& g = *mshDatos;
    // With no activities the grid has its titles and no rows.
    g.setRedraw(false);
    kColumnas.shape(g, rs_.RecordCount());
    int r = 1;
    for (; !rs_.Eof(); rs_.MoveNext(), ++r) {
        g.setTextMatrix(r, ColNumero, QString::number(r));
        g.setTextMatrix(r, ColId, ui::displayText(rs_.Value(QStringLiteral("Id"))));
        g.setTextMatrix(r, ColNum, ui::displayText(rs_.Value(QStringLiteral("Num"))));
        g.setTextMatrix(r, ColDes, ui::displayText(rs_.Value(QStringLiteral("Des"))));
        g.setTextMatrix(r, ColPor, ui::displayText(rs_.Value(QStringLiteral("Por"))));
        g.setTextMatrix(r, ColMax, ui::displayText(rs_.Value(QStringLiteral("Max"))));
    }
    ui::finishGrid(g);
}

void frmTareasRubrica::AnchoDescripcion()
{
    if (mshDatos->Cols() > ColDes)
        mshDatos->setColWidth(ColDes, kColumnas.widthOf(*mshDatos, ColDes));
}

void frmTareasRubrica::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    AnchoDescripcion();
}

bool frmTareasRubrica::HayFila() const
{
    const int r = mshDatos->Row();
    return mshDatos->Rows() > 1 && r >= 1 && IsNumeric(mshDatos->TextMatrix(r, ColId));
}

RubricTask frmTareasRubrica::Tarea() const
{
    return {idTarea_, lblCabecera->text(), tipoTarea_};
}

void frmTareasRubrica::cmdNovo_Click()
{
    frmTareasRubricaActividad actividad(Tarea(), this);
    actividad.setEstado(0);
    actividad.setCaption(QStringLiteral("Actividade Nova"));
    // The list fills again when it becomes active.
    ShowModal(&actividad);
}

void frmTareasRubrica::cmdEditar_Click()
{
    if (!HayFila())
        return;
    BusyCursor busy(this);
    Tag = QStringLiteral("A");
    gFilaActual = mshDatos->Row();
    {
        frmTareasRubricaActividad actividad(Tarea(), this);
        actividad.setEstado(1);
        actividad.setId(CLng(mshDatos->TextMatrix(gFilaActual, ColId)));
        actividad.setCaption(QStringLiteral("Modificando actividade nº  ") +
                             vb::UCase(mshDatos->TextMatrix(gFilaActual, ColNum)));
        ShowModal(&actividad);
    }
    Rellenar();
    // Back to the row where it was; a new number may have moved the activity.
    if (gFilaActual >= 1 && gFilaActual < mshDatos->Rows())
        mshDatos->setRow(gFilaActual);
}

void frmTareasRubrica::cmdBorrar_Click()
{
    if (!HayFila())
        return;
    const int r = mshDatos->Row();
    if (MsgBox(QStringLiteral("¿Borrar a actividade nº %1?").arg(mshDatos->TextMatrix(r, ColNum)),
               vbYesNo + vbInformation) != vbYes)
        return;
    // The values of the activity in tblNotasRubrica stay.
    gConexion->Execute(QStringLiteral("DELETE * FROM tblTareasRubrica WHERE tblTareasRubrica.Id= %1")
                           .arg(CLng(mshDatos->TextMatrix(r, ColId))));
    Rellenar();
    MsgBox(QStringLiteral("PROCESO FINALIZADO"), vbInformation);
}

void frmTareasRubrica::cmdPlantilla_Click()
{
    Tag = QStringLiteral("A");
    {
        frmRubricas rubricas(Tarea(), this);
        ShowModal(&rubricas);
    }
    Rellenar();
}

void frmTareasRubrica::cmdGrafico_Click()
{
    frmGraficoRubrica grafico(Tarea(), this);
    ShowModal(&grafico);
}

void frmTareasRubrica::done(int result)
{
    rs_.Close();
    Form::done(result);
}
