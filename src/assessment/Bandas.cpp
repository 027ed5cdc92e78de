#include "assessment/Bandas.h"

#include "core/BandColours.h"
#include "ui/Colors.h"
#include "vb/Vb.h"

namespace bandas {

QString nome(int banda)
{
    return QLatin1String(bands::kNames[banda]);
}

QColor color(int banda)
{
    return QColor::fromRgb(bands::kColours[banda]);
}

std::optional<QColor> colorDeNota(float nota, qint16 maximo)
{
    if (maximo == 0)
        vb::Raise(RuntimeError::DivisionByZero);
    // Single precision, as the mark is kept.
    const float n = nota / float(maximo) * 10.0f;
    if (n > 0 && n < 5)
        return color(IN);
    if (n >= 5 && n < 6)
        return color(SF);
    if (n >= 6 && n < 7)
        return color(BE);
    if (n >= 7 && n < 9)
        return color(NT);
    if (n >= 9 && n <= 10)
        return color(SB);
    if (nota < 0)
        return ui::buttonFace();
    return std::nullopt;
}

QString entre(int banda)
{
    switch (banda) {
    case SF:
        return QStringLiteral("BETWEEN 4.999 AND 5.99");
    case BE:
        return QStringLiteral("BETWEEN 5.999 AND 6.99");
    case NT:
        return QStringLiteral("BETWEEN 6.999 AND 8.99");
    default:
        return QStringLiteral("BETWEEN 8.999 AND 10");
    }
}

QString sqlConteo(int banda, qint32 idTarea)
{
    const QString axustada = QStringLiteral("(tblNotas.Nota/[tblTareasTipos]![Max]*10");
    const QString desde =
        QStringLiteral(
            " FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON "
            "tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.IdTarea=%1")
            .arg(idTarea);
    const QString notaAxustada = QStringLiteral("SELECT ") + axustada + QStringLiteral(") AS NotaAxustada") + desde;
    const QString notaMax = QStringLiteral("SELECT tblNotas.Nota, tblTareasTipos.Max") + desde;
    if (banda == IN)
        return notaAxustada + QStringLiteral(" AND ") + axustada + QStringLiteral(")<4.999 AND ") + axustada +
               QStringLiteral(")>0;");
    // SF selects the adjusted mark, the others the mark and the maximum.
    return (banda == SF ? notaAxustada : notaMax) + QStringLiteral(" AND ") + axustada + u' ' + entre(banda) + u')';
}

} // namespace bandas
