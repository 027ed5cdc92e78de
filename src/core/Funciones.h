#pragma once
// Record and lookup functions shared by the screens. They work on gConexion
// and have no error handler: a failing statement raises RuntimeError.
#include <QString>
#include <QVariant>

// Next key of a table: the last value in ascending order plus one, or 1.
qint32 SiguienteId(const QString& tabla, const QString& columna, const QString& serie = QString());
// The text of a key, or "NO ENCONTRADO".
QString DescripcionPorId(const QString& tabla, const QString& clave, const QString& texto, qint32 id);
// The key of a text, or 0.
qint32 IdPorDescripcion(const QString& tabla, const QString& texto, const QString& clave, const QString& valor);
// Whether a row has that value in the column (which may be an expression).
bool ExisteRegistro(const QString& tabla, const QString& columna, const QString& valor);
void BorrarRegistro(const QString& tabla, const QString& columna, const QString& valor);
// Weight of a task type for an evaluation, subject and group; 0 if none.
float PesoTipoTarea(qint32 tipo, qint32 eval, qint32 mat, qint32 grupo);
// Gives Orden the values 1, 2, 3 ... in the present order.
void RenumerarOrden(const QString& tabla);
// (value / maximum) * (percentage / 100) * factor, to 3 decimals.
float NotaPonderada(float porcentaje, quint8 maximo, quint8 valor, const QVariant& factor);
