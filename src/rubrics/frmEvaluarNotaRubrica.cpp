#include "rubrics/frmEvaluarNotaRubrica.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "rubrics/frmEvaluarNotaRubricaValor.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "ui/UiFunciones.h"
#include "vb/Vb.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using vb::IsNumeric;

namespace {

const QString kMarca = QStringLiteral("X");

// Text to the left, numbers to the right, the scale and the mark centred.
const ui::GridColumns kColumnas = ui::GridColumns{
    {QString(), 0},
    {QString(), 400},
    {QStringLiteral("Nº"), 500},
    {QStringLiteral("Descripción"), 3600},
    {QStringLiteral("Criterio"), 4200},
    {QStringLiteral("% Valor"), 900},
    {QStringLiteral("Max. Valor"), 1000, Qt::AlignCenter},
    {QStringLiteral("Valor"), 700, Qt::AlignCenter},
    {QStringLiteral("Ptos"), 800, Qt::AlignCenter},
    {QStringLiteral("Marcar"), 800,
     Qt::AlignCenter}}.fitTitles();

} // namespace

frmEvaluarNotaRubrica::frmEvaluarNotaRubrica(QWidget* parent)
    : Form(parent), lblTarea(ui::textLabel(this, "lblTarea")), lblAlumno(ui::textLabel(this, "lblAlumno")),
      mshDatos(new FlexGrid(this)), lblNota(ui::textLabel(this, "lblNota", QStringLiteral("0"))),
      lblNotaParcial(ui::textLabel(this, "lblNotaParcial")),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmEvaluarNotaRubrica"));
    setCaption(QStringLiteral("Rúbrica de nota"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    QFont bold = lblTarea->font();
    bold.setBold(true);
    lblTarea->setFont(bold);
    lblAlumno->setFont(bold);
    lblTarea->setWordWrap(true);
    QFont grande = bold;
    grande.setPointSizeF(bold.pointSizeF() * 1.4);
    lblNota->setFont(grande);
    lblNotaParcial->setFont(grande);
    lblNota->setMinimumWidth(lblNota->fontMetrics().horizontalAdvance(QStringLiteral("000,000")));
    lblNotaParcial->setMinimumWidth(lblNota->minimumWidth());
    mshDatos->setMinimumSize(900, 280);

    auto* totais = new QGridLayout;
    auto* total = new QLabel(QStringLiteral("Nota"), this);
    auto* parcial = new QLabel(QStringLiteral("Parcial (X)"), this);
    totais->addWidget(total, 0, 0);
    totais->addWidget(lblNota, 0, 1);
    totais->addWidget(parcial, 0, 2);
    totais->addWidget(lblNotaParcial, 0, 3);
    totais->setColumnMinimumWidth(2, 24);
    totais->setColumnStretch(4, 1);
    totais->addWidget(cmdSalir, 0, 5);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblTarea);
    layout->addWidget(lblAlumno);
    layout->addWidget(mshDatos, 1);
    layout->addLayout(totais);
    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);
    resize(1040, 480);

    mshDatos->installEventFilter(this);
    using F = frmEvaluarNotaRubrica;
    onSignal(mshDatos, &FlexGrid::DblClick, &F::AbrirValor);
    onSignal(mshDatos, &FlexGrid::EnterPressed, &F::AbrirValor);
    onSignal(mshDatos, &FlexGrid::clicked, &F::Marcar);
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

void frmEvaluarNotaRubrica::Form_Activate()
{
    if (consumeTagA())
        return;
    Cargar();
}

void frmEvaluarNotaRubrica::Cargar()
{
    lblTarea->setText(desTarea_);
    lblAlumno->setText(alumno_);
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareasRubrica.Id,  tblTareasRubrica.Num, tblTareasRubrica.Des, "
                           "tblTareasRubrica.Cri, tblTareasRubrica.Por, tblTareasRubrica.Max FROM tblTareasRubrica "
                           "Where tblTareasRubrica.IdTarea = %1 ORDER BY tblTareasRubrica.Num;")
                .arg(idTarea_),
            gConexion);
    FlexGrid& g = *mshDatos;
    // No activities: an empty grid, and lblNota keeps its first text.
    g.setRedraw(false);
    kColumnas.shape(g, rs.RecordCount());
    if (rs.RecordCount() == 0) {
        ui::finishGrid(g);
        return;
    }
    int r = 1;
    for (; !rs.Eof(); rs.MoveNext(), ++r) {
        const QVariant id = rs.Value(QStringLiteral("Id"));
        db::Recordset valor;
        valor.Open(QStringLiteral("SELECT tblNotasRubrica.Valor From tblNotasRubrica WHERE tblNotasRubrica.IdNota "
                                  "=%1 AND tblNotasRubrica.IdActividad = %2")
                       .arg(idNota_)
                       .arg(vb::CLng(id)),
                   gConexion);
        const QVariant v = valor.Eof() ? QVariant(0) : valor.Value(0);
        const QVariant por = rs.Value(QStringLiteral("Por"));
        const QVariant max = rs.Value(QStringLiteral("Max"));
        g.setTextMatrix(r, ColId, vb::CStr(id));
        g.setTextMatrix(r, ColNumero, QString::number(r));
        g.setTextMatrix(r, ColNum, ui::displayText(rs.Value(QStringLiteral("Num"))));
        g.setTextMatrix(r, ColDes, ui::displayText(rs.Value(QStringLiteral("Des"))));
        g.setTextMatrix(r, ColCri, ui::displayText(rs.Value(QStringLiteral("Cri"))));
        g.setTextMatrix(r, ColPor, ui::displayText(por));
        g.setTextMatrix(r, ColMax, ui::displayText(max));
        g.setTextMatrix(r, ColValor, vb::CStr(v));
        const float ptos = NotaPonderada(vb::CSng(por), vb::CByte(max), vb::CByte(v), notaMaxTarea_);
        g.setTextMatrix(r, ColPtos, vb::CStr(QVariant::fromValue(ptos)));
    }
    ui::finishGrid(g);
    MostrarTotal();
}

