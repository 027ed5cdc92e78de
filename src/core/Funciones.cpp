#include "core/Funciones.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "vb/Vb.h"

qint32 SiguienteId(const QString& tabla, const QString& columna, const QString& serie)
{
    // The last value in ascending order is the greatest one: asking for it
    // directly spares reading every key of a table of marks.
    QString sql = QStringLiteral("SELECT Max(%1) AS Ultimo FROM %2").arg(columna, tabla);
    if (!serie.isEmpty())
        sql += QStringLiteral(" WHERE %1.Ser = '%2'").arg(tabla, serie);
    db::Recordset rs;
    rs.Open(sql, gConexion);
    const QVariant last = rs.Fields(QStringLiteral("Ultimo")).Value();
    rs.Close();
    return last.isNull() ? 1 : vb::CLng(last) + 1;
}

QString DescripcionPorId(const QString& tabla, const QString& clave, const QString& texto, qint32 id)
{
    db::Recordset rs;
    rs.Open(
        QStringLiteral("SELECT %1 AS Codigo,%2 AS Descripcion FROM %3 WHERE %3.%1=%4").arg(clave, texto, tabla).arg(id),
        gConexion);
    const QString result =
        rs.Eof() ? QStringLiteral("NO ENCONTRADO") : vb::CStr(rs.Fields(QStringLiteral("Descripcion")).Value());
    rs.Close();
    return result;
}

qint32 IdPorDescripcion(const QString& tabla, const QString& texto, const QString& clave, const QString& valor)
{
    db::Recordset rs;
    rs.Open(
        QStringLiteral("SELECT %1 AS Codigo,%2 AS Descripcion FROM %3 WHERE %2='%4'").arg(clave, texto, tabla, valor),
        gConexion);
    const qint32 result = rs.Eof() ? 0 : vb::CLng(rs.Fields(QStringLiteral("Codigo")).Value());
    rs.Close();
    return result;
}

bool ExisteRegistro(const QString& tabla, const QString& columna, const QString& valor)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT %1 AS Des FROM %2 WHERE %1 = '%3'").arg(columna, tabla, valor), gConexion);
    const bool exists = !(rs.Eof() && rs.Bof());
    rs.Close();
    return exists;
}

void BorrarRegistro(const QString& tabla, const QString& columna, const QString& valor)
{
    gConexion->Execute(QStringLiteral("DELETE %1.*, %1.%2 From %1 WHERE %1.%2=%3").arg(tabla, columna, valor));
}

float PesoTipoTarea(qint32 tipo, qint32 eval, qint32 mat, qint32 grupo)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Valor FROM tblTareasTiposValor WHERE IdTareaTip = %1 AND IdEval = %2 AND IdMat = "
                           "%3 AND IdGrupo = %4")
                .arg(tipo)
                .arg(eval)
                .arg(mat)
                .arg(grupo),
            gConexion);
    // When several rows match, the first one counts.
    const float weight = rs.RecordCount() >= 1 ? vb::CSng(rs.Fields(QStringLiteral("Valor")).Value()) : 0.0f;
    rs.Close();
    return weight;
}

void RenumerarOrden(const QString& tabla)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Orden FROM %1 ORDER BY ORDEN").arg(tabla), gConexion);
    if (!rs.Eof()) {
        rs.MoveFirst();
        qint32 orden = 1;
        // Moving to the next row saves the edited one.
        while (!rs.Eof()) {
            rs.Fields(QStringLiteral("Orden")) = orden++;
            rs.MoveNext();
        }
    }
    rs.Close();
}

float NotaPonderada(float porcentaje, quint8 maximo, quint8 valor, const QVariant& factor)
{
    if (maximo == 0)
        return 0.0f;
    const double nota = (double(valor) / double(maximo)) * (double(porcentaje) / 100.0) * vb::CDbl(factor);
    return float(vb::Round(nota, 3));
}
