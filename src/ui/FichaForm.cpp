#include "ui/FichaForm.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "ui/EntryConventions.h"
#include "ui/MaskEdit.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "vb/Vb.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

struct FichaForm::Combo {
    TextKeyCombo box;
    QString statement;
    QString column; // of the table, where the key is kept
};

FichaForm::FichaForm(const QString& table, QWidget* parent)
    : Form(parent), txtId(ui::textField(this, "txtId")), txtDes(ui::textField(this, "txtDes")),
      cmdAceptar(ui::commandButton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      cmdCancelar(ui::commandButton(this, "cmdCancelar", QStringLiteral("&Cancelar"))), table(table),
      fields_(new QFormLayout)
{
    txtId->setReadOnly(true);
    txtId->setMaximumWidth(txtId->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")) + 12);
    txtDes->setMinimumWidth(txtDes->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 48);

    fields_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fields_->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    addField(QStringLiteral("Código"), txtId);
    addText(QStringLiteral("Descripción"), txtDes, QStringLiteral("Des"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAceptar);
    buttons->addWidget(cmdCancelar);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields_);
    layout->addStretch(1);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    setCancelButton(cmdCancelar);
    connect(cmdAceptar, &QPushButton::clicked, this, [this] { ui::guardRuntime([this] { cmdAceptar_Click(); }); });
    connect(cmdCancelar, &QPushButton::clicked, this, [this] { ui::guardRuntime([this] { cmdCancelar_Click(); }); });
}

FichaForm::~FichaForm() = default;

void FichaForm::addField(const QString& label, QWidget* field)
{
    if (label.isEmpty()) {
        fields_->addRow(QString(), field);
    } else {
        auto* caption = new QLabel(label, this);
        caption->setObjectName(QStringLiteral("lbl") + field->objectName().mid(3));
        caption->setBuddy(field);
        fields_->addRow(caption, field);
    }
    if (auto* combo = qobject_cast<QComboBox*>(field))
        combo->setSizePolicy(QSizePolicy::Expanding, combo->sizePolicy().verticalPolicy());
    ui::installEntryConventions(field);
}

void FichaForm::addText(const QString& label, QLineEdit* field, const QString& column)
{
    addField(label, field);
    bound_.push_back({field, column});
}

void FichaForm::addCheck(QCheckBox* field, const QString& column)
{
    addField(QString(), field);
    bound_.push_back({field, column});
}

void FichaForm::addCombo(const QString& label, QComboBox* combo, const QString& statement, const QString& keyField,
                         const QString& textField, const QString& column)
{
    addField(label, combo);
    combos_.push_back(std::make_unique<Combo>(
        Combo{TextKeyCombo(combo, keyField, textField), statement, column.isEmpty() ? keyField : column}));
}

void FichaForm::addDate(const QString& label, MaskEdit* field, const QString& column)
{
    addField(label, field);
    ui::installDateConventions(field);
    bound_.push_back({field, column});
}

QString FichaForm::Fecha(const MaskEdit* field)
{
    // While the box has the focus it still shows its mask.
    const QString text = field->Text();
    return text == QStringLiteral("__/__/____") ? QString() : text;
}

void FichaForm::dropDescription()
{
    description_ = false;
    fields_->setRowVisible(txtDes, false);
    std::erase_if(bound_, [this](const Bound& b) { return b.field == txtDes; });
}

void FichaForm::setIdCaption(const QString& caption)
{
    if (auto* label = qobject_cast<QLabel*>(fields_->labelForField(txtId)))
        label->setText(caption);
}

QString FichaForm::loadStatement() const
{
    return QStringLiteral("SELECT * FROM %1 WHERE Id = %2").arg(table).arg(id_);
}

QWidget* FichaForm::firstField() const
{
    if (description_)
        return txtDes;
    // The row under Código and the hidden Descripción.
    QLayoutItem* item = fields_->rowCount() > 2 ? fields_->itemAt(2, QFormLayout::FieldRole) : nullptr;
    return item && item->widget() ? item->widget() : txtId;
}

void FichaForm::Form_Activate()
{
    if (!loaded_) {
        loaded_ = true;
        for (auto& combo : combos_)
            combo->box.fill(combo->statement);
        for (const Bound& b : bound_)
            if (auto* line = qobject_cast<QLineEdit*>(b.field); line && !qobject_cast<MaskEdit*>(b.field))
                ui::limitToColumn(line, table, b.column);
        loadLists();
    }
    if (estado_ == 0) {
        txtId->setText(QString::number(SiguienteId(table, QStringLiteral("Id"), QString())));
    } else {
        rs.Close();
        rs.Open(loadStatement(), gConexion);
        txtId->setText(QString::number(id_));
        for (const Bound& b : bound_) {
            if (auto* date = qobject_cast<MaskEdit*>(b.field))
                date->setText(vb::IsNull(rs.Value(b.column))
                                  ? QString()
                                  : vb::Format(rs.Value(b.column), QStringLiteral("dd/MM/yyyy")));
            else if (auto* line = qobject_cast<QLineEdit*>(b.field))
                line->setText(Texto(rs.Value(b.column)));
            else if (auto* check = qobject_cast<QCheckBox*>(b.field))
                check->setChecked(rs.Value(b.column).toBool());
        }
        for (auto& combo : combos_)
            combo->box.showKey(rs.Value(combo->column));
        showFields(rs);
    }
    firstField()->setFocus();
}

bool FichaForm::Rechazar(const QString& text, QWidget* field)
{
    MsgBox(text, vbInformation);
    field->setFocus();
    return false;
}

bool FichaForm::ComprobaDatos()
{
    if (txtDes->text().isEmpty())
        return Rechazar(descriptionMessage, txtDes);
    return true;
}

void FichaForm::cmdAceptar_Click()
{
    if (!ComprobaDatos())
        return;
    if (estado_ == 0)
        GrabarNuevo();
    else
        GrabarModificado();
    releaseRecordsets();
    Unload();
}

void FichaForm::cmdCancelar_Click()
{
    releaseRecordsets();
    Unload();
}

void FichaForm::GrabarNuevo()
{
    rs.Close();
    rs.Open(table, gConexion);
    rs.AddNew();
    rs.Fields(QStringLiteral("Id")) = vb::CLng(txtId->text());
    writeAll();
}

void FichaForm::GrabarModificado()
{
    writeAll();
}

void FichaForm::writeAll()
{
    for (const Bound& b : bound_) {
        if (auto* date = qobject_cast<MaskEdit*>(b.field))
            rs.Fields(b.column) = vb::IsDate(Fecha(date)) ? vb::CDate(Fecha(date)) : QVariant();
        else if (auto* line = qobject_cast<QLineEdit*>(b.field))
            rs.Fields(b.column) = line->text();
        else if (auto* check = qobject_cast<QCheckBox*>(b.field))
            rs.Fields(b.column) = check->isChecked();
    }
    for (auto& combo : combos_)
        combo->box.write(rs, estado_, combo->column);
    writeFields(rs);
    rs.Update();
}

void FichaForm::releaseRecordsets()
{
    for (auto& combo : combos_)
        combo->box.release();
    rs.Close();
}

void FichaForm::done(int result)
{
    releaseRecordsets();
    Form::done(result);
}

void FichaForm::keyPressEvent(QKeyEvent* event)
{
    // Enter that no field took (a check box, a closed list box) moves on as
    // it does in the text fields, rather than pressing a button.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        QWidget* focus = focusWidget();
        if (focus && !qobject_cast<QPushButton*>(focus))
            ui::focusNextField(focus);
        event->accept();
        return;
    }
    Form::keyPressEvent(event);
}

void TextKeyCombo::fill(const QString& statement)
{
    rs_.Close();
    rs_.Open(statement, gConexion);
    combo_->clear();
    if (rs_.RecordCount() == 0)
        return;
    rs_.MoveFirst();
    while (!rs_.Eof()) {
        combo_->addItem(FichaForm::Texto(rs_.Value(textField_)));
        rs_.MoveNext();
    }
    rs_.MoveFirst();
    combo_->setCurrentIndex(0);
}

void TextKeyCombo::showKey(const QVariant& key)
{
    if (vb::IsNull(key) || rs_.RecordCount() == 0)
        return;
    rs_.MoveFirst();
    rs_.Find(QStringLiteral("%1 = %2").arg(keyField_).arg(vb::CLng(key)));
    if (!rs_.Eof())
        combo_->setCurrentIndex(rs_.AbsolutePosition() - 1);
}

void TextKeyCombo::write(db::Recordset& row, quint8 estado, const QString& keyColumn)
{
    const QString text = combo_->currentText();
    if (text.isEmpty()) {
        row.Fields(estado == 0 ? textField_ : keyColumn) = 0;
        return;
    }
    rs_.MoveFirst();
    rs_.Find(QStringLiteral("%1 = '%2'").arg(textField_, text));
    row.Fields(keyColumn) = rs_.Value(keyField_);
}

std::optional<QVariant> TextKeyCombo::keyOf(const QString& text)
{
    if (rs_.RecordCount() == 0)
        return std::nullopt;
    rs_.MoveFirst();
    rs_.Find(QStringLiteral("%1 = '%2'").arg(textField_, text));
    if (rs_.Eof())
        return std::nullopt;
    return rs_.Value(keyField_);
}
