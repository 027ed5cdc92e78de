#pragma once
// Month names in Galician and in Spanish, in calendar order. The Galician list
// is the program's own: "Outono" and "Nadal" stand for October and December.
#include <QString>
#include <QStringList>

namespace MesALetra {

const QStringList& Galego();
const QStringList& Castelan();

// Name of a month 1..12 in each list.
inline QString MesGalego(int mes)
{
    return Galego().value(mes - 1);
}
inline QString MesCastelan(int mes)
{
    return Castelan().value(mes - 1);
}

} // namespace MesALetra
