#include "marks/NotaDialog.h"

#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

NotaDialog::NotaDialog(QWidget* parent)
    : Form(parent), txtNota(new QLineEdit(this)), txtObs(new QLineEdit(this)),
      cmdAceptar(ui::commandButton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      cmdCancelar(ui::commandButton(this, "cmdCancelar", QStringLiteral("&Cancelar"))), fields_(new QFormLayout),
      buttons_(new QHBoxLayout)
{
    txtNota->setObjectName(QStringLiteral("txtNota"));
    txtObs->setObjectName(QStringLiteral("txtObs"));
    txtNota->setMaximumWidth(txtNota->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")) + 12);
    txtObs->setMinimumWidth(txtObs->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 44);

    auto* lblNota = new QLabel(QStringLiteral("Nota"), this);
    lblNota->setBuddy(txtNota);
    auto* lblObs = new QLabel(QStringLiteral("Observaciones"), this);
    lblObs->setBuddy(txtObs);
    fields_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fields_->addRow(lblNota, txtNota);
    fields_->addRow(lblObs, txtObs);

    buttons_->addStretch(1);
    buttons_->addWidget(cmdAceptar);
    buttons_->addWidget(cmdCancelar);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields_);
    layout->addSpacing(8);
    layout->addLayout(buttons_);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    ui::installEntryConventions(txtObs);
    ui::installDecimalComma(txtNota);
    ui::onFieldLeft(txtNota, [this] { txtNota_LostFocus(); });
    setCancelButton(cmdCancelar);
    onSignal(cmdAceptar, &QPushButton::clicked, &NotaDialog::cmdAceptar_Click);
    onSignal(cmdCancelar, &QPushButton::clicked, &NotaDialog::cmdCancelar_Click);
}

void NotaDialog::addButton(QPushButton* button)
{
    buttons_->addWidget(button);
}

void NotaDialog::addTopWidget(QWidget* widget)
{
    fields_->insertRow(0, widget);
}

void NotaDialog::cmdAceptar_Click()
{
    Guardar();
    Unload();
}

bool NotaDialog::NotaNumerica()
{
    if (vb::IsNumeric(txtNota->text()))
        return true;
    MsgBox(QStringLiteral("Ponga un nº correcto"), vbInformation);
    txtNota->setFocus();
    return false;
}

QString NotaDialog::typedMark() const
{
    return QString(txtNota->text()).replace(u',', u'.');
}

QString NotaDialog::notaEnSimple() const
{
    return vb::CStr(QVariant::fromValue(vb::CSng(txtNota->text()))).replace(u',', u'.');
}

QString NotaDialog::obs() const
{
    return txtObs->text();
}
