#include "rubrics/frmTareasRubricaActividad.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using vb::IsNumeric;

namespace {

const QString kTabla = QStringLiteral("tblTareasRubrica");

QPlainTextEdit* texto(QWidget* form, const char* name, int lines)
{
    auto* field = new QPlainTextEdit(form);
    field->setObjectName(QLatin1String(name));
    field->setFixedHeight(field->fontMetrics().lineSpacing() * lines + 12);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 52);
    return field;
}

// Refuses the entry: the message, the focus to the field and, when asked,
// its text selected.
bool rechazar(const QString& text, QLineEdit* field, bool select)
{
    MsgBox(text, vbInformation);
    field->setFocus();
    if (select)
        field->selectAll();
    return false;
}

} // namespace

frmTareasRubricaActividad::frmTareasRubricaActividad(const RubricTask& tarea, QWidget* parent)
    : Form(parent), txtId(ui::textField(this, "txtId", 8)), txtNum(ui::textField(this, "txtNum", 6)),
      txtDes(texto(this, "txtDes", 3)), txtPor(ui::textField(this, "txtPor", 8)),
      txtMax(ui::textField(this, "txtMax", 6)), txtCri(texto(this, "txtCri", 4)),
      cmdAceptar(ui::commandButton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      cmdCancelar(ui::commandButton(this, "cmdCancelar", QStringLiteral("&Cancelar"))), tarea_(tarea)
{
    setObjectName(QStringLiteral("frmTareasRubricaActividad"));
    setCaption(QStringLiteral("Actividades da Rúbrica"));
    txtId->setReadOnly(true);
    txtId->setFocusPolicy(Qt::NoFocus);

    auto* campos = new QFormLayout;
    campos->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const std::pair<const char*, QWidget*> filas[] = {{"Código", txtId},       {"Nº", txtNum},
                                                      {"Descripción", txtDes}, {"% Valor", txtPor},
                                                      {"Max. Valor", txtMax},  {"Criterios de valoración:", txtCri}};
    for (const auto& [texto, campo] : filas) {
        auto* etiqueta = new QLabel(QString::fromUtf8(texto), this);
        etiqueta->setBuddy(campo);
        campos->addRow(etiqueta, campo);
    }
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdAceptar);
    botones->addWidget(cmdCancelar);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(campos);
    layout->addSpacing(8);
    layout->addLayout(botones);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    ui::installEntryConventions(txtNum);
    ui::installDecimalComma(txtPor);
    ui::installEntryConventions(txtMax);
    ui::keepEnterAsText(txtDes);
    ui::keepEnterAsText(txtCri);
    ui::onFieldLeft(txtPor, [this] { txtPor_LostFocus(); });
    ui::onFieldLeft(txtMax, [this] { txtMax_LostFocus(); });
    setCancelButton(cmdCancelar);
    using F = frmTareasRubricaActividad;
    onSignal(cmdAceptar, &QPushButton::clicked, &F::cmdAceptar_Click);
    onSignal(cmdCancelar, &QPushButton::clicked, &F::cmdCancelar_Click);
}

void frmTareasRubricaActividad::Form_Activate()
{
    if (cargado_)
        return;
    cargado_ = true;
    ui::limitToColumn(txtNum, kTabla, QStringLiteral("Num"));
    ui::limitToColumn(txtDes, kTabla, QStringLiteral("Des"));
    ui::limitToColumn(txtCri, kTabla, QStringLiteral("Cri"));
    if (estado_ == 0) {
        txtId->setText(QString::number(SiguienteId(kTabla, QStringLiteral("Id"))));
        txtNum->setFocus();
        return;
    }
    rs_.Close();
    rs_.Open(QStringLiteral("SELECT * FROM tblTareasRubrica WHERE Id = %1").arg(id_), gConexion);
    txtId->setText(QString::number(id_));
    txtNum->setText(ui::displayText(rs_.Value(QStringLiteral("Num"))));
    txtDes->setPlainText(ui::displayText(rs_.Value(QStringLiteral("Des"))));
    txtPor->setText(ui::displayText(rs_.Value(QStringLiteral("Por"))));
    txtMax->setText(ui::displayText(rs_.Value(QStringLiteral("Max"))));
    txtCri->setPlainText(ui::displayText(rs_.Value(QStringLiteral("Cri"))));
    txtDes->setFocus();
}

void frmTareasRubricaActividad::txtPor_LostFocus()
{
    if (!IsNumeric(txtPor->text())) {
        MsgBox(QStringLiteral("Poña un nº correcto"), vbInformation);
        txtPor->setFocus();
    }
}

void frmTareasRubricaActividad::txtMax_LostFocus()
{
    if (!IsNumeric(txtMax->text())) {
        MsgBox(QStringLiteral("Poña un número correcto maior de cero"), vbInformation);
        txtMax->setFocus();
        return;
    }
    // As a byte: below 0 or above 255 is the conversion's overflow.
    if (vb::CByte(txtMax->text()) == 0) {
        MsgBox(QStringLiteral("Debe de poñer un nº maior de cero"), vbInformation);
        txtMax->setFocus();
    }
}

bool frmTareasRubricaActividad::ComprobaDatos()
{
    if (txtNum->text().isEmpty())
        return rechazar(QStringLiteral("Ponga un número de actividade"), txtNum, false);
    if (!IsNumeric(txtPor->text()))
        return rechazar(QStringLiteral("Ponga un % de valoración correcto"), txtPor, true);
    if (!IsNumeric(txtMax->text()))
        return rechazar(QStringLiteral("Ponga un valor máximo de 0 a 255"), txtMax, true);
    if (vb::CLng(txtMax->text()) >= 256)
        return rechazar(QStringLiteral("Ponga un valor máximo de 0 a 255"), txtMax, true);
    return true;
}

void frmTareasRubricaActividad::cmdAceptar_Click()
{
    if (!ComprobaDatos())
        return;
    Grabar();
    Unload();
}

void frmTareasRubricaActividad::Grabar()
{
    if (estado_ == 0) {
        rs_.Close();
        rs_.Open(kTabla, gConexion);
        rs_.AddNew();
        rs_.Fields(QStringLiteral("Id")) = vb::CLng(txtId->text());
        rs_.Fields(QStringLiteral("IdTarea")) = tarea_.id;
    }
    rs_.Fields(QStringLiteral("Num")) = txtNum->text();
    rs_.Fields(QStringLiteral("Des")) = txtDes->toPlainText();
    rs_.Fields(QStringLiteral("Por")) = vb::CSng(txtPor->text());
    rs_.Fields(QStringLiteral("Max")) = int(vb::CByte(txtMax->text()));
    rs_.Fields(QStringLiteral("Cri")) = txtCri->toPlainText();
    rs_.Update();
}

void frmTareasRubricaActividad::done(int result)
{
    rs_.Close();
    Form::done(result);
}
