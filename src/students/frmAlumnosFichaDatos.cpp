// The student sheet's data: loading a student, the two validations of a save
// with their order of verdicts, and the save of a new or an edited student.
#include "students/frmAlumnosFicha.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "ui/MaskEdit.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

// A refused entry: the text with the information icon, the focus to a field.
bool rexeita(const QString& text, QWidget* field)
{
    MsgBox(text, vbInformation);
    field->setFocus();
    return false;
}

// A date box saves its text as a date, or Null when it holds no date.
QVariant dateValue(const MaskEdit* box)
{
    return vb::IsDate(box->Text()) ? QVariant(box->Text()) : QVariant();
}

} // namespace

std::vector<frmAlumnosFicha::CampoTexto> frmAlumnosFicha::CamposTexto() const
{
    return {{txtApe, "Ape"},   {txtNom, "Nom"},       {mskFecNac, "FecNac"},   {mskFecMat, "FecMat"},
            {txtDir, "Dir"},   {txtCP, "CP"},         {txtPob, "Pob"},         {txtPro, "Pro"},
            {txtPais, "Pais"}, {txtPai, "Pai"},       {txtTelPai, "TelPai"},   {txtMailPai, "MailPai"},
            {txtNai, "Nai"},   {txtTelNai, "TelNai"}, {txtMailNai, "MailNai"}, {txtMailAlu, "MailAlu"}};
}

void frmAlumnosFicha::CargaAlumno()
{
    rsAlumno_.Close();
    rsAlumno_.Open(QStringLiteral("SELECT * FROM tblAlumnos WHERE Id = %1").arg(id_), gConexion);
    for (const CampoTexto& c : CamposTexto())
        c.box->setText(FichaForm::Texto(rsAlumno_.Value(QLatin1String(c.column))));
    txtObs->setPlainText(FichaForm::Texto(rsAlumno_.Value(QStringLiteral("Obs"))));
    // A group that is gone leaves the box as it stood.
    grupos_.showKey(rsAlumno_.Value(QStringLiteral("Grupo")));
    // The weights of the marks tab are those of the group stored here, for
    // every evaluation, even when the student changed group during the year.
    const QVariant grupo = rsAlumno_.Value(QStringLiteral("Grupo"));
    grupoAlumno_ = vb::IsNumeric(grupo) ? vb::CLng(grupo) : 0;
    rutaFoto_ = FichaForm::Texto(rsAlumno_.Value(QStringLiteral("Foto")));
    MostraFoto();
}

bool frmAlumnosFicha::ComprobaDatos()
{
    // Every check runs and each one overrides the verdict of the ones before:
    // an empty name followed by a good birth date is shown, then passes.
    bool correcto =
        !(txtApe->text() + txtNom->text()).isEmpty() || rexeita(QStringLiteral("Ponga un nombre de alumno"), txtApe);
    if (!mskFecNac->Text().isEmpty())
        // The focus goes to the enrolment date, the field after the one at fault.
        correcto = vb::IsDate(mskFecNac->Text()) ||
                   rexeita(QStringLiteral("Ponga una fecha de nacimiento correcta"), mskFecMat);
    if (!mskFecMat->Text().isEmpty())
        correcto = vb::IsDate(mskFecMat->Text()) ||
                   rexeita(QStringLiteral("Ponga una fecha de matrícula correcta"), mskFecMat);
    return correcto;
}

bool frmAlumnosFicha::ComprobaNom()
{
    // Surnames and name run together, with no separator between them.
    const QString nome = txtApe->text() + txtNom->text();
    const QString duplicado = QStringLiteral("Este nombre de alumno ya existe. Ponga otro");
    if (estado_ == 0)
        return !ExisteRegistro(QStringLiteral("tblAlumnos"), QStringLiteral("[Ape] & [Nom]"), nome) ||
               rexeita(duplicado, txtApe);
    if (estado_ == 1) {
        if (nome == apeNomAnterior_)
            return true;
        if (!ExisteRegistro(QStringLiteral("tblAlumnos"), QStringLiteral("[Ape] & [Nom]"), nome))
            return true;
        // The former name comes back whole into the name field.
        txtApe->clear();
        txtNom->setText(apeNomAnterior_);
        return rexeita(duplicado, txtApe);
    }
    return false;
}

void frmAlumnosFicha::cmdAceptar_Click()
{
    const bool datos = ComprobaDatos();
    const bool nome = ComprobaNom();
    if (!datos || !nome)
        return;
    // The sheet stays open in its mode, with no message.
    if (estado_ == 0)
        GuardaNuevo();
    else if (estado_ == 1)
        GuardaCambios();
}

void frmAlumnosFicha::cmdCancelar_Click()
{
    Unload();
}

void frmAlumnosFicha::GuardaNuevo()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("tblAlumnos"), gConexion);
    rs.AddNew();
    rs.Fields(QStringLiteral("Id")) = id_;
    EscribeCampos(rs);
    rs.Update();
    rs.Close();
}

void frmAlumnosFicha::GuardaCambios()
{
    // The student's own row, as loaded: the list's recordset does not carry
    // every column.
    EscribeCampos(rsAlumno_);
    rsAlumno_.Update();
}

void frmAlumnosFicha::EscribeCampos(db::Recordset& row)
{
    for (const CampoTexto& c : CamposTexto()) {
        const auto* date = qobject_cast<const MaskEdit*>(c.box);
        row.Fields(QLatin1String(c.column)) = date ? dateValue(date) : QVariant(c.box->text());
    }
    row.Fields(QStringLiteral("Obs")) = txtObs->toPlainText();
    // An empty group goes in as empty text, which the numeric column refuses;
    // a text that names no group leaves the column as it was.
    const QString grupo = cmbGrupo->currentText();
    if (grupo.isEmpty())
        row.Fields(QStringLiteral("Grupo")) = QStringLiteral("");
    else if (const std::optional<QVariant> id = grupos_.keyOf(grupo))
        row.Fields(QStringLiteral("Grupo")) = *id;
    row.Fields(QStringLiteral("Foto")) = rutaFoto_;
}
