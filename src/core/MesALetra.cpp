#include "core/MesALetra.h"

namespace MesALetra {

const QStringList& Galego()
{
    static const QStringList names = {QStringLiteral("Xaneiro"), QStringLiteral("Febreiro"), QStringLiteral("Marzo"),
                                      QStringLiteral("Abril"),   QStringLiteral("Maio"),     QStringLiteral("Xuño"),
                                      QStringLiteral("Xullo"),   QStringLiteral("Agosto"),   QStringLiteral("Setembro"),
                                      QStringLiteral("Outono"),  QStringLiteral("Novembro"), QStringLiteral("Nadal")};
    return names;
}

const QStringList& Castelan()
{
    static const QStringList names = {
        QStringLiteral("Enero"),   QStringLiteral("Febrero"),   QStringLiteral("Marzo"),
        QStringLiteral("Abril"),   QStringLiteral("Mayo"),      QStringLiteral("Junio"),
        QStringLiteral("Julio"),   QStringLiteral("Agosto"),    QStringLiteral("Setiembre"),
        QStringLiteral("Octubre"), QStringLiteral("Noviembre"), QStringLiteral("Diciembre")};
    return names;
}

} // namespace MesALetra
