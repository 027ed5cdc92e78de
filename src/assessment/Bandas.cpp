#include "assessment/Bandas.h"

#include "core/BandColours.h"
#include "ui/Colors.h"
#include "vb/Vb.h"

namespace bands {

QString name(int band)
{
    return QLatin1String(bands::kNames[band]);
}

QColor colour(int band)
{
    return QColor::fromRgb(bands::kColours[band]);
}

std::optional<QColor> markColour(float mark, qint16 maximum)
{
    if (maximum == 0)
        vb::Raise(RuntimeError::DivisionByZero);
    // Single precision, as the mark is kept.
    const float n = mark / float(maximum) * 10.0f;
    if (n > 0 && n < 5)
        return colour(IN);
    if (n >= 5 && n < 6)
        return colour(SF);
    if (n >= 6 && n < 7)
        return colour(BE);
    if (n >= 7 && n < 9)
        return colour(NT);
    if (n >= 9 && n <= 10)
        return colour(SB);
    if (mark < 0)
        return ui::buttonFace();
    return std::nullopt;
}

QString between(int band)
{
    switch (band) {
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

QString countStatement(int band, qint32 taskId)
{
    const QString adjusted = QStringLiteral("(tblNotas.Nota/[tblTareasTipos]![Max]*10");
    const QString from =
        QStringLiteral(
            " FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON "
            "tblTareas.IdTip = tblTareasTipos.Id WHERE tblNotas.IdTarea=%1")
            .arg(taskId);
    const QString adjustedMark = QStringLiteral("SELECT ") + adjusted + QStringLiteral(") AS NotaAxustada") + from;
    const QString markAndMaximum = QStringLiteral("SELECT tblNotas.Nota, tblTareasTipos.Max") + from;
    if (band == IN)
        return adjustedMark + QStringLiteral(" AND ") + adjusted + QStringLiteral(")<4.999 AND ") + adjusted +
               QStringLiteral(")>0;");
    // SF selects the adjusted mark, the others the mark and the maximum.
    return (band == SF ? adjustedMark : markAndMaximum) + QStringLiteral(" AND ") + adjusted + u' ' + between(band) +
           u')';
}

} // namespace bands