void frmEvaluarNotaRubrica::MostrarTotal()
{
    lblNota->setText(vb::CStr(QVariant::fromValue(SumarColumnaRubrica(*mshDatos))));
}

void frmEvaluarNotaRubrica::NotaParcial()
{
    float parcial = 0;
    for (int r = 1; r < mshDatos->Rows(); ++r)
        if (mshDatos->TextMatrix(r, ColMarcar) == kMarca)
            parcial += vb::CSng(mshDatos->TextMatrix(r, ColPtos));
    lblNotaParcial->setText(vb::Format(QVariant::fromValue(parcial), QStringLiteral("#0.00")));
}

void frmEvaluarNotaRubrica::Marcar()
{
    const int r = mshDatos->Row();
    if (r < 1 || r >= mshDatos->Rows())
        return;
    mshDatos->setTextMatrix(r, ColMarcar, mshDatos->TextMatrix(r, ColMarcar) == kMarca ? QString() : kMarca);
    NotaParcial();
}

void frmEvaluarNotaRubrica::Desmarcar()
{
    const int row = mshDatos->Row();
    const int col = mshDatos->Col();
    for (int r = 1; r < mshDatos->Rows(); ++r)
        mshDatos->setTextMatrix(r, ColMarcar, QString());
    lblNotaParcial->clear();
    if (row >= 1 && row < mshDatos->Rows()) {
        mshDatos->setRow(row);
        mshDatos->setCol(col);
    }
}

void frmEvaluarNotaRubrica::AbrirValor()
{
    const int r = mshDatos->Row();
    if (r < 1 || r >= mshDatos->Rows())
        return;
    Tag = QStringLiteral("A");
    frmEvaluarNotaRubricaValor valor(this);
    valor.setIdNota(idNota_);
    valor.setIdActi(vb::CLng(mshDatos->TextMatrix(r, ColId)));
    valor.setNum(mshDatos->TextMatrix(r, ColNum));
    valor.setDes(mshDatos->TextMatrix(r, ColDes));
    valor.setCri(mshDatos->TextMatrix(r, ColCri));
    const QString max = mshDatos->TextMatrix(r, ColMax);
    const QString v = mshDatos->TextMatrix(r, ColValor);
    valor.setMax(IsNumeric(max) ? vb::CByte(max) : 0);
    valor.setValor(IsNumeric(v) ? vb::CByte(v) : 0);
    ShowModal(&valor);
    const std::optional<int> aceptado = valor.Aceptado();
    if (!aceptado)
        return;
    // The row takes the value stored, its points from its own weight and Max.
    mshDatos->setTextMatrix(r, ColValor, QString::number(*aceptado));
    const float ptos = NotaPonderada(vb::CSng(mshDatos->TextMatrix(r, ColPor)),
                                     vb::CByte(mshDatos->TextMatrix(r, ColMax)), quint8(*aceptado), notaMaxTarea_);
    mshDatos->setTextMatrix(r, ColPtos, vb::CStr(QVariant::fromValue(ptos)));
    MostrarTotal();
}

bool frmEvaluarNotaRubrica::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mshDatos && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier))
            return Form::eventFilter(watched, event);
        if (key->key() == Qt::Key_Space) {
            ui::guardRuntime([this] { Marcar(); });
            return true;
        }
        if (key->text() == QLatin1String(".")) {
            ui::guardRuntime([this] { Desmarcar(); });
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void frmEvaluarNotaRubrica::ActualizarNota()
{
    if (!campoNota_)
        return;
    // An empty field is a fresh mark, as 0 is.
    const QString texto = campoNota_->text();
    const double nota = texto.trimmed().isEmpty() ? 0.0 : vb::CDbl(texto);
    auto total = [this] { return vb::CStr(vb::Round(vb::CDbl(lblNota->text()), 2)); };
    if (nota == 0) {
        campoNota_->setText(total());
        return;
    }
    if (MsgBox(QStringLiteral("Actualizar a nota?"), vbYesNo + vbInformation + vbDefaultButton2) == vbYes)
        campoNota_->setText(total());
}

void frmEvaluarNotaRubrica::done(int result)
{
    if (!pechando_) {
        pechando_ = true;
        ui::guardRuntime([this] { ActualizarNota(); });
    }
    Form::done(result);
}
